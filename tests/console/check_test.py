"""vorstek-cli check: errors and warnings as compilers print them."""

import json
import os
import re

from console_case import REPOSITORY, ConsoleCase, LinuxCase, main
from vocabulary import DIGIT, PLAIN, REGISTER

UNRECOGNIZED = "Error: unrecognized instr mnemonic"
BAD_NUMBER = "Error: illegal number"
BAD_OPERAND = "Error: illegal operand"

# An error up to the word that it names, or to what is accepted in its place.
LOADER_PART = re.compile(r'.*?:\d+: (Error: [a-z ]+|Program memory overflow)(?= "|:|$)')


class CheckTest(ConsoleCase):

    def findings(self, *files, code):
        """The errors, without the warnings and what follows the loader's message."""
        result = self.start("check", *files)
        self.assertEqual((result.code, result.err), (code, ""))
        return [LOADER_PART.match(line)[0] for line in result.out.splitlines()
                if ": warning: " not in line]

    def assert_findings(self, lines, *findings):
        """Each finding is a line number and a message."""
        wanted = [f"program.txt:{line}: {message}" for line, message in findings]
        self.assertEqual(self.findings(self.listing(*lines), code=1 if wanted else 0), wanted)

    def test_nothing_to_find(self):
        self.assert_findings(("; comment", "", "  ", "\t; comment", "LBL 1", " FIX  4 ; comment",
                              "3.5e2;comment", "STO .5", "STO i", "STO\ti;", "+.5", "-5.", "1E5",
                              "1e+05"))

    def test_each_kind_of_finding(self):
        self.assert_findings(("sto 5", "3.5 7", "LBL 12"),
                             (1, UNRECOGNIZED), (2, BAD_NUMBER), (3, BAD_OPERAND))

    def test_comments_count_as_lines(self):
        self.assert_findings(("; one", "", "3", "nonsense", "; five", "more"), (4, UNRECOGNIZED),
                             (6, UNRECOGNIZED))

    def test_all_instructions_and_operands(self):
        lines = [*PLAIN, *(f"{name} {digit}" for name in DIGIT for digit in "09"),
                 *(f"{name} {register}" for name in REGISTER
                   for register in ("0", "9", ".0", ".9"))]
        for start in range(0, len(lines), 98):
            self.assert_findings(lines[start:start + 98])

    def test_unrecognized_lines(self):
        lines = ("Sqrt", "enter", "ENTERi", "STOi", "STO+5", "3.5x", "1e", "1e+", ".", "--5",
                 "0x10", "inf", "nan", "1,5", "12345678901234567890", "STO5", "=", "\\", "1.2.3")
        self.assert_findings(lines, *((n, UNRECOGNIZED) for n in range(1, len(lines) + 1)))

    def test_illegal_numbers(self):
        lines = ("5 6", "5 x", "5. i", "1e5 +", "-1 ENTER")
        self.assert_findings(lines, *((n, BAD_NUMBER) for n in range(1, len(lines) + 1)))

    def test_illegal_operands(self):
        rows = ((DIGIT, ("", "10", "01", ".1", "-1", "+1", "x", "1 2")),
                (("FIX", "SCI", "ENG", "LBL"), ("i",)),
                (REGISTER, ("", "10", "21", "00", ".11", ".", "-1", "x", "ii", "i 5", "1 i",
                            "4294967296")),
                (("ENTER", "sin", "R/S", "x<>y", "GTO i", "STO i", "+"), ("0", ".1", "i", "x")))
        lines = [f"{name} {operand}" for names, operands in rows
                 for name in names for operand in operands]
        self.assert_findings(lines, *((n, BAD_OPERAND) for n in range(1, len(lines) + 1)))

    def test_the_last_register_has_two_digits_and_a_point(self):
        self.assert_findings(("STO .10",))

    def test_too_many_lines(self):
        self.assert_findings(98 * ["1"] + ["; end"])
        self.assert_findings(98 * ["1"] + ["; end", "2"], (100, "Program memory overflow"))
        self.assert_findings(98 * ["1"] + ["bad", "2", "bad"],
                             (99, UNRECOGNIZED), (100, "Program memory overflow"))

    def test_a_file_of_other_things_is_given_up(self):
        self.write("other.txt", 200_000 * "x\n")
        result = self.start("check", "other.txt", self.listing("y"))
        lines = result.out.splitlines()
        self.assertEqual((result.code, len(lines)), (1, 1002))
        self.assertEqual(lines[999:], [
            "other.txt:1000: " + UNRECOGNIZED + ' "x"',
            "other.txt:1001: Error: too many errors; the rest is not read",
            "program.txt:1: " + UNRECOGNIZED + ' "y"'])

    def test_several_files(self):
        self.listing("1", name="good.txt")
        self.listing("bad", name="bad.txt")
        self.listing("1", "2 3", name="worse.txt")

        self.assertEqual(self.findings("bad.txt", "good.txt", "worse.txt", code=1),
                         ["bad.txt:1: " + UNRECOGNIZED, "worse.txt:2: " + BAD_NUMBER])
        self.assertEqual(self.findings("good.txt", "good.txt", code=0), [])

    def test_a_missing_file_does_not_hide_the_others(self):
        self.listing("bad", name="bad.txt")
        for files in (("missing.txt", "bad.txt"), ("bad.txt", "missing.txt")):
            result = self.start("check", *files)
            self.assertEqual(result.code, 2)
            self.assertEqual(result.out, "bad.txt:1: " + UNRECOGNIZED +
                             ' "bad": did you mean RAD?\n')
            self.assertRegex(result.err, r"\A[^\n]*missing\.txt[^\n]*\n\Z")

    def test_nothing_runs(self):
        result = self.start("check", self.listing("1", "PAUSE", "0", "1/x"))
        self.assertEqual((result.code, result.out, result.err), (0, "", ""))

    def test_line_ends(self):
        self.write("program.txt", b"1\r\nbad\r\n3\nbad\n\r\n5")
        self.assertEqual(self.findings("program.txt", code=1),
                         ["program.txt:2: " + UNRECOGNIZED, "program.txt:4: " + UNRECOGNIZED])

    def test_a_long_line_goes_on_in_the_next(self):
        self.write("program.txt", b";" + 509 * b"x" + b"\n" + b";" + 510 * b"x" + b"ENTER\nbad\n")
        self.assertEqual(self.findings("program.txt", code=1), ["program.txt:4: " + UNRECOGNIZED])


