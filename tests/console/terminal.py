"""A terminal in which the program runs: keys go into one of tmux, and its screen is
read. Debian packages: procps tmux."""

import contextlib
import os
import pty
import re
import select
import shutil
import subprocess
import time

import console_case
from console_case import EXAMPLES, ConsoleCase
from manual_pages import pages

PATIENCE = 30       # seconds; a busy machine takes longer than usual
ANSWERS = 0.05


def wait_until(is_so):
    end = time.monotonic() + PATIENCE
    while not is_so():
        if time.monotonic() > end:
            raise AssertionError("this did not come")
        time.sleep(ANSWERS)


class Terminal:
    """A terminal in which the program runs. Waits for what it is asked for."""

    def __init__(self, folder, arguments=(), size="80x24", environment=(), name="first",
                 shell=0):
        """Or a shell with job control, in which the program can be started."""
        self._socket = os.path.join(folder, name)
        width, height = size.split("x")
        settings = ["env", f"XDG_STATE_HOME={folder}/state", f"HOME={folder}", "LC_ALL=C.UTF-8",
                    "NO_COLOR=", *environment]
        self._tmux("-f", "/dev/null", "new-session", "-d", "-x", width, "-y", height, "-c", folder,
                   *settings, "PS1=$ ", "sh", *(["-i"] if shell else
                   ["-c", '"$@"; echo "exit code $?"; exec cat', "sh", *console_case.command,
                    *arguments]))

    def _tmux(self, *arguments):
        return subprocess.run(["tmux", "-S", self._socket, *arguments], check=True,
                              capture_output=True, text=True).stdout

    def close(self):
        self._tmux("kill-server")

    def keys(self, *keys):
        """Names of tmux: "Enter", "C-c", "Up"."""
        self._tmux("send-keys", *keys)

    def type(self, text):
        self._tmux("send-keys", "-l", text)

    def line(self, text):
        self.type(text)
        self.keys("Enter")

    def program(self):
        """The process number of the program."""
        shell = self._tmux("display-message", "-p", "#{pane_pid}").strip()
        found = subprocess.run(["pgrep", "-P", shell], check=True, capture_output=True, text=True)
        return int(found.stdout.split()[0])

    def run_line(self, text):
        """A line that runs a program, which then calculates."""
        def ticks():
            with open(f"/proc/{self.program()}/stat", encoding="ascii") as file:
                return int(file.read().rpartition(")")[2].split()[11])

        before = ticks()
        self.line(text)
        wait_until(lambda: ticks() > before + 5)

    def resize(self, width, height):
        """tmux lets some time pass before the programs in the window see it."""
        self._tmux("resize-window", "-x", str(width), "-y", str(height))
        name = self._tmux("display-message", "-p", "#{pane_tty}").strip()
        with open(name, "rb", buffering=0) as tty:
            wait_until(lambda: os.get_terminal_size(tty.fileno()) == (width, height))

    def column(self):
        """Of the cursor, from 0."""
        return int(self._tmux("display-message", "-p", "#{cursor_x}"))

    def screen(self):
        """Its rows, without those that are empty at the end."""
        return self._tmux("capture-pane", "-p").rstrip("\n").split("\n")

    def wait(self, is_so):
        end = time.monotonic() + PATIENCE
        while True:
            screen = self.screen()
            if is_so(screen):
                return screen
            if time.monotonic() > end:
                raise AssertionError("the screen shows\n" + "\n".join(screen))
            time.sleep(ANSWERS)

    def wait_for(self, *rows):
        """Until these rows are the last ones; regular expressions, trailing blanks apart."""
        pattern = re.compile("\n".join(rows) + r"\Z")
        return self.wait(lambda screen: pattern.search("\n".join(row.rstrip() for row in screen)))


def stack(x="0.00", y="0.00", z="0.00", t="0.00", last="0.00", modes="DEG  FIX 2"):
    """The rows of the calculator."""
    return [re.escape(row) for row in (f"LASTx {last}  {modes}", f"T   {t}", f"Z   {z}",
                                       f"Y   {y}", f"X   {x}")]


class TerminalCase(ConsoleCase):
    """A test that looks at a terminal."""

    PROMPT = "> "

    def terminal(self, *arguments, **options):
        terminal = Terminal(self.folder, arguments, **options)
        self.addCleanup(terminal.close)
        terminal.wait(lambda screen: screen[-1].startswith(self.PROMPT.strip()))
        return terminal

    def assert_dialogues(self, name, *arguments):
        """The manual's dialogues with this class are what a plain terminal shows."""
        shutil.copytree(EXAMPLES, self.path("examples"))
        blocks = [block for page in pages() for block in page.having("pre", name)]
        self.assertTrue(blocks)
        for block in blocks:
            shown = block.text.lstrip("\n")
            typed = "".join(line.removeprefix(self.PROMPT) + "\n" for line in shown.splitlines()
                            if line.startswith(self.PROMPT))
            output = self.through_terminal("dumb", typed.encode() + b"\x04", arguments).decode()
            self.assertEqual(output.replace("\r\n", "\n").partition("\n")[2], f"{shown}{self.PROMPT}\n")

    @contextlib.contextmanager
    def program_in_terminal(self, kind, arguments=(), setting="NO_COLOR="):
        """The program after its first prompt, and the other side of its terminal, which is
        of this kind."""
        name, value = setting.split("=")
        environment = dict(os.environ, TERM=kind, HOME=self.folder, LC_ALL="C.UTF-8")
        environment.pop("XDG_STATE_HOME", None)
        environment[name] = value
        terminal, inside = pty.openpty()
        with subprocess.Popen([*console_case.command, *arguments], stdin=inside, stdout=inside,
                              stderr=inside, cwd=self.folder, env=environment,
                              start_new_session=True) as process:
            os.close(inside)
            try:
                self.greeting = self.until(terminal, b"\n" + self.PROMPT.encode())
                yield process, terminal
            finally:
                os.close(terminal)      # ends what still waits for keys
                process.kill()

    def through_terminal(self, kind, typed, arguments=(), setting="NO_COLOR="):
        """What the program writes to a terminal of this kind."""
        with self.program_in_terminal(kind, arguments, setting) as (process, terminal):
            output = self.greeting
            for line in typed.splitlines(keepends=True):
                os.write(terminal, line)
                if line != b"\x04":
                    output += self.until(terminal, b"\n" + self.PROMPT.encode())
            output += self.until(terminal, None)
            self.assertEqual(process.wait(PATIENCE), 0)
        return output

    @staticmethod
    def until(terminal, end):
        output = b""
        while end is None or end not in output:
            if not select.select([terminal], [], [], PATIENCE)[0]:
                raise AssertionError(f"the program waits after {output!r}")
            try:
                more = os.read(terminal, 4096)
            except OSError:             # the other side has closed it
                more = b""
            if not more:
                break
            output += more
        return output
