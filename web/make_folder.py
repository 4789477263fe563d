#!/usr/bin/env python3
"""Makes the folder of the calculator for a server: make_folder.py MODULE.wasm FOLDER

Beside the page with its files it holds the engine, and what a browser needs to install
the page as an application that works without network."""

import hashlib
import json
import pathlib
import shutil
import struct
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ICON = HERE.parent / "resources" / "icons" / "vorstek.ico"
SCRIPTS = ("engine.js", "module.js", "wasi.js", "worker.js")
SERVICE_WORKER = "service_worker.js"
PNG = b"\x89PNG"

MANIFEST = {
    "name": "Vorstek",
    "description": "A programmable scientific calculator",
    "start_url": "vorstek.html",
    "display": "standalone",
    "background_color": "#e9e6df",
    "theme_color": "#e9e6df",
    "icons": [{"src": "pictures/icon.png", "sizes": "256x256", "type": "image/png"}],
}


def largest_icon():
    """The picture of 256 by 256 pixels; the smaller ones are no PNG files."""
    data = ICON.read_bytes()
    (count,) = struct.unpack_from("<4xH", data)
    for at in range(6, 6 + 16 * count, 16):
        size, start = struct.unpack_from("<8xII", data, at)
        if data.startswith(PNG, start):
            return data[start:start + size]
    sys.exit(f"make_folder.py: {ICON.name} has no picture that is a PNG file")


def service_worker(files):
    """It is another one whenever a file has changed, so that browsers fetch them again."""
    text = (HERE / SERVICE_WORKER).read_text(encoding="utf-8")
    digest = hashlib.sha256(text.encode())
    for content in files.values():
        digest.update(content)
    for mark, value in (('VERSION = ""', digest.hexdigest()[:16]), ("FILES = []", sorted(files))):
        if mark not in text:
            sys.exit(f"make_folder.py: {SERVICE_WORKER} has no {mark}")
        text = text.replace(mark, f"{mark.split()[0]} = {json.dumps(value)}")
    return text


def main(module, folder):
    shutil.rmtree(folder, ignore_errors=True)
    subprocess.run([sys.executable, "-B", HERE / "page" / "make_page.py", folder], check=True)
    for name in SCRIPTS:
        shutil.copyfile(HERE / name, folder / name)
    shutil.copyfile(module, folder / "vorstek.wasm")
    (folder / "pictures" / "icon.png").write_bytes(largest_icon())
    (folder / "manifest.webmanifest").write_text(json.dumps(MANIFEST, indent=4) + "\n",
                                                 encoding="utf-8")
    files = {path.relative_to(folder).as_posix(): path.read_bytes()
             for path in sorted(folder.rglob("*")) if path.is_file()}
    (folder / SERVICE_WORKER).write_text(service_worker(files), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1].startswith("-"):
        sys.exit(__doc__)
    main(*map(pathlib.Path, sys.argv[1:]))
