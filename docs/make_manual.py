#!/usr/bin/env python3
"""Makes the pages of the manual and the input files of the help compiler.

usage: make_manual.py HELP_FOLDER PROJECT_FOLDER

HELP_FOLDER/HtmlHelp gets the pages for browsers, with an index page and a
search. PROJECT_FOLDER/HtmlHelp gets the pages for the help files, whose viewer
has its own index and search, and PROJECT_FOLDER gets the project (.hhp),
contents (.hhc) and index (.hhk) of each help file.

The sources in manual/ are pages that any browser can show. This script adds
what would be repeated on every page: key caps, the tables of keystrokes, scope
and focus attributes, the links at the top and bottom. The sources use this
markup:

  <kbd>f ln</kbd>        calculator keys, by their legends. A shifted legend
                         follows f or g. <kbd class="pc"> is a PC key.
  <pre class="keys">     one line per row: KEYS | DISPLAY | NOTE. DISPLAY is what
                         the calculator shows after these keys.
  <pre class="card">     is filled with all keys from shell/key_names.cpp
  data-index="A; B"      index words for an element that has an id

A file .contents lists the pages of a help file. An indented page belongs to
the page above it; "include FILE" inserts another list.
"""

import html
import json
import os
import pathlib
import re
import shutil
import sys

SOURCES = pathlib.Path(__file__).resolve().parent / "manual"
KEY_NAMES = SOURCES.parents[1] / "shell" / "key_names.cpp"
PAGES = "HtmlHelp"              # folder of the pages, also inside the help files
INDEX_PAGE = "word-index.html"  # only for browsers; topics of help files are .htm

# Help files: name, contents, title of the viewer's window.
HELP_FILES = (
    ("VORSTEK.chm", "calculator.contents", "Vorstek Help"),
    ("cVantor.CHM", "graph.contents", "cVantor Help"),
)

# Looks of the keys, by their legends. All others are dark.
KEY_KINDS = {
    "f": "f", "g": "g", "ENTER": "enter", "STACK": "slide", "X": "slide", "PRGM": "slide",
    "RUN": "slide", **dict.fromkeys("0123456789.", "digit"),
}
KEY_TEXTS = {"x<>y": "x\u2194y", "-": "\u2212", "*": "\u00d7", "/": "\u00f7", "\u03a3-": "\u03a3\u2212",
             "x-bar": '<span class="bar">x</span><span class="unseen">-bar</span>'}

# What each scrolling block contains, for screen readers.
BLOCK_NAMES = {"listing": "Listing", "session": "Terminal session",
               "dialogue": "Calculating in a terminal",
               "debugging": "Debugging in a terminal", "data": "Data file", "script": "Script"}


class Page:
    """A source page."""

    def __init__(self, name):
        self.name = name
        self.source = with_card(with_ids((SOURCES / name).read_text(encoding="utf-8")))
        self.title = plain(re.search("<title>(.*?)</title>", self.source, re.S).group(1))

    def address(self):
        return self.name.replace(" ", "%20")

    def sections(self):
        """(id, heading, index words, text) of each part that has a heading."""
        parts = re.split(r'(?=<h[123]\b)', self.source.partition("<body")[2])[1:]
        for part in parts:
            tag, heading, text = re.match(r"(<[^>]*>)(.*?)</h[123]>(.*)", part, re.S).groups()
            words = re.search(r'data-index="([^"]*)"', tag)
            yield (re.search(r'\bid="([^"]*)"', tag).group(1), folded(heading),
                   html.unescape(words.group(1)) if words else "", folded(text))

    def index(self):
        """Index entries as (word, address)."""
        for tag in re.findall(r"<\w+[^>]*\bdata-index=[^>]*>", self.source):
            words = html.unescape(re.search(r'data-index="([^"]*)"', tag).group(1))
            anchor = re.search(r'\bid="([^"]*)"', tag).group(1)
            target = self.name if tag.startswith("<h1") else f"{self.name}#{anchor}"
            for word in words.split(";"):
                yield word.strip(), target


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup)).strip()


def folded(markup):
    """The text of some markup on one line. A cell or a block ends a word."""
    return " ".join(plain(re.sub(r"</(td|th|p|li|pre|h\d)>|<br>", " ", markup)).replace(" | ", " ").split())


def with_ids(source):
    """Headings without an id get one from their text, for links to them."""
    def add(match):
        slug = re.sub(r"[^a-z0-9]+", "-", plain(match.group(2)).lower()).strip("-")
        return f'<{match.group(1)} id="{slug}">{match.group(2)}</{match.group(1)}>'
    return re.sub(r"<(h[23])>(.*?)</\1>", add, source)


