// menus.js - the menus above the face. The arrow keys move in them.

/**
 * The command whose lock also holds for one of the page.
 *
 * @type {Record<string, string>}
 */
const MENU_LOCKS = {
    examples: "open",
    listing: "options",
    registers: "options"
};

export class Menus {
    /**
     * @param {HTMLElement} bar
     * @param {(command: string) => void} command
     */
    constructor(bar, command) {
        this.bar = bar;
        this.command = command;
        /** @type {HTMLElement[]} */
        this.heads = [...bar.querySelectorAll(/** @type {"button"} */ ("[aria-haspopup]"))];
        for (const head of this.heads) {
            head.addEventListener("click", () => this.toggle(head));
            head.addEventListener("keydown", (event) => this.onHeadKey(event, head));
            this.listOf(head).addEventListener("keydown", (event) => this.onItemKey(event, head));
        }
        for (const item of bar.querySelectorAll(/** @type {"button"} */ ("[data-command]"))) {
            item.tabIndex = -1;
            item.addEventListener("click", () => this.choose(item));
        }
        document.addEventListener("pointerdown", (event) => {
            if (!(event.target instanceof Element) || !event.target.closest(".menu")) {
                this.close();
            }
        });
    }

    /** @param {HTMLElement} head */
    listOf(head) {
        return /** @type {HTMLElement} */ (head.nextElementSibling);
    }

    /** @param {HTMLElement} head */
    itemsOf(head) {
        return [...this.listOf(head).querySelectorAll("button")];
    }

    close() {
        for (const head of this.heads) {
            head.setAttribute("aria-expanded", "false");
            this.listOf(head).hidden = true;
        }
    }

    /** @param {HTMLElement} head */
    open(head) {
        this.close();
        head.setAttribute("aria-expanded", "true");
        this.listOf(head).hidden = false;
        this.itemsOf(head)[0].focus();
    }

    /** @param {HTMLElement} head */
    toggle(head) {
        if (this.listOf(head).hidden) {
            this.open(head);
        } else {
            this.close();
        }
    }

    /** @param {HTMLButtonElement} item */
    choose(item) {
        if (item.getAttribute("aria-disabled") === "true") {
            return;
        }
        this.close();
        // Not the menu's head: Enter means the calculator's ENTER from now on.
        /** @type {HTMLElement | null} */ (document.querySelector("main .face"))?.focus();
        this.command(item.dataset.command ?? "");
    }

    /**
     * @param {KeyboardEvent} event
     * @param {HTMLElement} head
     */
    onHeadKey(event, head) {
        if (event.key === "ArrowDown") {
            event.preventDefault();
            this.open(head);
        }
    }

    /**
     * @param {KeyboardEvent} event
     * @param {HTMLElement} head
     */
    onItemKey(event, head) {
        const items = this.itemsOf(head);
        const at = items.indexOf(/** @type {HTMLButtonElement} */ (document.activeElement));
        const beside = (/** @type {number} */ step) => {
            const count = this.heads.length;
            this.open(this.heads[(this.heads.indexOf(head) + step + count) % count]);
        };
        /** @type {Record<string, () => void>} */
        const moves = {
            ArrowDown: () => items[(at + 1) % items.length].focus(),
            ArrowUp: () => items[(at + items.length - 1) % items.length].focus(),
            Home: () => items[0].focus(),
            End: () => items[items.length - 1].focus(),
            ArrowLeft: () => beside(-1),
            ArrowRight: () => beside(1),
            Escape: () => {
                this.close();
                head.focus();
            },
        };
        if (event.key === "Tab") {
            this.close();
        } else if (moves[event.key]) {
            event.preventDefault();
            moves[event.key]();
        }
    }

    /** @param {string[]} commands those that a run locks */
    setDisabled(commands) {
        for (const item of this.bar.querySelectorAll(/** @type {"button"} */ ("[data-command]"))) {
            const command = item.dataset.command ?? "";
            const locked = commands.includes(MENU_LOCKS[command] ?? command);
            item.setAttribute("aria-disabled", String(locked));
        }
    }

    /**
     * @param {string} command
     * @param {boolean} checked
     */
    setChecked(command, checked) {
        this.bar.querySelector(`[data-command=${command}]`)
            ?.setAttribute("aria-checked", String(checked));
    }
}
