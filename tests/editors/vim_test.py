"""The kit for Vim, in Vim: python3 vim_test.py VORSTEK-CLI"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import listing_lines
from listing_lines import EXAMPLES, ROOT, HighlightTests, Program, rows

KIT = ROOT / "editors" / "vim"
PROGRAM = Program(pathlib.Path(sys.argv.pop()).resolve())

KIND_OF_GROUP = {"": "", "vorstekStart": "", **{"vorstek" + kind.capitalize(): kind for kind in (
    "instruction", "jump", "test", "stop", "label", "target", "register", "indirect", "digits",
    "number", "comment", "error")}}

# The group of each byte of each line.
DUMP = """
let rows = map(range(1, line('$')), {_, l -> map(range(1, strlen(getline(l))),
      \\ {_, c -> synIDattr(synID(l, c, 1), 'name')})})
call writefile([json_encode(rows)], 'out.json')
"""

# Both forms of findings, an error whose message lacks "Error:", and comments
# that look like findings.
FAULTY = """; a:3: b
LBL 1
LBL 1
\tGTO\t7
"""
REJECTED = "; first\nLBL 12\n3 4\nsto 5\n" + 99 * "ENTER\n"


class VimCase(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, text):
        (self.folder / name).write_text(text, encoding="utf-8")
        return name

    def vim(self, name, script):
        """Opens the file, with the kit as an installed one, and runs the script.
        Returns what that writes to out.json."""
        self.write("script.vim", script)
        done = subprocess.run(
            ["vim", "-N", "-u", "NONE", "-i", "NONE", "-n", "-es",
             "--cmd", f"set encoding=utf-8 runtimepath^={KIT}",
             "-c", "filetype plugin on", "-c", "syntax on", "-c", f"edit {name}",
             "-S", "script.vim", "-c", "qall!"],
            cwd=self.folder, check=False, timeout=120, stdin=subprocess.DEVNULL,
            capture_output=True, encoding="utf-8",
            env={**os.environ, "HOME": str(self.folder), "TERM": "dumb", "SHELL": "/bin/sh",
                 "PATH": f"{PROGRAM.path.parent}:{os.environ['PATH']}"})
        said = done.stdout + done.stderr
        self.assertTrue((self.folder / "out.json").exists(), f"{done.returncode}: {said}")
        self.assertNotRegex(said, r"E\d+:")
        return json.loads((self.folder / "out.json").read_text(encoding="utf-8"))

    def value(self, name, expression):
        return self.vim(name, f"call writefile([json_encode({expression})], 'out.json')\n")


class SyntaxTest(VimCase, HighlightTests):

    program = PROGRAM

    def kinds_of(self, lines):
        self.write("lines.vorstek", "".join(line + "\n" for line in lines))
        for line, groups in zip(lines, self.vim("lines.vorstek", DUMP), strict=True):
            at, kinds = 0, []
            for character in line:
                kinds.append(KIND_OF_GROUP[groups[at]])
                at += len(character.encode())
            yield kinds

    def test_it_has_no_words_beside_those_of_the_table(self):
        calls = re.findall(r"^call s:Instructions\('\w+', '[\w,]*',(.*?)\)$",
                           (KIT / "syntax" / "vorstek.vim").read_text(), re.MULTILINE | re.DOTALL)
        words = " ".join(word for call in calls for word in re.findall("'(.*?)'", call)).split()
        self.assertEqual(sorted(words),
                         sorted(row[0] for row in rows() if not row[0].endswith(" i")))

    def test_every_group_has_a_colour(self):
        self.write("a.vorstek", "3\n")
        groups = [group for group, kind in KIND_OF_GROUP.items() if kind]
        colours = self.value("a.vorstek",
                             f"map({groups}, {{_, g -> synIDattr(synIDtrans(hlID(g)), 'name')}})")
        for group, colour in zip(groups, colours, strict=True):
            self.assertTrue(colour and not colour.startswith("vorstek"), group)


class FileTypeTest(VimCase):

    def type_of(self, name, text):
        self.write(name, text)
        return self.value(name, "&filetype")

    def test_its_own_extension(self):
        self.assertEqual(self.type_of("a.vorstek", "anything at all, even this\n"), "vorstek")
        self.assertEqual(self.value("new.vorstek", "&filetype"), "vorstek")

    def test_texts_that_are_listings(self):
        for example in EXAMPLES:
            with self.subTest(example=example.name):
                self.assertEqual(self.type_of(example.name, example.read_text()), "vorstek")
        for text in ("2\nENTER\n3\n+\n", "; x\n\n  LBL 1 ; y\nsqrt\n", "sto 5\nRTN\n",
                     "RTN\r\nsin\r\n", "RTN\n" + 20 * "1\n" + "an error after so many lines\n"):
            with self.subTest(text=text):
                self.assertEqual(self.type_of("a.txt", text), "vorstek")

    def test_other_texts(self):
        data = sorted((ROOT / "examples" / "data").glob("*.txt"))
        self.assertGreater(len(data), 2)
        for path in (*data, ROOT / "examples" / "README.md", ROOT / "tests" / "CMakeLists.txt"):
            with self.subTest(path=path.name):
                self.assertEqual(self.type_of("a.txt", path.read_text()), "text")
        for text in ("", "; only\n; comments\n", "1\n2\n3\n", "enter\nsin\n", "milk\neggs\n",
                     "RTN\nand some words after it\n", "Buy milk\nENTER\n"):
            with self.subTest(text=text):
                self.assertEqual(self.type_of("a.txt", text), "text")
        self.assertEqual(self.value("new.txt", "&filetype"), "text")

    def test_the_words_that_tell_listings_are_in_the_table(self):
        line, = re.findall("let l:sure = (.*)", (KIT / "ftdetect" / "vorstek.vim").read_text())
        words = re.findall("[A-Z/]{3,}", line)
        self.assertGreater(len(words), 5)
        self.assertLessEqual(set(words), {row[0] for row in rows()})

    def test_comments_and_formatting(self):
        self.write("a.vorstek", "3\n")
        self.assertEqual(self.value("a.vorstek", "[&comments, &commentstring, &formatprg]"),
                         [":;", "; %s", "vorstek-cli fmt -"])

    def test_gq_brings_the_listing_into_the_canonical_form(self):
        self.write("a.vorstek", "\n  STO   5;x\n\n\n; y  \n")
        lines = self.vim("a.vorstek", "normal! gggqG\n"
                         "call writefile([json_encode(getline(1, '$'))], 'out.json')\n")
        self.assertEqual(lines, ["STO 5           ;x", "", "; y"])

    def test_gq_on_a_listing_with_errors_can_be_undone(self):
        self.write("a.vorstek", "  STO   5\nsto 5\n")
        lines = self.vim("a.vorstek", "normal! gggqG\nlet formatted = getline(1, '$')\nundo\n"
                         "call writefile([json_encode([formatted, getline(1, '$')])], 'out.json')\n")
        self.assertIn("<stdin>:2: Error: ", lines[0][0])
        self.assertEqual(lines[1], ["  STO   5", "sto 5"])

    def test_another_file_type_has_its_options_back(self):
        self.write("a.vorstek", "3\n")
        names = "[&comments, &commentstring, &formatprg, &formatoptions, &makeprg, &errorformat]"
        both = self.vim("a.vorstek", f"set filetype=\nlet after = {names}\nenew\n"
                        f"call writefile([json_encode([after, {names}])], 'out.json')\n")
        self.assertEqual(both[0], both[1])


class MakeTest(VimCase):

    def findings(self, name):
        """The quickfix list of :make, and what the program reports itself."""
        listed = self.vim(name, "silent make\ncall writefile([json_encode(map(filter(getqflist(), "
                          "'v:val.valid'), {_, e -> [bufname(e.bufnr), e.lnum, e.col, e.type, "
                          "e.text]}))], 'out.json')\n")
        printed = PROGRAM.run("check", "--json", "--", name, cwd=self.folder).stdout
        return listed, [json.loads(line) for line in printed.splitlines()]

    def test_warnings(self):
        name = self.write("a b.vorstek", FAULTY)
        listed, reported = self.findings(name)
        self.assertEqual({finding["severity"] for finding in reported}, {"warning"})
        self.assertIn((4, 2), {(finding["line"], finding["column"]) for finding in reported})
        self.assertEqual(listed, [[name, finding["line"], finding["column"], "W",
                                   f"{finding['text']} [{finding['name']}]"] for finding in reported])

    def test_errors(self):
        name = self.write("a.vorstek", REJECTED)
        listed, reported = self.findings(name)
        self.assertEqual(listed[:3], [
            [name, 2, 0, "E", 'illegal operand "12": LBL takes a label, 0 to 9'],
            [name, 3, 0, "E", 'illegal number: only a comment may follow 3, not "4"'],
            [name, 4, 0, "E", 'unrecognized instr mnemonic "sto": did you mean STO?']])
        self.assertEqual([row[1] for row in listed], [finding["line"] for finding in reported])
        self.assertEqual(listed[-1], [
            name, 103, 0, "E",
            'Program memory overflow "ENTER": a program has at most 98 lines'])

    def test_a_sound_listing(self):
        name = self.write("a.vorstek", "LBL 1\nsin\nRTN\n")
        self.assertEqual(self.findings(name), ([], []))


if __name__ == "__main__":
    if not shutil.which("vim"):
        sys.exit("vim is not installed (Debian package: vim)")
    listing_lines.main(sys.argv[0])
