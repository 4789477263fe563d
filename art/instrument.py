"""The calculator itself: its shape, its materials and its legends."""

import numpy as np

import geometry as g
import lettering
import logotype
import relief
from relief import box, round_min, smooth

FACE = (0, 0, g.FACE_WIDTH, g.FACE_HEIGHT)
RELEASED, PRESSED = 0, 1

# sRGB colours of the materials.
_CASE = (64, 66, 71)
_HOOD = (40, 41, 45)
_PLATE = (58, 60, 65)
_WELL = (17, 17, 19)
_METAL = (158, 159, 162)
_ENGRAVED = (16, 16, 19)
_THUMB = (158, 159, 163)
_SLOT = (18, 18, 20)
# Beside the menu bar, which is white or, on newer systems, (240, 240, 240).
_OUTSIDE = (248, 248, 248)

_CAP_COLOUR = {
    g.FUNCTION: (58, 61, 68),
    g.OPERATOR: (74, 79, 88),
    g.DIGIT: (222, 217, 204),
    g.ENTER: (158, 42, 34),
    g.GOLD: (222, 160, 44),
    g.BLUE: (36, 86, 166),
}
_WHITE_INK = (250, 249, 244)
_BLACK_INK = (20, 20, 22)
_GOLD_INK = (248, 204, 104)
_BLUE_INK = (164, 210, 255)
_DARK_BLUE_INK = (4, 26, 112)

_CAP_INK = {
    g.FUNCTION: _WHITE_INK, g.OPERATOR: _WHITE_INK, g.ENTER: _WHITE_INK,
    g.DIGIT: _BLACK_INK, g.GOLD: _BLACK_INK, g.BLUE: _WHITE_INK,
}

_CAP_STYLE = {g.DIGIT: "digit", g.ENTER: "enter", g.GOLD: "shift", g.BLUE: "shift"}

# Rows from the key's top to the foot of its legend, and to that on its front.
_CAP_BASELINE = {g.DIGIT: 14, g.ENTER: 17, g.GOLD: 18, g.BLUE: 17}
_FUNCTION_BASELINE = 13
_FRONT_BASELINE = 26
_SIGN_TOP = 4                   # of an operator's sign, and its side
_SIGN = 10

# The glass glows deep red at its rim and is black behind the digits. A window
# is reflected in its upper edge.
_GLASS_RIM = (52, 9, 11)
_REFLECTION = (74, 80, 90)

_LENS = {
    g.LAMP_F: (74, 54, 18), g.LAMP_G: (26, 44, 76),
    g.LAMP_PROGRAM: (78, 30, 22), g.LAMP_RUN: (24, 60, 34),
}
_LIT = {
    g.LAMP_F: (255, 190, 60), g.LAMP_G: (110, 180, 255),
    g.LAMP_PROGRAM: (255, 110, 80), g.LAMP_RUN: (96, 240, 130),
}
_LAMP_RADIUS = 2.4              # of the round ends of a lamp
_LAMP_REACH = 2.0               # from its middle to where they begin
_LAMP_LETTERS = {g.LAMP_F: ("f", _GOLD_INK), g.LAMP_G: ("g", _BLUE_INK)}

_HOOD_RECT = (13, 11, 293, 105)
_PLATE_RECT = (13, 105, 293, 513)
_NAME_RECT = (22, 522, 284, 550)
_GROOVE_Y = 130                 # engraved line below the switches
_DIVIDER_X = 154                # and a short one between their labels
_LABEL_GAP = 4                  # between a switch and its labels

_PLATE_LEVEL = -1.6
_RECESS = 0.9                   # of the plate around a key
_WELL_LEVEL = -6.0
_CAP_TOP = 6.4                  # of a released key, above the plate
_SINK = 3.0                     # travel of a pressed key
_PRESSED_SHIFT = (1, 2)         # units that a pressed key moves right and down
_FRONT_SHIFT = (1, 1)           # its front foreshortens as it sinks
_PRESSED_LIGHT = 0.54           # of the light on a released one
_PRESSED_INK = 0.80

