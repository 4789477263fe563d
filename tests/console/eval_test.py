"""vorstek-cli eval: a line of instructions and numbers, or many from standard
input."""

import random
import subprocess
import time

from console_case import TIMEOUT, ConsoleCase, key_line, main
import console_case
from vocabulary import PLAIN, REGISTER

# Instructions that do the same in a program and by themselves: no jumps, and
# nothing that skips a line or draws.
FLOW = ("GSB i", "GTO i", "RTN", "DSZ", "ISZ", "PAUSE", "R/S", "x<=y", "x>y", "x!=y", "x=y", "x<0",
        "x>0", "x!=0", "x=0", "ClearG", "SumG", "SetG")
LASTING = tuple(word for word in PLAIN if word not in FLOW)
REGISTERS = [str(number) for number in range(10)] + [f".{number}" for number in range(10)] + [".10"]


class EvalTest(ConsoleCase):

    def test_the_time_for_a_line_grows_with_its_length(self):
        start = time.monotonic()
        result = self.start("eval", stdin="1 \u221ax " * 50000 + "frob\n")
        self.assertLess(time.monotonic() - start, 10)
        self.assertIn("column 250001: frob: ", result.err)

    def evaluate(self, *arguments, code=0, err=""):
        result = self.start("eval", *arguments)
        self.assertEqual((result.code, result.err), (code, err), arguments)
        return result.out

    def assert_value(self, line, expected):
        self.assertEqual(self.evaluate("--fix", "4", line), expected + "\n", line)

    def test_a_line_prints_x(self):
        self.assertEqual(self.evaluate("2 ENTER 3 + sqrt"), "2.24\n")
        self.assertEqual(self.evaluate("5 CHS"), "-5.00\n")
        self.assertEqual(self.evaluate(""), "")
        self.assertEqual(self.evaluate("; only a comment"), "")
        self.assertEqual(self.evaluate("7 ; a comment 8"), "7.00\n")

    def test_words_may_be_several_arguments(self):
        self.assertEqual(self.evaluate("2", "3", "+"), "5.00\n")
        self.assertEqual(self.evaluate("7", "5", "-"), "2.00\n")
        self.assertEqual(self.evaluate("-7", "-5", "-"), "-2.00\n")
        self.assertEqual(self.evaluate("2", "--fix", "1", "3"), "3.0\n")
        self.assertEqual(self.evaluate("--", "2", "3", "*"), "6.00\n")

    def test_a_number_after_a_number_pushes(self):
        stack = self.evaluate("--stack", "1 2 3 4")
        self.assertEqual(stack, "T   1.00\nZ   2.00\nY   3.00\nX   4.00\n")
        self.assertEqual(self.evaluate("--stack", "1 ENTER 2"),
                         "T   0.00\nZ   0.00\nY   1.00\nX   2.00\n")

    def test_numbers_are_those_of_listings(self):
        for word, expected in (("1e3", "1000.0000"), ("-.5", "-0.5000"), ("+2.5e-1", "0.2500"),
                               ("12345.67890123456", "12345.6789")):
            self.assert_value(word, expected)

    def test_spellings_of_the_keys(self):
        for line, expected in (
                ("2 3 x<>y -", "1.0000"), ("2 3 X<>Y -", "1.0000"), ("2 3 swap -", "1.0000"),
                ("2 3 x↔y −", "1.0000"), ("9 √x", "3.0000"), ("9 √", "3.0000"), ("9 SQRT", "3.0000"),
                ("π", "3.1416"), ("PI", "3.1416"), ("3 4 ->p", "5.0000"), ("3 4 →P", "5.0000"),
                ("2 3 ×", "6.0000"), ("6 3 ÷", "2.0000"), ("5 x²", "25.0000"), ("2 3 ^", "8.0000"),
                ("2 3 yˣ", "8.0000"), ("30 SIN", "0.5000"), (".5 asin", "30.0000"),
                (".5 sin⁻¹", "30.0000"), ("1 eˣ", "2.7183"), ("2 10ˣ", "100.0000"),
                ("3 +/-", "-3.0000"), ("1.3 ->H", "1.5000"), ("1.5 →H.MS", "1.3000"),
                ("4 2 Σ+ 6 4 sum+ mean", "3.0000"), ("4 recip", "0.2500"), ("7 sto 3 0 rcl 3", "7.0000"),
                ("2 sto 0 8 STO i 0 rcl I", "8.0000"), ("2 sto .10 3 sto× .10 rcl .10", "6.0000")):
            self.assert_value(line, expected)

    def test_what_is_printed_on_the_keys_in_two_words(self):
        for line, expected in (
                ("7 STO 3 CL REG RCL 3", "0.0000"), ("7 STO 3 clreg RCL 3", "0.0000"),
                ("4 2 Σ+ CL Σ 1 2 Σ+", "1.0000"), ("4 2 Σ+ cl sum 1 2 Σ+", "1.0000"),
                ("4 2 Σ+ CLSum 1 2 Σ+", "1.0000"), ("4 2 Σ+ CLσ 1 2 Σ+", "1.0000"),
                ("4 2 Σ+ x-bar", "2.0000"), ("4 2 Σ+ X̄", "2.0000"), ("9 sqrt CLx LAST x", "9.0000"),
                ("4 2 Σ+ RCL Σ+", "2.0000"), ("4 2 Σ+ rcl sum+", "2.0000"),
                ("3 4 STO 5 STO + 5 RCL 5", "8.0000"), ("3 4 STO 5 STO × 5 RCL 5", "16.0000"),
                ("1 2 SUM G CL G", "2.0000"), ("1 SET G", "1.0000"), ("1 setg", "1.0000")):
            self.assert_value(line, expected)

    def test_keys_that_are_no_instruction(self):
        for word in ("CL PRGM", "clprgm", "SST", "bst", "EEX", "DEL", "f"):
            self.assertEqual(self.evaluate("1 " + word, code=1,
                                           err=f"column 3: {word}: a key, but neither an "
                                               "instruction nor a number\n"), "")
        self.assertEqual(self.evaluate("1 CL FOO", code=1, err="column 3: CL: neither an "
                                       "instruction nor a number\n"), "")

    def test_every_instruction_in_either_case(self):
        # Each line begins from the same state.
        start = "ClearREG 5 5 + 1 2 3 0 STO 0 DEG FIX 2 "
        lines = [start + spelt for word in LASTING for spelt in (word, word.lower(), word.upper())]
        result = self.start("eval", "--json", stdin="\n".join(lines))
        answers = result.out.lower().splitlines()
        self.assertEqual(len(answers), len(lines))
        for line, *same in zip(lines[::3], answers[::3], answers[1::3], answers[2::3]):
            self.assertEqual(len(set(same)), 1, line)

    def test_formats_and_angles(self):
        for arguments, expected in ((["--fix", "5"], "3.33333"), (["--sci", "3"], "3.333e+00"),
                                    (["--eng", "2"], "3.33e+00"), (["--fix=0"], "3")):
            self.assertEqual(self.evaluate(*arguments, "10 3 /"), expected + "\n")
        for angle, expected in (("--deg", "0.50"), ("--rad", "-0.99"), ("--grd", "0.45")):
            self.assertEqual(self.evaluate(angle, "30 sin"), expected + "\n")

    def test_json(self):
        state, = self.start("eval", "--json", "--rad", "2 3 4 x^2").events
        self.assertEqual([level["value"] for level in state["stack"]], [16, 3, 2, 0])
        self.assertEqual(state["stack"][0]["text"], "+16.00")
        self.assertEqual((state["lastx"], state["angle"], state["format"]), (4, "RAD", "FIX 2"))
        self.assertNotIn("error", state)

        result = self.start("eval", "--json", "2 0 /")
        self.assertEqual(result.code, 1)
        self.assertEqual([result.events[0][key] for key in ("error", "word", "column")],
                         ["Error: divide by 0", "/", 5])

    def test_errors_name_the_word_and_its_column(self):
        for line, error in (
                ("5 0 /", "column 5: /: Error: divide by 0"),
                ("  -1 √x 3", "column 6: √x: Error: sqrt of x < 0"),
                ("π π entr", "column 5: entr: neither an instruction nor a number, "
                             "did you mean ENTER?"),
                ("1,5", "column 1: 1,5: neither an instruction nor a number, did you mean 1.5?"),
                ("hello", "column 1: hello: neither an instruction nor a number"),
                ("1 STO", "column 3: STO: STO takes a register, 0 to 9 or .0 to .10, or i"),
                ("FIX 12", "column 1: FIX: FIX takes the number of digits, 0 to 9"),
                ("GTO 5", "column 1: GTO: Error: no such label"),
                ("123456789012345678", "column 1: 123456789012345678: "
                                       "longer than 17 characters"),
                ("+\x7f", "column 1: +<U+007F>: neither an instruction nor a number"),
                ("\x1b[31m", "column 1: <U+001B>[31m: neither an instruction nor a number")):
            with self.subTest(line=line):
                self.assertEqual(self.evaluate(line, code=1, err=error + "\n"), "")

    def test_standard_input_is_answered_line_by_line(self):
        lines = "2 3\r\n+\n\n; nothing\n1 0 /\nSTO 5 x^2\nRCL 5"
        for arguments in ([], ["-"]):
            result = self.start("eval", *arguments, stdin=lines)
            self.assertEqual(result.out, "3.00\n5.00\n0.00\n0.00\n")
            self.assertEqual(result.err, "line 5, column 5: /: Error: divide by 0\n")
            self.assertEqual(result.code, 1)
        self.assertEqual(self.start("eval", stdin="1\n2\n").code, 0)
        self.assertEqual(self.start("eval", stdin="").out, "")

    def test_an_answer_comes_before_the_next_line(self):
        with subprocess.Popen([*console_case.command, "eval"], cwd=self.folder,
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE) as process:
            for line, expected in ((b"2 3\n", b"3.00"), (b"*\n", b"6.00")):
                process.stdin.write(line)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline().rstrip(), expected)
            process.stdin.close()
            self.assertEqual(process.wait(TIMEOUT), 0)

    def test_wrong_options(self):
        for arguments, error in ((["--fix", "12", "1"], "--fix needs a number of digits from 0 to 9"),
                                 (["--fix"], "--fix needs a number of digits from 0 to 9"),
                                 (["--rda", "1"], "unknown option '--rda', did you mean --rad?"),
                                 (["--rad=1", "1"], "--rad takes no value")):
            self.assertEqual(self.evaluate(*arguments, code=2, err=f"vorstek-cli: {error}\n"), "")