class WarningTest(ConsoleCase):
    """Which warnings there are is tested with the library; here it is how they
    are printed, and what the options do."""

    LINES = ("LBL 1", "enter", "STO 12", "1e120")
    ODD = ("LBL 1", "GTO 1", "  5", "GSB 2")

    def check(self, *arguments, stdin=b""):
        result = self.start("check", *arguments, stdin=stdin)
        self.assertEqual(result.err, "")
        return result

    def test_form_of_errors_and_warnings(self):
        result = self.check(self.listing(*self.LINES))
        self.assertEqual((result.code, result.out.splitlines()), (1, [
            'program.txt:2: Error: unrecognized instr mnemonic "enter": did you mean ENTER?',
            'program.txt:3: Error: illegal operand "12": did you mean .2?',
            "program.txt:4:1: warning: 1e120 is beyond the calculator's range and becomes "
            "9.999999999e+99 [number-range]"]))

    def test_warnings_alone_are_no_failure(self):
        result = self.check(self.listing(*self.ODD))
        self.assertEqual((result.code, result.out.splitlines()), (0, [
            "program.txt:3:3: warning: nothing reaches this line and the next [unreachable]",
            'program.txt:4:1: warning: there is no LBL 2: the program would halt here with '
            '"Error: no such label" [missing-label]']))

    def test_strict(self):
        self.assertEqual(self.check("--strict", self.listing(*self.ODD)).code, 1)
        self.assertEqual(self.check("--strict", self.listing("LBL 1", "5")).code, 0)

    def test_ignored_warnings(self):
        name = self.listing(*self.ODD)
        result = self.check(name, "--ignore", "unreachable")
        self.assertEqual((result.code, result.out.count("\n")), (0, 1))
        self.assertIn("[missing-label]", result.out)
        result = self.check("--ignore", "unreachable", "--ignore", "missing-label", "--strict", name)
        self.assertEqual((result.code, result.out), (0, ""))

    def test_an_error_cannot_be_ignored(self):
        result = self.start("check", "--ignore", "mnemonic", self.listing("enter"))
        self.assertEqual((result.code, result.out, result.err),
                         (2, "", "vorstek-cli: --ignore: no warning is named 'mnemonic'\n"))
        result = self.start("check", "--ignore", "unreachabel", self.listing("enter"))
        self.assertEqual(result.err, "vorstek-cli: --ignore: no warning is named 'unreachabel', "
                                     "did you mean unreachable?\n")

    def test_json(self):
        result = self.check("--json", self.listing("\u00e9 ; \u00e9", *self.LINES[1:]))
        keys = ["file", "line", "column", "severity", "name", "text", "suggestion"]
        rows = [("program.txt", 1, 1, "error", "mnemonic", UNRECOGNIZED + ' "\u00e9"', None),
                ("program.txt", 1, 1, "warning", "non-ascii",
                 '"\u00e9" (U+00E9) is not ASCII; instructions and numbers are', None),
                ("program.txt", 2, 1, "error", "mnemonic", UNRECOGNIZED + ' "enter"', "ENTER"),
                ("program.txt", 3, 5, "error", "operand", BAD_OPERAND + ' "12"', ".2"),
                ("program.txt", 4, 1, "warning", "number-range", "1e120 is beyond the calculator's "
                 "range and becomes 9.999999999e+99", None)]
        self.assertEqual(result.code, 1)
        found = [json.loads(line) for line in result.raw_out.decode("utf-8").splitlines()]
        self.assertEqual(found, [dict(zip(keys, row)) for row in rows])
        self.assertEqual([list(finding) for finding in found], len(rows) * [keys])

    def test_standard_input(self):
        result = self.check("-", stdin="5\nenter\n")
        self.assertEqual((result.code, result.out.split()[0]), (1, "<stdin>:2:"))
        result = self.check("-", "--name", "new.txt", stdin="5\nenter\n")
        self.assertEqual(result.out.split()[0], "new.txt:2:")
        self.assertEqual(self.check("--", "-", stdin="5\n").code, 0)
        result = self.check("-", self.listing("LBL 1", "GTO 2"), "--name", "new.txt", stdin="GTO 2")
        self.assertEqual([line.split()[0] for line in result.out.splitlines()],
                         ["new.txt:1:1:", "program.txt:2:1:"])

    def test_options_without_their_value(self):
        for arguments, message in ((["program.txt", "--ignore"], "--ignore needs the name of a warning"),
                                   (["-", "--name"], "--name needs a file name")):
            result = self.start("check", *arguments)
            self.assertEqual((result.code, result.out, result.err),
                             (2, "", f"vorstek-cli: {message}\n"))

    def test_the_messages_say_why_a_file_cannot_be_read(self):
        os.mkdir(self.path("folder"))
        for name, why in (("missing.txt", "no such file"), ("folder", "is a directory")):
            result = self.start("check", name)
            self.assertEqual((result.code, result.out, result.err),
                             (2, "", f"vorstek-cli: cannot read '{name}': {why}\n"))

    def test_programs_for_measuring_have_no_warnings(self):
        folder = os.path.join(REPOSITORY, "bench", "programs")
        names = [os.path.join(folder, name) for name in os.listdir(folder) if name.endswith(".txt")]
        result = self.check("--strict", *names)
        self.assertGreater(len(names), 3)
        self.assertEqual((result.code, result.out), (0, ""))


class BytesTest(LinuxCase):

    def test_a_name_of_any_bytes(self):
        name = b"caf\xc3\xa9 \xff.txt"
        with open(self.folder.encode() + b"/" + name, "wb") as file:
            file.write(b"bad\n")
        result = self.start("check", name)
        self.assertEqual((result.code, result.raw_err), (1, b""))
        self.assertEqual(result.raw_out, name + b":1: " + UNRECOGNIZED.encode() +
                         b' "bad": did you mean RAD?\n')


if __name__ == "__main__":
    main()
