"""The welcome picture: the calculator on a light table, its name beside it.

The relief is drawn as a stack of thin slices, each seen through the camera at
its own height, from the table upwards; so keys and frame show their sides.
"""

import math
import os

import numpy as np
from PIL import Image, ImageDraw

import files
import geometry as g
import instrument
import lettering
import logotype
import relief

WIDTH, HEIGHT = 600, 510
_FINE = 4                       # the scene is drawn this much larger than at 96 dpi
_SCALE = 3                      # pixels of the drawn face to a unit

# The camera: the calculator turned on the table, tilted away, seen from afar.
_SPIN = math.radians(-11)
_TILT = math.radians(33)
_DISTANCE = 1500.0
_FOCUS = 1225.0
_CENTRE = (178.0, 247.0)        # where the middle of the face lands

_THICKNESS = 30                 # of the case, down to the table
_SLICES = 40

_NAME_AT = (334, 96)
_TEXT_AT = (334, 148)
_ACCENT = (178, 44, 34)
_TITLE_INK = (38, 40, 45)
_TEXT_INK = (62, 65, 72)
_LINES = (
    (16, lettering.SANS, "Programmable scientific calculator"),
    (13, lettering.SANS, "Reverse Polish notation with four levels"),
    (13, lettering.SANS, "98 program lines, 30 registers, statistics"),
    (13, lettering.SANS, "A graph window that your programs draw in"),
)
_LINE_STEPS = (0, 34, 20, 20)

# What the display shows after the key for pi, as the program paints it.
_DISPLAY = ((59, 66, 16, " 3.141592654"), (234, 40, 11, "deg"), (50, 42, 11, "LastOp:  pi"))


def _projected(x, y, z):
    """Where a point over the face (heights towards the eye) lands."""
    x, y = x - g.FACE_WIDTH / 2, y - g.FACE_HEIGHT / 2
    x, y = (x * math.cos(_SPIN) - y * math.sin(_SPIN),
            x * math.sin(_SPIN) + y * math.cos(_SPIN))
    depth = _DISTANCE - (y * math.sin(_TILT) + z * math.cos(_TILT))
    height = y * math.cos(_TILT) - z * math.sin(_TILT)
    return (_CENTRE[0] + _FOCUS * x / depth, _CENTRE[1] + _FOCUS * height / depth)


def _through_camera(image, z, pixels, margin=0):
    """An image of the face's plane at height z as the camera sees it; pixels
    of the image to one of the face, margin around the face in its pixels."""
    corners = [(-margin, -margin), (g.FACE_WIDTH + margin, -margin),
               (g.FACE_WIDTH + margin, g.FACE_HEIGHT + margin),
               (-margin, g.FACE_HEIGHT + margin)]
    rows, values = [], []
    for x, y in corners:
        sx, sy = _projected(x, y, z)
        sx, sy = sx * _FINE, sy * _FINE
        u, v = (x + margin) * pixels, (y + margin) * pixels
        rows.append([sx, sy, 1, 0, 0, 0, -u * sx, -u * sy])
        rows.append([0, 0, 0, sx, sy, 1, -v * sx, -v * sy])
        values += [u, v]
    figures = np.linalg.solve(np.array(rows), np.array(values))
    return image.transform((WIDTH * _FINE, HEIGHT * _FINE), Image.PERSPECTIVE,
                           tuple(figures), Image.BILINEAR)


def _lit_display(picture):
    """Prints the display's text, with the glow of light-emitting digits."""
    mask = Image.new("L", (picture.shape[1], picture.shape[0]), 0)
    draw = ImageDraw.Draw(mask)
    for x, y, size, text in _DISPLAY:
        font = lettering.font(lettering.MONO, size * _SCALE)
        draw.text((x * _SCALE, y * _SCALE), text, font=font, fill=255)
    lit = np.asarray(mask, np.float32) / 255
    glow = relief.blurred(lit, 7) * 0.9
    picture += np.clip(glow, 0, 1)[..., None] * np.array([150, 8, 6], np.float32)
    picture += (np.array([255, 52, 40], np.float32) - picture) * lit[..., None]


def _table():
    """A light sweep without an edge, brightest behind the calculator."""
    y, x = np.mgrid[0:HEIGHT * _FINE, 0:WIDTH * _FINE].astype(np.float32) / _FINE
    away = np.hypot((x - 250) / 520, (y - 170) / 420)
    shade = 236 - 58 * relief.smooth(0.05, 1.25, away)
    tint = np.array([1.0, 1.002, 1.010], np.float32)
    return shade[..., None] * tint


