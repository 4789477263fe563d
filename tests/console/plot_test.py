"""vorstek-cli plot --window, and run with such a picture: SVG files from data files
and from programs, as the graph's window would draw them."""

import os
import re
import xml.etree.ElementTree as ElementTree

from console_case import LITTLE_DISK, ConsoleCase, LinuxCase, main

SVG = "{http://www.w3.org/2000/svg}"

DATA = ('ExplicitX\nTitle "Free fall"\nHorzAxisLabel "seconds"\nSetLabels "height" , "speed"\n'
        '0 , 100 , 0\n1 , 95 , 10\n2 , 80 , 20\n')


def vertices(path):
    """The points that a path goes through."""
    points = []
    for command, numbers in re.findall("([MLHV])([^A-Z]*)", path):
        values = [float(number) for number in numbers.split()]
        if command == "H":
            values.append(points[-1][1])
        elif command == "V":
            values.insert(0, points[-1][0])
        points.append(tuple(values))
    return points


class PictureCase(ConsoleCase):

    def picture(self, name):
        """The root of an SVG file."""
        root = ElementTree.fromstring(self.read(name))
        self.assertEqual(root.tag, SVG + "svg")
        return root

    def texts(self, name="out.svg"):
        return [text.text for text in self.picture(name).iter(SVG + "text")]

    def paths(self, name="out.svg"):
        """The data lines of a picture: vertices within the first clip."""
        group = self.picture(name).find(SVG + "g")
        return [vertices(path.get("d")) for path in group]

    def plot(self, *options, data=DATA, code=0):
        self.write("data.txt", data)
        result = self.start("plot", "data.txt", "out.svg", "--window", *options)
        self.assertEqual((result.code, result.out), (code, ""), result.err)
        return result


class PlotTest(PictureCase):

    def test_a_data_file_becomes_a_picture(self):
        result = self.plot()

        self.assertEqual(result.err, "")
        root = self.picture("out.svg")
        self.assertEqual([root.get(name) for name in ("width", "height", "viewBox")],
                         ["640", "480", "0 0 640 480"])
        texts = self.texts()
        for text in ("Free fall", "seconds", "height", "speed", "label", "min", "max", "100", "2"):
            self.assertIn(text, texts)
        self.assertEqual([len(path) for path in self.paths()], [3, 3])
        group = root.find(SVG + "g")
        self.assertEqual([path.get("stroke") for path in group], ["#ff0000", "#00ff00"])

    def test_texts_take_the_place_of_those_of_the_file(self):
        self.plot("--title", "Thrown <up> & \"down\"", "--label", "t")
        texts = self.texts()
        self.assertEqual(texts[0], "Thrown <up> & \"down\"")
        self.assertIn("t", texts)
        self.assertNotIn("seconds", texts)

        self.plot("--title", "", "--label", "")
        self.assertNotIn("Free fall", self.texts())
        self.assertNotIn("seconds", self.texts())

    def test_each_type_has_its_vertices(self):
        data = "1\n5\n3\n2\n"
        for kind, count in (("plot", 4), ("stairstep", 7), ("stoop", 10), ("scatter", 12)):
            self.plot("--type", kind, data=data)
            self.assertEqual([len(path) for path in self.paths()], [count], kind)

    def test_bars_reach_one_further(self):
        self.plot("--type", "stoop", "--no-legend", "--label", "", data="1\n5\n3\n2\n")
        self.assertIn("4", self.texts())
        (line,) = self.paths()
        root = self.picture("out.svg")
        clip = root.find(SVG + "clipPath")[0]
        bottom = float(clip.get("y")) + float(clip.get("height"))
        self.assertEqual((line[0][1], line[-1][1]), (bottom + 0.5, bottom + 0.5))
        self.assertEqual(line[-1][0], float(clip.get("x")) + float(clip.get("width")) - 0.5)

    def test_the_type_keeps_labels_and_colours(self):
        self.plot("--type", "scatter")
        self.assertIn("speed", self.texts())
        group = self.picture("out.svg").find(SVG + "g")
        self.assertEqual([path.get("fill") for path in group], ["#ff0000", "#00ff00"])

    def test_grid_and_legend(self):
        self.plot("--no-legend")
        without = self.read_text("out.svg")
        self.assertNotIn("label", self.texts())
        self.plot("--no-legend", "--grid")
        self.assertNotEqual(self.read_text("out.svg"), without)
        long_lines = [path for path in self.picture("out.svg").findall(SVG + "path")
                      if path.get("d").count("M") > 1]
        self.assertEqual(len(long_lines), 2)

    def test_ticks_follow_the_size(self):
        rows = (("199x99", 2, 2), ("640x480", 6, 6), ("640x499", 6, 6), ("640x500", 6, 11),
                ("800x2000", 8, 11))
        for size, horizontal, vertical in rows:
            self.plot("--size", size, "--title", "", "--label", "", "--no-legend")
            marks = [path.get("d").count("M") - 1
                     for path in self.picture("out.svg").findall(SVG + "path")]
            self.assertEqual(marks, [vertical, horizontal], size)

    def test_every_size_from_1_to_16383(self):
        for size in ("1x1", "16383x1", "1x16383", "16383x16383", "30x20"):
            self.plot("--size", size)
            root = self.picture("out.svg")
            self.assertEqual(root.get("width") + "x" + root.get("height"), size)

    def test_one_point_is_a_marker(self):
        self.plot(data="ExplicitX\n5 , 5\n")
        self.assertEqual([len(path) for path in self.paths()], [3])
        texts = self.texts()
        self.assertEqual((texts.count("4"), texts.count("6")), (2, 2))

    def test_texts_of_any_bytes(self):
        self.plot(data=b'Title "\xff\xc3\xa4\x01<"\nSetLabels "\xe4&"\n1\n2\n')
        self.assertEqual(self.texts()[0], "\ufffd\u00e4\ufffd<")
        self.assertIn("\ufffd&", self.texts())

    def test_options_may_stand_anywhere(self):
        self.write("data.txt", DATA)
        self.start("plot", "--grid", "data.txt", "--title", "T", "one.svg", "--no-legend",
                   "--window")
        self.start("plot", "data.txt", "--window", "two.svg", "--no-legend", "--grid", "--title",
                   "T")
        self.assertEqual(self.read("one.svg"), self.read("two.svg"))

    def test_an_old_picture_is_replaced(self):
        self.write("out.svg", 100000 * "old")
        self.plot()
        self.picture("out.svg")
        self.assertEqual(sorted(os.listdir(self.folder)), ["data.txt", "out.svg"])


