"""Programs run by a script: limit, and keys that arrive at a given line."""

import time

from console_case import (CLICK, ERROR, HALT, MODE_SWITCH, PROGRAM_MODE, REJECT, STACK_HIDDEN,
                          STACK_SHOWN, STACK_VIEW, ConsoleCase, key_line, main)

ENDLESS = ("LBL 0", "1", "STO+ 1", "GTO 0")     # register 1 counts the rounds
START = key_line("R/S")


class RunCase(ConsoleCase):

    def setUp(self):
        super().setUp()
        self.listing(*ENDLESS, name="endless.txt")
        self.listing("1", "2", "3", "4", "R/S", "5", "6", "GTO 0", "LBL 0", "RTN", name="short.txt")

    def sounds_and_state(self, *lines):
        """Sounds of the last command and the state after it."""
        events = self.script(*lines[:-1], "state", lines[-1], "state")
        at = [n for n, event in enumerate(events) if event["event"] == "state"][-2]
        return [event["id"] for event in events[at + 1:-1] if "id" in event], events[-1]


class LimitTest(RunCase):

    def test_halts_after_so_many_lines(self):
        for limit, rounds, line in ((1, 0, 2), (2, 0, 3), (3, 1, 4), (4, 1, 1), (5, 1, 2),
                                    (4000, 1000, 1)):
            with self.subTest(limit=limit):
                state = self.state_after("open endless.txt", f"limit {limit}", START)
                self.assertEqual((state["reg"][1], state["line"], state["keystrokes"]),
                                 (rounds, line, ""))

    def test_10000_lines_unless_told(self):
        state = self.state_after("open endless.txt", START)
        self.assertEqual((state["reg"][1], state["line"]), (2500, 1))

    def test_the_halting_key_is_pressed_and_released(self):
        sounds, state = self.sounds_and_state("open endless.txt", "limit 6", START)
        self.assertEqual(sounds, [CLICK, HALT])
        self.assertEqual((state["keystrokes"], state["last_op"], state["display"]),
                         ("", "R/S", " 1.00"))

    def test_counted_anew_in_each_run(self):
        states = self.states("open endless.txt", "limit 8", START, "state", START, "state",
                             "limit 4", START, "state", START, "state")
        self.assertEqual([state["reg"][1] for state in states], [2, 4, 5, 6])

    def test_a_program_that_ends_before(self):
        for limit in (5, 6, 1000):
            sounds, state = self.sounds_and_state("open short.txt", f"limit {limit}", START)
            self.assertEqual((sounds, state["line"]), ([CLICK], 6))

    def test_a_program_that_ends_with_this_very_line(self):
        sounds, state = self.sounds_and_state("open short.txt", "limit 5", START)
        self.assertEqual((sounds, state["line"], state["stack"][0]["value"]), ([CLICK], 6, 4))

    def test_a_program_that_fails_in_this_very_line(self):
        self.listing("0", "1/x", "5", name="failing.txt")
        sounds, state = self.sounds_and_state("open failing.txt", "limit 2", START)
        self.assertEqual((sounds, state["display"], state["line"]),
                         ([CLICK, ERROR], "Error: divide by 0", 2))
        self.assertEqual(state["keystrokes"], "EWFDK")

    def test_single_steps_do_not_count(self):
        sounds, state = self.sounds_and_state("open endless.txt", "limit 2", "key 1 1 1 1 1 1 1")
        self.assertEqual((sounds, state["reg"][1], state["line"]), (7 * [CLICK], 2, 4))

    def test_runs_started_at_a_label(self):
        state = self.state_after("open endless.txt", "limit 7", key_line("GSB", "0"))
        self.assertEqual((state["reg"][1], state["line"]), (2, 4))

    def test_a_run_that_a_typed_character_started(self):
        events = self.script("open endless.txt", "limit 5", "key 2", "text 0", "state")
        self.assertEqual([event for event in events if event["event"] == "box"], [])
        self.assertEqual((events[-1]["keystrokes"], events[-1]["line"]), ("", 2))

    def test_a_limit_beyond_all_numbers(self):
        self.assertEqual(self.state_after("open short.txt", "limit 99999999999999999999999",
                                          START)["line"], 6)


