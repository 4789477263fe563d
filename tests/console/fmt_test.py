"""vorstek-cli fmt: the canonical form of listings."""

import os
import stat
import subprocess

from console_case import TIMEOUT, ConsoleCase, LinuxCase, main

ROUGH = "; head\n LBL\t1;start\n5\n\n\nENTER   \n"
SMOOTH = "; head\nLBL 1           ;start\n5\n\nENTER\n"
DIFF = """--- program.txt
+++ program.txt
@@ -1,6 +1,5 @@
 ; head
- LBL\t1;start
+LBL 1           ;start
 5
 
-
-ENTER   
+ENTER
"""


class FmtTest(ConsoleCase):

    def setUp(self):
        super().setUp()
        self.write("program.txt", ROUGH)
        self.write("smooth.txt", SMOOTH)

    def assert_result(self, arguments, code, out="", err="", stdin=b""):
        result = self.start("fmt", *arguments, stdin=stdin)
        self.assertEqual((result.code, result.out, result.err), (code, out, err), arguments)

    def test_a_file_is_replaced(self):
        self.assert_result(["program.txt", "smooth.txt"], 0)
        self.assertEqual(self.read("program.txt"), SMOOTH.encode())
        self.assertEqual(self.read("smooth.txt"), SMOOTH.encode())
        self.assertEqual(sorted(os.listdir(self.folder)), ["program.txt", "smooth.txt"])

    def test_line_ends_stay(self):
        self.write("program.txt", ROUGH.replace("\n", "\r\n"))
        self.assert_result(["program.txt"], 0)
        self.assertEqual(self.read("program.txt"), SMOOTH.replace("\n", "\r\n").encode())

    def test_standard_input(self):
        self.assert_result(["-"], 0, SMOOTH, stdin=ROUGH)
        self.assert_result(["-", "--check"], 1, "<stdin>\n", stdin=ROUGH)
        self.assert_result(["-", "--check", "--name", "new.txt"], 1, "new.txt\n", stdin=ROUGH)
        self.assert_result(["-", "--check"], 0, stdin=SMOOTH)

    def test_check_names_the_files_and_changes_none(self):
        self.assert_result(["--check", "program.txt", "smooth.txt"], 1, "program.txt\n")
        self.assert_result(["--check", "smooth.txt"], 0)
        self.assertEqual(self.read("program.txt"), ROUGH.encode())

    def test_diff_prints_the_changes_and_changes_none(self):
        self.assert_result(["--diff", "smooth.txt", "program.txt"], 0, DIFF)
        self.assert_result(["--check", "--diff", "smooth.txt", "program.txt"], 1, DIFF)
        self.assertEqual(self.read("program.txt"), ROUGH.encode())

    def test_a_name_with_blanks_ends_with_a_tab_in_the_changes(self):
        self.write("two words.txt", ROUGH)
        self.assert_result(["--diff", "two words.txt"], 0,
                           DIFF.replace("program.txt", "two words.txt\t"))
        self.assert_result(["--diff", "-", "--name", "a b"], 0,
                           DIFF.replace("program.txt", "a b\t"), stdin=ROUGH)

    def test_a_listing_with_errors_is_left_alone(self):
        self.listing(" 5", "enter", name="bad.txt")
        error = 'bad.txt:2: Error: unrecognized instr mnemonic "enter": did you mean ENTER?\n'
        self.assert_result(["bad.txt", "program.txt"], 1, err=error)
        self.assertEqual(self.read("bad.txt"), b" 5\nenter\n")
        self.assertEqual(self.read("program.txt"), SMOOTH.encode())
        self.assert_result(["-", "--name", "bad.txt"], 1, err=error, stdin=" 5\nenter\n")
        self.assert_result(["--diff", "bad.txt"], 1, err=error)

    def test_a_line_that_the_loader_splits_is_left_alone(self):
        self.write("long.txt", " 5\n;" + 510 * "x" + "\n")
        result = self.start("fmt", "long.txt")
        self.assertEqual((result.code, result.out), (1, ""))
        self.assertRegex(result.err, r"\Along.txt:2:511: warning: .* \[long-line\]\n\Z")

    def test_a_file_of_other_things_is_given_up(self):
        self.write("other.txt", 200_000 * "x\n")
        result = self.start("fmt", "other.txt")
        self.assertEqual((result.code, result.out, result.err.count("\n")), (1, "", 1001))
        self.assertTrue(result.err.endswith(
            "other.txt:1001: Error: too many errors; the rest is not read\n"))
        self.assertEqual(self.read("other.txt"), 200_000 * b"x\n")

    def test_a_missing_file_does_not_hide_the_others(self):
        self.assert_result(["missing.txt", "program.txt"], 2,
                           err="vorstek-cli: cannot read 'missing.txt': no such file\n")
        self.assertEqual(self.read("program.txt"), SMOOTH.encode())

    def test_file_names_after_two_dashes(self):
        self.write("--diff", ROUGH)
        self.assert_result(["--", "--diff"], 0)
        self.assertEqual(self.read("--diff"), SMOOTH.encode())


