"""vorstek-cli run: start, stop, output and the files it writes."""

import datetime
import json
import os
import signal
import struct
import subprocess
import time

import console_case
from console_case import LITTLE_DISK, TIMEOUT, ConsoleCase, LinuxCase, main, number
from vocabulary import STATE_KEYS

ENDLESS = ("LBL 0", "1", "STO+ 1", "GTO 0")


def trace_line(instruction, x, y, register_0="+0.00", returns="--  --  --"):
    return f"{instruction:<21}{x:<18}{y:<18}{register_0:<18}{returns}"


class StartTest(ConsoleCase):

    def stack(self, *arguments, code=0):
        state = self.run_program(*arguments, "--json", code=code).state
        return [number(level["value"]) for level in state["stack"]]

    def test_the_stack_before_the_start(self):
        name = self.listing("R/S")
        self.assertEqual(self.stack(name), [0, 0, 0, 0])
        self.assertEqual(self.stack(name, "--x", "1", "--y", "-2", "--z", "3e5", "--t", ".25"),
                         [1, -2, 3e5, 0.25])
        self.assertEqual(self.stack(name, "--z", "7", "--x", "8"), [8, 0, 7, 0])

    def test_a_number_line_lifts_the_given_stack(self):
        self.assertEqual(self.stack(self.listing("9"), "--x", "1", "--y", "2", "--z", "3", "--t",
                                    "4"), [9, 1, 2, 3])

    def test_registers_before_the_start(self):
        registers = self.run_program(self.listing("R/S"), "--json", "--reg", "0=1", "--reg",
                                     "29=-2.5", "--reg", "7=3", "--reg", "7=4").state["reg"]
        self.assertEqual(registers, [1] + 6 * [0] + [4] + 21 * [0] + [-2.5])

    def test_starts_at_line_1_or_at_a_label(self):
        name = self.listing("1", "R/S", "LBL 3", "2", "R/S", "LBL 3", "3")
        self.assertEqual(self.stack(name)[0], 1)
        self.assertEqual(self.stack(name, "--label", "3")[0], 2)

    def test_a_label_starts_with_an_empty_return_stack(self):
        state = self.run_listing(("1", "LBL 0", "2", "RTN", "3"), "--label", "0", "--json").state
        self.assertEqual((state["stack"][0]["value"], state["line"], state["returns"]), (2, 5, []))

    def test_a_label_that_is_not_there(self):
        result = self.run_listing(("1",), "--label", "4", "--json", code=1)
        self.assertEqual(result.err, "program.txt: GSB 4: Error: no such label\n")
        self.assertEqual(result.state["stack"][0]["value"], 0)
        result = self.run_listing(("1",), "--label", "4", "--reg", "5=3", "--registers", code=1)
        self.assertEqual(result.out.splitlines()[4:], ["Reg[ 5] = +3.00"])

    def test_an_empty_program_stops_at_once(self):
        self.write("empty.txt", "")
        state = self.run_program("empty.txt", "--json").state
        self.assertEqual((state["line"], state["file"]), (2, "empty.txt"))


