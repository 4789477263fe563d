"""vorstek-cli check: findings as compilers print them."""

from console_case import ConsoleCase, LinuxCase, main
from vocabulary import DIGIT, PLAIN, REGISTER

UNRECOGNIZED = "Error: unrecognized instr mnemonic"
BAD_NUMBER = "Error: illegal number"
BAD_OPERAND = "Error: illegal operand"


class CheckTest(ConsoleCase):

    def findings(self, *files, code):
        result = self.start("check", *files)
        self.assertEqual((result.code, result.err), (code, ""))
        return result.out.splitlines()

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
            self.assertEqual(result.out, "bad.txt:1: " + UNRECOGNIZED + "\n")
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


class BytesTest(LinuxCase):

    def test_a_name_of_any_bytes(self):
        name = b"caf\xc3\xa9 \xff.txt"
        with open(self.folder.encode() + b"/" + name, "wb") as file:
            file.write(b"bad\n")
        result = self.start("check", name)
        self.assertEqual((result.code, result.raw_err), (1, b""))
        self.assertEqual(result.raw_out, name + b":1: " + UNRECOGNIZED.encode() + b"\n")


if __name__ == "__main__":
    main()