class RefusalTest(PictureCase):

    def assert_refused(self, *arguments, mentions=""):
        """Exit code 2, one line on standard error, and the old picture stays."""
        self.write("data.txt", DATA)
        self.write("out.svg", "old")
        result = self.start("plot", *arguments)
        self.assertEqual((result.code, result.out), (2, ""), arguments)
        self.assertRegex(result.err, r"\A[^\n]+\n\Z", arguments)
        self.assertIn(mentions, result.err)
        self.assertEqual(self.read("out.svg"), b"old")

    def test_missing_and_surplus_names(self):
        self.assert_refused()
        self.assert_refused("data.txt")
        self.assert_refused("data.txt", "")
        self.assert_refused("data.txt", "out.svg", "third.svg", mentions="out.svg:1: Error: ")

    def test_options_without_or_with_a_bad_value(self):
        for option in ("--title", "--label", "--type", "--size"):
            self.assert_refused("data.txt", "out.svg", option, mentions=option)
        for option in ("--title", "--label"):
            self.assert_refused("data.txt", "out.svg", option, 101 * "a", mentions="100 bytes")
            self.plot(option, 50 * "é")
            self.assertIn(50 * "é", self.read("out.svg").decode())
            os.remove(self.path("out.svg"))
        for kind in ("", "Plot", "bars", "0"):
            self.assert_refused("data.txt", "out.svg", "--type", kind, mentions="--type")
        for size in ("", "640", "x", "640x", "x480", "0x480", "640x0", "-1x5", "16384x1",
                     "1x16384", "1x99999999999999999999", "640X480", "640x480x1", "6.4x4", " 1x1"):
            self.assert_refused("data.txt", "out.svg", "--size", size, mentions="--size")

    def test_unknown_options(self):
        for option in ("--legends", "--Grid", "--json"):
            self.assert_refused("data.txt", "out.svg", option,
                                mentions=f"vorstek-cli: unknown option '{option}'")

    def test_no_option_behind_two_dashes(self):
        self.write("data.txt", DATA)
        self.assertEqual(self.start("plot", "--", "data.txt", "--grid.svg").code, 0)
        self.assertTrue(os.path.exists(self.path("--grid.svg")))
        self.assert_refused("data.txt", "out.svg", "--", "--grid", mentions="'--grid'")

    def test_data_that_cannot_be_read(self):
        self.write("words.txt", "no numbers here\n")
        self.write("thin.txt", "ExplicitX\n1\n2\n")
        os.mkdir(self.path("folder"))
        for name in ("missing.txt", "words.txt", "thin.txt", "folder"):
            self.assert_refused(name, "out.svg", mentions=name)

    def test_a_picture_that_cannot_be_written(self):
        os.mkdir(self.path("folder"))
        for name in ("folder", os.path.join("missing", "out.svg")):
            self.assert_refused("data.txt", name, mentions=name)


