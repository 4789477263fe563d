"""Figures by vorstek-cli plot and run --graph: SVG, PNG and PDF files, read again by
programs that others wrote."""

import os
import re
import subprocess
import xml.etree.ElementTree as ElementTree

from console_case import LITTLE_DISK, ConsoleCase, LinuxCase, main

SVG = "{http://www.w3.org/2000/svg}"

DATA = ('ExplicitX\nTitle "Free fall"\nHorzAxisLabel "seconds"\nSetLabels "height" , "speed"\n'
        '0 , 100 , 0\n1 , 95 , 10\n2 , 80 , 20\n')


class FigureCase(ConsoleCase):

    def plot(self, *options, data=DATA, to="out.svg", code=0):
        self.write("data.txt", data)
        result = self.start("plot", "data.txt", to, *options)
        self.assertEqual(result.code, code, result.err)
        return result

    def refused(self, *options, to="out.svg", mentions=""):
        """Exit code 2, one line on standard error, and the old picture stays."""
        if to != "-":
            self.write(to, "old")
        result = self.plot(*options, to=to, code=2)
        self.assertRegex(result.err, r"\A[^\n]+\n\Z", options)
        self.assertIn(mentions, result.err)
        self.assertEqual(result.out, "")
        if to != "-":
            self.assertEqual(self.read(to), b"old")

    def root(self, name="out.svg"):
        root = ElementTree.fromstring(self.read(name))
        self.assertEqual(root.tag, SVG + "svg")
        return root

    def texts(self, name="out.svg"):
        return ["".join(text.itertext()) for text in self.root(name).iter(SVG + "text")]

    def group(self, classes, name="out.svg"):
        """The first group of these classes; None if there is none."""
        for group in self.root(name).iter(SVG + "g"):
            if group.get("class") == classes:
                return group
        return None

    def curve(self, number=1, name="out.svg"):
        """The path of a data line."""
        clipped = next(group for group in self.root(name).iter(SVG + "g")
                       if group.get("clip-path"))
        return next(group.find(SVG + "path") for group in clipped
                    if group.get("class") == f"line line-{number}")


