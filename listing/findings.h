// findings.h - what is reported on a listing: errors, which the loader rejects,
// and warnings.

#ifndef LISTING_FINDINGS_H
#define LISTING_FINDINGS_H

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct cSourceLine;

enum eSeverity
{
    svError,
    svWarning
};

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

// One kind of warning. %1 and %2 in the text stand for what the finding names.
struct cWarningRow
{
    const char *m_szName;
    const char *m_szText;
};

std::span<const cWarningRow> Warnings();

struct cFinding
{
    eSeverity   m_nSeverity;
    const char *m_szName;      // "missing-label"; of errors "operand" and the like
    unsigned    m_nLine;       // as the loader counts, from 1
    unsigned    m_nColumn;     // of the word in question: characters, from 1
    std::string m_Text;        // Error: unrecognized instr mnemonic "enter"
    std::string m_Suggestion;  // for the word, "ENTER"; empty if there is none
};

// So many errors, and so many warnings of each kind, are reported in a listing;
// the finding after them says that there are more. A listing has few; a file of
// other things that is taken for one has millions.
const size_t kMostFindings = 1000;

class cFindings
{
public:
    // Place is where in the line's text the finding begins.
    void AddError(const cSourceLine &Line, std::string_view Place, const char *szName,
                  const std::string &Text, const std::string &Suggestion);
    void Warn(eWarning nWarning, const cSourceLine &Line, std::string_view Place,
              std::initializer_list<std::string> Values = {});

    // 1 after the error that says that there are more: no further one is reported.
    int IsFull() const { return m_nErrors > kMostFindings; }

    // By lines, within a line errors first.
    void Sort();

    std::vector<cFinding> m_List;

private:
    size_t                        m_nErrors = 0;
    std::array<size_t, kWarnings> m_Warnings{};  // of each kind
};

// The word in quotes, at most 24 characters of it. Bytes that a terminal would
// not show, or not as what they are, become codes: "STO<U+00A0>5", "caf<byte E9>".
std::string QuotedWord(std::string_view Word);

// The code of a character or of a byte that is not part of one: "U+00A0",
// "byte E9".
std::string CharacterCode(std::string_view Character);

#endif
