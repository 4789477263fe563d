// dialogs.js - the boxes of the page. The engine's questions have the system's texts.

/** @typedef {import("../engine").Question} Question */
/** @typedef {import("../engine").Answer} Answer */
/** @typedef {import("../engine").Options} Options */

/** Buttons of a question, the default one first; the last one is Escape's. */
const BUTTONS = {
    ok: [["ok", "OK"]],
    okCancel: [["ok", "OK"], ["cancel", "Cancel"]],
    yesNoCancel: [["yes", "Yes"], ["no", "No"], ["cancel", "Cancel"]],
    retryCancel: [["retry", "Retry"], ["cancel", "Cancel"]],
};

/**
 * @param {string} id
 * @returns {HTMLDialogElement}
 */
export function dialogNamed(id) {
    return /** @type {HTMLDialogElement} */ (document.getElementById(id));
}

/**
 * Waits until it is closed. "" for Escape.
 *
 * @param {string} id
 * @returns {Promise<string>}
 */
export function showDialog(id) {
    const dialog = dialogNamed(id);
    dialog.returnValue = "";
    dialog.showModal();
    return new Promise((resolve) => {
        dialog.addEventListener("close", () => resolve(dialog.returnValue), {once: true});
    });
}

/**
 * @param {Question} question
 * @returns {Promise<Answer>}
 */
export async function askQuestion({text, caption, buttons, icon}) {
    const dialog = dialogNamed("question");
    const rows = BUTTONS[buttons];
    /** @type {HTMLElement} */ (dialog.querySelector("h2")).textContent = caption || "Vorstek";
    /** @type {HTMLElement} */ (dialog.querySelector("#question-text")).textContent = text.trim();
    dialog.dataset.icon = icon;
    dialog.querySelector(".buttons")?.replaceChildren(...rows.map(([value, label]) => {
        const button = document.createElement("button");
        button.value = value;
        button.textContent = label;
        return button;
    }));
    const answer = await showDialog("question");
    return /** @type {Answer} */ (answer || rows[rows.length - 1][0]);
}

/**
 * A message of the page itself.
 *
 * @param {string} text
 */
export function tell(text) {
    return askQuestion({text, caption: "Vorstek", buttons: "ok", icon: "error"});
}

/**
 * Null if it is cancelled.
 *
 * @param {string} proposed
 * @returns {Promise<string | null>}
 */
export async function askFileName(proposed) {
    const input = /** @type {HTMLInputElement} */ (dialogNamed("file-name").querySelector("input"));
    input.value = proposed || "untitled.txt";
    const shown = showDialog("file-name");
    input.select();
    const name = input.value.trim();
    return (await shown) === "ok" ? input.value.trim() || name : null;
}

/**
 * Null if it is cancelled.
 *
 * @param {Options} options
 * @returns {Promise<Options | null>}
 */
export async function askOptions(options) {
    const form = /** @type {HTMLFormElement} */ (dialogNamed("options").querySelector("form"));
    const fields = /** @type {Record<string, any>} */ (form.elements);
    fields["listing"].value = options.keepListing ? "keep" : "open";
    fields["registers"].value = options.keepRegisters ? "keep" : "open";
    fields["trace"].checked = options.trace;
    fields["sound"].checked = !options.soundOff;
    if ((await showDialog("options")) !== "ok") {
        return null;
    }
    return {
        keepListing: fields["listing"].value === "keep",
        keepRegisters: fields["registers"].value === "keep",
        trace: fields["trace"].checked,
        soundOff: !fields["sound"].checked,
    };
}

/**
 * The name of one of the examples; "" if it is cancelled.
 *
 * @param {{ name: string, title: string }[]} examples
 */
export async function chooseExample(examples) {
    const list = /** @type {HTMLElement} */ (dialogNamed("examples").querySelector(".choices"));
    list.replaceChildren(...examples.map(({name, title}) => {
        const item = document.createElement("li");
        const button = document.createElement("button");
        const small = document.createElement("small");
        button.value = name;
        small.textContent = name;
        button.append(title, small);
        item.append(button);
        return item;
    }));
    const name = await showDialog("examples");
    return name === "cancel" ? "" : name;
}

/** @param {string} link */
export async function showLink(link) {
    const dialog = dialogNamed("share");
    const input = /** @type {HTMLInputElement} */ (dialog.querySelector("input"));
    const copy = /** @type {HTMLButtonElement} */ (dialog.querySelector("[data-copy]"));
    input.value = link;
    copy.onclick = async () => {
        input.select();
        await navigator.clipboard?.writeText(link).catch(() => {});
    };
    const shown = showDialog("share");
    input.select();
    await shown;
}

/**
 * Whether to open the program of a link, which the dialog shows.
 *
 * @param {string} listing
 */
export async function askShared(listing) {
    const shown = /** @type {HTMLElement} */ (dialogNamed("shared").querySelector("pre"));
    shown.textContent = listing;
    return (await showDialog("shared")) === "ok";
}
