"""The program calculates the same as the one of another platform, bit for bit:
100,000 random keys in both, and the same bytes from both."""

import os
import random
import subprocess

from console_case import KEYS, TIMEOUT, ConsoleCase, Result, main

KEY_EVENTS = 100_000
SCRIPTS = 5
PLAIN_KEYS = [key for name, key in KEYS.items() if name not in ("f", "g")]
DIGITS = [KEYS[digit] for digit in "0123456789"]


class Keys(random.Random):
    """Numbers and functions, one after the other; now and then any key."""

    def number(self):
        keys = self.choices(DIGITS, k=self.randint(1, 6))
        if self.random() < 0.5:
            keys.insert(self.randint(0, len(keys)), KEYS["."])
        if self.random() < 0.3:
            keys.append(KEYS["CHS"])
        if self.random() < 0.2:
            keys += [KEYS["EEX"], *self.choices(DIGITS, k=self.randint(1, 2))]
            if self.random() < 0.5:
                keys.append(KEYS["CHS"])
        return keys

    def function(self):
        prefix = self.choice(([], [KEYS["f"]], [KEYS["g"]]))
        return prefix + [self.choice(PLAIN_KEYS)]

    def word(self):
        chance = self.random()
        if chance < 0.3:
            return self.number() + [KEYS["ENTER"]]
        if chance < 0.5:
            return self.number()
        return self.function()


def script(seed, count):
    """A script of this many keys or a few more, and their number. A key that
    leads to an error, or starts a program, waits for another one."""
    chance = Keys(seed)
    lines, keys = ["option sound off", "limit 50"], 0
    while keys < count:
        some = [key for _ in range(3) for key in chance.word()]
        lines += [f"key {' '.join(map(str, some))}", "state"]
        keys += len(some)
        if chance.random() < 0.01:
            lines.append("reset")
            lines += ["option sound off", "limit 50"]
    return "\n".join(lines) + "\n", keys


class SameNumbersTest(ConsoleCase):

    def peer(self, text):
        """What the program of the other platform prints."""
        program = os.environ["VORSTEK_PEER"]
        self.assertTrue(os.path.exists(program), f"{program} is missing: build the preset native")
        done = subprocess.run([program, "script"], cwd=self.folder, input=text.encode(),
                              timeout=TIMEOUT, capture_output=True, check=False)
        return Result(done.returncode, done.stdout, done.stderr)

    def test_the_same_keys_give_the_same_bytes(self):
        pressed = shown = 0
        for seed in range(SCRIPTS):
            text, keys = script(seed, KEY_EVENTS // SCRIPTS)
            ours, theirs = self.start("script", stdin=text), self.peer(text)
            self.assertEqual((ours.code, ours.err), (0, ""))
            self.assertEqual((theirs.code, theirs.err), (0, ""))
            our_lines = ours.raw_out.replace(b"\r\n", b"\n").split(b"\n")
            their_lines = theirs.raw_out.split(b"\n")
            for number, (our_line, their_line) in enumerate(zip(our_lines, their_lines)):
                self.assertEqual(our_line, their_line, f"seed {seed}, line {number}")
            self.assertEqual(len(our_lines), len(their_lines))
            pressed += keys
            shown += len({line.split(b'"lastx"')[0] for line in our_lines})
        self.assertGreaterEqual(pressed, KEY_EVENTS)
        # The keys do calculate.
        self.assertGreater(shown, KEY_EVENTS // 20)


if __name__ == "__main__":
    main()