# Room around a cap in the rectangle of its key: left, top, right, bottom. Its
# shadow falls to the lower right.
_MARGIN = (0.6, 0.6, 3.0, 3.2)
_SHADOW = 0.85


def _grown(rect, by):
    return rect[0] - by, rect[1] - by, rect[2] + by, rect[3] + by


def _case(field):
    x, y = field.x, field.y
    inside = -box(x, y, FACE, 8)
    # A steep foot, then a chamfer whose upper crease catches the light.
    steep = 3.0 * (inside - 0.4) - 8.0
    chamfer = 0.85 * (inside - 7.5)
    field.height[:] = round_min(round_min(steep, chamfer, 1.2), 0.0, 0.5)
    whole = (slice(None), slice(None))
    field.paint(whole, 1.0, _CASE, gloss=0.14, polish=0.12)
    outside = smooth(0.3, -0.3, inside)
    field.paint(whole, outside, (0, 0, 0), gloss=0, polish=0)
    field.glow += outside[..., None] * relief.to_linear(_OUTSIDE)


def _hood(field):
    """The raised frame of the display and the glass sunk into it."""
    x, y = field.x, field.y
    whole = (slice(None), slice(None))
    ring = -box(x, y, _HOOD_RECT, 9)
    # Steeper at its foot, where the lamps are close.
    field.height += 2.2 * smooth(0, 3.2 - 1.4 * smooth(92, 100, y), ring)
    field.paint(whole, smooth(-0.2, 0.4, ring), _HOOD, gloss=0.16, polish=0.09)
    glass = -box(x, y, g.WINDOW, 5)
    depth = smooth(-2.4 + 1.0 * smooth(85, 95, y), 0, glass)
    field.height += (-3.6 - field.height) * depth
    field.paint(whole, smooth(-0.3, 0.3, glass), (0, 0, 0), gloss=0, polish=0)

    left, top, right, bottom = g.BLACK_FIELD
    wl, wt, wr, wb = g.WINDOW
    # 0 in the black field, 1 at the border of the glass, each side by its own
    # distance, so that the glow is even all around.
    ax = np.maximum((left - x) / (left - wl), (x - right) / (wr - right))
    ay = np.maximum((top - y) / (top - wt), (y - bottom) / (wb - bottom))
    away = np.hypot(np.clip(ax, 0, None), np.clip(ay, 0, None))
    rim = np.clip(away, 0, 1) ** 1.7 * smooth(-0.3, 0.3, glass)
    field.glow += rim[..., None] * relief.to_linear(_GLASS_RIM)
    # Brightest in the corner towards the window, gone before the black field.
    lower = top - 0.6 - 4.0 * smooth(wl, wr, x)
    band = smooth(lower, wt + 1.0, y) * (0.25 + 0.75 * smooth(wr - 20, wl + 30, x))
    field.glow += (band * smooth(0.2, 1.6, glass))[..., None] * relief.to_linear(_REFLECTION)


def _lamps(field, lit):
    """Small oblong lenses in the lower edge of the hood."""
    for lamp in g.LAMPS:
        left, top, kind = lamp
        where = field.window(_grown(g.lamp_rect(lamp), 6))
        if where is None:
            continue
        x = field.x[:, where[1]] - left - g.LAMP_WIDTH / 2
        y = field.y[where[0]] - top - g.LAMP_HEIGHT / 2
        away = np.hypot(x - np.clip(x, -_LAMP_REACH, _LAMP_REACH), y)
        lens = smooth(0.25, -0.25, away - _LAMP_RADIUS)
        ring = smooth(1.0, 0.4, np.abs(away - _LAMP_RADIUS - 0.5))
        part = field.height[where]
        part -= 0.8 * ring
        part += lens * 0.9 * (1 - (away / _LAMP_RADIUS) ** 2)
        field.paint(where, ring * 0.8, _WELL, gloss=0, polish=0)
        field.paint(where, lens, _LENS[kind], gloss=0.15, polish=0.04)
        if kind in lit:
            core = lens * (0.75 + 0.25 * smooth(_LAMP_RADIUS, 0.4, away))
            halo = 0.3 * smooth(4.4, _LAMP_RADIUS - 0.4, away) * (1 - lens)
            field.glow[where] += (core + halo)[..., None] * relief.to_linear(_LIT[kind])
            hot = lens * smooth(1.5, 0.2, away)
            field.glow[where] += 0.5 * hot[..., None]


