"""The pages of the manual, as sources and as generated: every link has a
target, every page is in the contents, every message is explained."""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

import make_manual
from manual_pages import BLUE, GOLD, MANUAL, Page, REPOSITORY, UNSHIFTED, pages

SOURCE_FOLDERS = ("engine", "graph", "imaging", "shell", "toolkit")

# Files there whose messages are those of the console program.
CONSOLE_FILES = ("toolkit/finding.cpp",)

# How texts begin that a user can read in a message box or in the display.
MESSAGE = re.compile(r"\s*(Error: |ERROR|FATAL|Program Error|Program [mM]emory|Sorry|Could not|couldn|"
                     r"There is no|THERE IS|The file name|Nothing to|Not allowed|Save current|You entered|"
                     r"Data set |%u of the|The Vorstek|Toolbar bitmap)")


def folded(text):
    return " ".join(text.split())


def messages():
    """(file, text) of each message in the sources; adjacent literals are joined."""
    for folder in SOURCE_FOLDERS:
        for where, _, names in os.walk(os.path.join(REPOSITORY, folder)):
            for name in sorted(names):
                if not name.endswith((".cpp", ".h")) or f"{folder}/{name}" in CONSOLE_FILES:
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
        explained = folded(" ".join(page.having("body")[0].text for page in pages()
                               if page.name.lower().endswith("messages.htm")))
        found = list(messages())
        self.assertGreater(len(found), 80)
        for name, text in found:
            for part in re.split(r"%\d*[a-z]", text):
                with self.subTest(file=name, text=text, part=part):
                    self.assertIn(folded(part).rstrip("#"), explained)


class WebCase(unittest.TestCase):
    """A folder of pages whose links have targets."""

    def links(self, page):
        for element in page.elements:
            for attribute in ("href", "src"):
                if attribute in element.attributes:
                    yield element, urllib.parse.unquote(element.attributes[attribute])

    def assert_web(self, folder):
        web = {name: Page(os.path.join(folder, name)) for name in os.listdir(folder)
               if name.endswith((".htm", ".html"))}
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

    def test_pages_of_the_graph_link_only_to_each_other(self):
        """cVantor.CHM contains no other pages."""
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
                self.assertEqual(page.having("meta")[1].attributes["name"], "viewport")
                self.assertEqual(page.having("html")[0].attributes["lang"], "en-GB")
                self.assertFalse(page.having("script"))

    def test_no_heading_level_is_skipped(self):
        for page in pages():
            levels = [int(element.tag[1]) for element in page.elements
                      if re.fullmatch("h[1-6]", element.tag)]
            with self.subTest(page=page.name):
                self.assertEqual(levels[0], 1)
                for level, following in zip(levels, levels[1:]):
                    self.assertIn(following, range(2, level + 2))

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


class CardTest(unittest.TestCase):

    def test_the_card_lists_every_key_with_its_legends(self):
        page = make_manual.Page("card.htm")
        text, = re.findall(r'<pre class="card">(.*?)</pre>', page.source, re.S)
        rows = [[make_manual.plain(cell) for cell in line.split("|")]
                for line in text.strip("\n").split("\n") if line]

        for legends, column in ((UNSHIFTED, 0), (GOLD, 2), (BLUE, 4)):
            listed = {row[column]: key for key, row in enumerate(rows, 1) if row[column]}
            self.assertEqual(listed, legends)
            self.assertTrue(all(row[column + 1] for row in rows if row[column]))


class PcKeysTest(unittest.TestCase):

    def test_the_page_of_the_face_lists_the_function_keys(self):
        keys = {}
        for row in filter(None, make_manual.key_rows()):
            for shift, (legend, _, key) in zip(("", "f ", "g "), row):
                if re.fullmatch(r"F\d+", key):
                    keys[key] = f"<kbd>{shift}{legend}</kbd>"
        keys |= {"F11": "moves the switch <kbd>X</kbd> <kbd>STACK</kbd>",
                 "F12": "moves the switch <kbd>PRGM</kbd> <kbd>RUN</kbd>"}

        source = make_manual.Page("face.htm").source
        listed = re.findall(r'<tr><td><kbd class="pc">(F\d+)</kbd></td><td>(.*?)</td></tr>', source)
        self.assertEqual(dict(listed), keys)


