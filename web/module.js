// module.js - runs vorstek.wasm: lets it suspend itself and keeps its requests.

import {MemoryDisk} from "./wasi.js";

// Of asyncify: what the module is doing, beside running normally.
const UNWINDING = 1;
const REWINDING = 2;

const turns = new MessageChannel();

/** Lets other events of this thread be handled, those that wait already included. */
function oneTurn() {
    return new Promise((resolve) => {
        turns.port1.onmessage = () => resolve(0);
        turns.port2.postMessage(0);
    });
}

/** @param {number} milliseconds */
function later(milliseconds) {
    return new Promise((resolve) => setTimeout(() => resolve(0), milliseconds));
}

export class CalculatorModule {
    /**
     * @param {(event: any, transfer?: Transferable[]) => void} post sends an event to the page
     */
    constructor(post) {
        this.post = post;
        this.disk = new MemoryDisk((name, bytes) => this.saved(name, bytes));
        /** @type {Uint8Array[]} */
        this.requests = [];
        /** @type {((reply: string) => void) | null} */
        this.answer = null;
        this.reply = new Uint8Array();
        this.busy = true;  // until it has started
        /** @type {Promise<number>} */
        this.pending = Promise.resolve(0);
        this.result = 0;  // of the call that was suspended
        /** @type {any} */
        this.exports = null;
        this.failed = false;
    }

    /**
     * Once.
     *
     * @param {WebAssembly.Module | ArrayBuffer} wasm
     */
    async start(wasm) {
        const module = wasm instanceof WebAssembly.Module ? wasm : await WebAssembly.compile(wasm);
        const instance = await WebAssembly.instantiate(module, {
            vorstek: this.imports(),
            wasi_snapshot_preview1: this.disk.imports(),
        });
        this.exports = instance.exports;
        this.disk.memory = this.exports.memory;
        this.exports._initialize();
        await this.run("start");
        await this.serve();
    }

    /** @param {string} text */
    request(text) {
        this.requests.push(new TextEncoder().encode(text));
        if (!this.busy) {
            this.serve();
        }
    }

    /** @param {string} text the answer to the question that is open */
    replyTo(text) {
        this.answer?.(text);
    }

    async serve() {
        while (this.requests.length > 0 && !this.failed) {
            await this.run("serve");
        }
    }

    /**
     * Calls an exported function until it has returned, not only suspended itself.
     *
     * @param {"start" | "serve"} name
     */
    async run(name) {
        this.busy = true;
        try {
            this.exports[name]();
            while (this.exports.asyncify_get_state() === UNWINDING) {
                this.exports.asyncify_stop_unwind();
                this.result = await this.pending;
                this.exports.asyncify_start_rewind(this.exports.suspendedStack());
                this.exports[name]();
            }
        } catch (error) {
            if (!this.failed) {
                this.failed = true;
                this.post({type: "failed", text: String(error)});
            }
        }
        this.busy = this.failed;
    }

    /**
     * Suspends the module until the promise is fulfilled; called again then.
     *
     * @param {() => Promise<any>} begin
     */
    suspend(begin) {
        if (this.exports.asyncify_get_state() === REWINDING) {
            this.exports.asyncify_stop_rewind();
            return this.result;
        }
        this.pending = begin();
        this.exports.asyncify_start_unwind(this.exports.suspendedStack());
        return 0;
    }

    /** @param {string} json */
    async ask(json) {
        this.post(JSON.parse(json));
        this.reply = await new Promise((resolve) => {
            this.answer = (text) => resolve(new TextEncoder().encode(text));
        });
        this.answer = null;
        return this.reply.length;
    }

    /**
     * The module has written a file; it does not need it any more.
     *
     * @param {string} name
     * @param {Uint8Array} bytes
     */
    saved(name, bytes) {
        if (!name.startsWith("~")) {
            this.disk.remove(name);
            this.post({type: "saved", name, bytes}, [bytes.buffer]);
        }
    }

    /**
     * @param {number} at
     * @param {number} length
     */
    textAt(at, length) {
        return new TextDecoder().decode(this.disk.bytesAt(at, length));
    }

    imports() {
        return {
            post: (/** @type {number} */ json, /** @type {number} */ length) => {
                const event = JSON.parse(this.textAt(json, length));
                this.failed ||= event.type === "failed";
                this.post(event);
            },
            requestLength: () => (this.requests.length > 0 ? this.requests[0].length : -1),
            takeRequest: (/** @type {number} */ text) => {
                const request = /** @type {Uint8Array} */ (this.requests.shift());
                this.disk.bytesAt(text, request.length).set(request);
            },
            postPicture: (
                /** @type {number} */ width,
                /** @type {number} */ height,
                /** @type {number} */ numbers,
                /** @type {number} */ count,
                /** @type {number} */ texts,
                /** @type {number} */ length,
                ) => {
                const memory = this.exports.memory.buffer;
                const operations = new Int32Array(memory, numbers, count).slice();
                const list = this.textAt(texts, length).split("\0").slice(0, -1);
                this.post(
                    {type: "picture", width, height, operations, texts: list}, [operations.buffer]);
            },
            wait: (/** @type {number} */ milliseconds) =>
                this.suspend(() => (milliseconds > 0 ? later(milliseconds) : oneTurn())),
            converse: (/** @type {number} */ json, /** @type {number} */ length) =>
                this.suspend(() => this.ask(this.textAt(json, length))),
            takeReply: (/** @type {number} */ text) => {
                this.disk.bytesAt(text, this.reply.length).set(this.reply);
            },
        };
    }
}