class SvgTest(FigureCase):

    def test_a_data_file_becomes_a_figure(self):
        result = self.plot()

        self.assertEqual((result.out, result.err), ("", ""))
        root = self.root()
        self.assertEqual([root.get(name) for name in ("width", "height", "viewBox", "role")],
                         ["640", "480", "0 0 640 480", "img"])
        self.assertEqual(root.find(SVG + "title").text, "Free fall")
        self.assertIn("2 data lines, 6 points", root.find(SVG + "desc").text)
        texts = self.texts()
        for text in ("Free fall", "seconds", "height", "speed", "0.0", "0.5", "2.0", "100"):
            self.assertIn(text, texts)
        self.assertEqual(self.group("line line-2").find(SVG + "text").text, "speed")

    def test_a_figure_without_a_title_is_called_after_labels_or_files(self):
        os.mkdir(self.path("folder"))
        self.write("folder/fall.txt", "0 , 1\n2 , 3\n")
        for options in ((), ("--window",)):
            self.start("plot", "folder/fall.txt", "out.svg", *options)
            self.assertEqual(self.root().find(SVG + "title").text, "fall.txt")
            self.assertEqual(self.root().get("role"), "img")
            self.assertIn("2 data lines, 4 points", self.root().find(SVG + "desc").text)
        self.plot("--title", "")
        self.assertEqual(self.root().find(SVG + "title").text, "height, speed over seconds")
        self.start("plot", "-", "out.svg", stdin="1\n2\n")
        self.assertEqual(self.root().find(SVG + "title").text, "Plot")
        self.run_listing(("3", "SumG"), "--graph", "out.svg", "--title", "", "--xlabel", "")
        self.assertEqual(self.root().find(SVG + "title").text, "program.txt")

    def test_a_sine_is_smooth_to_hundredths_of_a_pixel(self):
        self.plot(data="1 , 2\n3 , 5\n2 , 7\n")
        path = self.curve().get("d")
        self.assertRegex(path, r"\.\d\d")
        self.assertNotRegex(path, r"\.\d\d\d")

    def test_a_million_points_are_a_small_file(self):
        rows = "".join(f"{(number * 7919) % 10007}\n" for number in range(200000))
        self.plot(data=rows)
        self.assertLess(os.path.getsize(self.path("out.svg")), 200000)

    def test_texts_and_legend(self):
        self.plot("--title", "Thrown <up> & \"down\"", "--xlabel", "t", "--ylabel", "h", "--grid")
        texts = self.texts()
        for text in ("Thrown <up> & \"down\"", "t", "h"):
            self.assertIn(text, texts)
        self.assertIsNotNone(self.group("grid"))
        self.assertIsNotNone(self.group("legend"))

        self.plot("--title", "", "--label", "", "--no-legend")
        for text in ("Free fall", "seconds", "height"):
            self.assertNotIn(text, self.texts())
        self.assertIsNone(self.group("legend"))

        one = "1\n5\n3\n"
        self.plot(data=one)
        self.assertIsNone(self.group("legend"))
        self.plot("--legend", data=one)
        self.assertIn("data line # 1", self.texts())

    def test_ranges_and_ticks(self):
        self.plot("--xrange", "0:4", "--xticks", "5", "--yrange", ":200", "--no-legend")
        texts = self.texts()
        for text in ("0", "1", "2", "3", "4", "200"):
            self.assertIn(text, texts)
        self.assertNotIn("0.5", texts)
        few = self.texts()
        self.plot("--yticks", "20", "--no-legend")
        self.assertGreater(len(self.texts()), len(few))

    def test_a_range_may_run_backwards(self):
        self.plot("--xrange", "2:0")
        numbers = [float(text.get("x")) for text in self.group("axes").iter(SVG + "text")
                   if text.text in ("0.0", "2.0")]
        self.assertEqual(len(numbers), 2)
        self.assertGreater(numbers[0], numbers[1])

    def test_logarithmic_axes(self):
        rows = "ExplicitX\n" + "".join(f"{10 ** n} , {10 ** n}\n" for n in range(7))
        self.plot("--log", "xy", data=rows)
        self.assertIn("104", self.texts())   # 10 and a raised 4
        steps = re.findall(r"-?(?:\d+\.?\d*|\.\d+)", self.curve().get("d"))[2:]
        self.assertAlmostEqual(float(steps[0]), float(steps[2]), delta=0.02)

        rows = "ExplicitX\n1 , -1\n2 , 0\n3 , 5\n"
        missing = "vorstek-cli: 2 points are not drawn: a logarithmic axis begins above 0\n"
        self.assertEqual(self.plot("--log", "y", data=rows).err, missing)
        self.write("out.svg", "old")
        self.assertEqual(self.plot("--log", "y", "--strict", data=rows, code=1).err,
                         missing + "vorstek-cli: nothing was drawn, because of --strict\n")
        self.assertEqual(self.read("out.svg"), b"old")
        self.plot("--log", "x", "--strict", data=rows)
        self.plot("--log", "y", data="-1\n-2\n")
        self.assertEqual(self.texts(), ["no data above 0"])

    def test_looks_of_all_lines_and_of_one(self):
        self.plot("--width", "3", "--style", "2:dot", "--type", "1:scatter",
                  "--style", "square", "--marker-size", "8")
        first, second = self.curve(1), self.curve(2)
        self.assertEqual(first.get("class"), "filled")
        self.assertEqual(first.get("d").count("M"), 3)
        self.assertEqual(second.get("stroke-width"), "3")
        self.assertEqual(second.get("stroke-dasharray"), "3.6 5.4")

    def test_a_look_for_a_line_that_is_not_there_is_reported(self):
        for window in ((), ("--window",)):
            result = self.plot("--width", "2:3", "--style", "9:dash", "--type", "3:plot", *window)
            self.assertEqual(result.err,
                             "vorstek-cli: --style 9:dash is not used: there are 2 data lines\n"
                             "vorstek-cli: --type 3:plot is not used: there are 2 data lines\n")
        self.write("out.svg", "old")
        result = self.plot("--width", "2:3", "--strict", data="1\n2\n", code=1)
        self.assertEqual(result.err, "vorstek-cli: --width 2:3 is not used: there is 1 data line\n"
                                     "vorstek-cli: nothing was drawn, because of --strict\n")
        self.assertEqual(self.read("out.svg"), b"old")

    def test_each_type_has_its_vertices(self):
        for kind, count in (("plot", 3), ("stairstep", 6), ("stoop", 9)):
            self.plot("--type", kind, data="1\n5\n3\n2\n")
            path = re.sub(r"(?<=[\d.])(?=[-])| ", ",", self.curve().get("d"))
            vertices = sum(len(part.split(",")) // (2 if command == "l" else 1)
                           for command, part in re.findall(r"([lhv])([^lhv]*)", path))
            self.assertEqual(vertices, count, kind)

    def test_palettes(self):
        colours = set()
        for name in ("default", "bright", "grey"):
            self.plot("--palette", name)
            colours |= {self.curve(1).get("stroke"), self.curve(2).get("stroke")}
        self.assertEqual(len(colours), 6)

    def test_dark_pages_on_request(self):
        self.plot()
        self.assertIsNone(self.root().find(SVG + "style"))
        self.plot("--dark")
        style = self.root().find(SVG + "style").text
        self.assertIn("prefers-color-scheme: dark", style)
        self.assertIn(".line-2 .drawn", style)
        self.refused("--dark", "--format", "png", mentions="--dark")

    def test_scale_enlarges_everything(self):
        self.plot("--size", "300x200", "--scale", "2.5")
        self.assertEqual([self.root().get(name) for name in ("width", "height", "viewBox")],
                         ["750", "500", "0 0 300 200"])

    def test_one_point_equal_values_and_no_visible_points(self):
        self.plot(data="ExplicitX\n5 , 5\n")
        self.assertEqual(self.curve().get("stroke-linecap"), "round")
        self.plot(data="7\n7\n7\n")
        self.assertIn("7.0", self.texts())
        self.plot("--xrange", "10:20")
        self.assertIn("no data in this range", self.texts())
        self.plot("--xrange", "0.2:0.8")
        self.assertNotIn("no data in this range", self.texts())

    def test_a_point_between_gaps_is_a_dot(self):
        self.plot(data="1\n2\nnan\n3\nnan\n4\n1\n")
        self.assertEqual(re.findall(r"h[-.\d]+", self.curve().get("d")), ["h0"] + 3 * ["h1.5"])
        self.plot("--style", "dot", data="1\n2\nnan\n3\nnan\n4\n1\n")
        self.assertEqual(re.findall(r"h[-.\d]+", self.curve().get("d")), ["h0"] + 6 * ["h1.5"])

    def test_texts_of_any_bytes(self):
        self.plot(data=b'Title "\xff\xc3\xa4\x01<"\nSetLabels "\xe4&" , "b"\n1 , 2\n2 , 3\n')
        self.assertIn("\ufffd\u00e4\ufffd<", self.texts())
        self.assertIn("\ufffd&", self.texts())

    def test_every_size_from_1_to_16383(self):
        for size in ("1x1", "16383x1", "1x16383", "16383x16383", "30x20"):
            self.plot("--size", size)
            self.assertEqual(self.root().get("width") + "x" + self.root().get("height"), size)


