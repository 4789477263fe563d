// keyboard.js - the PC keyboard, as in the calculator's window.

/** @typedef {import("../engine").Modes} Modes */
/** @typedef {import("../engine").Engine} Engine */
/** @typedef {import("./face").Face} Face */

const KEY_G = 5;
const KEY_SST = 1;

/** Keys and switches that function keys press while they are held; F9 is g, then SST. */
const FUNCTION_KEYS = new Map([
    ["F2", 4], ["F3", KEY_G], ["F4", 8], ["F5", 30], ["F7", 9], ["F8", KEY_SST], ["F11", 31],
    ["F12", 32]
]);

/** What the engine presses for a character, so that the face can show it. */
const CHARACTER_KEYS = new Map([
    ["\r", 11], ["e", 13], ["-", 15], ["7", 16], ["8", 17], ["9", 18], ["+", 19], ["4", 20],
    ["5", 21], ["6", 22], ["*", 23], ["1", 24], ["2", 25], ["3", 26], ["/", 27], ["0", 28],
    [".", 29]
]);

const COMMANDS = new Map([["o", "open"], ["s", "save"], ["p", "print"]]);

const OWN_KEYS = "input, textarea, select, dialog, [role=menu], [contenteditable]";

export class Keyboard {
    /**
     * @param {Engine} engine
     * @param {Face} face
     * @param {(command: string) => void} command
     */
    constructor(engine, face, command) {
        this.engine = engine;
        this.face = face;
        this.command = command;
        /** @type {Map<string, number>} code by function key */
        this.held = new Map();
        this.afterG = false;
        addEventListener("keydown", (event) => this.onDown(event));
        addEventListener("keyup", (event) => this.onUp(event.key));
        addEventListener("blur", () => {
            for (const key of [...this.held.keys()]) {
                this.onUp(key);
            }
        });
    }

    /** @param {KeyboardEvent} event */
    onDown(event) {
        const target = event.target instanceof Element ? event.target : document.body;
        if (event.defaultPrevented || event.isComposing || target.closest(OWN_KEYS)
            || document.querySelector("dialog[open]")) {
            return;
        }
        const used = event.ctrlKey || event.metaKey ? this.onCommand(event) :
            event.altKey                            ? false :
                           this.onFunctionKey(event) || this.onCharacter(event, target);
        if (used) {
            event.preventDefault();
        }
    }

    /** @param {KeyboardEvent} event */
    onCommand(event) {
        const command = COMMANDS.get(event.key.toLowerCase());
        if (!command || event.shiftKey || event.altKey) {
            return false;
        }
        this.command(command);
        return true;
    }

    /** @param {KeyboardEvent} event */
    onFunctionKey(event) {
        if (event.shiftKey) {
            return false;
        }
        if (event.key === "F1") {
            this.command("card");
            return true;
        }
        if (event.key === "F9") {
            this.stepBack(event.repeat);
            return true;
        }
        const code = FUNCTION_KEYS.get(event.key);
        if (code === undefined || event.repeat) {
            return code !== undefined;
        }
        if (code > 30) {
            this.face.slide(code);
            return true;
        }
        this.held.set(event.key, code);
        this.face.show(code, true);
        this.engine.key(code, true);
        return true;
    }

    /** @param {string} key */
    onUp(key) {
        const code = this.held.get(key);
        if (code !== undefined) {
            this.held.delete(key);
            this.face.show(code, false);
            this.engine.key(code, false);
        }
    }

    /**
     * A g that only halts a run or clears an error is not followed by SST. What the
     * calculator has made of it is known when it answers the question after it.
     *
     * @param {boolean} repeated
     */
    async stepBack(repeated) {
        if (repeated) {
            return;
        }
        this.face.tap(KEY_G);
        await this.engine.listingText();
        if (this.afterG) {
            this.face.tap(KEY_SST);
        }
    }

    /** @param {Modes | undefined} modes */
    onState(modes) {
        if (modes) {
            this.afterG = !modes.running && modes.keystrokes.endsWith("g ");
        }
    }

    /**
     * @param {KeyboardEvent} event
     * @param {Element} target
     */
    onCharacter(event, target) {
        const character = characterOf(event);
        const pressesButton =
            target instanceof HTMLButtonElement && (character === "\r" || character === " ");
        if (!character || pressesButton) {
            return false;
        }
        if (character === "\x1b" && target instanceof HTMLElement) {
            target.blur();
        }
        const code = CHARACTER_KEYS.get(character);
        if (code) {
            this.face.flash(code);
        }
        this.engine.char(character);
        return true;
    }
}

/**
 * The decimal key of the numeric pad is the point, also where it types a comma.
 *
 * @param {KeyboardEvent} event
 */
function characterOf(event) {
    if (event.code === "NumpadDecimal" && event.key === ",") {
        return ".";
    }
    if (event.key === "Enter") {
        return "\r";
    }
    if (event.key === "Escape") {
        return "\x1b";
    }
    return [...event.key].length === 1 ? event.key : "";
}
