"""Legends as coverage masks, set glyph by glyph on whole pixels.

The alphabet "small" (gold, blue and switch legends) is drawn by hand, capitals
7 pixels high; "key", "enter" and "digit" are hinted outlines with signs drawn
to match; "shift" holds the letters f and g. The gap between two glyphs follows
from their shapes, not from advance widths, so that hinting leaves no holes in
a word.

Markup: plain characters, <name> for a sign of SIGNS, <sup x> for a raised one.
A leading "*" sets the legend in the "shift" alphabet.
"""

import os
import re

# Full hinting in both directions; the newer interpreter leaves stems blurred.
os.environ["FREETYPE_PROPERTIES"] = "truetype:interpreter-version=35"

import numpy as np
from PIL import Image, ImageDraw, ImageFont

FONTS = "/usr/share/fonts/truetype/"
SANS_BOLD = FONTS + "liberation/LiberationSans-Bold.ttf"
SANS = FONTS + "liberation/LiberationSans-Regular.ttf"
MONO = FONTS + "liberation/LiberationMono-Regular.ttf"
SERIF_BOLD_ITALIC = FONTS + "liberation/LiberationSerif-BoldItalic.ttf"
WIDE_BOLD = FONTS + "dejavu/DejaVuSans-Bold.ttf"

_INK = {" ": 0.0, ".": 0.30, "o": 0.62, "#": 1.0}
_ROOM = 40                  # canvas of one glyph, baseline in its middle

# Rows from the top, "|" between them; ink " .o#" from none to full. A name may
# end in an underscore and a number: the rows that hang below the baseline.
_SMALL = {
    "A": ".###.|#   #|#   #|#####|#   #|#   #|#   #",
    "B": "####.|#   #|#   #|####.|#   #|#   #|####.",
    "C": ".###.|#   #|#    |#    |#    |#   #|.###.",
    "D": "####.|#  .#|#   #|#   #|#   #|#  .#|####.",
    "E": "####|#   |#   |### |#   |#   |####",
    "F": "####|#   |#   |### |#   |#   |#   ",
    "G": ".###.|#   #|#    |#  ##|#   #|#   #|.###.",
    "I": "#|#|#|#|#|#|#",
    "K": "#   #|#  #.|#.#. |##.  |#.#. |#  #.|#   #",
    "L": "#   |#   |#   |#   |#   |#   |####",
    "M": "#   #|## ##|#o#o#|# # #|#   #|#   #|#   #",
    "N": "#   #|#o  #|##. #|#.#.#|# .##|#  o#|#   #",
    "O": ".###.|#   #|#   #|#   #|#   #|#   #|.###.",
    "P": "####.|#   #|#   #|####.|#    |#    |#    ",
    "R": "####.|#   #|#   #|####.|#.#. |#  #.|#   #",
    "S": ".####|#    |#    |.###.|    #|    #|####.",
    "T": "#####|  #  |  #  |  #  |  #  |  #  |  #  ",
    "U": "#   #|#   #|#   #|#   #|#   #|#   #|.###.",
    "X": "#   #|#   #|.#.#.|  #  |.#.#.|#   #|#   #",
    "Z": "#####|    #|   #.|  #. | #.  |#    |#####",
    "a": ".##.|   #|.###|#  #|.###",
    "c": ".###|#   |#   |#   |.###",
    "e": ".##.|#  #|####|#   |.###",
    "g_2": ".###|#  #|#  #|#  #|.###|   #|.##.",
    "i": "#| |#|#|#|#|#",
    "l": "#|#|#|#|#|#|#",
    "n": "###.|#  #|#  #|#  #|#  #",
    "o": ".##.|#  #|#  #|#  #|.##.",
    "s": ".###|#   |.##.|   #|###.",
    "t": " # | # |###| # | # | # | o#",
    "x": "#   #|.#.#.|  #  |.#.#.|#   #",
    "y_2": "#   #|o   o|.#.#.| o#o | .#. | .o  |.#.  ",
    "0": ".###.|#   #|#   #|#   #|#   #|#   #|.###.",
    "1": " #|##| #| #| #| #| #",
    "2": ".###.|#   #|    #|   #.| .#. |#.   |#####",
    "/": "   #|  .o|  o.|  # | .o | o. |o.  |#   ",
    ".": "#",
    "%": "##   .#|##  .#.|   .#. |  .#.  | .#.   |.#.  ##|#.   ##",
    "xbar": "#####|     |#   #|.#.#.|  #  |.#.#.|#   #",
    "Sigma": "#####|#.   |.#.  | .#. |.#.  |#.   |#####",
    "pi": "######| #  # | #  # | #  # | #  ##",
    "plus": "  #  |  #  |#####|  #  |  #  |     ",
    "minus": "#####|     |     |     ",
    "right": "    #. |    .#.|#######|    .#.|    #. |       ",
    "le": "   .#| .#o.|#o.  | .#o.|   .#|     |#####",
    "lt": "   .#| .#o.|#o.  | .#o.|   .#|     ",
    "gt": "#.   |.o#. |  .o#|.o#. |#.   |     ",
    "eq": "#####|     |#####|     |     ",
    "ne": "    #|   o.|#####|  #  |#####|.o   |#    ",
    "root x": "     #########|    .#        |    o.        |"
              "#. .#   #   # |.o o.   .#.#. | #.#      #   |"
              " .#.    .#.#. |  #     #   # ",
    "sup x": "# #| # |# #",
    "sup 2": "##.|  #|.#.|#. |###",
    "sup -1": "    #|   ##|##  #|    #|    #",
}

