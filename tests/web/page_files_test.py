"""Files, reloads and links of the page, friendly and hostile ones."""

import urllib.parse

import page_case
from page_case import EXAMPLES, PROGRAM, FilesCase

ONE, TWO, ENTER, RUN_STOP = 24, 25, 11, 30
DATA = (EXAMPLES / "data" / "fall.txt").read_text(encoding="latin-1")


class FilesTest(FilesCase):

    def console_saves(self, *lines):
        """What the console writes as "out.txt"."""
        (self.folder / "in.txt").write_bytes(PROGRAM.encode())
        out = self.folder / "out.txt"
        self.script(f"open {self.folder / 'in.txt'}", *lines, f"save {out}")
        return out.read_bytes()

    def test_a_program_is_dropped_changed_and_saved(self):
        self.open_program()
        self.press(32, ONE, ENTER)
        self.choose("saveAs")
        self.name_file("mine.txt")
        self.assertEqual(self.saved("mine.txt"),
                         self.console_saves("up 32", f"key {ONE} {ENTER}"))

    def test_a_program_is_chosen_from_the_disk(self):
        (self.folder / "double.txt").write_text(PROGRAM)
        self.browser.send("Page.setInterceptFileChooserDialog", enabled=True)
        self.choose("open")
        self.call("untilAskedForFile")
        chooser = self.browser.send("Runtime.evaluate", expression="document.getElementById('chooser')")
        self.browser.send("DOM.setFileInputFiles", files=[str(self.folder / "double.txt")],
                          objectId=chooser["result"]["objectId"])
        self.call("untilTitle", "double.txt")
        self.assertEqual(self.press(TWO, RUN_STOP).numbers["x"], 4)

    def test_a_broken_file_is_refused_with_the_text_of_the_loader(self):
        self.call("drop", "broken.txt", "LBL 0\nNONSENSE\n", "body")
        self.call("find", "#question[open]")
        self.settled("cancel")
        self.assertRegex(" ".join(self.boxes()), "NONSENSE|[Ll]ine")

    def test_data_are_dropped_on_the_graph_and_saved(self):
        self.choose("graph")
        self.call("find", ".pane.graph:not([hidden])")
        self.call("drop", "fall.txt", DATA, ".pane.graph .frame")
        self.call("find", "canvas[aria-label^='Free fall: 2 data lines']")
        for command, name, start in (("saveGraph", "g.txt", b""), ("saveSvg", "g.svg", b"<"),
                                     ("savePng", "g.png", b"\x89PNG")):
            self.choose(command)
            self.name_file(name)
            with self.subTest(file=name):
                saved = self.saved(name)
                self.assertTrue(saved.startswith(start))
                if not name.endswith(".png"):
                    self.assertIn(b"Free fall", saved)


class ReloadTest(FilesCase):

    def test_program_registers_and_stack_survive(self):
        self.open_program()
        before = self.press(ONE, TWO, ENTER, 8, TWO)
        self.open(keeps=True)
        after = self.settled()
        self.assertEqual((after.numbers, after.name, after.program, after.listing),
                         (before.numbers, before.name, before.program, before.listing))
        self.assertEqual(after.numbers["reg.2"], 12)

    def test_the_display_is_filled_before_the_calculator_is_there(self):
        for shown, keys in (("0.00", ()), ("12.00", (ONE, TWO, ENTER))):
            self.press(*keys)
            self.open(keeps=True)
            with self.subTest(shown=shown):
                self.assertEqual(self.run_script("hands.atFirst").partition(";")[0], shown)

    def test_keys_that_come_early_are_not_lost(self):
        script = self.add_script("addEventListener('DOMContentLoaded', () => hands.tap(24))")
        self.addCleanup(self.browser.send, "Page.removeScriptToEvaluateOnNewDocument",
                        identifier=script)
        self.open(keeps=True)
        self.assertEqual(self.settled().numbers["x"], 1)

    def test_what_is_kept_may_be_spoilt(self):
        for kept in ("x", "vorstek 1\nline 1e999\nfile \nlisting\n\0", "\ud800" * 1000):
            self.run_script(f"localStorage.vorstek = {page_case.json.dumps(kept)}")
            self.open(keeps=True)
            with self.subTest(kept=kept[:20]):
                self.assertEqual(self.press(ONE, ENTER).numbers["x"], 1)

    def test_the_page_works_without_storage(self):
        script = self.add_script("Storage.prototype.getItem = Storage.prototype.setItem = "
                                 "() => { throw new Error('forbidden'); };")
        self.addCleanup(self.browser.send, "Page.removeScriptToEvaluateOnNewDocument",
                        identifier=script)
        self.open()
        self.assertEqual(self.press(ONE, ENTER).numbers["x"], 1)


class LinkTest(FilesCase):

    HOSTILE = (
        ("listing=" + "1%0A" * 30001, "too long"),
        ("listing=%00", "characters"),
        ("listing=%E4%BD%A0", "characters"),
        ("listing=1&name=../../x.txt", "not a file name"),
        ("listing=1&name=.hidden", "not a file name"),
        ("listing=1&name=" + "x" * 81, "not a file name"),
    )

    def link(self):
        self.choose("share")
        self.call("find", "#share[open]")
        return self.run_script("document.querySelector('#share input').value")

    def test_a_program_is_shared_and_not_run(self):
        self.open_program()
        self.press(TWO)
        address = self.link()
        self.open("#" + address.partition("#")[2])
        self.call("find", "#shared[open]")
        self.assertEqual(self.run_script("document.querySelector('#shared pre').textContent"), PROGRAM)
        self.run_script("document.querySelector('#shared [value=ok]').click()")
        self.call("untilTitle", "double.txt")
        seen = self.settled()
        self.assertEqual((seen.program, seen.numbers["x"]), (PROGRAM, 0))
        self.assertNotIn("#", self.run_script("location.href"))

    def test_a_link_changes_nothing_when_it_is_cancelled(self):
        self.open("#listing=1")
        self.call("find", "#shared[open]")
        self.run_script("document.querySelector('#shared [value=cancel]').click()")
        self.assertEqual(self.settled().name, "")

    def test_a_link_with_markup_shows_text(self):
        markup = "<img src=x onerror=hands.errors.push('run')>"
        self.open("#listing=" + urllib.parse.quote(markup))
        self.call("find", "#shared[open]")
        self.assertEqual(self.run_script("document.querySelector('#shared pre').textContent"), markup)
        self.assertEqual(self.count("#shared pre *"), 0)

    def test_hostile_links_are_refused_with_a_text(self):
        for fragment, text in self.HOSTILE:
            self.open("#" + fragment)
            self.call("find", "#question[open]")
            with self.subTest(fragment=fragment[:40]):
                seen = self.settled()
                self.assertIn(text, " ".join(self.boxes()))
                self.assertEqual((seen.name, seen.listing[1]), ("", "01 R/S"))
                self.assertNotIn("#", self.run_script("location.href"))


if __name__ == "__main__":
    page_case.main()