class OutputTest(ConsoleCase):

    def test_the_stack_as_text(self):
        result = self.run_listing(("4", "ENTER", "3", "CHS", "ENTER", "1e50", "ENTER", ".001"))
        self.assertEqual(result.out, "T   4.00\nZ  -3.00\nY   1.00e+50\nX   1.00e-03\n")
        self.assertEqual(result.err, "")

    def test_the_display_mode_holds_for_the_text(self):
        result = self.run_listing(("SCI 4", "pi"))
        self.assertEqual(result.out.splitlines()[-1], "X   3.1416e+00")

    def test_registers_that_are_not_zero(self):
        result = self.run_listing(("5", "STO 3", "CHS", "STO .7", "0", "STO 4", "1e-50", "STO 0"),
                                  "--registers", "--reg", "29=8", "--reg", "20=1e-90")
        self.assertEqual(result.out.splitlines()[4:],
                         ["Reg[ 0] = +1.00e-50", "Reg[ 3] = +5.00", "Reg[17] = -5.00",
                          "Reg[20] = +1.00e-90", "Reg[29] = +8.00"])

    def test_no_registers_unless_asked_for(self):
        self.assertEqual(len(self.run_listing(("5", "STO 3")).out.splitlines()), 4)

    def test_json_has_the_keys_in_order(self):
        result = self.run_listing(("5", "STO 3"), "--json")
        self.assertEqual(result.out.count("\n"), 1)
        self.assertEqual(list(result.state), STATE_KEYS)
        self.assertEqual(result.state["file"], "program.txt")

    def test_an_error_shows_on_standard_error(self):
        rows = {"Error: divide by 0": ("0", "1/x"), "Error: sqrt of x < 0": ("-1", "sqrt"),
                "Error: ln of x <= 0": ("0", "ln"), "Error: log of x <= 0": ("0", "log"),
                "Error: impossible": ("2", "sin^-1"), "Error: npts = 0": ("Mean",),
                "Error: npts <= 1": ("StdDev",), "Error: bad graph": ("7", "SetG"),
                "Error: no such reg": ("30", "STO 0", "RCL i"), "Error: no such label": ("GTO 9",),
                "Error: neg i too big": ("-100", "STO 0", "GTO i"),
                "Error: subr overflow": ("LBL 0", "GSB 0")}
        for text, lines in rows.items():
            with self.subTest(text=text):
                result = self.run_listing(lines, "--json", code=1)
                place = f"program.txt:{result.state['line']}: {lines[result.state['line'] - 1]}"
                self.assertEqual(result.err, f"{place}: {text}\n")
                self.assertEqual(result.state["display"], text)

    def test_an_error_is_placed_by_the_line_of_the_file(self):
        result = self.run_listing(("; title", "", "0", "  ; why", "1/x ; here"), code=1)
        self.assertEqual(result.err, "program.txt:5: 1/x: Error: divide by 0 (program line 02)\n")
        result = self.run_listing(("; title", "LBL 3", "GTO 3"), "--max-lines", "3", code=3)
        self.assertEqual(result.err,
                         "program.txt:3: GTO 3: halted by --max-lines (program line 02)\n")
        result = self.start("run", "-", stdin="0\n1/x\n")
        self.assertEqual((result.code, result.err), (1, "<stdin>:2: 1/x: Error: divide by 0\n"))

    def test_an_error_prints_the_stack_all_the_same(self):
        result = self.run_listing(("6", "ENTER", "0", "/"), code=1)
        self.assertEqual(result.out.splitlines()[-2:], ["Y   6.00", "X   0.00"])

    def test_a_silent_failure_is_an_error_too(self):
        result = self.run_listing(("20", "STO 0", "0", "STO/ i", "5"), "--json", code=1)
        self.assertEqual((result.state["display"], result.state["line"]), (" 0.00", 4))

    def test_pauses_print_the_display(self):
        result = self.run_listing(("5", "PAUSE", "CHS", "PAUSE", "FIX 0", "PAUSE"))
        self.assertEqual(result.out.splitlines()[:3], [" 5.00", "-5.00", "-5"])

    def test_pauses_leave_standard_output_to_json(self):
        result = self.run_listing(("5", "PAUSE", "CHS", "PAUSE"), "--json")
        self.assertEqual(list(json.loads(result.out)), STATE_KEYS)
        self.assertEqual(result.err, " 5.00\n-5.00\n")

    def test_pauses_do_not_wait(self):
        begin = time.monotonic()
        self.run_listing(30 * ["PAUSE"])
        self.assertLess(time.monotonic() - begin, 20)

    def test_pauses_wait_if_they_shall(self):
        begin = time.monotonic()
        result = self.run_listing(("1", "PAUSE", "2", "PAUSE"), "--realtime")
        self.assertGreaterEqual(time.monotonic() - begin, 2)
        self.assertEqual(result.out.splitlines()[:2], [" 1.00", " 2.00"])


class MaxLinesTest(ConsoleCase):

    def test_halts_after_so_many_lines(self):
        for lines, count in ((1, 0), (2, 0), (3, 1), (4, 1), (7, 2), (40000, 10000)):
            with self.subTest(lines=lines):
                state = self.run_listing(ENDLESS, "--max-lines", str(lines), "--json", code=3).state
                self.assertEqual(state["reg"][1], count)

    def test_a_program_that_ends_with_its_last_line_is_done(self):
        name = self.listing("1", "2", "R/S")
        self.run_program(name, "--max-lines", "2", code=3)
        self.run_program(name, "--max-lines", "3", code=0)
        self.run_program(name, "--max-lines", "4", code=0)

    def test_an_error_in_the_last_line_is_an_error(self):
        self.run_listing(("0", "1/x"), "--max-lines", "2", code=1)

    def test_the_state_is_printed_all_the_same(self):
        result = self.run_listing(ENDLESS, "--max-lines", "6", code=3)
        self.assertEqual(result.out.splitlines()[-1], "X   1.00")
        self.assertEqual(result.err, "program.txt:3: STO+ 1: halted by --max-lines\n")


