"""vorstek-cli check has no warning for the programs that the tests load and run, but
for those that deserve one. The programs are found in the sources of the tests: texts
in a row, as lists and arguments, and texts with line ends, that the loader accepts."""

import ast
import pathlib
import re

from console_case import EXAMPLES, REPOSITORY, ConsoleCase, LinuxCase, main
from vocabulary import DIGIT, PLAIN, REGISTER

TESTS = pathlib.Path(REPOSITORY, "tests")

# The tests of check itself hold mistakes, and of these texts none is a program.
NO_PROGRAMS = ("check_test.py", "lint_test.cpp", "lint_programs_test.py", "listing_words_test.cpp",
               "table_test.cpp", "decimal_test.cpp", "format_test.cpp")
OTHERS = ("npm",)       # of other people

TEXT = r'"(?:[^"\\\n]|\\.)*"'
ROW = re.compile(rf"[{{(]\s*((?:{TEXT}\s*,\s*)*{TEXT})\s*,?\s*[}})]")
LINES = re.compile(rf'(?:"(?:[^"\\\n]|\\.)*\\n"\s*)+')

FIRST_WORD = re.compile(r"\s*([^\s;]*)")
NUMBER = re.compile(r"[+-]?[0-9.]")

# What is wrong with these is on purpose.
DESERVED = {
    "1\n2\n2\nLBL 1\n3": "4 unused-label",
    "1\nCHS\nx<>y\nSTO 0\n+\nx=0\nx<0\nDSZ\nISZ\nR/S\nRTN\nx<=y": "12 unreachable",
    "1\nLBL 0\n2\nRTN\n3": "5 unreachable",
    "1\nLBL 2\nSTO 4": "2 unused-label",
    "1\nR/S\nLBL 3\n2\nR/S\nLBL 3\n3": "3 unused-label, 6 duplicate-label, 6 unused-label",
    "1/x\nGTO 1": "2 missing-label",
    "2\n3\nLBL 1\n5": "3 unused-label",
    "; a\nx<>y\n; b\nCLX\n; c\nLBL 5": "6 unused-label",
    "; lander\n\n  STO 5 ; store\n3.5e2\n\t; between\nRCL i\nLBL 7": "7 unused-label",
    "CLX\n+12.\nGSB 1": "3 missing-label",
    "CLX\n; c\nGSB 1": "3 missing-label",
    "GSB 3\nGSB i": "1 missing-label",
    "GSB 4\nGSB i": "1 missing-label",
    "GSB 7": "1 missing-label",
    "GTO 1": "1 missing-label",
    "GTO 3": "1 missing-label",
    "GTO 9": "1 missing-label",
    "LBL 0\nGSB 0": "2 deep-calls",
    "LBL 0\nLBL 1": "2 unused-label",
    "LBL 1\nCLX\nRTN\n\nGSB 1": "5 unreachable",
    "LBL 1\nGTO 9": "2 missing-label",
    "LBL 1\nSTO 3\nGSB 2\nDSZ\nR/S\nGTO 1\n1/x\nLBL 2\nSumG\nRTN": "7 unreachable",
    "LBL 1\nLBL 2\nLBL 3": "2 unused-label, 3 unused-label",
    "LBL 1\r\nGSB 1\r": "2 deep-calls",
    "R/S\nGSB 1": "2 missing-label",
    "RTN\n1000000000": "2 unreachable",
    "STO .3\nRCL i\n3.14\nLBL 7": "4 unused-label",
    "STO 3\nGTO 3\nGSB 3\nFIX 3\n3\nLBL 2": "2 missing-label, 3 missing-label, 6 unused-label",
    "STO 5\n3.5e2\nRCL i\nLBL 7": "4 unused-label",
    "x<>y\nSTO 1\nPAUSE\n7\nGTO 3\nR/S": "5 missing-label",
}


def value_of(node, constants):
    """A text or texts in a row that are written down; else nothing."""
    if isinstance(node, ast.Starred):
        node = node.value
    if isinstance(node, ast.Name):
        return constants.get(node.id)
    try:
        return ast.literal_eval(node)
    except ValueError:
        return None


def texts_of(nodes, constants):
    """All of them in a row; nothing if one is unknown."""
    texts = []
    for node in nodes:
        value = value_of(node, constants)
        texts += value if isinstance(value, (tuple, list)) else [value]
    return texts if all(isinstance(text, str) for text in texts) else []


