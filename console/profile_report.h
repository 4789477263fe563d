// profile_report.h - a profile as text and as JSON.

#ifndef CONSOLE_PROFILE_REPORT_H
#define CONSOLE_PROFILE_REPORT_H

#include <iosfwd>

class cHeadlessCalculator;
class cJsonList;
class cRunProfile;

// The listing up to the last line that has run or is more than an unused one, after a
// heading: "      1000   12.5 %  05 STO .3". Comments have neither number.
void PrintProfile(const cRunProfile &Profile, cHeadlessCalculator *pCalculator, std::ostream *pOut);

// "profile": an object for each line that has run, with line, count and seconds.
void ReportProfile(const cRunProfile &Profile, cJsonList *pObject);

#endif