class LoaderErrorTest(ConsoleCase):

    def assert_not_run(self, lines, message):
        self.listing(*lines)
        result = self.run_program("program.txt", "--trace", "trace.txt", "--graph", "graph.txt",
                                  "--json", code=2)
        self.assertEqual((result.out, result.err), ("", message + "\n"))
        self.assertEqual(sorted(os.listdir(self.folder)), ["program.txt"])

    def test_each_message_of_the_loader(self):
        self.assert_not_run(("1", "PAUSE", "sto 5"),
                            "Error: unrecognized instr mnemonic on line #3:\nsto 5")
        self.assert_not_run(("; one", "3.5 7"), "Error: illegal number on line #2:\n3.5 7")
        self.assert_not_run(("LBL 12",), "Error: illegal operand on line 1:\nLBL 12")

    def test_the_first_of_several(self):
        self.assert_not_run(("nonsense", "more"),
                            "Error: unrecognized instr mnemonic on line #1:\nnonsense")

    def test_too_many_lines(self):
        self.assert_not_run(99 * ["1"], "Program memory overflow")

    def test_as_many_lines_as_fit(self):
        self.run_listing(98 * ["1"], "--max-lines", "98", code=3)


class TraceTest(ConsoleCase):

    def trace(self, name="trace.txt"):
        """The instruction lines of a trace, whose head must be right."""
        lines = self.read_text(name).split("\n")
        self.assertEqual(lines[0], "Program from file 'program.txt'")
        self.assertTrue(lines[1].startswith("run on "))
        self.assertEqual(len(lines[1]), len("run on ") + 24)
        when = datetime.datetime.strptime(lines[1], "run on %a %b %d %H:%M:%S %Y")
        self.assertLess(abs(datetime.datetime.now() - when), datetime.timedelta(minutes=10))
        self.assertEqual(lines[2:4],
                         ["", " Instruction          X                 Y                 "
                          "Reg[0]       Subr Return Addr"])
        self.assertEqual(lines[-1], "")
        return lines[4:-1]

    def test_one_line_for_each_instruction(self):
        self.run_listing(("; a comment", "-3.5", "STO .2", "7", "STO 0", "SCI 3", "x<>y"),
                         "--trace", "trace.txt")

        self.assertEqual(self.trace(), [
            trace_line("01 -3.5", "-3.50", "+0.00"),
            trace_line("02 STO 12", "-3.50", "+0.00"),
            trace_line("03 7", "+7.00", "-3.50"),
            trace_line("04 STO 0", "+7.00", "-3.50", "+7.00"),
            trace_line("05 SCI 3", "+7.000e+00", "-3.500e+00", "+7.000e+00"),
            trace_line("06 x<>y", "-3.500e+00", "+7.000e+00", "+7.000e+00"),
            trace_line("07 R/S", "-3.500e+00", "+7.000e+00", "+7.000e+00")])

    def test_return_addresses_newest_first(self):
        self.run_listing(("GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3",
                          "RTN"), "--trace", "trace.txt")

        self.assertEqual([(line[:2], line[75:]) for line in self.trace()],
                         [("01", "02  --  --"), ("03", "02  --  --"), ("04", "05  02  --"),
                          ("06", "05  02  --"), ("07", "08  05  02"), ("09", "08  05  02"),
                          ("10", "05  02  --"), ("08", "02  --  --"), ("05", "--  --  --"),
                          ("02", "--  --  --")])

    def test_the_line_that_fails_is_there_too(self):
        self.run_listing(("0", "1/x", "5"), "--trace", "trace.txt", code=1)
        self.assertEqual([line[:6] for line in self.trace()], ["01 0  ", "02 1/x"])

    def test_the_former_trace_becomes_the_backup(self):
        self.write("trace.txt", b"first\r\nlog")
        self.write("trace_older.txt", "forgotten")
        self.run_listing(("1",), "--trace", "trace.txt")

        self.assertEqual(self.read("trace_older.txt"), b"first\r\nlog")
        self.assertEqual(len(self.trace()), 2)

    def test_a_first_trace_has_no_backup(self):
        self.run_listing(("1",), "--trace", "trace.txt")
        self.assertEqual(sorted(os.listdir(self.folder)), ["program.txt", "trace.txt"])

    def test_the_backup_of_a_name_without_extension(self):
        self.write("trace.log", "old")
        self.run_listing(("1",), "--trace", "trace.log")
        self.assertEqual(self.read("trace.log_older"), b"old")

    def test_a_long_trace_starts_again(self):
        self.run_listing(ENDLESS, "--trace", "trace.txt", "--max-lines", "15000", code=3)

        older, newer = self.read("trace_older.txt"), self.read("trace.txt")
        self.assertTrue(1000000 < len(older) <= 1000000 + 512, len(older))
        lines = (older + newer).replace(b"\r", b"").split(b"\n")
        self.assertEqual(len(lines), 4 + 15000 + 1)

    def test_a_trace_that_lost_its_beginning_says_so(self):
        result = self.run_listing(ENDLESS, "--trace", "trace.txt", "--max-lines", "30000", code=3)
        self.assertEqual(result.err.splitlines()[1:],
                         ["vorstek-cli: 'trace.txt' and 'trace_older.txt' have only the end of "
                          "the trace (see --trace-size)"])
        result = self.run_program("program.txt", "--trace", "trace.txt", "--max-lines", "15000",
                                  code=3)
        self.assertEqual(len(result.err.splitlines()), 1)

    def test_a_former_trace_is_not_lost_with_its_backup(self):
        self.write("trace.txt", "former run")
        os.mkdir(self.path("trace_older.txt"))
        result = self.run_listing(("1",), "--trace", "trace.txt", code=2)
        self.assertEqual((result.out, result.err),
                         ("", "vorstek-cli: cannot write 'trace_older.txt': is a directory\n"))
        self.assertEqual(self.read("trace.txt"), b"former run")


