// help.h - what --help prints, made from the table of commands.

#ifndef CONSOLE_HELP_H
#define CONSOLE_HELP_H

#include <iosfwd>

struct cCommandRow;

// The commands, a line each.
void PrintUsage(std::ostream *pOut);

// A command with its options.
void PrintCommandHelp(const cCommandRow &Row, std::ostream *pOut);

#endif
