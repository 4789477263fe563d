// console.h - vorstek-cli: the calculator in a terminal, a script or a build
// server. It adds no rules to the calculator.

#ifndef CONSOLE_CONSOLE_H
#define CONSOLE_CONSOLE_H

#include <iosfwd>
#include <string>
#include <vector>

// Exit codes, the same for every command.
const int kExitDone   = 0;
const int kExitError  = 1;  // the calculator reported an error
const int kExitUsage  = 2;  // wrong usage, or a file that cannot be read or written
const int kExitHalted = 3;  // halted by --max-lines

struct cStreams
{
    std::istream *m_pIn;
    std::ostream *m_pOut;
    std::ostream *m_pErr;
};

// Runs the command given by the arguments (without the program's name); returns
// the exit code.
int RunConsole(int nArguments, const char *const *ppArguments, const cStreams &Streams);

// Prints "vorstek-cli: " and the text as one line; returns kExitUsage.
int ReportUsage(const cStreams &Streams, const std::string &Text);

// Asks in a terminal for a key and waits for it: what was printed is read before a
// window that was opened for the command closes.
void WaitAtEnd(const cStreams &Streams);

#endif
