// sounds.js - plays the calculator's sounds. A browser lets a page sound only after the
// user has done something with it.

import {assetBytes} from "./assets.js";

const KEY_CLICK = "key_click";

export class Sounds {
    constructor() {
        /** @type {AudioContext | null} */
        this.context = null;
        /** @type {Map<string, Promise<AudioBuffer>>} */
        this.buffers = new Map();
        /** @type {AudioBufferSourceNode | null} */
        this.playing = null;
        this.awake = false;  // the user has done something
        // Reaching the sound device takes longer than a key may: before the first one.
        addEventListener("load", () => setTimeout(() => this.prepare()), {once: true});
        for (const name of ["pointerdown", "keydown"]) {
            addEventListener(name, () => this.wake(), {capture: true, passive: true});
        }
    }

    prepare() {
        if (typeof AudioContext !== "undefined" && !this.context) {
            this.context = new AudioContext({latencyHint: 0});
            this.buffer(this.context, KEY_CLICK).catch(() => this.buffers.delete(KEY_CLICK));
        }
    }

    wake() {
        this.prepare();
        this.awake = true;
        if (this.context?.state === "suspended") {
            this.context.resume().catch(() => {});
        }
    }

    /**
     * @param {AudioContext} context
     * @param {string} name
     */
    buffer(context, name) {
        const known = this.buffers.get(name);
        if (known) {
            return known;
        }
        const decoded =
            assetBytes(`sounds/${name}.wav`).then((bytes) => context.decodeAudioData(bytes));
        this.buffers.set(name, decoded);
        return decoded;
    }

    /**
     * Each sound ends the one before it.
     *
     * @param {string} name
     */
    async play(name) {
        const context = this.context;
        if (!context || !this.awake) {
            return;
        }
        try {
            const buffer = await this.buffer(context, name);
            this.playing?.stop();
            const source = new AudioBufferSourceNode(context, {buffer});
            source.connect(context.destination);
            source.start();
            this.playing = source;
        } catch {
            this.buffers.delete(name);  // without a sound device the page stays silent
        }
    }
}
