// service_worker.js - keeps the files of the page in the browser, all of one version, so
// that it works without network. make_folder.py fills in the version and the files.

const VERSION = "";
/** @type {string[]} */
const FILES = [];

const CACHE = `vorstek ${VERSION}`;
const scope = /** @type {any} */ (self);

/** Past the browser's other cache, which may hold files of several versions. */
async function fetchAll() {
    const cache = await caches.open(CACHE);
    await cache.addAll(FILES.map((file) => new Request(file, {cache: "reload"})));
}

async function removeOthers() {
    for (const name of await caches.keys()) {
        if (name.startsWith("vorstek ") && name !== CACHE) {
            await caches.delete(name);
        }
    }
}

/** @param {Request} request */
async function answerTo(request) {
    const cache = await caches.open(CACHE);
    return (await cache.match(request, {ignoreSearch: true})) ?? fetch(request);
}

scope.addEventListener("install", (/** @type {any} */ event) => event.waitUntil(fetchAll()));
scope.addEventListener("activate", (/** @type {any} */ event) => event.waitUntil(removeOthers()));
scope.addEventListener("fetch", (/** @type {any} */ event) => {
    event.respondWith(answerTo(event.request));
});
