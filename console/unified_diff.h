// unified_diff.h - the changes of a text in the format that patch reads.

#ifndef CONSOLE_UNIFIED_DIFF_H
#define CONSOLE_UNIFIED_DIFF_H

#include <string>
#include <vector>

#include "listing/format.h"

// The hunks, three lines around each change, with the name of the file before and
// after: as it is, with a tab behind it if it has blanks, or in quotes with the
// escapes of C if it has control characters ("two\nlines.txt"). Empty if nothing
// changes.
std::string UnifiedDiff(const std::string &FileName, const std::vector<cFormattedLine> &Lines);

#endif
