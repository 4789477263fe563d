"""Lines of listings with the kind of each word, for the tests of both kits.

Words are what a line has between blanks; a comment is one word. Kinds are named
below; "error" is a word that the loader rejects."""

import json
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ROWS = ROOT / "engine" / "instructions" / "instruction_rows.inc"
EXAMPLES = sorted((ROOT / "examples").glob("*.txt"))

# By the last column of the table of instructions.
KIND_OF_ROLE = {"rlNone": "instruction", "rlSign": "instruction", "rlJump": "jump",
                "rlSkip": "test", "rlStop": "stop", "rlLabel": "label"}
OPERANDS = {
    "opNone": ("", [""]),
    "opDigits": ("digits", [str(digit) for digit in range(10)]),
    "opLabel": ("target", [str(digit) for digit in range(10)]),
    "opRegister": ("register", [*(str(digit) for digit in range(10)),
                                *(f".{number}" for number in range(11)), ".05", ".0010"]),
}

# What the table does not say: numbers, layout, and what is rejected.
LINES = (
    ("3", "number"), ("-3", "number"), ("+3", "number"), ("3.", "number"), (".5", "number"),
    ("-0.5", "number"), ("6.02e23", "number"), ("1e-05", "number"), ("1E+5", "number"),
    ("12345678901234567", "number"), ("-1.234567890e+005", "number"),
    ("123456789012345678", "error"), ("-1.2345678901e+005", "error"),
    (".", "error"), ("-.", "error"), ("--3", "error"), ("3e", "error"), ("3e+", "error"),
    ("e5", "error"), (".e5", "error"), ("1.2.3", "error"), ("3,5", "error"), ("3-4", "error"),
    ("0x10", "error"), ("inf", "error"), ("nan", "error"), ("\N{ARABIC-INDIC DIGIT THREE}", "error"),
    ("3 4", "number error"), ("3 + 4", "number error error"), ("3 ENTER", "number error"),
    ("3; three", "number comment"), ("  3  ; three", "number comment"),
    ("", ""), ("   ", ""), ("; STO 12", "comment"), ("   ;; 3 4", "comment"), (";", "comment"),
    ("sin;x", "instruction comment"), ("\tsqrt\t; 3", "instruction comment"),
    ("  STO   5  ; x", "instruction register comment"), ("STO\t5", "instruction register"),
    ("GTO 3;x", "jump target comment"), ("STO i;x", "instruction indirect comment"),
    ("sto 5", "error error"), ("enter", "error"), ("ENTERx", "error"), ("xENTER", "error"),
    ("Enter", "error"), ("sin^", "error"), ("sin^-", "error"), ("x", "error"), ("i", "error"),
    ("x<=", "error"), ("x==y", "error"), ("->", "error"), ("->HMS", "error"), ("->HxMS", "error"),
    ("10^", "error"), ("STO+3", "error"), ("STO5", "error"), ("LBL1", "error"), ("Sum", "error"),
    ("ENTER\N{NO-BREAK SPACE}", "error"), ("\N{LEFT RIGHT ARROW}", "error"),
    ("ENTER\N{LEFT RIGHT ARROW}", "error"), ("\N{GREEK CAPITAL LETTER SIGMA}+", "error"),
    ("RTN: 3", "error error"), ("R/S/", "error"), ("hello world", "error error"),
    ("sin 3", "instruction error"), ("sin i", "instruction error"), ("RTN 1", "jump error"),
    ("R/S 0", "stop error"), ("DSZ i", "test error"), ("x=y 2", "test error"),
    ("+ 3", "instruction error"), ("Sum+ 3", "instruction error"), ("ENTER ENTER", "instruction error"),
    ("sin 3 4 ; x", "instruction error error comment"),
    ("STO", "error"), ("STO ", "error"), ("STO ; 5", "error comment"), ("GTO;3", "error comment"),
    ("LBL", "error"), ("FIX", "error"),
    ("STO 10", "instruction error"), ("STO 07", "instruction error"), ("STO .", "instruction error"),
    ("STO .11", "instruction error"), ("STO .100", "instruction error"),
    ("STO -1", "instruction error"), ("STO +", "instruction error"), ("STO ii", "instruction error"),
    ("STO I", "instruction error"), ("STO .i", "instruction error"), ("STO 1.2", "instruction error"),
    ("RCL .1x", "instruction error"), ("RCL x", "instruction error"),
    ("STO 5 6", "instruction register error"), ("STO .5 i", "instruction register error"),
    ("STO i i", "instruction indirect error"), ("GSB 1 2", "jump target error"),
    ("LBL 10", "label error"), ("LBL .1", "label error"), ("LBL i", "label error"),
    ("GTO 12", "jump error"), ("GTO .3", "jump error"), ("GSB a", "jump error"),
    ("FIX i", "instruction error"), ("FIX 10", "instruction error"), ("SCI .4", "instruction error"),
    ("ENG 4 4", "instruction digits error"),
)