class FullDiskTest(LinuxCase):

    def test_the_old_picture_stays(self):
        self.write("data.txt", 2000 * "1\n2\n")
        self.write("out.svg", "old")
        before = sorted(os.listdir(self.folder))
        result = self.start("plot", "data.txt", "out.svg", **LITTLE_DISK)
        self.assertEqual(result.code, 2)
        self.assertIn("out.svg", result.err)
        self.assertEqual(self.read("out.svg"), b"old")
        self.assertEqual(sorted(os.listdir(self.folder)), before)

    def test_devices(self):
        self.write("data.txt", DATA)
        os.symlink("/dev/full", self.path("full.svg"))
        self.assertEqual(self.start("plot", "data.txt", "full.svg").code, 2)

    def test_a_pipe_is_no_data_file_of_the_window(self):
        os.mkfifo(self.path("pipe.txt"))
        result = self.start("plot", "pipe.txt", "out.svg", "--window")
        self.assertEqual((result.code, result.err),
                         (2, "vorstek-cli: cannot read 'pipe.txt': not a regular file\n"))


class RunTest(PictureCase):

    DRAW = ("ClearG", "1.5", "ENTER", "1", "SumG", "-2", "ENTER", "2", "SumG",
            "2", "SetG", "100", "ENTER", "1", "SumG", "1e7", "ENTER", "2", "SumG")

    def test_a_program_draws_a_picture(self):
        self.run_listing(self.DRAW, "--graph", "out.svg", "--window")

        self.assertEqual([len(path) for path in self.paths()], [2, 2])
        texts = self.texts()
        self.assertIn("data line # 2", texts)
        self.assertIn("1e+07", texts)
        group = self.picture("out.svg").find(SVG + "g")
        self.assertEqual([path.get("stroke") for path in group], ["#000000", "#000000"])

    def test_title_and_axis_label_unless_cleared(self):
        self.run_listing(("3", "ENTER", "4", "SumG"), "--graph", "out.svg", "--window")
        self.assertEqual(self.texts()[0], "My Graph")
        self.assertIn("x axis", self.texts())
        self.run_listing(self.DRAW, "--graph", "out.SVG", "--window")
        self.assertNotIn("My Graph", self.texts("out.SVG"))

    def test_a_picture_shows_what_its_data_file_shows(self):
        name = self.listing(*self.DRAW)
        self.run_program(name, "--graph", "drawn.txt")
        self.run_program(name, "--graph", "out.svg", "--window")
        drawn = self.paths()
        self.start("plot", "drawn.txt", "out.svg", "--window")
        self.assertEqual(self.paths(), drawn)

    def test_a_picture_that_cannot_be_written(self):
        name = os.path.join("missing", "out.svg")
        result = self.run_listing(("3", "SumG"), "--graph", name, "--window", code=2)
        self.assertRegex(result.err, r"\A[^\n]*out.svg[^\n]*\n\Z")

    def test_nothing_drawn_is_no_picture(self):
        self.write("out.svg", "old")
        result = self.run_listing(("3",), "--graph", "out.svg", "--window", code=2)
        self.assertRegex(result.err, r"\A[^\n]*out.svg[^\n]*\n\Z")
        self.assertEqual(self.read("out.svg"), b"old")

    def test_after_an_error(self):
        self.run_listing(("3", "SumG", "0", "1/x"), "--graph", "out.svg", "--window", code=1)
        self.assertEqual(len(self.paths()), 1)


if __name__ == "__main__":
    main()
