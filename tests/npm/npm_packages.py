"""Packages of npm for tests. Debian packages: nodejs npm."""

import filecmp
import shutil
import subprocess
import sys

PACKAGE_FILES = ("package.json", "package-lock.json")
NPM_TIME = 120                  # seconds


def fetch(wanted, folder, *files):
    """Gets what the package files in the folder "wanted" name, unless it is there:
    files are paths in node_modules. npm checks all against the checksums of the lock
    file. Ends the process if it cannot."""
    modules = folder / "node_modules"
    if all((modules / file).exists() for file in files) and all(
            (folder / name).exists()
            and filecmp.cmp(wanted / name, folder / name, shallow=False)
            for name in PACKAGE_FILES):
        return
    npm = shutil.which("npm")
    if not npm:
        sys.exit("npm is not installed (Debian packages: nodejs npm)")
    folder.mkdir(parents=True, exist_ok=True)
    for name in PACKAGE_FILES:
        shutil.copy(wanted / name, folder)
    try:
        done = subprocess.run(
            [npm, "ci", "--ignore-scripts", "--no-audit", "--no-fund", "--fetch-retries=1"],
            cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, text=True, timeout=NPM_TIME, check=False)
        said = done.stdout
    except subprocess.TimeoutExpired:
        said = f"npm did not finish within {NPM_TIME} seconds"
    if not all((modules / file).exists() for file in files):
        sys.exit(f"{' and '.join(files)} cannot be fetched: is the npm registry reachable?\n{said}")
