// main.js - starts the calculator of the page.

import {Calculator} from "./calculator.js";

new Calculator().start();

// The page as one file needs nothing beside it, and has no manifest.
if (document.querySelector("link[rel=manifest]") && "serviceWorker" in navigator) {
    addEventListener("load", () => navigator.serviceWorker.register("service_worker.js"));
}
