#!/usr/bin/env python3
"""Makes the folder of the page: all that a browser needs beside the engine.

usage: make_page.py OUTPUT_FOLDER

    vorstek.html    template.html with the buttons of the face and the key card
    page/           style sheet and scripts, as they are here
    examples.json   name, title and text of each listing of examples/
    pictures/       the face, its keys and switches at 1, 2 and 3 times the size
    sounds/         the nine WAVE files
"""

import html
import json
import pathlib
import re
import shutil
import struct
import sys
import zlib

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
KEY_NAMES = ROOT / "shell" / "key_names.cpp"
GEOMETRY = ROOT / "shell" / "face_geometry.cpp"
BITMAPS = ROOT / "resources" / "bitmaps"

PICTURES = ("face", "keys", "switches", "lamps")
LARGER = {"2": "200", "3": "300"}   # scale: ending of the file's name

# The face has an upper and a lower half, which a low, wide screen shows side by
# side. They meet between ENTER and the row of 7, 8 and 9.
UPPER_HALF = 295        # pixels
FIRST_LOWER_KEY = 15

LAMPS = ("f", "g", "program", "run")    # in the order of eLamp

LEGENDS = {"x-bar": "x̄", "*": "×", "/": "÷", "-": "−", "x<>y": "x⇄y"}


# --- pictures

def chunk(name, data):
    body = name + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def png_of_bitmap(data):
    """A bitmap of 8 bits with a palette, uncompressed, as a PNG file."""
    (start,) = struct.unpack_from("<I", data, 10)
    header, width, height, _, bits = struct.unpack_from("<IiiHH", data, 14)
    (colours,) = struct.unpack_from("<I", data, 46)
    if bits != 8 or height < 0:
        sys.exit("make_page.py: not a bitmap of 8 bits from the bottom up")
    palette = data[14 + header:14 + header + 4 * (colours or 256)]
    turned = b"".join(palette[at:at + 3][::-1] for at in range(0, len(palette), 4))
    row = (width + 3) // 4 * 4
    rows = [b"\0" + data[start + y * row:start + y * row + width] for y in range(height)]
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 3, 0, 0, 0))
            + chunk(b"PLTE", turned)
            + chunk(b"IDAT", zlib.compress(b"".join(reversed(rows)), 9))
            + chunk(b"IEND", b""))


def make_pictures(folder):
    folder.mkdir(exist_ok=True)
    for name in PICTURES:
        bitmap = (BITMAPS / f"{name}.bmp").read_bytes()
        (folder / f"{name}_1.png").write_bytes(png_of_bitmap(bitmap))
        for scale, ending in LARGER.items():
            shutil.copyfile(BITMAPS / f"{name}_{ending}.png", folder / f"{name}_{scale}.png")


# --- the face

def texts_of(line):
    return re.findall(r'"([^"]*)"', line)


def rows_of(source, table):
    true_test = re.search(r'kTrueTest = ("[^"]*")', source).group(1)
    body = re.search(re.escape(table) + r"\[\w+\] =\n\{\n(.*?)\n\};", source, re.S).group(1)
    return [texts for line in body.replace("kTrueTest", true_test).split("\n")
            if (texts := texts_of(line))]


def rectangles(source, table):
    body = re.search(re.escape(table) + r"\[\w+\] =\s*\{(.*?)\};", source, re.S).group(1)
    height = re.search(r"kKeyHeight = (\d+)", source).group(1)
    return [tuple(int(number) for number in found)
            for found in re.findall(r"\{ *(\d+), *(\d+), *(\d+), *(\d+) *\}",
                                    body.replace("kKeyHeight", height))]


def function_texts(spoken, legend, meaning, pc_key, colour):
    if not legend:
        return None
    name = f"{colour} {LEGENDS.get(legend, legend)}" if colour else spoken
    return f"{name}: {meaning}" + (f" ({pc_key})" if pc_key else "")


