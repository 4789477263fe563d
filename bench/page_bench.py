"""How fast the calculator is in a browser: page_bench.py VORSTEK.html CONSOLE PROGRAM

Prints lines of name, value, unit and aim, with "|" between them. The counting loop is
run in turn by the page and by the console program, which is as fast as this processor
is. The times of keys are those from the event that the browser has got to the start of
the sound, with what the sound device adds, and to the halt. Debian package: chromium."""

import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "help"))
from chromium import Chromium  # pylint: disable=wrong-import-position,import-error

HANDS = ROOT / "tests" / "web" / "page_hands.js"
ROUNDS = 5
TURNS = 20_000_000
LONG_TURNS = 2_000_000_000
LINES = 5               # of a turn
KEYS = 20
ENTER = 11

WATCH = """
const watch = { shown: false, pictures: 0, sounds: [], halts: [], pressed: 0, running: false,
    ended: () => {} };
addEventListener("pointerdown", (event) => (watch.pressed = event.timeStamp), { capture: true });

const start = AudioBufferSourceNode.prototype.start;
AudioBufferSourceNode.prototype.start = function (...parts) {
    const { baseLatency, outputLatency } = this.context;
    watch.sounds.push(performance.now() - watch.pressed + 1000 * (baseLatency + outputLatency));
    return start.apply(this, parts);
};

watch.frame = () => {
    watch.pictures += watch.shown;
    watch.shown = false;
    requestAnimationFrame(watch.frame);
};

watch.begin = async (program, turns) => {
    hands.drop("counting.txt", program, "body");
    await hands.untilTitle("counting.txt");
    await hands.ask(`perform\\n1 ${turns} STO 0`);
    await hands.settle([]);
    hands.worker.addEventListener("message", ({ data }) => {
        const { running = watch.running } = data.modes ?? {};
        if (watch.running && !running) {
            watch.halts.push(performance.now() - watch.pressed);
            watch.ended();
        }
        watch.running = running;
    });
    new MutationObserver(() => (watch.shown = true)).observe(
        document.getElementById("display-text"), { childList: true });
    watch.frame();
    watch.end = new Promise((resolve) => (watch.ended = resolve));
    watch.pictures = 0;
    watch.from = performance.now();
    hands.tap(30);
};

watch.whole = async (program, turns) => {
    await watch.begin(program, turns);
    await watch.end;
    const seconds = (performance.now() - watch.from) / 1000;
    return [seconds, watch.pictures / seconds];
};
"""

PAINT = """new Promise((resolve) => new PerformanceObserver((list) => resolve(
    list.getEntries().find((entry) => entry.name === "first-contentful-paint")?.startTime
)).observe({ type: "paint", buffered: true }))"""


def row(name, value, unit, aim, digits=0):
    print(f"{name}|{value:.{digits}f}|{unit}|{aim}", flush=True)


class Page(Chromium):

    def __enter__(self):
        super().__enter__()
        self.emulate(1280, 800, "light")
        for script in (HANDS.read_text(encoding="utf-8"), WATCH):
            self.send("Page.addScriptToEvaluateOnNewDocument", source=script)
        return self

    def start(self, page):
        """Milliseconds until something is seen, and until the calculator is there."""
        self.open("about:blank")
        self.open(page.as_uri())
        ready = self.evaluate("hands.started.then(() => performance.now())")
        return self.evaluate(PAINT), ready

    def press(self, code):
        """A click without waiting for what follows it."""
        x, y = self.evaluate(f"hands.middle('[data-code=\"{code}\"]')")
        for kind, buttons in (("mousePressed", 1), ("mouseReleased", 0)):
            self.send("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left",
                      buttons=buttons, clickCount=1)


def run_native(console, program):
    begin = time.perf_counter()
    subprocess.run([console, "run", program, "--x", "1", "--reg", f"0={TURNS}"], check=True,
                   stdout=subprocess.DEVNULL)
    return time.perf_counter() - begin


def compare_loops(browser, page, console, program):
    text = repr(pathlib.Path(program).read_text(encoding="ascii"))
    ours, theirs, pictures = [], [], []
    for _ in range(ROUNDS):
        browser.start(page)
        seconds, rate = browser.evaluate(f"watch.whole({text}, {TURNS})")
        ours.append(seconds)
        pictures.append(rate)
        theirs.append(run_native(console, program))
    ratio = statistics.median(b / a for a, b in zip(ours, theirs))
    row("counting loop", TURNS * LINES / statistics.median(ours) / 1e6, "million lines/s", "")
    row("counting loop, times native", ratio, "", "0.5", 2)
    row("display during the loop", statistics.median(pictures), "pictures/s", "30")


def measure_keys(browser, page, program):
    browser.start(page)
    for _ in range(KEYS):
        browser.press(ENTER)
        browser.evaluate("hands.settle([]).then(() => hands.later(150)).then(() => 0)")
    sounds = browser.evaluate("watch.sounds")
    if len(sounds) != KEYS:
        sys.exit(f"page_bench.py: {len(sounds)} of {KEYS} keys have been heard")
    row("key to its sound, median", statistics.median(sounds), "ms", "50", 1)
    row("key to its sound, slowest", max(sounds), "ms", "50", 1)

    text = repr(pathlib.Path(program).read_text(encoding="ascii"))
    halts = []
    for _ in range(ROUNDS):
        browser.start(page)
        browser.evaluate(f"watch.begin({text}, {LONG_TURNS}).then(() => hands.later(400))")
        browser.press(ENTER)
        browser.evaluate("watch.end")
        halts.append(browser.evaluate("watch.halts")[-1])
    row("key to the halt of a run, slowest", max(halts), "ms", "50", 1)


def measure_starts(browser, page):
    starts = [browser.start(page) for _ in range(ROUNDS)]
    paints, readies = zip(*starts)
    row("first paint, from a file", statistics.median(paints), "ms", "500")
    row("calculator ready, from a file", statistics.median(readies), "ms", "")


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    page, console, program = sys.argv[1:]
    page = pathlib.Path(page).resolve()
    with Page() as browser:
        browser.start(page)     # reads the files from the disk
        measure_starts(browser, page)
        measure_keys(browser, page, program)
        compare_loops(browser, page, console, program)


if __name__ == "__main__":
    main()
