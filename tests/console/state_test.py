"""The state object: its keys in their order, their types and their meaning."""

from console_case import (MODE_SWITCH, STACK_VIEW, ConsoleCase, key_line, main)
from vocabulary import DATA_SET_KEYS, LEVEL_KEYS, OPTION_KEYS, STATE_KEYS

PROGRAM = "program.txt"
IN_PROGRAM_MODE = f"up {MODE_SWITCH}"
IN_RUN_MODE = f"down {MODE_SWITCH}"


class ShapeTest(ConsoleCase):

    def states_of_all_kinds(self):
        self.listing("; comment", "1", "SumG", "GSB 1", "R/S", "LBL 1", "StdDev", "R/S", "RTN")
        self.write("data.txt", "1 , 2\n3 , 4\n")
        return self.states("state", "open " + PROGRAM, key_line("R/S"), "state",
                           "graph append data.txt", "state", key_line("f", "9"),
                           f"down {STACK_VIEW}", "state", IN_PROGRAM_MODE, key_line("STO", "."),
                           "state", "text 1e5", "state", IN_RUN_MODE, "text 1.5e3", "state",
                           key_line("1", "/", "0"), key_line("/"), "state")

    def test_keys_in_order(self):
        for state in self.states_of_all_kinds():
            self.assertEqual(list(state), ["event", *STATE_KEYS])
            self.assertEqual([list(level) for level in state["stack"]], 4 * [LEVEL_KEYS])
            self.assertEqual(list(state["options"]), OPTION_KEYS)
            for data_set in state["graph"]:
                self.assertEqual(list(data_set), DATA_SET_KEYS)

    def assert_types(self, state, keys, kind, count=None):
        for key in keys.split():
            values = [state[key]] if count is None else state[key]
            if count is not None:
                self.assertEqual(len(values), count, key)
            for value in values:
                self.assertTrue(kind(value), f"{key} is {value!r}")

    def test_types(self):
        def text(value):
            return isinstance(value, str)

        def flag(value):
            return type(value) is int and value in (0, 1)

        def whole(value):
            return type(value) is int and value >= 0

        def number(value):
            return type(value) in (int, float) or value in ("nan", "inf", "-inf")

        for state in self.states_of_all_kinds():
            self.assert_types(state, "mode display format angle entry exponent keystrokes last_op "
                                     "saved_last_op file graph_title graph_label", text)
            self.assert_types(state, "stack_lift show_stack modified listing_shown "
                                     "registers_shown graph_shown switch_pending", flag)
            self.assert_types(state, "line highlight graph_line", whole)
            self.assert_types(state, "lastx", number)
            self.assert_types(state, "reg", number, 30)
            self.assert_types(state, "program", text, 99)
            self.assert_types(state, "registers", text, 31)
            self.assert_types(state, "listing", text, len(state["listing"]))
            self.assert_types(state, "returns", whole, len(state["returns"]))
            self.assert_types(state["options"], " ".join(OPTION_KEYS), flag)
            for level in state["stack"]:
                self.assert_types(level, "text", text)
                self.assert_types(level, "value", number)
            for data_set in state["graph"]:
                self.assert_types(data_set, "label", text)
                self.assert_types(data_set, "type color width style", whole)
                self.assert_types(data_set, "multiplier offset", number)
                self.assert_types(data_set, "y", number, len(data_set["y"]))
                if data_set["x"] is not None:
                    self.assert_types(data_set, "x", number, len(data_set["y"]))

    def test_a_fresh_calculator(self):
        state, = self.states("state")
        for key, value in {"mode": "run", "display": " 0.00",
                           "stack": 4 * [{"text": "+0.00", "value": 0}], "lastx": 0,
                           "reg": 30 * [0], "stack_lift": 1, "format": "FIX 2", "angle": "DEG",
                           "entry": "", "exponent": "", "keystrokes": "", "last_op": "",
                           "saved_last_op": "", "show_stack": 0, "modified": 0, "line": 0,
                           "returns": [], "file": "", "program": [""] + 98 * ["R/S"],
                           "listing": ["00"] + [f"{n:02} R/S" for n in range(1, 99)],
                           "highlight": 0, "registers": [f"Reg[{n:2}] = +0.00" for n in range(30)] +
                           ["LASTx   = +0.00"], "listing_shown": 0, "registers_shown": 0,
                           "graph_shown": 0, "switch_pending": 0, "graph_line": 0,
                           "graph_title": "My Graph", "graph_label": "x axis", "graph": []}.items():
            self.assertEqual(state[key], value, key)


