"""Whatever the input, the program ends by itself, in time, and with one of its
exit codes."""

import os
import random
import time

import console_case
from bitmap import bmp_file
from console_case import LITTLE_DISK, ConsoleCase, LinuxCase, WindowsCase, main
from vocabulary import DIGIT, PLAIN, REGISTER

EVENTS = {"sound", "box", "pause", "state", "error", "bad"}
NAMES = ("program.txt", "other.txt", "data.txt", "missing.txt", "folder", "two words.txt")
FILE_COMMANDS = ("open", "save", "graph open", "graph append", "graph save")
OPTIONS = ("sound", "keep-listing", "keep-registers", "trace")
HEADER_LINES = ("ImplicitX", "ExplicitX", 'Title "a"', "Title a", 'HorzAxisLabel ""',
                'SetLabels "a" , "b', 'SetLabels ,,,"" x "y"')


def rounds(count):
    """Starting a process through the emulator costs a hundred times more."""
    return count if console_case.platform == "Linux" else max(1, count // 15)


class Chance(random.Random):
    """Random input that is nearly right."""

    def some(self, most, make):
        return [make() for _ in range(self.randrange(most))]

    def any_bytes(self, most):
        return bytes(self.some(most, lambda: self.randrange(256)))

    def number_text(self):
        return self.choice((
            str(self.randrange(100)),
            repr(self.uniform(-1e3, 1e3))[:12],
            f"{self.uniform(-9, 9):.3f}e{self.randrange(-99, 100)}",
            ".", "1e", "-", "", "99999999999999999999"))

    def listing_line(self):
        return self.choice((
            lambda: self.choice(PLAIN),
            lambda: f"{self.choice(DIGIT)} {self.choice('0123456789')}",
            lambda: f"{self.choice(REGISTER)} {self.choice(('1', '.5', '.9', '0', '.10'))}",
            self.number_text,
            lambda: f"{self.choice(PLAIN + DIGIT + REGISTER)} {self.number_text()} ;;",
            lambda: ";" + self.number_text()))()

    def good_line(self):
        """A listing line that the loader takes; numbers are small."""
        return self.choice((
            lambda: self.choice(PLAIN),
            lambda: f"{self.choice(DIGIT)} {self.choice('0123')}",
            lambda: f"{self.choice(REGISTER)} {self.choice(('0', '1', '.1', '.2', '.5'))}",
            lambda: str(self.randrange(-20, 40))))()

    def script_line(self):
        return self.choice((
            lambda: "key " + " ".join(self.some(6, lambda: str(self.randrange(1, 33)))),
            lambda: f"down {self.randrange(34)}",
            lambda: f"up {self.randrange(34)}",
            lambda: "text " + "".join(self.some(9, lambda: self.choice("0123456789.e+-*/\\rx"))),
            lambda: "answer " + self.choice(("ok", "cancel", "yes no", "retry", "maybe")),
            lambda: f"{self.choice(FILE_COMMANDS)} {self.choice(NAMES)}",
            lambda: f"option {self.choice(OPTIONS)} {self.choice(('on', 'off'))}",
            lambda: f"limit {self.choice(('1', '7', '50', '300'))}",
            lambda: f"at {self.randrange(60)} {self.choice(('down', 'up'))} {self.randrange(34)}",
            lambda: f"at {self.randrange(60)} text {self.choice(('5', 'e', chr(92) + 'e', 'x'))}",
            lambda: "state",
            lambda: self.choice(("reset", "walk", "at", "limit x", "key", "", "# comment"))))()

    def data_line(self):
        return self.choice((
            lambda: self.choice((" , ", " ", ",", "-", ";")).join(self.some(12, self.number_text)),
            lambda: self.choice(HEADER_LINES),
            lambda: "// " + self.number_text(),
            lambda: 150 * "1 "))()


class RandomTest(ConsoleCase):

    def setUp(self):
        super().setUp()
        os.mkdir(self.path("folder"))

    def put_files(self, chance):
        for name in ("program.txt", "other.txt"):
            self.write(name, "\n".join(chance.some(90, chance.good_line)))
        self.write("two words.txt", "\n".join(chance.some(150, chance.listing_line)))
        self.write("data.txt", "\n".join(chance.some(60, chance.data_line)))

    def assert_events(self, result):
        self.assertLessEqual({event["event"] for event in result.events}, EVENTS)
        bad = any(event["event"] == "bad" for event in result.events)
        self.assertEqual((result.code, result.err), (2 if bad else 0, ""))

    def test_scripts_that_are_nearly_right(self):
        for seed in range(rounds(45)):
            chance = Chance(seed)
            self.put_files(chance)
            # Runs are kept short; "reset" makes the next one long again.
            lines = ["limit 200"] + [chance.script_line() for _ in range(150)]
            with self.subTest(seed=seed):
                self.assert_events(self.start("script", stdin="\n".join(lines)))

    def test_scripts_of_random_bytes(self):
        for seed in range(rounds(30)):
            chance = Chance(seed)
            lines = [chance.choice((chance.any_bytes(60),
                                    chance.script_line().encode() + chance.any_bytes(4)))
                     for _ in range(150)]
            with self.subTest(seed=seed):
                result = self.start("script", stdin=b"\n".join(lines))
                self.assertLessEqual({event["event"] for event in result.events}, EVENTS)
                self.assertIn(result.code, (0, 2))

    def test_listings_that_are_nearly_right(self):
        for seed in range(rounds(60)):
            chance = Chance(seed)
            self.put_files(chance)
            checked = self.start("check", "program.txt", "two words.txt")
            ran = self.start("run", "program.txt", "--json", "--max-lines", "3000", "--x", "3",
                             "--reg", "0=12")
            with self.subTest(seed=seed):
                self.assertLess(checked.code, 2)
                self.assertEqual(checked.code == 1, ": Error: " in checked.out
                                 or "Program memory overflow" in checked.out)
                self.assertNotEqual(ran.code, 2, ran.err)
                self.assertEqual(ran.code == 1, "Error: " in ran.state["display"], ran.err)
                self.assertEqual(len(ran.state["program"]), 99)

    def test_listings_of_random_bytes(self):
        for seed in range(rounds(30)):
            chance = Chance(seed)
            self.write("program.txt", b"\n".join(chance.some(200, lambda: chance.any_bytes(30))))
            checked = self.start("check", "program.txt")
            ran = self.start("run", "program.txt", "--max-lines", "3000")
            with self.subTest(seed=seed):
                self.assertLess(checked.code, 2)
                self.assertEqual(ran.code == 2, checked.code == 1)

    def test_random_command_lines(self):
        self.listing("LBL 1", "5", "STO 3", "PAUSE", "SumG", name="program.txt")
        self.write("data.txt", "key 20\nstate\nwalk\n")
        words = ["run", "debug", "check", "fmt", "script", "plot", "--title", "--type", "stoop",
                 "--size", "90x60", "--grid", "--no-legend", "graph.svg", "--x", "--y", "--reg", "--label", "--trace", "--graph",
                 "--max-lines", "--registers", "--json", "--realtime", "--help", "--", "-", "",
                 "5=1", "1", "-3e5", "program.txt", "program.txt", "data.txt", "missing.txt",
                 "folder", "trace.txt", "graph.txt", "5=", "x y", "\u00e9"]
        chance = Chance(4)
        for _ in range(rounds(150)):
            arguments = [chance.choice(("run", "run", "run", "debug", "check", "fmt", "script",
                                        "plot", "walk"))]
            arguments += chance.some(7, lambda: chance.choice(words))
            self.start(*arguments)      # its exit code is looked at there

    def test_random_lines_in_a_debugger(self):
        self.listing("LBL 1", "STO 3", "GSB 2", "DSZ", "R/S", "GTO 1", "1/x", "LBL 2", "SumG", "RTN",
                     name="program.txt")
        words = ["break", "delete", "watch", "unwatch", "step", "next", "until", "finish",
                 "continue", "back", "where", "counts", "undo", "redo", "list", "load", "run",
                 "program.txt", "12", "LBL 2", "LBL", "if", "x<0", "r3", "i", "r30", "<", "5",
                 "STO 0", "R/S", "GSB 1", "GTO 2", "1e99", "", "\t", "\u00e9", "99999999999999999999"]
        chance = Chance(5)
        for _ in range(rounds(40)):
            lines = chance.some(30, lambda: " ".join(chance.some(4, lambda: chance.choice(words))))
            result = self.start("debug", "program.txt", stdin="\n".join(lines) + "\n")
            self.assertIn(result.code, (0, 1))
            self.assertEqual(result.code == 1, result.err != "")


class LargeFileTest(ConsoleCase):

    LINES = 50 * 1024 * 1024 // 64

    def test_a_listing_of_50_megabytes(self):
        self.write("program.txt", self.LINES * (b";" + 62 * b"x" + b"\n") + b"5\n")
        self.assertEqual(self.start("check", "program.txt").code, 0)
        state = self.start("run", "program.txt").out.splitlines()
        self.assertEqual(state[-1], "X   5.00")
        self.assertEqual(self.boxes("open program.txt", "save saved.txt"), [])
        self.assertEqual(os.path.getsize(self.path("saved.txt")), self.LINES * 65 + 3)

    def test_a_line_of_50_megabytes(self):
        self.write("program.txt", self.LINES * 64 * b"x")
        result = self.start("check", "program.txt")
        # One warning says that the line is split; after 1000 errors, one more that
        # the rest is not read.
        self.assertEqual((result.code, result.out.count("\n")), (1, 1002))
        self.assertEqual(self.start("run", "program.txt").code, 2)

    def test_a_data_file_of_100_megabytes(self):
        row = b"1.234567 , 2.345678 , 3.456789 , 4.567890 , 5.678901 , 6.789012 , 7.890123 , 8\n"
        self.write("data.txt", 100 * 1024 * 1024 // len(row) * row + b"9 8 7\n")
        self.assertEqual(self.boxes("graph open data.txt"), [])
        self.write("data.txt", 100 * 1024 * 1024 // len(row) * row + b"nine\n")
        text, = (box["text"] for box in self.boxes("graph open data.txt"))
        self.assertEqual(text, "Could not read the file:\n data.txt")

    def test_data_and_script_of_megabytes(self):
        self.write("data.txt", 500000 * b"1 , 2\n")
        self.write("script.txt", b"graph open data.txt\n" + 200000 * b"# comment\n" + b"walk " +
                   1000000 * b"x" + b"\n")
        result = self.start("script", "script.txt")
        self.assertEqual([event["event"] for event in result.events], ["bad"])
        self.assertEqual(len(result.events[0]["text"]), 1000005)


class SpecialFileTest(LinuxCase):
    """Folders, and devices and pipes given as files to write, are refused at once."""

    def setUp(self):
        super().setUp()
        os.mkdir(self.path("folder"))
        os.mkfifo(self.path("pipe.txt"))
        os.symlink("loop.txt", self.path("loop.txt"))
        os.symlink("/dev/zero", self.path("zero.txt"))
        self.listing("5", "SumG", name="program.txt")

    def assert_quick(self, *arguments, stdin=b""):
        begin = time.monotonic()
        result = self.start(*arguments, stdin=stdin, **LITTLE_DISK)
        self.assertLess(time.monotonic() - begin, 10, arguments)
        return result

    def test_as_input(self):
        for name, why in (("folder", "is a directory"), ("/dev/zero", "longer than 64 MB"),
                          ("zero.txt", "longer than 64 MB"), ("loop.txt", "too many links"),
                          ("folder/x", "no such file"), (300 * "n", "its name is too long"),
                          ("program.txt/x", "a part of its path is not a directory")):
            for command in ("run", "check", "fmt", "script"):
                result = self.assert_quick(command, name)
                self.assertEqual((result.code, result.out), (2, ""), (command, name))
                self.assertEqual(result.err, f"vorstek-cli: cannot read '{name}'"
                                             f"{': ' if why else ''}{why}\n")
        for name in ("folder", "/dev/zero", "zero.txt", "pipe.txt", "loop.txt", "/dev/tty",
                     "folder/x", "program.txt/x"):
            for command in ("open", "graph open", "graph append"):
                box, = self.assert_quick("script", stdin=f"{command} {name}\n").events
                self.assertIn(name, box["text"])

    def test_as_output(self):
        for name in ("folder", "pipe.txt", "loop.txt", "folder/x/y", "program.txt/x"):
            for command in ("save", "graph save"):
                result = self.assert_quick("script", stdin=f"text 1\nkey 4 28\n{command} {name}\n")
                self.assertEqual(result.events[-1]["text"], f"Could not write the file:\n {name}")

    def test_why_an_output_cannot_be_written(self):
        os.symlink("/dev/full", self.path("full.txt"))
        os.symlink("nowhere/x", self.path("lost.txt"))
        self.write("data.txt", "1,2\n3,4\n")
        self.write("a.bmp", bmp_file(2, 2))
        os.mkdir(self.path("folder.svg"))
        os.symlink("loop.svg", self.path("loop.svg"))
        long = 300 * "n" + ".txt"
        for arguments, why in (
                (["--trace", "folder"], "is a directory"),
                (["--trace", "missing/x"], "no such directory"),
                (["--trace", "program.txt/x"], "a part of its path is not a directory"),
                (["--graph", long], "its name is too long"),
                (["--trace", "loop.txt"], "too many links"),
                (["--graph", "missing/x.txt"], "no such directory"),
                (["--graph", "program.txt/x.txt"], "a part of its path is not a directory"),
                (["--graph", "folder.svg"], "is a directory"),
                (["--graph", "lost.txt"], "no such directory"),
                (["--graph", "full.txt"], "no space left on the device")):
            result = self.assert_quick("run", "program.txt", *arguments)
            self.assertEqual((result.code, result.err.splitlines()[-1]),
                             (2, f"vorstek-cli: cannot write '{arguments[1]}': {why}"))
        for command in (["plot", "data.txt"], ["gif", "a.bmp"]):
            for name, why in (("folder.svg", "is a directory"), ("loop.svg", "too many links"),
                              ("missing/x.svg", "no such directory")):
                result = self.assert_quick(*command, name)
                self.assertEqual((result.code, result.err),
                                 (2, f"vorstek-cli: cannot write '{name}': {why}\n"))
        self.listing(" 5 ", name="mine.txt")
        os.chmod(self.path("mine.txt"), 0o444)
        result = self.assert_quick("fmt", "mine.txt")
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot write 'mine.txt': permission denied\n"))

    def test_as_trace(self):
        for name in ("folder", "pipe.txt", "loop.txt", "program.txt/x"):
            result = self.assert_quick("run", "program.txt", "--trace", name)
            self.assertEqual(result.code, 2, name)
            self.assertIn(name, result.err)

    def test_a_trace_is_a_regular_file(self):
        for name in ("zero.txt", "/dev/null", "/dev/stdout", "/dev/stderr", "/dev/fd/2",
                     "/dev/vorstek.txt", "/proc/vorstek.txt"):
            result = self.assert_quick("run", "program.txt", "--trace", name)
            self.assertEqual((result.code, result.out, result.err),
                             (2, "", f"vorstek-cli: cannot write '{name}': not a regular file\n"))
        self.assertNotIn("zero_older.txt", os.listdir(self.folder))

    def test_a_trace_is_no_open_file_of_the_shell(self):
        with open(self.path("log.txt"), "wb") as log:
            log.write(b"kept")
            log.flush()
            for name in (f"/dev/fd/{log.fileno()}", f"/proc/self/fd/{log.fileno()}", "link.txt"):
                if name == "link.txt":
                    os.symlink(f"/dev/fd/{log.fileno()}", self.path(name))
                result = self.start("run", "program.txt", "--trace", name,
                                    pass_fds=[log.fileno()])
                self.assertEqual((result.code, result.err),
                                 (2, f"vorstek-cli: cannot write '{name}': not a regular file\n"))
        self.assertEqual(self.read("log.txt"), b"kept")

    def test_a_trace_is_no_standard_stream(self):
        with open(self.path("log.txt"), "wb") as log:
            result = self.start("run", "program.txt", "--trace", "log.txt", stdout=log)
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot write 'log.txt': it is a standard stream\n"))
        self.assertEqual(self.read("log.txt"), b"")

    def test_as_graph_file(self):
        os.mkdir(self.path("folder.txt"))
        for name in ("folder.txt", "pipe.txt", "loop.txt"):
            result = self.assert_quick("run", "program.txt", "--graph", name)
            self.assertEqual(result.code, 2, name)
            self.assertIn(name, result.err)

    def test_a_very_long_name(self):
        for name in (250 * "x", 5000 * "x", 2000 * "x/"):
            self.assertEqual(self.assert_quick("run", name).code, 2)
            self.assertEqual(self.assert_quick("check", name).code, 2)
            commands = f"open {name}\ngraph open {name}\nsave {name}/x\ngraph save {name}/x\n"
            self.assertEqual(len(self.assert_quick("script", stdin=commands).events), 4)


class WindowsNameTest(WindowsCase):
    """Names that Windows gives to no file, or to a file of another name."""

    def test_a_name_that_no_file_can_have_is_refused_before_the_run(self):
        self.listing("5", "SumG", name="program.txt")
        os.mkdir(self.path("folder"))
        for option, name, why in (("--graph", "a?b.txt", "not a valid file name"),
                                  ("--trace", "a*b.txt", "not a valid file name"),
                                  ("--graph", "data:b.txt", "not a valid file name"),
                                  ("--graph", "NUL.txt", "the name of a device"),
                                  ("--trace", "folder/nul.txt", "the name of a device"),
                                  ("--trace", "COM1", "the name of a device")):
            result = self.start("run", "program.txt", option, name)
            self.assertEqual((result.code, result.out, result.err),
                             (2, "", f"vorstek-cli: cannot write '{name}': {why}\n"))
        self.assertEqual(sorted(os.listdir(self.folder)), ["folder", "program.txt"])

    def test_other_commands_refuse_it_too(self):
        self.write("data.txt", "1\n2\n")
        result = self.start("plot", "data.txt", "a?b.svg")
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot write 'a?b.svg': not a valid file name\n"))
        self.assertEqual([box["text"] for box in self.boxes("save COM1", "save a|b.txt")],
                         ["Could not write the file:\n COM1",
                          "Could not write the file:\n a|b.txt"])
        self.assertEqual(os.listdir(self.folder), ["data.txt"])

    def test_blanks_and_points_at_the_end_are_not_part_of_the_name(self):
        self.listing("5", "SumG", name="program.txt")
        self.run_program("program.txt", "--trace", "log.txt. ")
        self.assertEqual(sorted(os.listdir(self.folder)), ["log.txt", "program.txt"])
        result = self.start("run", "program.txt", "--trace", "program.txt.")
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: PROGRAM and --trace are the same file "
                             "'program.txt.'\n"))


if __name__ == "__main__":
    main()
