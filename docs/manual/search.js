// The search of the manual. It works without a server: the index page loads the
// texts of all sections from search-data.js. Other pages only show the form,
// which opens the index page with the words to search for.

"use strict";

const maxResults = 30;
const snippetLength = 160;          // characters

function words(text) {
    return text.toLowerCase().split(/\s+/).filter(Boolean);
}

// 0 if the section does not contain every word. A word in a heading or among
// the index words counts more than one in the text.
function score(section, wanted) {
    const [, page, , heading, index, text] = section.map((part) => part.toLowerCase());
    let total = 0;
    for (const word of wanted) {
        const found = 12 * heading.includes(word) + 8 * index.includes(word) +
            4 * page.includes(word) + Math.min(text.split(word).length - 1, 5);
        if (!found)
            return 0;
        total += found;
    }
    return total;
}

// The text around the first word that it contains.
function snippet(text, wanted) {
    const places = wanted.map((word) => text.toLowerCase().indexOf(word)).filter((at) => at >= 0);
    const first = places.length ? Math.min(...places) : 0;
    const start = first < snippetLength / 2 ? 0 : text.lastIndexOf(" ", first - snippetLength / 3) + 1;
    const end = start + snippetLength;
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
