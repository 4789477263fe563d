// state_report.h - the calculator's state as JSON and as text.

#ifndef CONSOLE_STATE_REPORT_H
#define CONSOLE_STATE_REPORT_H

#include <string>

#include "console/headless_host.h"

class cJsonList;
struct cVorstekState;

// The display's main line as painted now, without trailing blanks: " 5.00",
// "Error: divide by 0", "03 STO 5", in the stack view "X   5.00".
std::string DisplayedText(cVorstekEngine *pEngine);

// A line of the listing or of the registers without its line end.
std::string BoxLine(const cLineBox &Box, unsigned nLine);

std::string FormatText(const cVorstekState &State);  // "FIX 2"
std::string AngleText(const cVorstekState &State);   // "DEG"

// "stack": the four levels from X to T with text and value.
void ReportStack(const cVorstekState &State, cJsonList *pObject);

// "stack_lift", "format" and "angle".
void ReportModes(const cVorstekState &State, cJsonList *pObject);

// All keys of the state, in their fixed order.
void ReportState(cHeadlessCalculator *pCalculator, const cHeadlessHost &Host, cJsonList *pObject);

// One of these keys, or "x" to "t" for a level and "reg.0" to "reg.29" for a
// register. 0 if there is no such part.
int ReportStatePart(const std::string &Name, cHeadlessCalculator *pCalculator,
                    const cHeadlessHost &Host, cJsonList *pObject);

// The last program line that is not one of the R/S which fill the memory up; 0 for an
// empty program. A comment after an R/S makes it one of the program.
unsigned LastUsedLine(const cVorstekState &State, const cMemoryLineBox &Listing);

// Where in the listing the comments end that follow a program line.
unsigned EndOfComments(unsigned nLine, const cVorstekState &State, const cMemoryLineBox &Listing);

#endif