class GraphFileTest(ConsoleCase):

    DRAW = ("ClearG", "1.5", "ENTER", "1", "SumG", "-2", "ENTER", "2", "SumG",
            "2", "SetG", "100", "ENTER", "1", "SumG", "1e7", "ENTER", "2", "SumG")

    def test_the_data_file(self):
        self.run_listing(self.DRAW, "--graph", "graph.txt")

        self.assertEqual(self.read_text("graph.txt"),
                         'ExplicitX\n'
                         'SetLabels "data line # 1" , "data line # 2"\n'
                         '1.000000 , 1.500000 , 100.000000\n'
                         '2.000000 , -2.000000 , 10000000.000000\n')

    def test_title_and_axis_label_unless_cleared(self):
        self.run_listing(("3", "ENTER", "4", "SumG"), "--graph", "graph.txt")

        self.assertEqual(self.read_text("graph.txt"),
                         'ExplicitX\nTitle "My Graph"\nHorzAxisLabel "x axis"\n'
                         'SetLabels "data line # 1"\n4.000000 , 3.000000\n')

    def test_an_old_data_file_is_replaced(self):
        self.write("graph.txt", 5000 * "old\n")
        self.run_listing(("3", "SumG"), "--graph", "graph.txt")
        self.assertEqual(self.read_text("graph.txt").splitlines()[-1], "3.000000 , 0.000000")

    def test_only_data_files_and_pictures_are_written(self):
        for name in ("graph.gif", "graph", "graph.txt.bak"):
            result = self.run_listing(self.DRAW, "--graph", name, code=2)
            self.assertRegex(result.err, r"\A[^\n]*--graph[^\n]*\n\Z")
            self.assertFalse(os.path.exists(self.path(name)))

    def test_a_data_file_that_cannot_be_written_is_found_before_the_run(self):
        os.mkdir(self.path("folder.txt"))
        for name, why in ((os.path.join("missing", "graph.txt"), "no such directory"),
                          ("folder.txt", "is a directory")):
            result = self.run_listing(("3", "SumG", "PAUSE"), "--graph", name, "--trace",
                                      "trace.txt", code=2)
            self.assertEqual((result.out, result.err),
                             ("", f"vorstek-cli: cannot write '{name}': {why}\n"))
            self.assertEqual(sorted(os.listdir(self.folder)), ["folder.txt", "program.txt"])

    def test_a_program_that_draws_nothing_leaves_the_data_file_alone(self):
        result = self.run_listing(("3",), "--graph", "graph.txt", code=2)
        self.assertRegex(result.err, r"\A[^\n]*graph.txt[^\n]*\n\Z")
        self.assertEqual(os.listdir(self.folder), ["program.txt"])

        self.write("graph.txt", "old\n")
        os.utime(self.path("graph.txt"), (10 ** 9, 10 ** 9))
        self.run_program("program.txt", "--graph", "graph.txt", code=2)
        self.assertEqual(self.read("graph.txt"), b"old\n")
        self.assertEqual(os.stat(self.path("graph.txt")).st_mtime, 10 ** 9)
        self.assertEqual(sorted(os.listdir(self.folder)), ["graph.txt", "program.txt"])

    def test_cut_short_before_anything_was_drawn(self):
        failed = self.run_listing(("0", "1/x", "SumG"), "--graph", "graph.txt", code=1)
        self.assertEqual(failed.err, "program.txt:2: 1/x: Error: divide by 0\n")
        halted = self.run_listing(("1", "2", "SumG"), "--graph", "graph.txt", "--max-lines", "2",
                                  code=3)
        self.assertEqual(halted.err, "program.txt:3: SumG: halted by --max-lines\n")
        self.assertEqual(os.listdir(self.folder), ["program.txt"])

    def test_after_an_error_and_after_the_last_line(self):
        self.run_listing(("3", "SumG", "0", "1/x"), "--graph", "graph.txt", code=1)
        self.assertEqual(self.read_text("graph.txt").splitlines()[-1], "3.000000 , 0.000000")
        self.run_listing(("4", "SumG", "LBL 0", "GTO 0"), "--graph", "graph.txt", "--max-lines",
                         "9", code=3)
        self.assertEqual(self.read_text("graph.txt").splitlines()[-1], "4.000000 , 0.000000")

    def test_data_lines_that_the_file_cannot_hold_are_an_error(self):
        result = self.run_listing(("1", "SumG", "2", "SetG", "3", "SumG"), "--graph", "graph.txt",
                                  code=1)
        self.assertTrue(result.err.startswith("1 of the 2 data sets were written to the file:\n"))
        self.assertEqual(self.read_text("graph.txt").splitlines()[-1], "1.000000 , 0.000000")
        self.run_listing(("1", "SumG", "2", "SetG", "3", "SumG"), "--graph", "graph.svg")

    def test_lost_data_lines_are_worse_than_a_limit(self):
        lines = ("1", "SumG", "2", "SetG", "3", "SumG", "LBL 0", "GTO 0")
        result = self.run_listing(lines, "--graph", "graph.txt", "--max-lines", "9", code=1)
        self.assertEqual(result.err.splitlines()[:2],
                         ["program.txt:8: GTO 0: halted by --max-lines",
                          "1 of the 2 data sets were written to the file:"])
        self.run_listing(lines, "--graph", "graph.svg", "--max-lines", "9", code=3)

    def test_a_data_file_that_will_not_be_read_as_it_was_written_is_an_error(self):
        lines = [line for n in range(1, 7) for line in (str(n), "SetG", "5", "ENTER", "1", "SumG")]
        result = self.run_listing(("ClearG", *lines), "--graph", "graph.txt", code=1)
        self.assertEqual(result.err, "The file was written:\n  graph.txt\n\n"
                                     "When it is opened, it will differ from the\n"
                                     "graph: the labels of the data lines are too long together.\n")
        self.assertTrue(self.read_text("graph.txt").startswith("ExplicitX\n"))
        self.run_listing(("ClearG", *lines[:-6]), "--graph", "graph.txt")

    def test_points_in_json_read_back_to_the_same_floats(self):
        values = [0.1, 1 / 3, 1e-30, 3.4e38, 16777217, -2.5e-7, 1e99]
        registers = [word for n, value in enumerate(values) for word in ("--reg", f"{n}={value!r}")]
        lines = [line for n in range(len(values)) for line in (f"RCL {n}", "SumG")]
        points = self.run_listing(lines, "--json", *registers).state["graph"][0]["x"]

        wanted = [struct.unpack("f", struct.pack("f", min(value, 3.4028234663852886e38)))[0]
                  for value in values]
        self.assertEqual([struct.unpack("f", struct.pack("f", point))[0] for point in points],
                         wanted)

    def test_a_full_data_line_halts_the_program(self):
        result = self.start("run", self.listing("LBL 0", "SumG", "1", "STO+ 1", "GTO 0"), "--json")
        self.assertEqual(len(result.state["graph"][0]["y"]), 12800)
        self.assertEqual(result.state["reg"][1], 12800)
        self.assertEqual(result.err, "The Vorstek's program must now halt\n"
                                     "since the cVantor window has reached its\nmemory limit\n\n")


