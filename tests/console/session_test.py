"""vorstek-cli in a terminal: the calculator, line by line."""

import os
import re
import shlex
import signal
import subprocess
import time

import console_case
from console_case import main
from terminal import PATIENCE, Terminal, TerminalCase, stack, wait_until


class SessionTest(TerminalCase):

    def test_the_calculator_is_drawn_again_in_its_place(self):
        terminal = self.terminal()
        terminal.wait_for(r"Vorstek 2\.0\. help says what there is, Ctrl-D ends\.", *stack(), ">")
        terminal.line("2 3 +")
        screen = terminal.wait_for(*stack("5.00", last="3.00"), ">")
        self.assertEqual(len(screen), 7)
        terminal.line("RAD FIX 4")
        screen = terminal.wait_for(*stack("5.0000", "0.0000", "0.0000", "0.0000", "3.00",
                                          "RAD  FIX 4"), ">")
        self.assertEqual(len(screen), 7)

    def test_an_error_stands_below_until_the_next_line(self):
        terminal = self.terminal()
        terminal.line("5 0 1/x")
        terminal.wait_for(*stack("0.00", "5.00"), "column 5: 1/x: Error: divide by 0", ">")
        terminal.line("undo")
        terminal.wait_for(*stack(), ">")

    def test_what_is_printed_stays_above_the_calculator(self):
        terminal = self.terminal()
        terminal.line("help sqrt")
        terminal.wait_for("> help sqrt", "f √x   X ← square root of X; LASTx ← X",
                          '"Error: sqrt of x < 0" X is negative.', *stack(), ">")

    def test_keys_edit_the_line(self):
        terminal = self.terminal()
        terminal.type("9 5")
        terminal.keys("Left", "BSpace", "BSpace", "End", "BSpace")
        terminal.line("7")
        terminal.wait_for(*stack("7.00"), ">")

    def test_earlier_lines_come_back_in_this_and_the_next_session(self):
        terminal = self.terminal()
        terminal.line("1 2 +")
        terminal.wait_for(*stack("3.00", last="2.00"), ">")
        terminal.keys("Up", "Enter")
        terminal.wait_for(*stack("3.00", "3.00", last="2.00"), ">")
        terminal.keys("C-d")
        terminal.wait_for("exit code 0")
        second = self.terminal(name="second")
        second.keys("Up")
        second.wait_for(*stack(), r"> 1 2 \+")
        for name in ("state", "state/vorstek", "state/vorstek/history"):
            self.assertEqual(os.stat(self.path(name)).st_mode & 0o077, 0, name)

    def test_sessions_at_the_same_time_keep_the_lines_of_both(self):
        first, second = self.terminal(), self.terminal(name="second")
        for number, terminal in enumerate((first, second, first)):
            terminal.line(f"CLX {number} 5 +")
            terminal.wait_for(*stack(f"{number + 5}.00", last="5.00"), ">")
        self.assertEqual(self.read("state/vorstek/history").splitlines()[1:],
                         [rb"CLX\0400\0405\040+", rb"CLX\0401\0405\040+",
                          rb"CLX\0402\0405\040+"])

    def test_a_history_that_is_no_file_is_ignored(self):
        os.makedirs(self.path("state/vorstek"))
        os.mkfifo(self.path("state/vorstek/history"))
        terminal = self.terminal()
        terminal.line("2 3 +")
        terminal.wait_for(*stack("5.00", last="3.00"), ">")

    def test_letters_beyond_ascii_arrive_without_a_locale(self):
        terminal = self.terminal(environment=["LC_ALL=C"])
        terminal.line("2 \u221ax")
        terminal.wait_for(*stack("1.41", last="2.00"), ">")

    def test_tab_completes_and_shows_what_fits(self):
        terminal = self.terminal()
        terminal.type("2 sq")
        terminal.keys("Tab", "Enter")
        terminal.wait_for(*stack("1.41", last="2.00"), ">")
        terminal.type("RCLS")
        terminal.keys("Tab")
        terminal.wait(lambda screen: screen[-1] == "> RCLSum+")
        terminal.keys("C-u")
        terminal.type("un")
        terminal.keys("Tab", "Enter")
        terminal.wait_for(*stack(), ">")
        terminal.type("ST")
        terminal.keys("Tab", "Tab")
        terminal.wait(lambda screen: any("STO+  STO+ i" in row for row in screen)
                      and screen[-1] == "> ST")

    def test_tab_completes_what_is_printed_on_the_keys(self):
        terminal = self.terminal()
        terminal.type("7 STO 3 cl r")
        terminal.keys("Tab")
        terminal.wait(lambda screen: screen[-1] == "> 7 STO 3 cl rEG")
        terminal.line("rcl 3")
        terminal.wait_for(*stack("0.00", "7.00"), ">")

    def test_ctrl_c_forgets_the_line_and_halts_a_program(self):
        self.listing("LBL 1", "1", "+", "GTO 1")
        terminal = self.terminal()
        terminal.type("12 34")
        terminal.wait_for("> 12 34")        # Ctrl-C discards keys that are not read yet
        terminal.keys("C-c")
        terminal.wait_for("> 12 34", *stack(), ">")
        terminal.line("load program.txt")
        terminal.wait_for(*stack(), "loaded 4 lines from program.txt", ">")
        terminal.run_line("run")
        terminal.keys("C-c")
        screen = terminal.wait(lambda screen: screen[-1] == ">" and "LASTx 1.00  DEG  FIX 2" in screen)
        self.assertRegex(screen[-2], r"^X   [1-9]\d+\.00$")

    def test_a_plain_terminal_goes_on_after_ctrl_c_has_halted_a_program(self):
        self.listing("LBL 1", "1", "+", "GTO 1")
        terminal = self.terminal(environment=["TERM=dumb"])
        terminal.line("load program.txt")
        terminal.wait(lambda screen: screen.count(">") == 1 and "0.00" in screen)
        terminal.run_line("run")
        terminal.keys("C-c")
        terminal.wait(lambda screen: re.fullmatch(r"(\^C)?[1-9]\d*\.00", screen[-2]))
        terminal.line("CLX 7")
        terminal.wait_for("> CLX 7", "7.00", ">")

    def test_ctrl_c_may_come_at_any_moment_while_a_line_is_answered(self):
        with self.program_in_terminal("xterm") as (process, terminal):
            for number in range(120):
                os.write(terminal, b"help\r")
                time.sleep(number % 40 * 1e-4)
                process.send_signal(signal.SIGINT)
                self.until(terminal, b"> ")
                self.assertIsNone(process.poll())
            time.sleep(0.1)
            os.write(terminal, b"CLX 41 1 +\r")
            self.until(terminal, b"42.00")

    def test_ctrl_c_ends_a_pause_and_more_of_it_does_no_harm(self):
        self.listing("1", "LBL 1", "PAUSE", "1", "+", "GTO 1")
        for kind in ("xterm", "dumb"):
            with self.subTest(kind), self.program_in_terminal(kind) as (process, terminal):
                os.write(terminal, b"load program.txt\r")
                self.until(terminal, b"\n> ")
                for _ in range(2):
                    os.write(terminal, b"R/S\r")
                    self.until(terminal, b".00\r\n")
                    start = time.monotonic()
                    for _ in range(3):
                        process.send_signal(signal.SIGINT)
                    self.until(terminal, b"> ")
                    self.assertLess(time.monotonic() - start, 0.9)
                os.write(terminal, b"CLX 41 2 +\r")
                self.until(terminal, b"43.00")

    def test_ctrl_z_stops_it_and_fg_brings_the_line_back(self):
        self.listing("LBL 1", "1", "+", "GTO 1")
        terminal = Terminal(self.folder, size="200x24", shell=1)
        self.addCleanup(terminal.close)
        terminal.wait(lambda screen: screen[-1].startswith("$"))
        terminal.line("exec 2>&1; clear; " + shlex.join(console_case.command))
        terminal.wait_for(*stack(), ">")
        terminal.type("12 34")
        terminal.keys("Left")
        wait_until(lambda: terminal.column() == len("> 12 3"))  # Ctrl-Z discards unread keys
        terminal.keys("C-z")
        terminal.wait(lambda screen: screen[-1].strip() == "$" and "Stopped" in screen[-2])
        terminal.line("echo 4$((1 + 1))")
        terminal.wait_for("42", r"\$")
        terminal.line("fg")
        terminal.wait_for(*stack(), "> 12 34")
        terminal.keys("BSpace")
        terminal.line("5")
        screen = terminal.wait_for("42", r"\$ fg", ".*vorstek-cli", *stack("54.00", "12.00"), ">")
        self.assertEqual(sum(row.startswith("X ") for row in screen), 2)
        terminal.line("load program.txt")
        terminal.line("run")
        terminal.wait(lambda screen: screen[-1] == "> run")
        terminal.keys("C-z")
        terminal.wait(lambda screen: screen[-1].strip() == "$" and "Stopped" in screen[-2])
        terminal.line("fg")
        terminal.wait(lambda screen: "vorstek-cli" in screen[-1])
        terminal.keys("C-c")
        terminal.wait(lambda screen: screen[-1] == ">" and re.match(r"X   [1-9]", screen[-2]))
        terminal.keys("C-d")
        terminal.wait(lambda screen: screen[-1].strip() == "$")

    def test_sigterm_ends_the_session(self):
        terminal = self.terminal()
        terminal.type("4 5")
        os.kill(terminal.program(), signal.SIGTERM)
        terminal.wait_for("exit code 143")

    def test_ctrl_z_gives_the_terminal_back_until_the_program_goes_on(self):
        terminal = self.terminal()
        terminal.type("4 5")
        pid = terminal.program()
        os.kill(pid, signal.SIGTSTP)        # as Ctrl-Z in a shell with jobs
        wait_until(lambda: self.state_of(pid) == "T")
        os.kill(pid, signal.SIGCONT)
        wait_until(lambda: self.state_of(pid) == "S")
        terminal.line(" *")
        terminal.wait_for(*stack("20.00", last="5.00"), ">")

    @staticmethod
    def state_of(pid):
        with open(f"/proc/{pid}/stat", encoding="ascii") as file:
            return file.read().rsplit(")", 1)[1].split()[0]

    def test_twenty_columns_are_enough(self):
        terminal = self.terminal(size="20x16")
        terminal.line("1.5 SCI 9")
        rows = [re.escape(f"{name}   {value}e+00") for name, value in
                (("T", "0.000000000"), ("Z", "0.000000000"), ("Y", "0.000000000"),
                 ("X", "1.500000000"))]
        terminal.line("CHS")
        rows[3] = re.escape("X  -1.500000000e+00")
        terminal.wait_for(r"LASTx 0\.00", "DEG  SCI 9", *rows, ">")
        terminal.line("1 2 3 4 5 6 7 8 9 + + + +")
        terminal.wait(lambda screen: screen[-1] == ">" and
                      sum(row.startswith("LASTx") for row in screen) == 1)

    def test_a_resized_window_is_drawn_in_its_new_width(self):
        terminal = self.terminal()
        terminal.resize(21, 20)
        terminal.line("5")
        screen = terminal.wait_for("LASTx 0.00", "DEG  FIX 2", *stack("5.00")[1:], ">")
        self.assertEqual(sum(row.startswith("LASTx") for row in screen), 1)
        terminal.resize(70, 20)
        terminal.line("6")
        terminal.wait_for(*stack("6.00", "5.00"), ">")

    def test_a_window_may_become_smaller_than_the_line_that_is_typed(self):
        for before, after, typed in (("20x8", (20, 2), "2 3 + " * 8),
                                     ("20x4", (20, 2), "2 3 + " * 8),
                                     ("80x24", (80, 3), "2 3 + " * 60)):
            with self.subTest(before):
                terminal = self.terminal(size=before, name=before)
                terminal.type(typed)
                terminal.wait(lambda screen: screen[-1].endswith("+"))
                terminal.resize(*after)
                terminal.type("CLX 4")
                terminal.keys("Left", "Right", "Up", "Up", "Down", "Down", "C-c")
                terminal.resize(80, 24)
                terminal.line("CLX 41 1 +")
                terminal.wait_for(*stack("42.00", last="1.00"), ">")

    def test_pause_prints_and_the_end_of_the_program_is_shown(self):
        self.listing("7", "PAUSE", "1", "+")
        terminal = self.terminal()
        terminal.line("load program.txt")
        terminal.wait_for(*stack(), "loaded 4 lines from program.txt", ">")
        terminal.line("run")
        terminal.wait_for("> run", r" 7\.00", *stack("8.00", last="1.00"), ">")

    def test_save_says_what_it_has_done_and_a_plain_terminal_answers_after_a_pause(self):
        self.listing("7", "PAUSE", "1", "+", "R/S", "R/S")
        terminal = self.terminal(environment=["TERM=dumb"])
        terminal.line("load program.txt")
        terminal.wait_for("> load program.txt", "loaded 6 lines from program.txt", "0.00", ">")
        terminal.line("run")
        terminal.wait_for("> run", r" 7\.00", "8.00", ">")
        terminal.line("save new.txt")
        terminal.wait_for("> save new.txt", "saved 4 lines in new.txt", "8.00", ">")
        self.assertEqual(self.read("new.txt").split(), [b"7", b"PAUSE", b"1", b"+"])

    def test_an_editor_changes_the_program(self):
        editor = self.path("editor")
        self.write("editor", "#!/bin/sh\nprintf '5\\nSTO 7\\n' > \"$1\"\n")
        os.chmod(editor, 0o755)
        terminal = self.terminal(environment=[f"EDITOR={editor}"])
        terminal.line("edit")
        terminal.wait_for("> edit", *stack(), ">")
        terminal.line("run")
        terminal.wait_for(*stack("5.00"), ">")
        terminal.line("registers")
        terminal.wait_for(r"Reg\[ 7\] = \+5\.00", r"LASTx   = \+0\.00", *stack("5.00"), ">")

    def test_a_text_with_a_mistake_is_kept_for_the_next_edit(self):
        editor = self.path("editor")
        self.write("editor", "#!/bin/sh\nif grep -q frob $1; then sed -i s/frob/1/ $1\n"
                             "else printf '5\\nfrob\\n+\\n' > $1; fi\n")
        os.chmod(editor, 0o755)
        terminal = self.terminal(size="200x24",
                                 environment=[f"EDITOR={editor}", f"TMPDIR={self.folder}"])
        terminal.line("edit")
        terminal.wait_for("> edit", *stack(),
                          "edit: Error: unrecognized instr mnemonic on line #2: frob",
                          r"edit opens your text again; it is in .*/vorstek-......\.txt", ">")
        name, = [name for name in os.listdir(self.folder) if name.startswith("vorstek-")]
        self.assertEqual(self.read(name), b"5\nfrob\n+\n")
        terminal.line("edit")
        terminal.wait_for("> edit", *stack(), ">")
        terminal.line("run")
        terminal.wait_for(*stack("6.00", last="1.00"), ">")
        self.assertFalse(os.path.exists(self.path(name)))

    def test_colours_only_where_they_are_wanted(self):
        for setting, wanted in (("NO_COLOR=", True), ("NO_COLOR=1", False)):
            with self.subTest(setting):
                output = self.through_terminal("xterm", b"0 1/x\r\x04", setting=setting)
                self.assertEqual(b"\x1b[31m" in output, wanted)
                self.assertIn(b"\x1b[J", output)

    def test_a_dumb_terminal_gets_plain_lines(self):
        output = self.through_terminal("dumb", b"2 3 +\nsqrt\n0 1/x\nstack\n\x04")
        self.assertNotIn(b"\x1b", output)
        text = output.decode().replace("\r\n", "\n")
        self.assertIn("\n5.00\n", text)
        self.assertIn("\n2.24\n", text)
        self.assertIn("\ncolumn 3: 1/x: Error: divide by 0\n", text)
        self.assertIn("T   0.00\nZ   0.00\nY   2.24\nX   0.00\n", text)

    def test_the_dialogues_of_the_manual_are_what_a_plain_terminal_shows(self):
        self.assert_dialogues("dialogue")


