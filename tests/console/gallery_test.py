"""The figures of the manual's gallery beside the same data drawn by gnuplot: both are
left in the folder pictures/ to be looked at, and what can be measured agrees."""

import json
import math
import os
import re
import shlex
import shutil
import subprocess
import xml.etree.ElementTree as ElementTree

from console_case import EXAMPLES, LinuxCase, main

SVG = "{http://www.w3.org/2000/svg}"

# Kept after the test, in the folder in which it runs.
PICTURES = os.path.abspath("pictures")

WITH = {"plot": "lines", "scatter": "points", "stoop": "steps", "stairstep": "steps"}


def gallery():
    """Name of the picture and arguments of each command, with the data that it needs."""
    with open(os.path.join(EXAMPLES, "pictures", "commands.txt"), encoding="utf-8") as file:
        return [shlex.split(line) for line in file if line.strip() and not line.startswith("#")]


def option(words, name, default=""):
    return words[words.index(name) + 1] if name in words else default


def bars(x, y):
    """The points of bars with their ends, one spacing after the last one."""
    end = x[-1] + (x[-1] - x[-2])
    return [x[0], *x, end, end], [0.0, *y, y[-1], 0.0]


def vertices(path):
    """The places of the vertices of a path."""
    at, found = [0.0, 0.0], []
    for command, rest in re.findall(r"([MlhvzL])([^MlhvzL]*)", path):
        numbers = [float(word) for word in re.findall(r"-?(?:\d+\.?\d*|\.\d+)", rest)]
        while numbers:
            if command in "ML":
                at = [numbers.pop(0), numbers.pop(0)]
            elif command == "l":
                at = [at[0] + numbers.pop(0), at[1] + numbers.pop(0)]
            elif command == "h":
                at = [at[0] + numbers.pop(0), at[1]]
            else:
                at = [at[0], at[1] + numbers.pop(0)]
            found.append(tuple(at))
    return found


class Figure:
    """What is drawn in an SVG file, in the numbers of its axes."""

    def __init__(self, name, log):
        self.log = log
        root = ElementTree.parse(name).getroot()
        groups = {group.get("class"): group for group in root.iter(SVG + "g")
                  if group.get("class") in ("axes",)}
        texts = [text for text in groups["axes"].iter(SVG + "text") if text.get("x")]
        frame = vertices(groups["axes"].find(SVG + "path").get("d"))[:4]
        self.box = (frame[0][0], frame[2][1], frame[1][0], frame[0][1])  # bottom before top
        self.scales = [self.scale(texts, "x", "middle"), self.scale(texts, "y", "end")]
        self.lines = []
        clipped = next(group for group in root.iter(SVG + "g") if group.get("clip-path"))
        for group in clipped.findall(SVG + "g"):
            places = [place for path in group.findall(SVG + "path")
                      for place in vertices(path.get("d"))]
            self.lines.append(places)

    def scale(self, texts, axis, anchor):
        """Value and place of the first and the last number on an axis."""
        ticks = []
        for text in texts:
            words = [text.text or ""] + [part.text for part in text]
            if text.get("text-anchor") != anchor:
                continue
            try:
                value = float(words[0].replace("\u2212", "-"))
                if len(words) > 1 and words[1]:
                    value = 10.0 ** float(words[1].replace("\u2212", "-"))
            except ValueError:
                continue
            # The base line of a label is below the middle of its digits.
            place = float(text.get(axis)) - (4.32 if axis == "y" else 0.0)
            ticks.append((math.log10(value) if axis in self.log else value, place))
        return ticks[0], ticks[-1]

    def value(self, axis, place):
        (first, from_place), (last, to_place) = self.scales[axis]
        value = first + (place - from_place) * (last - first) / (to_place - from_place)
        return 10.0 ** value if "xy"[axis] in self.log else value

    def pixel(self, axis):
        """One pixel in the axis' numbers, or the factor of one on a logarithmic axis."""
        (first, from_place), (last, to_place) = self.scales[axis]
        return abs((last - first) / (to_place - from_place))

    def axis(self, axis):
        return self.value(axis, self.box[axis]), self.value(axis, self.box[axis + 2])

    def extent(self, number, axis):
        places = [place[axis] for place in self.lines[number]]
        values = sorted((self.value(axis, min(places)), self.value(axis, max(places))))
        return values


