"""Reads every page of the manual in a browser, as wide as a telephone and as a
desktop window, light and dark:

    python3 accessibility_test.py AXE_FOLDER [unittest options]
    python3 accessibility_test.py AXE_FOLDER --fetch

axe-core judges the pages. npm gets it into AXE_FOLDER when it is not there;
--fetch does only that. Debian packages: chromium nodejs npm poppler-utils."""

import base64
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import npm_packages
from chromium import Chromium

HERE = pathlib.Path(__file__).resolve().parent
MAKE_MANUAL = HERE.parents[1] / "docs" / "make_manual.py"
SCRIPT = "axe-core/axe.min.js"

PHONE, DESKTOP = 400, 1200      # pixels

# Colour gradients hide the contrast of a key cap from axe-core. Without them it
# judges the plain colour below, which help viewers show.
PLAIN_CAPS = ".cap { background-image: none !important; }"

# All rules, or in the dark scheme those that the scheme can affect. The page
# needs no style sheets from elsewhere and has no frames.
AUDIT = """axe.run({resultTypes: ["violations"], preload: false, iframes: false,
    selectors: false %s}).then(
    (result) => result.violations.map((rule) => rule.id + " (" + rule.help + "): " +
        rule.nodes.slice(0, 3).map((node) => node.html.slice(0, 200)).join(" and ")))"""
SCHEMES = (("light", ""), ("dark", ', runOnly: ["color-contrast", "link-in-text-block"]'))

TOO_WIDE = "document.documentElement.scrollWidth > document.documentElement.clientWidth"

axe_folder = None


def fetch_axe(folder):
    """The script axe.min.js."""
    npm_packages.fetch(HERE, folder, SCRIPT)
    return folder / "node_modules" / SCRIPT


class AccessibilityTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="vorstek-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        subprocess.run([sys.executable, "-B", MAKE_MANUAL, cls.folder,
                        os.path.join(cls.folder, "projects")], check=True)
        cls.pages = sorted(pathlib.Path(cls.folder, "HtmlHelp").glob("*.htm*"))
        cls.browser = Chromium().__enter__()
        cls.addClassCleanup(cls.browser.__exit__)
        cls.browser.send("Page.addScriptToEvaluateOnNewDocument",
                         source=fetch_axe(axe_folder).read_text(encoding="utf-8"))

    def page(self, name):
        return next(page for page in self.pages if page.name == name)

    def audit(self, rules=""):
        return self.browser.evaluate(AUDIT % rules)

    def first_result(self):
        return self.browser.evaluate("document.querySelector('#results a').textContent")

    def test_pages(self):
        self.assertGreater(len(self.pages), 30)
        for page in self.pages:
            self.browser.emulate(PHONE, 900, "light")
            self.browser.open(page.as_uri())
            self.browser.evaluate("document.head.appendChild(document.createElement('style'))"
                                  f".textContent = {json.dumps(PLAIN_CAPS)}")
            for scheme, rules in SCHEMES:
                for width in (PHONE, DESKTOP):
                    self.browser.emulate(width, 900, scheme)
                    with self.subTest(page=page.name, width=width, scheme=scheme):
                        self.assertEqual(self.audit(rules), [])
                        self.assertFalse(self.browser.evaluate(TOO_WIDE), "scrolls sideways")

    def test_faults_are_found(self):
        for fault, rule in (("document.querySelector('h2').outerHTML = '<h4>Deep</h4>'", "heading-order"),
                            ("document.querySelector('p').style.color = '#ccc'", "color-contrast"),
                            ("document.querySelector('img').removeAttribute('alt')", "image-alt"),
                            ("document.querySelector('main').outerHTML = '<p>Text</p>'", "landmark")):
            self.browser.emulate(DESKTOP, 900, "light")
            self.browser.open(self.page("Introduction.htm").as_uri())
            self.browser.evaluate(fault)
            with self.subTest(rule=rule):
                self.assertRegex(" ".join(self.audit()), rule)

    def test_search(self):
        """From another page to the index page with the results."""
        self.browser.emulate(DESKTOP, 900, "light")
        self.browser.open(self.page("stack.htm").as_uri())
        self.assertTrue(self.browser.evaluate("document.querySelector('form.search').offsetWidth > 0"))

        self.browser.follow("form.q.value = 'Regression slope'; form.submit()")

        self.assertRegex(self.browser.evaluate("location.href"), "word-index.html")
        self.assertEqual(self.first_result(), "Statistics instructions: LR linear regression")
        self.assertEqual(self.audit(), [])

    def test_complete_words_and_phrases_come_first(self):
        """Not "Commands" for a comma, nor other lines for line 00."""
        for query, heading in (("comma", "The calculator face: Using the keyboard"),
                               ("line 00", "Editing a program: Moving through a program"),
                               ("STO", "Register instructions: STO store")):
            self.browser.open(self.page("word-index.html").as_uri() + "?q=" + query)
            with self.subTest(query=query):
                self.assertEqual(self.first_result(), heading)

    def test_search_finds_nothing(self):
        self.browser.open(self.page("word-index.html").as_uri() + "?q=xyzzy")
        self.assertEqual(self.browser.evaluate("document.querySelector('#results h2').textContent"),
                         "Nothing found")
        self.assertEqual(self.audit(), [])

    def test_without_scripts_the_search_is_hidden(self):
        self.browser.send("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.browser.open(self.page("stack.htm").as_uri())
            self.assertEqual(self.browser.evaluate("document.querySelector('form.search').offsetWidth"), 0)
        finally:
            self.browser.send("Emulation.setScriptExecutionDisabled", value=False)

    def test_the_card_prints_on_one_page(self):
        self.browser.open(self.page("card.htm").as_uri())
        printed = self.browser.send("Page.printToPDF", preferCSSPageSize=True, printBackground=False)
        with tempfile.NamedTemporaryFile(suffix=".pdf") as file:
            file.write(base64.b64decode(printed["data"]))
            file.flush()
            facts = subprocess.run(["pdfinfo", file.name], check=True, capture_output=True,
                                   text=True).stdout
        self.assertEqual(re.search(r"Pages: +(\d+)", facts).group(1), "1")
        self.assertRegex(facts, r"Page size: .*A4")


if __name__ == "__main__":
    axe_folder = pathlib.Path(sys.argv.pop(1)).resolve()
    if sys.argv[1:] == ["--fetch"]:
        fetch_axe(axe_folder)
    else:
        unittest.main()
