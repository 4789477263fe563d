"""A headless Chromium that is driven through a pair of pipes. One process can
show many pages. Debian package: chromium."""

import json
import os
import select
import shutil
import signal
import subprocess
import tempfile
import time

FLAGS = ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--disable-dev-shm-usage", "--hide-scrollbars", "--remote-debugging-pipe")

ANSWER_TIME = 60        # seconds; a busy machine takes longer than usual


class Chromium:
    """Use it in a with statement: the browser and its profile are removed at
    the end."""

    def __init__(self):
        self._next, self._events, self._session, self._rest = 0, [], None, b""

    def __enter__(self):
        program = shutil.which("chromium")
        if not program:
            raise FileNotFoundError("chromium is not installed (Debian package: chromium)")
        self._profile = tempfile.mkdtemp(prefix="vorstek-chromium-")
        from_us, self._to = os.pipe()
        self._from, to_us = os.pipe()

        # The browser reads commands from descriptor 3 and answers on 4. The
        # copies keep both numbers free for dup2.
        def connect():
            reading, writing = os.dup(from_us), os.dup(to_us)
            os.dup2(reading, 3)
            os.dup2(writing, 4)

        os.set_inheritable(from_us, True)
        os.set_inheritable(to_us, True)
        self._process = subprocess.Popen(
            [program, *FLAGS, f"--user-data-dir={self._profile}", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            preexec_fn=connect, close_fds=False, start_new_session=True)
        os.close(from_us)
        os.close(to_us)
        target = self.send("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.send("Target.attachToTarget", targetId=target,
                                  flatten=True)["sessionId"]
        self.send("Page.enable")
        return self

    def __exit__(self, *_):
        os.close(self._to)
        try:
            self._process.wait(timeout=5)
        except subprocess.TimeoutExpired:
            os.killpg(self._process.pid, signal.SIGKILL)
            self._process.wait()
        os.close(self._from)
        shutil.rmtree(self._profile, ignore_errors=True)

    # --- messages: JSON, each followed by a zero byte

    def _receive(self):
        end = time.monotonic() + ANSWER_TIME
        while b"\0" not in self._rest:
            if not select.select([self._from], [], [], max(0, end - time.monotonic()))[0]:
                raise TimeoutError("chromium does not answer")
            more = os.read(self._from, 1 << 20)
            if not more:
                raise ConnectionError("chromium has ended")
            self._rest += more
        message, _, self._rest = self._rest.partition(b"\0")
        return json.loads(message)

    def send(self, method, **parameters):
        """The result of a command. Events that arrive first are kept."""
        self._next += 1
        message = {"id": self._next, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        rest = json.dumps(message).encode() + b"\0"
        while rest:
            rest = rest[os.write(self._to, rest):]
        while True:
            answer = self._receive()
            if answer.get("id") == self._next:
                break
            self._events.append(answer.get("method"))
        if "error" in answer:
            raise RuntimeError(f"{method}: {answer['error']['message']}")
        return answer["result"]

    # --- pages

    def emulate(self, width, height, scheme):
        """Window size in pixels and preferred colour scheme, "light" or "dark"."""
        self.send("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=1, mobile=False)
        self.send("Emulation.setEmulatedMedia",
                  features=[{"name": "prefers-color-scheme", "value": scheme}])

    def open(self, address):
        """Returns when the page and its pictures are loaded."""
        self._events.clear()
        result = self.send("Page.navigate", url=address)
        if result.get("errorText"):
            raise RuntimeError(f"{address}: {result['errorText']}")
        self._await_load()

    def follow(self, script):
        """Runs a script that leads to another page, and returns when that is loaded."""
        self._events.clear()
        self.evaluate(script)
        self._await_load()

    def _await_load(self):
        while "Page.loadEventFired" not in self._events:
            self._events.append(self._receive().get("method"))

    def evaluate(self, script):
        """The value of an expression; promises are awaited."""
        result = self.send("Runtime.evaluate", expression=script, awaitPromise=True,
                           returnByValue=True)
        if "exceptionDetails" in result:
            raise RuntimeError(json.dumps(result["exceptionDetails"])[:2000])
        return result["result"].get("value")
