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
_CASE = (60, 62, 67)
_HOOD = (37, 38, 42)
_PLATE = (38, 39, 43)
_WELL = (15, 15, 17)
_METAL = (118, 119, 122)
_ENGRAVED = (30, 30, 33)
_THUMB = (150, 151, 155)
_SLOT = (18, 18, 20)
_OUTSIDE = (12, 12, 13)

_CAP_COLOUR = {
    g.FUNCTION: (66, 69, 76),
    g.OPERATOR: (92, 96, 104),
    g.DIGIT: (208, 203, 190),
    g.ENTER: (160, 46, 36),
    g.GOLD: (214, 156, 46),
    g.BLUE: (58, 116, 198),
}
_WHITE_INK = (244, 243, 238)
_BLACK_INK = (26, 26, 28)
_GOLD_INK = (236, 190, 88)
_BLUE_INK = (126, 182, 255)
_DARK_BLUE_INK = (16, 58, 156)

_CAP_INK = {
    g.FUNCTION: _WHITE_INK, g.OPERATOR: _WHITE_INK, g.ENTER: _WHITE_INK,
    g.DIGIT: _BLACK_INK, g.GOLD: _BLACK_INK, g.BLUE: _WHITE_INK,
}

_CAP_ALPHABET = {g.DIGIT: "digit", g.ENTER: "enter"}

# Rows from the key's top to the foot of its legend. The f hangs below its own.
_CAP_BASELINE = {g.DIGIT: 15, g.GOLD: 20, g.BLUE: 18}

# The glass glows deep red at its rim and is black behind the digits.
_GLASS_RIM = (58, 10, 12)

_HOOD_RECT = (13, 11, 293, 104)
_PLATE_RECT = (13, 104, 293, 513)
_NAME_RECT = (22, 522, 284, 550)
_GROOVE_Y = 130                 # engraved line below the switches
_DIVIDER_X = 154                # and a short one between their labels
_LABEL_GAP = 4                  # between a switch and its labels

_PLATE_LEVEL = -1.6
_WELL_LEVEL = -6.0
_CAP_TOP = 7.4              # of a released key, above the plate
_SINK = 3.0                 # travel of a pressed key
_PRESSED_SHIFT = 2          # rows that a pressed key's legends move down


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
    field.paint(whole, smooth(0.3, -0.3, inside), _OUTSIDE, gloss=0, polish=0)


def _hood(field):
    """The raised frame of the display and the glass sunk into it."""
    x, y = field.x, field.y
    whole = (slice(None), slice(None))
    ring = -box(x, y, _HOOD_RECT, 9)
    field.height += 2.2 * smooth(0, 3.2, ring)
    field.paint(whole, smooth(-0.2, 0.4, ring), _HOOD, gloss=0.16, polish=0.09)
    glass = -box(x, y, g.WINDOW, 5)
    depth = smooth(-2.4, 0, glass)
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
    """A hole in the plate for a key or a switch, with a softened lip."""
    where = field.window(_grown(rect, 4))
    if where is None:
        return
    x, y = field.x[:, where[1]], field.y[where[0]]
    inside = -box(x, y, _grown(rect, 0.6), radius)
    part = field.height[where]
    part -= 0.5 * smooth(-1.2, 0.0, inside)
    part += (_WELL_LEVEL - part) * smooth(-0.1, 0.5, inside)
    field.paint(where, smooth(-0.2, 0.3, inside), _WELL, gloss=0, polish=0)


def _cap(field, key, state):
    """A key: steep sides, a dished top, a slanted front towards the user."""
    rect = g.key_rect(key)
    where = field.window(rect)
    if where is None:
        return
    width, kind = key[2], key[3]
    u = field.x[:, where[1]] - rect[0]
    v = field.y[where[0]] - rect[1]
    top = _PLATE_LEVEL + _CAP_TOP
    shift = 0.0
    if state == PRESSED:
        top -= _SINK
        shift = _PRESSED_SHIFT
    foot = top - _CAP_TOP
    sides = np.minimum(u - 0.9, width - 0.9 - u) * 3.4 + foot
    back = (v - 0.8 - shift) * 3.4 + foot
    front = (30.4 - v + shift) * 0.56 + foot + 0.8
    across = (2 * u - width) / (width - 6)
    along = (v - 10 - shift) / 8
    dish = 0.55 * (1 - across ** 2) + 0.75 * (1 - along ** 2)
    crown = top - np.clip(dish, 0, None) + 0.15
    height = round_min(crown, front, 0.9)
    height = round_min(height, sides, 1.3)
    height = round_min(height, back, 1.1)
    outline = -box(u, v, (0.7, 0.7 + shift, width - 0.7, 30.3 + shift), 3.6)
    # Below the plate the hole's border cuts the cap off.
    hole = -box(u, v, (0.5, 0.5, width - 0.5, 30.5), 3.4)
    cover = smooth(-0.25, 0.25, np.minimum(outline, hole))
    part = field.height[where]
    part += (np.maximum(height, _WELL_LEVEL) - part) * cover
    shine = {g.ENTER: 0.26, g.GOLD: 0.26, g.BLUE: 0.26, g.DIGIT: 0.20}.get(kind, 0.16)
    field.paint(where, cover, _CAP_COLOUR[kind], gloss=shine, polish=0.05)


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


