// kept.js - what survives a reload, and programs that come as a link. Storage may be
// missing, full or forbidden: the calculator works without it.

const STORAGE_NAME = "vorstek";
const MOST_LISTING = 60000;     // characters of a program in a link
const MOST_NAME = 80;

export function storedState() {
    try {
        return localStorage.getItem(STORAGE_NAME) ?? "";
    } catch {
        return "";
    }
}

/** @param {string} text */
export function storeState(text) {
    try {
        if (text) {
            localStorage.setItem(STORAGE_NAME, text);
        } else {
            localStorage.removeItem(STORAGE_NAME);
        }
        return true;
    } catch {
        return false;
    }
}

/**
 * The address of this page with a program in its fragment, which no server sees.
 *
 * @param {string} listing
 * @param {string} name
 */
export function linkOf(listing, name) {
    const fields = new URLSearchParams({ listing, ...(name && { name }) });
    return `${location.href.replace(/#.*$/s, "")}#${fields}`;
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
    return { listing, name };
}

/**
 * The bytes of a listing: one for each character.
 *
 * @param {string} text
 */
export function listingBytes(text) {
    return Uint8Array.from(text, (character) => character.charCodeAt(0));
}
