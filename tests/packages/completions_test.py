"""Completions in the shells themselves: python3 completions_test.py FOLDER, where
the build has made them."""

import os
import pathlib
import pty
import re
import select
import subprocess
import sys
import tempfile
import time
import unittest

MADE = pathlib.Path(sys.argv.pop())
COMMANDS = {"eval", "run", "debug", "check", "fmt", "script", "plot", "gif", "help"}
PATIENCE = 30       # seconds


def options_of(command):
    """As the program's own help lists them."""
    done = subprocess.run([MADE / "vorstek-cli", "help", command], capture_output=True, check=True)
    return set(re.findall(r"^  (--[a-z-]+)", done.stdout.decode(), re.MULTILINE))


class BashTest(unittest.TestCase):

    def complete(self, *words):
        script = (f"source {MADE}/vorstek-cli.bash; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                  "_vorstek_cli; printf '%s\\n' \"${COMPREPLY[@]}\"")
        done = subprocess.run(["bash", "-c", script, "bash", "vorstek-cli", *words], check=True,
                              capture_output=True)
        self.assertEqual(done.stderr, b"")
        return set(done.stdout.decode().split())

    def test_commands(self):
        self.assertEqual(self.complete(""), COMMANDS | {"--help", "--version"})
        self.assertEqual(self.complete("ch"), {"check"})
        self.assertEqual(self.complete("help", "e"), {"eval"})

    def test_options(self):
        for command in sorted(COMMANDS):
            self.assertEqual(self.complete(command, "-"), options_of(command) | {"--help"})
        self.assertEqual(self.complete("run", "x.txt", "--max"), {"--max-lines"})

    def test_files_are_left_to_the_shell(self):
        self.assertEqual(self.complete("run", ""), set())


class FishTest(unittest.TestCase):

    def complete(self, line):
        with tempfile.TemporaryDirectory() as home:
            done = subprocess.run(
                ["fish", "--no-config", "-c",
                 f"source {MADE}/vorstek-cli.fish; complete -C '{line}'"],
                env={**os.environ, "HOME": home}, cwd=home, check=True, capture_output=True)
        return {row.split("\t")[0] for row in done.stdout.decode().splitlines()}

    def test_commands(self):
        self.assertEqual(self.complete("vorstek-cli "), COMMANDS)
        self.assertEqual(self.complete("vorstek-cli --"), {"--help", "--version"})

    def test_options(self):
        for command in sorted(COMMANDS):
            self.assertEqual(self.complete(f"vorstek-cli {command} --"),
                             options_of(command) | {"--help"})


class ZshTest(unittest.TestCase):
    """In a terminal, as zsh completes nowhere else."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        (pathlib.Path(folder.name) / "_vorstek-cli").write_bytes(
            (MADE / "vorstek-cli.zsh").read_bytes())
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder.name)
            os.execvpe("zsh", ["zsh", "-f", "-i"], {**os.environ, "TERM": "dumb", "HOME": folder.name})
        self.addCleanup(self.end)
        self.send(f"unsetopt zle_bracketed_paste; PS1=; fpath=({folder.name} $fpath); "
                  "autoload -U compinit; compinit -D -u; LISTMAX=0; print re''ady\n", "ready")

    def end(self):
        os.close(self.terminal)
        os.waitpid(self.process, 0)

    def send(self, keys, wanted):
        """What is on the terminal, at the latest when wanted is."""
        os.write(self.terminal, keys.encode())
        seen, begin = "", time.monotonic()
        while wanted not in seen and time.monotonic() - begin < PATIENCE:
            if select.select([self.terminal], [], [], 0.1)[0]:
                seen += os.read(self.terminal, 65536).decode()
        self.assertIn(wanted, seen)
        return seen

    def test_commands(self):
        self.send("vorstek-cli ev\t", "eval ")

    def test_options(self):
        self.send("vorstek-cli run --max\t", "--max-lines=")

    def test_options_without_a_command(self):
        self.send("vorstek-cli --v\t", "--version ")

    def test_help_of_a_command_without_options(self):
        self.send("vorstek-cli script --he\t", "--help ")

    def test_values(self):
        self.send("vorstek-cli check --str\t", "--strict ")


if __name__ == "__main__":
    unittest.main()
