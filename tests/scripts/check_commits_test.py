"""scripts/check-commits, on a repository made for each test."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check-commits"
BODY = "\n\nIt was wrong, and now it is right.\n"


def lines(count, mark="line"):
    return "".join(f"{mark} {number}\n" for number in range(count))


class CheckCommitsTest(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.git("init", "-q", "-b", "main")
        self.commit("project: begin", {"first.txt": "first\n"})

    def run_in_folder(self, *command):
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith("GIT_")}
        for role in ("AUTHOR", "COMMITTER"):
            environment[f"GIT_{role}_NAME"] = "Anna"
            environment[f"GIT_{role}_EMAIL"] = "anna@vorstek.invalid"
        environment.update(GIT_CONFIG_GLOBAL=os.devnull, GIT_CONFIG_SYSTEM=os.devnull)
        return subprocess.run(command, cwd=self.folder, env=environment, check=False,
                              capture_output=True, text=True)

    def git(self, *arguments):
        done = self.run_in_folder("git", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def commit(self, message, files):
        for name, content in files.items():
            path = self.folder / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content if isinstance(content, bytes) else content.encode())
        self.git("add", "--all")
        self.git("commit", "-q", "--cleanup=verbatim", "-m", message)

    def check(self, *arguments):
        return self.run_in_folder(sys.executable, str(SCRIPT), *arguments)

    def assert_findings(self, *wanted, base="HEAD~1"):
        done = self.check(base)
        hashes = self.git("rev-list", "--no-merges", "HEAD").split()
        found = []
        for line in done.stdout.splitlines():
            name, finding = line.split(": ", 1)
            self.assertTrue(any(commit.startswith(name) for commit in hashes), line)
            found.append(finding)
        self.assertEqual(found, list(wanted))
        self.assertEqual((done.returncode, done.stderr), (1 if wanted else 0, ""))

    def test_a_subject_has_at_most_72_characters(self):
        self.commit("engine: " + 64 * "x", {"a": "a\n"})
        self.assert_findings()
        self.commit("engine: " + 65 * "x", {"a": "b\n"})
        self.assert_findings("the subject has 73 characters, more than 72")

    def test_a_subject_begins_with_its_area(self):
        for subject in ("Clamp the distances", "engine : clamp", ": clamp", "engine:clamp",
                        "engine: "):
            with self.subTest(subject=subject):
                self.commit(subject, {"a": subject})
                self.assert_findings("the subject does not begin with an area and a colon")
        for subject in ("graph, imaging: clamp", "window tests: clamp", ".ci/run: clamp",
                        "vorstek-cli: clamp: the rest"):
            with self.subTest(subject=subject):
                self.commit(subject, {"a": subject})
                self.assert_findings()

    def test_a_blank_line_follows_the_subject(self):
        self.commit("engine: clamp\nthe distances", {"a": "a\n"})
        self.assert_findings("no blank line follows the subject")

    def test_more_than_40_added_lines_need_a_body(self):
        self.commit("engine: clamp", {"a": lines(40)})
        self.assert_findings()
        self.commit("engine: clamp", {"b": lines(41)})
        self.assert_findings("adds 41 lines without a body that gives the reason")
        self.commit("engine: clamp" + BODY, {"c": lines(41)})
        self.assert_findings()

    def test_more_than_600_added_lines_are_too_many(self):
        self.commit("engine: clamp" + BODY, {"a": lines(600)})
        self.assert_findings()
        self.commit("engine: clamp" + BODY, {"b": lines(300), "c": lines(301, "other")})
        self.assert_findings("adds 601 lines, more than 600")

    def test_moved_lines_do_not_count(self):
        self.commit("engine: clamp" + BODY, {"a": lines(500)})
        text = lines(500)
        self.git("mv", "a", "b")
        self.commit("engine: rename", {})
        self.assert_findings()
        self.commit("engine: divide", {"b": text[:2000], "c": text[2000:]})
        self.assert_findings()
        self.commit("engine: repeat", {"d": text})
        self.assert_findings("adds 500 lines without a body that gives the reason")

    def test_binary_golden_and_drawn_files_do_not_count(self):
        self.commit("art: draw", {"a.bmp": b"BM\0" + 700 * b"\n", "a.svg": lines(700),
                                  "tests/golden/a.txt": lines(700)})
        self.assert_findings()

    def test_a_line_that_looks_like_a_header_counts(self):
        self.commit("docs: explain", {"a": 41 * "++ b/a.svg\n"})
        self.assert_findings("adds 41 lines without a body that gives the reason")

    def test_all_commits_are_judged_from_the_first_but_not_merges(self):
        self.git("checkout", "-q", "-b", "side")
        self.commit("First", {"a": "a\n"})
        self.commit("graph: second", {"b": lines(41)})
        self.git("checkout", "-q", "main")
        self.git("merge", "-q", "--no-ff", "-m", "Merge of the side", "side")
        self.assert_findings("the subject does not begin with an area and a colon",
                             "adds 41 lines without a body that gives the reason", base="HEAD~1")

    def test_without_a_base_it_begins_where_origin_main_was_left(self):
        self.commit("Wrong", {"a": "a\n"})
        self.assertEqual(self.check().stdout.count("\n"), 1)
        self.git("update-ref", "refs/remotes/origin/main", "HEAD")
        self.commit("engine: right", {"a": "b\n"})
        self.assertEqual(self.check().stdout, "")
        self.commit("Wrong again", {"a": "c\n"})
        self.assertEqual(self.check().stdout.count("\n"), 1)

    def test_what_git_cannot_read_is_an_error_of_its_own(self):
        done = self.check("nowhere")
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("nowhere", done.stderr)
        self.assertEqual(self.check("main", "main").returncode, 2)


if __name__ == "__main__":
    unittest.main()