class WaitTest(TerminalCase):
    """run and check in a window that closes with them."""

    PROMPT = "Press a key to close."

    def assert_ended_by_a_key(self, *arguments, code, shown):
        with self.program_in_terminal("xterm", arguments) as (process, terminal):
            self.assertIn(shown, self.greeting)
            with self.assertRaises(subprocess.TimeoutExpired):
                process.wait(0.2)
            os.write(terminal, b"q")
            self.assertEqual(self.until(terminal, None), b"\r\n")
            self.assertEqual(process.wait(PATIENCE), code)

    def test_a_key_ends_a_command_that_waits(self):
        self.write("program.txt", "3\n0\n1/x\nR/S\n")
        self.assert_ended_by_a_key("run", "--wait", "--", "program.txt", code=1,
                                   shown=b"Error: divide by 0")
        self.assert_ended_by_a_key("check", "--wait", "--", "program.txt", code=0, shown=b"")

    def test_what_is_wrong_with_the_arguments_can_be_read_too(self):
        self.assert_ended_by_a_key("run", "--wait", "--", "missing.txt", code=2,
                                   shown=b"missing.txt")
        self.assert_ended_by_a_key("check", "--wait", "--odd", code=2, shown=b"--odd")

    def test_nothing_waits_without_a_terminal(self):
        self.write("program.txt", "3\nR/S\n")
        self.assertEqual(self.start("check", "--wait", "program.txt").out, "")
        self.assertNotIn("Press", self.start("run", "--wait", "program.txt").out)


if __name__ == "__main__":
    main()