class DisplayTest(ConsoleCase):

    def displays(self, *lines):
        return [state["display"] for state in self.states(*lines)]

    def test_run_mode(self):
        self.assertEqual(self.displays("text 12", "state", key_line("CHS"), "state", "text e5",
                                       "state", key_line("ENTER"), "state",
                                       key_line("f", "SST", "0"), key_line("CLX"), "state"),
                         [" 12.", "-12.", "-12.e+05", "-1200000.00", " 0"])

    def test_errors(self):
        self.assertEqual(self.displays("text 0", key_line("g", "R/S"), "state", key_line("5"),
                                       "state"), ["Error: divide by 0", " 0.00"])

    def test_a_text_of_20_characters(self):
        self.assertEqual(self.displays(key_line("GTO", "5"), "state"), ["Error: no such label"])

    def test_the_line_while_a_key_is_held(self):
        self.listing("STO .4", "5")
        self.assertEqual(self.displays("open " + PROGRAM, "down 30", "state", "up 30", "down 1",
                                       "state", "up 1", "state"), ["01 STO .4", "04 R/S", " 5.00"])

    def test_program_mode(self):
        self.assertEqual(self.displays(IN_PROGRAM_MODE, "state", key_line("STO", ".", "3"), "state",
                                       "text 1.5e3", "state", key_line("f", "4"), "state",
                                       IN_RUN_MODE, "state"),
                         ["00", "01 STO .3", "02 +1.5e+03", "03 sin", " 0.00"])

    def test_stack_view(self):
        self.assertEqual(self.displays("text 5", key_line("ENTER"), f"down {STACK_VIEW}", "state",
                                       key_line("CHS"), "state", "text 0", key_line("g", "R/S"),
                                       "state", f"up {STACK_VIEW}", "state"),
                         ["X   5.00", "X  -5.00", "X  Error: divide by 0", "Error: divide by 0"])


