"""What the tests of the page share: a server for its folder, one Chromium, and what a
person does with the page.

    python3 page_test.py PAGE CONSOLE [unittest options]

PAGE is a folder with vorstek.html and all that it fetches, or the one file that needs
no server; CONSOLE is the console program, which says what is right. A module that the
environment variable VORSTEK_WASM names takes the place of the folder's own. Debian
package: chromium."""

import base64
import functools
import http.server
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest

from chromium import Chromium

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
EXAMPLES = ROOT / "examples"
TIMEOUT = 60
DOWNLOAD_TIME = 20      # seconds

PROGRAM = "; Doubles X\r\nLBL 0\r\n2\r\n*\r\n"

page = None
console = None


class _Files(http.server.SimpleHTTPRequestHandler):

    extensions_map = {".html": "text/html", ".css": "text/css", ".js": "text/javascript",
                      ".wasm": "application/wasm", ".png": "image/png", ".wav": "audio/wav",
                      ".json": "application/json", "": "application/octet-stream"}

    def translate_path(self, path):
        name = super().translate_path(path)
        return os.environ.get("VORSTEK_WASM", name) if name.endswith(".wasm") else name

    def log_message(self, *_):
        pass


class Seen:
    """The page when nothing happens any more."""

    def __init__(self, found):
        head, _, self.program = found["kept"].partition("\nlisting\n")
        values = dict(line.split(" ", 1) for line in head.splitlines()[1:])
        self.name = values.pop("file")
        self.numbers = {name: float(value) for name, value in values.items()}
        self.display = found["display"]
        self.listing = found["listing"]
        self.registers = found["registers"]


