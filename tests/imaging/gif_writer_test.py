"""GIF files of our encoder, at 1, 4 and 8 bits and with every option, show the
source's pixels in every reader."""

import os
import shutil
import subprocess
import tempfile

import console_case
import readers
from console_case import ConsoleCase, main
from pictures import KINDS, Chance, indices, pack_rows, sizes

PICTURES = 270


class Picture:
    """A source and the GIF that is made of it."""

    def __init__(self, chance, number, size):
        self.name = f"{number}.gif"
        self.size = size
        self.bits = (1, 4, 8)[number % 3]
        self.kind = KINDS[number // 3 % 4]
        self.indices = indices(chance, self.kind, size, self.bits)
        self.colours = chance.randbytes(3 << self.bits)
        self.screen, self.corner = size, (0, 0)
        self.transparent = None
        self.options = " ".join(self._choose_options(chance, number))

    def _choose_options(self, chance, number):
        width, height = self.size
        if number % 2:
            yield "ilace"
        if number % 5 == 1:
            self.corner = (chance.randrange(20), chance.randrange(20))
            self.screen = (width + self.corner[0] + chance.randrange(9),
                           height + self.corner[1] + chance.randrange(9))
            yield "xpos={} ypos={} xscreen={} yscreen={}".format(*self.corner, *self.screen)
        if number % 7 == 2:
            yield f"background={chance.randrange(1 << self.bits)}"
        if number % 4 == 1:
            self.transparent = chance.randrange(1 << self.bits)
            yield f"transcol={self.transparent}"
        if number % 4 == 3:
            self.transparent = self.indices[(height - 1) * width]
            yield "transcol=edge"

    @property
    def box(self):
        left, top = self.corner
        return (left, top, left + self.size[0], top + self.size[1])

    @property
    def source(self):
        return self.colours + pack_rows(self.indices, self.size, self.bits)

    @property
    def channels(self):
        """Planes of red, green and blue."""
        tables = [(self.colours[channel::3] * 256)[:256] for channel in range(3)]
        return [self.indices.translate(table) for table in tables]

    @property
    def alpha(self):
        return self.indices.translate(bytes(0 if index == self.transparent else 255
                                            for index in range(256)))

    def __str__(self):
        return f"{self.name}: {self.size}, {self.bits} bits, {self.kind}, '{self.options}'"


class GifWriterTest(ConsoleCase):
    """The pictures are written once, into a folder that the tests only read."""

    @classmethod
    def setUpClass(cls):
        cls.kept = tempfile.mkdtemp(prefix="vorstek-")
        cls.addClassCleanup(shutil.rmtree, cls.kept, ignore_errors=True)
        chance = Chance(52)
        cls.pictures = [Picture(chance, number, size)
                        for number, size in enumerate(sizes(chance, PICTURES))]
        cls.files = [os.path.join(cls.kept, picture.name) for picture in cls.pictures]
        lines = []
        for picture, path in zip(cls.pictures, cls.files):
            with open(path + ".pixels", "wb") as file:
                file.write(picture.source)
            lines.append("\t".join(("gif", *map(str, picture.size), str(picture.bits),
                                    picture.name + ".pixels", picture.name, picture.options)))
        with open(os.path.join(cls.kept, "list"), "w", encoding="ascii") as file:
            file.write("\n".join(lines))
        subprocess.run([*console_case.command, "list"], cwd=cls.kept, check=True,
                       timeout=console_case.TIMEOUT)

    def assert_shows(self, picture, pixels, alpha=True):
        """Colours count where a pixel is not transparent; without alpha, the
        reader knows no transparency, and they count everywhere."""
        expected = picture.alpha if alpha else b"\xff" * len(picture.indices)
        self.assertEqual(pixels[3::4] == expected, True, f"transparency of {picture}")
        mask = int.from_bytes(expected, "big")
        for channel in range(3):
            shown = int.from_bytes(pixels[channel::4], "big") & mask
            source = int.from_bytes(picture.channels[channel], "big") & mask
            self.assertEqual(shown == source, True, f"channel {channel} of {picture}")

    def test_pillow_shows_the_source(self):
        for picture, path in zip(self.pictures, self.files):
            self.assert_shows(picture, readers.pillow(path, picture.box))

    def test_imagemagick_shows_the_source(self):
        shown = readers.imagemagick(self.files, [picture.size for picture in self.pictures])
        for picture, pixels in zip(self.pictures, shown):
            self.assert_shows(picture, pixels)

    def test_giflib_shows_the_source(self):
        for picture, path in zip(self.pictures, self.files):
            self.assert_shows(picture, readers.gif2rgb(path, picture.screen, picture.box),
                              alpha=False)

    def test_ffmpeg_shows_the_source(self):
        step = 24
        for at in range(0, len(self.pictures), step):
            some = self.pictures[at:at + step]
            shown = readers.ffmpeg(self.files[at:at + step], [one.screen for one in some],
                                   [one.box for one in some])
            for picture, pixels in zip(some, shown):
                self.assert_shows(picture, pixels)

    def test_gifsicle_understands_the_pixels(self):
        copies = [shutil.copy(path, self.folder) for path in self.files]
        readers.gifsicle_rewrite(copies)
        for picture, path in zip(self.pictures, copies):
            self.assert_shows(picture, readers.pillow(path, picture.box))

    def test_giftext_and_gifsicle_have_nothing_to_complain_about(self):
        info = readers.gifsicle_info(self.files)
        self.assertEqual(info.count("global color table"), PICTURES)
        for picture, path in zip(self.pictures, self.files):
            text = readers.giftext(path)
            self.assertIn("Size - Left = {}, Top = {}, Width = {}, Height = {}".format(
                *picture.corner, *picture.size), text, picture)
            self.assertEqual("Image is Interlaced" in text, "ilace" in picture.options, picture)


if __name__ == "__main__":
    main()