class LinuxFmtTest(LinuxCase):

    def test_permissions_and_links_stay(self):
        self.write("program.txt", ROUGH)
        os.chmod(self.path("program.txt"), 0o640)
        os.symlink("program.txt", self.path("link.txt"))
        self.assertEqual(self.start("fmt", "link.txt").code, 0)
        self.assertTrue(os.path.islink(self.path("link.txt")))
        self.assertEqual(self.read("program.txt"), SMOOTH.encode())
        self.assertEqual(stat.S_IMODE(os.stat(self.path("program.txt")).st_mode), 0o640)

    def test_control_characters_of_a_name_are_quoted_in_the_changes(self):
        for name, quoted in (("two\nlines", r'"two\nlines"'), ("\x01\x1b\x7f7", r'"\001\033\1777"'),
                             ("\a\b\t\n\v\f\r", r'"\a\b\t\n\v\f\r"'),
                             ('"a\\\t', r'"\"a\\\t"'), ('"a', r'"\"a"'), ('b"\\c', 'b"\\c'),
                             (" a", '" a"'), ("a ", '"a "'), ("\u00e9\n", '"\u00e9\\n"')):
            self.write(name, ROUGH)
            self.assertEqual(self.start("fmt", "--diff", name).out,
                             DIFF.replace("program.txt", quoted))

    def test_patch_applies_the_changes_to_files_of_any_name(self):
        names = ("two words.txt", "a  b", "two\nlines", "tab\tname", '"quoted"', 'b"\\c', " a ",
                 "\x01\x1b\x7f7", "caf\u00e9 \u00e9\n", "-x y")
        for name in names:
            self.write(name, ROUGH)
        result = self.start("fmt", "--diff", "--", *names)
        subprocess.run(["patch", "-p0"], cwd=self.folder, input=result.raw_out, check=True,
                       stdout=subprocess.DEVNULL, timeout=TIMEOUT)
        for name in names:
            self.assertEqual(self.read(name), SMOOTH.encode(), name)
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(names))

    def test_a_file_that_is_right_is_not_written(self):
        self.write("smooth.txt", SMOOTH)
        before = os.stat(self.path("smooth.txt"))
        self.assertEqual(self.start("fmt", "smooth.txt").code, 0)
        after = os.stat(self.path("smooth.txt"))
        self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns))

    def test_a_folder_is_refused(self):
        result = self.start("fmt", "/")
        self.assertEqual((result.code, result.out, result.err),
                         (2, "", "vorstek-cli: cannot read '/': is a directory\n"))

    def test_a_pipe_is_written_to_standard_output(self):
        result = self.start("fmt", "/dev/stdin", stdin=ROUGH)
        self.assertEqual((result.code, result.out, result.err), (0, SMOOTH, ""))


if __name__ == "__main__":
    main()
