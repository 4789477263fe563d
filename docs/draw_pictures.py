#!/usr/bin/python3
"""Draws the pictures of the manual that are not photographs.

usage: draw_pictures.py [FOLDER]

The default FOLDER is docs/manual/pictures. The script draws the stack diagrams,
adds numbers to the face from resources/bitmaps, draws graphs as the window would,
and converts figures from examples/pictures. It needs the native build, and Debian's
packages python3-pil fonts-liberation librsvg2-bin.
The output is reproducible with the same tool versions.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

from PIL import Image, ImageDraw, ImageFont

ROOT = pathlib.Path(__file__).resolve().parent.parent
CLI = ROOT / "build/native/console/vorstek-cli"
FONTS = pathlib.Path("/usr/share/fonts/truetype/liberation")
SHARP = 2                   # pixels of a picture for one of a page
FINE = 4                    # pixels drawn for one of a page, for smooth edges

INK, QUIET, FAINT, PAPER = (35, 38, 43), (95, 98, 104), (140, 144, 150), (255, 255, 255)
BOX, EDGE = (247, 243, 234), (190, 180, 160)
RED, GREEN, BLUE, GOLD = (181, 51, 43), (73, 128, 73), (47, 107, 196), (190, 128, 20)

LEVELS = ("T", "Z", "Y", "X")
BOX_HEIGHT, ROW = 30, 38
LEFT, TOP = 34, 42


def font(size, bold=False, mono=False):
    name = "LiberationMono-Bold" if mono else "LiberationSans-Bold" if bold else \
        "LiberationSans-Regular"
    return ImageFont.truetype(str(FONTS / (name + ".ttf")), size * FINE)


class Sheet:
    """Draws in picture coordinates."""

    def __init__(self, width, height):
        self.image = Image.new("RGB", (width * FINE, height * FINE), PAPER)
        self.draw = ImageDraw.Draw(self.image)

    def box(self, left, top, width, fill, edge):
        area = [value * FINE for value in (left, top, left + width, top + BOX_HEIGHT)]
        self.draw.rounded_rectangle(area, 5 * FINE, fill, edge, FINE + 2)

    def text(self, x, y, text, face, colour, anchor):
        self.draw.text((x * FINE, y * FINE), text, colour, face, anchor)

    def arrow(self, start, end, colour):
        (x0, y0), (x1, y1) = start, end
        length = ((x1 - x0) ** 2 + (y1 - y0) ** 2) ** 0.5
        ux, uy = (x1 - x0) / length, (y1 - y0) / length
        neck = (x1 - 9 * ux, y1 - 9 * uy)
        self.draw.line([x0 * FINE, y0 * FINE, neck[0] * FINE, neck[1] * FINE], colour, 2 * FINE)
        points = [(x1, y1), (neck[0] - 4.5 * uy, neck[1] + 4.5 * ux),
                  (neck[0] + 4.5 * uy, neck[1] - 4.5 * ux)]
        self.draw.polygon([(x * FINE, y * FINE) for x, y in points], colour)

    def save(self, path):
        size = (self.image.width * SHARP // FINE, self.image.height * SHARP // FINE)
        small = self.image.resize(size, Image.LANCZOS)
        small.quantize(256, dither=Image.Dither.NONE).save(path, optimize=True)


def row(level):
    """Level 4 is LASTx, slightly below the stack."""
    return TOP + level * ROW + (10 if level == 4 else 0)


def movement(path, columns, arrows):
    """Stacks side by side. A column is (heading, values from T to X and
    optionally LASTx), an arrow (column, from level, to level, colour)."""
    levels = max(len(values) for _, values in columns)
    width, distance = (74, 122) if len(columns) > 2 else (92, 190)
    sheet = Sheet(LEFT + (len(columns) - 1) * distance + width + 12,
                  row(levels - 1) + BOX_HEIGHT + 12)
    coloured = {(column + 1, to): colour for column, _, to, colour in arrows}
    for column, (heading, values) in enumerate(columns):
        left = LEFT + column * distance
        sheet.text(left + width / 2, 16, heading, font(13, bold=True), INK, "mm")
        for level, value in enumerate(values):
            name = "LASTx" if level == 4 else LEVELS[level]
            colour = coloured.get((column, level), INK)
            sheet.box(left, row(level), width, BOX, EDGE if colour == INK else colour)
            colour = QUIET if colour == EDGE else colour
            middle = row(level) + BOX_HEIGHT / 2
            if column == 0 and level < 4:
                sheet.text(left - 10, middle, name, font(13, bold=True), FAINT, "rm")
            elif level == 4:
                sheet.text(left + 8, middle, name, font(10), FAINT, "lm")
            sheet.text(left + width - 12, middle, value, font(15, mono=True), colour, "rm")
    for column, start, to, colour in arrows:
        left = LEFT + column * distance + width
        sheet.arrow((left + 6, row(start) + BOX_HEIGHT / 2),
                    (left + distance - width - 6, row(to) + BOX_HEIGHT / 2), colour)
    sheet.save(path)


T, Z, Y, X, LAST = range(5)

# File, stacks, arrows. The values 1 to 4 show where each number goes.
MOVEMENTS = (
    ("stack-enter.png",
     (("before", "1234"), ("ENTER", "2344")),
     ((0, Z, T, BLUE), (0, Y, Z, GREEN), (0, X, Y, RED), (0, X, X, RED))),
    ("stack-operation.png",
     (("before", "12340"), ("+", "11274")),
     ((0, T, T, BLUE), (0, T, Z, BLUE), (0, Z, Y, GREEN), (0, Y, X, RED), (0, X, X, RED),
      (0, X, LAST, GOLD))),
    ("stack-roll.png",
     (("before", "1234"), ("R\u2193", "4123"), ("R\u2193", "3412"), ("R\u2193", "2341"),
      ("R\u2193", "1234")),
     tuple((column, start, (start + 1) % 4, RED if (start - column) % 4 == 3 else EDGE)
           for column in range(4) for start in range(4))),
    ("stack-swap.png",
     (("before", "1234"), ("x\u2194y", "1243")),
     ((0, T, T, EDGE), (0, Z, Z, EDGE), (0, Y, X, GREEN), (0, X, Y, RED))),
    ("stack-function.png",
     (("before", "12340"), ("x\u00b2", ("1", "2", "3", "16", "4"))),
     ((0, T, T, EDGE), (0, Z, Z, EDGE), (0, Y, Y, EDGE), (0, X, X, RED), (0, X, LAST, GOLD))),
    ("stack-lastx.png",
     (("before", "12348"), ("LAST x", "23488")),
     ((0, Z, T, EDGE), (0, Y, Z, EDGE), (0, X, Y, RED), (0, LAST, X, GOLD), (0, LAST, LAST, GOLD))),
    ("stack-chain.png",
     (("3", "0003"), ("ENTER", "0033"), ("4", "0034"), ("+", "0007"), ("5", "0075"),
      ("\u00d7", ("0", "0", "0", "35"))),
     ((0, X, Y, RED), (0, X, X, RED), (1, Y, Y, RED), (2, Y, X, RED), (2, X, X, BLUE),
      (3, X, Y, RED), (4, Y, X, RED), (4, X, X, BLUE))),
)

# Numbered parts of the face: number, its x and y, x and y of the part.
CALLOUTS = (
    ("1", (-24, 66), (32, 66)), ("2", (-24, 113), (66, 113)), ("3", (330, 113), (250, 113)),
    ("4", (330, 167), (268, 167)), ("5", (330, 222), (268, 222)), ("6", (-24, 275), (38, 275)),
    ("7", (-24, 381), (38, 381)), ("8", (330, 400), (268, 400)), ("9", (330, 489), (268, 489)),
)


def face(path):
    """The face with the numbers that the text refers to."""
    margin = 46
    bitmap = Image.open(ROOT / "resources/bitmaps/face_200.png").convert("RGB")
    width, height = bitmap.width // SHARP, bitmap.height // SHARP
    sheet = Sheet(width + 2 * margin, height)
    sheet.image.paste(bitmap.resize((width * FINE, height * FINE), Image.NEAREST),
                      (margin * FINE, 0))
    draw = sheet.draw
    texts = ((50, 42, 11, "LastOp:  +"), (234, 40, 11, "deg"), (59, 66, 16, " 5.00"))
    for x, y, size, text in texts:
        sheet.text(x + margin, y, text, ImageFont.truetype(
            str(FONTS / "LiberationMono-Regular.ttf"), size * FINE), (255, 40, 30), "la")
    for number, (x, y), (to_x, to_y) in CALLOUTS:
        x, to_x = x + margin, to_x + margin
        draw.line([x * FINE, y * FINE, to_x * FINE, to_y * FINE], RED, FINE + 2)
        draw.ellipse([(x - 11) * FINE, (y - 11) * FINE, (x + 11) * FINE, (y + 11) * FINE], RED)
        sheet.text(x, y, number, font(13, bold=True), PAPER, "mm")
    sheet.save(path)


def convert(source, width, path):
    """An SVG file as an image that fills this width of a page."""
    subprocess.run(["rsvg-convert", "--width", str(width * SHARP), "--output", path, source], check=True)
    with Image.open(path) as picture:
        small = picture.convert("RGB").quantize(64, dither=Image.Dither.NONE)
    small.save(path, optimize=True)


def graph(arguments, path):
    """What the graph window shows."""
    with tempfile.TemporaryDirectory() as folder:
        drawn = pathlib.Path(folder, "graph.svg")
        words = [str(drawn) if word == "graph.svg" else word for word in arguments.split()]
        subprocess.run([CLI, *words, "--window"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
        convert(drawn, 560, path)


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, columns, arrows in MOVEMENTS:
        movement(folder / name, columns, arrows)
    face(folder / "face.png")
    graph("run examples/damped.txt --y 5 --x 0.4 --graph graph.svg", folder / "damped.png")
    graph("plot examples/data/shots.txt graph.svg --type scatter", folder / "shots.png")
    for source in sorted((ROOT / "examples/pictures").glob("*.svg")):
        width = int(re.search(r' width="(\d+)"', source.read_text(encoding="utf-8")).group(1))
        convert(source, width * 3 // 4, folder / f"figure-{source.stem}.png")


if __name__ == "__main__":
    if len(sys.argv) > 2:
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]) if len(sys.argv) == 2 else ROOT / "docs/manual/pictures")
