"""The toolbar strip: 16 cells of 16 x 15 pixels in the 16 standard colours.

The toolbar takes its other images from the system; only the cell of the
listing's highlight is ours, the others stay empty. The ground is the light
grey that a toolbar replaces by its own colour; that of the larger strips is
transparent.
"""

import os

import numpy as np
from PIL import Image, ImageDraw

import files
import geometry as g

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


_FINE = 8


def _draw_listing(draw, unit):
    """The same page and arrow as shapes, unit samples to a pixel at 96 dpi."""
    def box(left, top, right, bottom, colour):
        draw.rectangle([round(unit * edge) for edge in (left, top)]
                       + [round(unit * edge) - 1 for edge in (right, bottom)], fill=colour)

    def shape(colour, *points):
        draw.polygon([(unit * x, unit * y) for x, y in points], fill=colour)

    shape((0, 0, 0, 255), (4, 0), (12.4, 0), (15, 2.6), (15, 15), (4, 15))
    shape((255, 255, 255, 255), (5, 1), (11.6, 1), (14, 3.4), (14, 14), (5, 14))
    shape((0, 0, 0, 255), (11, 1), (14, 4), (11, 4))
    shape((210, 210, 210, 255), (11.7, 2.2), (12.8, 3.3), (11.7, 3.3))
    for top, right in ((2.2, 9), (4.2, 10), (10.2, 13), (12.2, 10)):
        box(6, top, right, top + 0.8, (128, 128, 128, 255))
    box(4, 6, 16, 9, (0, 0, 128, 255))
    box(6, 7.1, 13, 7.9, (255, 255, 255, 255))
    shape((128, 0, 0, 255), (0, 3.6), (4, 7.5), (0, 11.4))
    shape((255, 0, 0, 255), (0.7, 5.2), (3, 7.5), (0.7, 9.8))


def _large_strip(scale):
    left, right = g.scaled((HIGHLIGHT_CELL * CELL_WIDTH, (HIGHLIGHT_CELL + 1) * CELL_WIDTH), scale)
    width, height = g.scaled((CELLS * CELL_WIDTH, CELL_HEIGHT), scale)
    cell = Image.new("RGBA", ((right - left) * _FINE, height * _FINE), (0, 0, 0, 0))
    _draw_listing(ImageDraw.Draw(cell), scale * _FINE)
    strip = np.zeros((height, width, 4), np.uint8)
    strip[:, left:right] = np.asarray(cell.resize((right - left, height), Image.BOX))
    return strip


def make(folder, scale):
    if scale != 1:
        files.write_scaled(folder, "toolbar", scale, _large_strip(scale))
        return

    strip = np.full((CELL_HEIGHT, CELLS * CELL_WIDTH), _ENTRY["."], np.uint8)
    left = HIGHLIGHT_CELL * CELL_WIDTH
    for y, row in enumerate(_HIGHLIGHT):
        strip[y, left:left + CELL_WIDTH] = [_ENTRY[mark] for mark in row]
    files.write_indexed(os.path.join(folder, "toolbar.bmp"), strip, _COLOURS, 4)
