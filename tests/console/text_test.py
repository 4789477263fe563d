"""Texts in the program's output are UTF-8, whatever bytes the input holds."""

import os
import random

from console_case import CLICK, REJECT, ConsoleCase, LinuxCase, main

# Bytes and what appears for them: each byte that is not part of a valid
# sequence becomes one U+FFFD.
SAMPLES = {
    b"plain": "plain",
    b"\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80": "\u00e9 \u20ac \U0001f600",
    b"\x7f \xc2\x80 \xdf\xbf \xe0\xa0\x80 \xef\xbf\xbf \xf0\x90\x80\x80 \xf4\x8f\xbf\xbf":
        "\x7f \u0080 \u07ff \u0800 \uffff \U00010000 \U0010ffff",
    b"\xed\x9f\xbf \xee\x80\x80 \xef\xbf\xbd": "\ud7ff \ue000 \ufffd",
    b"\x80 \xbf \xff \xfe": "\ufffd \ufffd \ufffd \ufffd",
    b"\xc3": "\ufffd",
    b"\xc3x": "\ufffdx",
    b"\xe2\x82": 2 * "\ufffd",
    b"\xe2\x82x": "\ufffd\ufffdx",
    b"\xf0\x9f\x98": 3 * "\ufffd",
    b"\xf0\x9f\x98\xc3\xa9": 3 * "\ufffd" + "\u00e9",
    b"\xc3\xc3\xa9": "\ufffd\u00e9",
    b"\xc3\xa9\xa9": "\u00e9\ufffd",
    b"\xc0\xaf \xc1\xbf": "\ufffd\ufffd \ufffd\ufffd",             # too long for what they say
    b"\xe0\x80\xaf \xe0\x9f\xbf": "\ufffd\ufffd\ufffd \ufffd\ufffd\ufffd",
    b"\xf0\x80\x80\xaf \xf0\x8f\xbf\xbf": 4 * "\ufffd" + " " + 4 * "\ufffd",
    b"\xed\xa0\x80 \xed\xbf\xbf": "\ufffd\ufffd\ufffd \ufffd\ufffd\ufffd",     # halves of pairs
    b"\xf4\x90\x80\x80": 4 * "\ufffd",                                     # beyond the last code
    b"\xf5\x80\x80\x80 \xf8\x88\x80\x80\x80": 4 * "\ufffd" + " " + 5 * "\ufffd",
}


def appearance(data):
    """What appears for any bytes, by trying at each place."""
    text, at = "", 0
    while at < len(data):
        for length in (1, 2, 3, 4):
            try:
                text += data[at:at + length].decode("utf-8")
                at += length
                break
            except UnicodeDecodeError:
                pass
        else:
            text += "\ufffd"
            at += 1
    return text