class FilesApartCase(ConsoleCase):
    """No file of a run is lost under another one."""

    def setUp(self):
        super().setUp()
        self.listing("3", "SumG", "PAUSE")

    def content(self):
        return {name: self.read(name) for name in os.listdir(self.folder)
                if os.path.isfile(self.path(name))}

    def assert_refused(self, *arguments, who):
        before = self.content()
        result = self.run_program(*arguments, code=2)
        self.assertEqual(result.out, "")
        self.assertRegex(result.err, rf"\Avorstek-cli: {who} are the same file '[^\n]+'\n\Z")
        self.assertEqual(self.content(), before)


class FilesApartTest(FilesApartCase):

    def test_the_program_is_not_overwritten(self):
        for name in ("program.txt", os.path.join(".", "program.txt"), self.path("program.txt")):
            self.assert_refused("program.txt", "--graph", name, who="PROGRAM and --graph")
            self.assert_refused("program.txt", "--trace", name, who="PROGRAM and --trace")

    def test_trace_and_graph_stay_apart(self):
        for name in ("new.txt", os.path.join("missing", "..", "new.txt"), self.path("new.txt")):
            self.assert_refused("program.txt", "--graph", "new.txt", "--trace", name,
                                who="--trace and --graph")
        self.write("old.txt", "old")
        self.assert_refused("program.txt", "--graph", "old.txt", "--trace",
                            os.path.join(".", "old.txt"), who="--trace and --graph")

    def test_nor_does_the_backup_of_a_trace_overwrite_anything(self):
        self.write("trace.txt", "old")
        self.write("trace_older.txt", "5\n")
        self.assert_refused("trace_older.txt", "--trace", "trace.txt",
                            who="PROGRAM and the backup of --trace")
        self.assert_refused("program.txt", "--trace", "trace.txt", "--graph", "trace_older.txt",
                            who="the backup of --trace and --graph")

    def test_names_that_differ(self):
        os.mkdir(self.path("folder"))
        self.run_program("program.txt", "--trace", os.path.join("folder", "program.txt"), "--graph",
                         "graph.txt")
        self.run_program("program.txt", "--trace", "new.txt", "--graph",
                         os.path.join("folder", "new.txt"))


