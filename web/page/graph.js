// graph.js - the graph beside the face: its picture, the readout of points, its files.

import {askLine, askNewPoints, askPlot, askPoints} from "./graph_dialogs.js";
import {askFileName, tell} from "./dialogs.js";
import {chooseFile, saveFile} from "./files.js";
import {Menus} from "./menus.js";
import {paintPicture} from "./plot_painter.js";

/** @typedef {import("../engine").Engine} Engine */
/** @typedef {import("../engine").GraphPicture} GraphPicture */
/** @typedef {import("../engine").GraphState} GraphState */
/** @typedef {import("../engine").Readout} Readout */

const PNG_SCALE = 2;
const STEP = 8;  // pixels that an arrow key moves the readout

const ARROWS = new Map([
    ["ArrowLeft", [-STEP, 0]], ["ArrowRight", [STEP, 0]], ["ArrowUp", [0, -STEP]],
    ["ArrowDown", [0, STEP]]
]);

/**
 * Six significant digits as "%.6g" has them: 0.25, 1e+06, -1.5e-05.
 *
 * @param {import("../engine").Value} value
 */
export function valueText(value) {
    if (typeof value === "string") {
        return value;
    }
    const [digits, exponent] = value.toExponential(5).split("e");
    const power = Number(exponent);
    if (power >= -4 && power < 6) {
        return String(Number(value.toPrecision(6)));
    }
    const high = String(Math.abs(power)).padStart(2, "0");
    return `${Number(digits)}e${power < 0 ? "-" : "+"}${high}`;
}

export class GraphPane {
    /**
     * @param {HTMLElement} element
     * @param {Engine} engine
     */
    constructor(element, engine) {
        this.element = element;
        this.engine = engine;
        this.canvas = /** @type {HTMLCanvasElement} */ (element.querySelector("canvas"));
        this.mark = /** @type {HTMLElement} */ (element.querySelector(".mark"));
        this.text = /** @type {HTMLElement} */ (element.querySelector(".readout"));
        this.frame = /** @type {HTMLElement} */ (element.querySelector(".frame"));
        this.menus = new Menus(element, (command) => this.perform(command));
        /** @type {GraphPicture | null} */
        this.picture = null;
        /** @type {GraphState | null} */
        this.state = null;
        this.at = {x: -1, y: -1};  // of the readout; outside while there is none
        this.asks = false;
        this.asked = "";  // size of the picture
        engine.on("picture", (picture) => this.show(picture));
        new ResizeObserver(() => this.fit()).observe(this.frame);
        this.listen();
    }

    /** @param {GraphState} state */
    setState(state) {
        const {shown, settings, userRange, points, lines} = state;
        this.state = state;
        this.element.hidden = !shown;
        this.menus.setChecked("autoRange", !userRange);
        this.menus.setChecked("legend", settings.legend);
        this.menus.setChecked("grid", settings.xGrid || settings.yGrid);
        const name = settings.title || "Graph";
        this.canvas.setAttribute("aria-label",
            `${name}: ${lines.length} data lines, ${points} points. The arrow keys read points.`);
        this.fit();
    }

    // --- the picture

    fit() {
        const {clientWidth, clientHeight} = this.frame;
        const shown = !this.element.hidden;
        const size = shown ? `${clientWidth} ${clientHeight}` : "0 0";
        if (size !== this.asked) {
            this.asked = size;
            this.engine.view(shown ? clientWidth : 0, shown ? clientHeight : 0);
        }
    }

    /** @param {GraphPicture} picture */
    show(picture) {
        this.picture = picture;
        this.endReadout();
        if (picture.width > 0 && picture.height > 0) {
            paintPicture(this.canvas, picture, devicePixelRatio);
            this.canvas.style.width = `${picture.width}px`;
            this.canvas.style.height = `${picture.height}px`;
        }
    }

    // --- readout

