"""The pictures in examples/pictures and tests/golden: redrawing them gives the
same bytes. scripts/make-pictures rewrites them."""

import os
import re
import shlex
import shutil

from console_case import EXAMPLES, REPOSITORY, ConsoleCase, main
from manual_pages import pages


class PicturesTest(ConsoleCase):

    def setUp(self):
        super().setUp()
        shutil.copytree(EXAMPLES, self.path("examples"))
        shutil.copytree(os.path.join(REPOSITORY, "tests", "golden"),
                        self.path(os.path.join("tests", "golden")))

    def commands(self, folder):
        with open(os.path.join(folder, "commands.txt"), encoding="utf-8") as file:
            lines = file.read().splitlines()
        return [shlex.split(line) for line in lines if line and not line.startswith("#")]

    def pictures(self, folder):
        return sorted(name for name in os.listdir(folder) if name.endswith(".svg"))

    def assert_same(self, *folder):
        folder = os.path.join(REPOSITORY, *folder)
        for arguments in self.commands(folder):
            result = self.start(*arguments)
            self.assertEqual((result.code, result.err), (0, ""), arguments)

        self.assertEqual(self.pictures(self.folder), self.pictures(folder))
        for name in self.pictures(folder):
            with self.subTest(picture=os.path.join(folder, name)):
                with open(os.path.join(folder, name), "rb") as file:
                    wanted = file.read().split(b"\n")
                self.assertEqual(self.read(name).split(b"\n"), wanted)

    def test_golden_pictures(self):
        self.assert_same("tests", "golden")

    def test_pictures_of_the_examples(self):
        self.assert_same("examples", "pictures")

    def test_the_examples_show_each_of_their_pictures(self):
        with open(os.path.join(EXAMPLES, "README.md"), encoding="utf-8") as file:
            text = file.read()
        for name in self.pictures(os.path.join(EXAMPLES, "pictures")):
            self.assertIn("(pictures/" + name, text)

    def test_the_manual_shows_figures_with_the_commands_that_draw_them(self):
        page = next(page for page in pages() if page.name == "figures.htm")
        drawn = {tuple(words) for words in self.commands(os.path.join(EXAMPLES, "pictures"))}
        blocks = page.having("pre", "session")
        self.assertGreaterEqual(len(blocks), 10)
        for block in blocks:
            for line in re.findall(r"^\$ vorstek-cli (.*)$", block.text, re.M):
                self.assertIn(tuple(shlex.split(line)), drawn)


if __name__ == "__main__":
    main()