def rows():
    """(mnemonic, operand, role) of each instruction."""
    table = ROWS.read_text()
    found = re.findall(r'^INSTRUCTION\("([^"]+)", *(\w+),.*?, *(rl\w+)\)', table, re.MULTILINE)
    assert len(found) == table.count("\nINSTRUCTION(")
    return found


def lines_of_rows():
    """Each instruction with every operand."""
    for mnemonic, operand, role in rows():
        kind = KIND_OF_ROLE[role]
        if mnemonic.endswith(" i"):
            yield mnemonic, kind + " indirect"
            continue
        kind_of_operand, operands = OPERANDS[operand]
        for text in operands:
            yield f"{mnemonic} {text}".rstrip(), f"{kind} {kind_of_operand}".rstrip()


def words_of(line):
    return list(re.finditer(r";.*|[^ \t;]+", line))


def all_lines():
    return [*lines_of_rows(), *LINES]


class Program:
    """The console program."""

    def __init__(self, path):
        self.path = pathlib.Path(path)

    def run(self, *arguments, cwd=None):
        return subprocess.run([self.path, *arguments], cwd=cwd, check=False, capture_output=True,
                              encoding="utf-8")

    def errors(self, lines):
        """For each line, as a listing of its own, the column of its error or None."""
        with tempfile.TemporaryDirectory() as folder:
            names = [f"{number}.txt" for number in range(len(lines))]
            for name, line in zip(names, lines):
                pathlib.Path(folder, name).write_text(line + "\n", encoding="utf-8")
            done = self.run("check", "--json", *names, cwd=folder)
        found = dict.fromkeys(names)
        for finding in map(json.loads, done.stdout.splitlines()):
            if finding["severity"] == "error":
                found[finding["file"]] = finding["column"]
        return list(found.values())


class HighlightTests:
    """Tests of a kit that highlights, for a test case that says how in kinds_of()."""

    program = None

    def kinds_of(self, lines):
        """For each line, the kind of each character; "" for those without."""
        raise NotImplementedError

    def assert_kinds(self, lines):
        texts = [text for text, _ in lines]
        for (text, wanted), kinds in zip(lines, self.kinds_of(texts), strict=True):
            with self.subTest(line=text):
                words = words_of(text)
                self.assertEqual(len(kinds), len(text))
                self.assertEqual([set(kinds[word.start():word.end()]) for word in words],
                                 [{kind} for kind in wanted.split()])
                self.assertNotIn("error", {kind for kind, character in zip(kinds, text)
                                           if character in " \t"})

    def test_every_row_of_the_table_with_every_operand(self):
        self.assert_kinds(list(lines_of_rows()))

    def test_numbers_comments_and_what_is_rejected(self):
        self.assert_kinds(LINES)

    def test_errors_are_those_of_the_loader(self):
        lines = all_lines()
        errors = self.program.errors([text for text, _ in lines])
        for (text, wanted), column in zip(lines, errors, strict=True):
            with self.subTest(line=text):
                self.assertEqual("error" in wanted.split(), column is not None)
                if column is not None:
                    at, = [number for number, word in enumerate(words_of(text))
                           if word.start() == column - 1]
                    self.assertEqual(wanted.split()[at], "error")

    def test_examples_have_no_errors(self):
        self.assertEqual(len(EXAMPLES), 24)
        lines = [line for example in EXAMPLES
                 for line in example.read_text(encoding="utf-8").splitlines()]
        for line, kinds in zip(lines, self.kinds_of(lines), strict=True):
            with self.subTest(line=line):
                self.assertNotIn("error", kinds)
                for word in words_of(line):
                    self.assertNotIn("", kinds[word.start():word.end()])


def main(test):
    unittest.main(module="__main__", argv=[test])
