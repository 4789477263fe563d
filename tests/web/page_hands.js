// page_hands.js - what the tests do in the page, put into it before its own scripts. They
// use what a person sees; only to learn when the calculator is done, and its numbers to
// the last bit, they ask its worker.

const hands = {
    errors: [],
    boxes: [],
    requests: new Map(),
    lastRequest: 1000000,   // the page's own requests have smaller numbers

    ask(text) {
        const id = ++hands.lastRequest;
        hands.worker.postMessage({ type: "request", text: `${id} ${text}\n` });
        return new Promise((resolve) => hands.requests.set(id, resolve));
    },

    later: (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds)),

    isRunning: () => document.querySelector(".lamp[data-lamp=run]").classList.contains("lit"),

    answerBox(answers) {
        const box = document.querySelector("#question[open]");
        if (box) {
            hands.boxes.push(box.querySelector("#question-text").textContent);
            const wanted = box.querySelector(`[value=${answers.shift() ?? "ok"}]`);
            (wanted ?? box.querySelector("[value=no]")).click();
        }
    },

    see(kept) {
        const texts = (selector) =>
            [...document.querySelectorAll(selector)].map((item) => item.textContent);
        const [display] = texts("#display-text");
        return { kept, display, listing: texts(".listing li"), registers: texts(".registers li") };
    },

    async settle(answers) {
        for (;;) {
            let kept;
            hands.ask("keep").then((value) => (kept = value));
            await hands.until(() => {
                hands.answerBox(answers);
                return kept !== undefined;
            });
            if (kept && !hands.isRunning()) {      // a run refuses to be kept
                return hands.see(kept);
            }
            await hands.later(5);
        }
    },

    tap: (code) => document.querySelector(`[data-code="${code}"]`).click(),

    /** Presses keys in turn; what is seen after each group of them. */
    async tapAll(groups) {
        const results = [];
        for (const codes of groups) {
            codes.forEach(hands.tap);
            results.push(await hands.settle([]));
        }
        return results;
    },

    async until(condition) {
        const end = performance.now() + 30000;
        while (!condition()) {
            if (performance.now() > end) {
                throw new Error(`not within 30 s: ${condition}`);
            }
            await hands.later(2);
        }
    },

    /** Waits until there is such an element. */
    async find(selector) {
        await hands.until(() => document.querySelector(selector));
    },

    untilTitle: (start) => hands.until(() => document.title.startsWith(start)),

    untilAskedForFile: () => hands.until(() => document.getElementById("chooser").onchange),

    async untilKept() {
        const { kept } = await hands.settle([]);
        await hands.until(() => localStorage.getItem("vorstek") === kept);
    },

    async chooseExample(name) {
        const choice = `#examples[open] [value="${name}"]`;
        await hands.find(choice);
        document.querySelector(choice).click();
        await hands.untilTitle(name);
    },

    middle(selector) {
        const { left, top, width, height } = document.querySelector(selector).getBoundingClientRect();
        return [left + width / 2, top + height / 2];
    },

    /** The keys that the arrow keys reach from one of them. */
    reached(start) {
        const reached = new Set([start]);
        for (const code of reached) {
            for (const key of ["ArrowLeft", "ArrowRight", "ArrowUp", "ArrowDown"]) {
                const from = document.querySelector(`[data-code="${code}"]`);
                from.focus();
                from.dispatchEvent(new KeyboardEvent("keydown", { key, bubbles: true }));
                reached.add(Number(document.activeElement.dataset.code));
            }
        }
        return [...reached];
    },

    /** Codes of the keys and switches that a pointer finds where they are seen. */
    buttonsInReach() {
        const buttons = [...document.querySelectorAll("[data-code]")];
        const found = buttons.filter((button) => {
            const { left, top, width, height } = button.getBoundingClientRect();
            return document.elementFromPoint(left + width / 2, top + height / 2) === button;
        });
        return found.map((button) => Number(button.dataset.code)).sort((a, b) => a - b);
    },

    drop(name, text, selector) {
        const data = new DataTransfer();
        data.items.add(new File([text], name));
        document.querySelector(selector).dispatchEvent(
            new DragEvent("drop", { dataTransfer: data, bubbles: true, cancelable: true }));
    },
};

addEventListener("error", (event) => hands.errors.push(event.message));
addEventListener("unhandledrejection", (event) => hands.errors.push(String(event.reason)));

hands.started = new Promise((resolve) => {
    window.Worker = class extends Worker {
        constructor(...parts) {
            super(...parts);
            hands.worker = this;
            this.addEventListener("message", ({ data }) => {
                if (data.type === "done") {
                    hands.requests.get(data.id)?.(data.value ?? "");
                } else if (data.type === "state") {
                    setTimeout(resolve);    // after the page has shown it
                }
            });
        }
    };
});
