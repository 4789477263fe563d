"""vorstek-cli debug: a program that is run step by step, by lines of standard input."""

import os
import signal
import subprocess
import time

import console_case
from console_case import TIMEOUT, ConsoleCase, LinuxCase, main

# Counts register 0 down from 3, and calls a subroutine each time.
COUNTDOWN = ("3", "STO 0", "LBL 1", "GSB 2", "DSZ", "GTO 1", "R/S", "LBL 2", "RCL 0", "x^2", "RTN")


class DebugTest(ConsoleCase):

    def debug(self, *lines, program=COUNTDOWN, code=0):
        result = self.start("debug", self.listing(*program),
                            stdin="".join(line + "\n" for line in lines))
        self.assertEqual(result.code, code, result.err)
        return result

    def test_a_line_is_answered_with_why_it_stopped_where_and_x(self):
        result = self.debug("break LBL 2 if r0<2", "continue", "where")
        self.assertEqual(result.out.splitlines(),
                         ["break LBL 2 if r0<2", ">*08 LBL 2", "4.00",
                          ">*08 LBL 2", "called by 04 GSB 2"])
        self.assertEqual(result.err, "")

    def test_steps_go_forwards_over_calls_and_backwards(self):
        result = self.debug("step 3", "next", "back 2", "step")
        self.assertEqual(result.out.splitlines(),
                         ["> 04 GSB 2", "3.00", "> 05 DSZ", "9.00",
                          "> 10 x^2", "3.00", "> 11 RTN", "9.00"])

    def test_undo_and_redo_of_steps_say_where_the_program_is(self):
        result = self.debug("step 3", "7", "undo", "undo", "Redo", "NEXT", "", "undo 2")
        self.assertEqual(result.out.splitlines(),
                         ["> 04 GSB 2", "3.00", "7.00", "3.00", "> 00", "0.00", "> 04 GSB 2",
                          "3.00", "> 05 DSZ", "9.00", "> 06 GTO 1", "9.00", "> 04 GSB 2", "3.00"])

    def test_what_is_calculated_between_two_steps_counts(self):
        result = self.debug("step 2", "5 STO 0", "watch r0", "continue")
        self.assertEqual(result.out.splitlines(),
                         ["> 03 LBL 1", "3.00", "5.00", "watch r0: 5 -> 4", "> 06 GTO 1", "25.00"])

    def test_an_error_of_the_program_or_of_a_line_makes_the_exit_code_1(self):
        result = self.debug("continue", program=("0", "1/x"), code=1)
        self.assertEqual(result.err, "1/x: Error: divide by 0\n")
        result = self.debug("brake 5", "step", code=1)
        self.assertEqual(result.out, "> 02 STO 0\n3.00\n")
        self.assertIn("column 1: brake: neither an instruction nor a number", result.err)

    def test_lines_after_quit_are_not_performed(self):
        self.assertEqual(self.debug("2 3 +", "quit", "1").out, "5.00\n")

    def test_without_lines_there_is_no_output(self):
        result = self.debug()
        self.assertEqual((result.out, result.err), ("", ""))

    def test_a_program_that_cannot_be_loaded_is_refused_with_the_reason(self):
        self.write("bad.txt", "ENTER\nfoo\n")
        for name, reason in (("bad.txt", "bad.txt: Error: unrecognized instr mnemonic on "
                              "line #2: foo\n"), ("missing.txt", "no such file")):
            with self.subTest(name):
                result = self.start("debug", name, stdin="1 2 +\n")
                self.assertEqual((result.code, result.out), (2, ""))
                self.assertIn(reason, result.err)
                self.assertEqual(result.err.count("\n"), 1)

    def test_a_line_that_cannot_load_its_file_makes_the_exit_code_1(self):
        os.mkdir(self.path("folder"))
        for name, reason in (("missing.txt", "no such file"), ("folder", "is a directory")):
            with self.subTest(name):
                result = self.debug(f"load {name}", "step", code=1)
                self.assertEqual(result.err, f"load: cannot read '{name}': {reason}\n")
                self.assertEqual(result.out, "> 02 STO 0\n3.00\n")

    def test_lines_may_end_in_cr_lf(self):
        result = self.debug("step 3\r", "next\r", "\r", "break 5\r", "break\r", "quit\r", "step")
        self.assertEqual(result.out.splitlines(), ["> 04 GSB 2", "3.00", "> 05 DSZ", "9.00",
                                                   "> 06 GTO 1", "9.00", "break 5"])

    def test_it_wants_one_program_that_is_a_file(self):
        self.listing("ENTER")
        for arguments, reason in (((), "debug needs one program"),
                                  (("program.txt", "program.txt"), "debug needs one program"),
                                  (("-",), "debug reads its commands from standard input where "
                                           "there is no terminal; the program has to be a file, "
                                           "not standard input\n"),
                                  (("--x", "program.txt"), "unknown option")):
            with self.subTest(arguments):
                result = self.start("debug", *arguments, stdin="1\n")
                self.assertEqual((result.code, result.out), (2, ""))
                self.assertIn(reason, result.err)

    def test_edit_needs_a_terminal(self):
        result = self.debug("edit", "1 2 +", code=1)
        self.assertEqual((result.out, result.err),
                         ("3.00\n", "edit: an editor needs a terminal\n"))

    def test_a_changed_program_is_saved_and_debugged_on(self):
        self.listing("4", "CHS", name="other.txt")
        result = self.debug("step 5", "load other.txt", "counts", "continue", "save new.txt")
        self.assertEqual(result.out.splitlines(),
                         ["> 09 RCL 0", "3.00", "3.00",
                          "the program has halted", "> 04 R/S", "-4.00", "-4.00"])
        self.assertEqual(self.read("new.txt"), b"4\r\nCHS\r\n")


