// The search of the manual. It works without a server: the index page loads the
// texts of all sections from search-data.js. Other pages only show the form,
// which opens the index page with the words to search for.

"use strict";

const maxResults = 30;
const snippetLength = 160;          // characters

function words(text) {
    return text.toLowerCase().split(/\s+/).filter(Boolean);
}

// How well a text fits a word: 0, or 1 for a part of a word, 3 for a complete
// one, 5 for the first of the text.
function fit(text, word) {
    if (!text.includes(word))
        return 0;
    const spaced = " " + text.replace(/[,;:.()\u201c\u201d]+(\s|$)/g, " ") + " ";
    return spaced.startsWith(" " + word + " ") ? 5 : spaced.includes(" " + word + " ") ? 3 : 1;
}

// 0 if the section does not contain every word. Headings and index words count
// more than the text.
function score(section, wanted) {
    const [, page, , heading, index, text] = section.map((part) => part.toLowerCase());
    let total = 0;
    for (const word of wanted) {
        const found = 4 * fit(heading, word) + 3 * fit(index, word) + fit(page, word) + fit(text, word);
        if (!found)
            return 0;
        total += found;
    }
    const phrase = wanted.join(" ");
    return total + 15 * (heading + "; " + index).includes(phrase) + 5 * text.includes(phrase);
}

// The text around the first word that it contains.
function snippet(text, wanted) {
    const places = wanted.map((word) => text.toLowerCase().indexOf(word)).filter((at) => at >= 0);
    const first = places.length ? Math.min(...places) : 0;
    const start = first < snippetLength / 2 ? 0 : text.lastIndexOf(" ", first - snippetLength / 3) + 1;
    const end = start + snippetLength < text.length ? text.lastIndexOf(" ", start + snippetLength)
        : text.length;
    return (start ? "\u2026 " : "") + text.slice(start, end).trim() + (end < text.length ? " \u2026" : "");
}

function element(tag, text) {
    const made = document.createElement(tag);
    made.textContent = text;
    return made;
}

function resultItem(section, wanted) {
    const [address, page, anchor, heading, , text] = section;
    const item = document.createElement("li");
    const link = element("a", heading === page ? page : page + ": " + heading);
    link.href = anchor === "top" ? address : address + "#" + anchor;
    item.append(link, element("p", snippet(text, wanted)));
    return item;
}

function showResults(query) {
    const results = document.getElementById("results");
    const wanted = words(query);
    const found = manualSections.map((section) => [score(section, wanted), section])
        .filter(([points]) => points > 0).sort((a, b) => b[0] - a[0]).slice(0, maxResults);
    results.hidden = wanted.length === 0;
    results.replaceChildren(element("h2", found.length ? "Search results" : "Nothing found"));
    if (!found.length) {
        results.append(element("p", "No section contains all of these words: " + query.trim()));
        return;
    }
    const list = document.createElement("ol");
    list.className = "results";
    list.append(...found.map(([, section]) => resultItem(section, wanted)));
    results.append(list);
}

const form = document.querySelector("form.search");
form.hidden = false;
if (window.manualSections) {
    const query = new URLSearchParams(location.search).get("q") || "";
    form.q.value = query;
    form.q.addEventListener("input", () => showResults(form.q.value));
    form.addEventListener("submit", (event) => event.preventDefault());
    showResults(query);
}