class ChoiceTest(FigureCase):

    def test_the_name_says_the_format_unless_an_option_does(self):
        for name in ("out.txt", "out", "out.jpg", "svg"):
            self.refused(to=name, mentions=f"'{name}' does not end in .svg, .png or .pdf")
            self.plot("--format", "svg", to=name)
            self.root(name)
        self.plot(to="OUT.SVG")
        self.root("OUT.SVG")

    def test_standard_output(self):
        result = self.plot(to="-")
        self.plot()
        self.assertEqual(result.raw_out, self.read("out.svg"))
        self.assertEqual(os.listdir(self.folder).count("-"), 0)

    def test_bad_values(self):
        rows = {"--xrange": ("", "1", "1:1", "a:b", "1:2:3", "nan:1", "1:inf", "1:1.0000000000001"),
                "--yrange": ("5:5",), "--xticks": ("1", "27", "x"), "--yticks": ("", "0"),
                "--log": ("", "z", "yx"), "--style": ("", "dashed", "0:dash", "x:dash", "1:"),
                "--width": ("0", "51", "1:0", "-1", "wide"), "--marker-size": ("0.05", "1e9"),
                "--palette": ("", "Bright", "rainbow"), "--scale": ("0", "101", "2x"),
                "--format": ("", "gif"), "--type": ("bars", "1:bars", "9999999:plot"),
                "--ylabel": (101 * "a",)}
        for option, values in rows.items():
            for value in values:
                with self.subTest(option=option, value=value):
                    self.refused(option, value, mentions=option)

    def test_options_that_do_not_go_together(self):
        self.refused("--log", "x", "--xrange", "0:5", mentions="--xrange needs numbers above 0")
        self.refused("--log", "y", "--yrange", ":-5", mentions="--yrange needs numbers above 0")
        for options in (("--log", "x"), ("--ylabel", "y"), ("--palette", "grey"), ("--dark",),
                        ("--marker-size", "3"), ("--style", "circle"), ("--width", "1.5")):
            self.refused("--window", *options, mentions=options[-1 if "circle" in options else 0])

    def test_the_window_with_ranges_ticks_and_round_numbers(self):
        self.plot("--window", "--xrange", "0:3", "--xticks", "4", "--no-legend")
        for text in ("0", "1", "2", "3"):
            self.assertIn(text, self.texts())
        self.plot("--window", "--nice", "--no-legend", data="ExplicitX\n0 , 3\n9.7 , 41\n")
        for text in ("0", "2", "10", "50"):
            self.assertIn(text, self.texts())