def rows_in_python(path):
    nodes = list(ast.walk(ast.parse(path.read_text(encoding="utf-8"))))
    constants = {}
    for node in nodes:
        if isinstance(node, ast.Assign) and isinstance(node.targets[0], ast.Name):
            constants[node.targets[0].id] = value_of(node.value, {})
    for node in nodes:
        if isinstance(node, (ast.Tuple, ast.List)):
            yield texts_of(node.elts, constants)
        elif isinstance(node, ast.Call):
            yield texts_of(node.args, constants)


def texts_in_cpp(code):
    return [ast.literal_eval(text) for text in re.findall(TEXT, code)]


def rows_in_cpp(path):
    code = path.read_text(encoding="utf-8")
    for found in ROW.finditer(code):
        yield texts_in_cpp(found.group(1))
    for found in LINES.finditer(code):
        yield "".join(texts_in_cpp(found.group())).split("\n")


def may_be_program(text):
    """Each line begins as one of a program does, and not all of them are numbers."""
    words = [FIRST_WORD.match(line).group(1) for line in text.split("\n")]
    mnemonics = {*PLAIN, *REGISTER, *DIGIT}
    return ("\0" not in text and any(word in mnemonics for word in words) and
            all(not word or word in mnemonics or NUMBER.match(word) for word in words))


class TestProgramsTest(ConsoleCase):

    @staticmethod
    def candidates():
        """Texts by the file that has them first."""
        found = {}
        for path in sorted(TESTS.rglob("*")):
            if path.name in NO_PROGRAMS or path.relative_to(TESTS).parts[0] in OTHERS:
                continue
            rows = {".py": rows_in_python, ".cpp": rows_in_cpp}.get(path.suffix)
            for row in rows(path) if rows else ():
                text = "\n".join(row).strip("\n")
                if may_be_program(text):
                    found.setdefault(text, path.name)
        return found

    def findings(self, texts):
        """Of each text: line and name, or nothing if the loader does not accept it."""
        for number, text in enumerate(texts):
            self.write(str(number), text + "\n")
        found = [[] for _ in texts]
        for first in range(0, len(texts), 500):
            last = min(first + 500, len(texts))
            for event in self.start("check", "--json", *map(str, range(first, last))).events:
                found[int(event["file"])].append(event)
        return [None if any(event["severity"] == "error" for event in events) else
                ", ".join(f"{event['line']} {event['name']}" for event in events)
                for events in found]

    def test_only_programs_that_deserve_it_have_warnings(self):
        candidates = self.candidates()
        findings = dict(zip(candidates, self.findings(list(candidates))))
        programs = {text: found for text, found in findings.items() if found is not None}
        self.assertGreater(len(programs), 300)
        self.maxDiff = None
        self.assertEqual({text: found for text, found in programs.items() if found}, DESERVED)


class MisspeltExamplesTest(LinuxCase):
    """An example in which one line is wrong has no warning either, whichever it is: what
    the line was meant to be is not known, but that it was meant is."""

    @staticmethod
    def slips(words):
        """A line with a mistake or two: small letters, a letter too many, a blank or the
        operand too few, an unknown word or operand."""
        name, operands = words[0], " ".join(words[1:])
        forms = {f"{name.lower()} {operands}", f"{name}x {operands}", name + operands, name,
                 f"frob {operands}" if operands else name + "#", f"{name} 77 88"}
        return sorted(form for form in forms if form.split() != words)

    def test_one_wrong_line_is_no_reason_for_warnings(self):
        names = []
        for path in sorted(pathlib.Path(EXAMPLES).glob("*.txt")):
            lines = path.read_text(encoding="utf-8").split("\n")
            for number, line in enumerate(lines):
                words = line.partition(";")[0].split()
                matters = words and (words[0] in ("LBL", "GTO", "GSB", "RTN") or number % 9 == 0)
                for form in self.slips(words) if matters else ():
                    names.append(f"{path.stem}-{len(names)}")
                    self.write(names[-1], "\n".join([*lines[:number], form, *lines[number + 1:]]))
        self.assertGreater(len(names), 2000)
        for first in range(0, len(names), 500):
            out = self.start("check", *names[first:first + 500]).out
            self.assertEqual([line for line in out.splitlines() if "warning: " in line], [])


if __name__ == "__main__":
    main()
