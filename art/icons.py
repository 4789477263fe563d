"""The icons: the calculator, and the graph window's plot.

Every size has its own drawing, laid out on its own pixels; that of 16 pixels
is set by hand.
"""

import os

import numpy as np

import files
import relief
from relief import box, round_min, smooth

_CASE = (66, 68, 74)
_PLATE = (40, 41, 46)
_DARK, _SLATE, _IVORY = (86, 90, 98), (118, 123, 132), (222, 217, 204)
_GOLD, _BLUE, _RED = (226, 164, 44), (56, 122, 214), (184, 50, 38)
_LED = (255, 40, 30)

# Rows of keys from the top: colour and width in columns.
_KEY_ROWS = {
    5: (((_DARK, 1), (_DARK, 1), (_GOLD, 1), (_BLUE, 1)),
        ((_RED, 2), (_DARK, 1), (_DARK, 1))) + 3 * (((_SLATE, 1),) + 3 * ((_IVORY, 1),),),
    4: (((_DARK, 1), (_DARK, 1), (_GOLD, 1), (_BLUE, 1)),
        ((_RED, 2), (_DARK, 1), (_DARK, 1))) + 2 * (((_SLATE, 1),) + 3 * ((_IVORY, 1),),),
    3: (((_RED, 2), (_GOLD, 1), (_BLUE, 1)),) + 2 * (((_SLATE, 1),) + 3 * ((_IVORY, 1),),),
}

# Layouts of the calculator by size: body, corner, display, first key, key
# size, gap, rows of keys, digit (left, top, width, height, stroke, step).
_CALCULATORS = {
    256: dict(body=(40, 6, 216, 250), corner=20, rim=7, display=(58, 24, 198, 76), keys=(58, 90),
              size=(29, 22), gap=(8, 8), rows=5, digit=(76, 33, 20, 34, 6, 30)),
    48: dict(body=(6, 1, 42, 47), corner=4, rim=2, display=(9, 4, 39, 15), keys=(9, 18),
             size=(6, 5), gap=(2, 2), rows=4, digit=(14, 6, 5, 7, 1, 7)),
    32: dict(body=(3, 0, 29, 32), corner=3, rim=1, display=(5, 2, 27, 11), keys=(5, 13),
             size=(4, 4), gap=(2, 2), rows=3, digit=(8, 4, 4, 5, 1, 6)),
}

# Strokes of a digit: upper, middle, lower; left and right above; left and
# right below.
_STROKES = {"3": "uml-r-r", "1": "----r-r", "4": "-m-lr-r"}


def _digits(shape, layout, density):
    """Coverage of "3.14" as an LED display writes it."""
    left, top, width, height, stroke, step = layout
    mask = np.zeros(shape, np.float32)

    def bar(x0, y0, x1, y1):
        mask[int(y0 * density):int(y1 * density), int(x0 * density):int(x1 * density)] = 1

    middle = top + (height - stroke) // 2
    point = 0
    for place, char in enumerate("314"):
        x = left + place * step + point
        upper, mid, lower, ul, ur, ll, lr = _STROKES[char]
        right = x + width
        if upper != "-":
            bar(x, top, right, top + stroke)
        if mid != "-":
            bar(x, middle, right, middle + stroke)
        if lower != "-":
            bar(x, top + height - stroke, right, top + height)
        if ul != "-":
            bar(x, top, x + stroke, middle + stroke)
        if ur != "-":
            bar(right - stroke, top, right, middle + stroke)
        if ll != "-":
            bar(x, middle, x + stroke, top + height)
        if lr != "-":
            bar(right - stroke, middle, right, top + height)
        if place == 0:
            bar(right + stroke, top + height - stroke, right + 2 * stroke, top + height)
            point = 2 * stroke
    return mask


def _case(field, body, corner, rim):
    inside = -box(field.x, field.y, body, corner)
    slope = 0.95 * (inside - rim)
    field.height[:] = round_min(slope, 0.0 * slope, 0.15 * rim)
    np.maximum(field.height, -rim, out=field.height)
    whole = (slice(None), slice(None))
    field.paint(whole, 1.0, _CASE, gloss=0.2, polish=0.16)
    return inside


def _sunk(field, rect, corner, depth, colour):
    inside = -box(field.x, field.y, rect, corner)
    cover = smooth(-0.5, 0.5, inside) if depth > 1 else np.clip(inside + 0.5, 0, 1)
    field.height += (-depth - field.height) * cover
    whole = (slice(None), slice(None))
    field.paint(whole, cover, colour, gloss=0.02, polish=0.0)
    return cover