class ForeignReadersTest(FigureCase, LinuxCase):
    """Programs of Debian read what was drawn."""

    def tool(self, *arguments):
        return subprocess.run(arguments, cwd=self.folder, check=True, capture_output=True,
                              text=True).stdout

    def difference(self, first, second):
        """0 for equal pictures, 1 for white and black."""
        done = subprocess.run(("compare", "-metric", "RMSE", first, second, "null:"),
                              cwd=self.folder, check=False, capture_output=True, text=True)
        return float(re.search(r"\(([-+.\de]+)\)", done.stderr).group(1))

    def test_png(self):
        self.plot(to="out.png")
        self.assertEqual(self.tool("identify", "-format", "%m %w %h", "out.png"), "PNG 640 480")
        self.plot("--scale", "2", to="big.png")
        self.assertEqual(self.tool("identify", "-format", "%w %h", "big.png"), "1280 960")

    def test_svg_and_png_show_the_same(self):
        for options in ((), ("--type", "scatter"), ("--type", "stoop", "--grid"),
                        ("--window", "--scale", "2")):
            self.plot(*options)
            self.tool("rsvg-convert", "out.svg", "-o", "rendered.png")
            self.plot(*options, to="out.png")
            self.assertLess(self.difference("rendered.png", "out.png"), 0.05, options)
        self.plot(to="other.png", data="1\n2\n")
        self.assertGreater(self.difference("rendered.png", "out.png") +
                           self.difference("other.png", "rendered.png"), 0.05)

    def test_pdf(self):
        self.plot(to="out.pdf")
        about = self.tool("pdfinfo", "out.pdf")
        self.assertRegex(about, r"Title: +Free fall")
        self.assertRegex(about, r"Pages: +1\n")
        self.assertRegex(about, r"Page size: +480 x 360 pts")
        text = self.tool("pdftotext", "-layout", "out.pdf", "-")
        for word in ("Free fall", "seconds", "height", "speed", "0.5"):
            self.assertIn(word, text)

    def test_the_same_figure_is_the_same_file(self):
        self.plot(to="out.pdf")
        self.assertNotIn("Date", self.tool("pdfinfo", "out.pdf"))
        for name in ("svg", "png", "pdf"):
            first = self.plot("--format", name, to="-").raw_out
            self.assertEqual(self.plot("--format", name, to="-").raw_out, first)

    def test_standard_output_in_any_format(self):
        for name, magic in (("png", b"\x89PNG\r\n\x1a\n"), ("pdf", b"%PDF-"), ("svg", b"<?xml")):
            self.assertTrue(self.plot("--format", name, to="-").raw_out.startswith(magic))

    def test_the_old_picture_stays_on_a_full_disk(self):
        for name in ("out.svg", "out.png", "out.pdf"):
            self.write("data.txt", "".join(f"{n * n % 7919}\n" for n in range(9000)))
            self.write(name, "old")
            result = self.start("plot", "data.txt", name, **LITTLE_DISK)
            self.assertEqual(result.code, 2)
            self.assertIn(name, result.err)
            self.assertEqual(self.read(name), b"old")

    def test_a_full_device(self):
        for name in ("svg", "png", "pdf"):
            with open("/dev/full", "wb") as full:
                self.write("data.txt", DATA)
                result = self.start("plot", "data.txt", "-", "--format", name, stdout=full)
            self.assertEqual(result.code, 2)
            self.assertIn("cannot write standard output", result.err)


