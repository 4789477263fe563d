// wasi.js - the part of WASI that the module uses: a clock, and files in memory.

// Error numbers, file types and sizes of wasi_snapshot_preview1.
const SUCCESS = 0;
const BADF = 8;
const EXIST = 20;
const INVAL = 28;
const NOENT = 44;
const FOLDER = 3;
const REGULAR = 4;
const CREATE = 1;
const EXCLUSIVE = 4;
const TRUNCATE = 8;
const APPEND = 1;

// The number of the only folder, "/".
const ROOT = 3;

/** @typedef {{ name: string, bytes: Uint8Array, length: number, number: number }} Content */
/** @typedef {{ file: Content, at: number, append: boolean }} Open */

/** The program ends itself. */
export class ProgramExit extends Error {
    /** @param {number} code */
    constructor(code) {
        super(`exit ${code}`);
        this.code = code;
    }
}

export class MemoryDisk {
    /** @param {(name: string, bytes: Uint8Array) => void} onReplaced a file has been saved */
    constructor(onReplaced) {
        /** @type {Map<string, Content>} */
        this.files = new Map();
        /** @type {Map<number, Open>} */
        this.opened = new Map();
        this.nextNumber = 1;
        this.onReplaced = onReplaced;
        /** @type {WebAssembly.Memory | null} */
        this.memory = null;
    }

    /**
     * @param {string} name
     * @param {Uint8Array} bytes
     */
    put(name, bytes) {
        const copy = new Uint8Array(bytes);
        this.files.set(name, {name, bytes: copy, length: copy.length, number: this.nextNumber++});
    }

    /** @param {string} name */
    remove(name) {
        this.files.delete(name);
    }

    view() {
        return new DataView(/** @type {WebAssembly.Memory} */ (this.memory).buffer);
    }

    /**
     * @param {number} at
     * @param {number} length
     */
    bytesAt(at, length) {
        return new Uint8Array(/** @type {WebAssembly.Memory} */ (this.memory).buffer, at, length);
    }

    /**
     * @param {number} at
     * @param {number} length
     */
    nameAt(at, length) {
        return new TextDecoder().decode(this.bytesAt(at, length)).replace(/^(\.?\/)+/, "");
    }

    /** @param {number} number */
    flags(number) {
        if (number === ROOT) {
            return FOLDER;
        }
        return this.opened.has(number) ? REGULAR : 2;  // a terminal: standard streams
    }

    /**
     * @param {Content} file
     * @param {number} length
     */
    resize(file, length) {
        if (length > file.bytes.length) {
            const grown = new Uint8Array(Math.max(length, 2 * file.bytes.length));
            grown.set(file.bytes.subarray(0, file.length));
            file.bytes = grown;
        }
        file.bytes.fill(0, Math.min(length, file.length), file.length);
        file.length = length;
    }

    /**
     * @param {number} at
     * @param {Content | null} file null: the folder
     */
    writeStatus(at, file) {
        const view = this.view();
        this.bytesAt(at, 64).fill(0);
        view.setBigUint64(at + 8, BigInt(file ? file.number : 0), true);
        view.setUint8(at + 16, file ? REGULAR : FOLDER);
        view.setBigUint64(at + 24, 1n, true);
        view.setBigUint64(at + 32, BigInt(file ? file.length : 0), true);
    }

    /**
     * Calls back with each buffer of a list; returns the sum of what it returns.
     *
     * @param {number} list
     * @param {number} count
     * @param {(buffer: Uint8Array) => number} each
     */
    forBuffers(list, count, each) {
        const view = this.view();
        let sum = 0;
        for (let n = 0; n < count; n++) {
            const at = view.getUint32(list + 8 * n, true);
            sum += each(this.bytesAt(at, view.getUint32(list + 8 * n + 4, true)));
        }
        return sum;
    }

    /**
     * @param {Open} open
     * @param {Uint8Array} buffer
     */
    read(open, buffer) {
        const end = Math.min(open.at + buffer.length, open.file.length);
        const part = open.file.bytes.subarray(open.at, Math.max(end, open.at));
        buffer.set(part);
        open.at += part.length;
        return part.length;
    }

    /**
     * @param {Open} open
     * @param {Uint8Array} buffer
     */
    write(open, buffer) {
        const at = open.append ? open.file.length : open.at;
        if (at + buffer.length > open.file.length) {
            this.resize(open.file, at + buffer.length);
        }
        open.file.bytes.set(buffer, at);
        open.at = at + buffer.length;
        return buffer.length;
    }

    /**
     * @param {string} name
     * @param {number} how
     * @param {number} flags
     * @param {number} result
     */
    open(name, how, flags, result) {
        let file = this.files.get(name);
        if (file && how & EXCLUSIVE) {
            return EXIST;
        }
        if (!file) {
            if (!(how & CREATE)) {
                return NOENT;
            }
            this.put(name, new Uint8Array());
            file = /** @type {Content} */ (this.files.get(name));
        }
        if (how & TRUNCATE) {
            this.resize(file, 0);
        }
        let number = ROOT + 1;
        while (this.opened.has(number)) {
            number++;
        }
        this.opened.set(number, {file, at: 0, append: (flags & APPEND) !== 0});
        this.view().setUint32(result, number, true);
        return SUCCESS;
    }

