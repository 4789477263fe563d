#include "listing/format.h"

#include <algorithm>

#include "listing/listing_errors.h"
#include "listing/source_lines.h"

static const size_t kCommentColumn = 16;                 // from 0
static const size_t kLongestLine   = kFileLineText - 2;  // that the loader does not split

static const char *const kLineBlanks = " \t";

// Reports what the loader rejects, splits or does not see.
static void FindObstacles(const cSourceLine &Line, cFindings *pFindings)
{
    FindErrors(Line, pFindings);
    const size_t nNul = Line.m_Text.find('\0');
    if (nNul != std::string_view::npos)
        pFindings->Warn(wnNulByte, Line, Line.m_Text.substr(nNul));
    if (Line.m_bSplit || Line.m_Text.size() > kLongestLine)
        pFindings->Warn(wnLongLine, Line, Line.m_Text.substr(Line.m_Text.size() - 1));
}

// A carriage return before the line's end is the rest of another line end.
static std::string_view TrimmedComment(std::string_view Line)
{
    const std::string_view Comment = CommentOf(Line);
    return Comment.substr(0, Comment.find_last_not_of(" \t\r") + 1);
}

// The words, the comment in its column, as close to it as the longest line allows.
// They never take more room than they did, because they were separated before.
static std::string WithComment(const std::string &Code, std::string_view Comment)
{
    if (Comment.empty())
        return Code;
    const size_t nWanted =
        Code.empty() ? kCommentColumn : std::max(kCommentColumn, Code.size() + 1);
    const size_t nMost   = kLongestLine - std::min(kLongestLine, Comment.size());
    const size_t nColumn = std::max(Code.size(), std::min(nWanted, nMost));
    return Code + std::string(nColumn - Code.size(), ' ') + std::string(Comment);
}

// A register has one spelling: ".05" is ".5".
static std::string FormattedCode(const cSourceLine &Line)
{
    const cLineWords Words = WordsOf(Line.m_Text);
    std::string      Code(Words.m_Words[0]);
    if (Words.m_nWords <= 1)
        return Code;
    if (Words.m_Words[1][0] != '.')
        return Code.append(" ").append(Words.m_Words[1]);
    char szRegister[kStepText];
    PrintInstruction(*Line.m_Parsed.m_pInstruction, Line.m_Parsed.m_nOperand, szRegister);
    return szRegister;
}

namespace
{

class cFormatter
{
public:
    cFormatter() : m_bInComment(0), m_bBlankBefore(1) {}

    // The line without its end; empty for a blank line.
    std::string Format(const cSourceLine &Line);

    // Whether a blank line disappears: at the top, or after another one.
    int IsSurplus(const std::string &Formatted);

private:
    int m_bInComment;  // the line before has a comment in the column of comments
    int m_bBlankBefore;
};

}  // namespace

std::string cFormatter::Format(const cSourceLine &Line)
{
    const std::string_view Comment    = TrimmedComment(Line.m_Text);
    const std::string      Code       = FormattedCode(Line);
    const int              bIndented  = Line.m_Text.find_first_of(kLineBlanks) == 0;
    const int              bContinues = m_bInComment && bIndented && Comment.size() < kLongestLine;
    const int              bInColumn  = !Comment.empty() && (!Code.empty() || bContinues);
    m_bInComment                      = bInColumn;
    return bInColumn ? WithComment(Code, Comment) : Code + std::string(Comment);
}

int cFormatter::IsSurplus(const std::string &Formatted)
{
    const int bSurplus = Formatted.empty() && m_bBlankBefore;
    m_bBlankBefore     = Formatted.empty();
    return bSurplus;
}

static std::string_view LineEndOf(std::string_view Text)
{
    const size_t nEnd = Text.find('\n');
    return nEnd != std::string_view::npos && nEnd > 0 && Text[nEnd - 1] == '\r' ? "\r\n" : "\n";
}

static void DropBlankEnd(std::string_view LineEnd, std::vector<cFormattedLine> *pLines)
{
    for (size_t i = pLines->size(); i > 0; i--)
    {
        cFormattedLine &Line = (*pLines)[i - 1];
        if (!Line.m_New.empty() && Line.m_New != LineEnd)
            return;
        Line.m_New.clear();
    }
}

int FormatListing(std::string_view Text, std::vector<cFormattedLine> *pLines,
                  std::vector<cFinding> *pFindings)
{
    const std::string_view LineEnd = LineEndOf(Text);
    cFindings              Findings;
    cFormatter             Formatter;
    cSourceReader          Reader(Text);
    cSourceLine            Line;
    size_t                 nAt = 0;
    while (!Findings.IsFull() && Reader.Next(&Line))
    {
        FindObstacles(Line, &Findings);
        if (!Findings.m_List.empty())
            continue;
        const std::string Formatted = Formatter.Format(Line);
        const size_t      nNext     = Reader.Offset();
        pLines->push_back({Text.substr(nAt, nNext - nAt),
                           Formatter.IsSurplus(Formatted) ? "" : Formatted + std::string(LineEnd)});
        nAt = nNext;
    }
    DropBlankEnd(LineEnd, pLines);
    Findings.Sort();
    *pFindings = Findings.m_List;
    return pFindings->empty();
}
