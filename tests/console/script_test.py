"""vorstek-cli script: commands, events and the text of both, to the letter."""

import json
import os
import subprocess
import threading

import console_case
from console_case import (CLICK, ERROR, ERROR_CLEARED, MODE_SWITCH, PROGRAM_MODE, REJECT, RUN_MODE,
                          STACK_HIDDEN, STACK_SHOWN, STACK_VIEW, ConsoleCase, LinuxCase, key_line,
                          main)
from vocabulary import PLAIN, STATE_KEYS


class EventTest(ConsoleCase):
    """The bytes of each kind of event."""

    def output(self, *lines, code=0):
        result = self.start("script", stdin="".join(line + "\n" for line in lines))
        self.assertEqual((result.code, result.err), (code, ""))
        return result.out.splitlines()

    def test_sound(self):
        self.assertEqual(self.output("down 20"), ['{"event":"sound","id":10050}'])

    def test_pause(self):
        self.assertEqual(self.output(key_line("f", "R/S")),
                         2 * ['{"event":"sound","id":10050}'] + ['{"event":"pause","ms":1000}'])

    def test_box(self):
        self.listing("sto 5")
        self.assertEqual(
            self.output("option sound off", "open program.txt", "open missing.txt", "down 33"),
            ['{"event":"box","text":"Error: unrecognized instr mnemonic on line #1:\\nsto 5",'
             '"caption":"ERROR","buttons":"okcancel","icon":"none","answer":"ok"}',
             '{"event":"box","text":"ERROR: couldn\'t open the file \'missing.txt\' for reading",'
             '"caption":"Vorstek","buttons":"ok","icon":"error","answer":"ok"}',
             '{"event":"box","text":"Program Error Code #101",'
             '"caption":"Vorstek","buttons":"ok","icon":"none","answer":"ok"}'])

    def test_bad(self):
        self.assertEqual(self.output("# comment", "", 'say "hello"\\', code=2),
                         ['{"event":"bad","line":3,"text":"say \\"hello\\"\\\\"}'])

    def test_control_characters_are_escaped(self):
        self.assertEqual(self.output("a\tb\x01\x7f", code=2),
                         ['{"event":"bad","line":1,"text":"a\\u0009b\\u0001\x7f"}'])

    def test_state(self):
        line, = self.output("state")
        level = '{"text":"+0.00","value":0}'
        self.assertTrue(line.startswith('{"event":"state","mode":"run","display":" 0.00","stack":'
                                        f'[{level},{level},{level},{level}],"lastx":0,"reg":[0,0,'))
        self.assertTrue(line.endswith(
            '"options":{"sound":1,"trace":0,"keep_listing":0,"keep_registers":0},'
            '"switch_pending":0,"graph_line":0,"graph_title":"My Graph","graph_label":"x axis",'
            '"graph":[]}'))

    def test_no_blanks_between_the_parts(self):
        line, = self.output("state")
        self.assertEqual(json.dumps(json.loads(line), separators=(",", ":")), line)