def key_rows():
    """The table of the keys: for each, legend, meaning and PC key of its three
    functions. None between two rows of the face."""
    table = KEY_NAMES.read_text(encoding="utf-8")
    true_test = re.search(r'kTrueTest = ("[^"]*")', table).group(1)
    table = re.search(r"kKeyNames\[kFaceKeys\] =\n\{\n(.*?)\n\};", table, re.S).group(1)
    for line in table.replace("kTrueTest", true_test).split("\n"):
        texts = re.findall(r'"([^"]*)"', line)
        yield (texts[1:4], texts[4:7], texts[7:10]) if texts else None


def with_card(source):
    """The card as one line per key: KEY | MEANING | GOLD | MEANING | BLUE | MEANING. An
    empty line starts a new row of keys."""
    def cells(functions):
        for legend, meaning, _ in functions:
            yield html.escape(legend).replace(" ", "_")
            yield re.sub(r"\b([dr])\b", r"<i>\1</i>", html.escape(meaning))

    def fill(match):
        lines = [" | ".join(cells(row)) if row else "" for row in key_rows()]
        return match.group(1) + "\n" + "\n".join(lines) + "\n" + match.group(2)
    return re.sub(r'(<pre class="card">)(</pre>)', fill, source)


def read_contents(name):
    """The outline as (depth, page), from the top."""
    for line in (SOURCES / name).read_text(encoding="utf-8").splitlines():
        word = line.strip()
        if not word or word.startswith("#"):
            continue
        depth = (len(line) - len(line.lstrip())) // 4
        if word.startswith("include "):
            yield from read_contents(word.split(" ", 1)[1])
        else:
            yield depth, word


# --- keys

def key_cap(token, shift):
    kind = KEY_KINDS.get(token, "key")
    if shift and kind != "slide":
        kind = {"f": "gold", "g": "blue"}[shift]
    text = KEY_TEXTS.get(token) or html.escape(token.replace("_", "\u00a0"))
    text = re.sub(r"\^(-?\w+)", r"<sup>\1</sup>", text).replace("<sup>-", "<sup>\u2212")
    return f'<span class="cap {kind}">{text}</span>'


def key_caps(text):
    """Each digit of a number is a key. A shifted key stays on the same line as
    its shift key."""
    caps, shift = [], None
    for token in html.unescape(text).split():
        parts = list(token) if re.fullmatch(r"[\d.]+", token) else [token]
        for part in parts:
            cap = key_cap(part, shift)
            if shift:
                caps[-1] = f'<span class="caps">{caps[-1]} {cap}</span>'
            else:
                caps.append(cap)
            shift = part if part in ("f", "g") and not shift else None
    return " ".join(caps)


# Keys of one instruction stay on one line.
def keys_in_text(match):
    return f'<span class="caps">{key_caps(match.group(1))}</span>'


def keys_table(match):
    rows = []
    for line in match.group(2).strip("\n").split("\n"):
        cells = [cell.strip() for cell in line.split("|")] + ["", ""]
        shown = f'<span class="led">{cells[1]}</span>' if cells[1] else ""
        rows.append(f'<tr><td class="press">{key_caps(cells[0])}</td>'
                    f'<td class="shown">{shown}</td><td class="note">{cells[2]}</td></tr>')
    heads = "".join(f'<th scope="col"><span class="unseen">{name}</span></th>'
                    for name in ("Keys", "Display", "Note"))
    return f'<table class="keys">\n<tr class="heads">{heads}</tr>\n' + "\n".join(rows) + "\n</table>"


def card_table(match):
    """The keys in the order of the face. f and g have no other functions."""
    rows, first = [], ' class="first"'
    for line in match.group(1).strip("\n").split("\n"):
        if not line:
            first = ' class="first"'
            continue
        cells = [cell.strip() for cell in line.split("|")]
        row = ""
        for at, shift in enumerate((None, "f", "g")):
            name, meaning = cells[2 * at:2 * at + 2]
            cap = key_cap(html.unescape(name), shift) + " " if name else ""
            row += f"<td>{cap}<span>{meaning}</span></td>"
        rows.append(f"<tr{first}>{row}</tr>")
        first = ""
    heads = "".join(f'<th scope="col">{name}</th>' for name in
                    ("Key", key_cap("f", None) + " gold", key_cap("g", None) + " blue"))
    return f'<table class="card">\n<tr>{heads}</tr>\n' + "\n".join(rows) + "\n</table>"


# --- pages

def link(page, text, kind):
    return f'<a class="{kind}" href="{page.address()}">{text}</a>'


# A block that scrolls must be reachable with the keyboard and needs a name.
def scrolling(match):
    kind = match.group(2)
    if kind not in BLOCK_NAMES:
        return match.group()
    name = BLOCK_NAMES[kind]
    if match.group(1):
        name += " " + match.group(1)
    before = match.group()[:match.start(3) - match.start()]
    return f'{before} tabindex="0" role="group" aria-label="{name}"{match.group(3)}'


