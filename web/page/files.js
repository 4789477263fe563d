// files.js - files from the disk and back to it.

/** @typedef {import("../engine").ChosenFile} ChosenFile */

const MOST_BYTES = 16 * 1024 * 1024;

/**
 * @param {File} file
 * @returns {Promise<ChosenFile>}
 */
async function read(file) {
    if (file.size > MOST_BYTES) {
        throw new Error(`${file.name} is too large: more than 16 MB`);
    }
    return {name: file.name, bytes: new Uint8Array(await file.arrayBuffer())};
}

/**
 * Null if the user chooses none. Only soon after a click or a key.
 *
 * @returns {Promise<ChosenFile | null>}
 */
export function chooseFile() {
    const input = /** @type {HTMLInputElement} */ (document.getElementById("chooser"));
    input.value = "";
    return new Promise((resolve, reject) => {
        input.onchange = () => {
            const file = input.files?.[0];
            resolve(file ? read(file) : null);
        };
        input.addEventListener("cancel", () => resolve(null), {once: true});
        try {
            input.showPicker();
        } catch (error) {
            reject(error);
        }
    });
}

/**
 * Hands a file to the user by the browser's means.
 *
 * @param {string} name
 * @param {BlobPart} content
 * @param {string} type
 */
export function saveFile(name, content, type) {
    const link = document.createElement("a");
    link.href = URL.createObjectURL(new Blob([content], {type}));
    link.download = name;
    document.body.append(link);
    link.click();
    link.remove();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

/**
 * Files that are dropped on the page.
 *
 * @param {(file: ChosenFile, target: Element) => void} open
 * @param {(text: string) => void} refuse
 */
export function acceptDrops(open, refuse) {
    const mark = (/** @type {boolean} */ on) => document.body.classList.toggle("dropping", on);
    addEventListener("dragover", (event) => {
        if (event.dataTransfer?.types.includes("Files")) {
            event.preventDefault();
            mark(true);
        }
    });
    addEventListener("dragleave", (event) => mark(event.relatedTarget !== null));
    addEventListener("drop", async (event) => {
        const file = event.dataTransfer?.files[0];
        mark(false);
        if (!file) {
            return;
        }
        event.preventDefault();
        const target = event.target instanceof Element ? event.target : document.body;
        try {
            open(await read(file), target);
        } catch (error) {
            refuse(error instanceof Error ? error.message : String(error));
        }
    });
}