class GeneratedPagesTest(WebCase):

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        subprocess.run([sys.executable, os.path.join(REPOSITORY, "docs", "make_manual.py"),
                        cls.folder.name, os.path.join(cls.folder.name, "projects")], check=True)

    def made(self, *path):
        return os.path.join(self.folder.name, *path)

    def test_pages(self):
        names = sorted(page.name for page in pages())
        for folder, more in (("HtmlHelp", ["word-index.html"]), ("projects/HtmlHelp", [])):
            web = self.assert_web(self.made(folder))
            self.assertEqual(sorted(web), sorted(names + more))
            for name, page in web.items():
                with self.subTest(folder=folder, page=name):
                    self.check_page(page)

    def check_page(self, page):
        self.assertTrue(page.source.isascii())
        self.assertNotIn(" data-", page.source)
        self.assertEqual([kbd for kbd in page.having("kbd") if "pc" not in kbd.classes], [])
        self.assertEqual(page.having("pre", "keys") + page.having("pre", "card"), [])
        self.assertEqual(len(page.having("main")), 1)
        self.assertEqual(len(page.having("p", "ways")), 1)
        for block in page.having("pre"):
            if "box" not in block.classes:      # these wrap and never scroll
                self.assertEqual(block.attributes["tabindex"], "0")
                self.assertEqual(block.attributes["role"], "group")
                self.assertTrue(block.attributes["aria-label"])

    def test_every_page_for_browsers_offers_index_card_and_search(self):
        for name in os.listdir(self.made("HtmlHelp")):
            if not name.endswith((".htm", ".html")):
                continue
            page = Page(self.made("HtmlHelp", name))
            with self.subTest(page=name):
                links = [element.attributes["href"] for element in page.having("a")]
                for other in ("word-index.html", "card.htm"):
                    self.assertTrue(other in links or name == other)
                form, = page.having("form", "search")
                self.assertIn("hidden", form.attributes)    # until the script runs
                self.assertEqual(page.having("script")[-1].attributes["src"], "search.js")

    def test_pages_for_the_help_files_have_no_script(self):
        for name in os.listdir(self.made("projects", "HtmlHelp")):
            self.assertNotEqual(os.path.splitext(name)[1], ".js")
            if name.endswith(".htm"):
                page = Page(self.made("projects", "HtmlHelp", name))
                self.assertEqual(page.having("script") + page.having("form"), [])

    def test_index_page_has_every_word(self):
        wanted = sorted({word.strip() for page in pages() for element in page.elements
                         for word in element.attributes.get("data-index", "").split(";")
                         if word.strip()}, key=str.lower)
        index = Page(self.made("HtmlHelp", "word-index.html"))
        entries = [item.text for item in index.having("li")]
        self.assertGreater(len(wanted), 300)
        self.assertEqual(len(entries), len(wanted))
        for word in wanted:
            self.assertTrue(any(entry == word or entry.startswith(word + ": ")
                                for entry in entries), word)

    def test_search_data_has_every_heading(self):
        with open(self.made("HtmlHelp", "search-data.js"), encoding="ascii") as file:
            text = file.read()
        sections = json.loads(text[text.index("["):text.rindex("]") + 1])
        found = [(urllib.parse.unquote(section[0]), section[2], section[3]) for section in sections]
        for page in pages():
            made = Page(self.made("HtmlHelp", page.name))
            wanted = [(page.name, element.attributes["id"], folded(element.text))
                      for element in made.elements if re.fullmatch("h[123]", element.tag)]
            self.assertEqual([section for section in found if section[0] == page.name], wanted)
        self.assertGreater(sum(len(section[5]) for section in sections), 50000)


if __name__ == "__main__":
    unittest.main()