def _plate(field):
    x, y = field.x, field.y
    whole = (slice(None), slice(None))
    inside = -box(x, y, _PLATE_RECT, 6)
    field.height += _PLATE_LEVEL * smooth(0, 1.6, inside)
    field.paint(whole, smooth(0.2, 1.4, inside), _PLATE, gloss=0.03, polish=0.012)
    below = np.abs(y - _GROOVE_Y) + np.clip(np.abs(x - 153) - 126, 0, None)
    between = np.abs(x - _DIVIDER_X) + np.clip(np.abs(y - 113) - 6, 0, None)
    field.height -= 0.7 * smooth(0.9, 0.1, np.minimum(below, between))


def _name_plate(field):
    x, y = field.x, field.y
    whole = (slice(None), slice(None))
    inside = -box(x, y, _NAME_RECT, 4)
    middle = (_NAME_RECT[1] + _NAME_RECT[3]) / 2
    bulge = 1 - ((y - middle) / 14) ** 2
    field.height -= 1.4 * smooth(-1.4, -0.2, inside)
    field.height += (2.0 + 2.2 * bulge) * smooth(0.2, 1.8, inside)
    field.paint(whole, smooth(-0.3, 0.3, inside), _METAL, gloss=0.10, polish=0.55)
    d = field.density
    left, top = field.rect[:2]
    name = logotype.name_mask(field.height.shape[1], field.height.shape[0],
                              (32 - left) * d, (531 - top) * d, d)
    field.height -= 0.55 * name
    field.paint(whole, name, _ENGRAVED, gloss=0.02, polish=0.01)


def _well(field, rect, radius):
    """A hole in the plate for a switch, with a softened lip."""
    where = field.window(_grown(rect, 4))
    if where is None:
        return
    x, y = field.x[:, where[1]], field.y[where[0]]
    inside = -box(x, y, _grown(rect, 0.6), radius)
    part = field.height[where]
    part -= 0.5 * smooth(-1.2, 0.0, inside)
    part += (_WELL_LEVEL - part) * smooth(-0.1, 0.5, inside)
    field.paint(where, smooth(-0.2, 0.3, inside), _WELL, gloss=0, polish=0)


def _recess(field, rect):
    """The shallow bed of a key."""
    where = field.window(_grown(rect, 4))
    if where is None:
        return
    x, y = field.x[:, where[1]], field.y[where[0]]
    inside = -box(x, y, _grown(rect, 0.8), 4.6)
    field.height[where] -= _RECESS * smooth(-0.6, 0.8, inside)


def _cap_rect(key, state):
    left, top, right, bottom = g.key_rect(key)
    x, y = _PRESSED_SHIFT if state == PRESSED else (0, 0)
    front = _FRONT_SHIFT[1] if state == PRESSED else 0
    return (left + _MARGIN[0] + x, top + _MARGIN[1] + y,
            right - _MARGIN[2] + x, bottom - _MARGIN[3] + front)