class TextTest(ConsoleCase):

    def events(self, *lines):
        """From a file: Windows takes some bytes of standard input for more
        than themselves."""
        self.write("script.txt", b"".join(line + b"\n" for line in lines))
        result = self.start("script", "script.txt")
        self.assertEqual(result.err, "")
        return result.events

    def test_the_samples(self):
        for data, text in SAMPLES.items():
            self.assertEqual(appearance(data), text)

    def test_lines_that_are_no_command(self):
        texts = [event["text"] for event in self.events(*(b"say " + data for data in SAMPLES))]
        self.assertEqual(texts, ["say " + text for text in SAMPLES.values()])

    def test_lines_of_random_bytes(self):
        chance = random.Random(3)
        lines = [b"say " +
                 bytes(chance.choice((chance.randrange(256), chance.randrange(0x80, 0x100)))
                       for _ in range(chance.randrange(40))).replace(b"\n", b"").rstrip(b"\r")
                 for _ in range(300)]
        texts = [event["text"] for event in self.events(*lines)]
        self.assertEqual(texts, [appearance(line) for line in lines])

    def test_listing_lines(self):
        self.write("program.txt",
                   b"".join(b"; " + data + b"\n5 ; " + data + b"\n" for data in SAMPLES))
        state = self.events(b"open program.txt", b"state")[-1]
        wanted = [line for n, text in enumerate(SAMPLES.values(), 1)
                  for line in ("   ; " + text, f"{n:02} 5 ; {text}")]
        self.assertEqual(state["listing"][1:1 + len(wanted)], wanted)

    def test_a_character_cut_by_the_longest_line(self):
        self.write("program.txt", b";" + 509 * b"x" + b"\xc3\xa9y\n")
        state = self.events(b"answer ok", b"open program.txt", b"state")[-1]
        self.assertEqual(state["listing"][1:3], ["   ;" + 509 * "x" + "\ufffd", "-- \ufffdy"])

    def test_boxes(self):
        self.write("program.txt", b"caf\xc3\xa9\xff\n")
        box = self.events(b"open program.txt")[0]
        self.assertEqual(box["text"],
                         "Error: unrecognized instr mnemonic on line #1:\ncaf\u00e9\ufffd")

    def test_titles_and_labels(self):
        self.write("data.txt", b'Title "\xc3\xa9\xff"\nHorzAxisLabel "\xe2\x82\xac\xe2"\n'
                               b'SetLabels "\xf0\x9f\x98\x80\x80"\n1\n')
        state = self.events(b"graph open data.txt", b"state")[-1]
        self.assertEqual((state["graph_title"], state["graph_label"], state["graph"][0]["label"]),
                         ("\u00e9\ufffd", "\u20ac\ufffd", "\U0001f600\ufffd"))

    def test_any_bytes_come_back_as_they_were(self):
        content = b"".join(b"; " + data + b"\r\n" for data in SAMPLES)
        self.write("program.txt", content)
        self.events(b"open program.txt", b"save saved.txt")
        self.assertEqual(self.read("saved.txt"), content)

    def test_a_typed_character_is_one_whatever_its_bytes(self):
        self.assertEqual(
                         [event["id"]
                          for event in self.events("text \u00e95\u20ac\U0001f600".encode())],
                         [REJECT, CLICK, REJECT, REJECT])


class ByteNameTest(LinuxCase):
    """A file name is bytes that mean what their writer likes."""

    NAMES = (b"caf\xc3\xa9.txt", b"\xff\xfe.txt", b"\xe2\x82\xac \xe2\x82.txt")

    def events(self, *lines):
        return self.start("script", stdin=b"".join(line + b"\n" for line in lines)).events

    def test_names_in_boxes(self):
        for name in self.NAMES:
            events = self.events(b"open " + name, b"graph open " + name, b"save missing/" + name)
            self.assertEqual([event["text"] for event in events],
                             [f"ERROR: couldn't open the file '{appearance(name)}' for reading",
                              f"Could not read the file:\n {appearance(name)}",
                              f"Could not write the file:\n missing/{appearance(name)}"])

    def test_names_are_used_as_they_are(self):
        for name in self.NAMES:
            state = self.events(b"save " + name, b"state")[-1]
            self.assertEqual(state["file"], appearance(name))
            self.assertIn(name, os.listdir(self.folder.encode()))
            result = self.start("run", name, "--json")
            self.assertEqual((result.code, result.state["file"]), (0, appearance(name)))


class NameTest(ConsoleCase):
    """File names are UTF-8, in arguments and in scripts."""

    NAME = "Gr\u00fc\u00dfe \u03a3 \u221a\u4e2d\U0001f600.txt"

    def test_in_a_script(self):
        self.script("do 5 STO 1", "up 32", "do 7 STO 3", f"save {self.NAME}")
        self.assertEqual(os.listdir(self.folder), [self.NAME])
        state = self.state_after(f"open {self.NAME}")
        self.assertEqual((state["program"][1:3], state["file"]), (["7", "STO 3"], self.NAME))

    def test_as_arguments(self):
        self.listing("5", "SumG", "0", "1/x", name=self.NAME)
        result = self.start("run", self.NAME, "--graph", "\u00fc.txt", "--trace", "\u03a3.txt")
        self.assertEqual((result.code, result.err),
                         (1, f"{self.NAME}:4: 1/x: Error: divide by 0\n"))
        self.assertEqual(sorted(os.listdir(self.folder)),
                         sorted([self.NAME, "\u00fc.txt", "\u03a3.txt"]))
        self.assertEqual(self.start("fmt", "--check", self.NAME).code, 0)
        self.assertEqual(self.start("check", "\u4e2d.txt").err,
                         "vorstek-cli: cannot read '\u4e2d.txt': no such file\n")


if __name__ == "__main__":
    main()
