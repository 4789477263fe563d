"""vorstek-cli gif: what it takes, what it refuses, and what becomes of the file
that it writes."""

import os
import random
import struct

import console_case
from bitmap import bmp_file, noise
from console_case import LITTLE_DISK, ConsoleCase, LinuxCase, main


class GifCase(ConsoleCase):

    def convert(self, *arguments, code=0):
        result = self.start("gif", *arguments)
        self.assertEqual((result.code, result.out), (code, ""), result.err)
        self.assertRegex(result.err, r"\A[^\n]+\n\Z" if code else r"\A\Z")
        return result

    def assert_refused(self, *arguments, mentions):
        self.assertIn(mentions, self.convert(*arguments, code=2).err)


class GifTest(GifCase):

    def setUp(self):
        super().setUp()
        # Two pixels above two: white, black; red, white.
        self.write("four.bmp", bmp_file(2, 2, pixels=bytes.fromhex(
            "0000ff ffffff 0000 ffffff 000000 0000")))

    def test_a_picture_byte_by_byte(self):
        self.convert("four.bmp", "four.gif")
        # White is the most frequent colour; red was met first of the others.
        colours = bytes.fromhex("ffffff ff0000 000000") + 253 * b"\x80\x80\x80"
        codes = (256, 0, 2, 1, 0, 257)
        bits = sum(code << 9 * at for at, code in enumerate(codes))
        self.assertEqual(self.read("four.gif"),
                         b"GIF87a" + struct.pack("<HHBBB", 2, 2, 0xF7, 0, 0) + colours
                         + b"\x2c" + struct.pack("<HHHHBB", 0, 0, 2, 2, 7, 8)
                         + b"\x07" + bits.to_bytes(7, "little") + b"\0;")

    def test_options_reach_the_encoder(self):
        self.convert("four.bmp", "four.gif", "--options",
                     "ilace transcol=edge xscreen=9 yscreen=8 xpos=3 ypos=2 background=5")
        data = self.read("four.gif")
        self.assertEqual(data[:6], b"GIF89a")
        self.assertEqual(struct.unpack("<HHBBB", data[6:13]), (9, 8, 0xF7, 5, 0))
        # Red is the colour at the bottom left.
        self.assertEqual(data[781:789], bytes((0x21, 0xF9, 4, 1, 0, 0, 1, 0)))
        self.assertEqual(struct.unpack("<BHHHHB", data[789:799]), (0x2C, 3, 2, 2, 2, 0x47))

    def test_arguments_come_in_any_order(self):
        self.convert("--options", "ilace", "four.bmp", "one.gif")
        self.convert("four.bmp", "--options", "ilace", "two.gif")
        self.assertEqual(self.read("one.gif"), self.read("two.gif"))

    def test_a_source_is_never_overwritten(self):
        bmp = self.read("four.bmp")
        os.link(self.path("four.bmp"), self.path("four.gif"))
        for name in ("four.bmp", "./four.bmp", "four.gif"):
            with self.subTest(name=name):
                self.assert_refused("four.bmp", name, mentions="'" + name + "': it is also ")
                self.assertEqual(self.read("four.bmp"), bmp)
        self.assertEqual(sorted(os.listdir(self.folder)), ["four.bmp", "four.gif"])

    def test_a_picture_of_standard_input(self):
        self.convert("four.bmp", "file.gif")
        result = self.start("gif", "-", "input.gif", stdin=self.read("four.bmp"))
        self.assertEqual((result.code, result.err), (0, ""))
        self.assertEqual(self.read("input.gif"), self.read("file.gif"))

        # Bytes that Windows would change in a text.
        data = bmp_file(16, 1, pixels=b"\r\n\x1a" * 16)
        self.write("bytes.bmp", data)
        self.convert("bytes.bmp", "file.gif")
        result = self.start("gif", "-", "-", stdin=data)
        self.assertEqual((result.code, result.err), (0, ""))
        self.assertEqual(result.raw_out, self.read("file.gif"))

    def test_errors_of_standard_input_and_output(self):
        result = self.start("gif", "-", "new.gif", stdin=b"01 PI\n" * 20)
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: standard input is not a BMP file\n"))
        self.assertEqual(os.listdir(self.folder), ["four.bmp"])

    def test_no_option_behind_two_dashes(self):
        self.assertEqual(self.start("gif", "--", "four.bmp", "--options").code, 0)
        self.assertTrue(os.path.exists(self.path("--options")))

    def test_wrong_usage(self):
        self.assert_refused(mentions="BMP")
        self.assert_refused("four.bmp", mentions="BMP")
        self.assert_refused("four.bmp", "four.gif", "five.gif", mentions="BMP")
        self.assert_refused("four.bmp", "four.gif", "--options", mentions="--options")
        self.assert_refused("four.bmp", "four.gif", "--interlace",
                            mentions="'--interlace' (see vorstek-cli --help)")
        self.assertEqual(os.listdir(self.folder), ["four.bmp"])

    def test_files_that_cannot_be_read_leave_the_old_picture(self):
        os.mkdir(self.path("folder"))
        self.write("empty.bmp", b"")
        self.write("text.bmp", b"01 PI\r\n" * 20)
        self.write("short.bmp", self.read("four.bmp")[:-1])
        self.write("packed.bmp", bmp_file(2, 2, bits=8, compression=1))
        self.write("huge.bmp", bmp_file(65535, 65535, pixels=b"\0" * 100))
        self.write("old.gif", b"old")
        for name, mentions in (("missing.bmp", "'missing.bmp': no such file"),
                               ("folder", "'folder': is a directory"),
                               ("empty.bmp", "is an incomplete BMP file"),
                               ("text.bmp", "is not a BMP file"),
                               ("short.bmp", "is an incomplete BMP file"),
                               ("packed.bmp", "is compressed"),
                               ("huge.bmp", "is an incomplete BMP file")):
            with self.subTest(name=name):
                self.assert_refused(name, "old.gif", mentions=mentions)
                self.assert_refused(name, "old.gif", mentions=name)
                self.assertEqual(self.read("old.gif"), b"old")

    def test_places_that_cannot_be_written(self):
        os.mkdir(self.path("folder"))
        self.assert_refused("four.bmp", "folder", mentions="folder")
        self.assert_refused("four.bmp", os.path.join("missing", "four.gif"), mentions="four.gif")
        self.assertEqual(sorted(os.listdir(self.folder)), ["folder", "four.bmp"])

    def test_damaged_files_are_converted_or_refused(self):
        chance = random.Random(8)
        good = [bmp_file(9, 7, bits, table=b"\x40" * (4 << bits if bits <= 8 else 0))
                for bits in (1, 4, 8, 16, 24, 32)]
        for number in range(90 if console_case.platform == "Linux" else 6):
            data = bytearray(good[number % 6])
            for _ in range(chance.randint(1, 3)):
                data[chance.randrange(54)] = chance.choice((0, 1, 3, 8, 40, 127, 255))
            self.write("bad.bmp", bytes(data[:chance.choice((len(data), len(data) - 5))]))
            result = self.start("gif", "bad.bmp", "bad.gif")
            with self.subTest(number=number):
                self.assertIn(result.code, (0, 2))
                self.assertRegex(result.err, r"\A[^\n]+\n\Z" if result.code else r"\A\Z")


