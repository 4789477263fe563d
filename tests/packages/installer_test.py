"""The installer, in a separate Wine prefix:
installer_test.py PACKAGES START-SHORTCUT.EXE READ-SETUP.EXE"""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time
import unittest
import zipfile

import package_case
from package_case import ROOT, files, package, version, wine

PREFIX = ROOT / "build" / os.environ["WINE_FOLDER"]
KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Vorstek"
MACHINE = r"HKLM\Software\Microsoft\Windows\CurrentVersion"
WINE_KEYS = r"[HKEY_CURRENT_USER\Software\Wine"
VERBS = r"Software\Classes\SystemFileAssociations\.txt\shell\Vorstek."
PATIENCE = 120      # seconds, on a very busy computer


def wait_for(is_so):
    end = time.monotonic() + PATIENCE
    while not is_so() and time.monotonic() < end:
        time.sleep(0.05)


def windows_name(path):
    """C:\\folder\\file of a path in the prefix."""
    return "C:\\" + str(path.relative_to(PREFIX / "drive_c")).replace("/", "\\")


def registry(root):
    """The keys below a key, "HKCU", with their values, as lines."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "export.reg"
        done = wine("reg", "export", root, f"Z:{path}", "/y")
        assert done.returncode == 0, done.stdout
        return path.read_text(encoding="utf-16").splitlines()


def values(lines, key):
    """The values of a key of the user by their names, "@" being the one without;
    none if there is no such key."""
    found, here = {}, False
    for line in lines:
        if line.startswith("["):
            here = line == f"[HKEY_CURRENT_USER\\{key}]"
        elif here and "=" in line:
            name, value = line.split("=", 1)
            if value.startswith('"'):
                value = re.sub(r"\\(.)", r"\1", value[1:-1])
            found[name.strip('"')] = value
    return found


def set_path(kind=None, value=None):
    """The user's PATH as it was made with another program; None: without one."""
    change = ["add", "HKCU\\Environment", "/v", "Path", "/t", kind, "/d", value, "/f"]
    done = wine("reg", *(change if kind else ["delete", "HKCU\\Environment", "/v", "Path", "/f"]))
    assert done.returncode == 0, done.stdout


def user_path():
    """The kind and the value of the user's PATH, None if there is none."""
    done = wine("reg", "query", "HKCU\\Environment", "/v", "Path")
    found = re.search(r"^ +Path +(REG_\w+) +(.*?)\r?$", done.stdout.decode(), re.MULTILINE)
    return found and found.groups()


def state():
    """Everything that an installer could leave: paths and registry keys, except
    those of Wine itself."""
    keys = {line for root in ("HKCU", MACHINE) for line in registry(root)
            if line.startswith("[") and not line.startswith(WINE_KEYS)}
    paths = {path.relative_to(PREFIX).as_posix() for path in (PREFIX / "drive_c").rglob("*")
             if "/temp/" not in str(path).lower()}
    return paths, keys


