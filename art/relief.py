"""A small renderer: a height field with materials, photographed from the front.

Lengths and heights are units, pixels of the face at 96 dpi; x to the right, y
down, heights towards the eye. Colours are linear inside and become sRGB at the
very end.
"""

import numpy as np

_REACH = 24                     # units; shadows reach no farther

# A wide lamp at the upper left: directions towards it, z towards the eye.
_LAMP = [(-0.40, -0.58, 0.70), (-0.30, -0.62, 0.72), (-0.50, -0.54, 0.68),
         (-0.37, -0.50, 0.78), (-0.43, -0.66, 0.62)]
_KEY_LIGHT = 0.66               # share of the lamp on a level surface
_FILL_LIGHT = 1.0 - _KEY_LIGHT

# The lamp is near: its direction turns by as much over the width of the scene,
# and its light fades from 1 + _NEAR at the upper left to 1 - _NEAR at the lower
# right.
_TURN = 0.17
_NEAR = (0.25, 0.13)            # across and down


def to_linear(srgb):
    s = np.asarray(srgb, np.float32) / 255
    return np.where(s <= 0.04045, s / 12.92, ((s + 0.055) / 1.055) ** 2.4)


def to_srgb(linear):
    v = np.clip(linear, 0, 1)
    return 255 * np.where(v <= 0.0031308, v * 12.92, 1.055 * v ** (1 / 2.4) - 0.055)


def smooth(edge0, edge1, value):
    t = np.clip((value - edge0) / (edge1 - edge0), 0, 1)
    return t * t * (3 - 2 * t)


def round_min(a, b, width):
    """The smaller of two surfaces, their crease rounded over width."""
    t = np.clip(0.5 + 0.5 * (b - a) / width, 0, 1)
    return b + (a - b) * t - width * t * (1 - t)


def box(x, y, rect, radius):
    """Distance to the border of a rounded rectangle, negative inside."""
    left, top, right, bottom = rect
    dx = np.abs(x - (left + right) / 2) - (right - left) / 2 + radius
    dy = np.abs(y - (top + bottom) / 2) - (bottom - top) / 2 + radius
    outside = np.hypot(np.maximum(dx, 0), np.maximum(dy, 0))
    return outside + np.minimum(np.maximum(dx, dy), 0) - radius


class Field:
    """Heights and materials of a rectangle, density samples to the unit.
    Materials: colour (linear), gloss (strength of the highlight), polish
    (strength of the mirrored room), glow (light of its own), shade (share of
    the light that a drop shadow takes)."""

    def __init__(self, rect, density):
        self.rect, self.density = rect, density
        left, top, right, bottom = rect
        step = 1.0 / density
        xs = (np.arange(round((right - left) * density)) + 0.5) * step + left
        ys = (np.arange(round((bottom - top) * density)) + 0.5) * step + top
        self.x = xs[None, :].astype(np.float32)
        self.y = ys[:, None].astype(np.float32)
        shape = (len(ys), len(xs))
        self.height = np.zeros(shape, np.float32)
        self.colour = np.zeros(shape + (3,), np.float32)
        self.gloss = np.zeros(shape, np.float32)
        self.polish = np.zeros(shape, np.float32)
        self.glow = np.zeros(shape + (3,), np.float32)
        self.shade = np.zeros(shape, np.float32)

    def window(self, rect):
        """Slices of the samples in rect, or None if it lies elsewhere."""
        left, top, right, bottom = self.rect
        x0 = max(0, int((rect[0] - left) * self.density))
        y0 = max(0, int((rect[1] - top) * self.density))
        x1 = min(self.height.shape[1], int((rect[2] - left) * self.density))
        y1 = min(self.height.shape[0], int((rect[3] - top) * self.density))
        if x0 >= x1 or y0 >= y1:
            return None
        return slice(y0, y1), slice(x0, x1)

    def paint(self, where, cover, colour, gloss=None, polish=None):
        """Lays a material over the samples in where; cover is 0 to 1."""
        cover = np.broadcast_to(cover, self.height[where].shape)
        part = self.colour[where]
        part += (to_linear(colour) - part) * cover[..., None]
        for plane, value in ((self.gloss, gloss), (self.polish, polish)):
            if value is not None:
                plane[where] += (value - plane[where]) * cover


