// table_findings.h - what is wrong or odd in a table, each finding with its place.

#ifndef TABLES_TABLE_FINDINGS_H
#define TABLES_TABLE_FINDINGS_H

#include <array>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "toolkit/finding.h"

// In the order of the table of warnings.
enum eTableWarning
{
    twByteOrderMark,
    twLoneCr,
    twHeadingSkipped,
    twFewerNumbers,
    twMoreNumbers,
    twMissingColumn,
    twTextIgnored,
    twGapWord,
    twEmptyField,
    twNotANumber,
    twNumberRange,
    twTouchingNumbers,
    twMixedSeparators,

    kTableWarnings
};

std::span<const cWarningRow> TableWarnings();

// Most findings are the same line after line. They are counted before their texts
// are made, so that a table full of them is read no slower.
class cTableFindings : public cFindingList
{
public:
    cTableFindings();

    // Findings are of this line until the next call. Text outlives them.
    void SetLine(unsigned nLine, std::string_view Text);

    // 1 as long as warnings of this kind are reported.
    int Wants(eTableWarning nWarning) const { return m_Left[nWarning] > 0; }

    // Place is a part of the line's text.
    void Warn(eTableWarning nWarning, std::string_view Place,
              std::initializer_list<std::string> Values = {});

    // An error refuses the table: no other follows. Text begins with "Error: ".
    void Refuse(const char *szName, std::string_view Place, const std::string &Text);
    // The same, instead of what was found before.
    void RefuseOnly(const char *szName, std::string_view Place, const std::string &Text);
    int  IsRefused() const { return m_bRefused; }

private:
    unsigned                           m_nLine;
    std::string_view                   m_Line;
    std::array<size_t, kTableWarnings> m_Left;  // before no more are reported
    int                                m_bRefused;
};

// "1 number", "3 numbers".
std::string CountText(size_t nCount, const char *szWhat);

#endif
