"""Exit codes and messages of the command line: what is refused before anything
runs, and what happens when output cannot be written. And the script that
builds the program and passes its arguments on."""

import os
import re
import shutil
import subprocess
import time

import console_case
from console_case import REPOSITORY, ConsoleCase, LinuxCase, key_line, main


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
        self.assertEqual((result.code, result.out, result.err), (0, "", ""))

    def test_lines_of_a_pipe_are_answered_without_a_command(self):
        self.listing("x^2", name="square.txt")
        result = self.start(stdin="2 3 +\n\n1 0 /\r\n; nothing\nload square.txt\n7\nrun\nfrob")
        self.assertEqual(result.out, "5.00\n0.00\n7.00\n49.00\n")
        self.assertEqual(result.err, "column 5: /: Error: divide by 0\n"
                                     "column 1: frob: neither an instruction nor a number\n")
        self.assertEqual(result.code, 1)
        result = self.start(stdin="2 3 +\nquit\n4\n")
        self.assertEqual((result.code, result.out, result.err), (0, "5.00\n", ""))

    def test_each_line_of_a_pipe_is_answered_before_the_next(self):
        with subprocess.Popen(console_case.command, cwd=self.folder, stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as process:
            for line, expected in ((b"2 3\n", b"3.00"), (b"*\n", b"6.00")):
                process.stdin.write(line)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline().rstrip(), expected)
            process.stdin.close()
            self.assertEqual(process.wait(console_case.TIMEOUT), 0)

    def test_unknown_commands(self):
        for arguments in (["walk"], ["Run", "program.txt"], ["program.txt"], [""]):
            self.assert_refused(*arguments)

    def test_missing_and_surplus_arguments(self):
        for arguments, message in (
                (["run"], "run needs the file name of a program"),
                (["run", "--json"], "run needs the file name of a program"),
                (["run", "program.txt", "two.txt"],
                 "unexpected argument 'two.txt': run takes one program"),
                (["run", "program.txt", "--x"], "--x needs a number"),
                (["check"], "check needs the file name of at least one program"),
                (["fmt"], "fmt needs the file name of at least one program"),
                (["fmt", "--check"], "fmt needs the file name of at least one program"),
                (["fmt", "-", "--name"], "--name needs a file name"),
                (["script", "one", "two"], "script takes at most one file"),
                (["plot", "data.txt"], "plot needs two file names, a data file and a picture"),
                (["plot", "--window", "a.txt", "b.txt", "c.svg"], "--window draws one data file"),
                (["gif", "a.bmp"], "gif needs two file names, a BMP file and a GIF file"),
                (["gif", "a.bmp", "b.gif", "--options"], "--options needs a value")):
            self.assert_refused(*arguments, mentions=f"vorstek-cli: {message}\n")

    def test_files_that_are_not_there(self):
        self.assert_refused("run", "missing.txt", mentions="missing.txt")
        self.assert_refused("check", "missing.txt", mentions="missing.txt")
        self.assert_refused("fmt", "missing.txt", mentions="missing.txt")
        self.assert_refused("script", "missing.txt", mentions="missing.txt")

    def test_unknown_options(self):
        for option in ("--w", "--wxyz", "--"  + 40 * "x"):
            for arguments in (["run", "program.txt", option, "1"], ["check", option, "program.txt"],
                              ["fmt", option, "program.txt"], ["plot", option], ["gif", option],
                              ["eval", option], ["script", option], ["help", option]):
                self.assert_refused(*arguments, mentions=f"unknown option '{option}' "
                                                         "(see vorstek-cli --help)")

    def test_misspelt_words_are_answered_with_the_nearest(self):
        for arguments, message in (
                (["Run", "program.txt"], "unknown command 'Run', did you mean run?"),
                (["chekc"], "unknown command 'chekc', did you mean check?"),
                (["--versoin"], "unknown option '--versoin', did you mean --version?"),
                (["--colour"], "unknown option '--colour' (see vorstek-cli --help)"),
                (["help", "evla"], "unknown command 'evla', did you mean eval?"),
                (["run", "program.txt", "--register"],
                 "unknown option '--register', did you mean --registers?"),
                (["run", "program.txt", "--lable=5"],
                 "unknown option '--lable', did you mean --label?"),
                (["fmt", "--chek"], "unknown option '--chek', did you mean --check?"),
                (["-version"], "unknown option '-version', did you mean --version?"),
                (["run", "program.txt", "-json"],
                 "unknown option '-json', did you mean --json?"),
                (["eval", "-fix=3", "5"], "unknown option '-fix', did you mean --fix?")):
            self.assert_refused(*arguments, mentions=f"vorstek-cli: {message}\n")

    def test_values_after_an_equals_sign(self):
        apart = self.run_program("program.txt", "--y", "-7", "--reg", "3=4", "--registers")
        joined = self.run_program("program.txt", "--y=-7", "--reg=3=4", "--registers")
        self.assertEqual(joined.out, apart.out)
        self.assertIn("Z  -7.00", joined.out)
        self.assert_refused("run", "program.txt", "--x=", mentions="--x needs a number")
        self.assert_refused("run", "program.txt", "--json=1", mentions="--json takes no value")

    def test_no_option_after_two_dashes(self):
        self.write("--json", "7\n")
        self.write("-json", "8\n")
        self.assertEqual(self.run_program("-json").out.splitlines()[-1], "X   8.00")
        self.assertEqual(self.run_program("--", "--json").out.splitlines()[-1], "X   7.00")
        self.assertEqual(self.run_program("--y", "5", "--", "--json").out.splitlines()[-1],
                         "X   7.00")
        self.assertEqual(self.start("check", "--", "--json", "program.txt").code, 0)
        self.assertEqual(self.start("script", "--", "--json").events,
                         [{"event": "bad", "line": 1, "text": "7"}])
        self.assert_refused("run", "program.txt", "--", "--json", mentions="--json")
        self.assert_refused("check", "--", "--", mentions="'--'")
        for command in ("run", "check"):
            self.assert_refused(command, "--")
        self.assertEqual(self.start("script", "--").code, 0)
        self.assertEqual(self.start("--", "run", "program.txt").out.splitlines()[-1], "X   5.00")

    def test_help(self):
        usage = self.start("--help")
        self.assertEqual((usage.code, usage.err), (0, ""))
        self.assertTrue(usage.out.startswith("usage: vorstek-cli COMMAND"))
        for arguments in (["-h"], ["help"]):
            result = self.start(*arguments)
            self.assertEqual((result.code, result.out, result.err), (0, usage.out, ""), arguments)
        self.assert_refused("check", "--", "--help", mentions="--help")

    def test_help_of_a_command(self):
        usage = self.start("help").out
        for command in re.findall(r"^  (\w+)", usage, re.MULTILINE):
            text = self.start("help", command)
            self.assertEqual((text.code, text.err), (0, ""))
            self.assertTrue(text.out.startswith(f"usage: vorstek-cli {command} "))
            for arguments in (["--help"], ["-h"], ["missing.txt", "--wrong", "--help"]):
                self.assertEqual(self.start(command, *arguments).out, text.out)
        self.assertRegex(self.start("help", "run").out,
                         r"(?m)^  --max-lines N +halt after N executed lines$")
        self.assert_refused("help", "run", "eval", mentions="help takes at most one command")

    @staticmethod
    def documented(*sections):
        """What docs/console.md has in the first column of a section's first table, in
        its order: "down N"."""
        with open(os.path.join(REPOSITORY, "docs", "console.md"), encoding="utf-8") as file:
            text = file.read()
        found = []
        for section in sections:
            table = re.search(rf"^## {section}\n.*?^\|---\|---\|\n(.*?)\n\n", text, re.S | re.M)[1]
            for row in table.splitlines():
                cell = re.match(r"\| (.*?) (?<!\\)\| ", row)[1]
                found += [form.replace("\\|", "|") for form in re.findall("`(.*?)`", cell)]
        return found

    def commands_in_help(self, name):
        text = self.start("help", name).out.partition("\ncommands:\n")[2]
        return [re.match(r"  (.*?)(?:  |$)", line)[1] for line in text.splitlines()]

    def test_help_has_the_commands_of_scripts_and_of_the_debugger(self):
        script = self.commands_in_help("script")
        self.assertEqual(script, self.documented("script"))
        self.assertEqual(len(script), 15)
        debug = [form.split()[0] for form in self.commands_in_help("debug")]
        documented = [form.split()[0] for form in self.documented("debug",
                                                                  "The calculator in a terminal")]
        self.assertEqual(sorted(debug), sorted({*documented, "save!"}))

    def test_help_fits_a_terminal(self):
        texts = [self.start("help").out, *(self.start("help", command).out for command in
                                            ("eval", "run", "debug", "check", "fmt", "script", "plot", "gif"))]
        for line in "".join(texts).splitlines():
            self.assertLessEqual(len(line), 80, line)

    def test_version(self):
        with open(os.path.join(REPOSITORY, "CMakeLists.txt"), encoding="utf-8") as file:
            version = re.search(r"project\(.*?VERSION ([0-9.]+)", file.read(), re.DOTALL).group(1)
        self.assertEqual(self.start("--version").out, f"vorstek-cli {version}\n")

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
        for name in ("graph", "graph.gif", "graph.txt.gif", ""):
            self.assert_refused("run", "program.txt", "--graph", name)

    def test_a_trace_file_that_cannot_be_written(self):
        self.assert_refused("run", "program.txt", "--trace", os.path.join("missing", "trace.txt"),
                            mentions="trace.txt")