def _drop_shadow(field, key):
    """What a released cap keeps from its bed, and a trace beyond it. A pressed
    one is drawn without it."""
    bed = g.key_rect(key)
    where = field.window(_grown(bed, 8))
    if where is None:
        return
    x, y = field.x[:, where[1]], field.y[where[0]]
    left, top, right, bottom = _cap_rect(key, RELEASED)
    cast = (left + 2.2, top + 2.4, right + 1.9, bottom + 2.1)
    soft = smooth(2.2, -1.8, box(x, y, cast, 5))
    within = 0.18 + 0.82 * smooth(0.4, -1.2, box(x, y, bed, 4))
    part = field.shade[where]
    np.maximum(part, _SHADOW * soft * within, out=part)


def _cap(field, key, state):
    """A key: steep sides, a dished top, a slanted front towards the user."""
    rect = g.key_rect(key)
    where = field.window(rect)
    if where is None:
        return
    kind = key[3]
    left, top, right, bottom = _cap_rect(key, state)
    u, v = field.x[:, where[1]] - left, field.y[where[0]] - top
    width, depth = right - left, bottom - top
    level = _PLATE_LEVEL - _RECESS + _CAP_TOP - (_SINK if state == PRESSED else 0)
    foot = level - _CAP_TOP
    sides = np.minimum(u, width - u) * 3.4 + foot + 0.4
    back = v * 3.4 + foot + 0.4
    front = (depth - v) * 0.50 + foot + 0.7
    across, along = (2 * u - width) / (width - 5), (v - 8.2) / 7.4
    dish = 0.60 * (1 - across ** 2) + 0.75 * (1 - along ** 2)
    # No two keys sit quite alike.
    lean = np.random.RandomState(rect[0] * 1000 + rect[1]).uniform(-0.03, 0.03, 2)
    crown = (level + 0.1 - np.clip(dish, 0, None)
             + lean[0] * (u - width / 2) + lean[1] * (v - 8))
    height = round_min(crown, front, 0.8)
    height = round_min(height, sides, 1.2)
    height = round_min(height, back, 1.1)
    outline = -box(u, v, (0, 0, width, depth), 3.4)
    cover = smooth(-0.25, 0.25, outline)
    part = field.height[where]
    part += (height - part) * cover
    shine = {g.ENTER: 0.24, g.GOLD: 0.24, g.BLUE: 0.24, g.DIGIT: 0.18}.get(kind, 0.15)
    field.paint(where, cover, _CAP_COLOUR[kind], gloss=shine, polish=0.05)
    field.shade[where] *= 1 - cover
    if state == PRESSED:
        dark = 1 - (1 - _PRESSED_LIGHT) * cover
        for plane in (field.colour, field.gloss, field.polish):
            plane[where] *= dark[..., None] if plane.ndim == 3 else dark


def _switch(field, switch, thumb):
    rect = g.switch_rect(switch)
    where = field.window(rect)
    if where is None:
        return
    u = field.x[:, where[1]] - rect[0]
    v = field.y[where[0]] - rect[1]
    floor = -box(u, v, (0, 0, g.SWITCH_WIDTH, g.SWITCH_HEIGHT), 3)
    field.paint(where, smooth(-0.2, 0.3, floor), _SLOT, gloss=0.04, polish=0.02)
    left = thumb + 0.8
    right = thumb + g.SWITCH_THUMB - 0.8
    body = -box(u, v, (left, 0.8, right, g.SWITCH_HEIGHT - 0.8), 2.2)
    ribs = 0.55 * np.cos((u - thumb - g.SWITCH_THUMB / 2) * np.pi / 1.5)
    ribs = ribs * smooth(8.0, 7.4, np.abs(u - thumb - g.SWITCH_THUMB / 2))
    ribs = ribs * smooth(1.6, 2.6, body)
    height = _PLATE_LEVEL + 3.0 * smooth(0, 2.0, body) - 1.0 + ribs
    cover = smooth(-0.2, 0.2, body)
    part = field.height[where]
    part += (height - part) * cover
    field.paint(where, cover, _THUMB, gloss=0.30, polish=0.16)