class MeaningTest(ConsoleCase):

    def test_stack_and_last_x(self):
        state = self.state_after("text 1\\r2\\r3\\r4+")
        self.assertEqual([level["value"] for level in state["stack"]], [7, 2, 1, 1])
        self.assertEqual([level["text"] for level in state["stack"]],
                         ["+7.00", "+2.00", "+1.00", "+1.00"])
        self.assertEqual(state["lastx"], 4)

    def test_a_number_being_keyed_in(self):
        states = self.states("text 1", "state", "text .5e", "state", key_line("CHS"), "text 12",
                             "state", key_line("ENTER"), "state")
        self.assertEqual([(state["entry"], state["exponent"], state["stack"][0]["text"],
                           state["stack_lift"]) for state in states],
                         [("+1", "", "+1.", 1), ("+1.5", "e+00", "+1.5e+00", 1),
                          ("+1.5", "e-12", "+1.5e-12", 1), ("", "", "+1.50e-12", 0)])

    def test_formats_and_angles(self):
        states = self.states(key_line("f", "GSB", "4"), "state", key_line("f", "GTO", "3"), "state",
                             key_line("f", "SST", "9"), "state", key_line("g", "EEX"), "state",
                             key_line("g", "CHS"), "state", key_line("g", "CLX"), "state")
        self.assertEqual([state["format"] for state in states[:3]], ["SCI 4", "ENG 3", "FIX 9"])
        self.assertEqual([state["angle"] for state in states],
                         ["DEG", "DEG", "DEG", "RAD", "GRD", "DEG"])

    def test_pending_keys_and_last_operations(self):
        states = self.states(key_line("STO", "+"), "state", key_line(".", "5"), "state",
                             key_line("x<>y"), "state", IN_PROGRAM_MODE, key_line("f", "4"),
                             "state", IN_RUN_MODE, "state")
        self.assertEqual([(state["keystrokes"], state["last_op"], state["saved_last_op"])
                          for state in states], [("STO + ", "", ""), ("", "STO+ .5", ""),
                                                 ("", "x<>y", ""), ("", "sin", "x<>y"),
                                                 ("", "x<>y", "x<>y")])

    def test_wait_markers(self):
        states = self.states("text 0", key_line("g", "R/S"), "state", "down 20", "state", "up 20",
                             "state")
        self.assertEqual([state["keystrokes"] for state in states], ["EWFDK", "EWFUK", ""])

    def test_program_and_listing(self):
        self.listing("; head", "LBL 1 ; label", "STO .5", "bad", "3.5e2", "", "GTO i")
        state = self.state_after("open " + PROGRAM, key_line("SST"), key_line("SST"))

        self.assertEqual(state["program"], ["", "LBL 1", "STO .5", "3.5e2", "GTO i"] + 94 * ["R/S"])
        self.assertEqual(state["listing"][:10], ["00", "   ; head", "01 LBL 1 ; label", "02 STO .5",
                                                 "-- bad", "03 3.5e2", "   ", "04 GTO i", "05 R/S",
                                                 "06 R/S"])
        self.assertEqual(len(state["listing"]), 99 + 3)
        self.assertEqual((state["line"], state["highlight"], state["modified"]), (3, 5, 0))
        self.assertEqual(state["file"], PROGRAM)

    def test_recording(self):
        state = self.state_after(IN_PROGRAM_MODE, key_line("STO", ".", "3"), "text 12",
                                 key_line("CHS"), key_line("f", "4"))
        self.assertEqual(state["program"][:5], ["", "STO .3", "-12.", "sin", "R/S"])
        self.assertEqual(state["listing"][:5], ["00", "01 STO .3", "02 -12.", "03 sin", "04 R/S"])
        self.assertEqual((state["mode"], state["line"], state["highlight"], state["modified"]),
                         ("program", 3, 3, 1))

    def test_registers_box(self):
        state = self.state_after("text 5", key_line("STO", "3"), key_line("f", "GSB", "1"),
                                 key_line("STO", ".", "9"), key_line("f", "2"))
        self.assertEqual([state["reg"][n] for n in (3, 19)], [5, 5])
        self.assertEqual([state["registers"][n] for n in (0, 3, 19, 30)],
                         ["Reg[ 0] = +0.00", "Reg[ 3] = +5.00", "Reg[19] = +5.0e+00",
                          "LASTx   = +5.0e+00"])

    def test_returns_oldest_first(self):
        self.listing("GSB 1", "LBL 1", "GSB 2", "LBL 2", "GSB 3", "LBL 3", "R/S")
        self.assertEqual(self.state_after("open " + PROGRAM, key_line("R/S"))["returns"], [2, 4, 6])

    def test_boxes_shown(self):
        states = self.states(key_line("SST"), "state", IN_PROGRAM_MODE, "state", IN_RUN_MODE,
                             "state", key_line("f", "0"), "state")
        self.assertEqual([(state["listing_shown"], state["registers_shown"], state["graph_shown"])
                          for state in states], [(1, 1, 0), (1, 0, 0), (0, 0, 0), (0, 0, 1)])

    def test_graph(self):
        self.write("data.txt",
                   'ExplicitX\nTitle "A title"\nHorzAxisLabel "time"\nSetLabels "one" , ""\n'
                   '0.5 , 1 , -2\n1.5 , 3 , 0.1\n')
        state = self.state_after("graph open data.txt", "text 3", key_line("g", "0"), "text 7",
                                 key_line("f", "0"))

        self.assertEqual((state["graph_title"], state["graph_label"], state["graph_line"]),
                         ("A title", "time", 2))
        base = {"type": 0, "width": 1, "style": 0, "multiplier": 1, "offset": 0}
        self.assertEqual(state["graph"], [
            {"label": "one", "color": 0x0000FF, **base, "x": [0.5, 1.5], "y": [1, 3]},
            {"label": "data line # 2", "color": 0x00FF00, **base, "x": [0.5, 1.5], "y": [-2, 0.1]},
            {"label": "data line # 3", "color": 0, **base, "x": [7], "y": [3]}])

    def test_implicit_x(self):
        self.write("data.txt", "1\n2\n")
        self.assertIsNone(self.state_after("graph open data.txt")["graph"][0]["x"])


if __name__ == "__main__":
    main()
