"""What the tests of the packages have in common. Each is started with the folder
of the packages and what else its own text says."""

import pathlib
import posixpath
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "build" / "web" / "vorstek.html"
TIMEOUT = 240
ARGUMENTS = []      # after the folder


def version():
    text = (ROOT / "CMakeLists.txt").read_text()
    return re.search(r"^project\(Vorstek VERSION (\S+)", text, re.MULTILINE)[1]


def package(name):
    """A package by its name, in which VERSION stands for the version."""
    return pathlib.Path(ARGUMENTS[0]) / name.replace("VERSION", version())


def run(*command, **options):
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=TIMEOUT, check=False, **options)


def wine(*command, **options):
    """Its output goes through a file: Wine's desktop, which a program may start,
    would hold a pipe open for longer than the program runs."""
    with tempfile.TemporaryFile() as out:
        done = subprocess.run([ROOT / "scripts" / "wine-run", *command], stdin=subprocess.DEVNULL,
                              stdout=out, stderr=subprocess.STDOUT, timeout=TIMEOUT, check=False,
                              **options)
        out.seek(0)
        done.stdout = out.read()
    return done


def examples():
    """Listings, data files, pictures and the page that describes them, by their
    paths; commands.txt, from which the pictures are drawn, is not packed."""
    folder = ROOT / "examples"
    return {path.relative_to(folder.parent).as_posix(): path.read_bytes()
            for path in folder.rglob("*") if path.is_file() and path.name != "commands.txt"}


def editor_kits():
    folder = ROOT / "editors"
    return {path.relative_to(ROOT).as_posix(): path.read_bytes()
            for path in folder.rglob("*") if path.is_file()}


def broken_links(held, name):
    """The links of the page with this path that lead to none of the files held."""
    folder = posixpath.dirname(name)
    links = re.findall(r"\]\(([^)#:]+)\)", held[name].decode())
    assert links, name
    targets = {posixpath.normpath(posixpath.join(folder, link)): link for link in links}
    return sorted(link for target, link in targets.items()
                  if not any(path == target or path.startswith(target + "/") for path in held))


def files(folder):
    """All files in a folder, by their paths in it."""
    return {path.relative_to(folder).as_posix(): path.read_bytes()
            for path in pathlib.Path(folder).rglob("*") if path.is_file()}


def main(count):
    """Runs the tests of a file that needs so many arguments."""
    if len(sys.argv) < 1 + count:
        sys.exit(f"usage: {sys.argv[0]} PACKAGES ...")
    ARGUMENTS.extend(sys.argv[1:1 + count])
    unittest.main(argv=[sys.argv[0], *sys.argv[1 + count:]])
