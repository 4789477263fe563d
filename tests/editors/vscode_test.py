"""The kit for VS Code, with the libraries that VS Code itself reads grammars with:

    python3 vscode_test.py MODULES_FOLDER VORSTEK-CLI

npm gets them into MODULES_FOLDER when they are not there. Debian packages:
nodejs npm."""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import listing_lines
import npm_packages
from listing_lines import ROOT, HighlightTests, Program, rows

HERE = pathlib.Path(__file__).resolve().parent
KIT = ROOT / "editors" / "vscode"
LIBRARIES = ("vscode-oniguruma", "vscode-textmate")
PROGRAM = Program(pathlib.Path(sys.argv.pop()).resolve())
MODULES = pathlib.Path(sys.argv.pop()).resolve()

KIND_OF_SCOPE = {
    "": "",
    "support.function.vorstek": "instruction",
    "keyword.control.jump.vorstek": "jump",
    "keyword.control.conditional.vorstek": "test",
    "keyword.control.stop.vorstek": "stop",
    "storage.type.label.vorstek": "label",
    "entity.name.label.vorstek": "target",
    "variable.other.register.vorstek": "register",
    "variable.language.indirect.vorstek": "indirect",
    "constant.numeric.digits.vorstek": "digits",
    "constant.numeric.vorstek": "number",
    "comment.line.semicolon.vorstek": "comment",
    "invalid.illegal.vorstek": "error",
}


def read_kit(lines):
    """For each line, the scopes of its characters; and the problem in it."""
    done = subprocess.run(["node", HERE / "read_kit.js", KIT, MODULES / "node_modules"],
                          input=json.dumps(lines), check=True, capture_output=True,
                          encoding="utf-8", timeout=120)
    return json.loads(done.stdout)


def read_json(name):
    return json.loads((KIT / name).read_text(encoding="utf-8"))


class GrammarTest(HighlightTests, unittest.TestCase):

    program = PROGRAM

    def kinds_of(self, lines):
        return [[KIND_OF_SCOPE[scope] for scope in scopes] for scopes in read_kit(lines)[0]]

    def test_it_has_no_words_beside_those_of_the_table(self):
        alternatives = [match for pattern in read_json("syntaxes/vorstek.tmLanguage.json")["patterns"]
                        for match in re.findall(r"^\^\[ \\t\]\*\(([^?(][^()]*)\)", pattern["match"])]
        words = [word.replace("\\", "") for match in alternatives for word in match.split("|")]
        self.assertEqual(sorted(words),
                         sorted(row[0] for row in rows() if not row[0].endswith(" i")))


class ProblemMatcherTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def assert_problems(self, name, text):
        """Compares with the findings as objects. Returns how many are errors and
        how many are warnings."""
        (self.folder / name).write_text(text, encoding="utf-8")
        printed = PROGRAM.run("check", name, cwd=self.folder).stdout.splitlines()
        reported = PROGRAM.run("check", "--json", name, cwd=self.folder).stdout.splitlines()
        problems = read_kit(printed)[1]
        for line, problem, finding in zip(printed, problems, map(json.loads, reported), strict=True):
            with self.subTest(line=line):
                warning = finding["severity"] == "warning"
                message = finding["text"].removeprefix("Error: ")
                if finding["suggestion"]:
                    message += f": did you mean {finding['suggestion']}?"
                self.assertEqual(problem, {
                    "file": name, "line": str(finding["line"]),
                    "column": str(finding["column"]) if warning else None,
                    "severity": "warning" if warning else None, "message": message,
                    "code": finding["name"] if warning else None})
        severities = [problem["severity"] for problem in problems]
        return severities.count(None), severities.count("warning")

    def test_warnings(self):
        self.assertEqual(self.assert_problems("a b.txt", "; a:3: b\nLBL 1\nLBL 1\n\tGTO\t7\n1e300\n"),
                         (0, 4))

    def test_errors(self):
        wrong = [text for text, kinds in listing_lines.LINES if "error" in kinds.split()]
        errors, warnings = self.assert_problems("a.txt", "\n".join([*wrong, *99 * ["ENTER"]]) + "\n")
        self.assertEqual(errors, len(wrong) + 1)
        self.assertGreater(warnings, 0)

    def test_other_lines_are_no_problems(self):
        self.assertEqual(read_kit(["", "1 file", "vorstek-cli: cannot read a.txt", "a.txt: 3"])[1],
                         4 * [None])


