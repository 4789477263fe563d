// face.js - the picture of the calculator with its keys and slide switches: real buttons
// that mouse, pen and several fingers press and release, and the keyboard too.

/** @typedef {import("../engine").Lamps} Lamps */
/** @typedef {import("../engine").Modes} Modes */

const FACE_WIDTH = 306;  // pixels, as the picture at its own size
const FACE_HEIGHT = 567;
const UPPER_HALF = 295;    // of the height; the lower half has the rest
const SWITCH_TRAVEL = 12;  // pixels of the thumb; also the last frame of its picture
const SLIDE_TIME = 90;     // milliseconds
const CLICK_TIME = 100;    // a key that is pressed without a pointer stays down as long
const VIBRATION = 8;       // milliseconds
const BAR_HEIGHT = 36;     // above the face, as in page.css
const MARGIN = 8;

const STACK_SWITCH = 31;
const RUN_SWITCH = 32;

const FIRST_FOCUS = 11;  // ENTER

const ARROWS = new Map(
    [["ArrowLeft", [-1, 0]], ["ArrowRight", [1, 0]], ["ArrowUp", [0, -1]], ["ArrowDown", [0, 1]]]);

/** @param {HTMLElement} element */
function middle(element) {
    const {left, top, width, height} = element.getBoundingClientRect();
    return {x: left + width / 2, y: top + height / 2};
}

/**
 * The size of a pixel of the face, and whether the halves lie side by side.
 *
 * @param {number} width of the window
 * @param {number} height
 * @param {boolean} besidePanes leaves them half of a wide window
 */
export function faceSize(width, height, besidePanes) {
    const room = Math.max(120, height - BAR_HEIGHT - MARGIN);
    const across = besidePanes && width >= 760 ? Math.max(340, width * 0.5) : width - 2 * MARGIN;
    const stacked = Math.min(across / FACE_WIDTH, room / FACE_HEIGHT);
    const beside = Math.min((width - 2 * MARGIN) / (2 * FACE_WIDTH), room / UPPER_HALF);
    const sideBySide = stacked < 0.85 && beside > stacked;
    return {unit: Math.max(0.5, Math.min(2.5, sideBySide ? beside : stacked)), sideBySide};
}

/**
 * The same, so that the halves meet at a pixel of the screen.
 *
 * @param {number} unit
 * @param {number} density pixels of the screen per pixel of the page
 */
export function evenUnit(unit, density) {
    return Math.floor(unit * density * UPPER_HALF) / (density * UPPER_HALF);
}

export class Face {
    /**
     * @param {HTMLElement} element
     * @param {(code: number, down: boolean) => void} press
     */
    constructor(element, press) {
        this.element = element;
        this.press = press;
        this.besidePanes = false;
        this.unit = 1;
        /** @type {Map<number, HTMLElement>} */
        this.buttons = new Map();
        /** @type {Map<number, number>} code by pointer */
        this.held = new Map();
        /** @type {Map<number, number>} frame of each switch */
        this.frames = new Map([[STACK_SWITCH, 0], [RUN_SWITCH, SWITCH_TRAVEL]]);
        /** @type {{ code: number, pointer: number, x: number, frame: number, moved: boolean } | null} */
        this.drag = null;
        /** @type {() => void} */
        this.onLayout = () => {};
        for (const part of element.querySelectorAll("[data-place]")) {
            this.place(/** @type {HTMLElement} */ (part));
        }
        for (const button of element.querySelectorAll("button")) {
            this.addButton(button);
        }
        this.initFocus();
        this.check(RUN_SWITCH, true);
        this.drawSwitches();
        this.lay();
        addEventListener("resize", () => this.lay());
        addEventListener("blur", () => this.releaseAll());
    }

    /**
     * In pixels of the face: where it is, and where its pictures begin in their strip.
     *
     * @param {HTMLElement} element
     */
    place(element) {
        const [left, top, width, height, strip] = (element.dataset.place ?? "").split(" ");
        for (const [name, value] of Object.entries({left, top, width, height, strip})) {
            element.style.setProperty(`--${name}`, value);
        }
    }

