#!/usr/bin/env python3
"""Makes one file of the folder of the page, with everything that it needs inside.

usage: bundle.py FOLDER OUTPUT.html

Style sheets and scripts become part of the page, pictures become data: addresses, and
the worker, the module, sounds and examples become elements with their path as
data-asset, in base64. A content security policy admits exactly the scripts and styles
that were put in, by their hashes, and no connection to anywhere."""

import base64
import hashlib
import pathlib
import re
import sys

PAGE = "vorstek.html"
WORKER = "worker.js"

# Files that the page asks for by their path.
ASSETS = ("vorstek.wasm", "examples.json", "sounds/*.wav")

KINDS = {".png": "image/png", ".svg": "image/svg+xml", ".ico": "image/x-icon"}

IMPORT = re.compile(r'^import \{([^}]*)\} from "([^"]+)";\n', re.MULTILINE)
EXPORT = re.compile(r"^export (?=(?:async )?(?:class|function|const) )", re.MULTILINE)
EXPORTED = re.compile(r"^export (?:async )?(?:class|function|const) (\w+)", re.MULTILINE)


class Scripts:
    """Modules in the order in which they are needed, each in a function of its own."""

    def __init__(self):
        self.names = {}     # path: name of what it exports; None while it is being read
        self.text = ""

    def add(self, path):
        path = path.resolve()
        if path in self.names:
            if self.names[path] is None:
                sys.exit(f"bundle.py: {path.name} imports itself through others")
            return self.names[path]
        self.names[path] = None
        source = path.read_text(encoding="utf-8")
        body = IMPORT.sub(lambda found: self.taken(path, found), source)
        exported = ", ".join(EXPORTED.findall(body))
        body = EXPORT.sub("", body)
        if re.search(r"^(import|export)\b", body, re.MULTILINE):
            sys.exit(f"bundle.py: {path.name} imports or exports in a way that is not known here")
        name = f"{path.stem}_module"
        if name in self.names.values():
            sys.exit(f"bundle.py: there are two files {path.name}")
        self.names[path] = name
        self.text += f"const {name} = (() => {{\n{body}return {{ {exported} }};\n}})();\n"
        return name

    def taken(self, path, found):
        names = found[1].replace(" as ", ": ")
        return f"const {{{names}}} = {self.add(path.parent / found[2])};\n"


def script(folder, path):
    scripts = Scripts()
    scripts.add(folder / path)
    return f'"use strict";\n{scripts.text}'


def data_address(path):
    if path.suffix not in KINDS:
        sys.exit(f"bundle.py: {path.name} is no picture")
    return f"data:{KINDS[path.suffix]};base64,{base64.b64encode(path.read_bytes()).decode()}"


def style(folder, path):
    source = (folder / path).read_text(encoding="utf-8")
    here = (folder / path).parent
    return re.sub(r'url\("?(?!data:|#)([^")]+)"?\)',
                  lambda found: f'url("{data_address(here / found[1])}")', source)


def asset(path, content):
    return (f'<script type="text/plain" data-asset="{path}">'
            f"{base64.b64encode(content).decode()}</script>\n")


def assets(folder):
    yield asset(WORKER, script(folder, WORKER).encode())
    for pattern in ASSETS:
        for path in sorted(folder.glob(pattern)):
            yield asset(path.relative_to(folder).as_posix(), path.read_bytes())


def digest(text):
    return f"'sha256-{base64.b64encode(hashlib.sha256(text.encode()).digest()).decode()}'"


class Bundle:

    def __init__(self, folder):
        self.folder = folder
        self.scripts, self.styles = [], []
        page = (folder / PAGE).read_text(encoding="utf-8")
        page = re.sub(r'<link rel="manifest"[^>]*>\n?', "", page)
        page = re.sub(r'<link rel="stylesheet" href="([^"]+)">', self.put_style, page)
        page = re.sub(r'<script type="module" src="([^"]+)"></script>', self.put_script, page)
        page = re.sub(r'(<(?:img|link)\b[^>]*\b(?:src|href)=")(?!data:|#)([^"]+)"',
                      lambda found: f'{found[1]}{data_address(folder / found[2])}"', page)
        page = page.replace('<meta charset="utf-8">', f'<meta charset="utf-8">\n{self.policy()}', 1)
        self.page = page.replace("</body>", "".join(assets(folder)) + "</body>", 1)

    def put_style(self, found):
        text = style(self.folder, found[1])
        self.styles.append(digest(text))
        return f"<style>{text}</style>"

    def put_script(self, found):
        text = script(self.folder, found[1])
        if "</script" in text:
            sys.exit(f"bundle.py: {found[1]} would end its element")
        self.scripts.append(digest(text))
        return f'<script type="module">{text}</script>'

    def policy(self):
        """A worker made of a blob inherits it; WebAssembly has to be allowed by name."""
        rules = {
            "default-src": ["'none'"],
            "script-src": [*self.scripts, "'wasm-unsafe-eval'"],
            "style-src": self.styles,
            "worker-src": ["blob:"],
            "img-src": ["data:", "blob:"],
            "base-uri": ["'none'"],
            "form-action": ["'none'"],
        }
        text = "; ".join(" ".join([rule, *values]) for rule, values in rules.items())
        return f'<meta http-equiv="Content-Security-Policy" content="{text}">'


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    page = Bundle(pathlib.Path(sys.argv[1])).page
    pathlib.Path(sys.argv[2]).write_text(page, encoding="utf-8")


main()
