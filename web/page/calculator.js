// calculator.js - the commands of the page, and what the calculator says to it.

import {Engine} from "../engine.js";
import {assetBytes, assetWorker} from "./assets.js";
import {
    askFileName,
    askOptions,
    askQuestion,
    askShared,
    chooseExample,
    showDialog,
    showLink,
    tell
} from "./dialogs.js";
import {Display, FIRST_DISPLAY, spokenDisplay} from "./display.js";
import {Face} from "./face.js";
import {acceptDrops, chooseFile, saveFile} from "./files.js";
import {GraphPane} from "./graph.js";
import {Keyboard} from "./keyboard.js";
import {
    hasProgram,
    linkOf,
    listingBytes,
    programOfLink,
    storedDisplay,
    storedState,
    storeState
} from "./kept.js";
import {Menus} from "./menus.js";
import {LinePane, TracePane} from "./panes.js";
import {Sounds} from "./sounds.js";

/** @typedef {import("../engine").DisplayLine} DisplayLine */
/** @typedef {import("../engine").State} State */
/** @typedef {import("../engine").ChosenFile} ChosenFile */

/**
 * @template {Element} T
 * @param {string} selector
 * @returns {T}
 */
function find(selector) {
    return /** @type {T} */ (document.querySelector(selector));
}

export class Calculator {
    constructor() {
        /** @type {Engine | null} */
        this.engine = null;
        /** @type {State} */
        this.state = {};
        this.shows = false;  // what the calculator says; until then what it will say
        this.face = new Face(find("main .face"), (code, down) => this.engine?.key(code, down));
        this.display = new Display(find(".display"));
        this.sounds = new Sounds();
        this.menus = new Menus(find(".bar"), (command) => this.perform(command));
        this.listing = new LinePane(find(".pane.listing"));
        this.registers = new LinePane(find(".pane.registers"));
        this.trace = new TracePane(find(".pane.trace"));
        this.face.onLayout = () => this.display.setScale(this.face.unit * devicePixelRatio);
        this.face.onLayout();
        this.showDisplay(storedDisplay() ?? FIRST_DISPLAY);
    }

    async start() {
        // Keys that come before the module has started wait in the worker.
        const engine = new Engine(assetWorker(), assetBytes("vorstek.wasm"), {
            ask: askQuestion,
            askFile: ({dialog, name}) => this.askFile(dialog, name),
        });
        this.engine = engine;
        this.graph = new GraphPane(find(".pane.graph"), engine);
        this.keyboard = new Keyboard(engine, this.face, (command) => this.perform(command));
        engine.on("sound", (sound) => this.sounds.play(sound.name));
        engine.on("trace", ({text}) => this.trace.add(text));
        engine.on("saved", ({name, bytes}) => saveFile(name, bytes, "text/plain"));
        engine.on("failed", ({text}) => this.fail(text));
        engine.on("state", (state) => this.onState(state));
        engine.on("kept", ({text}) => storeState(text, this.state));
        acceptDrops((file, target) => this.openDropped(file, target), tell);
        addEventListener("hashchange", () => this.openLink());
        const stored = storedState();
        if (stored) {
            await engine.restore(stored);
        }
        this.shows = true;
        this.onState(this.state);
        await this.openLink();
    }

    /** @param {string} text */
    async fail(text) {
        await tell(`The calculator has stopped: ${text}\nThe page starts it again.`);
        location.reload();
    }

    // --- what the calculator shows

    /** @param {DisplayLine[]} lines */
    showDisplay(lines) {
        this.display.setLines(lines);
        find("#display-text").textContent = spokenDisplay(lines);
    }

