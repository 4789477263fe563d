"""The examples of the manual and of the README: keystrokes, listings, data files and
terminal sessions give the results that the pages show."""

import os
import re
import shlex
import shutil
import unittest

from console_case import EXAMPLES, REPOSITORY, ConsoleCase, main
from manual_pages import NoSuchKey, key_commands, pages

# Facts that a note may contain: "Y = 3.00", "R5 = 7.00",
# "R.1 = 2.00", "LASTx = 4", "line = 03", "points = 12".
NOTE = re.compile(r"\b([XYZT]|LASTx|R\.?\d+|line|sets|points) = ([-+\w.]*\w)")

ALL_PAGES = pages()


def table_of_instructions():
    """The mnemonic of each instruction, and whether it saves X in LASTx."""
    path = os.path.join(REPOSITORY, "engine", "instructions", "instruction_rows.inc")
    with open(path, encoding="utf-8") as file:
        rows = re.findall(r'^INSTRUCTION\("([^"]+)", +op\w+, +\w+, +([012]),',
                          file.read(), re.M)
    return {mnemonic: last_x != "0" for mnemonic, last_x in rows}


def fact(state, name):
    """The value of a name in a note, as the manual writes it."""
    if name in "XYZT":
        return state["stack"]["XYZT".index(name)]["text"].lstrip("+")
    if name == "LASTx":
        return state["registers"][30].split(" = ")[1].lstrip("+")
    if name == "line":
        return f"{state['line']:02}"
    if name == "sets":
        return str(len(state["graph"]))
    if name == "points":
        return str(sum(len(data_set["y"]) for data_set in state["graph"]))
    register = 10 + int(name[2:]) if name[1] == "." else int(name[1:])
    return state["registers"][register].split(" = ")[1].lstrip("+")


class ManualCase(ConsoleCase):
    """Runs in a folder with the examples and the files of all pages. Starting
    a process can be slow, so one process answers as much as possible."""

    def setUp(self):
        super().setUp()
        shutil.copytree(EXAMPLES, self.path("examples"))
        for page in ALL_PAGES:
            for element in page.having("pre"):
                name = element.attributes.get("data-file")
                if name:
                    self.assertFalse(os.path.exists(self.path(name)), f"{page.name}: {name} again")
                    self.write(name, element.text.lstrip("\n"))


class KeysTest(ManualCase):
    """<pre class="keys">: KEYS | DISPLAY | NOTE. Each block starts with a fresh
    calculator, a "continued" one with the calculator of the block before it;
    data-open names a listing to open first."""

    def test_displays_and_notes(self):
        script, wanted = ["option sound off"], []
        for page in ALL_PAGES:
            more, texts = self.script_of(page)
            script += more
            wanted += texts
        states = self.states(*script)
        self.assertEqual(len(states), len(wanted))
        self.assertGreater(len(wanted), 300)
        for state, (name, line, text) in zip(states, wanted):
            with self.subTest(page=name, line=line, text=text):
                self.compare(state, text)

    def script_of(self, page):
        script, wanted = [], []
        for block in page.having("pre", "keys"):
            if "continued" not in block.classes:
                script += ["reset"]
            if "data-open" in block.attributes:
                script += ["open " + block.attributes["data-open"]]
            for number, line in enumerate(block.text.strip("\n").split("\n"), block.line + 1):
                keys, *rest = line.split("|", 1)
                with self.subTest(page=page.name, line=number):
                    script += key_commands(keys)
                    if rest:
                        script += ["state"]
                        wanted.append((page.name, number, rest[0]))
        return script, wanted

    def compare(self, state, text):
        display, _, note = (part.strip() for part in (text + "|").partition("|"))
        if display:
            self.assertEqual(state["display"].strip(), display)
        for name, value in NOTE.findall(note):
            self.assertEqual(fact(state, name), value, name)

    def test_keys_in_the_text_are_on_the_face(self):
        for page in ALL_PAGES:
            for element in page.having("kbd"):
                if "pc" in element.classes:
                    continue
                with self.subTest(page=page.name, line=element.line):
                    self.assertTrue(key_commands(element.text))

    def test_a_text_on_no_key_is_rejected(self):
        for text in ("sqrt", "ln", "f 1/x", "g FIX", "f f ln"):
            with self.assertRaises(NoSuchKey):
                key_commands(text)


