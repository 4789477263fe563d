"""The toolbar strip: 16 cells of 16 x 15 pixels in the 16 standard colours.

The toolbar takes its other images from the system; only the cell of the
listing's highlight is ours, the others stay empty. The ground is the light
grey that a toolbar replaces by its own colour.
"""

import os

import numpy as np

import files

CELLS = 16
CELL_WIDTH = 16
CELL_HEIGHT = 15
HIGHLIGHT_CELL = 12

_COLOURS = (
    (0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128),
    (0, 128, 128), (128, 128, 128), (192, 192, 192), (255, 0, 0), (0, 255, 0),
    (255, 255, 0), (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255))

_ENTRY = {".": 8, "k": 0, "m": 1, "b": 4, "g": 7, "r": 9, "w": 15}

# A listing with one line marked, and the arrow that points to it.
_HIGHLIGHT = """
....kkkkkkkk....
....kwwwwwwkk...
....kwgggwwkwk..
....kwwwwwwkkkk.
m...kwgggggggwk.
rm..kwwwwwwwwwk.
rrm.bbbbbbbbbbbb
rrrmbwwwbwwwwbbb
rrm.bbbbbbbbbbbb
rm..kwwwwwwwwwk.
m...kwgggggggwk.
....kwwwwwwwwwk.
....kwgggggwwwk.
....kwwwwwwwwwk.
....kkkkkkkkkkk.
""".split()


def make(folder):
    strip = np.full((CELL_HEIGHT, CELLS * CELL_WIDTH), _ENTRY["."], np.uint8)
    left = HIGHLIGHT_CELL * CELL_WIDTH
    for y, row in enumerate(_HIGHLIGHT):
        strip[y, left:left + CELL_WIDTH] = [_ENTRY[mark] for mark in row]
    files.write_indexed(os.path.join(folder, "toolbar.bmp"), strip, _COLOURS, 4)
