"""vorstek-cli plot on a terminal: a line that says how much has been read."""

import os
import pty
import subprocess
import time

import console_case
from console_case import ConsoleCase, main

ERASE = "\r\x1b[K"


class ProgressTest(ConsoleCase):

    def written(self, *options, terminal="xterm", pause=1.1):
        """What goes to the terminal while data comes from a slow pipe."""
        side, other = pty.openpty()
        with subprocess.Popen([*console_case.command, "plot", "-", "out.svg", *options],
                              cwd=self.folder, stdin=subprocess.PIPE, stderr=other,
                              env={**os.environ, "TERM": terminal}) as process:
            os.close(other)
            process.stdin.write(1000 * b"1\n")
            process.stdin.flush()
            time.sleep(pause)
            process.stdin.write(1000000 * b"2\n")
            process.stdin.close()
            text = self.everything(side)
        os.close(side)
        self.assertEqual(process.returncode, 0, text)
        self.assertIn(b"</svg>", self.read("out.svg"))
        return text

    @staticmethod
    def everything(side):
        text = b""
        try:
            while block := os.read(side, 4096):
                text += block
        except OSError:     # the program has closed its side
            pass
        return text.decode()

    def test_the_line_appears_and_is_erased(self):
        text = self.written()
        self.assertRegex(text, r"\A(\r\x1b\[K(reading: \d+ (MB|%))?)+\Z")
        self.assertRegex(text, r"\A\r\x1b\[Kreading: \d MB")
        self.assertTrue(text.endswith(ERASE))

    def test_no_line_for_quick_work(self):
        self.assertEqual(self.written(pause=0), "")

    def test_no_line_that_nobody_wants(self):
        self.assertEqual(self.written("--no-progress"), "")
        self.assertEqual(self.written(terminal="dumb"), "")


if __name__ == "__main__":
    main()
