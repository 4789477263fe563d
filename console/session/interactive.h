// interactive.h - works with a person at a terminal, or performs the lines of a script.

#ifndef CONSOLE_SESSION_INTERACTIVE_H
#define CONSOLE_SESSION_INTERACTIVE_H

#include "console/console.h"

class cSession;

// vorstek-cli without a command. Returns the exit code, as the next one does.
int RunInteractive(const cStreams &Streams);

// Performs the lines that are typed, or those of a pipe or a file, until the session
// or they end. kExitError if one of a pipe or a file had an error, kExitUsage
// if they cannot be read.
int RunSession(cSession *pSession, const cStreams &Streams);

#endif
