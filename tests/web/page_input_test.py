"""Mouse, fingers and the PC keyboard on the page, in small and large windows."""

import page_case
from page_case import PageCase

F, G, STO, RCL, ENTER, SST, RUN_STOP = 4, 5, 8, 9, 11, 1, 30
STACK_SWITCH, RUN_SWITCH = 31, 32
SEVEN, EIGHT = 16, 17
KEYS = range(1, 31)
BUTTONS = range(1, 33)

SIZES = ((360, 640), (640, 360), (812, 375), (768, 1024), (1280, 800))

FUNCTION_KEYS = {"F2": F, "F3": G, "F4": STO, "F5": RUN_STOP, "F7": RCL, "F8": SST}

ENDLESS = "LBL 1\r\n1\r\n+\r\nGTO 1\r\n"


def button(code):
    return f'[data-code="{code}"]'


class InputCase(PageCase):

    def type(self, key, text=""):
        for kind in ("keyDown", "keyUp"):
            self.browser.send("Input.dispatchKeyEvent", type=kind, key=key, code=key,
                              text=text if kind == "keyDown" else "")

    def is_down(self, code):
        return self.count(f"{button(code)}.down") == 1

    def has_focus(self, selector):
        return self.count(f"{selector}:focus") == 1

    def state_after(self, *lines):
        return self.script(*lines, "state")[-1]


class MouseTest(InputCase):

    def test_all_buttons_are_in_the_window_and_below_the_pointer(self):
        for width, height in SIZES:
            self.size(width, height)
            with self.subTest(width=width, height=height):
                self.assertEqual(self.eventually(list(BUTTONS), "buttonsInReach"),
                                 list(BUTTONS))

    def test_nothing_scrolls_sideways(self):
        self.choose("graph")
        for width, height in SIZES:
            self.size(width, height)
            with self.subTest(width=width, height=height):
                self.assertLessEqual(self.run_script("document.documentElement.scrollWidth"), width)

    def test_every_key_is_pressed_by_the_mouse(self):
        self.mouse("mousePressed", self.point(button(SEVEN)))
        self.assertTrue(self.is_down(SEVEN))
        self.mouse("mouseReleased", self.point(button(SEVEN)))
        self.assertFalse(self.is_down(SEVEN))
        for code in KEYS:
            self.click(button(code))
        self.assert_same(self.settled(), self.state_after(
            f"key {SEVEN} {' '.join(map(str, KEYS))}"))

    def test_a_switch_slides_by_a_click_or_with_the_pointer(self):
        self.click(button(STACK_SWITCH))
        self.assertIn("Z", self.settled().display)
        x, y = self.point(button(STACK_SWITCH))
        self.mouse("mousePressed", (x + 8, y))
        self.mouse("mouseMoved", (x - 30, y))
        self.assertNotIn("Z", self.settled().display)
        self.mouse("mouseReleased", (x - 30, y))
        self.assertEqual(self.count(f'{button(STACK_SWITCH)}[aria-checked="false"]'), 1)

    def test_lamps_show_the_prefix_and_the_mode(self):
        for codes, lit in (((), []), ((F,), ["f"]), ((G,), ["g"]), ((ENTER,), []),
                           ((RUN_SWITCH,), ["program"]), ((F,), ["f", "program"])):
            self.press(*codes)
            with self.subTest(keys=codes):
                self.assertEqual(self.call("lit"), lit)

    def test_a_run_is_alive_and_any_key_halts_it(self):
        self.call("drop", "endless.txt", ENDLESS, "body")
        self.call("find", ".listing li:nth-child(5)")
        self.settled()
        self.click(button(RUN_STOP))
        self.call("find", ".lamp.lit[data-lamp=run]")
        self.click(button(ENTER))
        self.call("find", ".lamp:not(.lit)[data-lamp=run]")
        self.assertGreater(self.settled().numbers["x"], 0)


class TouchTest(InputCase):

    def setUp(self):
        self.size(360, 640, density=3, mobile=True)
        self.browser.send("Emulation.setTouchEmulationEnabled", enabled=True, maxTouchPoints=5)
        self.open()

    def tearDown(self):
        super().tearDown()
        self.browser.send("Emulation.setTouchEmulationEnabled", enabled=False)

    def test_two_thumbs_hold_two_keys(self):
        self.run_script("navigator.vibrate = () => hands.boxes.push('vibrates')")
        seven, eight = (0, self.point(button(SEVEN))), (1, self.point(button(EIGHT)))
        self.touch("touchStart", seven)
        self.touch("touchStart", seven, eight)
        self.assertTrue(self.is_down(SEVEN) and self.is_down(EIGHT))
        self.touch("touchEnd")
        self.assertFalse(self.is_down(SEVEN) or self.is_down(EIGHT))
        self.assert_same(self.settled(), self.state_after(
            f"down {SEVEN}", f"down {EIGHT}", f"up {SEVEN}", f"up {EIGHT}"))
        self.assertEqual(self.boxes(), ["vibrates", "vibrates"])

    def test_quick_touches_do_not_zoom(self):
        at = (0, self.point(button(SEVEN)))
        for _ in range(4):
            self.touch("touchStart", at)
            self.touch("touchEnd")
        self.assertEqual(self.settled().numbers["x"], 7777)
        self.assertEqual(self.run_script("visualViewport.scale"), 1)


class KeyboardTest(InputCase):

    def test_characters_do_what_they_do_in_the_window(self):
        text = "12.5e-3\r4+7*2/3-8.\r"
        for character in text:
            self.type("Enter" if character == "\r" else character, character)
        self.assert_same(self.settled(), self.state_after("text " + text.replace("\r", "\\r")))

    def test_function_keys(self):
        self.type("7", "7")
        for key, code in FUNCTION_KEYS.items():
            with self.subTest(key=key):
                self.type(key)
        codes = " ".join(map(str, FUNCTION_KEYS.values()))
        self.assert_same(self.settled(), self.state_after("text 7", f"key {codes}"))

    def test_f9_steps_back_and_f11_and_f12_slide(self):
        self.type("F12")
        self.type("1", "1")
        self.type("Enter", "\r")
        self.type("F9")
        self.settled()      # g comes first, and SST when it has been seen
        self.assert_same(self.settled(), self.state_after(f"up {RUN_SWITCH}", "text 1\\r", f"key {G} {SST}"))
        self.type("F12")
        self.type("F11")
        self.assertIn("Z", self.settled().display)

    def test_tab_and_arrow_keys_reach_everything(self):
        for selector in ("[aria-haspopup]", "div:nth-of-type(2) > [aria-haspopup]",
                         "div:nth-of-type(3) > [aria-haspopup]", button(ENTER)):
            self.type("Tab")
            self.assertTrue(self.has_focus(selector), selector)
        self.type("ArrowDown")
        self.assertTrue(self.has_focus(button(15)))
        reached = self.call("reached", ENTER)
        self.assertEqual(sorted(reached), list(BUTTONS))
        self.type(" ", " ")
        self.assertEqual(self.settled().display.count("LastOp"), 1)

    def test_menus_open_move_and_close(self):
        self.type("Tab")
        self.type("ArrowDown")
        self.assertTrue(self.has_focus("[data-command=new]"))
        self.type("ArrowRight")
        self.type("ArrowUp")
        self.assertTrue(self.has_focus("[data-command=options]"))
        self.type("Escape")
        self.assertEqual(self.count("[role=menu]:not([hidden])"), 0)
        self.type("ArrowDown")
        self.type("Enter", "\r")
        self.settled()
        self.assertEqual(self.count(".pane.graph:not([hidden])"), 1)


if __name__ == "__main__":
    page_case.main()
