"""The program for WebAssembly does the same as the native one, bit for bit: scripts of
random keys, programs and runs in both, and the same bytes from both."""

import os
import subprocess

from console_case import KEYS, TIMEOUT, ConsoleCase, main
from same_numbers_test import Keys

SCRIPTS = 2000 if "VORSTEK_THOROUGH" in os.environ else 300
MOST_EVENTS = 60

STACK_VIEW = 31
MODE = 32


class Script(Keys):
    """What a person may do with the calculator, and some things that nobody would."""

    def event(self):
        chance = self.random()
        if chance < 0.7:
            return f"key {' '.join(map(str, self.word()))}"
        if chance < 0.8:
            return self.choice((f"up {MODE}", f"down {MODE}", f"down {STACK_VIEW}",
                                f"up {STACK_VIEW}"))
        if chance < 0.85:
            return f"text {self.choice('0123456789.e+-*/?')}\\r"
        if chance < 0.9:
            return f"at {self.randint(1, 40)} down {self.randint(1, 32)}"
        if chance < 0.95:
            return f"answer {self.choice(('ok', 'cancel', 'yes', 'no'))}"
        return self.choice(("option trace off", "option keep-listing on", "option keep-registers on",
                            f"key {KEYS['R/S']}", f"key {KEYS['SST']}"))

    def lines(self):
        yield from ("reset", "limit 300")
        for _ in range(self.randint(5, MOST_EVENTS)):
            yield self.event()
            if self.random() < 0.2:
                yield "state"
        yield "state"


class ScriptsTest(ConsoleCase):

    def test_random_scripts_give_the_same_bytes(self):
        scripts = [list(Script(seed).lines()) for seed in range(SCRIPTS)]
        text = "".join(f"{line}\n" for script in scripts for line in script)
        ours = self.start("script", stdin=text)
        native = os.environ["VORSTEK_PEER"]
        self.assertTrue(os.path.exists(native), f"{native} is missing: build the preset native")
        theirs = subprocess.run([native, "script"], cwd=self.folder, input=text.encode(),
                                timeout=TIMEOUT, capture_output=True, check=False)
        self.assertEqual((ours.code, ours.err), (0, ""))
        self.assertEqual((theirs.returncode, theirs.stderr), (0, b""))
        our_lines, their_lines = ours.raw_out.split(b"\n"), theirs.stdout.split(b"\n")
        for number, (our_line, their_line) in enumerate(zip(our_lines, their_lines)):
            self.assertEqual(our_line, their_line, f"line {number}")
        self.assertEqual(len(our_lines), len(their_lines))
        self.assert_varied(their_lines)

    def assert_varied(self, lines):
        """The scripts reach what they are for: many numbers, programs and runs."""
        states = [line for line in lines if line.startswith(b'{"event":"state"')]
        self.assertGreater(len(states), SCRIPTS)
        self.assertGreater(len(set(states)), SCRIPTS)
        for reached in (b'"event":"box"', b'"event":"pause"', b'"mode":"program"', b"Error"):
            self.assertTrue(any(reached in line for line in lines), reached)


if __name__ == "__main__":
    main()
