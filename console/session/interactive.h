// interactive.h - vorstek-cli without a command, in a terminal.

#ifndef CONSOLE_SESSION_INTERACTIVE_H
#define CONSOLE_SESSION_INTERACTIVE_H

#include "console/console.h"

// Works with the person at the terminal until they end it; returns the exit code.
int RunInteractive(const cStreams &Streams);

#endif
