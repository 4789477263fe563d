// engine.js - the page's side of the calculator. engine.d.ts describes all of it.

/** @typedef {import("./engine").EngineHandlers} EngineHandlers */
/** @typedef {import("./engine").ChosenFile} ChosenFile */
/** @typedef {import("./engine").Options} Options */
/** @typedef {import("./engine").GraphSettings} GraphSettings */
/** @typedef {import("./engine").LineFormat} LineFormat */
/** @typedef {import("./engine").LinePoints} LinePoints */

/** @param {boolean} value */
const bit = (value) => (value ? 1 : 0);

/** @param {string} text */
const oneLine = (text) => text.replace(/[\r\n\0]+/g, " ");

/**
 * The last part of a file's name, as the memory of the module keeps it.
 *
 * @param {string} name
 */
function fileName(name) {
    const last = oneLine(name).replace(/^.*[/\\]/, "").replace(/^~+/, "");
    return last || "untitled.txt";
}

/**
 * @param {number} line
 * @param {LineFormat} format
 */
function formatWords(line, format) {
    const {type, colour, width, style, multiplier, offset} = format;
    return [line, type, colour, width, style, multiplier, offset].join(" ");
}

export class Engine {
    /**
     * @param {Worker} worker
     * @param {Promise<WebAssembly.Module | ArrayBuffer>} wasm
     * @param {EngineHandlers} handlers
     */
    constructor(worker, wasm, handlers) {
        this.worker = worker;
        this.handlers = handlers;
        /** @type {Map<string, ((event: any) => void)[]>} */
        this.listeners = new Map();
        /** @type {Map<number, (done: any) => void>} */
        this.waiting = new Map();
        this.lastId = 0;
        worker.onmessage = (message) => this.receive(message.data);
        worker.onerror = (error) => this.receive({type: "failed", text: error.message});
        wasm.then((module) => worker.postMessage({type: "start", wasm: module}))
            .catch((error) => this.receive({type: "failed", text: String(error)}));
    }

    /**
     * @param {string} name
     * @param {(event: any) => void} handler
     */
    on(name, handler) {
        this.listeners.set(name, [...(this.listeners.get(name) ?? []), handler]);
    }

    /** @param {any} event */
    receive(event) {
        const {type, ...fields} = event;
        if (type === "done") {
            this.waiting.get(event.id)?.(event);
            this.waiting.delete(event.id);
        } else if (type === "ask") {
            this.reply(this.handlers.ask(fields));
        } else if (type === "askFile") {
            this.replyFile(this.handlers.askFile(fields));
        } else {
            for (const handler of this.listeners.get(type) ?? []) {
                handler(fields);
            }
            if (type === "failed") {
                this.giveUp();
            }
        }
    }

    /** @param {Promise<string>} answer */
    async reply(answer) {
        const text = await answer.catch(() => "cancel");
        this.worker.postMessage({type: "reply", text});
    }

    /** @param {Promise<ChosenFile | null>} chosen */
    async replyFile(chosen) {
        const file = await chosen.catch(() => null);
        const name = file ? fileName(file.name) : "";
        this.worker.postMessage({
            type: "reply",
            text: name,
            file: file?.bytes && {name, bytes: file.bytes},
        });
    }

    /** Nothing more comes from the worker. */
    giveUp() {
        for (const resolve of this.waiting.values()) {
            resolve({ok: false});
        }
        this.waiting.clear();
    }

    /**
     * Without an answer.
     *
     * @param {string} words
     */
    tell(words) {
        this.worker.postMessage({type: "request", text: `0 ${words}`});
    }

    /**
     * @param {string} words
     * @param {string} body
     * @param {ChosenFile} [file]
     * @returns {Promise<{ ok: boolean, value?: any }>}
     */
    request(words, body = "", file) {
        const id = ++this.lastId;
        this.worker.postMessage({
            type: "request",
            text: `${id} ${words}\n${body}`,
            file: file?.bytes && {name: body, bytes: file.bytes},
        });
        return new Promise((resolve) => this.waiting.set(id, resolve));
    }

    /**
     * @param {string} words
     * @param {string} [body]
     */
    async succeeds(words, body) {
        return (await this.request(words, body)).ok;
    }

    /**
     * @param {string} words
     * @param {ChosenFile} file
     */
    async opens(words, file) {
        return (await this.request(words, fileName(file.name), file)).ok;
    }

    /**
     * @param {string} words
     * @param {any} otherwise
     */
    async valueOf(words, otherwise) {
        return (await this.request(words)).value ?? otherwise;
    }

    // --- keys

