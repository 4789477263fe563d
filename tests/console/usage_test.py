"""Exit codes and messages of the command line: what is refused before anything
runs."""

import os

from console_case import ConsoleCase, LinuxCase, main


class UsageTest(ConsoleCase):

    def setUp(self):
        super().setUp()
        self.listing("5", "STO 1", name="program.txt")

    def assert_refused(self, *arguments, mentions=""):
        """Exit code 2, one line on standard error, nothing on standard output."""
        result = self.start(*arguments)
        self.assertEqual((result.code, result.out), (2, ""), arguments)
        self.assertRegex(result.err, r"\A[^\n]+\n\Z", arguments)
        self.assertIn(mentions, result.err)

    def test_no_command(self):
        result = self.start()
        self.assertEqual((result.code, result.out), (2, ""))
        self.assertNotEqual(result.err, "")

    def test_unknown_commands(self):
        for arguments in (["walk"], ["Run", "program.txt"], ["program.txt"], [""]):
            self.assert_refused(*arguments)

    def test_missing_and_surplus_arguments(self):
        self.assert_refused("run")
        self.assert_refused("run", "--json")
        self.assert_refused("run", "program.txt", "program.txt")
        self.assert_refused("check")
        self.assert_refused("script", "one", "two")

    def test_files_that_are_not_there(self):
        self.assert_refused("run", "missing.txt", mentions="missing.txt")
        self.assert_refused("check", "missing.txt", mentions="missing.txt")
        self.assert_refused("script", "missing.txt", mentions="missing.txt")

    def test_unknown_options(self):
        for option in ("--w", "--X", "--xx", "--register", "--"):
            self.assert_refused("run", "program.txt", option, "1")

    def test_options_without_their_value(self):
        for option in ("--x", "--y", "--z", "--t", "--reg", "--label", "--trace", "--graph",
                       "--max-lines"):
            self.assert_refused("run", "program.txt", option, mentions=option)

    def test_bad_values(self):
        rows = {"--x": ("", "one", "1x", "nan", "inf", "0x10", "1,5", "1 2", "1e", "--", "."),
                "--t": ("", "-"), "--reg": ("", "5", "5=", "=5", "30=1", "-1=1", "x=1", "5=x",
                                            "1.5=1", "5==1", "+5=1"),
                "--label": ("", "10", "-1", "x", "1.5"), "--max-lines": ("", "x", "-1", "1.5")}
        for option, values in rows.items():
            for value in values:
                with self.subTest(option=option, value=value):
                    self.assert_refused("run", "program.txt", option, value, mentions=option)

    def test_good_values(self):
        self.run_program("program.txt", "--x", "-1.5e-3", "--y", "+2", "--z", ".5", "--t", "5.",
                         "--reg", "0=1E5", "--reg", "29=-7", "--label", "0", code=1)

    def test_a_graph_file_of_no_known_kind(self):
        for name in ("graph", "graph.png", "graph.txt.gif"):
            self.assert_refused("run", "program.txt", "--graph", name)

    def test_a_trace_file_that_cannot_be_written(self):
        self.assert_refused("run", "program.txt", "--trace", os.path.join("missing", "trace.txt"),
                            mentions="trace.txt")


class UnwritableOutputTest(LinuxCase):

    def setUp(self):
        super().setUp()
        self.listing("1", "PAUSE", "PAUSE", name="program.txt")
        self.listing("nonsense", name="bad.txt")

    def assert_output_lost(self, *arguments, stdin=b""):
        with open("/dev/full", "wb") as full:
            result = self.start(*arguments, stdin=stdin, stdout=full)
        self.assertEqual(result.code, 2, arguments)
        self.assertRegex(result.err, r"\A[^\n]+\n\Z")

    def test_output_to_a_full_disk(self):
        self.assert_output_lost("run", "program.txt")
        self.assert_output_lost("run", "program.txt", "--json")
        self.assert_output_lost("check", "bad.txt")
        self.assert_output_lost("script", stdin="state\n")

    def start_closed(self, *arguments, closed, stdin=None):
        return self.start(*arguments, stdin=stdin, preexec_fn=lambda: os.close(closed))

    def test_closed_standard_output(self):
        self.assertEqual(self.start_closed("run", "program.txt", closed=1).code, 2)
        self.assertEqual(self.start_closed("script", closed=1, stdin="state\n").code, 2)

    def test_closed_standard_output_does_not_flow_into_other_files(self):
        self.start_closed("run", "program.txt", "--trace", "trace.txt", "--realtime", closed=1)
        self.assertRegex(self.read_text("trace.txt"), r"\AProgram from file 'program.txt'\n")

    def test_closed_standard_input(self):
        self.assertEqual(self.start_closed("run", "program.txt", closed=0).code, 0)
        result = self.start_closed("script", closed=0)
        self.assertIn(result.code, (0, 2))
        self.assertEqual(result.out, "")

    def test_closed_standard_error(self):
        self.assertEqual(self.start_closed("run", "missing.txt", closed=2).code, 2)
        self.assertEqual(self.start_closed("run", "program.txt", closed=2).code, 0)


if __name__ == "__main__":
    main()
