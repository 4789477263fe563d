"""A program that is killed while it saves: the file is the old one or the new one, and
nothing else remains once something has been saved again."""

import os
import random
import subprocess
import time

import console_case
from bitmap import noise
from console_case import LinuxCase, main

# How often each command is killed, at random moments.
KILLS = int(os.environ.get("VORSTEK_KILLS", "60"))


class KilledTest(LinuxCase):

    def assert_old_or_new(self, *arguments, output):
        """Kills the command at moments of its run; output is the file that it replaces."""
        begin = time.monotonic()
        self.assertEqual(self.start(*arguments).code, 0)
        duration = time.monotonic() - begin
        contents = {"old": b"the old content", "new": self.read(output)}
        inputs = sorted(os.listdir(self.folder))
        chance, seen = random.Random(output), set()
        for _ in range(KILLS):
            self.write(output, contents["old"])
            with subprocess.Popen([*console_case.command, *arguments], cwd=self.folder,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as process:
                time.sleep(chance.uniform(0, 1.2 * duration))
                process.kill()
            found = self.read(output)
            self.assertIn(found, contents.values())
            seen.add("old" if found == contents["old"] else "new")
        self.assertEqual(seen, {"old", "new"}, "not killed at different moments")
        self.assertEqual(self.start(*arguments).code, 0)
        self.assertEqual(sorted(os.listdir(self.folder)), inputs)

    def test_a_listing(self):
        self.listing(*(["ENTER"] * 98), "; " + 300 * "comment ")
        self.write("script.txt", "open program.txt\ntext s1\nsave saved.txt\n")
        self.assert_old_or_new("script", "script.txt", output="saved.txt")

    def test_a_graph(self):
        self.listing("2e4", "STO 0", "LBL 1", "RCL 0", "SumG", "DSZ", "GTO 1")
        self.assert_old_or_new("run", "program.txt", "--graph", "graph.txt", output="graph.txt")

    def test_a_picture_of_data(self):
        self.write("data.txt", "".join(f"{n * n % 97}\n" for n in range(20000)))
        self.assert_old_or_new("plot", "data.txt", "picture.svg", output="picture.svg")

    def test_a_picture_in_256_colours(self):
        self.write("picture.bmp", noise(500))
        self.assert_old_or_new("gif", "picture.bmp", "picture.gif", output="picture.gif")


if __name__ == "__main__":
    main()
