"""The name as letters of our own: one stroke of even weight, square shoulders.

The letters are on a grid of 10 x 11 units with a stroke of 2, so that at one
pixel a unit every stem covers whole pixels.
"""

import math

import cairo
import numpy as np

LETTER_WIDTH = 10
LETTER_HEIGHT = 11
LETTER_GAP = 4
_AFTER_V = -1                   # the V leaves room at its foot


def _v(c):
    c.move_to(1.0, -0.6)
    c.line_to(5, 9.2)
    c.line_to(9.0, -0.6)


def _o(c):
    c.arc(4, 4, 3, math.pi, 1.5 * math.pi)
    c.arc(6, 4, 3, 1.5 * math.pi, 0)
    c.arc(6, 7, 3, 0, 0.5 * math.pi)
    c.arc(4, 7, 3, 0.5 * math.pi, math.pi)
    c.close_path()


def _r(c):
    c.move_to(1, 11)
    c.line_to(1, 1)
    c.line_to(6.5, 1)
    c.arc(6.5, 3.5, 2.5, -0.5 * math.pi, 0.5 * math.pi)
    c.line_to(1, 6)
    c.move_to(5.2, 6)
    c.line_to(9.2, 11.4)


def _s(c):
    c.move_to(9.4, 1)
    c.line_to(3.25, 1)
    c.arc_negative(3.25, 3.25, 2.25, 1.5 * math.pi, 0.5 * math.pi)
    c.line_to(6.75, 5.5)
    c.arc(6.75, 7.75, 2.25, 1.5 * math.pi, 0.5 * math.pi)
    c.line_to(0.6, 10)


def _t(c):
    c.move_to(0, 1)
    c.line_to(10, 1)
    c.move_to(5, 1)
    c.line_to(5, 11)


def _e(c):
    c.move_to(9.4, 1)
    c.line_to(1, 1)
    c.line_to(1, 10)
    c.line_to(9.4, 10)
    c.move_to(1, 5.5)
    c.line_to(8, 5.5)


def _k(c):
    c.move_to(1, 0)
    c.line_to(1, 11)
    c.move_to(9.2, -0.4)
    c.line_to(3.0, 5.5)
    c.line_to(9.4, 11.4)


_LETTERS = (_v, _o, _r, _s, _t, _e, _k)


def name_mask(width, height, left, top, unit):
    """Coverage of the name in a picture of width x height samples; left and
    top in samples, unit the samples of one grid unit."""
    surface = cairo.ImageSurface(cairo.FORMAT_A8, width, height)
    context = cairo.Context(surface)
    context.set_antialias(cairo.ANTIALIAS_BEST)
    context.translate(left, top)
    context.scale(unit, unit)
    context.set_line_width(2)
    context.set_line_cap(cairo.LINE_CAP_BUTT)
    context.set_line_join(cairo.LINE_JOIN_MITER)
    for letter in _LETTERS:
        context.save()
        context.rectangle(-0.2, 0, LETTER_WIDTH + 0.4, LETTER_HEIGHT)
        context.clip()
        letter(context)
        context.stroke()
        context.restore()
        closer = _AFTER_V if letter is _v else 0
        context.translate(LETTER_WIDTH + LETTER_GAP + closer, 0)
    surface.flush()
    rows = np.frombuffer(surface.get_data(), np.uint8).reshape(height, surface.get_stride())
    return rows[:, :width].astype(np.float32) / 255
