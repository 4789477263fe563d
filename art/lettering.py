"""Legends as coverage masks: one family of letters for the whole face.

At 96 dpi the small alphabets are hinted, so that their stems cover whole
pixels. Everything larger is smooth: drawn eight times as large and reduced, its
capitals and its x-height fitted to whole pixels.

Markup: plain characters, <name> for a sign of SIGNS, <sup x> for raised text,
<root x> for a root, <xbar> for a mean.
"""

import functools
import os
import re

# Full hinting in both directions; the newer interpreter leaves stems blurred.
os.environ["FREETYPE_PROPERTIES"] = "truetype:interpreter-version=35"

import numpy as np
from PIL import Image, ImageDraw, ImageFont

FONTS = "/usr/share/fonts/truetype/"
SANS = FONTS + "liberation/LiberationSans-Regular.ttf"
MONO = FONTS + "liberation/LiberationMono-Regular.ttf"
_CONDENSED = FONTS + "dejavu/DejaVuSansCondensed-Bold.ttf"
_BOLD = FONTS + "dejavu/DejaVuSans-Bold.ttf"
_OBLIQUE = FONTS + "dejavu/DejaVuSans-BoldOblique.ttf"

_CAPITAL = 0.729            # height of a capital in the family, of the size
_X_HEIGHT = 0.75            # of a small x, of a capital
_RAISED = 0.80              # size of raised text, of the legend's
_FINE = 8
_FIRMNESS = 0.80            # exponent of the coverage below 144 dpi: firmer edges

# Font, height of capitals and space between letters in units, and the size in
# pixels whose hinted letters are that high (0: always smooth).
_STYLES = {
    "small": (_CONDENSED, 7, 0.15, 10),
    "key": (_CONDENSED, 8, 0.25, 11),
    "enter": (_BOLD, 8, 1.0, 11),
    "digit": (_BOLD, 10, 0, 0),
    "shift": (_OBLIQUE, 11, 0, 0),
    "bezel": (_OBLIQUE, 6, 0, 0),
    "name": (_CONDENSED, 6, 0.15, 8),
}

SIGNS = {
    "swap": "\u21c4", "down": "\u2193", "right": "\u2192", "Sigma": "\u03a3", "pi": "\u03c0",
    "minus": "\u2212", "le": "\u2264", "lt": "<", "gt": ">", "eq": "=", "ne": "\u2260",
}

# Hinting spoils these signs: rows from the top, the last on the baseline; ink
# " .o#" from none to full.
_HINTED_SIGNS = {
    "ne": "    #o|    #.|######|  #o  |######|.#    |o#    ",
    "swap": "     o# |########|     o# |        | #o     |########| #o     ",
}
_INK = {" ": 0, ".": 80, "o": 170, "#": 255}

# Signs with clear space on both sides, of the size.
_APART = {"swap": 0.14}

# Signs of the operator keys: rectangles and discs in a square of 10 units,
# and strokes (from, to) of two units.
OPERATORS = {
    "Minus": [("bar", 0, 4, 10, 6)],
    "Plus": [("bar", 0, 4, 10, 6), ("bar", 4, 0, 6, 10)],
    "Times": [("stroke", 1, 1, 9, 9), ("stroke", 1, 9, 9, 1)],
    "Divide": [("bar", 0, 4, 10, 6), ("disc", 5, 1.2, 1.4), ("disc", 5, 8.8, 1.4)],
    "Point": [("disc", 5, 8, 2)],
}

_font_cache = {}


def font(path, size):
    if (path, size) not in _font_cache:
        _font_cache[path, size] = ImageFont.truetype(
            path, size, layout_engine=ImageFont.Layout.BASIC)
    return _font_cache[path, size]


