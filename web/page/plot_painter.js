// plot_painter.js - draws a picture of the graph, as the engine sends it, on a canvas.
// Its lines are in the middle of pixels, as in the SVG files of the graph.

/** @typedef {import("../engine").GraphPicture} GraphPicture */

/** Pixels drawn and left out, in turn, by the style of a line of width 1. */
const DASHES = [[], [18, 6], [3, 3], [9, 6, 3, 6], [9, 3, 3, 3, 3, 3]];

const FONT = "14px \"Liberation Sans\", Arial, Helvetica, sans-serif";
const ASCENT = 13;  // from the top of a line of text to its base line

/** @type {CanvasTextAlign[]} */
const ALIGNMENTS = ["left", "center", "right"];

/** @param {number} colour 0xRRGGBB */
export function colourText(colour) {
    return `#${colour.toString(16).padStart(6, "0")}`;
}

class Painter {
    /**
     * @param {CanvasRenderingContext2D} context
     * @param {GraphPicture} picture
     */
    constructor(context, {operations, texts}) {
        this.context = context;
        this.numbers = operations;
        this.texts = texts;
        this.at = 0;
    }

    next() {
        return this.numbers[this.at++];
    }

    paint() {
        const operations = [
            () => {}, () => this.box(), () => this.line(), () => this.polygon(), () => this.text(),
            () => this.clip(), () => this.context.restore()
        ];
        while (this.at < this.numbers.length) {
            operations[this.next()]();
        }
    }

    rect() {
        const [left, top, right, bottom] = this.numbers.subarray(this.at, this.at + 4);
        this.at += 4;
        return /** @type {const} */ ([left, top, right - left, bottom - top]);
    }

    box() {
        const rect = this.rect();
        this.context.fillStyle = colourText(this.next());
        this.context.fillRect(...rect);
    }

    /** A line along an axis covers whole pixels and ends before its last one. */
    line() {
        const {context} = this;
        const style = this.next();
        const width = this.next();
        context.strokeStyle = colourText(this.next());
        context.lineWidth = width;
        context.lineJoin = width > 1 ? "round" : "miter";
        context.setLineDash(width > 1 ? [] : DASHES[style] ?? []);
        const count = this.next();
        const points = this.numbers.subarray(this.at, this.at + 2 * count);
        this.at += 2 * count;
        context.beginPath();
        const [x1, y1, x2, y2] = points;
        if (count === 2 && y1 === y2 && x1 < x2) {
            context.moveTo(x1, y1 + 0.5);
            context.lineTo(x2, y2 + 0.5);
        } else if (count === 2 && x1 === x2 && y1 < y2) {
            context.moveTo(x1 + 0.5, y1);
            context.lineTo(x2 + 0.5, y2);
        } else {
            this.path(points);
        }
        context.stroke();
    }

    /** @param {Int32Array} points */
    path(points) {
        for (let at = 0; at < points.length; at += 2) {
            this.context.lineTo(points[at] + 0.5, points[at + 1] + 0.5);
        }
    }

    polygon() {
        const {context} = this;
        context.fillStyle = context.strokeStyle = colourText(this.next());
        const count = this.next();
        context.lineWidth = 1;
        context.lineJoin = "round";
        context.setLineDash([]);
        context.beginPath();
        this.path(this.numbers.subarray(this.at, this.at + 2 * count));
        this.at += 2 * count;
        context.closePath();
        context.fill();
        context.stroke();
    }

    text() {
        const {context} = this;
        const x = this.next();
        const y = this.next();
        context.font = FONT;
        context.textBaseline = "alphabetic";
        context.textAlign = ALIGNMENTS[this.next()];
        context.fillStyle = colourText(this.next());
        context.fillText(this.texts[this.next()], x, y + ASCENT);
    }

    clip() {
        const rect = this.rect();
        this.context.save();
        this.context.beginPath();
        this.context.rect(...rect);
        this.context.clip();
    }
}

/**
 * Makes the canvas as large as the picture and draws it.
 *
 * @param {HTMLCanvasElement} canvas
 * @param {GraphPicture} picture
 * @param {number} scale pixels of the canvas per pixel of the picture
 */
export function paintPicture(canvas, picture, scale) {
    canvas.width = Math.round(picture.width * scale);
    canvas.height = Math.round(picture.height * scale);
    const context = /** @type {CanvasRenderingContext2D} */ (canvas.getContext("2d"));
    context.setTransform(scale, 0, 0, scale, 0, 0);
    new Painter(context, picture).paint();
}