def _lit_by_lamp(field, caster):
    """Share of the lamp that each sample sees, 0 to 1, past the heights of
    caster."""
    height, density = field.height, field.density
    top = float(caster.max())
    room = int((_REACH + 1) * density)
    wide = np.pad(caster, room, mode="edge")
    rows, columns = height.shape
    share = np.zeros_like(height)
    for lx, ly, lz in _LAMP:
        level = np.hypot(lx, ly)
        rise = lz / level
        blocked = np.zeros_like(height)
        reach, t = min(_REACH, (top - float(height.min())) / rise + 1), 0.5
        while t < reach:
            x = room + int(round(lx / level * t * density))
            y = room + int(round(ly / level * t * density))
            over = wide[y:y + rows, x:x + columns] - height
            over -= t * rise
            over *= 1 / 0.35
            np.maximum(blocked, over, out=blocked)
            t += 0.3 + 0.06 * t
        share += 1 - np.minimum(blocked, 1)
    return share / len(_LAMP)


def blurred(plane, reach):
    """Triangular blur of 2 * reach + 1 samples in both directions."""
    weights = np.concatenate([np.arange(1, reach + 2), np.arange(reach, 0, -1)])
    weights = weights.astype(np.float32) / weights.sum()
    for axis in (0, 1):
        padded = np.pad(plane, [(reach, reach) if a == axis else (0, 0) for a in (0, 1)],
                        mode="edge")
        out = np.zeros_like(plane)
        for i, weight in enumerate(weights):
            cut = [slice(None), slice(None)]
            cut[axis] = slice(i, i + plane.shape[axis])
            out += weight * padded[tuple(cut)]
        plane = out
    return plane


def _openness(field):
    """How much of the room a sample sees, 0 to 1: pits are dark."""
    # A coarser grid is enough for light this soft.
    step = max(1, field.density // 2)
    coarse = field.height[::step, ::step]
    closed = np.zeros_like(coarse)
    for reach, strength in ((1.5, 0.10), (4.5, 0.075)):
        samples = int(round(reach * field.density / step))
        closed += np.clip(blurred(coarse, samples) - coarse, 0, None) * strength
    full = np.repeat(np.repeat(closed, step, 0), step, 1)
    rows, columns = field.height.shape
    return 1 / (1 + 2.2 * full[:rows, :columns])


def _room(ry, rx):
    """What a mirror shows: a bright window above and to the left, else dusk."""
    return 0.05 + 0.95 * smooth(0.10, 0.66, -0.90 * ry - 0.44 * rx)


def photograph(field, size, caster=None):
    """The picture, linear, one value a sample. size: of the whole scene, in
    units. caster: the heights that throw shadows, unless all do."""
    slope_y, slope_x = np.gradient(field.height, 1.0 / field.density)
    length = np.sqrt(slope_x ** 2 + slope_y ** 2 + 1)
    nx, ny, nz = -slope_x / length, -slope_y / length, 1 / length
    lit = _lit_by_lamp(field, field.height if caster is None else caster)
    lit *= 1 - field.shade
    open_ = _openness(field) * (1 - 0.55 * field.shade)

    lx, ly, lz = np.array(_LAMP[0]) / np.linalg.norm(_LAMP[0])
    facing = np.clip(nx * lx + ny * ly + nz * lz, 0, None) / lz
    across, down = 2 * field.x / size[0] - 1, 2 * field.y / size[1] - 1
    falloff = (1 - _NEAR[0] * across) * (1 - _NEAR[1] * down)
    upward = 1 - 0.35 * ny      # the room's light comes rather from above
    light = (_KEY_LIGHT * facing * lit + _FILL_LIGHT * open_ * upward) * falloff
    picture = field.colour * light[..., None]

    hx, hy, hz = lx - _TURN / 2 * across, ly - _TURN / 2 * down, lz + 1
    toward = (nx * hx + ny * hy + nz * hz) / np.sqrt(hx ** 2 + hy ** 2 + hz ** 2)
    shine = field.gloss * np.clip(toward, 0, 1) ** 42 * lit
    mirror = field.polish * _room(2 * nz * ny, 2 * nz * nx) * (0.35 + 0.65 * open_)
    picture += ((shine + mirror) * falloff)[..., None]
    return picture + field.glow


def reduced(picture, factor):
    """The mean of factor x factor samples."""
    h, w = picture.shape[0] // factor, picture.shape[1] // factor
    return picture.reshape(h, factor, w, factor, -1).mean(axis=(1, 3))
