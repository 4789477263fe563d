"""BMP files of our layout, at every depth, show the source's pixels in other
readers."""

import readers
from console_case import ConsoleCase, main
from pictures import KINDS, Chance, indices, interleave, pack_pixels, pack_rows, plane, sizes

PICTURES = 120
DEPTHS = (1, 4, 8, 16, 24, 32)


class Picture:

    def __init__(self, chance, number, size):
        self.name = f"{number}.bmp"
        self.size = size
        self.bits = DEPTHS[number % 6]
        kind = KINDS[number // 6 % 4]
        if self.bits <= 8:
            values = indices(chance, kind, size, self.bits)
            self.table = interleave(*(chance.randbytes(1 << self.bits) for _ in range(3)),
                                    bytes(1 << self.bits))
            self.source = self.table + pack_rows(values, size, self.bits)
            self.channels = [values.translate((self.table[2 - channel::4] * 256)[:256])
                             for channel in range(3)]
        else:
            self.channels = [plane(chance, kind, size) for _ in range(3)]
            self.source = self._pack()

    def _pack(self):
        red, green, blue = self.channels
        if self.bits == 24:
            return pack_pixels(interleave(blue, green, red), self.size, 3)
        if self.bits == 32:
            return pack_pixels(interleave(blue, green, red, bytes(len(red))), self.size, 4)
        pixels = [r >> 3 << 10 | g >> 3 << 5 | b >> 3 for r, g, b in zip(red, green, blue)]
        return pack_pixels(interleave(bytes(pixel & 255 for pixel in pixels),
                                      bytes(pixel >> 8 for pixel in pixels)), self.size, 2)

    def __str__(self):
        return f"{self.name}: {self.size}, {self.bits} bits"


class BmpWriterTest(ConsoleCase):

    def setUp(self):
        super().setUp()
        chance = Chance(14)
        self.pictures = [Picture(chance, number, size)
                         for number, size in enumerate(sizes(chance, PICTURES))]
        lines = []
        for picture in self.pictures:
            self.write(picture.name + ".pixels", picture.source)
            lines.append("\t".join(("bmp", *map(str, picture.size), str(picture.bits),
                                    picture.name + ".pixels", picture.name)))
        self.write("list", "\n".join(lines))
        self.assertEqual(self.start("list").code, 0)
        self.files = [self.path(picture.name) for picture in self.pictures]

    def assert_shows(self, picture, pixels):
        """Readers expand 5 bits to 8 in different ways; the upper 5 bits are
        unchanged."""
        upper = bytes(value & 0xF8 for value in range(256))
        for channel, source in enumerate(picture.channels):
            shown = pixels[channel::4]
            if picture.bits == 16:
                shown, source = shown.translate(upper), source.translate(upper)
            self.assertEqual(shown == source, True, f"channel {channel} of {picture}")

    def test_pillow_and_imagemagick_show_the_source(self):
        drawn = readers.imagemagick(self.files, [picture.size for picture in self.pictures])
        for picture, path, pixels in zip(self.pictures, self.files, drawn):
            self.assert_shows(picture, pixels)
            self.assert_shows(picture, readers.pillow(path, (0, 0, *picture.size)))


if __name__ == "__main__":
    main()
