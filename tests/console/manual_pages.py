"""Reads the pages of the manual for their tests: the markup, and the keys by
their legends on the calculator's face."""

import html.parser
import os
import re

from console_case import KEYS, MODE_SWITCH, REPOSITORY, STACK_VIEW

MANUAL = os.path.join(REPOSITORY, "docs", "manual")

# Legends on the keys, in gold above them (after f) and in blue on their fronts
# (after g). "_" is a space in a legend.
UNSHIFTED = {**KEYS, "R\u2193": KEYS["Rolldown"], "\u03a3+": KEYS["Sum+"], "CLx": KEYS["CLX"]}
for _name in ("Rolldown", "Sum+", "CLX"):
    del UNSHIFTED[_name]
GOLD = {
    "FIX": 1, "SCI": 2, "ENG": 3, "x-bar": 6, "s": 7, "L.R.": 8, "CL_G": 9, "\u03a3-": 10,
    "CL_PRGM": 12, "CL_REG": 13, "CL_\u03a3": 14, "x\u2264y": 15, "ln": 16, "log": 17,
    "\u2192R": 18, "x>y": 19, "sin": 20, "cos": 21, "tan": 22, "x\u2260y": 23, "INT": 24,
    "\u221ax": 25, "y^x": 26, "x=y": 27, "SUM_G": 28, "LAST_x": 29, "PAUSE": 30,
}
BLUE = {
    "BST": 1, "RTN": 2, "LBL": 3, "%": 6, "i": 7, "DSZ": 8, "ISZ": 9, "DEL": 10, "GRD": 12,
    "RAD": 13, "DEG": 14, "x<0": 15, "e^x": 16, "10^x": 17, "\u2192P": 18, "x>0": 19,
    "sin^-1": 20, "cos^-1": 21, "tan^-1": 22, "x\u22600": 23, "FRAC": 24, "x^2": 25, "ABS": 26,
    "x=0": 27, "SET_G": 28, "\u03c0": 29, "1/x": 30,
}
SWITCHES = {"PRGM": f"up {MODE_SWITCH}", "RUN": f"down {MODE_SWITCH}",
            "STACK": f"down {STACK_VIEW}", "X": f"up {STACK_VIEW}"}


class NoSuchKey(Exception):
    """A legend that is on no key, or not in this colour."""


def key_commands(text):
    """Script lines that press the keys: key_commands("12.5 f ln") is six."""
    lines, shift = [], None
    for token in text.split():
        for part in token if re.fullmatch(r"[\d.]+", token) else [token]:
            if part in SWITCHES and shift is None:
                lines.append(SWITCHES[part])
                continue
            legends = {None: UNSHIFTED, "f": GOLD, "g": BLUE}[shift]
            if part not in legends:
                raise NoSuchKey(f"{part!r} in {text!r}")
            lines.append(f"key {legends[part]}")
            shift = part if part in ("f", "g") and shift is None else None
    return lines


class Element:
    """Something with a start tag: its attributes, the text in it, and the
    line of the page where it begins."""

    def __init__(self, tag, attributes, line):
        self.tag, self.line = tag, line
        self.attributes = dict(attributes)
        self.text = ""

    @property
    def classes(self):
        return (self.attributes.get("class") or "").split()


class Page(html.parser.HTMLParser):
    """All elements in their order. What is not closed as it was opened is an
    error of the page."""

    VOID = ("meta", "link", "img", "br", "hr", "input")

    def __init__(self, path):
        super().__init__(convert_charrefs=True)
        self.path, self.name = path, os.path.basename(path)
        with open(path, encoding="utf-8") as file:
            self.source = file.read()
        self.elements, self._open = [], []
        self.feed(self.source)
        self.close()
        if self._open:
            raise ValueError(f"{self.name}: <{self._open[-1].tag}> of line "
                             f"{self._open[-1].line} is not closed")

    def handle_starttag(self, tag, attrs):
        element = Element(tag, attrs, self.getpos()[0])
        self.elements.append(element)
        if tag not in self.VOID:
            self._open.append(element)

    def handle_endtag(self, tag):
        if not self._open or self._open[-1].tag != tag:
            raise ValueError(f"{self.name}:{self.getpos()[0]}: </{tag}> closes nothing")
        self._open.pop()

    def handle_data(self, data):
        for element in self._open:
            element.text += data

    def having(self, tag, name=None):
        return [element for element in self.elements
                if element.tag == tag and (name is None or name in element.classes)]

    def sections(self, tag):
        """Elements with this tag, each with those that follow it up to the
        next one."""
        found = None
        for element in self.elements:
            if element.tag == tag:
                if found:
                    yield found
                found = (element, [])
            elif found:
                found[1].append(element)
        if found:
            yield found


def pages():
    return [Page(os.path.join(MANUAL, name)) for name in sorted(os.listdir(MANUAL))
            if name.endswith(".htm")]