def _key(field, rect, colour):
    left, top, right, bottom = rect
    size = bottom - top
    rise = 0.30 * size
    x, y = field.x, field.y
    sides = np.minimum(x - left, right - x) * 2.4
    back = (y - top) * 2.4
    front = (bottom - y) * 0.75
    height = round_min(round_min(round_min(rise + 0 * x, front, 0.12 * size), sides,
                                 0.08 * size), back, 0.08 * size)
    cover = np.clip((-box(x, y, rect, 0.14 * size)) * 2 + 0.5, 0, 1)
    part = field.height
    part += (height - part) * cover
    whole = (slice(None), slice(None))
    field.paint(whole, cover, colour, gloss=0.2, polish=0.05)


def _calculator(side):
    layout = _CALCULATORS[side]
    density = 2 if side == 256 else 4
    field = relief.Field((0, 0, side, side), density)
    inside = _case(field, layout["body"], layout["corner"], layout["rim"])
    scale = side / 256
    _sunk(field, layout["display"], 7 * scale, 7 * scale, (0, 0, 0))
    field.glow += np.clip(-box(field.x, field.y, layout["display"], 6 * scale) + 0.5,
                          0, 1)[..., None] * relief.to_linear((34, 4, 5))
    lit = _digits(field.height.shape, layout["digit"], density)
    field.glow += lit[..., None] * relief.to_linear(_LED)
    if side == 256:
        halo = relief.blurred(relief.blurred(lit, 9), 9)
        field.glow += 0.5 * halo[..., None] * relief.to_linear((220, 10, 8))
    x0, y0 = layout["keys"]
    w, h = layout["size"]
    gx, gy = layout["gap"]
    for row, keys in enumerate(_KEY_ROWS[layout["rows"]]):
        x, y = x0, y0 + row * (h + gy)
        for colour, columns in keys:
            width = columns * w + (columns - 1) * gx
            around = (x - 2 * scale, y - 2 * scale, x + width + 2 * scale, y + h + 2 * scale)
            if side == 256:
                _sunk(field, around, 6, 4, (14, 14, 16))
            _key(field, (x, y, x + width, y + h), colour)
            x += width + gx
    return _finished(field, inside, density, side)


def _finished(field, inside, density, side):
    """The picture with its outline as alpha and a soft shadow at its foot."""
    light = relief.photograph(field, (side, side)) * 1.12
    cover = np.clip(inside * density + 0.5, 0, 1)
    both = np.concatenate([light * cover[..., None], cover[..., None]], axis=2)
    both = relief.reduced(both, density)
    alpha = both[..., 3]
    colour = relief.to_srgb(both[..., :3] / np.maximum(alpha, 1e-6)[..., None])
    if side >= 48:
        drop = side // 48
        room = 4 * drop
        wide = np.pad(alpha, ((room + drop, room - drop), (room, room)))
        shade = 0.5 * relief.blurred(wide, 2 * drop)[room:-room, room:-room]
        total = alpha + shade * (1 - alpha)
        colour *= (alpha / np.maximum(total, 1e-6))[..., None]
        alpha = total
    picture = np.concatenate([colour, 255 * alpha[..., None]], axis=2)
    return np.clip(np.rint(picture), 0, 255).astype(np.uint8)


# The plots by size: frame, corner, rim, paper, grid step, width of the curve.
_PLOTS = {
    256: dict(frame=(8, 24, 248, 236), corner=18, rim=8, paper=(28, 44, 228, 216), step=40,
              pen=7.5, axis=5),
    48: dict(frame=(1, 4, 47, 45), corner=4, rim=2, paper=(5, 8, 43, 41), step=8, pen=2.0,
             axis=1),
    32: dict(frame=(0, 2, 32, 30), corner=3, rim=1, paper=(3, 5, 29, 27), step=6, pen=1.6,
             axis=1),
}


def _curve(t):
    """A damped swing that starts in the middle; t and the result are 0 to 1."""
    return 0.5 - 0.46 * np.exp(-1.5 * t) * np.sin(2 * np.pi * 1.32 * t)


def _line(t):
    return 0.86 - 0.62 * t


