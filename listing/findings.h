// findings.h - what is reported on a listing: errors, which the loader rejects,
// and warnings.

#ifndef LISTING_FINDINGS_H
#define LISTING_FINDINGS_H

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "toolkit/finding.h"

struct cSourceLine;

// In the order of the table of warnings.
enum eWarning
{
    wnByteOrderMark,
    wnNoBreakSpace,
    wnNonAscii,
    wnNulByte,
    wnLongLine,
    wnNumberDigits,
    wnNumberRange,
    wnMissingLabel,
    wnDuplicateLabel,
    wnUnusedLabel,
    wnUnreachable,
    wnFallsOffEnd,
    wnDeepCalls,

    kWarnings
};

std::span<const cWarningRow> Warnings();

// Line numbers are those of the loader.
class cFindings : public cFindingList
{
public:
    cFindings();

    // Place is where in the line's text the finding begins.
    void AddError(const cSourceLine &Line, std::string_view Place, const char *szName,
                  const std::string &Text, const std::string &Suggestion);
    void Warn(eWarning nWarning, const cSourceLine &Line, std::string_view Place,
              std::initializer_list<std::string> Values = {});
};

#endif