    listen() {
        const {canvas} = this;
        canvas.addEventListener("pointerdown", (event) => {
            if (event.isTrusted) {
                canvas.setPointerCapture(event.pointerId);
            }
            this.readAt(event.offsetX, event.offsetY);
        });
        canvas.addEventListener("pointermove", (event) => {
            if (event.buttons > 0) {
                this.readAt(event.offsetX, event.offsetY);
            }
        });
        for (const name of ["pointerup", "pointercancel", "blur"]) {
            canvas.addEventListener(name, () => this.endReadout());
        }
        canvas.addEventListener("keydown", (event) => {
            const way = ARROWS.get(event.key);
            if (way && this.picture) {
                event.preventDefault();
                const {width, height} = this.picture;
                const from = this.at.x < 0 ? {x: width / 2, y: height / 2} : this.at;
                this.readAt(Math.min(width - 1, Math.max(0, from.x + way[0])),
                    Math.min(height - 1, Math.max(0, from.y + way[1])));
            }
        });
    }

    /**
     * @param {number} x
     * @param {number} y
     */
    async readAt(x, y) {
        this.at = {x, y};
        if (this.asks) {
            return;
        }
        this.asks = true;
        const readout = await this.engine.readout(x, y);
        this.asks = false;
        if (this.at.x >= 0) {
            this.showReadout(readout);
            if (this.at.x !== x || this.at.y !== y) {
                this.readAt(this.at.x, this.at.y);
            }
        }
    }

    /** @param {Readout | null} readout */
    showReadout(readout) {
        this.mark.hidden = !readout;
        if (readout) {
            this.mark.style.left = `${readout.left}px`;
            this.mark.style.top = `${readout.top}px`;
            this.text.textContent =
                `${readout.label} x,y = ${valueText(readout.x)}, ${valueText(readout.y)}`.trim();
        } else {
            this.text.textContent = "";
        }
    }

    endReadout() {
        this.at = {x: -1, y: -1};
        this.showReadout(null);
    }

    // --- commands

    /** @param {string} command */
    async perform(command) {
        const {engine, state} = this;
        if (!state) {
            return;
        }
        const {settings} = state;
        const grid = !(settings.xGrid || settings.yGrid);
        /** @type {Record<string, () => any>} */
        const commands = {
            newGraph: () => engine.clearGraph(),
            openGraph: async () => this.withFile((file) => engine.openGraph(file)),
            appendGraph: async () => this.withFile((file) => engine.appendGraph(file)),
            saveGraph: async () => this.withName("graph.txt", (name) => engine.saveGraph(name)),
            saveSvg: async () => this.withName("graph.svg", (name) => this.saveSvg(name)),
            savePng: async () => this.withName("graph.png", (name) => this.savePng(name)),
            printGraph: () => this.print(),
            enterY: () => askNewPoints(engine, false),
            enterXY: () => askNewPoints(engine, true),
            reformatPlot: () => askPlot(engine, settings),
            reformatLine: () => askLine(engine, state.lines),
            editPoints: () => askPoints(engine, state.lines),
            deleteLine: () => askLine(engine, state.lines, true),
            autoRange: () => engine.autoRange(),
            legend: () => engine.setGraphLegend(!settings.legend),
            grid: () => engine.setGraphGrid(grid, grid),
            closeGraph: () => engine.showGraph(false),
        };
        try {
            await commands[command]?.();
        } catch (error) {
            await tell(error instanceof Error ? error.message : String(error));
        }
    }

    /** @param {(file: import("../engine").ChosenFile) => any} use */
    async withFile(use) {
        const file = await chooseFile();
        return file && use(file);
    }

    /**
     * @param {string} proposed
     * @param {(name: string) => any} use
     */
    async withName(proposed, use) {
        const name = await askFileName(proposed);
        return name && use(name);
    }

    size() {
        const {width = 640, height = 480} = this.picture ?? {};
        return {width, height};
    }

    /** @param {string} name */
    async saveSvg(name) {
        const {width, height} = this.size();
        saveFile(name, await this.engine.graphSvg(width, height), "image/svg+xml");
    }

    drawn() {
        const canvas = document.createElement("canvas");
        if (this.picture) {
            paintPicture(canvas, this.picture, PNG_SCALE);
        }
        return canvas;
    }

    /** @param {string} name */
    savePng(name) {
        this.drawn().toBlob((blob) => {
            if (blob) {
                saveFile(name, blob, "image/png");
            }
        });
    }

    print() {
        document.getElementById("printed")?.replaceChildren(this.drawn());
        print();
    }
}