# Signs of the key alphabet, drawn to the weight of its outlines.
_KEY = {
    "swap": "    #o  |    .#o |########|        |########| o#.    |  o#    ",
    "down": "  ##  |  ##  |  ##  |  ##  |######|o####o| o##o ",
    "Minus": "##########|##########|          |          |          |          ",
    "Plus": "    ##    |    ##    |    ##    |    ##    |##########|"
            "##########|    ##    |    ##    |    ##    |    ##    ",
    "Times": "o#.    .#o|###.  .###|.###..###.| .######. |  .####.  |"
             "  .####.  | .######. |.###..###.|###.  .###|o#.    .#o",
    "Divide": "    ##    |   o##o   |    ##    |          |##########|"
              "##########|          |    ##    |   o##o   |    ##    ",
    "Point": "o##o|####|####|o##o",
}

# Signs that keep two pixels clear on both sides.
_APART = ("le", "lt", "gt", "eq", "ne", "swap")

# Raised glyphs: rows between the baseline and their foot.
_RAISED = {"sup x": 5, "sup 2": 4, "sup -1": 3}

# How glyphs are set: the least and the mean clear columns between two, the
# blank between words, and the coverage from which a pixel counts as ink.
_FIT = {
    "small": dict(gap=1, mean=2.0, blank=4, ink=0.2),
    "key": dict(gap=1, mean=1.7, blank=3, ink=0.35),
    "enter": dict(gap=2, mean=2.2, blank=4, ink=0.35),
    "digit": dict(gap=1, mean=1.7, blank=3, ink=0.35),
    "shift": dict(gap=1, mean=1.7, blank=3, ink=0.35),
}

_OUTLINES = {
    "key": (WIDE_BOLD, 9),
    "enter": (WIDE_BOLD, 10),
    "digit": (SANS_BOLD, 14),
    "shift": (SERIF_BOLD_ITALIC, 19),
}


def _drawn(rows, hang=0, lift=0):
    """A glyph from its rows; its canvas has the baseline at row _ROOM."""
    lines = rows.split("|")
    glyph = np.zeros((2 * _ROOM, max(len(line) for line in lines)), np.float32)
    top = _ROOM + hang - lift - len(lines)
    for y, line in enumerate(lines):
        for x, ink in enumerate(line):
            glyph[top + y, x] = _INK[ink]
    return glyph


def _hand_drawn(table, name):
    for key, rows in table.items():
        base, _, hang = key.partition("_")
        if base == name:
            return _drawn(rows, int(hang or 0), _RAISED.get(name, 0))
    return None


_font_cache = {}


