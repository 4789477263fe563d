"""The archive for Windows: archive_test.py PACKAGES FOLDER-OF-VORSTEK.EXE"""

import datetime
import pathlib
import tempfile
import unittest
import zipfile

import package_case
from package_case import (PAGE, ROOT, broken_links, editor_kits, examples, files, package, run,
                          version, wine)

PROGRAMS = ("Vorstek.exe", "vorstek-cli.exe")
HELP_FILES = ("VORSTEK.chm", "cVantor.CHM", "HtmlHelp")


def built_help():
    """Help files and pages as the build has left them beside the program."""
    folder = pathlib.Path(package_case.ARGUMENTS[1])
    found = files(folder / "HtmlHelp")
    pages = {"HtmlHelp/" + name: data for name, data in found.items()}
    return pages | {path.name: path.read_bytes()
                    for path in folder.iterdir() if path.name in HELP_FILES and path.is_file()}


class ArchiveTest(unittest.TestCase):

    def setUp(self):
        self.archive = zipfile.ZipFile(package("vorstek-VERSION-windows-x64.zip"))
        self.addCleanup(self.archive.close)
        self.top = f"Vorstek-{version()}/"
        self.held = {entry.filename.removeprefix(self.top): entry
                     for entry in self.archive.infolist() if not entry.is_dir()}

    def read(self, name):
        return self.archive.read(self.top + name)

    def test_all_lies_in_one_folder(self):
        for entry in self.archive.infolist():
            self.assertTrue(entry.filename.startswith(self.top), entry.filename)

    def test_it_holds_programs_examples_kits_help_and_nothing_else(self):
        kept = examples() | editor_kits() | built_help() | {PAGE.name: PAGE.read_bytes()}
        for name in ("VORSTEK.chm", "cVantor.CHM", "HtmlHelp/Introduction.htm"):
            self.assertIn(name, kept)
        self.assertEqual(sorted(self.held), sorted([*PROGRAMS, "README.txt", "LICENSE.txt", *kept]))
        for name, data in kept.items():
            self.assertEqual(self.read(name), data, name)

    def test_programs_are_for_64_bits_and_without_symbols(self):
        for name in PROGRAMS:
            data = self.read(name)
            self.assertEqual(data[:2], b"MZ")
            header = int.from_bytes(data[60:64], "little")
            self.assertEqual(data[header:header + 6], b"PE\0\0\x64\x86")
            self.assertNotIn(b".debug_info", data)

    def test_readme_is_a_text_of_windows_that_names_the_version(self):
        text = self.read("README.txt")
        self.assertTrue(text.startswith(f"Vorstek {version()}\r\n".encode()))
        self.assertEqual(text.count(b"\n"), text.count(b"\r\n"))

    def test_the_licence_is_a_text_of_windows(self):
        licence = (ROOT / "LICENSE").read_bytes()
        self.assertEqual(self.read("LICENSE.txt"), licence.replace(b"\n", b"\r\n"))

    def test_the_page_about_the_examples_links_only_to_what_is_there(self):
        held = {name: self.read(name) for name in self.held}
        self.assertEqual(broken_links(held, "examples/README.md"), [])

    def test_all_files_have_one_date_which_the_programs_know_too(self):
        dates = {entry.date_time for entry in self.archive.infolist()}
        self.assertEqual(len(dates), 1)
        date = datetime.datetime(*dates.pop(), tzinfo=datetime.timezone.utc).timestamp()
        for name in PROGRAMS:
            data = self.read(name)
            header = int.from_bytes(data[60:64], "little")
            linked = int.from_bytes(data[header + 8:header + 12], "little")
            self.assertLess(abs(linked - date), 2, name)

    def test_the_console_program_runs_where_it_was_unpacked(self):
        with tempfile.TemporaryDirectory() as folder:
            self.archive.extractall(folder)
            unpacked = pathlib.Path(folder) / self.top
            done = wine(unpacked / "vorstek-cli.exe", "run", "examples/quadratic.txt", "--z", "2",
                        "--y", "-4", "--x", "-6", cwd=unpacked)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual(done.stdout.split()[-8:], b"T 0.00 Z 0.00 Y -1.00 X 3.00".split())

    def test_sums_of_all_packages_are_right(self):
        done = run("sha256sum", "--strict", "--check", "SHA256SUMS", cwd=package("."))
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual(done.stdout.count(b": OK"), 3)


if __name__ == "__main__":
    package_case.main(2)