def with_attributes(text):
    """Adds what assistive technology needs."""
    text = re.sub(r'(?:<p class="file">(.*?)</p>\s*)?<pre class="(\w+)"([^>]*>)', scrolling, text)
    text = text.replace("<th>", '<th scope="col">')
    return re.sub(r'<tr><td class="nowrap">(.*?)</td>', r'<tr><th scope="row" class="nowrap">\1</th>',
                  text)


SEARCH_FORM = """<form class="search" role="search" action="{page}" hidden>
<input type="search" name="q" aria-label="Search the manual" placeholder="Search">
<button type="submit">Search</button>
</form>
"""


def page_head(first, page_name, browser):
    """The bar above a page; in a help file only the link to its first page."""
    ways = [(first.name, first.title)]
    if browser:
        home = Page("Introduction.htm")
        ways = list(dict.fromkeys([(home.name, home.title), *ways]))
        ways += [("card.htm", "Key card"), (INDEX_PAGE, "Index")]
    links = [f'<a href="{name.replace(" ", "%20")}">{html.escape(title)}</a>'
             for name, title in ways if name != page_name]
    if not links:
        return ""
    nav = '<nav aria-label="Manual">' + "\n".join(links) + "</nav>\n"
    form = SEARCH_FORM.format(page=INDEX_PAGE) if browser else ""
    return f'<header>\n<div class="top">\n{nav}{form}</div>\n</header>\n'


def page_foot(pages, at):
    ways = []
    if at > 0:
        ways.append(link(pages[at - 1], "\u2190\u00a0" + html.escape(pages[at - 1].title), "before"))
    if at + 1 < len(pages):
        ways.append(link(pages[at + 1], html.escape(pages[at + 1].title) + "\u00a0\u2192", "after"))
    return '<nav aria-label="Neighbouring pages"><p class="ways">' + "\n".join(ways) + "</p></nav>\n"


def framed(text, head, foot, scripts):
    """The page with its bar, its main part and its scripts."""
    text = re.sub(r"<body([^>]*)>\n", lambda match: f"{match.group()}{head}<main>\n", text)
    text = text.replace("</body>", f"</main>\n{foot}</body>")
    tags = "".join(f'<script src="{name}" defer></script>\n' for name in scripts)
    return text.replace("</head>", tags + "</head>")


# ASCII with references: a viewer cannot choose a wrong encoding.
def encoded(text):
    return text.encode("ascii", "xmlcharrefreplace")


def set_page(pages, at, browser):
    text = with_attributes(pages[at].source)
    text = re.sub(r'<pre class="(keys[^"]*)"[^>]*>(.*?)</pre>', keys_table, text, flags=re.S)
    text = re.sub(r'<pre class="card">(.*?)</pre>', card_table, text, flags=re.S)
    text = re.sub(r"<kbd>(.*?)</kbd>", keys_in_text, text)
    text = re.sub(r' data-\w+="[^"]*"', "", text)
    return encoded(framed(text, page_head(pages[0], pages[at].name, browser),
                          page_foot(pages, at), ["search.js"] if browser else []))


# --- index page and search

def index_topics(pages):
    """The addresses of each index word as (title of the page, address)."""
    topics = {}
    for page in pages:
        for word, address in page.index():
            topics.setdefault(word, []).append((page.title, address))
    return {word: topics[word] for word in sorted(topics, key=lambda word: (word.lower(), word))}


INDEX_PAGE_HEAD = """<!DOCTYPE html>
<html lang="en-GB">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Index</title>
<link rel="stylesheet" href="manual.css">
</head>
<body>
<h1 id="top">Index</h1>
<div id="results" aria-live="polite" hidden></div>
"""


def index_entry(word, topics):
    links = [(title, address.replace(" ", "%20")) for title, address in topics]
    if len(links) == 1:
        return f'<li><a href="{links[0][1]}">{html.escape(word)}</a></li>'
    places = ", ".join(f'<a href="{address}">{html.escape(title)}</a>' for title, address in links)
    return f"<li>{html.escape(word)}: {places}</li>"


def index_page(pages):
    """All index words, grouped by their first letters."""
    groups = {}
    for word, topics in index_topics(pages).items():
        letter = word[0].upper() if word[0].isascii() and word[0].isalpha() else "Symbols"
        groups.setdefault(letter, []).append(index_entry(word, topics))
    letters = sorted(groups, key=lambda letter: (letter != "Symbols", letter))
    text = INDEX_PAGE_HEAD + '<p class="letters">'
    text += "\n".join(f'<a href="#{letter}">{letter}</a>' for letter in letters) + "</p>\n"
    for letter in letters:
        text += f'<h2 id="{letter}">{letter}</h2>\n<ul class="words">\n'
        text += "\n".join(groups[letter]) + "\n</ul>\n"
    return encoded(framed(text + "</body>\n</html>\n", page_head(pages[0], INDEX_PAGE, True),
                          '<nav aria-label="Neighbouring pages"><p class="ways">'
                          + link(pages[0], html.escape(pages[0].title), "before") + "</p></nav>\n",
                          ["search-data.js", "search.js"]))