class LinkedFilesApartTest(LinuxCase, FilesApartCase):

    def test_links_to_the_program(self):
        os.symlink("program.txt", self.path("soft.txt"))
        os.link(self.path("program.txt"), self.path("hard.txt"))
        for name in ("soft.txt", "hard.txt"):
            self.assert_refused("program.txt", "--graph", name, who="PROGRAM and --graph")
            self.assert_refused(name, "--trace", "program.txt", who="PROGRAM and --trace")

    def test_links_to_folders(self):
        os.mkdir(self.path("folder"))
        os.symlink("folder", self.path("link"))
        self.assert_refused("program.txt", "--trace", "folder/new.txt", "--graph", "link/new.txt",
                            who="--trace and --graph")


class NumberTest(ConsoleCase):

    def test_numbers_read_back_to_the_same_double(self):
        program = ("1", "3", "/", "STO 1", ".1", ".2", "+", "STO 2", "2", "sqrt", "STO 3", "1e99",
                   "STO 4", "9999999999", "STO 5", "1e-99", "STO 6", "1e22", "STO 7",
                   "123456789.123", "STO 8")
        registers = self.run_listing(program, "--json").state["reg"]
        self.assertEqual(registers[1:9], [1 / 3, .1 + .2, 2 ** .5, 1e99, 9999999999, 1e-99, 1e22,
                                          123456789.123])

    def test_given_numbers_read_back_to_the_same_double(self):
        values = [0.1, 1 / 3, 2 / 3, 1e-98, 9.87654321e98, 4503599627370497.5, -5e-324 * 2 ** 800,
                  1.7976931348623157]
        arguments = [word for n, value in enumerate(values) for word in ("--reg", f"{n}={value!r}")]
        registers = self.run_listing(("R/S",), "--json", *arguments).state["reg"]
        self.assertEqual(registers[:len(values)], values)

    def test_negative_zero(self):
        result = self.run_listing(("0", "CHS", "STO 1", "ENTER"), "--json")
        self.assertIn('"reg":[0,-0.0,0,', result.out)
        self.assertIn('"stack":[{"text":"-0.00","value":-0.0},', result.out)

    def test_no_number(self):
        # Sums that no points have: the square root of a negative number.
        state = self.run_listing(("StdDev", "STO 1"), "--json", "--reg", "10=2", "--reg", "11=10",
                                 "--reg", "12=1").state
        self.assertEqual(state["stack"][0], {"text": "+nan", "value": "nan"})
        self.assertEqual(state["stack"][1], {"text": "+0.00", "value": 0})
        self.assertEqual((state["reg"][1], state["display"]), ("nan", " nan"))


