"""Files and streams that fail at any moment: a command ends as always, or with a message
and another exit code, and each file is the old or the complete new one."""

import os
import re

from console_case import main
from every_command import COMMANDS, OLD, PROGRAM, EveryCommandCase

# Loaded before the program; see failing_files.cpp.
LIBRARY = os.environ["VORSTEK_FAILING_FILES"]

# Calls that fail of each command and kind, evenly spread; VORSTEK_THOROUGH: all.
MOST = 10 ** 9 if "VORSTEK_THOROUGH" in os.environ else 6

MORE_COMMANDS = (
    (("run", "-"), PROGRAM, None),
    (("fmt", "-"), PROGRAM, None),
    (("check", "-", "program.txt"), PROGRAM, None),
    (("script",), "text 2\nstate\nopen program.txt\nsave saved.txt\nstate\n", None),
    (("plot", "-", "picture.svg"), "1 2\n3 4\n", "picture.svg"),
    (("plot", "data.txt", "-"), "", None),
    (("gif", "picture.bmp", "-"), "", None),
    (("run", "program.txt", "--trace", "trace.txt"), "", None),
)

# What a call can fail with.
WRITES = ("write", "writev")
CHANGES = WRITES + ("openat", "fsync", "linkat", "rename", "truncate", "ftruncate")
KINDS = {
    "error": None,      # each call
    "full": CHANGES,
    "short": ("read", *WRITES),
    "interrupted": ("read", "openat", "fsync", *WRITES),
}

# What a script's box says about a file.
REPORTED = "[Cc]ould not|couldn't"

# Have the time of the run.
TRACES = ("trace.txt", "trace_older.txt")


def printed(result):
    """Without the times of a profile."""
    return re.sub(r" *[0-9.]+ %", "", result.out)


class FailingFilesTest(EveryCommandCase):

    def calls_of(self, command):
        """The names of the calls that the command makes for its files."""
        self.perform(command, LD_PRELOAD=LIBRARY, FAILING_CALLS=self.path("calls"))
        calls = self.read("calls").decode().split()
        os.remove(self.path("calls"))
        return calls

    def content(self):
        return {name: self.read(name) for name in os.listdir(self.folder) if name not in TRACES}

    def perform_again(self, command, before, **environment):
        """With the files as they were, and with those that the command has made."""
        for name, content in before.items():
            self.write(name, content)
        return self.perform(command, **environment)[0]

    def faults_of(self, calls):
        """(kind, number of the call)"""
        for kind, names in KINDS.items():
            numbers = [number for number, name in enumerate(calls, 1)
                       if names is None or name in names]
            step = max(1, len(numbers) // MOST)
            yield from ((kind, number) for number in numbers[len(numbers) % step::step])

    def assert_ends_well(self, usual, result, kind):
        if kind == "short":
            self.assertEqual((result.code, printed(result), result.err),
                             (usual.code, printed(usual), usual.err))
        elif result.code != usual.code:
            self.assertEqual(result.code, 2)
            self.assertRegex(result.err.splitlines()[-1], "^vorstek-cli: ")
        elif printed(result) != printed(usual):
            self.assertRegex(result.out, REPORTED)

    def assert_files_complete(self, result, before, after):
        """What a script saves after a listing that it could not open is another program."""
        if re.search(REPORTED, result.out):
            return
        for name, content in self.content().items():
            self.assertIn(content, (before[name], after.get(name)), name)

    def test_every_call_may_fail_once(self):
        for command in COMMANDS + MORE_COMMANDS:
            self.perform(command)
            before = self.content()
            if command[2]:
                before[command[2]] = OLD
            before["program.txt"] = PROGRAM.encode()
            usual = self.perform_again(command, before)
            after = self.content()
            calls = self.calls_of(command)
            self.assertGreater(len(calls), 3)
            for kind, number in self.faults_of(calls):
                with self.subTest(command=command[0], kind=kind, number=number,
                                  call=calls[number - 1]):
                    result = self.perform_again(command, before, LD_PRELOAD=LIBRARY,
                                                FAILING_WITH=kind, FAILING_CALL=str(number))
                    self.assert_ends_well(usual, result, kind)
                    self.assert_files_complete(result, before, after)

    def test_a_file_with_two_names_that_cannot_be_overwritten_leaves_a_copy(self):
        command = (("fmt", "program.txt"), "", None)
        self.perform(command)
        new = self.read("program.txt")
        os.link(self.path("program.txt"), self.path("linked.txt"))
        files, copies = set(os.listdir(self.folder)), set()
        for kind, number in self.faults_of(self.calls_of(command)):
            result, _ = self.perform(command, LD_PRELOAD=LIBRARY, FAILING_WITH=kind,
                                     FAILING_CALL=str(number))
            left = set(os.listdir(self.folder)) - files
            copies |= left
            with self.subTest(kind=kind, number=number, left=left):
                if left:
                    self.assertEqual((result.code, [self.read(name) for name in left]), (2, [new]))
                else:
                    self.assertIn(self.read("linked.txt"), (PROGRAM.encode(), new))
            for name in left:
                os.remove(self.path(name))
        self.assertNotEqual(copies, set(), "the disk never failed at the worst moment")


if __name__ == "__main__":
    main()
