"""The compiled help files, unpacked with an independent program:

    python3 help_files_test.py FOLDER [unittest options]

FOLDER is the folder of Vorstek.exe. Debian package: libchm-bin."""

import html
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from manual_pages import MANUAL, Page

folder = ""

# Help file, its contents, its first page.
FILES = (("VORSTEK.chm", "calculator.contents", "HtmlHelp/Introduction.htm"),
         ("cVantor.CHM", "graph.contents", "HtmlHelp/cVantor Introduction.htm"))

BAR = re.compile("<header>.*?</header>\n|<script.*?</script>\n", re.S)


def outline(contents):
    """The pages of a help file with their depths."""
    with open(os.path.join(MANUAL, contents), encoding="utf-8") as file:
        for line in file.read().splitlines():
            word = line.strip()
            if word.startswith("include "):
                yield from outline(word.split(" ", 1)[1])
            elif word and not word.startswith("#"):
                yield (len(line) - len(line.lstrip())) // 4, word


def sitemap(path):
    """(depth, name, addresses) of each entry of contents or index."""
    with open(path, encoding="cp1252") as file:
        text = file.read()
    depth = -1
    for word in re.findall(r"<UL>|</UL>|<OBJECT.*?</OBJECT>", text, re.S):
        if word == "<UL>":
            depth += 1
        elif word == "</UL>":
            depth -= 1
        else:
            values = [(key, html.unescape(value)) for key, value in
                      re.findall(r'<param name="(\w+)" value="([^"]*)">', word)]
            yield depth, values[0][1], [value for key, value in values if key == "Local"]


class HelpFileTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.mkdtemp(prefix="vorstek-")
        cls.addClassCleanup(shutil.rmtree, cls.scratch)
        for name, _, _ in FILES:
            subprocess.run(["extract_chmLib", os.path.join(folder, name),
                            os.path.join(cls.scratch, name)], check=True,
                           stdout=subprocess.DEVNULL)

    def inside(self, name, *path):
        return os.path.join(self.scratch, name, *path)

    def test_pages_differ_from_those_for_browsers_only_in_bar_and_scripts(self):
        for name, contents, _ in FILES:
            pages = [page for _, page in outline(contents)]
            held = os.listdir(self.inside(name, "HtmlHelp"))
            self.assertEqual(sorted(file for file in held if file.endswith(".htm")),
                             sorted(pages))
            for file in [*pages, "manual.css"]:
                with self.subTest(help=name, file=file):
                    with open(self.inside(name, "HtmlHelp", file), encoding="ascii") as one, \
                            open(os.path.join(folder, "HtmlHelp", file), encoding="ascii") as other:
                        self.assertEqual(BAR.sub("", one.read()), BAR.sub("", other.read()))

    def test_links_stay_within_the_file(self):
        for name, contents, _ in FILES:
            for _, file in outline(contents):
                page = Page(self.inside(name, "HtmlHelp", file))
                for element in page.elements:
                    address = element.attributes.get("href") or element.attributes.get("src")
                    if address and not address.startswith("#"):
                        target = address.partition("#")[0].replace("%20", " ")
                        with self.subTest(help=name, page=file, line=element.line):
                            self.assertTrue(os.path.exists(self.inside(name, "HtmlHelp", target)))

    def test_contents(self):
        for name, contents, _ in FILES:
            with self.subTest(help=name):
                stem = name.split(".")[0]
                entries = list(sitemap(self.inside(name, stem + ".hhc")))
                self.assertEqual([(depth, addresses) for depth, _, addresses in entries],
                                 [(depth, ["HtmlHelp/" + page])
                                  for depth, page in outline(contents)])
                for _, title, addresses in entries:
                    page = Page(self.inside(name, addresses[0]))
                    self.assertEqual(title, page.having("title")[0].text)

    def test_index(self):
        for name, _, _ in FILES:
            stem = name.split(".")[0]
            entries = list(sitemap(self.inside(name, stem + ".hhk")))
            words = [word for _, word, _ in entries]
            self.assertGreater(len(words), 60)
            self.assertTrue(all(addresses for _, _, addresses in entries))
            self.assertEqual(words, sorted(set(words), key=lambda word: (word.lower(), word)))
            for word, address in [(word, address) for _, word, addresses in entries
                                  for address in addresses]:
                with self.subTest(help=name, word=word):
                    file, _, anchor = address.partition("#")
                    page = Page(self.inside(name, file))
                    if anchor:
                        self.assertIn(anchor, [element.attributes.get("id")
                                               for element in page.elements])

    def test_search_and_start(self):
        for name, _, start in FILES:
            with self.subTest(help=name):
                self.assertGreater(os.path.getsize(self.inside(name, "$FIftiMain")), 1000)
                self.assertGreater(os.path.getsize(self.inside(name, "$WWKeywordLinks", "BTree")),
                                   1000)
                with open(self.inside(name, "#SYSTEM"), "rb") as file:
                    self.assertIn(start.encode(), file.read())


if __name__ == "__main__":
    folder = os.path.abspath(sys.argv.pop(1))
    unittest.main()