class AtTest(RunCase):

    def rounds(self, *lines):
        return [state["reg"][1] for state in self.states("open endless.txt", "limit 100", *lines)]

    def test_a_key_halts_the_program_after_its_line(self):
        for at, rounds, line in ((1, 0, 2), (2, 0, 3), (3, 1, 4), (10, 2, 3)):
            sounds, state = self.sounds_and_state("open endless.txt", f"at {at} down 20", START)
            self.assertEqual((sounds, state["reg"][1], state["line"]),
                             ([CLICK, HALT], rounds, line))
            self.assertEqual(state["keystrokes"], "HWFUK")

    def test_the_release_of_this_key(self):
        states = self.states("open endless.txt", "at 5 down 20", START, "up 20", "state",
                             key_line("4"), "state")
        self.assertEqual((states[0]["keystrokes"], states[1]["entry"]), ("", "+4"))

    def test_a_release_alone_does_nothing(self):
        sounds, state = self.sounds_and_state("open endless.txt", "limit 40", "at 5 up 20", START)
        self.assertEqual((sounds, state["reg"][1], state["keystrokes"]), ([CLICK, HALT], 10, ""))

    def test_typed_characters(self):
        sounds, state = self.sounds_and_state("open endless.txt", "at 6 text \\e", START)
        self.assertEqual((sounds, state["reg"][1], state["keystrokes"]), ([CLICK, HALT], 1, ""))
        sounds, state = self.sounds_and_state("open endless.txt", "limit 40", "at 6 text x", START)
        self.assertEqual((sounds, state["reg"][1]), ([CLICK, REJECT, HALT], 10))

    def test_the_stack_view_works_during_a_run(self):
        sounds, state = self.sounds_and_state("open endless.txt", "limit 40",
                                              f"at 5 down {STACK_VIEW}", START)
        self.assertEqual((sounds, state["show_stack"], state["reg"][1]),
                         ([CLICK, CLICK, STACK_SHOWN, HALT], 1, 10))

    def test_in_the_order_given(self):
        sounds, _ = self.sounds_and_state("open endless.txt", "limit 40", f"at 7 down {STACK_VIEW}",
                                          "at 5 text xy", f"at 7 up {STACK_VIEW}",
                                          f"at 7 down {STACK_VIEW}", "at 6 text x", START)
        self.assertEqual(sounds, [CLICK, REJECT, REJECT, REJECT, CLICK, STACK_SHOWN, STACK_HIDDEN,
                                  CLICK, STACK_SHOWN, HALT])

    def test_before_the_key_of_the_limit(self):
        sounds, _ = self.sounds_and_state("open endless.txt", "limit 7", "at 7 text x", START)
        self.assertEqual(sounds, [CLICK, REJECT, HALT])
        sounds, _ = self.sounds_and_state("open endless.txt", "limit 7", "at 7 down 20", START)
        self.assertEqual(sounds, [CLICK, HALT])

    def test_after_the_halting_event_the_others_of_its_line_follow_the_run(self):
        sounds, state = self.sounds_and_state("open endless.txt", "at 5 down 20", "at 5 up 20",
                                              "at 5 down 24", "at 5 up 24", "at 5 text 7",
                                              "at 6 text 8", START)
        self.assertEqual(sounds, [CLICK, HALT, CLICK, CLICK])
        self.assertEqual((state["entry"], state["reg"][1], state["line"]), ("+17", 1, 2))

    def test_only_in_the_next_run(self):
        self.assertEqual(self.rounds("at 20 down 20", START, "up 20", "state", START, "state"),
                         [5, 30])

    def test_each_run_counts_anew(self):
        self.assertEqual(self.rounds("at 20 down 20", START, "up 20", "at 20 down 20", START,
                                     "up 20", "state"), [10])

    def test_what_was_not_reached_is_dropped(self):
        events = self.script("open endless.txt", "limit 20", "at 21 text x", START, "limit 100",
                             START)
        self.assertEqual([event["id"] for event in events], [CLICK, HALT, CLICK, HALT])
        events = self.script("open short.txt", "at 5 text x", "at 6 text x", START, START)
        self.assertEqual([event["id"] for event in events], [CLICK, CLICK])

    def test_events_by_the_hundred_thousand(self):
        begin = time.monotonic()
        state = self.state_after("option sound off", "limit 1000000", "open endless.txt",
                                 *(f"at {line} text x" for line in range(300000, 0, -1)),
                                 "at 300000 down 20", "at 300001 down 31", START)
        self.assertEqual((state["reg"][1], state["show_stack"]), (75000, 0))
        self.assertLess(time.monotonic() - begin, 30)

    def test_line_0_is_never_reached(self):
        sounds, _ = self.sounds_and_state("open endless.txt", "limit 9", "at 0 text x", START)
        self.assertEqual(sounds, [CLICK, HALT])

    def test_not_after_the_line_that_ended_the_program(self):
        self.listing("0", "1/x", name="failing.txt")
        for name, line in (("short.txt", 5), ("failing.txt", 2)):
            events = self.script(f"open {name}", f"at {line} text x", f"at {line} down 20", START)
            self.assertNotIn(REJECT, [event.get("id") for event in events])
            self.assertNotIn(HALT, [event.get("id") for event in events])

    def test_a_single_step_is_no_run(self):
        sounds, state = self.sounds_and_state("open endless.txt", "limit 9", "at 1 text x", "key 1",
                                              START)
        self.assertEqual(sounds, [CLICK, REJECT, HALT])

    def test_not_outside_a_run(self):
        self.assertEqual(self.sounds("at 1 text x", "key 20 20 20"), 3 * [CLICK])