def key_button(code, texts, rect, strip):
    """strip: where the key begins in the strip of all keys."""
    spoken = texts[0]
    functions = [function_texts(spoken, *texts[at:at + 3], colour)
                 for at, colour in ((1, ""), (4, "gold"), (7, "blue"))]
    label = ", ".join([spoken] + [text.split(" (")[0] for text in functions[1:] if text])
    title = "\n".join(text for text in functions if text)
    left, top, width, height = rect
    top -= UPPER_HALF if code >= FIRST_LOWER_KEY else 0
    places = f'data-place="{left} {top} {width} {height} {strip}"'
    return (f'<button type="button" class="key" data-code="{code}" {places} '
            f'aria-label="{html.escape(label)}" title="{html.escape(title)}"></button>')


def switch_button(code, texts, rect, index):
    spoken, left_end, right_end, left_meaning, right_meaning, pc_key = texts
    title = f"{left_end}: {left_meaning}\n{right_end}: {right_meaning} ({pc_key})"
    places = f'data-place="{rect[0]} {rect[1]} {rect[2]} {rect[3]} {36 * index}"'
    return (f'<button type="button" class="switch" role="switch" aria-checked="false" '
            f'data-code="{code}" {places} aria-label="{html.escape(spoken)}" '
            f'title="{html.escape(title)}"></button>')


def lamp(name, rect, strip):
    places = f'data-place="{" ".join(map(str, rect))} {strip}"'
    return f'<span class="lamp" data-lamp="{name}" {places}></span>'


def lamps(geometry):
    strip = 0
    for name, rect in zip(LAMPS, rectangles(geometry, "kLampRects"), strict=True):
        yield lamp(name, rect, strip)
        strip += rect[2]


def face_parts():
    """Lamps and buttons of the upper half, buttons of the lower one."""
    names = KEY_NAMES.read_text(encoding="utf-8")
    geometry = GEOMETRY.read_text(encoding="utf-8")
    keys = rectangles(geometry, "kKeyRects")
    switches = rectangles(geometry, "kSwitchRects")
    upper = [*lamps(geometry)]
    upper += [switch_button(31 + index, texts, switches[index], index)
             for index, texts in enumerate(rows_of(names, "kSwitchNames"))]
    lower = []
    strip = 0
    for index, texts in enumerate(rows_of(names, "kKeyNames")):
        half = upper if index + 1 < FIRST_LOWER_KEY else lower
        half.append(key_button(index + 1, texts, keys[index], strip))
        strip += keys[index][2]
    return upper, lower


def card_rows():
    for texts in rows_of(KEY_NAMES.read_text(encoding="utf-8"), "kKeyNames"):
        legends = [html.escape(LEGENDS.get(texts[at], texts[at])) for at in (1, 4, 7)]
        meanings = [html.escape(texts[at]) for at in (2, 5, 8)]
        cells = "".join(f"<td><b>{legend}</b> {meaning}</td>"
                        for legend, meaning in zip(legends, meanings))
        yield f"<tr>{cells}<td>{html.escape(texts[3])}</td></tr>"


# --- examples

def examples():
    found = []
    for path in sorted((ROOT / "examples").glob("*.txt")):
        text = path.read_bytes().decode("latin-1")
        title = text.split("\n", 1)[0].lstrip("; ").strip()
        found.append({"name": path.name, "title": title, "text": text})
    return found


def main(output):
    scripts = output / "page"
    scripts.mkdir(parents=True, exist_ok=True)
    for path in [*HERE.glob("*.js"), *HERE.glob("*.css")]:
        shutil.copyfile(path, scripts / path.name)
    upper, lower = face_parts()
    page = (HERE / "template.html").read_text(encoding="utf-8")
    for mark, lines in (("upper", upper), ("lower", lower), ("card", card_rows())):
        page = page.replace(f"<!-- {mark} -->", "\n".join(lines))
    (output / "vorstek.html").write_text(page, encoding="utf-8")
    (output / "examples.json").write_text(json.dumps(examples()), encoding="utf-8")
    make_pictures(output / "pictures")
    (output / "sounds").mkdir(exist_ok=True)
    for path in (ROOT / "resources" / "sounds").glob("*.wav"):
        shutil.copyfile(path, output / "sounds" / path.name)


if __name__ == "__main__":
    if len(sys.argv) != 2 or sys.argv[1].startswith("-"):
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]))
