"""One palette for the face, the keys and the switches.

A palette display keeps the first and the last ten entries for the system's
own colours; ours stand between them. Black is the system's black, entry 0.
"""

import numpy as np

OWN_COLOURS = 236
FIRST_OWN = 10
BLACK = 0

_SYSTEM_LOW = (
    (0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128),
    (128, 0, 128), (0, 128, 128), (192, 192, 192), (192, 220, 192), (166, 202, 240))
_SYSTEM_HIGH = (
    (255, 251, 240), (160, 160, 164), (128, 128, 128), (255, 0, 0), (0, 255, 0),
    (255, 255, 0), (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255))

_ROUNDS = 24


def _perceived(rgb):
    """Lab of sRGB colours, where equal distances look equal."""
    s = np.asarray(rgb, np.float64) / 255
    linear = np.where(s <= 0.04045, s / 12.92, ((s + 0.055) / 1.055) ** 2.4)
    xyz = linear @ np.array([[0.4124, 0.2126, 0.0193], [0.3576, 0.7152, 0.1192],
                             [0.1805, 0.0722, 0.9505]]) / [0.9505, 1.0, 1.089]
    f = np.where(xyz > 0.008856, np.cbrt(xyz), 7.787 * xyz + 16 / 116)
    return np.stack([116 * f[:, 1] - 16, 500 * (f[:, 0] - f[:, 1]),
                     200 * (f[:, 1] - f[:, 2])], axis=1)


def _packed(pixels):
    """One number a pixel: sorted much faster than rows of three."""
    wide = pixels.reshape(-1, 3).astype(np.uint32)
    return wide[:, 0] << 16 | wide[:, 1] << 8 | wide[:, 2]


def _unpacked(numbers):
    return np.stack([numbers >> 16, numbers >> 8 & 255, numbers & 255], axis=1).astype(np.uint8)


def _split(lab, weight, count):
    """Median cut: halves the group with the largest spread until count are
    there; returns their means."""
    groups = [np.arange(len(lab))]
    spread = []

    def worth(group):
        mean = np.average(lab[group], axis=0, weights=weight[group])
        square = (weight[group, None] * (lab[group] - mean) ** 2).sum(axis=0)
        return square.max(), int(square.argmax())

    spread.append(worth(groups[0]))
    while len(groups) < count:
        widest = max(range(len(groups)), key=lambda i: spread[i][0])
        group, axis = groups.pop(widest), spread.pop(widest)[1]
        group = group[np.argsort(lab[group, axis], kind="stable")]
        mean = np.average(lab[group, axis], weights=weight[group])
        cut = min(max(1, int(np.searchsorted(lab[group, axis], mean))), len(group) - 1)
        for half in (group[:cut], group[cut:]):
            groups.append(half)
            spread.append(worth(half))
    return np.array([np.average(lab[i], axis=0, weights=weight[i]) for i in groups])


def _nearest(points, centres):
    """Index of the nearest centre of each point; the first wins a tie."""
    best = np.empty(len(points), np.int64)
    square = (centres ** 2).sum(axis=1)
    for start in range(0, len(points), 8192):
        part = points[start:start + 8192]
        best[start:start + 8192] = (square - 2 * part @ centres.T).argmin(axis=1)
    return best


def choose(pixels):
    """The 256 palette entries for a list of sRGB pixels (whole numbers)."""
    numbers, counts = np.unique(_packed(pixels), return_counts=True)
    colours = _unpacked(numbers)
    kept = colours.any(axis=1)          # black has its entry already
    colours, counts = colours[kept], counts[kept]
    lab = _perceived(colours)
    # Common shades must not crowd out the few pixels of a legend.
    weight = counts ** 0.55
    centres = _split(lab, weight, OWN_COLOURS)
    rgb = colours.astype(np.float64)
    for _ in range(_ROUNDS):
        owner = _nearest(lab, centres)
        total = np.bincount(owner, weight, len(centres))
        sums = np.stack([np.bincount(owner, weight * lab[:, i], len(centres))
                         for i in range(3)], axis=1)
        filled = total > 0
        centres[filled] = sums[filled] / total[filled, None]
    owner = _nearest(lab, centres)
    total = np.bincount(owner, weight, len(centres))
    means = np.stack([np.bincount(owner, weight * rgb[:, i], len(centres))
                      for i in range(3)], axis=1) / np.maximum(total, 1e-9)[:, None]
    own = np.unique(np.rint(means[total > 0]).astype(np.int64), axis=0)
    spare = [(0, 0, 0)] * (OWN_COLOURS - len(own))
    return [*_SYSTEM_LOW, *map(tuple, own.tolist()), *spare, *_SYSTEM_HIGH]


def apply(picture, entries):
    """Entry numbers of a picture of sRGB pixels; no dithering."""
    own = np.array(entries[FIRST_OWN:FIRST_OWN + OWN_COLOURS])
    numbers, inverse = np.unique(_packed(picture), return_inverse=True)
    colours = _unpacked(numbers)
    indices = FIRST_OWN + _nearest(_perceived(colours), _perceived(own))
    indices[~colours.any(axis=1)] = BLACK
    return indices[inverse].reshape(picture.shape[:2]).astype(np.uint8)