class SameAsScriptTest(ConsoleCase):
    """Random words give the same state by eval, by the script's command for words, and as
    a program that keys run."""

    NAMES = [*map(str, range(10)), *(f".{digit}" for digit in range(10))]

    def state_by_eval(self, words):
        """With the registers that have names, which the lines after the words recall."""
        lines = [" ".join(words), *("CLX RCL " + name for name in self.NAMES)]
        state, *recalled = self.start("eval", "--json", stdin="\n".join(lines)).events
        state["reg"] = [answer["stack"][0]["value"] for answer in recalled]
        return state

    def states_by_script(self, words):
        self.listing(*words, "R/S", name="words.txt")
        by_keys, by_words = self.states("open words.txt", key_line("R/S"), "state", "reset",
                                        "do " + " ".join(words), "state")
        return by_keys, by_words

    def test_random_words(self):
        chance = random.Random(13)
        done = failed = 0
        for _ in range(40):
            words = [chance.choice((chance.choice(LASTING),
                                    f"{chance.choice(REGISTER)} {chance.choice(REGISTERS)}",
                                    f"FIX {chance.randint(0, 9)}",
                                    f"{chance.uniform(-100, 100):.6g}",
                                    str(chance.randint(0, 9))))
                     for _ in range(chance.randint(1, 90))]
            ours = self.state_by_eval(words)
            for theirs in self.states_by_script(words):
                theirs["reg"] = theirs["reg"][:len(self.NAMES)]
                for key in ("stack", "lastx", "stack_lift", "format", "angle", "reg"):
                    self.assertEqual(ours[key], theirs[key], (key, " ".join(words)))
                if "error" in ours:
                    self.assertEqual(ours["error"], theirs["display"])
            failed += "error" in ours
            done += "error" not in ours
        self.assertGreater(done, 3)
        self.assertGreater(failed, 3)


if __name__ == "__main__":
    main()
