"""What the build of the page makes, in a browser: the one file without a server and
without network, and the folder after its server has gone.

    python3 files_test.py VORSTEK.html FOLDER [unittest options]

Debian package: chromium."""

import functools
import http.server
import pathlib
import sys
import threading
import unittest

from chromium import Chromium

MOST_BYTES = 2_500_000
SEVEN, EIGHT, ENTER, NINE, PLUS = 16, 17, 11, 18, 19

SHOWN = "document.querySelector('#display-text').textContent"
PRESS = "document.querySelector('[data-code=\"%d\"]').click()"

# The first answer of the calculator, and later any other than the one before.
WAIT_UNTIL = """(async () => {
    for (let turn = 0; turn < 1000 && !%s; ++turn)
        await new Promise((resolve) => setTimeout(resolve, 20));
    return %s;
})()"""

# What the page itself may not do either.
VIOLATIONS = """(async () => {
    const refused = [];
    addEventListener("securitypolicyviolation", (event) => refused.push(event.effectiveDirective));
    const script = document.createElement("script");
    script.textContent = "document.hostile = 1";
    document.body.append(script);
    document.body.insertAdjacentHTML("beforeend", "<p style='color: red' onclick='0'>");
    await fetch("https://vorstek.invalid/").catch(() => {});
    await new Promise((resolve) => setTimeout(resolve, 100));
    return [String(document.hostile), ...refused].join(" ");
})()"""

page = folder = None


class Browser(Chromium):
    """Keeps what the page asked for and what went wrong in it."""

    def __enter__(self):
        self.requests, self.errors = [], []
        super().__enter__()
        for domain in ("Network", "Runtime", "Log"):
            self.send(f"{domain}.enable")
        return self

    def _receive(self):
        message = super()._receive()
        parameters = message.get("params", {})
        if message.get("method") == "Network.requestWillBeSent":
            self.requests.append(parameters["request"]["url"])
        elif message.get("method") == "Runtime.exceptionThrown":
            self.errors.append(parameters["exceptionDetails"].get("exception"))
        elif message.get("method") == "Log.entryAdded":
            self.errors.append(parameters["entry"]["text"])
        return message

    def calculate(self):
        """7 8 ENTER 9 +"""
        until = f"{SHOWN}.startsWith('%s')"
        self.evaluate(WAIT_UNTIL % (until % "0.00", 0))
        for key in (SEVEN, EIGHT, ENTER, NINE, PLUS):
            self.evaluate(PRESS % key)
        return self.evaluate(WAIT_UNTIL % (until % "87.00", SHOWN))


class OneFileTest(unittest.TestCase):

    def test_it_is_small_enough_for_a_mail(self):
        self.assertLess(page.stat().st_size, MOST_BYTES)

    def test_it_calculates_without_asking_for_anything_else(self):
        with Browser() as browser:
            browser.open(page.as_uri())
            self.assertTrue(browser.calculate().startswith("87.00"))
            others = [address for address in browser.requests
                      if not address.startswith(("data:", "blob:"))]
            self.assertEqual(others, [page.as_uri()])
            self.assertEqual(browser.errors, [])

    def test_its_policy_admits_its_own_scripts_and_styles_only(self):
        with Browser() as browser:
            browser.open(page.as_uri())
            browser.calculate()
            self.assertEqual(browser.evaluate(VIOLATIONS).split(),
                             ["undefined", "script-src-elem", "style-src-attr", "script-src-attr",
                              "connect-src"])


class FolderTest(unittest.TestCase):

    def setUp(self):
        handler = functools.partial(QuietHandler, directory=folder)
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        self.addCleanup(self.stop)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self.server.server_port}/vorstek.html"

    def stop(self):
        self.server.shutdown()
        self.server.server_close()

    def test_it_is_installed_as_an_application_and_needs_its_server_only_once(self):
        with Browser() as browser:
            browser.open(self.address)
            self.assertTrue(browser.calculate().startswith("87.00"))
            browser.evaluate("navigator.serviceWorker.ready.then(() => 0)")
            self.assertEqual(browser.send("Page.getAppManifest")["errors"], [])
            self.assertEqual(browser.send("Page.getInstallabilityErrors")["installabilityErrors"],
                             [])
            browser.evaluate("localStorage.clear()")
            self.stop()
            browser.open(self.address + "?again")
            self.assertTrue(browser.calculate().startswith("87.00"))
            self.assertEqual(browser.errors, [])


class QuietHandler(http.server.SimpleHTTPRequestHandler):

    extensions_map = {".html": "text/html", ".css": "text/css", ".js": "text/javascript",
                      ".wasm": "application/wasm", ".png": "image/png",
                      ".webmanifest": "application/manifest+json",
                      "": "application/octet-stream"}

    def log_message(self, *_):
        pass


if __name__ == "__main__":
    page, folder = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
