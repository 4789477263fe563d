"""vorstek-cli debug in a terminal: the program above the stack."""

import shlex

import console_case
from console_case import main
from terminal import Terminal, TerminalCase, stack

# Counts register 0 down from 3.
COUNTDOWN = ("3", "STO 0", "LBL 1 ; again", "DSZ", "GTO 1", "9")


class DebugTerminalTest(TerminalCase):

    PROMPT = "debug> "

    def debugger(self, *lines, **options):
        return self.terminal("debug", self.listing(*(lines or COUNTDOWN)), **options)

    def test_the_lines_around_the_current_one_are_drawn_above_the_stack(self):
        terminal = self.debugger()
        terminal.line("step 2")
        screen = terminal.wait_for("  01 3", "  02 STO 0", "> 03 LBL 1 ; again", "  04 DSZ",
                                   "  05 GTO 1", *stack("3.00"), "debug>")
        self.assertEqual(len(screen), 12)
        terminal.keys("Enter")
        terminal.wait_for("  03 LBL 1 ; again", "  04 DSZ", "> 05 GTO 1", "  06 9", "  07 R/S",
                          *stack("3.00"), "debug>")

    def test_the_current_line_is_visible_in_a_window_of_few_rows(self):
        terminal = self.debugger(size="80x8")
        terminal.line("watch r0")
        terminal.line("watch y")
        terminal.line("step 2")
        terminal.wait_for("> 03 LBL 1 ; again", *stack("3.00"), "watch r0: 0 -> 3", "debug>")
        terminal.line("step")
        screen = terminal.wait_for("> 04 DSZ", "r0 = 3", *stack("3.00"), "debug>")
        self.assertEqual(len(screen), 8)
        terminal.resize(80, 11)
        terminal.line("step")
        terminal.wait_for("> 05 GTO 1", "  06 9", "r0 = 2", "y = 0", *stack("3.00"),
                          "watch r0: 3 -> 2", "debug>")

    def test_watched_numbers_are_drawn_and_a_stop_says_why(self):
        terminal = self.debugger()
        terminal.line("watch r0")
        terminal.line("continue")
        terminal.wait_for("  01 3", "  02 STO 0", "> 03 LBL 1 ; again", "  04 DSZ", "  05 GTO 1",
                          "r0 = 3", *stack("3.00"), "watch r0: 0 -> 3", "debug>")
        terminal.line("break 5")
        terminal.wait_for("> 03 LBL 1 ; again", "  04 DSZ", r" \*05 GTO 1", "r0 = 3",
                          *stack("3.00"), "debug>")

    def test_a_program_from_a_pipe_gets_its_commands_from_the_terminal(self):
        self.listing(*COUNTDOWN)
        terminal = Terminal(self.folder, shell=1)
        self.addCleanup(terminal.close)
        for name in ("-", "/dev/stdin"):
            terminal.wait(lambda screen: screen[-1].startswith("$"))
            terminal.line("clear; cat program.txt | "
                          f"{shlex.join(console_case.command)} debug {name}")
            terminal.wait_for("  04 DSZ", *stack(), "debug>")
            terminal.line("step 2")
            terminal.wait_for("> 03 LBL 1 ; again", "  04 DSZ", "  05 GTO 1", *stack("3.00"),
                              "debug>")
            terminal.line("quit")
        terminal.wait(lambda screen: screen[-1].startswith("$"))
        terminal.line(f"clear; setsid -w {shlex.join(console_case.command)} debug - < program.txt")
        terminal.wait(lambda screen: "standard input where there is no" in screen[0])

    def test_ctrl_c_stops_the_program_and_continue_goes_on(self):
        terminal = self.debugger("LBL 1", "1", "+", "GTO 1")
        for _ in range(3):
            terminal.run_line("continue")
            terminal.keys("C-c")
            terminal.wait_for("interrupted", "debug>")

    def test_long_lines_and_tabs_do_not_move_the_rows(self):
        terminal = self.debugger("1 ; " + "\u00e4" * 40, "2 ;\ttab", "3", "4", "5", size="20x24")
        for _ in range(2):
            terminal.line("step")
        screen = terminal.wait_for("  01 1 ; \u00e4{11}", "  02 2 ; tab", "> 03 3", "  04 4",
                                   "  05 5", "LASTx 0.00", "DEG  FIX 2", *stack("2.00", "1.00")[1:],
                                   "debug>")
        self.assertEqual(len(screen), 15)

    def test_tab_completes_the_commands_of_the_debugger(self):
        terminal = self.debugger()
        terminal.type("cont")
        terminal.keys("Tab", "Enter")
        terminal.wait_for(*stack("9.00", "3.00"), "the program has halted", "debug>")

    def test_the_dialogues_of_the_manual_are_what_a_plain_terminal_shows(self):
        self.assert_dialogues("debugging", "debug", "examples/gcd.txt")


if __name__ == "__main__":
    main()