class SpecialFileTest(LinuxCase):

    def test_a_data_file_on_a_full_disk(self):
        os.symlink("/dev/full", self.path("full.txt"))
        result = self.run_listing(("3", "SumG"), "--graph", "full.txt", code=2)
        self.assertIn("full.txt", result.err)

    def test_a_trace_on_a_full_disk(self):
        os.symlink("/dev/full", self.path("full.txt"))
        result = self.start("run", self.listing("3", "4"), "--trace", "full.txt", **LITTLE_DISK)
        self.assertEqual(result.code, 2)
        self.assertRegex(result.err, r"\A[^\n]*full.txt[^\n]*\n\Z")

    def test_a_backup_of_a_trace_on_a_full_disk(self):
        os.symlink("/dev/full", self.path("log_older.txt"))
        result = self.run_listing(ENDLESS, "--trace", "log.txt", "--max-lines", "15000", code=2)
        self.assertEqual(result.err.splitlines()[1:],
                         ["vorstek-cli: cannot write 'log_older.txt'"])

    def test_a_trace_in_a_read_only_file(self):
        os.symlink("/proc/version", self.path("version.txt"))
        result = self.run_listing(("3",), "--trace", "version.txt", code=2)
        self.assertRegex(result.err, r"\A[^\n]*version.txt[^\n]*\n\Z")


class TraceOutputTest(ConsoleCase):

    LINES = ("3", "PAUSE", "STO 0")

    def test_a_trace_to_standard_output(self):
        filed = self.run_listing(self.LINES, "--trace", "log.txt")
        printed = self.run_listing(self.LINES, "--trace", "-")
        log = self.read_text("log.txt").splitlines()
        stack = filed.out.splitlines()[1:]
        self.assertEqual(printed.out.splitlines()[3:], log[3:] + stack)
        self.assertEqual(printed.err, " 3.00\n")

    def test_it_has_no_cap(self):
        lines = self.run_listing(ENDLESS, "--trace", "-", "--max-lines", "20000", code=3).out
        self.assertEqual(len(lines.splitlines()), 4 + 20000 + 4)

    def test_the_cap_of_a_log(self):
        for option, most in ((["--trace-size", "2"], 2_000_000), ([], 1_000_000)):
            self.run_listing(ENDLESS, "--trace", "log.txt", *option, "--max-lines", "30000", code=3)
            older = os.path.getsize(self.path("log_older.txt"))
            self.assertLess(most, older)
            self.assertLess(older, most + 1000)
        for size in ("0", "101", "x", "1.5", ""):
            result = self.start("run", "program.txt", "--trace-size", size)
            self.assertEqual((result.code, result.err),
                             (2, "vorstek-cli: --trace-size needs a number of megabytes from 1 to "
                                 "100\n"))


class ProfileTest(ConsoleCase):

    LINES = ("; title", "3", "STO 0", "LBL 1", "; loop", "2", "sin", "DSZ", "GTO 1", "", "R/S",
             "5")

    def test_the_listing_with_counts_and_shares(self):
        out = self.run_listing(self.LINES, "--profile").out.splitlines()
        self.assertEqual(out[:5], self.run_listing(self.LINES).out.splitlines() + [""])
        self.assertEqual(out[5], "     count     time  line")
        rows = [(line[:10].strip(), line[21:]) for line in out[6:]]
        self.assertEqual(rows, [
            ("", "   ; title"), ("1", "01 3"), ("1", "02 STO 0"), ("3", "03 LBL 1"), ("", "   ; loop"),
            ("3", "04 2"), ("3", "05 sin"), ("3", "06 DSZ"), ("2", "07 GTO 1"), ("", "   "),
            ("1", "08 R/S"), ("0", "09 5")])
        shares = [float(line[12:17]) for line in out[6:] if line[:10].strip()]
        self.assertTrue(all(0 <= share <= 100 for share in shares), shares)
        self.assertLess(sum(shares), 101)      # 0 if the clock is too coarse for so few lines

    def test_comments_after_the_last_line(self):
        for lines, rows in ((("1", "; tail"), ["1 01 1", " ; tail", "1 02 R/S"]),
                            (("1", "R/S", "; a", "; b"), ["1 01 1", "1 02 R/S", " ; a", " ; b"]),
                            (("1", "R/S", "R/S", "; a"),
                             ["1 01 1", "1 02 R/S", "0 03 R/S", " ; a"]),
                            (98 * ("1",) + ("; full",), 98 * ["1"] + [" ; full"])):
            out = self.run_listing(lines, "--profile", "--max-lines", "98",
                                   code=3 if len(lines) > 98 else 0).out.splitlines()[6:]
            shown = [f"{line[:10].strip()} {line[21:].strip()}" for line in out]
            self.assertEqual([row[:1] if row.endswith(" 1") and len(lines) > 98 else row
                              for row in shown], rows)

    def test_as_json(self):
        lines = ("10000", "STO 0", "LBL 1", *(20 * ["sin"]), "DSZ", "GTO 1")
        profile = self.run_listing(lines, "--profile", "--json").state["profile"]
        self.assertEqual([(row["line"], row["count"]) for row in profile],
                         [(1, 1), (2, 1), *((line, 10000) for line in range(3, 25)), (25, 9999),
                          (26, 1)])
        self.assertGreater(sum(row["seconds"] for row in profile), 0)

    def test_with_a_trace_and_after_an_error(self):
        result = self.run_listing(("0", "1/x"), "--profile", "--trace", "log.txt", code=1)
        self.assertEqual([line[:10].strip() for line in result.out.splitlines()[6:]], ["1", "1"])
        self.assertIn("02 1/x", self.read_text("log.txt"))


