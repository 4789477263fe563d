#!/usr/bin/env python3
"""Makes the module that can suspend itself: make_module.py [--checked] LINKED MODULE

Every function that may be on the stack when the module waits gets code to leave
and to enter it again. That costs half of the speed of a running program, so the
run loop and what it calls are kept free of it: the host makes no line of a
program wait (web_host.h). With --checked the module traps where one would."""

import subprocess
import sys

# The functions that wait.
SUSPENDING = "vorstek.wait,vorstek.converse"

# Functions that call what they do not know, but never something that waits, and
# why.
NEVER_SUSPENDED = [
    "*RunLines*",                           # the host keeps what lines would wait for
    "cCalculator::ShowProgramError*",       # informs, and goes on
    "cCalculator::ShowUserError*",          # plays a sound
    "snprintf", "vfprintf", "fwrite", "fflush",  # streams are in memory
]


def wasm_opt(*arguments):
    result = subprocess.run(["wasm-opt", *arguments], capture_output=True, text=True, check=False)
    messages = result.stdout + result.stderr
    # It only warns if one of the functions has another name now.
    if result.returncode != 0 or "non-matching" in messages:
        sys.exit(f"make_module.py: {messages}")


def main():
    *options, linked, module = sys.argv[1:]
    suspendable = [
        "-g", "-O3", "--asyncify",
        f"--pass-arg=asyncify-imports@{SUSPENDING}",
        f"--pass-arg=asyncify-removelist@{','.join(NEVER_SUSPENDED)}",
    ]
    if "--checked" in options:
        suspendable.append("--pass-arg=asyncify-asserts")
    wasm_opt(*suspendable, linked, "-o", module)
    wasm_opt("-O3", "--strip-debug", "--strip-producers", module, "-o", module)


main()
