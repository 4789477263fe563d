// unified_diff.h - the changes of a text in the format that patch reads.

#ifndef CONSOLE_UNIFIED_DIFF_H
#define CONSOLE_UNIFIED_DIFF_H

#include <string>
#include <vector>

#include "listing/format.h"

// The hunks, three lines around each change, with the name of the file before and
// after. Empty if nothing changes.
std::string UnifiedDiff(const std::string &FileName, const std::vector<cFormattedLine> &Lines);

#endif
