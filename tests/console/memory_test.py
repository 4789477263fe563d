"""Memory that runs out at any moment: a command ends with exit code 2 and a message, or as
always, and what it writes is the old file or the complete new one."""

import os

from bitmap import noise
from console_case import LinuxCase, main

# Loaded before the program; see failing_memory.cpp.
LIBRARY = os.environ["VORSTEK_FAILING_MEMORY"]

# Allocations that fail of each command, evenly spread; VORSTEK_THOROUGH: all.
MOST = 10 ** 9 if "VORSTEK_THOROUGH" in os.environ else 25

PROGRAM = "5\nSTO 0\nLBL 1\nRCL 0\nSumG\nDSZ\nGTO 1   ; again\nR/S\n"
SCRIPT = ("text 2\\r3+\nopen program.txt\nkey 30\nstate\nsave saved.txt\ngraph open data.txt\n"
          "graph save graph.txt\ndo 1 STO 5\n")
DEBUG = "break 3\nwatch r0\ncontinue\nstep 2\nback\nwhere\n2 3 +\nundo\nsave saved.txt\n"

# Name of the command, its arguments, standard input, the file that it writes.
COMMANDS = (
    (("eval", "--stack", "2 3 + sqrt"), "", None),
    (("eval", "--json"), "1 2 3\n0 1/x\n", None),
    (("run", "program.txt", "--registers"), "", None),
    (("run", "program.txt", "--json", "--graph", "graph.txt"), "", "graph.txt"),
    (("run", "program.txt", "--graph", "graph.svg"), "", "graph.svg"),
    (("run", "program.txt", "--profile"), "", None),
    (("debug", "program.txt"), DEBUG, "saved.txt"),
    (("check", "bad.txt", "program.txt"), "", None),
    (("check", "--json", "bad.txt"), "", None),
    (("fmt", "program.txt"), "", "program.txt"),
    (("fmt", "--diff", "program.txt"), "", None),
    (("script", "script.txt"), "", None),
    (("plot", "data.txt", "picture.svg"), "", "picture.svg"),
    (("gif", "picture.bmp", "picture.gif"), "", "picture.gif"),
    (("help", "run"), "", None),
    (("walk",), "", None),
)


class MemoryTest(LinuxCase):

    def setUp(self):
        super().setUp()
        self.write("bad.txt", "foo\nENTRE\nGTO 7\nLBL 2\n")
        self.write("data.txt", "".join(f"{n} {n * n}\n" for n in range(50)))
        self.write("script.txt", SCRIPT)
        self.write("picture.bmp", noise(20))

    def perform(self, command, **faults):
        """The command with its files as at the beginning."""
        arguments, stdin, output = command
        if output:
            self.write(output, b"the old content")
        self.write("program.txt", PROGRAM)
        environment = dict(os.environ, LD_PRELOAD=LIBRARY, **faults)
        result = self.start(*arguments, stdin=stdin, env=environment)
        return result, self.read(output) if output else b""

    def count(self, command):
        """How many allocations the command makes."""
        self.perform(command, FAILING_COUNT=self.path("count"))
        total = int(self.read("count"))
        os.remove(self.path("count"))
        return total

    def assert_ends_well(self, command, usual, **faults):
        result, written = self.perform(command, **faults)
        if result.code == 2 and usual[0].code != 2:
            self.assertRegex(result.err.splitlines()[-1], r"^vorstek-cli: .|: .")
            self.assertNotIn("Retry", result.err)
        else:
            self.assertEqual(result.code, usual[0].code, result.err)
        self.assertIn(written, (b"the old content", PROGRAM.encode(), usual[1]))

    def test_every_allocation_may_fail_alone_or_with_all_that_follow(self):
        for command in COMMANDS:
            usual = self.perform(command)
            files = sorted(os.listdir(self.folder))
            total = self.count(command)
            self.assertGreater(total, 10)
            step = max(1, total // MOST)
            for first in range(1 + total % step, total + 1, step):
                for last in (first, 10 ** 9):
                    with self.subTest(command=command[0], first=first, last=last):
                        self.assert_ends_well(command, usual, FAILING_ALLOCATION=str(first),
                                              FAILING_LAST=str(last))
            self.assertEqual(sorted(os.listdir(self.folder)), files)

    def test_the_message_names_the_command(self):
        command = COMMANDS[0]
        result, _ = self.perform(command, FAILING_ALLOCATION=str(self.count(command) // 2))
        self.assertEqual((result.code, result.err), (2, "vorstek-cli: eval: not enough memory\n"))


if __name__ == "__main__":
    main()
