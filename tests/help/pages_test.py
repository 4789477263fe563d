"""The pages of the manual, as sources and as they are set: every link has its
target, every page its place, every message its explanation."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

from manual_pages import MANUAL, Page, REPOSITORY, pages

SOURCE_FOLDERS = ("engine", "graph", "imaging", "shell", "toolkit")

# Beginnings of what a user can read in a box or on the display.
MESSAGE = re.compile(r"\s*(Error: |ERROR|FATAL|Program Error|Program [mM]emory|Sorry|Could not|couldn|"
                     r"There is no|THERE IS|The file name|Nothing to|Not allowed|Save current|You entered|"
                     r"Data set |%u of the|The Vorstek|Toolbar bitmap)")


def folded(text):
    return " ".join(text.split())


def messages():
    """(file, text) of each message in the sources; adjacent literals are one."""
    for folder in SOURCE_FOLDERS:
        for where, _, names in os.walk(os.path.join(REPOSITORY, folder)):
            for name in sorted(names):
                if not name.endswith((".cpp", ".h")):
                    continue
                with open(os.path.join(where, name), encoding="utf-8") as file:
                    code = re.sub(r"^\s*(//|#include).*", "", file.read(), flags=re.M)
                for found in re.finditer(r'"(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*', code):
                    text = "".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', found.group()))
                    text = text.replace("\\r", "").replace("\\n", "\n").replace('\\"', '"')
                    if MESSAGE.match(text):
                        yield f"{folder}/{name}", text


class MessagesTest(unittest.TestCase):

    def test_each_message_of_the_program_is_explained(self):
        told = folded(" ".join(page.having("body")[0].text for page in pages()
                               if page.name.lower().endswith("messages.htm")))
        found = list(messages())
        self.assertGreater(len(found), 80)
        for name, text in found:
            for part in re.split(r"%\d*[a-z]", text):
                with self.subTest(file=name, text=text, part=part):
                    self.assertIn(folded(part).rstrip("#"), told)


class WebCase(unittest.TestCase):
    """A folder of pages; their links lead somewhere."""

    def links(self, page):
        for element in page.elements:
            for attribute in ("href", "src"):
                if attribute in element.attributes:
                    yield element, urllib.parse.unquote(element.attributes[attribute])

    def assert_web(self, folder):
        web = {name: Page(os.path.join(folder, name)) for name in os.listdir(folder)
               if name.endswith(".htm")}
        anchors = {name: [element.attributes["id"] for element in page.elements
                          if "id" in element.attributes] for name, page in web.items()}
        count = 0
        for name, page in web.items():
            with self.subTest(page=name):
                self.assertEqual(len(anchors[name]), len(set(anchors[name])), "an id twice")
            for element, address in self.links(page):
                with self.subTest(page=name, line=element.line, address=address):
                    file, _, anchor = address.partition("#")
                    self.assertTrue(os.path.exists(os.path.join(folder, file or name)))
                    if anchor:
                        self.assertIn(anchor, anchors[file or name])
                    count += 1
        self.assertGreater(count, 150)
        return web


class PagesTest(WebCase):

    def listed(self, contents):
        with open(os.path.join(MANUAL, contents), encoding="utf-8") as file:
            for line in file.read().splitlines():
                word = line.strip()
                if word.startswith("include "):
                    yield from self.listed(word.split(" ", 1)[1])
                elif word and not word.startswith("#"):
                    yield word

    def test_links(self):
        self.assert_web(MANUAL)

    def test_contents_list_each_page_once(self):
        listed = list(self.listed("calculator.contents"))
        self.assertEqual(sorted(listed), sorted(page.name for page in pages()))

    def test_pages_of_the_graph_stand_alone(self):
        """cVantor.CHM holds these alone."""
        own = set(self.listed("graph.contents"))
        for page in pages():
            if page.name in own:
                for element, address in self.links(page):
                    if element.tag == "a":
                        with self.subTest(page=page.name, line=element.line):
                            self.assertIn(address.partition("#")[0], own)

    def test_pages_can_be_reached_from_the_introduction(self):
        linked = {page.name: [address.partition("#")[0] for element, address in self.links(page)
                              if element.tag == "a"] for page in pages()}
        reached, waiting = set(), ["Introduction.htm"]
        while waiting:
            name = waiting.pop()
            if name and name not in reached:
                reached.add(name)
                waiting += linked[name]
        self.assertEqual(reached, set(linked))

    def test_heads(self):
        for page in pages():
            with self.subTest(page=page.name):
                self.assertTrue(page.source.startswith("<!DOCTYPE html>\n"))
                self.assertEqual(len(page.having("h1")), 1)
                self.assertEqual(len(page.having("title")), 1)
                self.assertEqual(page.having("h1")[0].text, page.having("title")[0].text)
                self.assertIn("charset=utf-8", page.having("meta")[0].attributes["content"])
                self.assertFalse(page.having("script"))

    def test_no_title_twice(self):
        titles = [page.having("title")[0].text for page in pages()]
        self.assertEqual(sorted(titles), sorted(set(titles)))

    def test_pictures_say_what_they_show_and_are_used(self):
        used = set()
        for page in pages():
            for element in page.having("img"):
                with self.subTest(page=page.name, line=element.line):
                    self.assertGreater(len(element.attributes["alt"]), 10)
                used.add(os.path.basename(element.attributes["src"]))
        self.assertEqual(used, set(os.listdir(os.path.join(MANUAL, "pictures"))))


class SetPagesTest(WebCase):

    def test_set_pages(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, os.path.join(REPOSITORY, "docs", "make_manual.py"),
                            folder, os.path.join(folder, "projects")], check=True)
            web = self.assert_web(os.path.join(folder, "HtmlHelp"))
        self.assertEqual(sorted(web), sorted(page.name for page in pages()))
        for name, page in web.items():
            with self.subTest(page=name):
                self.assertTrue(page.source.isascii())
                self.assertNotIn(" data-", page.source)
                self.assertEqual([kbd for kbd in page.having("kbd") if "pc" not in kbd.classes], [])
                self.assertEqual(page.having("pre", "keys"), [])
                ways = page.having("p", "ways")
                self.assertEqual(len(ways), 1)


if __name__ == "__main__":
    unittest.main()