class DocumentTest(ConsoleCase):
    """The documents list the options that the program's own help lists."""

    def options(self, command):
        return set(re.findall(r"^  (--[a-z-]+)", self.start("help", command).out, re.MULTILINE))

    def commands(self):
        return re.findall(r"^  (\w+)", self.start("help").out, re.MULTILINE)

    @staticmethod
    def sections(name, heading):
        """The text below each heading, up to the next one."""
        with open(os.path.join(REPOSITORY, "docs", name), encoding="utf-8") as file:
            parts = re.split(heading, file.read(), flags=re.MULTILINE)
        return dict(zip(parts[1::2], parts[2::2]))

    def assert_documented(self, name, heading):
        sections = self.sections(name, heading)
        of_plot = self.options("plot")      # run draws figures too, and refers to plot
        known = {"--help", "--version"}.union(*map(self.options, self.commands()))
        for command in self.commands():
            options = self.options(command)
            text = sections.get(command, "")
            named = set(re.findall(r"(?<![\w-])--[a-z-]*[a-z]", text))
            missing = options - named - (of_plot if command == "run" else set())
            self.assertEqual(missing, set(), (name, command))
            self.assertEqual(named - known, set(), (name, command))

    def test_the_text_of_the_program(self):
        self.assert_documented("console.md", r"^## (\w+)$")

    def test_the_page_of_the_manual(self):
        self.assert_documented("manual/console.htm", r'^<h2 id="(\w+)"')

    def test_the_manual_page_takes_the_tables(self):
        sections = self.sections("vorstek-cli.1.in", r"^\.SS (\w+)$")
        for command in self.commands():
            if self.options(command):
                self.assertIn(f"@OPTIONS {command}@", sections[command])


