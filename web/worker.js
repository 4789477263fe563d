// worker.js - the worker's side: messages of engine.js for the module.

import {CalculatorModule} from "./module.js";

const scope = /** @type {any} */ (self);
const calculator =
    new CalculatorModule((event, transfer) => scope.postMessage(event, transfer ?? []));

scope.onmessage = (/** @type {MessageEvent} */ message) => {
    const {type, wasm, text, file} = message.data;
    if (file) {
        calculator.disk.put(file.name, file.bytes);
    }
    if (type === "start") {
        calculator.start(wasm).catch((error) => {
            scope.postMessage({type: "failed", text: String(error)});
        });
    } else if (type === "request") {
        calculator.request(text);
    } else if (type === "reply") {
        calculator.replyTo(text);
    }
};
