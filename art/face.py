"""The pictures of the keypad: face, key strip, switch strip, lit lamps."""

import numpy as np

import files
import geometry as g
import instrument
import palette

# Around the switches and around the lamps, in units; at every scale whole
# pixels.
_SWITCHES = (48, 76, 264, 128)
_LAMPS = (16, 72, 272, 116)


def _whole(picture):
    return np.clip(np.rint(picture), 0, 255).astype(np.uint8)


def _cut(picture, rect, origin=(0, 0)):
    left, top, right, bottom = rect
    return picture[top - origin[1]:bottom - origin[1], left - origin[0]:right - origin[0]]


def _side_by_side(pictures):
    """In one row, each at the top; shorter ones are filled with black below."""
    height = max(picture.shape[0] for picture in pictures)
    return np.hstack([np.pad(picture, ((0, height - picture.shape[0]), (0, 0), (0, 0)))
                      for picture in pictures])


def _key_strip(released, pressed, scale):
    """All keys side by side, each with its pressed image right below."""
    columns = []
    for key in g.KEYS:
        rect = g.scaled(g.key_rect(key), scale)
        columns.append(np.vstack([_cut(released, rect), _cut(pressed, rect)]))
    return _side_by_side(columns)


def _switch_strip(photographs, released, scale):
    """The switches side by side, a frame for each thumb position downwards."""
    columns = [[] for _ in g.SWITCHES]
    for frame in range(g.SWITCH_FRAMES):
        thumb = min(frame, g.SWITCH_TRAVEL)
        detail, origin = photographs.detail(scale, _SWITCHES, thumbs=(thumb, thumb))
        for column, switch in zip(columns, g.SWITCHES):
            rect = g.scaled(g.switch_rect(switch), scale)
            column.append(_cut(released, rect) if thumb == switch[2]
                          else _cut(detail, rect, origin))
    return _side_by_side([np.vstack(column) for column in columns])


def _lamp_strip(photographs, scale):
    """The lamps side by side, all lit."""
    kinds = tuple(lamp[2] for lamp in g.LAMPS)
    detail, origin = photographs.detail(scale, _LAMPS, lit=kinds)
    return _side_by_side([_cut(detail, g.scaled(g.lamp_rect(lamp), scale), origin)
                          for lamp in g.LAMPS])


class Photographs:
    """The face and its details, each photographed once for all scales of the
    same density."""

    def __init__(self):
        self._taken = {}

    def take(self, scale, rect=None, **states):
        name = (instrument.density_for(scale), rect, *states.items())
        if name not in self._taken:
            self._taken[name] = instrument.photograph(scale, rect, **states)
        return self._taken[name]

    def face(self, scale, state):
        return _whole(instrument.develop(self.take(scale, state=state), scale, state=state))

    def detail(self, scale, rect, **states):
        """The picture of a rectangle in units, and the pixel at its corner."""
        pixels = g.scaled(rect, scale)
        return (_whole(instrument.develop(self.take(scale, rect, **states), scale, pixels)),
                pixels[:2])


def draw(photographs, scale):
    """Name, picture (entries) for each part, and their 256 palette entries."""
    released = photographs.face(scale, instrument.RELEASED)
    pressed = photographs.face(scale, instrument.PRESSED)
    parts = {
        "face": released,
        "keys": _key_strip(released, pressed, scale),
        "switches": _switch_strip(photographs, released, scale),
        "lamps": _lamp_strip(photographs, scale),
    }
    entries = palette.choose(np.concatenate([part.reshape(-1, 3) for part in parts.values()]))
    return {name: palette.apply(part, entries) for name, part in parts.items()}, entries


def make(folder, photographs, scale, png=False):
    pictures, entries = draw(photographs, scale)
    for name, picture in pictures.items():
        files.write_scaled(folder, name, scale, picture, entries, png)
