"""Writers of the files that the resource compiler takes: BMP, PNG and ICO."""

import os
import struct
import zlib

import numpy as np


def _dib_header(width, height, bits, image_size, colours):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, image_size,
                       2835, 2835, colours, 0)


def _padded_rows(rows):
    """Rows of bytes from the bottom up, each filled to four bytes."""
    return b"".join(row + bytes(-len(row) % 4) for row in reversed(rows))


def write_bmp(path, width, height, bits, rows, entries=()):
    """rows: the bytes of each row from the top; entries: (r, g, b) each."""
    pixels = _padded_rows(rows)
    table = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in entries)
    offset = 14 + 40 + len(table)
    with open(path, "wb") as out:
        out.write(struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset))
        out.write(_dib_header(width, height, bits, len(pixels), len(entries)))
        out.write(table + pixels)


def write_indexed(path, indices, entries, bits=8):
    """indices: a two-dimensional array of entry numbers; bits 4 or 8."""
    height, width = indices.shape
    if bits == 8:
        rows = [row.tobytes() for row in indices]
    else:
        rows = [bytes((row[x] << 4) | row[x + 1] for x in range(0, width, 2))
                for row in indices.tolist()]
    write_bmp(path, width, height, bits, rows, entries)


def write_true_colour(path, picture):
    """picture: an array of sRGB bytes, three a pixel."""
    height, width = picture.shape[:2]
    write_bmp(path, width, height, 24, [row[:, ::-1].tobytes() for row in picture])


def write_scaled(folder, name, scale, picture, entries=None, png=False):
    """name.bmp at 96 dpi, else a PNG file with the scale in per cent in its
    name; png: in any case. entries as above or none."""
    path = os.path.join(folder, name)
    if png or scale != 1:
        with open("%s_%d.png" % (path, round(100 * scale)), "wb") as out:
            out.write(_png(picture, entries))
    elif entries:
        write_indexed(path + ".bmp", picture, entries)
    else:
        write_true_colour(path + ".bmp", picture)


def _icon_dib(picture):
    """A 32-bit image with its one-bit mask, as icons of up to 48 pixels are
    stored. picture: red, green, blue, alpha bytes."""
    height, width = picture.shape[:2]
    colour = _padded_rows([row[:, [2, 1, 0, 3]].tobytes() for row in picture])
    mask_rows = []
    for row in picture:
        bits = "".join("1" if pixel[3] < 128 else "0" for pixel in row)
        bits += "0" * (-len(bits) % 8)
        mask_rows.append(bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8)))
    mask = _padded_rows(mask_rows)
    return _dib_header(width, 2 * height, 32, len(colour) + len(mask), 0) + colour + mask


def _chunk(kind, data):
    return (struct.pack(">I", len(data)) + kind + data
            + struct.pack(">I", zlib.crc32(kind + data)))


def _png(picture, entries=None):
    """The bytes of a PNG file. picture: an array of bytes, one (palette
    entries), three or four (with alpha) a pixel."""
    height, width = picture.shape[:2]
    colour_type = 3 if entries else {3: 2, 4: 6}[picture.shape[2]]
    rows = _rows(picture) if entries else _differences(picture)
    table = b"".join(bytes(entry) for entry in entries or ())
    return (b"\x89PNG\r\n\x1a\n"
            + _chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, colour_type, 0, 0, 0))
            + (_chunk(b"PLTE", table) if entries else b"")
            + _chunk(b"IDAT", zlib.compress(rows, 9)) + _chunk(b"IEND", b""))


def _rows(picture):
    return b"".join(b"\0" + row.tobytes() for row in picture)


def _differences(picture):
    """Rows as differences from the pixel to the left or above, whichever are
    smaller: gradients pack well so."""
    rows, before = [], np.zeros_like(picture[0])
    for row in picture:
        left = row.copy()
        left[1:] -= row[:-1]
        above = row - before
        rows.append(min((b"\1" + left.tobytes(), left), (b"\2" + above.tobytes(), above),
                        key=lambda pair: np.abs(pair[1].view(np.int8).astype(int)).sum())[0])
        before = row
    return b"".join(rows)


def write_ico(path, pictures):
    """Square pictures of red, green, blue, alpha bytes. The 256-pixel image
    is stored as PNG, as the system expects it."""
    images = [_png(p) if p.shape[0] >= 256 else _icon_dib(p) for p in pictures]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for picture, image in zip(pictures, images):
        side = picture.shape[0] % 256
        directory += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    with open(path, "wb") as out:
        out.write(directory + b"".join(images))