class ModeSwitchTest(RunCase):
    """The switch to program mode is asked for during a run and carried out at
    its end."""

    def test_after_the_release_of_the_halting_key(self):
        states = self.states("open endless.txt", f"at 5 up {MODE_SWITCH}", "at 9 down 20", START,
                             "state", "up 20", "state")
        self.assertEqual([(state["mode"], state["switch_pending"]) for state in states],
                         [("run", 1), ("program", 0)])

    def test_with_the_key_of_the_limit(self):
        sounds, state = self.sounds_and_state("open endless.txt", "limit 9",
                                              f"at 5 up {MODE_SWITCH}", START)
        self.assertEqual((sounds, state["mode"], state["switch_pending"]),
                         ([CLICK, REJECT, HALT, PROGRAM_MODE], "program", 0))

    def test_taken_back_in_time(self):
        state = self.state_after("open endless.txt", "limit 9", f"at 5 up {MODE_SWITCH}",
                                 f"at 6 down {MODE_SWITCH}", START)
        self.assertEqual((state["mode"], state["switch_pending"]), ("run", 0))

    def test_at_once_after_the_programs_own_end(self):
        sounds, state = self.sounds_and_state("open short.txt", f"at 2 up {MODE_SWITCH}", START)
        self.assertEqual((sounds, state["mode"], state["line"]),
                         ([CLICK, REJECT, PROGRAM_MODE], "program", 6))
        self.assertEqual(self.state_after("open short.txt", START, f"at 2 up {MODE_SWITCH}",
                                          START)["mode"], "program")

    def test_after_an_error_when_it_is_cleared(self):
        self.listing("1", "0", "1/x", name="failing.txt")
        states = self.states("open failing.txt", f"at 2 up {MODE_SWITCH}", START, "state",
                             "down 20", "state", "up 20", "state")
        self.assertEqual([state["mode"] for state in states], ["run", "run", "program"])


class RunEventTest(RunCase):

    def test_pauses_between_the_other_events(self):
        self.listing("PAUSE", "0", "1/x", name="pausing.txt")
        events = self.script("open pausing.txt", START)
        self.assertEqual([event.get("id", event.get("ms", event["event"])) for event in events],
                         [CLICK, 1000, ERROR, "error"])

    def test_an_error_that_ended_the_run(self):
        self.listing("; title", "0", "", "1/x", "5", name="failing.txt")
        *_, error, state = self.script("open failing.txt", START, "state display line")
        self.assertEqual(error, {"event": "error", "line": 2, "listing_line": 4,
                                 "instruction": "1/x", "text": "Error: divide by 0"})
        self.assertEqual(state, {"event": "state", "display": "Error: divide by 0", "line": 2})

    def test_no_error_of_keys_or_of_a_run_that_went_well(self):
        self.listing("1", "2", name="short.txt")
        events = self.script("open short.txt", START, key_line("0", "/"))
        self.assertEqual({event["event"] for event in events}, {"sound"})

    def test_the_error_of_an_instruction_that_runs_a_program(self):
        self.listing("LBL 1", "0", "/", name="failing.txt")
        *_, error = self.script("open failing.txt", "do 5 GSB 1")
        self.assertEqual((error["event"], error["line"]), ("error", 3))

    def test_a_box_during_a_run(self):
        self.listing("LBL 0", "SumG", "GTO 0", name="filling.txt")
        events = self.script("open filling.txt", "limit 100000", START, "state")
        box, state = events[-2:]
        self.assertEqual(box, {"event": "box",
                               "text": "The Vorstek's program must now halt\n"
                                       "since the cVantor window has reached its\nmemory limit\n",
                               "caption": "Vorstek", "buttons": "ok", "icon": "none",
                               "answer": "ok"})
        self.assertEqual((len(state["graph"][0]["y"]), state["line"], state["keystrokes"]),
                         (12800, 3, ""))


if __name__ == "__main__":
    main()