class InputTest(LinuxCase):
    """Programs that are not files."""

    def test_standard_input(self):
        for name in ("-", "/dev/stdin", "/dev/fd/0"):
            result = self.start("run", name, stdin="6\n7\n*\n")
            self.assertEqual((result.code, result.err), (0, ""), name)
            self.assertEqual(result.out.splitlines()[-1], "X   42.00")

    def test_a_pipe_of_the_shell(self):
        reading, writing = os.pipe()
        self.addCleanup(os.close, reading)
        os.write(writing, b"6\n7\n*\n")
        os.close(writing)
        result = self.start("run", f"/dev/fd/{reading}", pass_fds=[reading])
        self.assertEqual(result.out.splitlines()[-1], "X   42.00")

    def test_why_a_file_cannot_be_read(self):
        os.mkdir(self.path("folder"))
        for name, why in (("missing.txt", "no such file"), ("folder", "is a directory")):
            result = self.start("run", name)
            self.assertEqual((result.code, result.err),
                             (2, f"vorstek-cli: cannot read '{name}': {why}\n"))


class SignalTest(LinuxCase):
    """Ctrl-C and SIGTERM halt a run as R/S does."""

    def interrupt(self, number, *arguments):
        """Stops an endless program, which begins with a pause of a second; returns exit
        code, output and errors."""
        self.listing("1", "SumG", "PAUSE", "LBL 1", "STO+ 1", "GTO 1")
        with subprocess.Popen([*console_case.command, "run", "program.txt", "--realtime",
                               *arguments], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as process:
            self.assertEqual(process.stdout.readline(), b" 1.00\n")
            time.sleep(1.2)
            process.send_signal(number)
            out, err = process.communicate(timeout=TIMEOUT)
            return process.returncode, out.decode(), err.decode()

    def test_the_state_is_printed(self):
        for number, code in ((signal.SIGINT, 130), (signal.SIGTERM, 143)):
            status, out, err = self.interrupt(number)
            self.assertEqual(status, code)
            self.assertRegex(err, r"\Aprogram\.txt:[456]: (LBL 1|STO\+ 1|GTO 1): interrupted\n\Z")
            self.assertEqual(out.splitlines()[3], "X   1.00")

    def test_trace_and_graph_are_written_to_their_end(self):
        status, _, _ = self.interrupt(signal.SIGINT, "--trace", "log.txt", "--graph", "graph.txt")
        self.assertEqual(status, 130)
        self.assertTrue(self.read_text("log.txt").endswith("--  --  --\n"))
        self.assertEqual(self.read_text("graph.txt").splitlines()[-1], "1.000000 , 0.000000")

    def test_a_signal_that_is_ignored_stays_ignored(self):
        self.listing("1", "PAUSE", "2")
        with subprocess.Popen([*console_case.command, "run", "program.txt", "--realtime"],
                              cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN),
                              restore_signals=False) as process:
            self.assertEqual(process.stdout.readline(), b" 1.00\n")
            process.send_signal(signal.SIGINT)
            out, err = process.communicate(timeout=TIMEOUT)
            self.assertEqual((process.returncode, err), (0, b""))
            self.assertEqual(out.splitlines()[-1], b"X   2.00")


if __name__ == "__main__":
    main()
