// page_hands.js - what the tests do in the page, put into it before its own scripts. They
// use what a person sees; only to learn when the calculator is done, and its numbers to
// the last bit, they listen to its worker.

const hands = {
    errors: [],
    boxes: [],
    kept: "",       // what the page was given last to keep
    picture: null,  // of the graph
    atFirst: "",    // what the display showed before there was a calculator
    played: [],     // how long the sounds are, in milliseconds
    requests: new Map(),
    lastRequest: 1000000,  // the page's own requests have smaller numbers

    ask(text) {
        const id = ++hands.lastRequest;
        hands.worker.postMessage({type: "request", text: `${id} ${text}\n`});
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

    see() {
        const texts =
            (selector) => [...document.querySelectorAll(selector)].map((item) => item.textContent);
        const [display] = texts("#display-text");
        return {
            kept: hands.kept,
            display,
            listing: texts(".listing li"),
            registers: texts(".registers li")
        };
    },

    async settle(answers) {
        for (;;) {
            // Only what is answered after a run comes after what it has left to be kept.
            let running;
            hands.ask("listing").then(() => (running = hands.isRunning()));
            await hands.until(() => {
                hands.answerBox(answers);
                return running !== undefined;
            });
            if (!running) {
                return hands.see();
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

    async chooseExample(name) {
        const choice = `#examples[open] [value="${name}"]`;
        await hands.find(choice);
        document.querySelector(choice).click();
        await hands.untilTitle(name);
    },

    middle(selector) {
        const {left, top, width, height} = document.querySelector(selector).getBoundingClientRect();
        return [left + width / 2, top + height / 2];
    },

    /** Presses a button of a dialog; returns when the page has done what it means. */
    async close(name, button) {
        const dialog = document.getElementById(name);
        const closed = new Promise(
            (resolve) => dialog.addEventListener("close", () => setTimeout(resolve), {once: true}));
        dialog.querySelector(`[value=${button}]`).click();
        await closed;
    },

    /** Fills in fields of a dialog as if they were typed or chosen. */
    fill(dialog, values) {
        for (const [name, value] of Object.entries(values)) {
            const field = document.querySelector(`#${dialog} [name=${name}]`);
            field[field.type === "checkbox" ? "checked" : "value"] = value;
            field.dispatchEvent(new Event("change", {bubbles: true}));
        }
    },

    /** Checks boxes of a dialog, and chooses one of its radio buttons. */
    choose(dialog, values) {
        const fields = document.querySelector(`#${dialog} form`).elements;
        for (const [name, value] of Object.entries(values)) {
            fields[name][typeof value === "boolean" ? "checked" : "value"] = value;
        }
    },

    /** Lengths of the sounds since the last call, in milliseconds. */
    sounds: () => hands.played.splice(0),

    /** Red, green and blue. */
    colour: (selector, name) =>
        getComputedStyle(document.querySelector(selector))[name].match(/\d+/g).map(Number),

    filled(dialog) {
        const fields = [...document.querySelectorAll(`#${dialog} [name]`)];
        return Object.fromEntries(fields.map(
            (field) => [field.name, field.type === "checkbox" ? field.checked : field.value]));
    },

    lit: () => [...document.querySelectorAll(".lamp.lit")].map((lamp) => lamp.dataset.lamp),

    readout: () => document.querySelector(".readout").textContent,

    async readoutAfter(text) {
        await hands.until(() => hands.readout() !== text);
        return hands.readout();
    },

    /** Colours of a canvas that are on more than twenty of its pixels. */
    pixels: (selector) => hands.coloursOf(document.querySelector(selector)),

    coloursOf(canvas) {
        const {data} = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
        const counts = new Map();
        for (let at = 0; at < data.length; at += 4) {
            const colour = data.slice(at, at + 3).join();
            counts.set(colour, (counts.get(colour) ?? 0) + 1);
        }
        return [...counts].filter(([, count]) => count > 20).map(([colour]) => colour);
    },

    async picturePixels(base64) {
        const bytes = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
        const picture = await createImageBitmap(new Blob([bytes]));
        const canvas = new OffscreenCanvas(picture.width, picture.height);
        canvas.getContext("2d").drawImage(picture, 0, 0);
        return {size: [picture.width, picture.height], colours: hands.coloursOf(canvas)};
    },

    /** The keys that the arrow keys reach from one of them. */
    reached(start) {
        const reached = new Set([start]);
        for (const code of reached) {
            for (const key of ["ArrowLeft", "ArrowRight", "ArrowUp", "ArrowDown"]) {
                const from = document.querySelector(`[data-code="${code}"]`);
                from.focus();
                from.dispatchEvent(new KeyboardEvent("keydown", {key, bubbles: true}));
                reached.add(Number(document.activeElement.dataset.code));
            }
        }
        return [...reached];
    },

    /** Codes of the keys and switches that a pointer finds where they are seen. */
    buttonsInReach() {
        const buttons = [...document.querySelectorAll("[data-code]")];
        const found = buttons.filter((button) => {
            const {left, top, width, height} = button.getBoundingClientRect();
            return document.elementFromPoint(left + width / 2, top + height / 2) === button;
        });
        return found.map((button) => Number(button.dataset.code)).sort((a, b) => a - b);
    },

    drop(name, text, selector) {
        const data = new DataTransfer();
        data.items.add(new File([text], name));
        document.querySelector(selector).dispatchEvent(
            new DragEvent("drop", {dataTransfer: data, bubbles: true, cancelable: true}));
    },
};

addEventListener("DOMContentLoaded", () => {
    hands.atFirst = document.querySelector("#display-text")?.textContent;
});
addEventListener("error", (event) => hands.errors.push(event.message));
addEventListener("unhandledrejection", (event) => hands.errors.push(String(event.reason)));

const startSound = AudioBufferSourceNode.prototype.start;
AudioBufferSourceNode.prototype.start = function(...parts) {
    hands.played.push(Math.round(1000 * this.buffer.duration));
    return startSound.apply(this, parts);
};

hands.started = new Promise((resolve) => {
    window.Worker = class extends Worker {
        constructor(...parts) {
            super(...parts);
            hands.worker = this;
            this.addEventListener("message", ({data}) => {
                if (data.type === "done") {
                    hands.requests.get(data.id)?.(data.value ?? "");
                } else if (data.type === "state") {
                    setTimeout(resolve);  // after the page has shown it
                } else if (data.type === "kept") {
                    hands.kept = data.text;
                } else if (data.type === "picture") {
                    hands.picture = data;
                }
            });
        }
    };
});
