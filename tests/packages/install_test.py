"""cmake --install of a native build: install_test.py CMAKE BUILD-FOLDER"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
CMAKE, BUILD = sys.argv[1:3]
DOCS = "share/doc/vorstek-cli/"


class InstallTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()

    def install(self, *options, **variables):
        done = subprocess.run([CMAKE, "--install", BUILD, *options], cwd=self.folder, check=False,
                              env={**os.environ, **variables}, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)

    def installed(self, folder):
        return {path.relative_to(self.folder / folder).as_posix()
                for path in (self.folder / folder).rglob("*") if path.is_file()}

    def manual(self, prefix):
        return (self.folder / prefix / "share/man/man1/vorstek-cli.1").read_text()

    def test_program_manual_and_examples_are_where_they_belong(self):
        self.install("--prefix", "there")

        examples = {path.relative_to(ROOT).as_posix() for path in (ROOT / "examples").rglob("*")
                    if path.is_file() and path.name != "commands.txt"}
        kits = {path.relative_to(ROOT / "editors").as_posix()
                for path in (ROOT / "editors").rglob("*") if path.is_file()}
        self.assertEqual(len(kits), 9)
        self.assertEqual(self.installed("there"), {
            "share/bash-completion/completions/vorstek-cli", "share/zsh/site-functions/_vorstek-cli",
            "share/fish/vendor_completions.d/vorstek-cli.fish",
            "bin/vorstek-cli", "share/man/man1/vorstek-cli.1", DOCS + "console.md", DOCS + "LICENSE",
            *(DOCS + name for name in examples),
            *(name.replace("vim/", "share/vim/vimfiles/") if name.startswith("vim/")
              else DOCS + "editors/" + name for name in kits)})

    def test_the_installed_program_runs(self):
        self.install("--prefix", "there")
        done = subprocess.run(
            [self.folder / "there/bin/vorstek-cli", "run", "quadratic.txt", "--z", "2", "--y", "-4",
             "--x", "-6"], cwd=self.folder / "there" / DOCS / "examples", check=False,
            capture_output=True, text=True)
        self.assertEqual(done.stdout.split(), "T 0.00 Z 0.00 Y -1.00 X 3.00".split())

    def test_the_manual_page_names_the_folder_of_the_examples(self):
        self.install("--prefix", "there")
        named = f"{self.folder}/there/{DOCS}examples".replace("-", "\\-")
        self.assertIn(f"\n.I {named}/\n", self.manual("there"))

        self.install("--prefix", "/usr", DESTDIR=str(self.folder / "staged"))
        text = self.manual("staged/usr")
        self.assertIn("$ \\fBcd /usr/share/doc/vorstek\\-cli/examples\\fR\n", text)
        self.assertNotIn("@", text)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