class InstallerTest(unittest.TestCase):

    TARGETS = {"Vorstek.lnk": "Vorstek.exe", "Vorstek manual.lnk": "VORSTEK.chm",
               "Vorstek examples.lnk": "examples"}

    @classmethod
    def setUpClass(cls):
        # Recreated only if an earlier test has left something.
        if any("vorstek" in name.lower() for names in state() for name in names):
            for option in ("-k", "-w"):     # ends what still runs there
                subprocess.run(["wineserver", option], env={**os.environ, "WINEPREFIX": PREFIX},
                               timeout=PATIENCE, check=False)
            shutil.rmtree(PREFIX)
            wine("cmd", "/c", "exit")
        cls.user = next(path for path in (PREFIX / "drive_c/users").iterdir()
                        if path.name != "Public")
        cls.folder = cls.user / "AppData/Local/Programs/Vorstek"
        cls.menu = cls.user / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Vorstek"
        with zipfile.ZipFile(package("vorstek-VERSION-windows-x64.zip")) as archive:
            cls.files = {entry.filename.split("/", 1)[1]: archive.read(entry)
                         for entry in archive.infolist() if not entry.is_dir()}
        # What Wine itself stores when its parts are first used is not a trace.
        cls.install("/LISTINGS")
        cls.start_program().communicate(timeout=PATIENCE)
        cls.uninstall()
        cls.before = state()

    @classmethod
    def install(cls, *options, code=0):
        done = wine(package("vorstek-VERSION-setup.exe"), "/S", *options)
        assert done.returncode == code, done

    @classmethod
    def uninstall(cls, folder=None, left=()):
        """The uninstaller continues in a copy of itself, so wait for its end. left
        is what remains in the folder."""
        folder = folder or cls.folder
        wine(folder / "Uninstall.exe", "/S")
        if left:
            wait_for(lambda: {path.name for path in folder.iterdir()} == set(left))
        else:
            wait_for(lambda: not folder.exists())
        wait_for(lambda: not values(registry("HKCU"), KEY))

    def assert_nothing_left(self, *exceptions):
        paths, keys = state()
        self.assertEqual(sorted(paths - self.before[0]), sorted(exceptions))
        self.assertEqual(sorted(keys - self.before[1]), [])
        self.assertEqual(self.before[0] - paths, set())
        for name in keys | paths - set(exceptions):
            self.assertNotIn("vorstek", name.lower())
            self.assertNotIn("SystemFileAssociations\\.txt", name)

    def installed(self, folder=None):
        """What is installed, without the uninstaller."""
        held = files(folder or self.folder)
        self.assertEqual(held.pop("Uninstall.exe")[:2], b"MZ")
        return held

    @classmethod
    def start_program(cls, mark=None):
        arguments = [package_case.ARGUMENTS[1], windows_name(cls.menu / "Vorstek.lnk")]
        return subprocess.Popen([ROOT / "scripts" / "wine-run", *arguments, *([mark] if mark else [])],
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)

    def test_it_installs_a_program_that_starts_with_its_help_and_goes_without_a_trace(self):
        self.install()

        self.assertEqual(self.installed(), self.files)
        name = windows_name(self.folder)
        lines = registry("HKCU")
        key = values(lines, KEY)
        self.assertEqual(key["DisplayName"], "Vorstek")
        self.assertEqual(key["DisplayVersion"], version())
        self.assertEqual(key["InstallLocation"], name)
        self.assertEqual(key["DisplayIcon"], name + "\\Vorstek.exe")
        self.assertEqual(key["UninstallString"], f'"{name}\\Uninstall.exe"')
        self.assertEqual(key["QuietUninstallString"], f'"{name}\\Uninstall.exe" /S')
        size = sum(map(len, self.files.values())) / 1024
        self.assertTrue(size <= int(key["EstimatedSize"].removeprefix("dword:"), 16) <= size + 200)
        self.assertFalse(any("Vorstek.Run" in line for line in lines))
        self.assertIsNone(user_path())
        self.assertEqual(
            {entry: name in data.decode("latin-1") for entry, data in files(self.menu).items()
             for name in [windows_name(self.folder / self.TARGETS[entry])]},
            dict.fromkeys(self.TARGETS, True))
        self.assertFalse(any("Vorstek" in line for line in registry(MACHINE)))

        started = self.start_program()
        out, _ = started.communicate(timeout=PATIENCE)
        self.assertEqual(out.splitlines(), [
            f"target: {name}\\Vorstek.exe", f"folder: {name}", "window: Vorstek",
            "help: found", "exit code: 0"])
        self.assertEqual(started.returncode, 0)

        self.uninstall()
        self.assert_nothing_left()

    def test_the_first_page_shows_the_licence(self):
        done = wine(package_case.ARGUMENTS[2], f"Z:{package('vorstek-VERSION-setup.exe')}")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual(done.stdout.decode().split(), (ROOT / "LICENSE").read_text().split())
        self.assertFalse(self.folder.exists())
        self.assert_nothing_left()

    def test_entries_for_listings_come_when_chosen_stay_with_an_update_and_go(self):
        self.install("/LISTINGS")
        cli = windows_name(self.folder / "vorstek-cli.exe")
        for again in (False, True):
            if again:
                self.install()
            lines = registry("HKCU")
            for verb, command in (("Run", "run"), ("Check", "check")):
                self.assertEqual(values(lines, VERBS + verb)["@"], f"{verb} as Vorstek program")
                self.assertEqual(
                    values(lines, VERBS + verb + "\\command")["@"],
                    f'"{cli}" {command} --wait -- "%1"')
        self.uninstall()
        self.assert_nothing_left()

    def test_the_folder_joins_the_path_stays_with_an_update_and_goes(self):
        folder = windows_name(self.folder)
        # Longer than a variable of the installer, and with one of the system's.
        others = "%USERPROFILE%\\bin;" + ";".join(f"C:\\Tools\\number {i}" for i in range(200))
        set_path("REG_EXPAND_SZ", others)
        self.addCleanup(set_path)
        self.install("/PATH")
        self.assertEqual(user_path(), ("REG_EXPAND_SZ", f"{others};{folder}"))
        self.install()
        self.assertEqual(user_path(), ("REG_EXPAND_SZ", f"{others};{folder}"))
        # What has come since stays.
        set_path("REG_SZ", f"{others};{folder};{folder} 2;")
        self.uninstall()
        self.assertEqual(user_path(), ("REG_SZ", f"{others};{folder} 2;"))
        self.assert_nothing_left()

    def test_a_path_with_the_folder_in_it_is_left_alone(self):
        path = "C:\\Tools;" + windows_name(self.folder).upper()
        set_path("REG_SZ", path)
        self.addCleanup(set_path)
        self.install("/PATH")
        self.assertEqual(user_path(), ("REG_SZ", path))
        self.uninstall()
        self.assertEqual(user_path(), ("REG_SZ", path))

    def test_another_folder_and_what_an_older_version_had(self):
        folder = PREFIX / "drive_c" / "Tools" / "Calculator"
        self.install("/D=" + windows_name(folder))
        self.assertEqual(self.installed(folder), self.files)
        # An update goes where the program is.
        (folder / "examples/base.txt").unlink()
        self.install()
        self.assertEqual(self.installed(folder), self.files)
        self.assertFalse(self.folder.exists())
        self.uninstall(folder)
        folder.parent.rmdir()
        self.assert_nothing_left()

    def test_what_the_user_has_made_stays(self):
        self.install()
        mine = self.folder / "examples" / "mine.txt"
        trace = self.folder / "tracelog.txt"
        mine.write_text("LBL 1\n")
        trace.write_text("01 LBL 1\n")
        entry = self.menu / "Mine.lnk"
        entry.write_bytes((self.menu / "Vorstek.lnk").read_bytes())
        self.uninstall(left=("examples", "tracelog.txt"))
        self.assertEqual(files(self.folder), {"examples/mine.txt": b"LBL 1\n",
                                              "tracelog.txt": b"01 LBL 1\n"})
        self.assert_nothing_left(*(path.relative_to(PREFIX).as_posix() for path in (
            self.folder.parent, self.folder, mine.parent, mine, trace, self.menu, entry)))
        shutil.rmtree(self.folder.parent)
        shutil.rmtree(self.menu)

    def test_texts_that_the_user_has_changed_stay_beside_the_new_ones(self):
        self.folder.mkdir(parents=True)
        (self.folder / "README.txt").write_text("my own\n")
        self.install()
        gcd, base = self.folder / "examples/gcd.txt", self.folder / "examples/base.txt"
        gcd.write_bytes(self.files["examples/gcd.txt"] + b"; mine\r\n")
        base.write_bytes(self.files["examples/base.txt"].replace(b"LBL", b"lbl", 1))
        mine = {"README.txt": b"my own\n", "examples/gcd.txt": gcd.read_bytes(),
                "examples/base.txt": base.read_bytes()}
        beside = {"README.new.txt": "README.txt", "examples/gcd.new.txt": "examples/gcd.txt",
                  "examples/base.new.txt": "examples/base.txt"}

        self.install()

        self.assertEqual(self.installed(), {**self.files, **mine,
                                            **{new: self.files[old] for new, old in beside.items()}})
        self.uninstall(left=("README.txt", "examples"))
        self.assertEqual(files(self.folder), mine)
        shutil.rmtree(self.folder.parent)
        self.assert_nothing_left()

    def test_a_folder_with_another_program_is_refused(self):
        folder = PREFIX / "drive_c" / "Other"
        folder.mkdir()
        shutil.copy(PREFIX / "drive_c/windows/system32/cmd.exe", folder / "Uninstall.exe")
        before = files(folder)
        self.install("/D=" + windows_name(folder), code=2)
        self.assertEqual(files(folder), before)
        shutil.rmtree(folder)
        self.assert_nothing_left()

    def test_installed_elsewhere_it_is_removed_there(self):
        self.install("/PATH")
        self.assertEqual(user_path()[1], windows_name(self.folder))
        folder = PREFIX / "drive_c" / "Elsewhere"
        self.install("/D=" + windows_name(folder))
        self.assertFalse(self.folder.exists())
        self.assertEqual(self.installed(folder), self.files)
        self.assertEqual(user_path()[1], windows_name(folder))
        self.uninstall(folder)
        self.assertIsNone(user_path())
        self.assert_nothing_left()

    def test_a_running_program_is_neither_replaced_nor_removed(self):
        self.install()
        with tempfile.NamedTemporaryFile() as mark:
            started = self.start_program(f"Z:{mark.name}")
            for line in started.stdout:
                if line.startswith("window: "):
                    break
            self.install(code=2)
            done = wine(self.folder / "Uninstall.exe", "/S", "_?=" + windows_name(self.folder))
            self.assertEqual(done.returncode, 2)
            self.assertEqual(self.installed(), self.files)
        started.communicate(timeout=PATIENCE)
        self.assertEqual(started.returncode, 0)
        self.uninstall()
        self.assert_nothing_left()


if __name__ == "__main__":
    package_case.main(3)