def _plot(side):
    layout = _PLOTS[side]
    density = 4
    field = relief.Field((0, 0, side, side), density)
    inside = _case(field, layout["frame"], layout["corner"], layout["rim"])
    left, top, right, bottom = layout["paper"]
    _sunk(field, layout["paper"], 1 if side < 256 else 5, layout["rim"] * 0.6, (250, 250, 247))
    x, y = field.x, field.y
    on_paper = np.clip(-box(x, y, layout["paper"], 0.5) + 0.5, 0, 1)
    whole = (slice(None), slice(None))
    axis, step = layout["axis"], layout["step"]
    margin = 3 * axis if side == 256 else 2
    x0, y1 = left + margin + axis, bottom - margin - axis
    thin = 2 if side == 256 else 1
    for n in range(1, (right - left) // step + 1):
        field.paint(whole, on_paper * ((x >= x0 + n * step) & (x < x0 + n * step + thin)),
                    (198, 206, 216))
        field.paint(whole, on_paper * ((y < y1 - n * step) & (y >= y1 - n * step - thin)),
                    (198, 206, 216))
    ts = np.linspace(0, 1, 257)
    for path, colour in ((_line, (44, 108, 204)), (_curve, (206, 34, 28))):
        px = x0 + ts * (right - x0 - margin)
        py = top + margin + path(ts) * (y1 - top - 2 * margin)
        near = np.full(field.height.shape, 1e9, np.float32)
        for i in range(len(ts) - 1):
            _near_segment(near, field, px[i:i + 2], py[i:i + 2], layout["pen"])
        field.paint(whole, on_paper * np.clip((layout["pen"] / 2 - near) * density + 0.5, 0, 1),
                    colour)
    for cover in ((x >= x0 - axis) & (x < x0) & (y > top + margin) & (y < y1 + axis),
                  (y >= y1) & (y < y1 + axis) & (x >= x0 - axis) & (x < right - margin)):
        field.paint(whole, cover.astype(np.float32), (30, 31, 36))
    return _finished(field, inside, density, side)


def _near_segment(near, field, px, py, pen):
    """Lowers near to the distance from the segment, close to it."""
    rect = (min(px) - pen, min(py) - pen, max(px) + pen, max(py) + pen)
    where = field.window(tuple(max(0, value) for value in rect))
    if where is None:
        return
    x, y = field.x[:, where[1]], field.y[where[0]]
    dx, dy = px[1] - px[0], py[1] - py[0]
    t = np.clip(((x - px[0]) * dx + (y - py[0]) * dy) / (dx * dx + dy * dy), 0, 1)
    distance = np.hypot(x - px[0] - t * dx, y - py[0] - t * dy)
    part = near[where]
    np.minimum(part, distance, out=part)


_INK = {
    "k": (26, 27, 30, 255), "c": (62, 64, 70, 255), "l": (116, 119, 126, 255),
    "d": (20, 3, 4, 255), "R": (255, 52, 40, 255), "E": (196, 56, 44, 255),
    "G": (236, 176, 52, 255), "B": (74, 142, 236, 255), "i": (232, 228, 216, 255),
    "s": (150, 156, 166, 255), "w": (252, 252, 250, 255), "g": (204, 211, 220, 255),
    "r": (212, 36, 30, 255), "b": (44, 108, 204, 255), "p": (236, 128, 122, 255),
    "q": (140, 176, 228, 255), "h": (128, 26, 22, 255), ".": (0, 0, 0, 0),
}

_SMALL_CALCULATOR = """
..llllllllllll..
.lddddddddddddk.
.ldRRRdRdRdRddk.
.ldddRdRdRdRddk.
.lddRRdRdRRRddk.
.ldddRdRdddRddk.
.ldRRRdRdddRddk.
.lddddddddddddk.
.lcccccccccccck.
.lcEEEEcGGcBBck.
.lcccccccccccck.
.lcssciiciiciik.
.lcccccccccccck.
.lcssciiciiciik.
.lcccccccccccck.
..kkkkkkkkkkkk..
""".split()

_SMALL_PLOT = """
.llllllllllllll.
lccccccccccccccc
lcwkwwwwwwwwwwck
lcwkwwprpwwwwwck
lcwkwwrprwwwwpck
lcwkwprwrpwwwrck
lcwkwrpwprwwprck
lcwkprwwwrpwrpck
lcwkrpwwwprprwck
lcwkrwwwwwprpwck
lcwkwwwwwwwwwwck
lcwkwbbwbbwbbwck
lcwkkkkkkkkkkkck
lcwwwwwwwwwwwwck
lccccccccccccccc
.kkkkkkkkkkkkkk.
""".split()


def _by_hand(rows):
    return np.array([[_INK[mark] for mark in row] for row in rows], np.uint8)


def make(folder):
    for name, small, draw in (("vorstek", _SMALL_CALCULATOR, _calculator),
                              ("graph", _SMALL_PLOT, _plot)):
        pictures = [_by_hand(small)] + [draw(side) for side in (32, 48, 256)]
        files.write_ico(os.path.join(folder, name + ".ico"), pictures)