def build(rect, density, state=RELEASED, thumbs=None, lit=()):
    """The field of rect with all keys in one state and the lamps of the kinds
    in lit shining, and the heights that throw shadows: all but the caps, whose
    shadows are soft and end within their beds."""
    field = relief.Field(rect, density)
    _case(field)
    _hood(field)
    _plate(field)
    _name_plate(field)
    for i, switch in enumerate(g.SWITCHES):
        _well(field, g.switch_rect(switch), 3.6)
        _switch(field, switch, thumbs[i] if thumbs else switch[2])
    for key in g.KEYS:
        _recess(field, g.key_rect(key))
    _lamps(field, lit)
    caster = field.height.copy()
    for key in g.KEYS:
        if state == RELEASED:
            _drop_shadow(field, key)
        _cap(field, key, state)
    return field, caster


def _ink(picture, origin, mask, left, top, colour):
    """Prints a mask; left and top in pixels of the face, origin the pixel at
    the picture's corner."""
    x, y = left - origin[0], top - origin[1]
    h, w = mask.shape
    x0, y0 = max(0, x), max(0, y)
    x1, y1 = min(picture.shape[1], x + w), min(picture.shape[0], y + h)
    if x0 >= x1 or y0 >= y1:
        return
    cover = mask[y0 - y:y1 - y, x0 - x:x1 - x, None]
    part = picture[y0:y1, x0:x1]
    part += (np.asarray(colour, np.float32) - part) * cover


class _Printer:
    """Prints legends over a picture (sRGB, 0 to 255) at a scale."""

    def __init__(self, picture, origin, scale, smooth_letters):
        self.picture, self.origin, self.scale = picture, origin, scale
        self.smooth = smooth_letters

    def _legend(self, markup, style):
        return lettering.legend(markup, style, self.scale, self.smooth)

    def centred(self, markup, style, centre, base, colour, move=(0, 0)):
        mask, ascent = self._legend(markup, style)
        left = g.pixels(centre - mask.shape[1] / 2 / self.scale, self.scale)
        self._put(mask, left, g.pixels(base, self.scale) - ascent, colour, move)

    def beside(self, markup, style, edge, base, colour, towards_left):
        mask, ascent = self._legend(markup, style)
        left = g.pixels(edge, self.scale) - (mask.shape[1] if towards_left else 0)
        self._put(mask, left, g.pixels(base, self.scale) - ascent, colour)

    def sign(self, name, left, top, colour, move):
        self._put(lettering.operator(name, self.scale), g.pixels(left, self.scale),
                  g.pixels(top, self.scale), colour, move)

    def _put(self, mask, left, top, colour, move=(0, 0)):
        _ink(self.picture, self.origin, mask, left + g.pixels(move[0], self.scale),
             top + g.pixels(move[1], self.scale), colour)


def _print_key(printer, key, state):
    left, top, width, kind, cap, _, blue = key
    centre = left + (width - _MARGIN[2] + _MARGIN[0]) / 2
    pressed = state == PRESSED
    dim = _PRESSED_INK if pressed else 1.0
    move = _PRESSED_SHIFT if pressed else (0, 0)
    ink = np.multiply(_CAP_INK[kind], dim)
    if cap.startswith("<") and cap[1:-1] in lettering.OPERATORS:
        printer.sign(cap[1:-1], centre - _SIGN / 2, top + _SIGN_TOP, ink, move)
    else:
        printer.centred(cap, _CAP_STYLE.get(kind, "key"), centre,
                        top + _CAP_BASELINE.get(kind, _FUNCTION_BASELINE), ink, move)
    if blue:
        ink = _DARK_BLUE_INK if kind == g.DIGIT else _BLUE_INK
        printer.centred(blue, "small", centre, top + _FRONT_BASELINE,
                        np.multiply(ink, dim), _FRONT_SHIFT if pressed else move)


