// main.js - starts the calculator and connects it with what the page shows.

import { Engine } from "../engine.js";
import { assetBytes, assetWorker } from "./assets.js";
import { Display, spokenDisplay } from "./display.js";
import { Face } from "./face.js";
import { Keyboard } from "./keyboard.js";
import { Sounds } from "./sounds.js";

/**
 * @template {Element} T
 * @param {string} selector
 * @returns {T}
 */
function find(selector) {
    return /** @type {T} */ (document.querySelector(selector));
}

async function start() {
    /** @type {Engine | null} */
    let engine = null;
    const face = new Face(find("main .face"), (code, down) => engine?.key(code, down));
    const display = new Display(find(".display"));
    face.onLayout = () => display.setScale(face.unit * devicePixelRatio);
    face.onLayout();
    const sounds = new Sounds();

    engine = new Engine(assetWorker(), await assetBytes("vorstek.wasm"), {
        ask: async () => "ok",
        askFile: async () => null,
    });
    const keyboard = new Keyboard(engine, face, () => {});
    engine.on("sound", (sound) => sounds.play(sound.name));
    engine.on("state", (state) => {
        if (state.display) {
            display.setLines(state.display);
            find("#display-text").textContent = spokenDisplay(state.display);
        }
        if (state.modes) {
            face.setModes(state.modes);
        }
        keyboard.onState(state.modes);
    });
}

start();
