// format.h - the canonical form of a listing.
//
//     LBL 1           ; interest
//     STO .5
//
// Instructions begin in the first column, one blank is before an operand, registers
// lose superfluous zeros, comments after instructions begin in column 17, further to
// the right only where the line needs more room. An indented comment that continues
// such a comment is aligned with it; other comment lines begin in the first column.
// Blanks at the ends of lines, blank lines at both ends of the listing and all but one
// of several blank lines disappear. All lines end as the first one does.
//
// Numbers and comments keep their characters, so the program and what it says of
// itself stay the same.

#ifndef LISTING_FORMAT_H
#define LISTING_FORMAT_H

#include <string>
#include <string_view>
#include <vector>

#include "listing/findings.h"

// What becomes of one line; both texts with their line ends.
struct cFormattedLine
{
    std::string_view m_Old;
    std::string      m_New;  // empty if the line disappears
};

// Lines of the text in the canonical form. 0, with at least one finding, if the
// loader rejects a line, splits one, or would not see all of it: then it cannot be
// known what was meant, and pLines is of no use. pLines refer to Text.
int FormatListing(std::string_view Text, std::vector<cFormattedLine> *pLines,
                  std::vector<cFinding> *pFindings);

#endif
