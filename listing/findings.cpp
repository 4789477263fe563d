#include "listing/findings.h"

#include "listing/source_lines.h"

// clang-format off
static const cWarningRow s_Warnings[kWarnings] =
{
    { "byte-order-mark", "the file begins with %1, which the loader takes for a part of the first line" },
    { "no-break-space",  "a no-break space (%1) does not separate words; type a space"                 },
    { "non-ascii",       "%1 is not ASCII; instructions and numbers are"                               },
    { "nul-byte",        "a NUL byte hides the rest of the line"                                       },
    { "long-line",       "the loader splits this line here and reads the rest as another: a line has at most 510 bytes" },
    { "number-digits",   "%1"                                                                          },
    { "number-range",    "%1 is beyond the calculator's range and becomes %2"                          },
    { "missing-label",   "there is no LBL %1: the program would halt here with \"Error: no such label\"" },
    { "duplicate-label", "LBL %1 is already in line %2; a jump goes to the next one after it, then from the top" },
    { "unused-label",    "no GTO or GSB goes to LBL %1, and no comment names it"                      },
    { "unreachable",     "nothing%1 reaches %2"                                                        },
    { "falls-off-end",   "after program line 98 the run continues in line 01"                          },
    { "deep-calls",      "%1: the fourth call in a chain ends with \"Error: subr overflow\""           },
};
// clang-format on

std::span<const cWarningRow> Warnings()
{
    return s_Warnings;
}

cFindings::cFindings() : cFindingList(Warnings()) {}

void cFindings::AddError(const cSourceLine &Line, std::string_view Place, const char *szName,
                         const std::string &Text, const std::string &Suggestion)
{
    cFindingList::AddError(Line.m_nLine, Line.m_Text, Place, szName, Text, Suggestion);
}

void cFindings::Warn(eWarning nWarning, const cSourceLine &Line, std::string_view Place,
                     std::initializer_list<std::string> Values)
{
    cFindingList::Warn(nWarning, Line.m_nLine, Line.m_Text, Place, Values);
}