def font(path, size):
    if (path, size) not in _font_cache:
        _font_cache[path, size] = ImageFont.truetype(
            path, size, layout_engine=ImageFont.Layout.BASIC)
    return _font_cache[path, size]


def _outlined(path, size, text):
    canvas = Image.new("L", (4 * _ROOM, 2 * _ROOM), 0)
    ImageDraw.Draw(canvas).text((_ROOM, _ROOM), text, font=font(path, size),
                                fill=255, anchor="ls")
    ink = np.asarray(canvas, np.float32) / 255
    columns = np.where(ink.max(axis=0) > 0.08)[0]
    return ink[:, columns[0]:columns[-1] + 1]


def _unhinted(path, size, text):
    """For letters large enough to do without hinting: keeps their curves."""
    fine = 8
    canvas = Image.new("L", (4 * _ROOM * fine, 2 * _ROOM * fine), 0)
    ImageDraw.Draw(canvas).text((_ROOM * fine, _ROOM * fine), text, fill=255,
                                font=font(path, size * fine), anchor="ls")
    ink = np.asarray(canvas, np.float32) / 255
    ink = ink.reshape(2 * _ROOM, fine, 4 * _ROOM, fine).mean(axis=(1, 3))
    columns = np.where(ink.max(axis=0) > 0.08)[0]
    return ink[:, columns[0]:columns[-1] + 1]


def _glyph(alphabet, name):
    if alphabet != "small":
        drawn = _hand_drawn(_KEY, name)
        if drawn is not None:
            return drawn
        plain = {"Sigma": "\u03a3", "plus": "+", "xbar": "x"}.get(name, name)
        path, size = _OUTLINES[alphabet]
        render = _unhinted if alphabet == "shift" else _outlined
        return render(path, size, plain)
    drawn = _hand_drawn(_SMALL, name)
    if drawn is None:
        raise KeyError("no glyph for %r" % name)
    return drawn


def _gap(left, right, fit):
    """Blank columns between two glyphs: rows that face each other closely
    push apart, open shapes move together, but never below the least gap."""
    distances = []
    for row in range(left.shape[0]):
        a = np.where(left[row] > fit["ink"])[0]
        b = np.where(right[row] > fit["ink"])[0]
        if len(a) and len(b):
            distances.append(left.shape[1] - 1 - a[-1] + b[0])
        elif len(a) or len(b):
            distances.append(3)
    for extra in range(5):
        moved = np.array(distances) + extra
        if moved.min() >= fit["gap"] and np.minimum(moved, 3).mean() >= fit["mean"]:
            return extra
    return 2


def _words(markup):
    return re.findall(r"<([^>]+)>|(.)", markup)


def legend(markup, alphabet="small"):
    """Coverage mask of a legend and its rows above the baseline."""
    if markup.startswith("*"):
        markup, alphabet = markup[1:], "shift"
    fit = _FIT[alphabet]
    pieces, x, previous, former = [], 0, None, ""
    for sign, char in _words(markup):
        name = sign or char
        if name == " ":
            x, previous = x + fit["blank"], None
            continue
        glyph = _glyph(alphabet, name)
        if previous is not None:
            if name in _APART or former in _APART:
                x += 2
            elif name.startswith("sup"):
                x += 1
            else:
                x += _gap(previous, glyph, fit)
        pieces.append((x, glyph))
        x, previous, former = x + glyph.shape[1], glyph, name
    mask = np.zeros((2 * _ROOM, x), np.float32)
    for left, glyph in pieces:
        part = mask[:, left:left + glyph.shape[1]]
        np.maximum(part, glyph, out=part)
    rows = np.where(mask.max(axis=1) > 0)[0]
    return mask[rows[0]:rows[-1] + 1], _ROOM - rows[0]


def enlarge(mask, scale):
    """The mask scale times as large, smooth at its edges."""
    if scale == 1:
        return mask
    size = (mask.shape[1] * scale, mask.shape[0] * scale)
    image = Image.fromarray((mask * 255).astype(np.uint8))
    return np.asarray(image.resize(size, Image.BICUBIC), np.float32) / 255
