// finding.h - what is reported on a text file that people write: errors, for which
// it is refused, and warnings.

#ifndef TOOLKIT_FINDING_H
#define TOOLKIT_FINDING_H

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum eSeverity
{
    svError,
    svWarning
};

// One kind of warning. %1 and %2 in the text stand for what the finding names.
struct cWarningRow
{
    const char *m_szName;
    const char *m_szText;
};

struct cFinding
{
    eSeverity   m_nSeverity;
    const char *m_szName;      // "missing-label"; of errors "operand" and the like
    unsigned    m_nLine;       // from 1; 0: the file has none
    unsigned    m_nColumn;     // of the word in question: characters, from 1
    std::string m_Text;        // Error: unrecognized instr mnemonic "enter"
    std::string m_Suggestion;  // for the word, "ENTER"; empty if there is none
};

// So many errors, and so many warnings of each kind, are reported in a file; the
// finding after them says that there are more. A file has few; one of another kind
// has millions.
const size_t kMostFindings = 1000;

class cFindingList
{
public:
    // The table of warnings outlives the list.
    explicit cFindingList(std::span<const cWarningRow> Warnings);

    // Place is where in the line's text the finding begins.
    void AddError(unsigned nLine, std::string_view LineText, std::string_view Place,
                  const char *szName, const std::string &Text, const std::string &Suggestion);

    // nWarning is a row of the table.
    void Warn(size_t nWarning, unsigned nLine, std::string_view LineText, std::string_view Place,
              std::initializer_list<std::string> Values);

    // 1 after the error that says that there are more: no further one is reported.
    int IsFull() const { return m_nErrors > kMostFindings; }

    // By lines, within a line errors first.
    void Sort();

    std::vector<cFinding> m_List;

private:
    std::span<const cWarningRow> m_Rows;
    size_t                       m_nErrors;
    std::vector<size_t>          m_Warnings;  // of each row
};

// The word in quotes, at most 24 characters of it. Bytes that a terminal would
// not show, or not as what they are, become codes: "STO<U+00A0>5", "caf<byte E9>".
std::string QuotedWord(std::string_view Word);

// The code of a character or of a byte that is not part of one: "U+00A0",
// "byte E9".
std::string CharacterCode(std::string_view Character);

#endif
