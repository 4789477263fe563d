// display.js - the lines of the display: numbers as glowing segments, words as text.

/** @typedef {import("../engine").DisplayLine} DisplayLine */

const LEFT = 44;  // of the canvas on the face, as in page.css
const TOP = 36;
const WIDTH = 218;
const HEIGHT = 58;

const LIT = "#ff3b30";
const UNLIT = "rgb(255 40 30 / 7%)";
const GLOW = "rgb(255 40 20 / 80%)";

/** Size of a character's cell, in pixels of the face; digits of a large line are higher. */
const CELLS = {
    large: {width: 10, height: 16},
    small: {width: 6, height: 11}
};
const DIGITS = {
    large: {width: 10.4, height: 20},
    small: {width: 6, height: 10}
};

/**
 * Segments of a character: a top, b and c right, d bottom, e and f left, g middle,
 * v the upright of a plus.
 *
 * @type {Record<string, string>}
 */
const SEGMENTS = {
    "0": "abcdef",
    "1": "bc",
    "2": "abged",
    "3": "abgcd",
    "4": "fgbc",
    "5": "afgcd",
    "6": "afgedc",
    "7": "abc",
    "8": "abcdefg",
    "9": "abcdfg",
    "-": "g",
    "+": "gv",
    "e": "adefg",
    " ": "",
};

/**
 * Ends of the segments in a cell of 1 by 1.
 *
 * @type {Record<string, number[]>}
 */
const PLACES = {
    a: [0.2, 0.06, 0.86, 0.06],
    b: [0.89, 0.1, 0.85, 0.46],
    c: [0.84, 0.54, 0.8, 0.9],
    d: [0.11, 0.94, 0.77, 0.94],
    e: [0.12, 0.54, 0.08, 0.9],
    f: [0.17, 0.1, 0.13, 0.46],
    g: [0.16, 0.5, 0.81, 0.5],
    v: [0.5, 0.3, 0.46, 0.7],
};

/** A line's words before its number, as of the stack, and its number. */
const NUMBER = /^([XYZT] {2})?([ +-]?\d[\d.]*(?:e[+-]\d+)?)( *)$/;

/**
 * What the calculator shows when it starts.
 *
 * @type {DisplayLine[]}
 */
export const FIRST_DISPLAY = [
    {text: " 0.00", font: "large", left: 59, top: 66},
    {text: "deg", font: "small", left: 234, top: 40},
    {text: "LastOp:", font: "small", left: 50, top: 42},
];

/** @param {DisplayLine[]} lines */
export function spokenDisplay(lines) {
    return lines.map((line) => line.text.trim()).filter(Boolean).join("; ");
}

export class Display {
    /** @param {HTMLCanvasElement} canvas */
    constructor(canvas) {
        this.canvas = canvas;
        this.context = /** @type {CanvasRenderingContext2D} */ (canvas.getContext("2d"));
        /** @type {DisplayLine[]} */
        this.lines = [];
        this.scale = 1;
    }

    /** @param {DisplayLine[]} lines */
    setLines(lines) {
        this.lines = lines;
        this.draw();
    }

    /** @param {number} scale pixels of the screen per pixel of the face */
    setScale(scale) {
        this.scale = scale;
        this.canvas.width = Math.round(WIDTH * scale);
        this.canvas.height = Math.round(HEIGHT * scale);
        this.draw();
    }

    draw() {
        const {context, scale} = this;
        context.setTransform(scale, 0, 0, scale, -LEFT * scale, -TOP * scale);
        context.clearRect(LEFT, TOP, WIDTH, HEIGHT);
        context.shadowColor = GLOW;
        for (const line of this.lines) {
            this.drawLine(line);
        }
    }

    /** @param {DisplayLine} line */
    drawLine({text, font, left, top}) {
        const cell = CELLS[font];
        const number = NUMBER.exec(text);
        const word = number ? number[1] ?? "" : text;
        this.drawWord(word, font, left, top);
        if (!number) {
            return;
        }
        const digit = DIGITS[font];
        let at = left + word.length * cell.width;
        for (const character of number[2]) {
            if (character === ".") {
                this.drawPoint(at, top, font);
            } else {
                this.drawDigit(character, at, top, font);
            }
            at += digit.width * (character === "." ? 0.5 : 1);
        }
    }

    /**
     * @param {string} word
     * @param {"large" | "small"} font
     * @param {number} left
     * @param {number} top
     */
    drawWord(word, font, left, top) {
        const {context} = this;
        const cell = CELLS[font];
        context.font = `${font === "large" ? "bold " : ""}${cell.width / 0.602}px ` +
            `"Liberation Mono", "DejaVu Sans Mono", ui-monospace, Menlo, Consolas, monospace`;
        context.textBaseline = "middle";
        context.fillStyle = LIT;
        context.shadowBlur = this.scale * (font === "large" ? 4 : 2);
        context.fillText(word.trimEnd(), left, top + cell.height / 2 + 0.5);
    }

    /**
     * @param {number} left
     * @param {number} top
     * @param {"large" | "small"} font
     */
    drawPoint(left, top, font) {
        const {context} = this;
        const {width, height} = DIGITS[font];
        context.fillStyle = LIT;
        context.shadowBlur = this.scale * 3;
        context.beginPath();
        context.arc(left + width * 0.17, top + height * 0.9, width * 0.11, 0, 2 * Math.PI);
        context.fill();
    }

    /**
     * @param {string} character
     * @param {number} left
     * @param {number} top
     * @param {"large" | "small"} font
     */
    drawDigit(character, left, top, font) {
        const {context} = this;
        const {width, height} = DIGITS[font];
        const lit = SEGMENTS[character] ?? "";
        const thin = font === "small";
        context.lineWidth = width * (thin ? 0.14 : 0.16);
        context.lineCap = "round";
        for (const [name, [x1, y1, x2, y2]] of Object.entries(PLACES)) {
            const on = lit.includes(name);
            if (!on && (thin || name === "v" || character === " ")) {
                continue;
            }
            context.strokeStyle = on ? LIT : UNLIT;
            context.shadowBlur = on ? this.scale * (thin ? 2 : 4) : 0;
            const wide = width * 0.86;
            const high = height;
            context.beginPath();
            context.moveTo(left + x1 * wide, top + 0.5 + y1 * high);
            context.lineTo(left + x2 * wide, top + 0.5 + y2 * high);
            context.stroke();
        }
    }
}
