"""The console's commands in short: each with arguments, standard input and the file that it
replaces, for tests in which a command is to fail."""

import os

from bitmap import noise
from console_case import LinuxCase

OLD = b"the old content"

PROGRAM = "5\nSTO 0\nLBL 1\nRCL 0\nSumG\nDSZ\nGTO 1   ; again\nR/S\n"
SCRIPT = ("text 2\\r3+\nopen program.txt\nkey 30\nstate\nsave saved.txt\ngraph open data.txt\n"
          "graph save graph.txt\ndo 1 STO 5\n")
DEBUG = "break 3\nwatch r0\ncontinue\nstep 2\nback\nwhere\n2 3 +\nundo\nsave saved.txt\n"

# Arguments, standard input, and the file that is replaced.
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


class EveryCommandCase(LinuxCase):

    def setUp(self):
        super().setUp()
        self.write("bad.txt", "foo\nENTRE\nGTO 7\nLBL 2\n")
        self.write("data.txt", "".join(f"{n} {n * n}\n" for n in range(50)))
        self.write("script.txt", SCRIPT)
        self.write("picture.bmp", noise(20))

    def perform(self, command, **environment):
        """The command with its files as at the beginning; its result, and what is in the
        file that it replaces."""
        arguments, stdin, output = command
        if output:
            self.write(output, OLD)
        self.write("program.txt", PROGRAM)
        result = self.start(*arguments, stdin=stdin, env=os.environ | environment)
        return result, self.read(output) if output else b""