    /** @param {HTMLButtonElement} button */
    addButton(button) {
        const code = Number(button.dataset.code);
        this.buttons.set(code, button);
        button.addEventListener("pointerdown", (event) => this.onPointerDown(event, code));
        for (const name of /** @type {const} */ (
                 ["pointerup", "pointercancel", "lostpointercapture"])) {
            button.addEventListener(name, (event) => this.onPointerUp(event));
        }
        button.addEventListener("pointermove", (event) => this.onPointerMove(event));
        // What the mouse presses does not take the keyboard.
        button.addEventListener("mousedown", (event) => event.preventDefault());
        button.addEventListener("contextmenu", (event) => event.preventDefault());
        // A click of a pointer has been handled; Space, Enter and screen readers click too.
        button.addEventListener("click", (event) => {
            if (event.detail === 0) {
                this.tap(code);
            }
        });
    }

    /**
     * @param {PointerEvent} event
     * @param {number} code
     */
    onPointerDown(event, code) {
        if (event.button !== 0) {
            return;
        }
        const button = /** @type {HTMLElement} */ (this.buttons.get(code));
        if (event.isTrusted) {
            button.setPointerCapture(event.pointerId);
        }
        navigator.vibrate?.(VIBRATION);
        if (code >= STACK_SWITCH) {
            const frame = this.frames.get(code) ?? 0;
            this.drag = {code, pointer: event.pointerId, x: event.clientX, frame, moved: false};
            return;
        }
        this.held.set(event.pointerId, code);
        this.show(code, true);
        this.press(code, true);
    }

    /**
     * The thumb follows the pointer; the switch changes when it crosses the middle.
     *
     * @param {PointerEvent} event
     */
    onPointerMove(event) {
        const drag = this.drag;
        if (drag?.pointer !== event.pointerId) {
            return;
        }
        const way = (event.clientX - drag.x) / this.unit;
        drag.moved ||= Math.abs(way) > 2;
        if (!drag.moved) {
            return;
        }
        const frame = Math.round(Math.min(SWITCH_TRAVEL, Math.max(0, drag.frame + way)));
        const right = 2 * frame > SWITCH_TRAVEL;
        if (right !== this.isRight(drag.code)) {
            this.check(drag.code, right);
            this.press(drag.code, right);
        }
        this.frames.set(drag.code, frame);
        this.drawSwitches();
    }

    endDrag() {
        const drag = this.drag;
        this.drag = null;
        if (drag?.moved) {
            this.glide(drag.code);
        } else if (drag) {
            this.slide(drag.code);
        }
    }

    /** @param {PointerEvent} event */
    onPointerUp(event) {
        if (this.drag?.pointer === event.pointerId) {
            this.endDrag();
            return;
        }
        const code = this.held.get(event.pointerId);
        if (code === undefined) {
            return;
        }
        this.held.delete(event.pointerId);
        this.show(code, false);
        this.press(code, false);
    }

    releaseAll() {
        for (const code of this.held.values()) {
            this.show(code, false);
            this.press(code, false);
        }
        this.held.clear();
    }

    /**
     * A press and a release without a pointer.
     *
     * @param {number} code
     */
    tap(code) {
        if (code >= STACK_SWITCH) {
            this.slide(code);
            return;
        }
        this.flash(code);
        this.press(code, true);
        this.press(code, false);
    }

    /**
     * Only what is seen of a key.
     *
     * @param {number} code
     */
    flash(code) {
        this.show(code, true);
        setTimeout(() => this.show(code, [...this.held.values()].includes(code)), CLICK_TIME);
    }

    /**
     * @param {number} code
     * @param {boolean} down
     */
    show(code, down) {
        this.buttons.get(code)?.classList.toggle("down", down);
    }

    // --- slide switches

    /** @param {number} code */
    isRight(code) {
        return this.buttons.get(code)?.getAttribute("aria-checked") === "true";
    }

    /**
     * @param {number} code
     * @param {boolean} right
     */
    check(code, right) {
        this.buttons.get(code)?.setAttribute("aria-checked", String(right));
    }

