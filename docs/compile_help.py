#!/usr/bin/env python3
"""Compiles a help file: compile_help.py CHMCMD PROJECT.hhp NAME FOLDER

NAME is the output file of the project; it is moved to FOLDER. If a file of the
project is missing, the compiler only warns and returns 0. This script then fails
and prints the compiler's output."""

import pathlib
import subprocess
import sys


def compile_help(compiler, project, name, folder):
    project = pathlib.Path(project)
    made = project.parent / name
    made.unlink(missing_ok=True)
    done = subprocess.run([compiler, "--verbosity", "1", "--no-html-scan", project.name],
                          cwd=project.parent, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False)
    if done.returncode or "Warning" in done.stdout or not made.exists():
        sys.exit(f"{done.stdout}\n{name} was not made")
    made.replace(pathlib.Path(folder) / name)


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    compile_help(*sys.argv[1:])
