"""What the reduction to 256 colours must give, worked out in a few slow lines."""

from collections import Counter

MOST_COLOURS = 2049


def masks():
    """Of red, green and blue, each coarser than the one before."""
    red = green = blue = 0xFF
    while True:
        yield red, green, blue
        if green <= red:
            if red <= blue:
                blue = blue * 2 & 0xFF
            else:
                red = red * 2 & 0xFF
        else:
            green = green * 2 & 0xFF


def reduced(pixels, width):
    """Planes of red, green and blue after the reduction of such pixels: (red,
    green, blue) each, row by row from the top."""
    stored = [pixel for row in reversed(range(len(pixels) // width))
              for pixel in pixels[row * width:(row + 1) * width]]
    for mask in masks():
        # Insertion order is the order in which colours are first met.
        counts = Counter(_masked(stored, mask))
        if len(counts) <= MOST_COLOURS:
            break
    palette = [colour for colour, _ in counts.most_common(256)]
    nearest = {colour: colour for colour in palette}
    for colour in counts:
        if colour not in nearest:
            nearest[colour] = min(palette, key=lambda other, c=colour: sum(
                (a - b) ** 2 for a, b in zip(c, other)))
    shown = [nearest[colour] for colour in _masked(pixels, mask)]
    return [bytes(pixel[channel] for pixel in shown) for channel in range(3)]


def _masked(pixels, mask):
    red, green, blue = mask
    return [(r & red, g & green, b & blue) for r, g, b in pixels]
