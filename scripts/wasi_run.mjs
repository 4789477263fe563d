// Runs a program for WASI, as scripts/wasi-run says.

import { readFileSync } from "node:fs";
import { WASI } from "node:wasi";

const [program, ...args] = process.argv.slice(2);
const wasi = new WASI({
    version: "preview1",
    args: [program, ...args],
    env: {},
    preopens: { "/": "/", ".": process.cwd() },
});
const module = new WebAssembly.Module(readFileSync(program));
process.exitCode = wasi.start(new WebAssembly.Instance(module, wasi.getImportObject()));
