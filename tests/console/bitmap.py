"""BMP files for tests."""

import random
import struct


def bmp_file(width, height, bits=24, pixels=None, table=b"", compression=0):
    if pixels is None:
        pixels = b"\x20" * ((abs(width) * bits + 31) // 32 * 4 * abs(height))
    head = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, compression, 0, 0, 0, 0, 0)
    offset = 14 + len(head) + len(table)
    return struct.pack("<2sIHHI", b"BM", 0, 0, 0, offset) + head + table + pixels


def noise(side):
    return bmp_file(side, side, pixels=random.Random(1).randbytes((3 * side + 3) // 4 * 4 * side))