class UnwritableOutputTest(LinuxCase):

    def setUp(self):
        super().setUp()
        self.listing("1", "PAUSE", "PAUSE", name="program.txt")
        self.listing("1", name="quiet.txt")
        self.listing("nonsense", name="bad.txt")
        self.listing("LBL 0", "PAUSE", "GTO 0", name="endless.txt")

    def assert_output_lost(self, *arguments, stdin=b""):
        with open("/dev/full", "wb") as full:
            result = self.start(*arguments, stdin=stdin, stdout=full)
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot write to standard output\n"), arguments)

    def test_output_to_a_full_disk(self):
        self.assert_output_lost("run", "program.txt")
        self.assert_output_lost("run", "quiet.txt", "--json")
        self.assert_output_lost("check", "bad.txt")
        self.assert_output_lost("fmt", "-", stdin="5\n")
        self.assert_output_lost("script", stdin="state\n")

    def test_lost_output_halts_the_program(self):
        self.write("graph.txt", "old")
        self.assert_output_lost("run", "endless.txt", "--graph", "graph.txt")
        self.assertEqual(self.read("graph.txt"), b"old")
        self.assert_output_lost("script", stdin="open endless.txt\nlimit 1000000000000\n" +
                                key_line("R/S") + "\n")

    def test_lost_output_ends_the_waiting(self):
        self.listing(*90 * ["PAUSE"], name="slow.txt")
        begin = time.monotonic()
        self.assert_output_lost("run", "slow.txt", "--realtime")
        self.assertLess(time.monotonic() - begin, 45)

    def test_lost_output_ends_the_script(self):
        self.assert_output_lost("script", stdin="open program.txt\nsave first.txt\nstate\n"
                                                "save second.txt\n")
        self.assertTrue(os.path.exists(self.path("first.txt")))
        self.assertFalse(os.path.exists(self.path("second.txt")))

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


