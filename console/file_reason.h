// file_reason.h - why a file cannot be read or written, in a few words, for messages.

#ifndef CONSOLE_FILE_REASON_H
#define CONSOLE_FILE_REASON_H

#include <string>

#include "console/console.h"

// nError is the value of errno after the failure, 0 if the system said nothing. "no such
// file", "permission denied", "is a directory"; "" if the reason is not known.
std::string WhyNotRead(const std::string &Name, int nError);

// The same of an output, for which "no such directory" is what a missing file is for an
// input.
std::string WhyNotWritten(const std::string &Name, int nError);

// "cannot write 'draw.svg': permission denied", or "cannot write standard output".
std::string UnwritableText(const std::string &Name, int nError);

// Prints that on standard error; returns kExitUsage.
int ReportUnwritable(const cStreams &Streams, const std::string &Name, int nError);

#endif