# A plain assignment: a browser lets no page read other files from the disk.
def search_data(pages):
    sections = [[page.address(), page.title, *section]
                for page in pages for section in page.sections()]
    rows = ",\n".join(json.dumps(section) for section in sections)
    return encoded(f"// address, page, anchor, heading, index words, text\nvar manualSections = [\n{rows}\n];\n")


# --- input of the help compiler

def sitemap(name, *topics):
    """One line of contents or index; topics are (title, address)."""
    params = [("Name", name)]
    for title, address in topics:
        params += [("Name", title)] * (len(topics) > 1) + [("Local", f"{PAGES}/{address}")]
    return '<LI><OBJECT type="text/sitemap">%s</OBJECT>\n' % "".join(
        f'<param name="{key}" value="{html.escape(value)}">' for key, value in params)


def sitemap_file(items):
    return ('<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<HTML>\n<HEAD>\n</HEAD>\n<BODY>\n'
            + items + "</BODY>\n</HTML>\n")


def contents_file(outline):
    text, depth = "", -1
    for level, page in outline:
        text += "<UL>\n" * (level - depth) + "</UL>\n" * (depth - level)
        text += sitemap(page.title, (page.title, page.name))
        depth = level
    return sitemap_file(text + "</UL>\n" * (depth + 1))


def index_file(outline):
    topics = index_topics([page for _, page in outline])
    return sitemap_file("<UL>\n" + "".join(sitemap(word, *topics[word]) for word in topics) +
                        "</UL>\n")


def project_file(name, title, outline, others):
    stem = name.split(".")[0]
    start = f"{PAGES}/{outline[0][1].name}"
    files = [f"{PAGES}/{page.name}" for _, page in outline] + others
    return "\n".join([
        "[OPTIONS]", "Compatibility=1.1 or later", f"Compiled file={name}",
        f"Contents file={stem}.hhc", f"Index file={stem}.hhk", f"Default topic={start}",
        "Default window=main", f"Title={title}", "Language=0x409 English (United States)",
        "Full-text search=Yes", "Binary TOC=No", "Binary Index=Yes", "",
        "[WINDOWS]",
        f'main="{title}","{stem}.hhc","{stem}.hhk","{start}","{start}",,,,,0x63520,230,0x184e,'
        "[80,60,1040,760],,,,,,,0", "",
        "[FILES]", *files, ""])


# The compiler expects names and titles in Windows code page 1252.
def write(path, text):
    path.write_bytes(text.replace("\n", "\r\n").encode("cp1252", "strict"))


def make_help_file(folder, name, contents, title):
    outline = [(depth, Page(page)) for depth, page in read_contents(contents)]
    stem = name.split(".")[0]
    others = [f"{PAGES}/manual.css"] + sorted({
        f"{PAGES}/{picture}" for _, page in outline
        for picture in re.findall(r'<img[^>]*\bsrc="([^"]*)"', page.source)})
    write(folder / f"{stem}.hhc", contents_file(outline))
    write(folder / f"{stem}.hhk", index_file(outline))
    write(folder / f"{stem}.hhp", project_file(name, title, outline, others))


def make_pages(folder, browser):
    folder.mkdir(parents=True)
    shutil.copy(SOURCES / "manual.css", folder)
    shutil.copytree(SOURCES / "pictures", folder / "pictures",
                    ignore=shutil.ignore_patterns("*.py"))
    done = set()
    for _, contents, _ in reversed(HELP_FILES):     # shared pages link to the graph's pages
        names = [name for _, name in read_contents(contents) if name not in done]
        pages = [Page(name) for name in names]
        for at, page in enumerate(pages):
            (folder / page.name).write_bytes(set_page(pages, at, browser))
        done.update(names)
    if browser:
        pages = [Page(name) for _, name in read_contents(HELP_FILES[0][1])]
        (folder / INDEX_PAGE).write_bytes(index_page(pages))
        (folder / "search-data.js").write_bytes(search_data(pages))
        shutil.copy(SOURCES / "search.js", folder)


def main(help_folder, project_folder):
    for folder, browser in ((help_folder, True), (project_folder, False)):
        shutil.rmtree(folder / PAGES, ignore_errors=True)
        make_pages(folder / PAGES, browser)
    for help_file in HELP_FILES:
        make_help_file(project_folder, *help_file)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    os.makedirs(sys.argv[1], exist_ok=True)
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