def _reduced(image, fine):
    ink = np.asarray(image, np.float32) / 255
    rows, columns = ink.shape
    return ink.reshape(rows // fine, fine, columns // fine, fine).mean(axis=(1, 3))


def operator(name, scale):
    """Coverage of an operator's sign in a square of 10 units."""
    side = int(round(10 * scale))
    image = Image.new("L", (side * _FINE, side * _FINE), 0)
    draw = ImageDraw.Draw(image)
    unit = side * _FINE / 10
    for kind, *figures in OPERATORS[name]:
        if kind == "bar":
            left, top, right, bottom = (round(f * unit / _FINE) * _FINE for f in figures)
            draw.rectangle((left, top, right - 1, bottom - 1), fill=255)
        elif kind == "disc":
            x, y, radius = (f * unit for f in figures)
            draw.ellipse((x - radius, y - radius, x + radius - 1, y + radius - 1), fill=255)
        else:
            x0, y0, x1, y1 = (f * unit for f in figures)
            draw.line((x0, y0, x1, y1), fill=255, width=round(2.1 * unit))
    return _reduced(image, _FINE)


class _Setter:
    """Sets runs of text beside each other on a canvas, fine samples a pixel."""

    def __init__(self, path, size, space, fine):
        self.path, self.size, self.space, self.fine = path, size, space, fine
        self.room = int(1.5 * size) // fine * fine      # above and below the baseline
        self.canvas = Image.new("L", (int(20 * size) // fine * fine, 2 * self.room), 0)
        self.draw = ImageDraw.Draw(self.canvas)
        self.x = float(self.room)

    def text(self, text, size=None, lift=0):
        face = font(self.path, size or self.size)
        for char in text:
            at = self.x if self.fine > 1 else round(self.x)
            self.draw.text((at, self.room - lift), char, font=face, fill=255, anchor="ls")
            self.x += self.draw.textlength(char, face) + self.space

    def drawn(self, rows):
        lines = rows.split("|")
        self.x += 1
        for y, line in enumerate(lines, self.room - len(lines)):
            for x, ink in enumerate(line, round(self.x)):
                self.canvas.putpixel((x, y), _INK[ink])
        self.x += len(lines[0]) + 1

    def sign(self, name):
        self.x += _APART.get(name, 0) * self.size
        if self.fine == 1 and name in _HINTED_SIGNS:
            self.drawn(_HINTED_SIGNS[name])
        else:
            self.text(SIGNS[name])
        self.x += _APART.get(name, 0) * self.size

    def raised(self, text):
        """With its top a little above that of the capitals."""
        if self.fine == 1:
            self.text(text, round(self.size * _RAISED), 3)
        else:
            self.text(text, round(self.size * _RAISED), round(self.size * 0.27))

    def over(self, draw_below, height, lead):
        """A rule above what draw_below sets, lead to the left of it."""
        start = self.x
        draw_below()
        thick = max(1, round(0.10 * self.size))
        y = self.room - height
        self.draw.rectangle((start - lead, y - thick, self.x - self.space - 1, y - 1), fill=255)

    def xbar(self):
        self.over(lambda: self.text("x"), round(0.66 * self.size), 0)

    def root(self, text):
        self.text("\u221a")
        self.x -= self.space
        self.over(lambda: self.text(text), round(0.80 * self.size) - (self.fine == 1),
                  round(0.08 * self.size))


def _set(setter, markup):
    for sign, char in re.findall(r"<([^>]+)>|(.)", markup):
        kind, _, argument = sign.partition(" ")
        if kind == "sup":
            setter.raised(argument.replace("-", "\u2212"))
        elif kind == "root":
            setter.root(argument)
        elif kind == "xbar":
            setter.xbar()
        elif char == " ":
            setter.x += round(0.30 * setter.size)
        elif sign:
            setter.sign(kind)
        else:
            setter.text(char)


def _fitted(ink, baseline, capital, to_capital):
    """The rows moved so that x-height and capitals end at whole pixels; rows
    above and below keep their distance."""
    x_height, to_x = capital * _X_HEIGHT, round(to_capital * _X_HEIGHT / _FINE) * _FINE
    above = baseline - np.arange(ink.shape[0]) - 0.5
    source = np.interp(above, [-baseline, 0, to_x, to_capital, to_capital + baseline],
                       [-baseline, 0, x_height, capital, capital + baseline])
    rows = np.clip(baseline - source - 0.5, 0, ink.shape[0] - 1)
    low = np.floor(rows).astype(int)
    part = (rows - low)[:, None]
    return ink[low] * (1 - part) + ink[np.minimum(low + 1, ink.shape[0] - 1)] * part


@functools.lru_cache(maxsize=None)
def legend(markup, style, scale, smooth=False):
    """Coverage mask of a legend in pixels and its rows above the baseline."""
    path, capital, space, hinted = _STYLES[style]
    if scale == 1 and hinted and not smooth:
        setter = _Setter(path, hinted, round(space), 1)
        _set(setter, markup)
        mask, baseline = np.asarray(setter.canvas, np.float32) / 255, setter.room
    else:
        pixels = int(capital * scale + 0.5) * _FINE
        size = round(pixels / _CAPITAL)
        setter = _Setter(path, size, space * scale * _FINE, _FINE)
        _set(setter, markup)
        columns = int(setter.x + size) // _FINE * _FINE
        ink = np.asarray(setter.canvas.crop((0, 0, columns, 2 * setter.room)), np.float32)
        mask = _reduced(_fitted(ink, setter.room, size * _CAPITAL, pixels), _FINE)
        baseline = setter.room // _FINE
    if scale < 1.5:
        mask = mask ** _FIRMNESS
    columns = np.where(mask.max(axis=0) > 0.06)[0]
    rows = np.where(mask.max(axis=1) > 0.02)[0]
    return (mask[rows[0]:rows[-1] + 1, columns[0]:columns[-1] + 1], baseline - rows[0])