    /**
     * @param {string} from
     * @param {string} to
     */
    rename(from, to) {
        const file = this.files.get(from);
        if (!file) {
            return NOENT;
        }
        this.files.delete(from);
        file.name = to;
        this.files.set(to, file);
        this.onReplaced(to, file.bytes.slice(0, file.length));
        return SUCCESS;
    }

    /**
     * @param {number} number
     * @param {bigint} offset
     * @param {number} from 0 the start, 1 here, 2 the end
     * @param {number} result
     */
    seek(number, offset, from, result) {
        const open = this.opened.get(number);
        if (!open) {
            return BADF;
        }
        const at = [0, open.at, open.file.length][from] + Number(offset);
        if (at < 0) {
            return INVAL;
        }
        open.at = at;
        this.view().setBigUint64(result, BigInt(at), true);
        return SUCCESS;
    }

    /** The functions that the module imports. */
    imports() {
        return {
            clock_time_get: (
                /** @type {number} */ clock,
                /** @type {bigint} */ precision,
                /** @type {number} */ result,
                ) => {
                const milliseconds = clock === 0 ? Date.now() : performance.now();
                this.view().setBigUint64(result, BigInt(Math.round(milliseconds * 1e6)), true);
                return SUCCESS;
            },
            fd_close: (/** @type {number} */ number) =>
                (this.opened.delete(number) ? SUCCESS : BADF),
            fd_fdstat_get: (/** @type {number} */ number, /** @type {number} */ result) => {
                this.bytesAt(result, 24).fill(0);
                this.bytesAt(result + 8, 16).fill(255);  // all rights
                this.view().setUint8(result, this.flags(number));
                return number <= ROOT || this.opened.has(number) ? SUCCESS : BADF;
            },
            fd_fdstat_set_flags: () => SUCCESS,
            fd_filestat_get: (/** @type {number} */ number, /** @type {number} */ result) => {
                this.writeStatus(result, this.opened.get(number)?.file ?? null);
                return SUCCESS;
            },
            fd_filestat_set_size: (/** @type {number} */ number, /** @type {bigint} */ length) => {
                const open = this.opened.get(number);
                if (open) {
                    this.resize(open.file, Number(length));
                }
                return open ? SUCCESS : BADF;
            },
            fd_prestat_get: (/** @type {number} */ number, /** @type {number} */ result) => {
                this.bytesAt(result, 8).fill(0);
                this.view().setUint32(result + 4, 1, true);
                return number === ROOT ? SUCCESS : BADF;
            },
            fd_prestat_dir_name: (/** @type {number} */ number, /** @type {number} */ name) => {
                this.bytesAt(name, 1)[0] = 47;  // "/"
                return number === ROOT ? SUCCESS : BADF;
            },
            fd_read: (
                /** @type {number} */ number,
                /** @type {number} */ list,
                /** @type {number} */ count,
                /** @type {number} */ result,
                ) => {
                const open = this.opened.get(number);
                const read =
                    open ? this.forBuffers(list, count, (part) => this.read(open, part)) : 0;
                this.view().setUint32(result, read, true);
                return SUCCESS;
            },
            fd_seek: (
                /** @type {number} */ number,
                /** @type {bigint} */ offset,
                /** @type {number} */ from,
                /** @type {number} */ result,
                ) => this.seek(number, offset, from, result),
            fd_sync: () => SUCCESS,
            fd_write: (
                /** @type {number} */ number,
                /** @type {number} */ list,
                /** @type {number} */ count,
                /** @type {number} */ result,
                ) => {
                const open = this.opened.get(number);
                const each = (/** @type {Uint8Array} */ part) =>
                    open ? this.write(open, part) : part.length;
                this.view().setUint32(result, this.forBuffers(list, count, each), true);
                return SUCCESS;
            },
            path_filestat_get: (
                /** @type {number} */ folder,
                /** @type {number} */ follow,
                /** @type {number} */ name,
                /** @type {number} */ length,
                /** @type {number} */ result,
                ) => {
                const path = this.nameAt(name, length);
                const file = this.files.get(path) ?? null;
                this.writeStatus(result, file);
                return file || path === "" || path === "." ? SUCCESS : NOENT;
            },
            path_open: (
                /** @type {number} */ folder,
                /** @type {number} */ follow,
                /** @type {number} */ name,
                /** @type {number} */ length,
                /** @type {number} */ how,
                /** @type {bigint} */ rights,
                /** @type {bigint} */ inherited,
                /** @type {number} */ flags,
                /** @type {number} */ result,
                ) => this.open(this.nameAt(name, length), how, flags, result),
            path_readlink: () => INVAL,
            path_rename: (
                /** @type {number} */ folder,
                /** @type {number} */ name,
                /** @type {number} */ length,
                /** @type {number} */ other,
                /** @type {number} */ to,
                /** @type {number} */ toLength,
                ) => this.rename(this.nameAt(name, length), this.nameAt(to, toLength)),
            path_unlink_file: (
                /** @type {number} */ folder,
                /** @type {number} */ name,
                /** @type {number} */ length,
                ) => (this.files.delete(this.nameAt(name, length)) ? SUCCESS : NOENT),
            proc_exit: (/** @type {number} */ code) => {
                throw new ProgramExit(code);
            },
        };
    }
}
