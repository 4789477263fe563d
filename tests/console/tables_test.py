"""vorstek-cli plot: what it reads, from where, and what it says about it."""

import os
import re
import threading

from console_case import ConsoleCase, LinuxCase, main

PLAIN = "ExplicitX\n0 , 1 , 5.5\n1 , 2 , 4.25\n2 , 4 , 3\n"


class TableCase(ConsoleCase):

    def plot(self, *arguments, code=0, **options):
        result = self.start("plot", *arguments, **options)
        self.assertEqual((result.code, result.out), (code, ""), result.err)
        return result

    def picture(self, *arguments, err="", **options):
        """The picture that these arguments draw, without its name, which may be that of the
        data file, and what is said about them."""
        result = self.plot(*arguments, "made.svg", **options)
        self.assertEqual(result.err, err)
        return re.sub(rb"<title>[^<]*</title>\n(?=<desc>)", b"", self.read("made.svg"))

    def picture_of(self, text):
        self.write("plain.txt", text)
        return self.picture("plain.txt")

    def assert_refused(self, *arguments, code=2, err, **options):
        self.write("old.svg", "old")
        result = self.plot(*arguments, "old.svg", code=code, **options)
        self.assertEqual(result.err, err)
        self.assertEqual(self.read("old.svg"), b"old")


class FormTest(TableCase):

    def assert_same(self, text, *options, plain=PLAIN):
        self.write("other.csv", text)
        self.assertEqual(self.picture("other.csv", *options), self.picture_of(plain))

    def test_columns(self):
        text = "9 3 0 5.5 1\n9 3 1 4.25 2\n9 3 2 3 4\n"
        self.assert_same(text, "--columns", "3,5,4")
        self.assert_same(text, "--columns=0,5", plain="1\n2\n4\n")
        self.assertNotEqual(self.picture("other.csv", "--columns", "3,4,5"),
                            self.picture("plain.txt"))

    def test_separators(self):
        self.assert_same("0;1;5.5\n1;2;4.25\n2;4;3\n", "--separator", ";", "--columns", "1,2,3")
        self.assert_same("0\t1\t5.5\n1\t2\t4.25\n2\t4\t3\n", "--separator", "tab",
                         "--columns", "1,2,3")
        self.assert_same("a|b|c\n0|1|x y\n1|2|\n2|4|z\n", "--separator", "|", "--columns", "1,2",
                         plain='ExplicitX\nHorzAxisLabel "a"\nSetLabels "b"\n0 1\n1 2\n2 4\n')

    def test_decimal_commas(self):
        self.assert_same("0;1;5,5\n1;2;4,25\n2;4;3\n", "--separator", ";", "--decimal-comma",
                         "--columns", "1,2,3")

    def test_lines_to_skip(self):
        self.assert_same("7 7\n8 8\n" + PLAIN, "--skip", "2")

    def test_a_heading_of_names(self):
        self.assert_same("ExplicitX\ntime,height,speed\n" + PLAIN[10:],
                         plain='ExplicitX\nHorzAxisLabel "time"\nSetLabels "height" "speed"\n'
                               + PLAIN[10:])

    def test_several_files(self):
        self.write("one.txt", 'SetLabels "one"\n1\n2\n4\n')
        self.write("two.txt", 'SetLabels "two"\n5.5\n4.25\n3\n')
        both = self.picture("one.txt", "two.txt")
        self.assertEqual(both, self.picture_of('SetLabels "one" "two"\n1 5.5\n2 4.25\n4 3\n'))
        self.assertNotEqual(both, self.picture("two.txt", "one.txt"))

    def test_standard_input(self):
        self.assertEqual(self.picture("-", stdin=PLAIN), self.picture_of(PLAIN))
        self.write("one.txt", 'SetLabels "one"\n1\n2\n4\n')
        self.write("two.txt", 'SetLabels "two"\n5.5\n4.25\n3\n')
        self.assertEqual(self.picture("one.txt", "-", stdin=self.read("two.txt")),
                         self.picture("one.txt", "two.txt"))