class PageCase(unittest.TestCase):
    """A test begins with a calculator that keeps nothing from the one before."""

    @classmethod
    def setUpClass(cls):
        cls.address = page.as_uri() if page.is_file() else cls.serve()
        cls.browser = Chromium().__enter__()
        cls.addClassCleanup(cls.browser.__exit__, None, None, None)
        cls.add_script((HERE / "page_hands.js").read_text(encoding="utf-8"))

    @classmethod
    def serve(cls):
        handler = functools.partial(_Files, directory=page)
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        cls.addClassCleanup(server.server_close)
        cls.addClassCleanup(server.shutdown)
        return f"http://127.0.0.1:{server.server_port}/vorstek.html"

    @classmethod
    def add_script(cls, source):
        return cls.browser.send("Page.addScriptToEvaluateOnNewDocument", source=source)["identifier"]

    def setUp(self):
        self.size(1280, 800)
        self.open()

    def tearDown(self):
        self.assertEqual(self.run_script("hands.errors"), [])

    # --- the page

    def open(self, fragment="", keeps=False):
        """Another document, even if only the fragment differs."""
        self.browser.open("about:blank")
        if not keeps:
            origin = re.match("file://|[^/]+//[^/]+", self.address)[0]
            self.browser.send("Storage.clearDataForOrigin", origin=origin,
                              storageTypes="local_storage")
        self.browser.open(self.address + fragment)
        self.run_script("hands.started")

    def size(self, width, height, density=1, scheme="light", mobile=False):
        self.browser.send("Emulation.setDeviceMetricsOverride", width=width, height=height,
                          deviceScaleFactor=density, mobile=mobile)
        self.browser.send("Emulation.setEmulatedMedia",
                          features=[{"name": "prefers-color-scheme", "value": scheme}])

    def run_script(self, script):
        """With the rights of a click: to open a file, to play a sound."""
        result = self.browser.send("Runtime.evaluate", expression=script, awaitPromise=True,
                                   returnByValue=True, userGesture=True)
        self.assertNotIn("exceptionDetails", result, script)
        return result["result"].get("value")

    def call(self, name, *arguments):
        return self.run_script(f"hands.{name}({', '.join(map(json.dumps, arguments))})")

    def eventually(self, expected, name, *arguments):
        """What a call answers as soon as it is that, or after some seconds: a window
        that has changed its size is laid out a little later."""
        for _ in range(50):
            answer = self.call(name, *arguments)
            if answer == expected:
                break
            time.sleep(0.1)
        return answer

    def settled(self, *answers):
        """Boxes that open are answered in turn, "ok" by default."""
        return Seen(self.call("settle", answers))

    def boxes(self):
        """The texts of the boxes since the last call."""
        return self.run_script("hands.boxes.splice(0)")

    def press(self, *codes):
        for code in codes:
            self.call("tap", code)
        return self.settled()

    def choose(self, command):
        """An item of a menu."""
        self.run_script(f"document.querySelector('[data-command={command}]').click()")

    def point(self, selector):
        """The middle of an element in the window."""
        return self.call("middle", selector)

    def mouse(self, kind, at, pointer="mouse"):
        self.browser.send("Input.dispatchMouseEvent", type=kind, x=at[0], y=at[1], button="left",
                          buttons=0 if kind == "mouseReleased" else 1, clickCount=1,
                          pointerType=pointer)

    def click(self, selector, pointer="mouse"):
        at = self.point(selector)
        self.mouse("mousePressed", at, pointer)
        self.mouse("mouseReleased", at, pointer)

    def touch(self, kind, *points):
        self.browser.send("Input.dispatchTouchEvent", type=kind,
                          touchPoints=[{"x": x, "y": y, "id": n} for n, (x, y) in points])

    def count(self, selector):
        return self.run_script(f"document.querySelectorAll({json.dumps(selector)}).length")

    # --- the console

    def script(self, *lines):
        """The events of the console's command script."""
        with tempfile.TemporaryDirectory(prefix="vorstek-") as where:
            return self.script_in(where, *lines)

    def script_in(self, where, *lines):
        done = subprocess.run([console, "script"], input="\n".join(lines) + "\n", cwd=where,
                              capture_output=True, check=True, text=True, timeout=TIMEOUT)
        return [json.loads(line) for line in done.stdout.splitlines()]

    def assert_same(self, seen, state):
        """The page's calculator and a state of the console."""
        levels = dict(zip("xyzt", (level["value"] for level in state["stack"])))
        registers = {f"reg.{n}": value for n, value in enumerate(state["reg"])}
        values = {**levels, **registers, "lastx": state["lastx"], "line": state["line"],
                  "modified": state["modified"]}
        # Infinities are not kept.
        wrong = {name: (seen.numbers.get(name), value) for name, value in values.items()
                 if not isinstance(value, str) and seen.numbers.get(name) != value}
        self.assertEqual(wrong, {})
        self.assertEqual(seen.listing, state["listing"])
        self.assertEqual(seen.registers, state["registers"])
        self.assertIn(state["display"].strip(), seen.display)


class FilesCase(PageCase):
    """Files go to and come from a folder of the test."""

    def setUp(self):
        super().setUp()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vorstek-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.browser.send("Page.setDownloadBehavior", behavior="allow",
                          downloadPath=str(self.folder))

    def open_program(self, text=PROGRAM, name="double.txt"):
        self.call("drop", name, text, "body")
        self.call("untilTitle", name)

    def name_file(self, name):
        """The answer to the dialog that asks for a file's name."""
        self.call("find", "#file-name[open]")
        self.run_script(f"document.querySelector('#file-name input').value = {name!r}; "
                        "document.querySelector('#file-name [value=ok]').click()")

    def saved(self, name):
        """The bytes of a file that the page hands out; none is empty. The browser puts an
        empty file under the name until it has all of it."""
        file = self.folder / name
        end = time.monotonic() + DOWNLOAD_TIME
        while not file.exists() or file.stat().st_size == 0:
            self.assertLess(time.monotonic(), end, f"{name} has not been saved")
            time.sleep(0.02)
        return file.read_bytes()

    def printed(self):
        """The text of the page on paper."""
        data = self.browser.send("Page.printToPDF")["data"]
        return subprocess.run(["pdftotext", "-layout", "-", "-"], input=base64.b64decode(data),
                              capture_output=True, check=True).stdout.decode()


def main():
    global page, console
    page, console = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[3:]])