class CommandTest(ConsoleCase):

    def bad_lines(self, *lines):
        events = self.script(*lines, code=2)
        return [(event["line"], event["text"]) for event in events if event["event"] == "bad"]

    def test_bad_lines(self):
        lines = ["walk", "State", "states", " state", "state 1", "reset 1", "down", "down ",
                 "down x", "down -1", "down +1", "down 1.5", "down 0x10", "down 1e1", "down 1 2",
                 "up", "up x", "up 1 2", "key", "key ", "key x", "key 1 x", "key 1,2", "text",
                 "text ", "answer", "answer ", "answer maybe", "answer OK", "answer ok maybe",
                 "open", "open ", "open  ", "save", "save ", "option", "option sound",
                 "option sound 1", "option sound ON", "option sound on off", "option volume on",
                 "option keep_listing on", "limit", "limit x", "limit -1", "limit 1.5", "limit 1 2",
                 "at", "at 5", "at x down 5", "at 5 down", "at 5 down x", "at 5 down 1 2",
                 "at 5 up", "at 5 text", "at 5 key 1", "at 5 state", "at down 5", "at -1 down 5",
                 "graph", "graph open", "graph open ", "graph append", "graph save", "graph load x",
                 "graph Open x", "down\t5"]
        self.assertEqual(self.bad_lines(*lines), list(enumerate(lines, 1)))

    def test_a_bad_line_changes_nothing(self):
        before, after = self.states("text 12", "state", "key 20 x", "answer cancel maybe",
                                    "option sound", "at 1 down", "limit", "state", code=2)
        self.assertEqual(before, after)

    def test_a_zero_byte_in_a_file_name(self):
        self.listing("1", "2")
        self.write("data.txt", "1\n")
        lines = [f"{command} {name}" for name in ("program.txt\0.bak", "\0", "data.txt\0")
                 for command in ("open", "save", "graph open", "graph append", "graph save")]
        *bad, state = self.script(*lines, "state", code=2)
        self.assertEqual([(event["line"], event["text"]) for event in bad],
                         list(enumerate(lines, 1)))
        self.assertEqual((state["file"], state["graph"]), ("", []))
        self.assertEqual(self.read("program.txt"), b"1\n2\n")

    def test_blank_lines_and_comments(self):
        self.assertEqual(self.script("", "#", "# state", "#state", ""), [])
        self.assertEqual(self.bad_lines("", "# one", " # two", "walk"),
                         [(3, " # two"), (4, "walk")])

    def test_the_exit_code_is_0_whatever_the_calculator_shows(self):
        self.assertEqual(self.boxes("down 99", "open missing.txt",
                                    key_line("0", "g", "R/S"))[0]["text"],
                         "Program Error Code #101")

    def test_line_ends(self):
        result = self.start("script", stdin=b"down 20\r\nwalk\r\n\r\n# x\r\nup 20\rx\r\ndown 21")
        self.assertEqual(result.code, 2)
        self.assertEqual([event.get("text", event.get("id")) for event in result.events],
                         [CLICK, "walk", "up 20\rx", CLICK])

    def test_only_one_cr_is_dropped(self):
        self.write("script.txt", b"walk\r\r\n")
        result = self.start("script", "script.txt")
        self.assertEqual(result.events, [{"event": "bad", "line": 1, "text": "walk\r"}])

    def test_a_script_from_a_file(self):
        self.write("script.txt", "down 20\nwalk\n")
        result = self.start("script", "script.txt", stdin="down 21\n")
        self.assertEqual((result.code, len(result.events)), (2, 2))

    def test_an_empty_script(self):
        self.assertEqual(self.script(), [])

    def talk(self, *arguments):
        """Starts the program; it is killed at the end of the test, or when it
        lets the test wait in vain."""
        process = subprocess.Popen([*console_case.command, "script", *arguments], cwd=self.folder,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        guard = threading.Timer(console_case.TIMEOUT, process.kill)
        guard.start()

        def end():
            guard.cancel()
            process.kill()
            for pipe in (process.stdin, process.stdout, process.stderr):
                pipe.close()
            process.wait()

        self.addCleanup(end)
        return process

    def test_each_answer_comes_at_once(self):
        process = self.talk()
        for line, event in ((b"down 20\n", "sound"), (b"state\n", "state"), (b"walk\n", "bad"),
                            (b"open missing.txt\n", "box")):
            process.stdin.write(line)
            process.stdin.flush()
            self.assertEqual(json.loads(process.stdout.readline() or b"{}").get("event"), event)
        out, err = process.communicate()
        self.assertEqual((process.returncode, out, err), (2, b"", b""))

    def test_the_answers_to_a_file_come_at_once_too(self):
        self.listing("PAUSE", "LBL 0", "GTO 0", name="endless.txt")
        self.write("script.txt", "open endless.txt\nlimit 1000000000000\nkey 30\n")
        process = self.talk("script.txt")
        self.assertEqual([process.stdout.readline().strip() for _ in range(2)],
                         [b'{"event":"sound","id":10050}', b'{"event":"pause","ms":1000}'])


class KeyTest(ConsoleCase):

    def test_down_and_up_are_halves_of_a_key(self):
        states = self.states(f"down {STACK_VIEW}", "state", f"up {STACK_VIEW}", "state")
        self.assertEqual([state["show_stack"] for state in states], [1, 0])
        self.assertEqual(self.sounds(f"down {STACK_VIEW}"), [CLICK, STACK_SHOWN])
        self.assertEqual(self.sounds(f"up {STACK_VIEW}"), [STACK_HIDDEN])

    def test_key_presses_and_releases_each_code(self):
        self.assertEqual(self.state_after(key_line("1", "2", "ENTER", "5",
                                                   "*"))["stack"][0]["value"], 60)
        self.assertEqual(self.state_after("key  24   25 ")["stack"][0]["value"], 12)
        self.assertEqual(self.sounds(f"key {STACK_VIEW}"), [CLICK, STACK_SHOWN, STACK_HIDDEN])

    def test_any_key_code_is_passed_on(self):
        codes = ["0", "33", "100", "4294967295", "4294967297", "18446744073709551617"]
        boxes = self.boxes(*(f"key {code}" for code in codes))
        self.assertEqual([box["text"] for box in boxes], 6 * ["Program Error Code #101"])
        self.assertEqual(self.sounds("key 007"), [CLICK])

    def test_text_types_on_the_keyboard(self):
        self.assertEqual(self.state_after("text 12\\r5*")["stack"][0]["value"], 60)
        self.assertEqual(self.state_after("text 1.5e3")["stack"][0]["value"], 1500)
        self.assertEqual(self.state_after("text 9\\r4-")["stack"][0]["value"], 5)
        self.assertEqual(self.state_after("text 9\\r4/")["stack"][0]["value"], 2.25)
        self.assertEqual(self.state_after("text 9\\r4+")["stack"][0]["value"], 13)

    def test_characters_that_are_no_key(self):
        self.assertEqual(self.sounds("text x"), [REJECT])
        self.assertEqual(self.sounds("text E\\e,"), 3 * [REJECT])
        self.assertEqual(self.sounds("text 1 2"), [CLICK, REJECT, CLICK])
        self.assertEqual(self.sounds("text  1 "), [REJECT, CLICK, REJECT])
        self.assertEqual(self.sounds("text \\1"), [REJECT, CLICK])
        self.assertEqual(self.sounds("text \\"), [REJECT])
        self.assertEqual(self.sounds("text \\\\r"), [REJECT, CLICK])

    def test_the_sounds_of_an_error(self):
        self.assertEqual(self.sounds(key_line("0", "g", "R/S"), key_line("5"), key_line("5")),
                         [CLICK, CLICK, CLICK, ERROR, ERROR_CLEARED, CLICK])

    def test_the_sounds_of_the_mode_switch(self):
        self.assertEqual(self.sounds(f"up {MODE_SWITCH}", f"down {MODE_SWITCH}"),
                         [PROGRAM_MODE, CLICK, RUN_MODE])

    def test_a_silent_calculator(self):
        self.assertEqual(self.sounds("option sound off", "key 20 99", "text x",
                                     f"up {MODE_SWITCH}"), [])


class AnswerTest(ConsoleCase):

    BOXES = ["Error: unrecognized instr mnemonic on line #2:\nbad",
             "Error: illegal number on line #3:\n2 2",
             "Error: illegal operand on line 4:\nLBL 10"]
    CLEARED = ("Program Memory has been cleared", "ok")

    def setUp(self):
        super().setUp()
        self.listing("1", "bad", "2 2", "LBL 10", "3")

    def answers(self, *lines):
        return [(box["text"], box["answer"]) for box in self.boxes(*lines)]

    def given(self, *answers):
        """The loader's boxes, one for each of these answers."""
        return list(zip(self.BOXES, answers))

    def test_without_answers(self):
        self.assertEqual(self.answers("open program.txt", "down 99"),
                         [*self.given("ok", "ok", "ok"), ("Program Error Code #101", "ok")])

    def test_answers_are_taken_in_order(self):
        self.assertEqual(self.answers("answer ok cancel", "open program.txt", "open program.txt"),
                         [*self.given("ok", "cancel"), self.CLEARED,
                          *self.given("ok", "ok", "ok")])

    def test_answers_add_up(self):
        self.assertEqual(self.answers("answer ok", "answer ok cancel", "open program.txt"),
                         [*self.given("ok", "ok", "cancel"), self.CLEARED])

    def test_an_answer_that_the_box_does_not_have_is_used_up(self):
        self.assertEqual(self.answers("answer yes no retry cancel",
                                      "open program.txt", "open program.txt"),
                         [*self.given("ok", "ok", "ok"), *self.given("cancel"), self.CLEARED])
        self.assertEqual(self.answers("answer cancel cancel", "down 99", "open program.txt"),
                         [("Program Error Code #101", "ok"), *self.given("cancel"), self.CLEARED])

    def test_answers_wait_for_a_box(self):
        self.assertEqual(self.answers("answer cancel", "text 5", "state", key_line("ENTER"),
                                      "open program.txt"),
                         [*self.given("cancel"), self.CLEARED])


class OptionTest(ConsoleCase):

    def options(self, *lines):
        return self.state_after(*lines)["options"]

    def test_each_option_alone(self):
        fresh = {"sound": 1, "trace": 0, "keep_listing": 0, "keep_registers": 0}
        for name, key in (("trace", "trace"), ("keep-listing", "keep_listing"),
                          ("keep-registers", "keep_registers")):
            self.assertEqual(self.options(f"option {name} on"), {**fresh, key: 1})
            self.assertEqual(self.options(f"option {name} on", f"option {name} off"), fresh)
        self.assertEqual(self.options("option sound off"), {**fresh, "sound": 0})
        self.assertEqual(self.options("option sound off", "option sound on", "option sound on"),
                         fresh)

    def shown(self, *lines):
        states = self.states(*lines)
        return [(state["listing_shown"], state["registers_shown"]) for state in states]

    def test_boxes_are_kept_open(self):
        self.assertEqual(self.shown("state", "option keep-listing on", "state",
                                    "option keep-registers on", "state", "option keep-listing off",
                                    "state", "option keep-registers off", "state"),
                         [(0, 0), (1, 0), (1, 1), (0, 1), (0, 0)])

    def test_any_option_does_what_the_dialog_does(self):
        # A single step opens both boxes; OK closes what is not kept open.
        self.assertEqual(self.shown(key_line("SST"), "state", "option sound off", "state"),
                         [(1, 1), (0, 0)])

    def test_the_listing_stays_in_program_mode(self):
        self.assertEqual(self.shown(f"up {MODE_SWITCH}", "state", "option keep-listing off",
                                    "state", f"down {MODE_SWITCH}", "state"),
                         [(1, 0), (1, 0), (0, 0)])
        self.assertEqual(self.shown("option keep-listing on", f"up {MODE_SWITCH}",
                                    f"down {MODE_SWITCH}", "state"), [(1, 0)])

    def test_trace_writes_a_log_here(self):
        self.listing("5", "R/S", "6")
        self.script("open program.txt", key_line("R/S"), "option trace on", key_line("R/S"),
                    key_line("R/S"), key_line("SST"))

        def lines(name):
            return [line[:26] for line in self.read_text(name).splitlines()[4:]]

        self.assertEqual(lines("tracelog.txt"), ["05 R/S               +6.00"])
        self.assertEqual(lines("tracelog_older.txt"), ["03 6                 +6.00",
                                                       "04 R/S               +6.00"])

    def test_a_trace_of_an_untitled_program(self):
        self.script("option trace on", key_line("R/S"))
        self.assertEqual(self.read_text("tracelog.txt").splitlines()[0], "Program from file ''")


class UnopenableLogTest(LinuxCase):
    """Elsewhere another log takes its place."""

    def test_the_program_and_those_after_it_run_without_a_trace(self):
        self.listing("1", "2", "3")
        os.mkdir(self.path("tracelog.txt"))
        files = sorted(os.listdir(self.folder))
        events = self.script("open program.txt", "option trace on", key_line("R/S"), "state",
                             "option trace off", "open program.txt", key_line("R/S"), "state")
        self.assertEqual([event["event"] for event in events],
                         ["sound", "box", "state", "sound", "state"])
        self.assertEqual((events[1]["text"], events[1]["caption"]),
                         ("couldn't fopen() the output file named:\ntracelog.txt",
                          "FATAL ERROR in cDbgFile ctor"))
        self.assertEqual([(state["stack"][0]["value"], state["line"])
                          for state in (events[2], events[4])], [(3, 5), (3, 5)])
        self.assertEqual(sorted(os.listdir(self.folder)), files)

    def test_each_run_says_so_while_tracing_is_on(self):
        self.listing("1", "2", "3")
        os.mkdir(self.path("tracelog.txt"))
        run = ["open program.txt", key_line("R/S"), "state"]
        events = self.script("option trace on", *run, *run)
        self.assertEqual([event["event"] for event in events], 2 * ["sound", "box", "state"])
        self.assertEqual([(state["stack"][0]["value"], state["line"], state["options"]["trace"])
                          for state in (events[2], events[5])], 2 * [(3, 5, True)])


class ResetTest(ConsoleCase):

    def test_everything_is_as_at_the_start(self):
        self.listing("LBL 0", "1", "STO+ 5", "SumG", "GTO 0")
        self.write("bad.txt", "bad\n")
        self.write("data.txt", 'Title "T"\n1\n')
        fresh, used, again = self.states("state", "open program.txt", "text 5\\r6",
                                         key_line("STO", "3"), key_line("f", "SST", "4"),
                                         key_line("g", "EEX"), key_line("R/S"), "option sound off",
                                         "option keep-listing on", "option keep-registers on",
                                         "option trace on", "graph open data.txt", "text 2",
                                         key_line("g", "0"), key_line("f", "2"), key_line("CLX"),
                                         f"down {STACK_VIEW}", f"up {MODE_SWITCH}",
                                         key_line("f", "4"), key_line("STO", "+"), "state", "reset",
                                         "state")

        self.assertEqual([key for key in fresh if used[key] == fresh[key]],
                         ["event", "entry", "exponent", "returns", "switch_pending"])
        self.assertEqual(again, fresh)

    def test_answers_limit_and_events_to_come(self):
        self.listing("LBL 0", "1", "STO+ 5", "GTO 0")
        self.write("bad.txt", "bad\n")
        events = self.script("answer cancel", "limit 5", "at 3 down 31", "reset", "open bad.txt",
                             "reset", "open program.txt", key_line("R/S"), "state")
        self.assertEqual([event["answer"] for event in events if event["event"] == "box"], ["ok"])
        self.assertEqual((events[-1]["reg"][5], events[-1]["show_stack"]), (2500, 0))


class WordsTest(ConsoleCase):
    """Keys and instructions by their names."""

    def test_keys_by_what_is_printed_on_them(self):
        for names, keys in (("2 ENTER 3 +", ("2", "ENTER", "3", "+")), ("sin", ("f", "4")),
                            ("√x", ("f", "2")), ("f 2", ("f", "2")), ("g 2", ("g", "2")),
                            ("12.5", ("1", "2", ".", "5")), ("STO .3", ("STO", ".", "3")),
                            ("STO + 4", ("STO", "+", "4")), ("RCL i", ("RCL", "g", "Rolldown")),
                            ("EEX 5 CHS", ("EEX", "5", "CHS")), ("GTO . 0 5", ("GTO", ".", "0", "5")),
                            ("BST", ("g", "SST")), ("π", ("g", ".")), ("pause", ("f", "R/S")),
                            ("cl reg CLΣ", ("f", "EEX", "f", "CLX")), ("LAST x", ("f", ".")),
                            ("RCL Σ+", ("RCL", "Sum+")), ("RCLSum+", ("RCL", "Sum+")),
                            ("STO+ .5", ("STO", "+", ".", "5")), ("CL PRGM", ("f", "CHS"))):
            self.assertEqual(self.script("press " + names, "state"),
                             self.script(key_line(*keys), "state"), names)

    def test_every_instruction_with_a_key(self):
        for name in PLAIN:
            if name in ("->H", "->H.MS"):
                continue
            state = self.state_after("do 3 2", "press " + name)
            self.assertEqual(state["last_op"], name)

    def test_an_instruction_without_a_key_is_bad_with_the_reason(self):
        for name in ("->H", "->H.MS"):
            bad, = self.script("press " + name, code=2,
                               err=f'line 1: "{name}" has no key; do {name} performs it\n')
            self.assertEqual(bad, {"event": "bad", "line": 1, "text": "press " + name})

    def test_instructions_are_performed(self):
        state = self.state_after("do 2 3 + STO+ .3 √x")
        self.assertEqual((state["reg"][13], state["stack"][0]["value"]), (5, 5 ** .5))

    def test_instructions_are_recorded_in_program_mode(self):
        state = self.state_after(f"up {MODE_SWITCH}", "do LBL 1 2.5 STO+ .3", "do GTO 1")
        self.assertEqual(state["program"][1:6], ["LBL 1", "2.5", "STO+ .3", "GTO 1", "R/S"])

    def test_an_error_ends_the_line(self):
        state = self.state_after("do 5 0 / 7")
        self.assertEqual((state["display"], state["stack"][1]["value"]), ("Error: divide by 0", 5))

    def test_nothing_is_done_of_a_bad_line(self):
        for line, why in (
                ("do", ""), ("do ; 5", ""), ("press", ""),
                ("do 5 entr", '"entr": neither an instruction nor a number, did you mean ENTER?'),
                ("do 5 STO", '"STO": STO takes a register, 0 to 9 or .0 to .10, or i'),
                ("do 5 CL PRGM", '"CL PRGM": a key, but neither an instruction nor a number'),
                ("press 5 foo", '"foo" is on no key'),
                ("press STO5", '"STO5" is on no key, did you mean STO 5?')):
            bad, state = self.script(line, "state x", code=2, err=why and f"line 1: {why}\n")
            self.assertEqual(bad, {"event": "bad", "line": 1, "text": line})
            self.assertEqual(state["x"]["value"], 0)

    def test_parts_of_the_state(self):
        whole, part = self.script("do 1 2 3 STO 5", "state", "state x t reg.5 line angle stack")[-2:]
        self.assertEqual(list(part), ["event", "x", "t", "reg.5", "line", "angle", "stack"])
        self.assertEqual((part["x"], part["t"], part["reg.5"]),
                         (whole["stack"][0], whole["stack"][3], whole["reg"][5]))
        for key in STATE_KEYS:
            self.assertEqual(self.script("do 1 2 3 STO 5", f"state {key}")[-1],
                             {"event": "state", key: whole[key]})
        for part in ("w", "X", "reg.", "reg.30", "reg.-1", "reg.x", "event"):
            bad, = self.script("state x " + part, code=2)
            self.assertEqual(bad["event"], "bad")


if __name__ == "__main__":
    main()
