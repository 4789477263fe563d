"""Pictures for the tests: flat, noisy, drawn and photographic ones, of sizes from
1 x 1 to 1600 x 1600, and the bytes of bitmaps.

A picture is held as planes: bytes objects with one byte a pixel, row by row
from the top."""

import random
import struct

from PIL import Image, ImageDraw

KINDS = ("flat", "noisy", "drawn", "photographic")
LARGE = ((1600, 1600), (1600, 1), (1, 1600), (1217, 803), (640, 480))


def sizes(chance, count):
    """Mostly small ones; the large ones come last."""
    small = [(1, 1), (2, 1), (1, 2), (7, 9), (8, 10), (33, 17)]
    while len(small) < count - len(LARGE):
        small.append((chance.randint(1, 60), chance.randint(1, 60)))
    return small + list(LARGE)


def plane(chance, kind, size):
    """Bytes 0 to 255."""
    width, height = size
    if kind == "flat":
        return bytes([chance.randrange(256)]) * (width * height)
    if kind == "noisy":
        return chance.randbytes(width * height)
    if kind == "drawn":
        return _drawing(chance, size).tobytes()
    return _photograph(chance, size).tobytes()


def _drawing(chance, size):
    image = Image.new("L", size, chance.randrange(256))
    draw = ImageDraw.Draw(image)
    for _ in range(12):
        ends = [chance.randrange(side) for side in size * 2]
        draw.line(ends, fill=chance.randrange(256), width=chance.choice((1, 1, 3)))
    return image


def _photograph(chance, size):
    lattice = Image.frombytes("L", (9, 9), chance.randbytes(81))
    grain = Image.frombytes("L", (64, 64), chance.randbytes(64 * 64)).resize(size)
    return Image.blend(lattice.resize(size, Image.BICUBIC), grain, 0.05)


def indices(chance, kind, size, bits):
    """A plane of colour indices: the upper bits of a picture's bytes."""
    table = bytes(value >> (8 - bits) for value in range(256))
    return plane(chance, kind, size).translate(table)


def rows_from_bottom(pixels, size):
    width, height = size
    return [pixels[row * width:(row + 1) * width] for row in reversed(range(height))]


def pack_row(row, bits):
    """A row of indices in the bytes of a bitmap."""
    if bits == 4:
        row += b"\0" * (len(row) % 2)
        row = bytes(high << 4 | low for high, low in zip(row[0::2], row[1::2]))
    elif bits == 1:
        row += b"\0" * (-len(row) % 8)
        row = int(row.translate(b"01" * 128), 2).to_bytes(len(row) // 8, "big")
    return row + b"\0" * (-len(row) % 4)


def pack_rows(pixels, size, bits):
    return b"".join(pack_row(row, bits) for row in rows_from_bottom(pixels, size))


def interleave(*planes):
    """interleave(blue, green, red) gives the bytes of 24-bit pixels."""
    mixed = bytearray(len(planes) * len(planes[0]))
    for at, values in enumerate(planes):
        mixed[at::len(planes)] = values
    return bytes(mixed)


def pack_pixels(pixels, size, pixel_bytes):
    """Rows of interleaved pixels, from the bottom up and padded."""
    width, height = size
    rows = rows_from_bottom(pixels, (width * pixel_bytes, height))
    return b"".join(row + b"\0" * (-len(row) % 4) for row in rows)


def bmp_file(size, bits, table, pixels, masks=b"", top_down=False):
    """A BMP file; table holds entries of four bytes, pixels the packed rows
    from the bottom up."""
    width, height = size
    if top_down:
        stride = len(pixels) // height
        pixels = b"".join(pixels[row * stride:(row + 1) * stride]
                          for row in reversed(range(height)))
    head = struct.pack("<IiiHHIIiiII", 40, width, -height if top_down else height, 1, bits,
                       3 if masks else 0, len(pixels), 0, 0, len(table) // 4, 0)
    offset = 14 + len(head) + len(masks) + len(table)
    return (struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
            + head + masks + table + pixels)


class Chance(random.Random):
    """The same pictures every time."""

    def randbytes(self, count):
        return self.getrandbits(8 * count).to_bytes(count, "little") if count else b""
