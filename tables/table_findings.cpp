#include "tables/table_findings.h"

// clang-format off
static const cWarningRow s_TableWarnings[kTableWarnings] =
{
    { "byte-order-mark",  "the file begins with a byte order mark, which is skipped"                      },
    { "lone-cr",          "a carriage return without a line feed ends a line here, and maybe others"      },
    { "heading-skipped",  "heading skipped: %1"                                                           },
    { "fewer-numbers",    "%1 where the first row has %2; drawn as %3"                                    },
    { "more-numbers",     "%1 where the first row has %2; the rest is ignored"                            },
    { "missing-column",   "%1 where column %2 is drawn; the point is a gap"                               },
    { "text-ignored",     "text after column %1 ignored: %2"                                              },
    { "gap-word",         "%1 is a gap"                                                                   },
    { "empty-field",      "column %1 is empty; the point is a gap"                                        },
    { "not-a-number",     "%1 is not a number; the point is a gap"                                        },
    { "number-range",     "%1 is too large for a number; the point is a gap"                              },
    { "touching-numbers", "nothing separates %1 from the number before it"                                },
    { "mixed-separators", "numbers are separated in more than one way; --separator and --decimal-comma say what separates them" },
};
// clang-format on

std::span<const cWarningRow> TableWarnings()
{
    return s_TableWarnings;
}

cTableFindings::cTableFindings() : cFindingList(TableWarnings()), m_nLine(0), m_bRefused(0)
{
    // One more finding of a kind says that there are more; these two hold for a file.
    m_Left.fill(kMostFindings + 1);
    m_Left[twLoneCr] = m_Left[twMixedSeparators] = 1;
}

void cTableFindings::SetLine(unsigned nLine, std::string_view Text)
{
    m_nLine = nLine;
    m_Line  = Text;
}

void cTableFindings::Warn(eTableWarning nWarning, std::string_view Place,
                          std::initializer_list<std::string> Values)
{
    if (!Wants(nWarning))
        return;
    m_Left[nWarning]--;
    cFindingList::Warn(nWarning, m_nLine, m_Line, Place, Values);
}

void cTableFindings::Refuse(const char *szName, std::string_view Place, const std::string &Text)
{
    if (!m_bRefused)
        AddError(m_nLine, m_Line, Place, szName, Text, "");
    m_bRefused = 1;
}

void cTableFindings::RefuseOnly(const char *szName, std::string_view Place, const std::string &Text)
{
    m_List.clear();
    Refuse(szName, Place, Text);
}

std::string CountText(size_t nCount, const char *szWhat)
{
    return std::to_string(nCount) + " " + szWhat + (nCount == 1 ? "" : "s");
}