class GifFileTest(GifCase, LinuxCase):

    def test_a_full_disk_leaves_the_old_picture(self):
        self.write("noise.bmp", noise(100))
        self.write("old.gif", b"old")
        result = self.start("gif", "noise.bmp", "old.gif", **LITTLE_DISK)
        self.assertEqual(result.code, 2)
        self.assertIn("old.gif", result.err)
        self.assertEqual(self.read("old.gif"), b"old")
        self.assertEqual(sorted(os.listdir(self.folder)), ["noise.bmp", "old.gif"])

    def test_a_device_that_is_full(self):
        self.write("noise.bmp", noise(100))
        self.assert_refused("noise.bmp", "/dev/full", mentions="/dev/full")
        with open("/dev/full", "wb") as full:
            result = self.start("gif", "noise.bmp", "-", stdout=full)
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot write standard output: no space left on the "
                             "device\n"))

    def test_a_source_is_not_overwritten_through_links(self):
        self.write("noise.bmp", noise(10))
        os.symlink("noise.bmp", self.path("link"))
        os.symlink(self.folder, self.path("folder"))
        for source, target in (("noise.bmp", "link"), ("link", "noise.bmp"),
                               ("noise.bmp", "folder/noise.bmp")):
            self.assert_refused(source, target,
                                mentions=f"'{target}': it is also '{source}'")
        with open(self.path("noise.bmp"), "rb") as source:
            result = self.start("gif", "-", "noise.bmp", stdin=None,
                                preexec_fn=lambda: os.dup2(source.fileno(), 0))
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot write 'noise.bmp': it is also standard input\n"))
        self.assertEqual(self.read("noise.bmp"), noise(10))

    def test_sources_that_are_pipes(self):
        self.write("noise.bmp", noise(100))
        self.convert("noise.bmp", "file.gif")
        for name in ("/dev/stdin", "/dev/fd/0"):
            result = self.start("gif", name, "pipe.gif", stdin=noise(100))
            self.assertEqual((result.code, result.err), (0, ""))
            self.assertEqual(self.read("pipe.gif"), self.read("file.gif"))
            os.remove(self.path("pipe.gif"))

    def test_a_source_that_never_ends(self):
        self.assert_refused("/dev/zero", "new.gif", mentions="'/dev/zero': longer than 64 MB")
        with open("/dev/zero", "rb") as zero:
            result = self.start("gif", "-", "new.gif", stdin=None,
                                preexec_fn=lambda: os.dup2(zero.fileno(), 0))
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot read standard input: longer than 64 MB\n"))

    def test_a_device_is_no_picture(self):
        self.assert_refused("/dev/zero", "zero.gif", mentions="/dev/zero")
        self.assertFalse(os.path.exists(self.path("zero.gif")))


if __name__ == "__main__":
    main()