def letter(picture, origin, scale, state=RELEASED, smooth_letters=False):
    """Prints all legends over a picture (sRGB, 0 to 255)."""
    printer = _Printer(picture, origin, scale, smooth_letters)
    for key in g.KEYS:
        left, top, width, gold = key[0], key[1], key[2], key[5]
        if gold:
            centre = left + (width - _MARGIN[2] + _MARGIN[0]) / 2
            printer.centred(gold, "small", centre, top - 4, _GOLD_INK)
        _print_key(printer, key, state)
    for left, top, _, off, on in g.SWITCHES:
        printer.beside(off, "name", left - _LABEL_GAP, top + 11, _WHITE_INK, True)
        printer.beside(on, "name", left + g.SWITCH_WIDTH + _LABEL_GAP, top + 11,
                       _WHITE_INK, False)
    for left, top, kind in g.LAMPS:
        if kind in _LAMP_LETTERS:
            text, ink = _LAMP_LETTERS[kind]
            printer.beside(text, "bezel", left + g.LAMP_WIDTH, top + 7, ink, False)
    printer.beside("PROGRAMMABLE SCIENTIFIC", "name", 274, 541, _ENGRAVED, True)


def _streaks(scale):
    """Brightness of each pixel of the name plate: long horizontal scratches."""
    left, top, right, bottom = g.scaled(_NAME_RECT, scale)
    run = int(60 * scale)
    noise = np.random.RandomState(98).standard_normal((bottom - top, right - left + run))
    total = np.cumsum(noise, axis=1)
    streaks = np.ones((*g.scaled((g.FACE_HEIGHT, g.FACE_WIDTH), scale), 1))
    streaks[top:bottom, left:right, 0] += (0.045 * (total[:, run:] - total[:, :-run])
                                           / run ** 0.5)
    return streaks


def _grain(scale):
    """Deviation of each pixel from its shade, in steps of 255: keeps the
    gradients free of contour lines."""
    noise = np.random.RandomState(31)
    return 0.7 * noise.standard_normal((*g.scaled((g.FACE_HEIGHT, g.FACE_WIDTH), scale), 1))


def density_for(scale):
    """Samples to the unit: a whole number of them to the pixel."""
    return 5 if scale == 1.25 else 6


def photograph(scale, rect=None, state=RELEASED, thumbs=None, lit=()):
    """The linear picture of rect (units; the whole face by default), for all
    scales of the same density."""
    if rect is None:
        # A pixel more, for scales that round the border up.
        rect = (0, 0, g.FACE_WIDTH + 1, g.FACE_HEIGHT + 1)
    field, caster = build(rect, density_for(scale), state, thumbs, lit)
    return relief.photograph(field, (g.FACE_WIDTH, g.FACE_HEIGHT), caster)


def develop(linear, scale, rect=None, state=RELEASED, smooth_letters=False,
            grain=True):
    """The picture of rect (pixels; the whole face by default), sRGB, 0 to 255,
    from a photograph whose corner is the same, with its legends."""
    width, height = g.scaled((g.FACE_WIDTH, g.FACE_HEIGHT), scale)
    left, top, right, bottom = rect or (0, 0, width, height)
    factor = round(density_for(scale) / scale)
    linear = linear[:(bottom - top) * factor, :(right - left) * factor]
    light = relief.reduced(linear, factor) * _streaks(scale)[top:bottom, left:right]
    srgb = relief.to_srgb(light).astype(np.float32)
    if grain:
        srgb += _grain(scale)[top:bottom, left:right]
    letter(srgb, (left, top), scale, state, smooth_letters)
    black = g.scaled(g.BLACK_FIELD, scale)
    x0, y0 = max(black[0], left) - left, max(black[1], top) - top
    x1, y1 = max(0, black[2] - left), max(0, black[3] - top)
    if x1 > x0 and y1 > y0:
        srgb[y0:y1, x0:x1] = 0
    return srgb
