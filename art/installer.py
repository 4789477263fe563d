"""The installer's pictures: the calculator beside its last page, the name above
the others."""

import os

import numpy as np
from PIL import Image

import files
import geometry as g
import instrument
import logotype
import relief

# Sizes that the installer's pages have at 96 dpi. It stretches them on finer
# screens, and would shrink larger ones without smoothing.
_SCALE = 1
_SIDE = (164, 314)
_HEADER = (150, 57)

_FACE_WIDTH = 138               # of the calculator in the side picture
_NAME_UNIT = 1.2                # of the logotype in the header
_ACCENT = (178, 44, 34)
_INK = (38, 40, 45)


def _sweep(width, height):
    """A light ground, brightest at the upper left."""
    y, x = np.mgrid[0:height, 0:width].astype(np.float32)
    away = np.hypot(x / width - 0.3, (y / height - 0.2) * 1.3)
    shade = 240 - 74 * relief.smooth(0.0, 1.2, away)
    return shade[..., None] * np.array([1.0, 1.002, 1.010], np.float32)


def _outline(width, height, scale, rect):
    """Coverage of the calculator's outline in a picture."""
    y, x = np.mgrid[0:height, 0:width].astype(np.float32) + 0.5
    unit = (rect[2] - rect[0]) / g.FACE_WIDTH
    return np.clip(0.5 - relief.box(x, y, rect, 8 * unit), 0, 1)


def _shaded(ground, rect):
    """The ground with the calculator's shadow to the lower right."""
    height, width = ground.shape[:2]
    for shift, reach, strength in ((7, 9, 0.34), (3, 4, 0.30)):
        moved = [edge + shift * _SCALE for edge in rect]
        soft = relief.blurred(_outline(width, height, _SCALE, moved), reach * _SCALE)
        ground *= 1 - strength * soft[..., None]


def _side(photographs):
    width, height = (edge * _SCALE for edge in _SIDE)
    picture = _sweep(width, height)
    face_width = _FACE_WIDTH * _SCALE
    face_height = round(face_width * g.FACE_HEIGHT / g.FACE_WIDTH)
    left, top = (width - face_width) // 2, (height - face_height) // 2
    rect = (left, top, left + face_width, top + face_height)
    _shaded(picture, rect)
    scale = 3
    drawn = instrument.develop(photographs.take(scale, state=instrument.RELEASED), scale,
                               grain=False)
    whole = Image.fromarray(np.clip(np.rint(drawn), 0, 255).astype(np.uint8))
    small = np.asarray(whole.resize((face_width, face_height), Image.LANCZOS), np.float32)
    cover = _outline(width, height, _SCALE, rect)[top:rect[3], left:rect[2], None]
    part = picture[top:rect[3], left:rect[2]]
    part += (small - part) * cover
    return picture


def _header():
    """The name on the white of the header, at its right."""
    width, height = (edge * _SCALE for edge in _HEADER)
    picture = np.full((height, width, 3), 255, np.float32)
    unit = _NAME_UNIT * _SCALE
    left, top = round(width - 98 * unit - 8 * _SCALE), round(height / 2 - 8 * unit)
    name = logotype.name_mask(width, height, left, top, unit)
    picture += (np.array(_INK) - picture) * name[..., None]
    rule = round(top + 16 * unit)
    picture[rule:rule + _SCALE, left:left + round(20 * unit)] = _ACCENT
    return picture


def make(folder, photographs):
    for name, picture in (("installer", _side(photographs)), ("installer_header", _header())):
        files.write_true_colour(os.path.join(folder, name + ".bmp"),
                                np.clip(np.rint(picture), 0, 255).astype(np.uint8))
