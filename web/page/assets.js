// assets.js - the files beside the page. A page that is one file carries them in elements
// with the path as data-asset: <script type="text/plain" data-asset="worker.js">, the bytes
// in base64. The pictures are the style sheet's business.

/**
 * @param {string} path
 * @returns {Uint8Array | null}
 */
function embedded(path) {
    const element = document.querySelector(`[data-asset="${path}"]`);
    if (!element) {
        return null;
    }
    return Uint8Array.from(atob((element.textContent ?? "").trim()), (c) => c.charCodeAt(0));
}

/**
 * @param {string} path
 * @returns {Promise<ArrayBuffer>}
 */
export async function assetBytes(path) {
    const bytes = embedded(path);
    if (bytes) {
        return /** @type {ArrayBuffer} */ (bytes.buffer);
    }
    const answer = await fetch(path);
    if (!answer.ok) {
        throw new Error(`${path}: ${answer.status}`);
    }
    return answer.arrayBuffer();
}

/** The worker of the calculator. One that the page carries is a classic script. */
export function assetWorker() {
    const bytes = embedded("worker.js");
    if (!bytes) {
        return new Worker("worker.js", {type: "module"});
    }
    return new Worker(URL.createObjectURL(new Blob([bytes], {type: "text/javascript"})));
}