def _shadow(table):
    """What the case keeps from the table: a wide shadow and a dark seam."""
    pixels, margin = 1, 90
    size = (g.FACE_WIDTH + 2 * margin, g.FACE_HEIGHT + 2 * margin)
    for shift, reach, strength in (((26, 34), 22, 0.50), ((12, 15), 9, 0.38), ((3, 4), 3, 0.45)):
        plane = Image.new("L", size, 0)
        left, top = margin + shift[0], margin + shift[1]
        ImageDraw.Draw(plane).rounded_rectangle(
            (left, top, left + g.FACE_WIDTH - 1, top + g.FACE_HEIGHT - 1), 10, fill=255)
        soft = relief.blurred(np.asarray(plane, np.float32), reach)
        soft = Image.fromarray(np.rint(soft).astype(np.uint8))
        seen = np.asarray(_through_camera(soft, -_THICKNESS, pixels, margin), np.float32)
        table *= 1 - strength * seen[..., None] / 255


def _side_wall(field):
    """The case's wall as a picture of its outline: each border lit by where
    it faces. Only the border of a slice is ever seen."""
    inside = -relief.box(field.x, field.y, instrument.FACE, 10)
    slope_y, slope_x = np.gradient(inside, 1.0 / field.density)
    length = np.maximum(np.hypot(slope_x, slope_y), 1e-6)
    towards = 0.55 * slope_x / length + 0.35 * slope_y / length
    shade = 30 + 26 * np.clip(0.35 + towards, 0, 1)
    return shade[..., None] * np.array([1.0, 1.02, 1.08]), np.clip(inside + 0.5, 0, 1)


def _rgba(colour, cover):
    both = np.concatenate([colour, 255 * cover[..., None]], axis=2)
    return Image.fromarray(np.clip(np.rint(both), 0, 255).astype(np.uint8), "RGBA")


def _calculator(scene, photographs):
    field, _ = instrument.build(instrument.FACE, _SCALE)
    wall, outline = _side_wall(field)
    lowest = float(field.height.min())
    for z in np.arange(-_THICKNESS, -8.0, 0.75):
        # Darker towards the table, with a seam between the two shells.
        part = (z + _THICKNESS) / _THICKNESS
        shade = 0.62 + 0.5 * part if abs(z + 17) > 0.6 else 0.25
        slice_ = _through_camera(_rgba(wall * shade, outline), z, _SCALE)
        scene.paste(slice_, (0, 0), slice_)
    colour = instrument.develop(photographs.take(_SCALE, state=instrument.RELEASED), _SCALE,
                                grain=False)
    _lit_display(colour)
    highest = float(field.height.max())
    for n in range(_SLICES + 1):
        z = lowest + (highest - lowest) * n / _SLICES
        cover = outline * np.clip((field.height - z) / 0.3 + 1, 0, 1)
        slice_ = _through_camera(_rgba(colour, cover), z, _SCALE)
        scene.paste(slice_, (0, 0), slice_)


def _title(picture, scale):
    """Name and lines, at the final size so that hinting keeps them crisp."""
    height, width = picture.shape[:2]
    left, top = g.scaled(_NAME_AT, scale)
    name = logotype.name_mask(width, height, left, top, 2.5 * scale)
    picture += (np.array(_TITLE_INK) - picture) * name[..., None]
    rule = g.scaled((_NAME_AT[0], _NAME_AT[1] + 40, _NAME_AT[0] + 40, _NAME_AT[1] + 42), scale)
    picture[rule[1]:rule[3], rule[0]:rule[2]] = _ACCENT
    x, y = _TEXT_AT
    for step, (size, path, text) in zip(_LINE_STEPS, _LINES):
        y += step
        mask = Image.new("L", (width, height), 0)
        ImageDraw.Draw(mask).text(g.scaled((x, y), scale), text, fill=255,
                                  font=lettering.font(path, g.pixels(size, scale)))
        cover = np.asarray(mask, np.float32)[..., None] / 255
        picture += (np.array(_TEXT_INK) - picture) * cover


def scene(photographs):
    """The picture without its texts, _FINE times as large as at 96 dpi."""
    table = _table()
    _shadow(table)
    picture = Image.fromarray(np.clip(np.rint(table), 0, 255).astype(np.uint8), "RGB")
    _calculator(picture, photographs)
    return picture


def make(folder, drawn, scale):
    """drawn: the scene."""
    width, height = g.scaled((WIDTH, HEIGHT), scale)
    picture = np.array(drawn.resize((width, height), Image.BOX if scale == 1 else Image.LANCZOS),
                       np.float32)
    if scale == 1:
        noise = np.random.RandomState(10002)
        picture += 0.6 * noise.standard_normal((height, width, 1))
    _title(picture, scale)
    picture = np.clip(np.rint(picture), 0, 255).astype(np.uint8)
    files.write_scaled(folder, "welcome", scale, picture)
