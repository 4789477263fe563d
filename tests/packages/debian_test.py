"""The Debian package, unpacked in a folder: debian_test.py PACKAGES"""

import gzip
import hashlib
import json
import os
import pathlib
import re
import tempfile
import unittest

import package_case
from package_case import PAGE, ROOT, broken_links, examples, files, package, run, version

DOCS = "usr/share/doc/vorstek-cli/"
MANUAL = "usr/share/man/man1/vorstek-cli.1.gz"


class DebianTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        architecture = run("dpkg", "--print-architecture").stdout.decode().strip()
        cls.deb = package(f"vorstek-cli_VERSION_{architecture}.deb")
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = pathlib.Path(folder.name)
        for option, target in (("--extract", cls.root / "root"), ("--control", cls.root / "control")):
            done = run("dpkg-deb", option, cls.deb, target)
            assert done.returncode == 0, done.stderr
        cls.held = files(cls.root / "root")

    def program(self, *arguments):
        return run(self.root / "root/usr/bin/vorstek-cli", *arguments,
                   cwd=self.root / "root" / DOCS / "examples")

    def manual(self):
        """The text of the manual page."""
        page = self.root / "page.1"
        page.write_bytes(gzip.decompress(self.held[MANUAL]))
        done = run("mandoc", "-T", "utf8", "-O", "width=200", page)
        return re.sub(".\b", "", done.stdout.decode())

    def test_it_holds_program_manual_examples_and_nothing_else(self):
        kept = {"usr/share/doc/vorstek-cli/" + name: data for name, data in examples().items()}
        for kit, folder in (("vim", "usr/share/vim/vimfiles/"), ("vscode", DOCS + "editors/vscode/")):
            held = files(ROOT / "editors" / kit)
            self.assertGreaterEqual(len(held), 4)
            kept |= {folder + name: data for name, data in held.items()}
        kept[DOCS + PAGE.name] = PAGE.read_bytes()
        papers = [DOCS + name for name in ("changelog.gz", "console.md", "copyright", "LICENSE")]
        completions = ["usr/share/bash-completion/completions/vorstek-cli",
                       "usr/share/zsh/vendor-completions/_vorstek-cli",
                       "usr/share/fish/vendor_completions.d/vorstek-cli.fish"]
        self.assertEqual(sorted(self.held),
                         sorted(["usr/bin/vorstek-cli", MANUAL, *completions, *papers, *kept]))
        for name, data in kept.items():
            self.assertEqual(self.held[name], data, name)

    def test_the_copyright_file_contains_the_licence(self):
        licence = (ROOT / "LICENSE").read_bytes()
        self.assertEqual(self.held[DOCS + "LICENSE"], licence)
        title, notice, terms = licence.decode().split("\n\n", 2)
        copyright_file = self.held[DOCS + "copyright"].decode()
        self.assertIn("Copyright: " + notice.removeprefix("Copyright (c) "), copyright_file)
        self.assertIn(title, copyright_file)
        wanted = "".join(f" {line or '.'}\n" for line in terms.splitlines())
        self.assertTrue(copyright_file.endswith("\nLicense: Expat\n" + wanted), copyright_file)

    def test_the_page_about_the_examples_links_only_to_what_is_there(self):
        self.assertEqual(broken_links(self.held, DOCS + "examples/README.md"), [])

    def test_everybody_may_read_it_and_only_root_change_it(self):
        done = run("dpkg-deb", "--contents", self.deb)
        for line in done.stdout.decode().splitlines():
            mode, owner, *_, name = line.split()
            wanted = "drwxr-xr-x" if name.endswith("/") else "-rw-r--r--"
            if name == "./usr/bin/vorstek-cli":
                wanted = "-rwxr-xr-x"
            self.assertEqual((mode, owner), (wanted, "root/root"), name)

    def test_what_it_says_of_itself(self):
        def field(name):
            return run("dpkg-deb", "--field", self.deb, name).stdout.decode().strip()

        self.assertEqual(field("Package"), "vorstek-cli")
        self.assertEqual(field("Version"), version())
        self.assertRegex(field("Depends"), r"\blibc6 \(>= [0-9.]+\)")
        self.assertRegex(field("Depends"), r"\blibstdc\+\+6\b")
        size = sum(map(len, self.held.values())) / 1024
        folders = sum(path.is_dir() for path in (self.root / "root").rglob("*"))
        self.assertGreaterEqual(int(field("Installed-Size")), size)
        self.assertLessEqual(int(field("Installed-Size")), size + 4 * folders + 20)
        changes = gzip.decompress(self.held[DOCS + "changelog.gz"]).decode()
        self.assertTrue(changes.startswith(f"vorstek-cli ({version()}) "), changes[:80])

    def test_it_depends_on_the_libraries_that_it_was_built_with(self):
        depends = run("dpkg-deb", "--field", self.deb, "Depends").stdout.decode()
        dynamic = run("readelf", "--dynamic", self.root / "root/usr/bin/vorstek-cli").stdout.decode()
        libraries = re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic)
        for header, library, name in (("cairo/cairo-pdf.h", "libcairo.so.2", "libcairo2"),
                                      ("histedit.h", "libedit.so.2", "libedit2")):
            with self.subTest(name=name):
                installed = pathlib.Path("/usr/include", header).exists()
                self.assertEqual(library in libraries, installed)
                self.assertEqual(bool(re.search(rf"\b{name} \(>= ", depends)), installed, depends)

    def test_sums_of_its_files_are_right(self):
        lines = (self.root / "control/md5sums").read_text().splitlines()
        self.assertEqual(sorted(lines), sorted(
            f"{hashlib.md5(data).hexdigest()}  {name}" for name, data in self.held.items()))

    def test_zsh_looks_where_its_completions_are(self):
        done = run("zsh", "-f", "-c", "print -l $fpath")
        folder, = {os.path.dirname(name) for name in self.held if name.endswith("/_vorstek-cli")}
        self.assertIn("/" + folder, done.stdout.decode().split("\n"))

    def test_the_program_runs(self):
        done = self.program("--help")
        self.assertEqual(done.returncode, 0)
        self.assertTrue(done.stdout.startswith(b"usage: vorstek-cli COMMAND "))
        done = self.program("run", "quadratic.txt", "--z", "2", "--y", "-4", "--x", "-6")
        self.assertEqual(done.stdout.split(), b"T 0.00 Z 0.00 Y -1.00 X 3.00".split())

    def test_two_readers_have_no_complaint_about_the_manual(self):
        page = self.root / "page.1"
        page.write_bytes(gzip.decompress(self.held[MANUAL]))
        for command in (("mandoc", "-T", "lint", "-W", "style"),
                        ("man", "--warnings", "--local-file")):
            done = run(*command, page)
            self.assertEqual((done.returncode, done.stderr.decode()), (0, ""))
        self.assertEqual(run("mandoc", "-T", "lint", "-W", "style", page).stdout, b"")

    def test_the_manual_names_the_version_all_options_and_the_whole_state(self):
        text = self.manual()
        self.assertIn(f"Vorstek {version()}", text)
        usage = "".join(self.program("help", command).stdout.decode()
                        for command in ("eval", "run", "check", "fmt", "plot", "gif"))
        state = json.loads(self.program("run", "queens.txt", "--x", "4", "--json").stdout)
        words = {*re.findall(r"--[a-z-]+", usage), *state}
        self.assertGreater(len(words), 40)
        for word in sorted(words):
            self.assertRegex(text, rf"(?<![\w-]){re.escape(word)}(?![\w-])")

    def test_the_manual_shows_what_its_examples_print(self):
        text = self.manual()
        self.assertIn(f"$ cd /{DOCS}examples\n", text)
        command = re.search(r"\$ vorstek-cli (run quadratic.*)", text)[1]
        printed = self.program(*command.split()).stdout.decode()
        self.assertIn(re.sub(r"\s+", " ", printed), re.sub(r"\s+", " ", text))

    def test_the_description_of_the_console_program_is_the_projects(self):
        self.assertEqual(self.held[DOCS + "console.md"], (ROOT / "docs/console.md").read_bytes())


if __name__ == "__main__":
    package_case.main(1)
