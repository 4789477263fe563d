"""vorstek-cli gif: BMP files of all depths become GIF files that show the reduced
picture in other readers."""

import struct

import console_case
import readers
import reduction_model
from console_case import ConsoleCase, main
from pictures import (KINDS, Chance, bmp_file, indices, interleave, pack_pixels, pack_rows, plane,
                      sizes)

PICTURES = 250
PICTURES_EMULATED = 14
LAYOUTS = ("1", "4", "8", "555", "565", "24", "32", "bgrx")
MASKS = {"565": (0xF800, 0x07E0, 0x001F), "bgrx": (0x0000FF, 0x00FF00, 0xFF0000)}


class Picture:
    """A BMP and the pixels that the GIF made of it must show."""

    def __init__(self, chance, number, size):
        self.name = str(number)
        self.size = size
        self.layout = LAYOUTS[number % 8]
        self.kind = KINDS[number // 8 % 4]
        self.options = ("", "ilace", "transcol=edge", "ilace xscreen=1700 yscreen=1700")[number % 4]
        top_down = number % 3 == 1
        masks = MASKS.get(self.layout, ())
        if self.layout in ("1", "4", "8"):
            self._make_indexed(chance, int(self.layout), top_down)
        else:
            self._make_direct(chance, struct.pack(f"<{len(masks)}I", *masks), top_down)

    def _make_indexed(self, chance, bits, top_down):
        values = indices(chance, self.kind, self.size, bits)
        table = interleave(*(chance.randbytes(1 << bits) for _ in range(3)), bytes(1 << bits))
        self.bmp = bmp_file(self.size, bits, table, pack_rows(values, self.size, bits),
                            top_down=top_down)
        self.channels = [values.translate((table[2 - channel::4] * 256)[:256])
                         for channel in range(3)]

    def _make_direct(self, chance, masks, top_down):
        red, green, blue = (plane(chance, self.kind, self.size) for _ in range(3))
        if self.layout in ("555", "565"):
            bits = 16
            green_mask = 0xF8 if self.layout == "555" else 0xFC
            self.channels = [_cut(red, 0xF8), _cut(green, green_mask), _cut(blue, 0xF8)]
            pixels = self._pack_16(*self.channels)
        else:
            bits = 24 if self.layout == "24" else 32
            self.channels = [red, green, blue]
            order = {"24": (blue, green, red), "32": (blue, green, red, red),
                     "bgrx": (red, green, blue, red)}[self.layout]
            pixels = pack_pixels(interleave(*order), self.size, bits // 8)
        self.bmp = bmp_file(self.size, bits, b"", pixels, masks=masks, top_down=top_down)

    def _pack_16(self, red, green, blue):
        red_shift, green_shift = (7, 2) if self.layout == "555" else (8, 3)
        pixels = [r << red_shift | g << green_shift | b >> 3
                  for r, g, b in zip(red, green, blue)]
        return pack_pixels(interleave(bytes(pixel & 255 for pixel in pixels),
                                      bytes(pixel >> 8 for pixel in pixels)), self.size, 2)

    @property
    def reduced(self):
        pixels = list(zip(*self.channels))
        if len(set(pixels)) <= 256:
            return self.channels
        return reduction_model.reduced(pixels, self.size[0])

    def __str__(self):
        return f"{self.name}: {self.size}, {self.layout}, {self.kind}, '{self.options}'"


def _cut(values, mask):
    return values.translate(bytes(value & mask for value in range(256)))


class GifCommandTest(ConsoleCase):

    def pictures(self):
        """Starting a process through the emulator costs a hundred times more."""
        chance = Chance(35)
        count = PICTURES if console_case.platform == "Linux" else PICTURES_EMULATED
        return [Picture(chance, number, size)
                for number, size in enumerate(sizes(chance, count))]

    def convert(self, picture):
        self.write(picture.name + ".bmp", picture.bmp)
        arguments = ["--options", picture.options] if picture.options else []
        result = self.start("gif", picture.name + ".bmp", picture.name + ".gif", *arguments)
        self.assertEqual((result.code, result.out, result.err), (0, "", ""), picture)
        return self.path(picture.name + ".gif")

    def test_pillow_and_imagemagick_show_the_reduced_picture(self):
        pictures = self.pictures()
        files = [self.convert(picture) for picture in pictures]
        drawn = readers.imagemagick(files, [picture.size for picture in pictures])
        for picture, path, pixels in zip(pictures, files, drawn):
            reduced = picture.reduced
            with self.subTest(picture=str(picture)):
                self.assert_shows(picture, reduced, pixels)
                self.assert_shows(picture, reduced, readers.pillow(path, (0, 0, *picture.size)))
                readers.giftext(path)
        readers.gifsicle_info(files)

    def assert_shows(self, picture, reduced, pixels):
        """The bottom left pixel's colour may be transparent; that is checked
        where the encoder is, and here colours count where there is any."""
        alpha = pixels[3::4]
        if "transcol" not in picture.options:
            self.assertEqual(alpha == b"\xff" * len(alpha), True, "transparency")
        else:
            width, height = picture.size
            self.assertEqual(alpha[(height - 1) * width], 0)
        mask = int.from_bytes(alpha, "big")
        for channel in range(3):
            shown = int.from_bytes(pixels[channel::4], "big") & mask
            source = int.from_bytes(reduced[channel], "big") & mask
            self.assertEqual(shown == source, True, f"channel {channel}")


if __name__ == "__main__":
    main()
