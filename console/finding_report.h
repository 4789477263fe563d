// finding_report.h - prints what was found in listings and tables, as compilers do
// or as JSON Lines.

#ifndef CONSOLE_FINDING_REPORT_H
#define CONSOLE_FINDING_REPORT_H

#include <string>

#include "toolkit/finding.h"

// Without a line end:
//     draw.txt:3: Error: unrecognized instr mnemonic "enter": did you mean ENTER?
//     draw.txt:7:1: warning: nothing reaches this line [unreachable]
//     empty.txt: Error: the file ends without a row of numbers
std::string FindingText(const std::string &FileName, const cFinding &Finding);

// One object, without a line end.
std::string FindingJson(const std::string &FileName, const cFinding &Finding);

#endif
