"""axe-core judges the page, its menus and its dialogs, light and dark. npm gets it into
the folder of the environment variable VORSTEK_AXE when it is not there. Debian
packages: chromium nodejs npm."""

import json
import os
import pathlib

import npm_packages
import page_case
from page_case import HERE, PageCase

SCRIPT = "axe-core/axe.min.js"
PACKAGES = HERE.parent / "help"

AUDIT = """axe.run(%s, {resultTypes: ["violations"], preload: false, iframes: false,
    selectors: false}).then((result) => result.violations.map((rule) => rule.id + ": " +
        rule.nodes.slice(0, 3).map((node) => node.html.slice(0, 200)).join(" and ")))"""

DIALOGS = ("question", "file-name", "options", "plot", "line", "points", "examples", "share",
           "shared", "card", "about")

# Captions that are written when the dialog is opened.
CAPTIONS = "document.querySelectorAll('#question h2, #points h2').forEach((h2) => h2.append('Text'))"


class AccessibilityTest(PageCase):

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = pathlib.Path(os.environ["VORSTEK_AXE"])
        npm_packages.fetch(PACKAGES, folder, SCRIPT)
        cls.add_script((folder / "node_modules" / SCRIPT).read_text(encoding="utf-8"))

    def audit(self, context="html"):
        return self.run_script(AUDIT % json.dumps(context))

    def look(self, scheme):
        """Nothing is halfway to another colour."""
        self.size(1280, 800)
        self.browser.send("Emulation.setEmulatedMedia",
                          features=[{"name": "prefers-color-scheme", "value": scheme},
                                    {"name": "prefers-reduced-motion", "value": "reduce"}])

    def test_the_page_with_all_its_panes(self):
        self.choose("graph")
        self.run_script("document.querySelectorAll('.pane').forEach((pane) => pane.hidden = false)")
        for scheme in ("light", "dark"):
            self.look(scheme)
            with self.subTest(scheme=scheme):
                self.assertEqual(self.audit(), [])

    def test_menus_and_dialogs(self):
        self.run_script(CAPTIONS)
        for scheme in ("light", "dark"):
            self.look(scheme)
            self.run_script("document.querySelector('[aria-haspopup]').click()")
            with self.subTest(scheme=scheme, menu="File"):
                self.assertEqual(self.audit(".bar"), [])
            for name in DIALOGS:
                self.run_script(f"document.getElementById('{name}').showModal()")
                with self.subTest(scheme=scheme, dialog=name):
                    self.assertEqual(self.audit(f"#{name}"), [])
                self.run_script(f"document.getElementById('{name}').close()")

    def test_faults_are_found(self):
        self.run_script("document.querySelector('[data-code=\"11\"]').removeAttribute('aria-label');"
                        "document.querySelector('[data-code=\"11\"]').title = ''")
        self.assertRegex(" ".join(self.audit()), "button-name")


if __name__ == "__main__":
    page_case.main()