class RunTest(FigureCase):

    DRAW = ("ClearG", "1.5", "ENTER", "1", "SumG", "-2", "ENTER", "2", "SumG",
            "2", "SetG", "100", "ENTER", "1", "SumG", "1e7", "ENTER", "2", "SumG")

    def test_a_program_draws_a_figure(self):
        self.run_listing(self.DRAW, "--graph", "out.svg", "--title", "Powers", "--xlabel", "n",
                         "--grid", "--width", "2:4")
        texts = self.texts()
        for text in ("Powers", "n", "data line # 2"):
            self.assertIn(text, texts)
        self.assertEqual(self.curve(2).get("stroke-width"), "4")

    def test_a_figure_shows_what_its_data_file_shows(self):
        name = self.listing(*self.DRAW)
        self.run_program(name, "--graph", "drawn.txt")
        self.run_program(name, "--graph", "out.svg")
        drawn = self.curve(1).get("d"), self.curve(2).get("d")
        self.start("plot", "drawn.txt", "out.svg")
        self.assertEqual((self.curve(1).get("d"), self.curve(2).get("d")), drawn)

    def test_options_about_a_picture_need_one(self):
        name = self.listing("3", "SumG")
        for options in (("--grid",), ("--grid", "--graph", "drawn.txt"),
                        ("--format", "png", "--graph", "drawn.txt")):
            result = self.run_program(name, *options, code=2)
            self.assertRegex(result.err, r"\Avorstek-cli: --\w+ is about a picture[^\n]*\n\Z")
            self.assertEqual(result.out, "")

    def test_a_picture_on_standard_output(self):
        name = self.listing(*self.DRAW)
        self.run_program(name, "--graph", "out.svg")
        printed = self.run_program(name).out
        for options in ((), ("--json",), ("--registers", "--profile")):
            result = self.run_program(name, "--graph", "-", *options)
            self.assertEqual(result.raw_out, self.read("out.svg"))
            self.assertIn('"stack"' if "--json" in options else printed, result.err)
        self.assertNotIn("-", os.listdir(self.folder))

        result = self.run_program(self.listing("3"), "--graph", "-", code=2)
        self.assertEqual(result.out, "")
        self.assertIn("standard output was not written: the program drew nothing", result.err)
        result = self.run_program(name, "--graph", "-", "--trace", "-", code=2)
        self.assertEqual(result.err,
                         "vorstek-cli: --trace and --graph cannot both be standard output\n")

    def test_options_about_data_files_are_refused_with_the_reason(self):
        name = self.listing(*self.DRAW)
        for option in ("--columns=1,2", "--skip=1", "--separator=;", "--decimal-comma", "--strict"):
            result = self.run_program(name, "--graph", "out.svg", option, code=2)
            self.assertEqual(result.err, f"vorstek-cli: {option.split('=')[0]} is about data files, "
                                         "which plot reads; run --graph draws the points of its "
                                         "program\n")

    def test_the_format_may_be_an_option(self):
        self.run_listing(self.DRAW, "--graph", "out", "--format", "svg")
        self.root("out")


if __name__ == "__main__":
    main()