    /** @param {State} state */
    onState(state) {
        Object.assign(this.state, state);
        if (!this.shows) {
            return;
        }
        const {display, lamps, modes, listing, registers, options, disabled, file} = state;
        if (display) {
            this.showDisplay(display);
        }
        if (lamps) {
            this.face.setLamps(lamps);
        }
        if (modes) {
            this.face.setModes(modes);
        }
        if (listing) {
            this.listing.show(listing);
            this.menus.setChecked("listing", listing.shown);
        }
        if (registers) {
            this.registers.show(registers);
            this.menus.setChecked("registers", registers.shown);
        }
        if (state.graph) {
            this.graph?.setState(state.graph);
            this.menus.setChecked("graph", state.graph.shown);
        }
        if (options) {
            this.trace.setOn(options.trace);
        }
        if (disabled) {
            this.menus.setDisabled(disabled);
        }
        if (file) {
            document.title = `${file.modified ? "*" : ""}${file.name || "Untitled"} - Vorstek`;
            find(".status").textContent = file.status;
        }
        this.layPanes();
        this.keyboard?.onState(modes);
    }

    layPanes() {
        const panes = /** @type {HTMLElement} */ (find(".panes"));
        const shown = panes.querySelectorAll(":scope > .pane:not([hidden])");
        const besideEachOther =
            panes.querySelectorAll(":scope > .pane:not(.graph, [hidden])").length;
        const any = shown.length > 0;
        panes.hidden = !any;
        panes.style.setProperty("--columns", String(Math.max(1, besideEachOther)));
        this.face.setBesidePanes(any);
    }

    // --- files

    /**
     * @param {"open" | "save"} dialog
     * @param {string} name
     * @returns {Promise<ChosenFile | null>}
     */
    async askFile(dialog, name) {
        if (dialog === "save") {
            const chosen = await askFileName(name);
            return chosen ? {name: chosen} : null;
        }
        try {
            return await chooseFile();
        } catch (error) {
            await tell(error instanceof Error ? error.message : String(error));
            return null;
        }
    }

    /**
     * @param {ChosenFile} file
     * @param {Element} target
     */
    openDropped(file, target) {
        if (target.closest(".pane.graph")) {
            this.engine?.openGraph(file);
        } else {
            this.engine?.open(file);
        }
    }

    async openLink() {
        try {
            const {hash} = location;
            // A reload shows what the user did with the program, not the program again.
            if (hasProgram(hash)) {
                history.replaceState(null, "", location.href.replace(/#.*$/s, ""));
            }
            const program = programOfLink(hash);
            if (program && await askShared(program.listing)) {
                const {name, listing} = program;
                await this.engine?.open({name, bytes: listingBytes(listing)});
            }
        } catch (error) {
            await tell(error instanceof Error ? error.message : String(error));
        }
    }

    // --- commands

    /** @param {string} command of a menu or a key */
    perform(command) {
        const engine = this.engine;
        const {options, graph, file} = this.state;
        if (!engine || !options || document.querySelector("dialog[open]")) {
            return;
        }
        /** @type {Record<string, () => any>} */
        const commands = {
            new: () => engine.command("new"),
            open: () => engine.command("open"),
            save: () => engine.command("save"),
            saveAs: () => engine.command("saveAs"),
            repairHighlight: () => engine.command("repairHighlight"),
            examples: () => this.openExample(),
            share: async () => showLink(linkOf(await engine.listingText(), file?.name ?? "")),
            saveTrace: () => saveFile("TRACELOG.TXT", this.trace.text, "text/plain"),
            print: () => this.print(),
            graph: () => engine.showGraph(!graph?.shown),
            listing: () => engine.setOptions({...options, keepListing: !options.keepListing}),
            registers: () => engine.setOptions({...options, keepRegisters: !options.keepRegisters}),
            options: async () => {
                const chosen = await askOptions(options);
                return chosen && engine.setOptions(chosen);
            },
            card: () => showDialog("card"),
            about: () => showDialog("about"),
        };
        commands[command]?.();
    }

    async openExample() {
        const bytes = await assetBytes("examples.json");
        /** @type {{ name: string, title: string, text: string }[]} */
        const examples = JSON.parse(new TextDecoder().decode(bytes));
        const name = await chooseExample(examples);
        const example = examples.find((one) => one.name === name);
        if (example) {
            await this.engine?.open({name, bytes: listingBytes(example.text)});
        }
    }

    async print() {
        find("#printed").textContent = (await this.engine?.listingText()) ?? "";
        print();
    }
}