class InputTest(LinuxCase):

    def test_standard_input_under_another_name_is_no_program_either(self):
        result = self.start("debug", "/dev/stdin", stdin="1\n")
        self.assertEqual((result.code, result.out), (2, ""))
        self.assertTrue(result.err.endswith("has to be a file, not '/dev/stdin'\n"), result.err)


class PauseTest(LinuxCase):

    def test_pause_does_not_wait_without_a_terminal(self):
        name = self.listing(*["PAUSE"] * 60)
        start = time.monotonic()
        result = self.start("debug", name, stdin="continue\n")
        self.assertLess(time.monotonic() - start, 50)
        self.assertEqual(result.out.splitlines(), 60 * [" 0.00"] +
                         ["the program has halted", "> 62 R/S", "0.00"])


class FolderTest(LinuxCase):

    def test_standard_input_that_cannot_be_read_is_refused(self):
        folder = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        with subprocess.Popen([*console_case.command, "debug", self.listing("ENTER")],
                              cwd=self.folder, stdin=folder,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            output = process.communicate(timeout=TIMEOUT)
        self.assertEqual(output, (b"", b"vorstek-cli: cannot read standard input\n"))
        self.assertEqual(process.returncode, 2)


class InterruptTest(LinuxCase):

    def test_ctrl_c_stops_the_program_where_it_is_and_the_next_line_goes_on(self):
        name = self.listing("PAUSE", "LBL 1", "1", "+", "GTO 1")
        with subprocess.Popen([*console_case.command, "debug", name], cwd=self.folder,
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE) as process:
            try:
                self.assert_interrupted(process)
            finally:
                process.kill()

    def assert_interrupted(self, process):
        process.stdin.write(b"continue\n")
        process.stdin.flush()
        self.assertEqual(process.stdout.readline(), b" 0.00\n")   # the PAUSE: it runs
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.stdout.readline(), b"interrupted\n")
        self.assertRegex(process.stdout.readline(), rb"^> 0[2-5] ")
        self.assertRegex(process.stdout.readline(), rb"^[0-9.]+\n$")
        output = process.communicate(b"step\n", TIMEOUT)[0]
        self.assertRegex(output, rb"^> 0[2-5] .*\n[0-9.]+\n$")
        self.assertEqual(process.returncode, 0)


if __name__ == "__main__":
    main()