def build(rect, density, state=RELEASED, thumbs=None):
    """The field of rect with all keys in one state."""
    field = relief.Field(rect, density)
    _case(field)
    _hood(field)
    _plate(field)
    _name_plate(field)
    for key in g.KEYS:
        _well(field, g.key_rect(key), 4.0)
        _cap(field, key, state)
    for i, switch in enumerate(g.SWITCHES):
        _well(field, g.switch_rect(switch), 3.6)
        _switch(field, switch, thumbs[i] if thumbs else switch[2])
    return field


def _ink(picture, rect, scale, mask, left, top, colour):
    """Prints a mask; left and top are pixels of the face."""
    mask = lettering.enlarge(mask, scale)
    x, y = (left - rect[0]) * scale, (top - rect[1]) * scale
    h, w = mask.shape
    x0, y0 = max(0, x), max(0, y)
    x1, y1 = min(picture.shape[1], x + w), min(picture.shape[0], y + h)
    if x0 >= x1 or y0 >= y1:
        return
    cover = mask[y0 - y:y1 - y, x0 - x:x1 - x, None]
    part = picture[y0:y1, x0:x1]
    part += (np.asarray(colour, np.float32) - part) * cover


def _print_centred(picture, rect, scale, markup, alphabet, centre2, base, colour):
    """centre2 is twice the centre's x, so that halves stay whole numbers."""
    mask, ascent = lettering.legend(markup, alphabet)
    left = (centre2 - mask.shape[1]) // 2
    _ink(picture, rect, scale, mask, left, base - ascent, colour)


def _print_key(picture, rect, scale, key, state):
    left, top, width, kind, cap, _, blue = key
    centre2 = 2 * left + width
    pressed = state == PRESSED
    dim = 0.84 if pressed else 1.0
    mask, ascent = lettering.legend(cap, _CAP_ALPHABET.get(kind, "key"))
    if kind == g.OPERATOR:
        first = top + 10 - mask.shape[0] // 2
    else:
        first = top + _CAP_BASELINE.get(kind, 14) - ascent
    _ink(picture, rect, scale, mask, (centre2 - mask.shape[1]) // 2,
         first + (_PRESSED_SHIFT if pressed else 0), np.multiply(_CAP_INK[kind], dim))
    if blue:
        ink = _DARK_BLUE_INK if kind == g.DIGIT else _BLUE_INK
        # The front foreshortens as it sinks: its legend moves one row only.
        _print_centred(picture, rect, scale, blue, "small", centre2,
                       top + 27 + (1 if pressed else 0), np.multiply(ink, dim))


def letter(picture, rect, scale, state=RELEASED):
    """Prints all legends over a picture (sRGB, 0 to 255) of rect."""
    for key in g.KEYS:
        left, top, width, gold = key[0], key[1], key[2], key[5]
        if gold:
            _print_centred(picture, rect, scale, gold, "small", 2 * left + width,
                           top - 4, _GOLD_INK)
        _print_key(picture, rect, scale, key, state)
    for left, top, _, off, on in g.SWITCHES:
        mask, ascent = lettering.legend(off)
        _ink(picture, rect, scale, mask, left - _LABEL_GAP - mask.shape[1], top + 11 - ascent,
             _WHITE_INK)
        mask, ascent = lettering.legend(on)
        _ink(picture, rect, scale, mask, left + g.SWITCH_WIDTH + _LABEL_GAP, top + 11 - ascent,
             _WHITE_INK)
    mask, ascent = lettering.legend("PROGRAMMABLE SCIENTIFIC")
    _ink(picture, rect, scale, mask, 274 - mask.shape[1], 542 - ascent, _ENGRAVED)


def _streaks():
    """Brightness of each pixel of the name plate: long horizontal scratches."""
    left, top, right, bottom = _NAME_RECT
    noise = np.random.RandomState(98).standard_normal((bottom - top, right - left + 60))
    run = np.cumsum(noise, axis=1)
    streaks = np.ones((g.FACE_HEIGHT, g.FACE_WIDTH, 1))
    streaks[top:bottom, left:right, 0] += 0.045 * (run[:, 60:] - run[:, :-60]) / 60 ** 0.5
    return streaks


def _grain():
    """Deviation of each pixel from its shade, in steps of 255: keeps the
    gradients free of contour lines."""
    noise = np.random.RandomState(31)
    return 0.7 * noise.standard_normal((g.FACE_HEIGHT, g.FACE_WIDTH, 1))


def picture(rect=FACE, scale=1, state=RELEASED, thumbs=None, density=4):
    """sRGB picture of rect, 0 to 255, scale pixels to the pixel of the face."""
    field = build(rect, density, state, thumbs)
    linear = relief.reduced(relief.photograph(field), density // scale)
    if scale == 1:
        left, top, right, bottom = rect
        linear *= _streaks()[top:bottom, left:right]
    srgb = relief.to_srgb(linear).astype(np.float32)
    if scale == 1:
        srgb += _grain()[top:bottom, left:right]
    letter(srgb, rect, scale, state)
    if scale == 1:
        left, top, right, bottom = g.BLACK_FIELD
        x0, y0 = max(left, rect[0]) - rect[0], max(top, rect[1]) - rect[1]
        x1, y1 = max(0, right - rect[0]), max(0, bottom - rect[1])
        if x1 > x0 and y1 > y0:
            srgb[y0:y1, x0:x1] = 0
    return srgb