class GalleryTest(LinuxCase):

    def setUp(self):
        super().setUp()
        shutil.copytree(EXAMPLES, self.path("examples"))
        os.makedirs(PICTURES, exist_ok=True)

    def data(self, words):
        """The data sets that a command draws, as the calculator reports them."""
        if words[0] == "plot":
            self.write("state.txt", f"graph open {words[1]}\nstate\n")
            state = self.start("script", "state.txt").events[0]
        else:
            end = words.index("--graph")
            state = self.start(*words[:end], "--json").state
        return [(line["x"] or range(len(line["y"])), line["y"]) for line in state["graph"]]

    def gnuplot(self, name, words, sets, kinds):
        """Draws the sets; the extents of the data and the ranges of the axes."""
        with open(self.path("data.dat"), "w", encoding="ascii") as file:
            for x, y in sets:
                file.writelines(f"{a!r} {b!r}\n" for a, b in zip(x, y))
                file.write("\n\n")
        lines = [f"set terminal pngcairo size 640,480; set output {name + '-gnuplot.png'!r}"]
        for axis in option(words, "--log"):
            lines.append(f"set logscale {axis}")
        for axis in "xy":
            if option(words, f"--{axis}range"):
                lines.append(f"set {axis}range [{option(words, f'--{axis}range')}]")
        lines.append("plot " + ", ".join(
            f"'data.dat' index {number} using 1:2 with {WITH[kind]} title '{number + 1}'"
            for number, kind in enumerate(kinds)))
        lines.append("set print '-'")
        lines.append("print '{', " + ", ',', ".join(
            f"'\"{key}\": ', GPVAL_{key}" for key in
            [f"{part}{axis}_{end}" for part in ("", "DATA_") for axis in "XY"
             for end in ("MIN", "MAX")]) + ", '}'")
        done = subprocess.run(("gnuplot", "-"), input="\n".join(lines) + "\n", check=True,
                              cwd=self.folder, capture_output=True, text=True)
        return json.loads(done.stdout)

    def check_range(self, figure, axis, wanted):
        for value, text in zip(figure.axis(axis), wanted.split(":")):
            self.assertAlmostEqual(value, float(text), delta=figure.pixel(axis))

    def check_axis(self, figure, axis, peer):
        """Ours shows all data, and is as long as gnuplot's or shorter, but for the little
        that a curve needs to keep off the frame."""
        low, high = figure.axis(axis)
        peer_low, peer_high = peer["XY"[axis] + "_MIN"], peer["XY"[axis] + "_MAX"]
        data = [peer[f"DATA_{'XY'[axis]}_{end}"] for end in ("MIN", "MAX")]
        # Only bars touch the frame, where they begin.
        self.assertLessEqual(low, data[0])
        self.assertGreater(high, data[1])
        if "xy"[axis] in figure.log:
            self.assertLess(high / low, 1.2 * peer_high / peer_low)
        else:
            self.assertLess(high - low, 1.12 * (peer_high - peer_low))

    def check_lines(self, figure, sets, reach):
        """Each line reaches from its least to its greatest number, to half a pixel."""
        self.assertEqual(len(figure.lines), len(sets))
        for number, data in enumerate(sets):
            for axis in range(2):
                low, high = figure.extent(number, axis)
                pixel = figure.pixel(axis)
                if "xy"[axis] in figure.log:
                    low, high = math.log10(low), math.log10(high)
                    wanted = math.log10(min(data[axis])), math.log10(max(data[axis]))
                else:
                    wanted = min(data[axis]), max(data[axis])
                self.assertAlmostEqual(low, wanted[0], delta=reach * pixel)
                self.assertAlmostEqual(high, wanted[1], delta=reach * pixel)

    def test_each_figure_agrees_with_gnuplot(self):
        seen = 0
        for words in gallery():
            name = next((word for word in words if word.endswith(".svg")), None)
            if not name:
                self.start(*words)
                continue
            seen += 1
            with self.subTest(picture=name):
                sets = self.data(words)
                self.assertEqual(self.start(*words).code, 0)
                kinds = [option(words, "--type", "plot")] * len(sets)
                if kinds[0] == "stoop":
                    sets = [bars(x, y) for x, y in sets]
                if kinds[0] == "plot":
                    kinds = ["plot" if len(x) > 1 else "scatter" for x, y in sets]
                stem = name[:-4]
                peer = self.gnuplot(stem, words, sets, kinds)
                for picture in (name, stem + "-gnuplot.png"):
                    self.assertGreater(os.path.getsize(self.path(picture)), 1000)
                    shutil.copy(self.path(picture), PICTURES)

                figure = Figure(self.path(name), option(words, "--log"))
                ranges = [option(words, f"--{axis}range") for axis in "xy"]
                for axis in range(2):
                    if ranges[axis]:
                        self.check_range(figure, axis, ranges[axis])
                    elif not any(ranges):
                        self.check_axis(figure, axis, peer)
                if not any(ranges):
                    self.check_lines(figure, sets, 5 if "scatter" in kinds else 0.5)
        self.assertGreaterEqual(seen, 10)


if __name__ == "__main__":
    main()