    /**
     * @param {number} code
     * @param {boolean} down
     */
    key(code, down) {
        this.tell(`key ${code} ${bit(down)}`);
    }

    /** @param {string} character */
    char(character) {
        const code = character.charCodeAt(0);
        this.tell(`char ${code < 128 ? code : 127}`);
    }

    halt() {
        this.tell("halt");
    }

    // --- program

    /** @param {"new" | "open" | "save" | "saveAs" | "repairHighlight"} name */
    command(name) {
        return this.succeeds(name === "repairHighlight" ? "repair" : name);
    }

    /** @param {Options} options */
    setOptions({keepListing, keepRegisters, trace, soundOff}) {
        const words = [keepListing, keepRegisters, trace, soundOff].map(bit).join(" ");
        return this.succeeds(`options ${words}`);
    }

    /** @param {ChosenFile} file */
    open(file) {
        return this.opens("openFile", file);
    }

    /** @returns {Promise<string>} */
    listingText() {
        return this.valueOf("listing", "");
    }

    /** @param {string} words */
    perform(words) {
        return this.succeeds("perform", words);
    }

    /** @param {string} kept */
    restore(kept) {
        return this.succeeds("restore", kept);
    }

    // --- graph

    /**
     * @param {number} width
     * @param {number} height
     */
    view(width, height) {
        this.tell(`view ${Math.round(width)} ${Math.round(height)}`);
    }

    /** @param {boolean} shown */
    showGraph(shown) {
        this.tell(`showGraph ${bit(shown)}`);
    }

    /**
     * @param {number} left
     * @param {number} top
     */
    readout(left, top) {
        const place = [left, top].map((at) => Math.max(0, Math.round(at))).join(" ");
        return this.valueOf(`readout ${place}`, null);
    }

    /**
     * @param {number} width
     * @param {number} height
     * @returns {Promise<string>}
     */
    graphSvg(width, height) {
        return this.valueOf(`graphSvg ${Math.round(width)} ${Math.round(height)}`, "");
    }

    /** @param {ChosenFile} file */
    openGraph(file) {
        return this.opens("openGraph", file);
    }

    /** @param {ChosenFile} file */
    appendGraph(file) {
        return this.opens("appendGraph", file);
    }

    /** @param {string} name */
    saveGraph(name) {
        return this.succeeds("saveGraph", fileName(name));
    }

    /** @param {GraphSettings} settings */
    setGraph(settings) {
        const {xTicks, yTicks, xMin, xMax, yMin, yMax, xGrid, yGrid, legend} = settings;
        const {axisColour, textColour, background} = settings;
        const words = [
            xTicks, yTicks, xMin, xMax, yMin, yMax, bit(xGrid), bit(yGrid), bit(legend), axisColour,
            textColour, background
        ].join(" ");
        return this.succeeds(
            `setGraph ${words}`, `${oneLine(settings.title)}\n${oneLine(settings.label)}`);
    }

    /**
     * @param {string} title
     * @param {string} label
     */
    setGraphTitle(title, label) {
        return this.succeeds("graphTitle", `${oneLine(title)}\n${oneLine(label)}`);
    }

    /**
     * @param {boolean} x
     * @param {boolean} y
     */
    setGraphGrid(x, y) {
        return this.succeeds(`graphGrid ${bit(x)} ${bit(y)}`);
    }

    /** @param {boolean} legend */
    setGraphLegend(legend) {
        return this.succeeds(`graphLegend ${bit(legend)}`);
    }

    autoRange() {
        return this.succeeds("autoRange");
    }

    clearGraph() {
        return this.succeeds("clearGraph");
    }

    /**
     * @param {number} line
     * @param {LineFormat} format
     */
    formatLine(line, format) {
        return this.succeeds(`formatLine ${formatWords(line, format)}`, oneLine(format.label));
    }

    /** @param {number} line */
    deleteLine(line) {
        return this.succeeds(`deleteLine ${line}`);
    }

    /**
     * @param {number} line
     * @returns {Promise<LinePoints | null>}
     */
    linePoints(line) {
        return this.valueOf(`linePoints ${line}`, null);
    }

    /**
     * @param {LinePoints} points
     * @param {LineFormat} format
     */
    addLine({text, withX}, format) {
        return this.succeeds(
            `addLine ${formatWords(bit(withX), format)}`, `${oneLine(format.label)}\n${text}`);
    }

    /**
     * @param {number} line
     * @param {LinePoints} points
     */
    replacePoints(line, {text, withX}) {
        return this.succeeds(`replacePoints ${line} ${bit(withX)}`, text);
    }

    close() {
        this.giveUp();
        this.worker.terminate();
    }
}
