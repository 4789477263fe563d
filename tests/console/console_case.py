"""What all tests of the console program share: starting it, talking to it, and
choosing the tests that fit the platform it was built for.

A test file is a program:

    python3 run_test.py [--platform NAME] [unittest options] -- COMMAND...

COMMAND is the console program, with an emulator in front of it if it needs
one. Without "--", the environment variable VORSTEK_CLI names it. The platform
is what CMake calls it, "Linux" (the default) or "Windows".
"""

import json
import os
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

if os.name == "posix":
    import resource

# Generous: an emulator, sanitizers and a busy machine may come together. A
# program that hangs is found all the same.
TIMEOUT = 120

REPOSITORY = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
EXAMPLES = os.path.join(REPOSITORY, "examples")

# Keys of the calculator's face by the texts on them.
KEYS = {
    "SST": 1, "GSB": 2, "GTO": 3, "f": 4, "g": 5, "x<>y": 6, "Rolldown": 7,
    "STO": 8, "RCL": 9, "Sum+": 10, "ENTER": 11, "CHS": 12, "EEX": 13, "CLX": 14,
    "-": 15, "7": 16, "8": 17, "9": 18, "+": 19, "4": 20, "5": 21, "6": 22,
    "*": 23, "1": 24, "2": 25, "3": 26, "/": 27, "0": 28, ".": 29, "R/S": 30,
}
STACK_VIEW = 31     # press: the stack is shown; release: X alone
MODE_SWITCH = 32    # press: run mode; release: program mode

# Sounds by what they tell.
CLICK, REJECT, ERROR, HALT, ERROR_CLEARED = 10050, 10051, 10052, 10053, 10054
STACK_SHOWN, STACK_HIDDEN, PROGRAM_MODE, RUN_MODE = 10055, 10056, 10057, 10058

# Option of start() for a disk that takes files of 8000 bytes.
LITTLE_DISK = {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (8000, 8000))}

command = shlex.split(os.environ.get("VORSTEK_CLI", ""))
platform = "Linux"


class Result:
    """How the program ended and what it wrote, line ends as "\\n"."""

    def __init__(self, code, out, err):
        self.code = code
        self.raw_out, self.raw_err = out, err
        self.out, self.err = _text(out), _text(err)

    @property
    def state(self):
        """The state that "run --json" printed as its last line."""
        return self.events_of(self.raw_out.split(b"\n")[-2])[0]

    @property
    def events(self):
        return self.events_of(self.raw_out)

    @staticmethod
    def events_of(data):
        """One object per line, in valid UTF-8."""
        return [json.loads(line) for line in data.decode("utf-8").split("\n") if line]


def _text(data):
    """File names may hold any bytes."""
    text = data.decode("utf-8", "surrogateescape")
    return text.replace("\r\n", "\n") if platform == "Windows" else text


def key_line(*keys):
    """The command that presses the named keys: key_line("STO", "5")."""
    return "key " + " ".join(str(KEYS[key]) for key in keys)


def number(value):
    """A number of a JSON object as a float; "nan" and "inf" are texts there."""
    return float(value)


class ConsoleCase(unittest.TestCase):
    """A test with a scratch folder, which is the current one of the program."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="vorstek-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        data = content if isinstance(content, bytes) else content.encode()
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def read_text(self, name):
        return _text(self.read(name))

    def listing(self, *lines, name="program.txt"):
        """Writes a listing; returns its name."""
        self.write(name, "".join(line + "\n" for line in lines))
        return name

    def start(self, *arguments, stdin=b"", **options):
        """Runs the program to its end. No signal and no finding of a sanitizer
        may have ended it."""
        if stdin is not None:
            options["input"] = stdin if isinstance(stdin, bytes) else stdin.encode()
        done = subprocess.run([*command, *arguments], cwd=self.folder, timeout=TIMEOUT,
                              stdout=options.pop("stdout", subprocess.PIPE),
                              stderr=subprocess.PIPE, check=False, **options)
        result = Result(done.returncode, done.stdout or b"", done.stderr)
        self.assert_sound(result, arguments)
        return result

    def assert_sound(self, result, arguments):
        for trace in ("Sanitizer", "runtime error:"):
            self.assertNotIn(trace, result.err, f"arguments {arguments}")
        self.assertIn(result.code, (0, 1, 2, 3), f"arguments {arguments}: {result.err}")

    def run_program(self, *arguments, code=0):
        """vorstek-cli run, which must end with this exit code."""
        result = self.start("run", *arguments)
        self.assertEqual(result.code, code, result.err)
        return result

    def run_listing(self, lines, *arguments, code=0):
        return self.run_program(self.listing(*lines), *arguments, code=code)

    def script(self, *lines, code=0, err=""):
        """vorstek-cli script with these lines; returns the events."""
        result = self.start("script", stdin="".join(line + "\n" for line in lines))
        self.assertEqual((result.code, result.err), (code, err))
        return result.events

    def states(self, *lines, code=0):
        return [event for event in self.script(*lines, code=code) if event["event"] == "state"]

    def state_after(self, *lines):
        """The state after these lines."""
        return self.states(*lines, "state")[-1]

    def sounds(self, *lines):
        return [event["id"] for event in self.script(*lines) if event["event"] == "sound"]

    def boxes(self, *lines):
        return [event for event in self.script(*lines) if event["event"] == "box"]

    def assert_close(self, value, expected, digits=9):
        """Equal to so many significant digits; 0 is met to as many places."""
        self.assertLessEqual(abs(value - expected), 10.0 ** -digits * (abs(expected) or 1.0),
                             f"{value} is not {expected}")


class LinuxCase(ConsoleCase):
    """A test of things that only Linux has: devices, pipes with names, limits
    of a process, closed standard streams, file names of any bytes. Windows
    passes arguments and names through its code page, which is not ours."""


class WindowsCase(ConsoleCase):
    """A test of file names that only Windows refuses."""


def _tests(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from _tests(test)
        else:
            yield test


# The one place that chooses tests by platform.
def _fits_platform(test):
    return not isinstance(test, WindowsCase if platform == "Linux" else LinuxCase)


def main():
    global command, platform
    arguments = sys.argv[1:]
    if "--" in arguments:
        at = arguments.index("--")
        arguments, command = arguments[:at], arguments[at + 1:]
    if arguments[:1] == ["--platform"]:
        platform = arguments[1]
        arguments = arguments[2:]
    if not command:
        sys.exit("no command: put it after -- or into VORSTEK_CLI")

    if platform == "Windows":
        _start_emulator()

    unittest.defaultTestLoader.suiteClass = _PlatformSuite
    unittest.main(module="__main__", argv=[sys.argv[0], *arguments], testRunner=_Runner)


def _start_emulator():
    """The first program starts the emulator's own processes, which outlive it
    and would hold its pipes open."""
    subprocess.run([*command, "--help"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, timeout=2 * TIMEOUT, check=False)


class _PlatformSuite(unittest.TestSuite):
    """Holds the tests that fit the platform."""

    def addTest(self, test):
        if isinstance(test, unittest.TestSuite) or _fits_platform(test):
            super().addTest(test)


class _Runner(unittest.TextTestRunner):
    """No test at all is a failure too."""

    def run(self, test):
        result = super().run(test)
        if result.testsRun == 0:
            sys.exit("no test was run")
        return result
