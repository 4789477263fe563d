// graph_dialogs.js - the dialogs of the graph: plot, line, points.

import {dialogNamed, showDialog, tell} from "./dialogs.js";
import {colourText} from "./plot_painter.js";

/** @typedef {import("../engine").Engine} Engine */
/** @typedef {import("../engine").GraphLine} GraphLine */
/** @typedef {import("../engine").GraphSettings} GraphSettings */

/** @param {string} id */
function fieldsOf(id) {
    const form = /** @type {HTMLFormElement} */ (dialogNamed(id).querySelector("form"));
    return /** @type {Record<string, any>} */ (form.elements);
}

/** @param {string} text "#rrggbb" */
function colourNumber(text) {
    return parseInt(text.slice(1), 16);
}

const PLOT_TEXTS = ["title", "label"];
const PLOT_NUMBERS = ["xTicks", "xMin", "xMax", "yTicks", "yMin", "yMax"];
const PLOT_CHECKS = ["xGrid", "yGrid", "legend"];
const PLOT_COLOURS = ["textColour", "axisColour", "background"];

/**
 * @param {Engine} engine
 * @param {GraphSettings} settings
 */
export async function askPlot(engine, settings) {
    const fields = fieldsOf("plot");
    const known = /** @type {Record<string, any>} */ (settings);
    for (const name of [...PLOT_TEXTS, ...PLOT_NUMBERS]) {
        fields[name].value = known[name];
    }
    for (const name of PLOT_CHECKS) {
        fields[name].checked = known[name];
    }
    for (const name of PLOT_COLOURS) {
        fields[name].value = colourText(known[name]);
    }
    if ((await showDialog("plot")) !== "ok") {
        return;
    }
    /** @type {Record<string, any>} */
    const chosen = {};
    PLOT_TEXTS.forEach((name) => (chosen[name] = fields[name].value));
    PLOT_NUMBERS.forEach((name) => (chosen[name] = Number(fields[name].value)));
    PLOT_CHECKS.forEach((name) => (chosen[name] = fields[name].checked));
    PLOT_COLOURS.forEach((name) => (chosen[name] = colourNumber(fields[name].value)));
    await engine.setGraph(/** @type {GraphSettings} */ (chosen));
}

const LINE_STYLES = ["solid", "dash", "dot", "dash-dot", "dash-dot-dot"];
const MARKERS = ["triangle", "square", "diamond", "vert line", "horz line"];
const SCATTER = "2";
const LINE_NUMBERS = ["type", "width", "style", "multiplier", "offset"];

/**
 * Chooses a line, shows what it is, and reformats or deletes it.
 *
 * @param {Engine} engine
 * @param {GraphLine[]} lines
 * @param {boolean} [deletes]
 */
export async function askLine(engine, lines, deletes = false) {
    if (lines.length === 0) {
        await tell("The graph has no data lines.");
        return;
    }
    const fields = fieldsOf("line");
    dialogNamed("line").classList.toggle("deletes", deletes);
    /** @type {HTMLElement} */ (dialogNamed("line").querySelector("h2")).textContent =
        deletes ? "Delete Line" : "Reformat Line";
    const show = () => {
        const line = /** @type {Record<string, any>} */ (lines[Number(fields["line"].value) - 1]);
        for (const name of ["label", ...LINE_NUMBERS]) {
            fields[name].value = String(line[name]);
        }
        nameStyles(fields);
        fields["colour"].value = colourText(line["colour"]);
    };
    setChoices(fields["line"], lines);
    fields["line"].onchange = show;
    fields["type"].onchange = () => nameStyles(fields);
    show();
    if ((await showDialog("line")) !== "ok") {
        return;
    }
    const line = Number(fields["line"].value);
    await (deletes ? engine.deleteLine(line) : engine.formatLine(line, formatOf(fields)));
}

/**
 * A style is a marker where only the points are drawn.
 *
 * @param {Record<string, any>} fields
 */
function nameStyles(fields) {
    const names = fields["type"].value === SCATTER ? MARKERS : LINE_STYLES;
    for (const option of fields["style"].options) {
        option.textContent = names[option.value];
    }
}

/** @param {Record<string, any>} fields */
function formatOf(fields) {
    const [type, width, style, multiplier, offset] =
        LINE_NUMBERS.map((name) => Number(fields[name].value));
    return {
        label: fields["label"].value,
        colour: colourNumber(fields["colour"].value),
        type,
        width,
        style,
        multiplier,
        offset
    };
}

/**
 * @param {HTMLSelectElement} select
 * @param {GraphLine[]} lines
 */
function setChoices(select, lines) {
    select.replaceChildren(...lines.map((line, at) => {
        const option = document.createElement("option");
        option.value = String(at + 1);
        option.textContent = `${at + 1} ${line.label}`;
        return option;
    }));
}

/**
 * @param {Engine} engine
 * @param {GraphLine[]} lines
 */
export async function askPoints(engine, lines) {
    if (lines.length === 0) {
        await tell("The graph has no data lines.");
        return;
    }
    const fields = fieldsOf("points");
    let withX = false;
    const show = async () => {
        const points = await engine.linePoints(Number(fields["line"].value));
        fields["text"].value = points?.text ?? "";
        withX = points?.withX ?? false;
    };
    showPointsDialog("Edit Data Set", true);
    setChoices(fields["line"], lines);
    fields["line"].onchange = show;
    await show();
    if ((await showDialog("points")) === "ok") {
        await engine.replacePoints(
            Number(fields["line"].value), {text: fields["text"].value, withX});
    }
}

/**
 * @param {string} caption
 * @param {boolean} choosesLine
 */
function showPointsDialog(caption, choosesLine) {
    const dialog = dialogNamed("points");
    /** @type {HTMLElement} */ (dialog.querySelector("h2")).textContent = caption;
    /** @type {HTMLElement} */ (dialog.querySelector(".which")).hidden = !choosesLine;
}

/**
 * @param {Engine} engine
 * @param {boolean} withX
 */
export async function askNewPoints(engine, withX) {
    const fields = fieldsOf("points");
    showPointsDialog(
        withX ? "Enter one point on each line, as x,y:" : "Enter one y value on each line:", false);
    fields["text"].value = "";
    if ((await showDialog("points")) !== "ok") {
        return;
    }
    await engine.addLine({text: fields["text"].value, withX}, {
        label: "manually added",
        type: 0,
        colour: 0,
        width: 1,
        style: 0,
        multiplier: 1,
        offset: 0
    });
}