class InstructionsTest(ManualCase):
    """The reference: <h2 data-instruction="MNEMONIC"> starts an entry."""

    def entries(self):
        return {heading.attributes["data-instruction"]: (page, heading, elements)
                for page in ALL_PAGES for heading, elements in page.sections("h2")
                if "data-instruction" in heading.attributes}

    def test_each_instruction_of_the_table_has_an_entry(self):
        table = table_of_instructions()

        self.assertEqual(len(table), 80)
        self.assertEqual(sorted(self.entries()), sorted(table))

    def test_the_keys_record_the_instruction(self):
        script, keyed, without = [], [], []
        for mnemonic, (_, _, elements) in self.entries().items():
            effect = next(element for element in elements if "effect" in element.classes)
            if effect.text.startswith("no key"):
                without.append(mnemonic)
                continue
            keys = next(element for element in elements if element.tag == "kbd")
            script += ["reset", "up 32", *key_commands(keys.text), "state"]
            keyed.append(mnemonic)

        states = self.states(*script)

        self.assertEqual(sorted(without), ["->H", "->H.MS"])
        self.assertEqual(len(states), len(keyed))
        for mnemonic, state in zip(keyed, states):
            with self.subTest(mnemonic=mnemonic):
                self.assertEqual(state["line"], 1)
                self.assertRegex(state["program"][1], "^" + re.escape(mnemonic) + r"( \.?\d)?$")

    def test_entries_say_what_goes_to_lastx(self):
        table = table_of_instructions()
        for mnemonic, (page, _, elements) in self.entries().items():
            with self.subTest(mnemonic=mnemonic, page=page.name):
                effect = next(element for element in elements if "effect" in element.classes)
                self.assertEqual("LASTx \u2190 X" in effect.text, table[mnemonic])

    def test_each_entry_has_an_example(self):
        for mnemonic, (page, _, elements) in self.entries().items():
            with self.subTest(mnemonic=mnemonic, page=page.name):
                self.assertTrue([element for element in elements if element.tag == "pre"
                                 and {"keys", "session"} & set(element.classes)])


class TextTest(ManualCase):
    """Listings, data files and sessions."""

    def test_listings_pass_the_check(self):
        names, findings = [], ""
        for page in ALL_PAGES:
            for block in page.having("pre", "listing"):
                names.append(block.attributes["data-file"])
                for line in block.attributes.get("data-finding", "").splitlines():
                    findings += f"{names[-1]}:{line}\n"

        result = self.start("check", *names)

        self.assertGreater(len(names), 15)
        self.assertEqual((result.code, result.out), (1, findings))

    def test_data_files_are_read(self):
        script, shapes = [], []
        for page in ALL_PAGES:
            for block in page.having("pre", "data"):
                sets, points = block.attributes["data-shape"].split("x")
                shapes.append(int(sets) * [int(points)])
                self.write(f"data-{len(shapes)}.txt", block.text.lstrip("\n"))
                script += [f"graph open data-{len(shapes)}.txt", "state"]

        events = self.script(*script)

        self.assertGreater(len(shapes), 2)
        self.assertEqual([[len(data_set["y"]) for data_set in event["graph"]]
                          for event in events], shapes)

    def test_sessions(self):
        """Lines that start with "$" are commands; their output follows. "..."
        at the end of a line, or as a line, matches any text."""
        count = 0
        for page in ALL_PAGES:
            for block in page.having("pre", "session"):
                code = 0
                for command, printed in self.commands(block.text):
                    with self.subTest(page=page.name, line=block.line, command=command):
                        out, code = self.perform(command, code)
                        self.assert_prints(out, printed)
                        count += 1
        self.assertGreater(count, 10)

    def test_sessions_of_the_readme(self):
        with open(os.path.join(REPOSITORY, "README.md"), encoding="utf-8") as file:
            blocks = re.findall(r"^```console\n(.*?)^```$", file.read(), re.S | re.M)
        commands = [command for block in blocks for command in self.commands(block)]
        self.assertGreater(len(commands), 4)
        self.assertEqual(commands[0][0].split()[:2], ["vorstek-cli", "eval"])
        for command, printed in commands:
            with self.subTest(command=command):
                out, _ = self.perform(command, 0)
                self.assert_prints(out, printed)

    def test_the_readme_begins_with_eval_and_the_terminal(self):
        with open(os.path.join(REPOSITORY, "README.md"), encoding="utf-8") as file:
            first = "".join(file.readlines()[:20])
        self.assertIn("$ vorstek-cli eval ", first)
        self.assertEqual(re.findall(r"!\[.*?\]\((.*?)\)", first)[0], "docs/pictures/terminal.png")

    def test_names_of_the_state(self):
        page = next(page for page in ALL_PAGES if page.name == "console.htm")
        at = next(number for number, element in enumerate(page.elements)
                  if element.attributes.get("id") == "state")
        names = [element.text for element in page.elements[at + 1:] if element.tag == "code"]

        state = self.state_after()

        self.assertEqual(names, ["run --json", *state])

    @staticmethod
    def commands(text):
        for part in re.split(r"^\$ ", text.lstrip("\n"), flags=re.M)[1:]:
            command, _, printed = part.partition("\n")
            yield command, printed.rstrip("\n")

    def perform(self, command, code):
        """The output of a command line, and its exit code."""
        program, *arguments = shlex.split(command)
        if program == "echo":
            self.assertEqual(arguments, ["$?"])
            return f"{code}", 0
        if program == "cat":
            return self.read_text(arguments[0]).rstrip("\n"), 0
        if program == "printf":
            self.assertEqual(arguments[1], ">")
            self.write(arguments[2], arguments[0].replace("\\n", "\n"))
            return "", 0
        self.assertEqual(program, "vorstek-cli")
        result = self.start(*arguments)
        return (result.out + result.err).rstrip("\n"), result.code

    def assert_prints(self, out, printed):
        pattern = ".*".join(re.escape(part) for part in printed.split("..."))
        if not re.fullmatch(pattern, out, re.S):
            self.assertEqual(out, printed)


if __name__ == "__main__":
    unittest.TestCase.maxDiff = None
    main()