class ManifestTest(unittest.TestCase):

    def setUp(self):
        self.manifest = read_json("package.json")
        self.contributes = self.manifest["contributes"]

    def test_files_that_it_names_are_there_and_no_others(self):
        named = {"package.json", "README.md"}
        for entries in self.contributes.values():
            for entry in entries:
                named |= {entry[key].removeprefix("./") for key in ("path", "configuration")
                          if key in entry}
        self.assertEqual(named, {path.relative_to(KIT).as_posix() for path in KIT.rglob("*")
                                 if path.is_file()})

    def test_names_agree(self):
        self.assertEqual((self.manifest["name"], self.manifest["publisher"], self.manifest["license"]),
                         ("vorstek", "vorstek", "MIT"))
        language, = self.contributes["languages"]
        self.assertEqual(language["extensions"], [".vorstek"])
        for entry in (*self.contributes["grammars"], *self.contributes["snippets"]):
            self.assertEqual(entry["language"], language["id"])
        grammar, = self.contributes["grammars"]
        self.assertEqual(grammar["scopeName"], read_json(grammar["path"])["scopeName"])
        matcher, = self.contributes["problemMatchers"]
        self.assertIn(f'"${matcher["name"]}"', (KIT / "README.md").read_text())

    def test_the_version_is_that_of_the_project(self):
        version = re.search(r"project\(Vorstek VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual(self.manifest["version"], version + ".0")

    def test_words_and_comments(self):
        configuration = read_json("language-configuration.json")
        self.assertEqual(configuration["comments"], {"lineComment": ";"})
        self.assertEqual(re.findall(configuration["wordPattern"], "STO+ .5;x<=y"), ["STO+", ".5", "x<=y"])


class SnippetTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.snippets = read_json("snippets/vorstek.json")

    def expanded(self, name, choice=0, last=""):
        """The snippet as it is inserted, with `last` at its last stop."""
        text = "\n".join(self.snippets[name]["body"]).replace("$0", last)
        text = re.sub(r"\$\{\d\|(.*?)\|\}", lambda match: match[1].split(",")[choice], text)
        return re.sub(r"\$\{\d:(.*?)\}", r"\1", text) + "\n"

    def run_program(self, text, *arguments):
        (self.folder / "a.txt").write_text(text)
        done = PROGRAM.run("run", "a.txt", *arguments, cwd=self.folder)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return dict(line.split() for line in done.stdout.splitlines())

    def test_prefixes_are_those_of_the_description(self):
        self.assertEqual([snippet["prefix"] for snippet in self.snippets.values()],
                         re.findall(r"^\| `(\w+)` \|", (KIT / "README.md").read_text(), re.MULTILINE))

    def test_they_are_in_the_canonical_form(self):
        for name in self.snippets:
            (self.folder / "a.txt").write_text(self.expanded(name, last="sin"))
            done = PROGRAM.run("fmt", "--diff", "a.txt", cwd=self.folder)
            self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))

    def test_the_loop_runs_ten_times(self):
        text = "0\nSTO 5\n" + self.expanded("Loop", last="1\nSTO+ 5") + "RCL 5\n"
        self.assertEqual(self.run_program(text)["X"], "10.00")

    def test_the_subroutine_returns(self):
        text = "GSB 2\n1\n+\nR/S\n" + self.expanded("Subroutine", last="5")
        self.assertEqual(self.run_program(text)["X"], "6.00")

    def test_the_condition_skips_when_true(self):
        choices = re.search(r"\|(.*)\|", self.snippets["Conditional"]["body"][0])[1].split(",")
        self.assertEqual(choices, [row[0] for row in rows() if row[2] == "rlSkip" and row[0][0] == "x"])
        for number in range(len(choices)):
            # 1 in Y, 0 in X: true for these.
            wanted = "0.00" if choices[number] in ("x<=y", "x!=y", "x=0") else "8.00"
            text = self.expanded("Conditional", number, last="8")
            with self.subTest(test=choices[number]):
                self.assertEqual(self.run_program(text, "--y", "1", "--x", "0")["X"], wanted)

    def test_the_plot_has_one_point_more_than_steps(self):
        self.run_program(self.expanded("Plot"), "--z", "0", "--y", "30", "--x", "3", "--graph", "g.txt")
        points = [line.split(",") for line in (self.folder / "g.txt").read_text().splitlines()
                  if re.match(r"[-+ ]*\d", line)]
        self.assertEqual([[round(float(value), 6) for value in point] for point in points],
                         [[0, 0], [30, 0.5], [60, 0.866025], [90, 1]])


if __name__ == "__main__":
    npm_packages.fetch(HERE, MODULES, *LIBRARIES)
    listing_lines.main(sys.argv[0])