    /** @param {Lamps} lamps */
    setLamps(lamps) {
        for (const [name, lit] of Object.entries(lamps)) {
            this.element.querySelector(`[data-lamp=${name}]`)?.classList.toggle("lit", lit);
        }
    }

    /** @param {number} code */
    slide(code) {
        const right = !this.isRight(code);
        this.check(code, right);
        this.glide(code);
        this.press(code, right);
    }

    /**
     * During a run the calculator looks at its switches only later, so they stay where
     * they have been put.
     *
     * @param {Modes} modes
     */
    setModes(modes) {
        if (!modes.running) {
            this.setSwitch(STACK_SWITCH, modes.stackView);
            this.setSwitch(RUN_SWITCH, !modes.programMode);
        }
    }

    /**
     * @param {number} code
     * @param {boolean} right
     */
    setSwitch(code, right) {
        if (this.isRight(code) !== right) {
            this.check(code, right);
            this.glide(code);
        }
    }

    /**
     * Moves the thumb to where the switch is.
     *
     * @param {number} code
     */
    glide(code) {
        const right = this.isRight(code);
        const from = this.frames.get(code) ?? 0;
        const to = right ? SWITCH_TRAVEL : 0;
        const still = matchMedia("(prefers-reduced-motion: reduce)").matches;
        const start = performance.now();
        const step = (/** @type {number} */ now) => {
            const part = still ? 1 : Math.min(1, Math.max(0, (now - start) / SLIDE_TIME));
            if (this.drag?.code === code || this.isRight(code) !== right) {
                return;
            }
            this.frames.set(code, Math.round(from + (to - from) * part));
            this.drawSwitches();
            if (part < 1) {
                requestAnimationFrame(step);
            }
        };
        step(start);
    }

    drawSwitches() {
        for (const [code, frame] of this.frames) {
            this.buttons.get(code)?.style.setProperty("--frame", String(frame));
        }
    }

    // --- keyboard: Tab reaches one button of the face, the arrow keys all others

    initFocus() {
        for (const [code, button] of this.buttons) {
            button.tabIndex = code === FIRST_FOCUS ? 0 : -1;
            button.addEventListener("focus", () => {
                for (const other of this.buttons.values()) {
                    other.tabIndex = other === button ? 0 : -1;
                }
            });
        }
        this.element.addEventListener("keydown", (event) => this.onArrow(event));
    }

    /** @param {KeyboardEvent} event */
    onArrow(event) {
        const direction = ARROWS.get(event.key);
        const from = event.target;
        if (!direction || !(from instanceof HTMLElement) || event.ctrlKey || event.altKey) {
            return;
        }
        event.preventDefault();
        this.neighbour(from, direction)?.focus();
    }

    /**
     * The nearest button in a direction; those straight ahead are preferred.
     *
     * @param {HTMLElement} from
     * @param {number[]} direction
     */
    neighbour(from, [across, down]) {
        const start = middle(from);
        /** @type {HTMLElement | undefined} */
        let best;
        let least = Infinity;
        for (const button of this.buttons.values()) {
            const x = middle(button).x - start.x;
            const y = middle(button).y - start.y;
            const ahead = x * across + y * down;
            const distance = ahead + 2 * Math.abs(x * down + y * across);
            if (ahead > 4 && distance < least) {
                least = distance;
                best = button;
            }
        }
        return best;
    }

    // --- size

    /** Fits the face into the window. */
    lay() {
        const root = document.documentElement;
        const {unit, sideBySide} = faceSize(innerWidth, innerHeight, this.besidePanes);
        const even = evenUnit(unit, devicePixelRatio);
        const needed = even * devicePixelRatio;
        this.unit = even;
        root.style.setProperty("--unit", `${even}px`);
        root.classList.toggle("side-by-side", sideBySide);
        for (const scale of [1, 2, 3]) {
            root.classList.toggle(`art-${scale}`, scale === Math.min(3, Math.ceil(needed - 0.05)));
        }
        this.onLayout();
    }

    /** @param {boolean} besidePanes */
    setBesidePanes(besidePanes) {
        if (this.besidePanes !== besidePanes) {
            this.besidePanes = besidePanes;
            this.lay();
        }
    }
}
