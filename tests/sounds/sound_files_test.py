"""The sound files: sizes, form, loudness, silence at both ends, and that nobody
can take one for another."""

import array
import math
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import wave

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "resources" / "sounds"

# Resource, file, bytes, milliseconds at least and at most.
SOUNDS = (
    (10050, "key_click.wav", 2596, 20, 60),
    (10051, "refusal.wav", 3550, 30, 100),
    (10052, "error.wav", 24168, 250, 600),
    (10053, "halted.wav", 150396, 1000, 2000),
    (10054, "cleared.wav", 119384, 1000, 2000),
    (10055, "slide_on.wav", 1934, 20, 60),
    (10056, "slide_off.wav", 2143, 20, 60),
    (10057, "program_mode.wav", 1589, 20, 60),
    (10058, "run_mode.wav", 4849, 50, 120),
)
NAMES = [name for _, name, *_ in SOUNDS]
RATE = 22050                            # samples a second
FINE = ("halted.wav", "cleared.wav")    # with twice as many

QUIET = 33      # a thousandth of full scale


def samples(path):
    with wave.open(str(path)) as sound:
        values = array.array("h", sound.readframes(sound.getnframes()))
    if sys.byteorder == "big":
        values.byteswap()
    return values


def rms(values):
    return math.sqrt(sum(value * value for value in values) / len(values))


def crossings(values):
    """How often it swings through zero, a measure of pitch."""
    return sum((one < 0) != (other < 0) for one, other in zip(values, values[1:]))


def likeness(one, other):
    """From 0 to 1, where 1 is the same but for loudness, at the best of all
    shifts up to 5 ms."""
    short, long = sorted((one, other), key=len)
    norm = math.sqrt(sum(v * v for v in short) * sum(v * v for v in long))
    return max(abs(sum(a * b for a, b in zip(short, long[shift:])))
               for shift in range(0, 110, 2)) / norm


ALL = {name: samples(FOLDER / name) for name in NAMES}


class SoundFilesTest(unittest.TestCase):

    def test_sizes_are_those_of_the_resources(self):
        for _, name, size, *_ in SOUNDS:
            self.assertEqual((FOLDER / name).stat().st_size, size, name)
        self.assertEqual(sorted(path.name for path in FOLDER.iterdir()), sorted(NAMES))

    def test_numbers_of_the_resources(self):
        numbers = dict(re.findall(r"#define (IDW_\w+) (\d+)",
                                  (ROOT / "resources" / "calculator_ids.h").read_text()))
        rows = re.findall(r'^(IDW_\w+) +WAVE "sounds/(.+)"$',
                          (ROOT / "resources" / "vorstek.rc").read_text(), re.MULTILINE)
        self.assertEqual([(int(numbers[name]), file) for name, file in rows],
                         [(number, file) for number, file, *_ in SOUNDS])

    def test_each_is_one_whole_form_of_two_chunks(self):
        # A form has an even number of bytes; a zero follows an odd size.
        for _, name, size, *_ in SOUNDS:
            with self.subTest(name):
                data = (FOLDER / name).read_bytes()
                form, length, kind = struct.unpack_from("<4sI4s", data)
                self.assertEqual((form, kind), (b"RIFF", b"WAVE"))
                self.assertEqual(length % 2, 0)
                self.assertEqual(data[8 + length:], bytes(size % 2))
                tag, length_of_format = struct.unpack_from("<4sI", data, 12)
                self.assertEqual((tag, length_of_format), (b"fmt ", 16))
                code, channels, rate, bytes_a_second, frame, bits = struct.unpack_from(
                    "<HHIIHH", data, 20)
                self.assertEqual((code, channels, frame, bits), (1, 1, 2, 16))
                self.assertEqual(rate, 2 * RATE if name in FINE else RATE)
                self.assertEqual(bytes_a_second, 2 * rate)
                tag, length_of_samples = struct.unpack_from("<4sI", data, 36)
                self.assertEqual(tag, b"data")
                self.assertEqual(44 + length_of_samples, 8 + length)

    def test_other_readers_agree_on_the_samples(self):
        for name, values in ALL.items():
            out = subprocess.run(["ffmpeg", "-v", "error", "-i", FOLDER / name, "-f", "s16le", "-"],
                                 stdin=subprocess.DEVNULL, capture_output=True, check=True)
            self.assertEqual(out.stderr, b"")
            self.assertEqual(out.stdout, struct.pack("<%dh" % len(values), *values))

    def test_clicks_are_short_and_notes_are_long(self):
        for _, name, _, least, most in SOUNDS:
            with wave.open(str(FOLDER / name)) as sound:
                length = 1000 * sound.getnframes() / sound.getframerate()
            self.assertTrue(least <= length <= most, f"{name}: {length} ms")

    def test_none_is_loud_clipped_or_hardly_heard(self):
        for values in ALL.values():
            peak = max(abs(value) for value in values)
            self.assertGreater(peak, 0.25 * 32767)
            self.assertLess(peak, 0.5 * 32767)
            self.assertGreater(rms(values), 0.015 * 32767)
            self.assertLess(rms(values), 0.15 * 32767)
            self.assertLess(max(map(len, re.findall(r"(?:P+|N+)", "".join(
                "P" if v == peak else "N" if v == -peak else "-" for v in values)))), 3)

    def test_each_begins_and_ends_in_silence_and_swings_around_zero(self):
        for values in ALL.values():
            self.assertEqual(values[0], 0)
            self.assertEqual(set(values[-5:]), {0})
            self.assertLess(max(map(abs, values[:3])), 10 * QUIET)
            self.assertLess(max(map(abs, values[-len(values) // 50:])), QUIET)
            self.assertLess(abs(sum(values)) / len(values), 1)

    def test_notes_die_away(self):
        for name in ("error.wav", "halted.wav", "cleared.wav"):
            values = ALL[name]
            tenth = len(values) // 10
            loudness = [rms(values[i * tenth:(i + 1) * tenth]) for i in range(10)]
            for earlier, later in zip(loudness[4:], loudness[6:]):
                self.assertLess(later, earlier, name)
            self.assertLess(loudness[9], 0.03 * max(loudness), name)

    def test_no_two_are_alike(self):
        starts = [values[::2 if name in FINE else 1][:2500] for name, values in ALL.items()]
        for i, one in enumerate(starts):
            for other in starts[:i]:
                self.assertLess(likeness(one, other), 0.5)

    def test_the_switch_is_heard_to_move_one_way_and_the_other(self):
        def middle(values):
            """Where on its way the loudness has its centre, 0 to 1."""
            weights = [value * value for value in values]
            return sum(i * w for i, w in enumerate(weights)) / sum(weights) / len(values)

        there, back = ALL["slide_on.wav"], ALL["slide_off.wav"]
        self.assertGreater(middle(there), 0.4)
        self.assertLess(middle(back), 0.3)

    def test_the_refusal_is_lower_than_the_key_click(self):
        click, refusal = ALL["key_click.wav"], ALL["refusal.wav"]
        self.assertLess(3 * crossings(refusal[:600]), crossings(click[:600]))

    def test_they_are_what_the_script_makes(self):
        # Another library of mathematics may round a last digit otherwise.
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, ROOT / "art" / "make_sounds", folder], check=True)
            for name, values in ALL.items():
                made = samples(pathlib.Path(folder) / "sounds" / name)
                self.assertEqual(len(made), len(values))
                self.assertLessEqual(max(abs(a - b) for a, b in zip(made, values)), 1)


if __name__ == "__main__":
    unittest.main()
