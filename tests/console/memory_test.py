"""Memory that runs out at any moment: a command ends with exit code 2 and a message, or as
always, and what it writes is the old file or the complete new one."""

import os

from console_case import main
from every_command import COMMANDS, OLD, PROGRAM, EveryCommandCase

# Loaded before the program; see failing_memory.cpp.
LIBRARY = os.environ["VORSTEK_FAILING_MEMORY"]

# Allocations that fail of each command, evenly spread; VORSTEK_THOROUGH: all.
MOST = 10 ** 9 if "VORSTEK_THOROUGH" in os.environ else 25


class MemoryTest(EveryCommandCase):

    def count(self, command):
        """How many allocations the command makes."""
        self.perform(command, LD_PRELOAD=LIBRARY, FAILING_COUNT=self.path("count"))
        total = int(self.read("count"))
        os.remove(self.path("count"))
        return total

    def assert_ends_well(self, command, usual, **faults):
        result, written = self.perform(command, LD_PRELOAD=LIBRARY, **faults)
        if result.code == 2 and usual[0].code != 2:
            self.assertRegex(result.err.splitlines()[-1], r"^vorstek-cli: .|: .")
            self.assertNotIn("Retry", result.err)
        else:
            self.assertEqual(result.code, usual[0].code, result.err)
        self.assertIn(written, (OLD, PROGRAM.encode(), usual[1]))

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
        result, _ = self.perform(command, LD_PRELOAD=LIBRARY,
                                 FAILING_ALLOCATION=str(self.count(command) // 2))
        self.assertEqual((result.code, result.err), (2, "vorstek-cli: eval: not enough memory\n"))


if __name__ == "__main__":
    main()
