"""The three pictures of the keypad: face, key strip, switch strip."""

import os

import numpy as np

import files
import geometry as g
import instrument
import palette
import relief


def _whole(picture):
    return np.clip(np.rint(picture), 0, 255).astype(np.uint8)


def _cut(picture, rect):
    left, top, right, bottom = rect
    return picture[top:bottom, left:right]


def _key_strip(released, pressed):
    """All keys side by side; released above, pressed below."""
    return np.vstack([
        np.hstack([_cut(state, g.key_rect(key)) for key in g.KEYS])
        for state in (released, pressed)])


def _switch_frame(index, thumb):
    rect = g.switch_rect(g.SWITCHES[index])
    left, top, right, bottom = rect
    around = (left - relief.REACH, top - relief.REACH,
              right + relief.REACH, bottom + relief.REACH)
    thumbs = [switch[2] for switch in g.SWITCHES]
    thumbs[index] = thumb
    picture = _whole(instrument.picture(around, thumbs=thumbs))
    return _cut(picture, (relief.REACH, relief.REACH,
                          relief.REACH + g.SWITCH_WIDTH, relief.REACH + g.SWITCH_HEIGHT))


def _switch_strip(released):
    """The switches side by side, a frame for each thumb position downwards."""
    columns = []
    for index, switch in enumerate(g.SWITCHES):
        frames = []
        for frame in range(g.SWITCH_FRAMES):
            thumb = min(frame, g.SWITCH_TRAVEL)
            at_rest = thumb == switch[2]
            frames.append(_cut(released, g.switch_rect(switch)) if at_rest
                          else _switch_frame(index, thumb))
        columns.append(np.vstack(frames))
    return np.hstack(columns)


def make(folder):
    released = _whole(instrument.picture())
    pressed = _whole(instrument.picture(state=instrument.PRESSED))
    keys = _key_strip(released, pressed)
    switches = _switch_strip(released)
    parts = (released, keys, switches)
    entries = palette.choose(np.concatenate([part.reshape(-1, 3) for part in parts]))
    for name, part in zip(("face", "keys", "switches"), parts):
        path = os.path.join(folder, name + ".bmp")
        files.write_indexed(path, palette.apply(part, entries), entries)
