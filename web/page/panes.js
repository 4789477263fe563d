// panes.js - listing, registers and trace beside the face.

/** @typedef {import("../engine").Box} Box */

const MOST_TRACE = 200000;  // characters that are shown; the saved trace has all
const MOST_KEPT_TRACE = 20000000;

export class LinePane {
    /** @param {HTMLElement} element */
    constructor(element) {
        this.element = element;
        this.list = /** @type {HTMLElement} */ (element.querySelector(".lines"));
        /** @type {string[]} */
        this.lines = [];
        new ResizeObserver(() => this.revealMark()).observe(this.list);
    }

    /** @param {Box} box */
    show({lines, highlight, shown}) {
        this.element.hidden = !shown;
        if (lines.length !== this.lines.length
            || lines.some((line, at) => line !== this.lines[at])) {
            this.lines = lines;
            this.list.replaceChildren(...lines.map((line) => {
                const item = document.createElement("li");
                item.textContent = line;
                return item;
            }));
        }
        this.mark(highlight);
    }

    /** @param {number} line */
    mark(line) {
        const former = this.list.querySelector(".here");
        const item = /** @type {HTMLElement | undefined} */ (this.list.children[line]);
        if (former !== item) {
            former?.classList.remove("here");
            former?.removeAttribute("aria-current");
            item?.classList.add("here");
            item?.setAttribute("aria-current", "true");
        }
        this.revealMark();
    }

    /** In the box only: the page does not move. */
    revealMark() {
        const {list} = this;
        const item = /** @type {HTMLElement | null} */ (list.querySelector(".here"));
        if (!item) {
            return;
        }
        const top = item.offsetTop - list.offsetTop;
        if (top < list.scrollTop) {
            list.scrollTop = top;
        } else if (top + item.offsetHeight > list.scrollTop + list.clientHeight) {
            list.scrollTop = top + item.offsetHeight - list.clientHeight;
        }
    }
}

export class TracePane {
    /** @param {HTMLElement} element */
    constructor(element) {
        this.element = element;
        this.shown = /** @type {HTMLElement} */ (element.querySelector(".lines"));
        this.text = "";
    }

    /** @param {string} text */
    add(text) {
        this.text = (this.text + text).slice(-MOST_KEPT_TRACE);
        this.shown.textContent = ((this.shown.textContent ?? "") + text).slice(-MOST_TRACE);
        this.shown.scrollTop = this.shown.scrollHeight;
    }

    /** @param {boolean} on */
    setOn(on) {
        this.element.hidden = !on;
    }
}
