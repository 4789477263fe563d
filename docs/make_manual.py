#!/usr/bin/env python3
"""Sets the pages of the manual and writes what the help compiler needs.

usage: make_manual.py HELP_FOLDER PROJECT_FOLDER

HELP_FOLDER/HtmlHelp gets the pages, style sheet and pictures as they are read
in a browser. PROJECT_FOLDER gets the same, and for each help file its project
(.hhp), contents (.hhc) and index (.hhk).

The sources in manual/ are pages that any browser shows. Here they get what
each page would only repeat: key caps, the tables of keystrokes, the links to
the pages before and behind. Three things are marked in the sources:

  <kbd>f ln</kbd>        keys of the face, by the texts on them. Shifted ones
                         stand behind f or g. <kbd class="pc"> is a PC key.
  <pre class="keys">     a line each: KEYS | DISPLAY | NOTE. What stands behind
                         the first bar is shown when these keys have been hit.
  data-index="A; B"      words of the index for an element that has an id

A file .contents lists the pages of a help file, indented below the page to
which they belong; "include FILE" takes in another one.
"""

import html
import os
import pathlib
import re
import shutil
import sys

SOURCES = pathlib.Path(__file__).resolve().parent / "manual"
PAGES = "HtmlHelp"          # folder of the pages, in help files too

# Help files: name, contents, title of the viewer's window.
HELP_FILES = (
    ("VORSTEK.chm", "calculator.contents", "Vorstek Help"),
    ("cVantor.CHM", "graph.contents", "cVantor Help"),
)

# How the keys look, by the texts on them. All others are dark.
KEY_KINDS = {
    "f": "f", "g": "g", "ENTER": "enter", "STACK": "slide", "X": "slide", "PRGM": "slide",
    "RUN": "slide", **dict.fromkeys("0123456789.", "digit"),
}
KEY_TEXTS = {"x<>y": "x\u2194y", "-": "\u2212", "*": "\u00d7", "/": "\u00f7", "\u03a3-": "\u03a3\u2212",
             "x-bar": '<span class="bar">x</span>'}


class Page:
    """A page of the sources."""

    def __init__(self, name):
        self.name = name
        self.source = (SOURCES / name).read_text(encoding="utf-8")
        self.title = plain(re.search("<title>(.*?)</title>", self.source, re.S).group(1))

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
    """Each digit of a number is a key. A shifted key stays on the line of its
    shift."""
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
    return '<table class="keys">\n' + "\n".join(rows) + "\n</table>"


# --- pages

def link(page, text, kind):
    return f'<a class="{kind}" href="{page.name.replace(" ", "%20")}">{text}</a>'


def page_ends(pages, at):
    """What stands at the head and at the foot of a page."""
    first, page = pages[0], pages[at]
    head = ""
    if page is not first:
        head = f'<p class="home">{link(first, html.escape(first.title), "up")}</p>\n'
    ways = []
    if at > 0:
        ways.append(link(pages[at - 1], "\u2190\u00a0" + html.escape(pages[at - 1].title), "before"))
    if at + 1 < len(pages):
        ways.append(link(pages[at + 1], html.escape(pages[at + 1].title) + "\u00a0\u2192", "behind"))
    return head, '<p class="ways">' + "\n".join(ways) + "</p>\n"


def set_page(pages, at):
    """The page as it is read, in ASCII: no viewer can mistake its letters."""
    text = pages[at].source
    text = re.sub(r'<pre class="(keys[^"]*)"[^>]*>(.*?)</pre>', keys_table, text, flags=re.S)
    text = re.sub(r"<kbd>(.*?)</kbd>", keys_in_text, text)
    text = re.sub(r' data-\w+="[^"]*"', "", text)
    head, foot = page_ends(pages, at)
    text = text.replace("<body>\n", "<body>\n" + head).replace("</body>", foot + "</body>")
    return text.encode("ascii", "xmlcharrefreplace")


# --- what the help compiler reads

def sitemap(name, *topics):
    """A line of contents or index; topics are (title, address)."""
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
    topics = {}
    for _, page in outline:
        for word, address in page.index():
            topics.setdefault(word, []).append((page.title, address))
    words = sorted(topics, key=lambda word: (word.lower(), word))
    return sitemap_file("<UL>\n" + "".join(sitemap(word, *topics[word]) for word in words) +
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


# The compiler takes names and titles as Windows does in the west.
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


def make_pages(folder):
    folder.mkdir(parents=True)
    shutil.copy(SOURCES / "manual.css", folder)
    shutil.copytree(SOURCES / "pictures", folder / "pictures",
                    ignore=shutil.ignore_patterns("*.py"))
    done = set()
    for _, contents, _ in reversed(HELP_FILES):     # pages that two files hold are the graph's
        names = [name for _, name in read_contents(contents) if name not in done]
        pages = [Page(name) for name in names]
        for at, page in enumerate(pages):
            (folder / page.name).write_bytes(set_page(pages, at))
        done.update(names)


def main(help_folder, project_folder):
    for folder in (help_folder, project_folder):
        shutil.rmtree(folder / PAGES, ignore_errors=True)
    make_pages(project_folder / PAGES)
    shutil.copytree(project_folder / PAGES, help_folder / PAGES)
    for help_file in HELP_FILES:
        make_help_file(project_folder, *help_file)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    os.makedirs(sys.argv[1], exist_ok=True)
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
