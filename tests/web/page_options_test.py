"""Options of the page and what they do: boxes, trace, sounds; print, pen, and what the
user's system asks for."""

import re
import wave

import page_case
from page_case import ROOT, FilesCase

F, ENTER, ONE, CHS, RUN_STOP, SEVEN = 4, 11, 24, 12, 30, 16
STACK_SWITCH, RUN_SWITCH = 31, 32
SUM = "2\r\nENTER\r\n3\r\n+\r\nSTO 1\r\nR/S\r\n"


def durations():
    """Names of the sounds by how long they are, in milliseconds."""
    found = {}
    for path in (ROOT / "resources" / "sounds").glob("*.wav"):
        with wave.open(str(path)) as sound:
            found[round(1000 * sound.getnframes() / sound.getframerate())] = path.stem
    return found


def without_date(trace):
    return re.sub("^run on .*$", "", trace, count=1, flags=re.MULTILINE).splitlines()


def button(code):
    return f'[data-code="{code}"]'


class OptionsTest(FilesCase):

    def set_options(self, **values):
        self.choose("options")
        self.call("find", "#options[open]")
        self.call("choose", "options", values)
        self.call("close", "options", "ok")
        self.settled()

    def shown(self):
        return {name for name in ("listing", "registers", "trace")
                if self.count(f".pane.{name}:not([hidden])")}

    def test_boxes_stay_open_or_follow_the_mode(self):
        before = self.shown()
        self.set_options(listing="keep", registers="keep")
        self.assertEqual(self.shown(), {"listing", "registers"})
        self.set_options(listing="open", registers="open")
        self.press(RUN_SWITCH)
        self.assertEqual(self.shown(), {"listing"})
        self.press(RUN_SWITCH)
        self.assertEqual(self.shown(), before - {"listing", "registers"})

    def test_a_trace_is_shown_and_saved(self):
        self.open_program(SUM, "sum.txt")
        self.set_options(trace=True)
        self.assertIn("trace", self.shown())
        self.press(RUN_STOP)
        self.choose("saveTrace")
        saved = self.saved("TRACELOG.TXT").decode()
        self.assertEqual(self.run_script("document.querySelector('.trace .lines').textContent"),
                         saved)
        (self.folder / "sum.txt").write_bytes(SUM.encode())
        self.script_in(self.folder, "open sum.txt", "option trace on", f"key {RUN_STOP}")
        self.assertEqual(without_date(saved),
                         without_date((self.folder / "tracelog.txt").read_text()))
        self.set_options(trace=False)
        self.assertNotIn("trace", self.shown())

    def test_sounds_are_played_until_they_are_turned_off(self):
        names = durations()
        self.assertEqual(len(names), 9)
        heard = []
        for code in (SEVEN, CHS, F, 2, RUN_SWITCH, RUN_SWITCH):
            self.click(button(code))
            self.settled()
            heard += [names[min(names, key=lambda known: abs(known - duration))]
                      for duration in self.call("sounds")]
        self.assertEqual(heard[0], "key_click")
        self.assertIn("program_mode", heard)
        self.set_options(sound=False)
        self.call("sounds")
        for code in (SEVEN, CHS, RUN_SWITCH, RUN_SWITCH):
            self.click(button(code))
            self.settled()
        self.assertEqual(self.call("sounds"), [])

    def test_the_listing_is_printed_and_nothing_else(self):
        self.open_program()
        self.run_script("window.print = () => hands.boxes.push('prints')")
        self.choose("print")
        self.settled()
        self.assertEqual(self.boxes(), ["prints"])
        self.assertEqual(self.printed().split(), page_case.PROGRAM.split())


class SurroundingsTest(FilesCase):

    def look(self, **features):
        self.browser.send("Emulation.setEmulatedMedia",
                          features=[{"name": name.replace("_", "-"), "value": value}
                                    for name, value in features.items()])

    def test_a_pen_presses_keys(self):
        self.mouse("mousePressed", self.point(button(SEVEN)), "pen")
        self.assertEqual(self.count(f"{button(SEVEN)}.down"), 1)
        self.mouse("mouseReleased", self.point(button(SEVEN)), "pen")
        self.assertEqual(self.settled().numbers["x"], 7)

    def test_switches_do_not_glide_where_motion_is_reduced(self):
        frame = f"document.querySelector('{button(STACK_SWITCH)}').style.getPropertyValue('--frame')"
        for motion, first in (("no-preference", "0"), ("reduce", "12")):
            self.look(prefers_reduced_motion=motion)
            self.open()
            with self.subTest(motion=motion):
                self.assertEqual(
                    self.run_script(f"hands.tap({STACK_SWITCH}), {frame}"), first)

    def test_colours_follow_the_surroundings(self):
        seen = {}
        for scheme in ("light", "dark"):
            self.look(prefers_color_scheme=scheme)
            seen[scheme] = [sum(self.call("colour", "body", name))
                            for name in ("backgroundColor", "color")]
        (light_ground, light_ink), (dark_ground, dark_ink) = seen["light"], seen["dark"]
        self.assertGreater(light_ground, light_ink + 300)
        self.assertGreater(dark_ink, dark_ground + 300)


if __name__ == "__main__":
    page_case.main()