class FindingTest(TableCase):

    def test_warnings_do_not_stop_the_picture(self):
        self.write("data.txt", "some notes\nand more of them\n1 2 3\n4 nan 6 m\n7 8\n")
        err = ('data.txt:1:1: warning: heading skipped: "some notes" [heading-skipped]\n'
               "data.txt:2:1: warning: heading skipped: 4 names for 3 columns [heading-skipped]\n"
               'data.txt:4:3: warning: "nan" is a gap [gap-word]\n'
               'data.txt:4:9: warning: text after column 3 ignored: "m" [text-ignored]\n'
               "data.txt:5:1: warning: 2 numbers where the first row has 3; drawn as 2 data lines"
               " [fewer-numbers]\n")
        self.assertIn(b"<svg", self.picture("data.txt", err=err))
        self.assert_refused("data.txt", "--strict", code=1,
                            err=err + "vorstek-cli: nothing was drawn, because of --strict\n")

    def test_no_warning_is_no_error_with_strict(self):
        self.write("data.txt", PLAIN)
        self.assertEqual(self.picture("data.txt", "--strict"), self.picture("data.txt"))

    def test_other_encodings_and_line_ends(self):
        self.write("mark.txt", "\ufeff1\n2\n")
        self.picture("mark.txt", err="mark.txt:1:1: warning: the file begins with a byte order "
                                     "mark, which is skipped [byte-order-mark]\n")
        self.write("mac.txt", "1\r2\r")
        self.picture("mac.txt", err="mac.txt:1:2: warning: a carriage return without a line feed "
                                    "ends a line here, and maybe others [lone-cr]\n")
        self.write("wide.txt", "1\n2\n".encode("utf-16"))
        self.assert_refused("wide.txt",
                            err="wide.txt:1: Error: this is UTF-16; save the file as UTF-8\n")

    def test_tables_that_are_refused(self):
        self.write("good.txt", PLAIN)
        self.write("bad.txt", "1 2\n3 4\nend 5\n")
        self.assert_refused("good.txt", "bad.txt", err='bad.txt:3: Error: no number in "end 5"\n')
        self.assert_refused("-", stdin="no numbers\n",
                            err="<stdin>:1: Error: the file ends without a row of numbers\n")
        self.write("empty.txt", "")
        self.assert_refused("empty.txt",
                            err="empty.txt: Error: the file ends without a row of numbers\n")
        self.assert_refused("good.txt", "--columns", "1,7",
                            err="good.txt:2: Error: there is no column 7: the first row has 3\n")

    def test_why_a_file_cannot_be_read(self):
        self.write("good.txt", PLAIN)
        os.mkdir(self.path("folder"))
        self.assert_refused("good.txt", "missing.txt",
                            err="vorstek-cli: cannot read 'missing.txt': no such file\n")
        self.assert_refused("folder", err="vorstek-cli: cannot read 'folder': is a directory\n")


class UsageTest(TableCase):

    def test_options_that_do_not_go_together(self):
        self.write("data.txt", PLAIN)
        for arguments, text in (
                (("data.txt", "--separator", ",", "--decimal-comma"),
                 "--decimal-comma needs a --separator that is no comma"),
                (("data.txt", "--window", "--skip", "1"), "--skip does not go with --window"),
                (("data.txt", "--window", "--strict"), "--strict does not go with --window"),
                (("data.txt", "data.txt", "--window"), "--window draws one data file"),
                (("-", "--window"), "--window draws no standard input")):
            with self.subTest(arguments=arguments):
                self.assert_refused(*arguments, err=f"vorstek-cli: {text}\n")

    def test_data_is_never_overwritten(self):
        self.write("data.svg", PLAIN)
        self.write("more.txt", PLAIN)
        os.link(self.path("data.svg"), self.path("link.svg"))
        for window in ((), ("--window",)):
            self.assertEqual(
                self.plot("data.svg", "data.svg", *window, code=2).err,
                "vorstek-cli: cannot write 'data.svg': it is also the input\n")
        self.assertEqual(self.plot("more.txt", "data.svg", "link.svg", code=2).err,
                         "vorstek-cli: cannot write 'link.svg': it is also 'data.svg'\n")
        self.assertEqual(self.read_text("data.svg"), PLAIN)


class PipeTest(TableCase, LinuxCase):

    def test_data_from_pipes(self):
        plain = self.picture_of(PLAIN)
        self.assertEqual(self.picture("/dev/stdin", stdin=PLAIN), plain)
        os.mkfifo(self.path("pipe.txt"))
        writer = threading.Thread(target=self.write, args=("pipe.txt", PLAIN))
        writer.start()
        self.assertEqual(self.picture("pipe.txt"), plain)
        writer.join()

    def test_data_is_not_overwritten_through_a_link(self):
        self.write("data.txt", PLAIN)
        os.symlink("data.txt", self.path("out.svg"))
        self.assertEqual(self.plot("data.txt", "out.svg", code=2).err,
                         "vorstek-cli: cannot write 'out.svg': it is also 'data.txt'\n")
        self.assertEqual(self.read_text("data.txt"), PLAIN)

    def test_no_room_for_a_copy_of_standard_input(self):
        self.assert_refused("-", stdin=PLAIN, env={**os.environ, "TMPDIR": "/nowhere"},
                            err="vorstek-cli: cannot read standard input: no temporary file can be "
                                "created for it\n")


if __name__ == "__main__":
    main()