class UnreadableInputTest(LinuxCase):

    def test_a_folder_as_standard_input(self):
        folder = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        for arguments in (["script"], ["eval"], ["run", "-"], ["check", "-"], ["fmt", "-"]):
            result = self.start(*arguments, stdin=None, preexec_fn=lambda: os.dup2(folder, 0))
            self.assertEqual((result.code, result.out, result.err),
                             (2, "", "vorstek-cli: cannot read standard input\n"))

    def test_a_file_that_fails_while_it_is_read(self):
        # A process has no memory at its address 0.
        result = self.start("script", "/proc/self/mem")
        self.assertEqual((result.code, result.out, result.err),
                         (2, "", "vorstek-cli: cannot read '/proc/self/mem': it fails while it is "
                                 "read\n"))


class RunScriptTest(LinuxCase):
    """./run, in a copy of the project that holds nothing else. The program is
    built already; it and the tools of the build only say their arguments."""

    def setUp(self):
        super().setUp()
        for name in ("run", os.path.join("scripts", "setup.sh")):
            os.makedirs(os.path.dirname(self.path(os.path.join("project", name))), exist_ok=True)
            shutil.copy(os.path.join(REPOSITORY, name), self.path(os.path.join("project", name)))
        self.write_tool(os.path.join("project", "build", "native", "console", "vorstek-cli"),
                        'echo "vorstek-cli $*"')
        self.write_tool(os.path.join("tools", "cmake"), 'echo "cmake $*" >>"$LOG"')
        for tool in ("sh", "cat", "dirname", "id", "mkdir", "readlink", "tail"):
            os.symlink(shutil.which(tool), self.path(os.path.join("tools", tool)))

    def write_tool(self, name, line):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        self.write(name, f"#!/bin/sh\n{line}\n")
        os.chmod(self.path(name), 0o755)

    def run_script(self, name, *arguments):
        return subprocess.run([self.path(name), *arguments], cwd="/", capture_output=True,
                              text=True, timeout=60, check=False,
                              env={"PATH": self.path("tools"), "LOG": self.path("log")})

    def assert_built_and_run(self, name):
        done = self.run_script(name, "check", "two words")
        self.assertEqual((done.returncode, done.stdout), (0, "vorstek-cli check two words\n"),
                         done.stderr)
        self.assertIn(f"cmake -S {os.path.realpath(self.path('project'))} ", self.read_text("log"))
        return done.stderr

    def test_without_a_package_manager(self):
        message = self.assert_built_and_run("project/run")
        self.assertIn("Going on with what there is.", message)

    def test_without_anybody_who_may_install(self):
        self.write_tool(os.path.join("tools", "dpkg-query"), "exit 1")
        os.remove(self.path(os.path.join("tools", "id")))
        self.write_tool(os.path.join("tools", "id"), "echo 1000")
        message = self.assert_built_and_run("project/run")
        self.assertIn("Only root can install them", message)
        self.assertIn("Going on with what there is.", message)

    def test_through_links(self):
        os.symlink("project/run", self.path("first"))
        os.symlink(self.path("first"), self.path("second link"))
        os.symlink("project", self.path("folder"))
        for name in ("first", "second link", "folder/run"):
            self.assert_built_and_run(name)

    def test_a_build_that_fails(self):
        self.write_tool(os.path.join("tools", "cmake"), "echo no compiler; exit 1")
        done = self.run_script("project/run")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("no compiler", done.stderr)


if __name__ == "__main__":
    main()
