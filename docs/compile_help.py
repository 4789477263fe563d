#!/usr/bin/env python3
"""Compiles a help file: compile_help.py CHMCMD PROJECT.hhp NAME FOLDER

NAME is the file that the project names; it is put into FOLDER. The compiler
goes on, and returns 0, where it misses a file that it should take in; here
that is a failure, and the compiler's words are printed."""

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
