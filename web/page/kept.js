// kept.js - what survives a reload, and programs that come as a link. Storage may be
// missing, full or forbidden: the calculator works without it.

/** @typedef {import("../engine").DisplayLine} DisplayLine */
/** @typedef {import("../engine").State} State */

const STORAGE_NAME = "vorstek";
const DISPLAY_NAME = "vorstek display";
const MOST_LISTING = 60000;  // characters of a program in a link
const MOST_NAME = 80;

export function storedState() {
    try {
        return localStorage.getItem(STORAGE_NAME) ?? "";
    } catch {
        return "";
    }
}

/** @param {any} line */
function isDisplayLine({text, font, left, top}) {
    return typeof text === "string" && (font === "large" || font === "small")
        && Number.isFinite(left) && Number.isFinite(top);
}

/**
 * What the display shows after the next start, before the calculator says it itself.
 *
 * @returns {DisplayLine[] | null}
 */
export function storedDisplay() {
    try {
        const lines = JSON.parse(localStorage.getItem(DISPLAY_NAME) ?? "");
        return lines.every(isDisplayLine) ? lines : null;
    } catch {
        return null;
    }
}

/**
 * @param {string} text
 * @param {State} state that it comes from
 */
export function storeState(text, {display, modes}) {
    try {
        localStorage.setItem(STORAGE_NAME, text);
        // The next start is in run mode with the switch of the stack at rest.
        if (!modes?.programMode && !modes?.stackView) {
            localStorage.setItem(DISPLAY_NAME, JSON.stringify(display));
        }
    } catch {
        // The calculator works without it.
    }
}

/**
 * The address of this page with a program in its fragment, which no server sees.
 *
 * @param {string} listing
 * @param {string} name
 */
export function linkOf(listing, name) {
    const fields = new URLSearchParams({listing, ...(name && {name})});
    return `${location.href.replace(/#.*$/s, "")}#${fields}`;
}

/** @param {string} fragment with its "#" */
export function hasProgram(fragment) {
    return new URLSearchParams(fragment.slice(1)).has("listing");
}

/**
 * The program of a link; null if the link has none. Throws what is wrong with it.
 *
 * @param {string} fragment with its "#"
 * @returns {{ listing: string, name: string } | null}
 */
export function programOfLink(fragment) {
    const fields = new URLSearchParams(fragment.slice(1));
    const listing = fields.get("listing");
    if (listing === null) {
        return null;
    }
    const name = fields.get("name") ?? "shared.txt";
    if (listing.length > MOST_LISTING) {
        throw new Error("The program in this link is too long.");
    }
    if (!/^[\t\r\n\x20-\x7e\xa0-\xff]+$/.test(listing)) {
        throw new Error("The link contains characters that no program has.");
    }
    if (name.length > MOST_NAME || !/^[\w .()-]+$/.test(name) || name.startsWith(".")) {
        throw new Error("The name of the program in this link is not a file name.");
    }
    return {listing, name};
}

/**
 * The bytes of a listing: one for each character.
 *
 * @param {string} text
 */
export function listingBytes(text) {
    return Uint8Array.from(text, (character) => character.charCodeAt(0));
}
