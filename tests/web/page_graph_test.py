"""The graph of the page: its dialogs, readout, pictures and print."""

import base64
import xml.etree.ElementTree

import page_case
from page_case import EXAMPLES, FilesCase

DATA = (EXAMPLES / "data" / "fall.txt").read_text(encoding="latin-1")
POINTS = 10
COLOURS = {"0,0,0", "255,255,255", "255,0,0", "0,255,0"}    # axes, ground, two lines


class GraphCase(FilesCase):

    def setUp(self):
        super().setUp()
        self.choose("graph")
        self.call("find", ".pane.graph:not([hidden])")
        self.call("drop", "fall.txt", DATA, ".pane.graph .frame")
        self.lines_are(2, 2 * POINTS, "Free fall")

    def lines_are(self, count, points, title):
        self.call("find", f"canvas[aria-label^='{title}: {count} data lines, {points} points']")

    def dialog(self, name, values, command=None):
        """Opens a dialog, fills in fields and closes it with OK."""
        self.choose(command or name)
        self.call("find", f"#{name}[open]")
        self.call("fill", name, values)
        self.call("close", name, "ok")

    def fields(self, name, command):
        """What a dialog shows when it is opened."""
        self.choose(command)
        self.call("find", f"#{name}[open]")
        found = self.call("filled", name)
        self.call("close", name, "cancel")
        return found

    def file(self, name):
        """The graph as a data file."""
        self.choose("saveGraph")
        self.name_file(name)
        return self.saved(name).decode("latin-1")

    def texts(self):
        return self.run_script("hands.picture.texts")


class DialogsTest(GraphCase):

    def test_the_plot_is_reformatted(self):
        values = {"title": "Falling", "label": "time", "xTicks": "4", "xMin": "1", "xMax": "4",
                  "yTicks": "3", "yMin": "-50", "yMax": "100", "xGrid": True, "yGrid": False,
                  "legend": False, "textColour": "#102030", "axisColour": "#405060",
                  "background": "#fff0e0"}
        self.dialog("plot", values, "reformatPlot")
        self.lines_are(2, 2 * POINTS, "Falling")
        self.assertEqual(self.fields("plot", "reformatPlot"), values)
        self.assertLessEqual({"Falling", "time"}, set(self.texts()))
        self.assertEqual(self.count("[data-command=autoRange][aria-checked=true]"), 0)
        self.choose("autoRange")
        self.call("find", "[data-command=autoRange][aria-checked=true]")
        self.assertNotEqual(self.fields("plot", "reformatPlot")["yMin"], "-50")
        self.assertIn('Title "Falling"', self.file("plot.txt"))

    def test_legend_and_grid_are_switched(self):
        for command, fields in (("legend", ["legend"]), ("grid", ["xGrid", "yGrid"])):
            before = self.fields("plot", "reformatPlot")
            self.choose(command)
            self.settled()
            after = self.fields("plot", "reformatPlot")
            with self.subTest(command=command):
                changed = [name for name in after if after[name] != before[name]]
                self.assertEqual(sorted(changed), fields)
                self.assertEqual(self.count(f"[data-command={command}][aria-checked=true]"),
                                 int(after[fields[0]]))

    def test_a_line_is_reformatted_and_deleted(self):
        values = {"line": "2", "label": "metres a second", "colour": "#a02000", "type": "2",
                  "width": "3", "style": "1", "multiplier": "2", "offset": "0.5"}
        self.dialog("line", values, "reformatLine")
        self.settled()
        self.assertIn("metres a second", self.file("line.txt"))
        self.choose("reformatLine")
        self.call("fill", "line", {"line": "2"})
        self.assertEqual(self.call("filled", "line"), values)
        self.call("close", "line", "cancel")
        self.dialog("line", {"line": "1"}, "deleteLine")
        self.lines_are(1, POINTS, "Free fall")
        self.assertNotIn("height in m", self.file("deleted.txt"))

    def test_points_are_entered_and_edited(self):
        self.dialog("points", {"text": "1\n4\n9\n"}, "enterY")
        self.lines_are(3, 2 * POINTS + 3, "Free fall")
        self.dialog("points", {"text": "0,1\n5,2\n"}, "enterXY")
        self.lines_are(4, 2 * POINTS + 5, "Free fall")
        self.choose("editPoints")
        self.call("find", "#points[open]")
        self.call("fill", "points", {"line": "3"})
        self.settled()
        self.assertEqual(self.call("filled", "points")["text"].split(), ["1", "4", "9"])
        self.call("fill", "points", {"text": "7\n8\n"})
        self.call("close", "points", "ok")
        self.lines_are(4, 2 * POINTS + 4, "Free fall")

    def test_new_empties_the_graph(self):
        self.choose("newGraph")
        self.call("find", "canvas[aria-label*=': 0 data lines']")
        self.choose("reformatLine")
        self.settled()
        self.assertEqual(self.boxes(), ["The graph has no data lines."])


class PicturesTest(GraphCase):

    def test_the_picture_as_svg_and_png(self):
        self.choose("saveSvg")
        self.name_file("graph.svg")
        width, height = self.run_script("[hands.picture.width, hands.picture.height]")
        root = xml.etree.ElementTree.fromstring(self.saved("graph.svg"))
        self.assertEqual((root.get("width"), root.get("height")), (str(width), str(height)))
        texts = {element.text for element in root.iter() if element.text}
        self.assertLessEqual({"Free fall", "seconds", "height in m", "speed in m/s"}, texts)

        self.choose("savePng")
        self.name_file("graph.png")
        picture = self.call("picturePixels",
                            base64.b64encode(self.saved("graph.png")).decode())
        self.assertEqual(picture["size"], [2 * width, 2 * height])
        self.assertLessEqual(COLOURS, set(self.call("pixels", ".frame canvas")))
        self.assertLessEqual(COLOURS, set(picture["colours"]))

    def test_the_graph_is_printed(self):
        self.run_script("window.print = () => hands.boxes.push('prints')")
        self.choose("printGraph")
        self.assertEqual(self.boxes(), ["prints"])
        self.assertEqual(self.count("#printed canvas"), 1)
        self.assertEqual(self.printed().strip(), "")

    def test_a_point_is_read_while_a_pointer_is_held(self):
        left, top = self.run_script(
            "(({left, top}) => [left, top])(document.querySelector('.frame canvas')"
            ".getBoundingClientRect())")
        near = self.run_script("hands.ask('readout 100 100')")
        at = (left + near["left"], top + near["top"])
        text = f"{near['label']} x,y = {near['x']:g}, {near['y']:g}"
        self.mouse("mousePressed", at)
        self.assertEqual(self.eventually(text, "readout"), text)
        self.assertEqual(self.count(".mark:not([hidden])"), 1)
        far = (left + self.run_script("hands.picture.width") - 40, at[1])
        self.mouse("mouseMoved", far)
        self.assertNotIn(self.call("readoutAfter", text), ("", text))
        self.mouse("mouseReleased", far)
        self.assertEqual(self.call("readout"), "")
        self.assertEqual(self.count(".mark:not([hidden])"), 0)

        self.touch("touchStart", (0, at))
        self.assertEqual(self.eventually(text, "readout"), text)
        self.touch("touchEnd")
        self.assertEqual(self.call("readout"), "")


if __name__ == "__main__":
    page_case.main()
