#include "console/unified_diff.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

static const size_t kContext = 3;

namespace
{

// A part of the lines, and the lines that it becomes.
struct cHunk
{
    size_t m_nFirst;  // from 0
    size_t m_nEnd;    // the line after it
    size_t m_nNewFirst;
    size_t m_nNewLines;
};

}  // namespace

static int IsChanged(const cFormattedLine &Line)
{
    return Line.m_Old != Line.m_New;
}

static void AppendLine(char cMark, std::string_view Line, std::string *pDiff)
{
    pDiff->push_back(cMark);
    pDiff->append(Line);
    if (!Line.ends_with('\n'))
        pDiff->append("\n\\ No newline at end of file\n");
}

// Adjacent changes: what goes, then what comes. Returns the line after them.
static size_t AppendChanges(const std::vector<cFormattedLine> &Lines, size_t nAt, size_t nEnd,
                            std::string *pDiff)
{
    size_t nNext = nAt;
    for (; nNext < nEnd && IsChanged(Lines[nNext]); nNext++)
        AppendLine('-', Lines[nNext].m_Old, pDiff);
    for (; nAt < nNext; nAt++)
        if (!Lines[nAt].m_New.empty())
            AppendLine('+', Lines[nAt].m_New, pDiff);
    return nNext;
}

// "12,4": the first line, from 1, and how many; of none, the line before.
static std::string Range(size_t nFirst, size_t nLines)
{
    return std::to_string(nFirst + (nLines > 0)) + "," + std::to_string(nLines);
}

static void AppendHunk(const std::vector<cFormattedLine> &Lines, const cHunk &Hunk,
                       std::string *pDiff)
{
    *pDiff += "@@ -" + Range(Hunk.m_nFirst, Hunk.m_nEnd - Hunk.m_nFirst) + " +" +
              Range(Hunk.m_nNewFirst, Hunk.m_nNewLines) + " @@\n";
    for (size_t nAt = Hunk.m_nFirst; nAt < Hunk.m_nEnd;)
        if (IsChanged(Lines[nAt]))
            nAt = AppendChanges(Lines, nAt, Hunk.m_nEnd, pDiff);
        else
            AppendLine(' ', Lines[nAt++].m_Old, pDiff);
}

// The end of the hunk that begins with the change at nAt: changes that share
// context belong together.
static size_t HunkEnd(const std::vector<cFormattedLine> &Lines, size_t nAt)
{
    size_t nEnd = nAt;
    for (; nAt < Lines.size() && nAt <= nEnd + 2 * kContext; nAt++)
        if (IsChanged(Lines[nAt]))
            nEnd = nAt;
    return std::min(nEnd + 1 + kContext, Lines.size());
}

static int IsControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// As diff does it: in double quotes, with the escapes of C.
static std::string QuotedName(const std::string &Name)
{
    static const char *const s_szPlain  = "\a\b\t\n\v\f\r\"\\";
    static const char *const s_szLetter = "abtnvfr\"\\";
    std::string              Quoted     = "\"";
    for (const char c : Name)
    {
        const char *const pPlain = strchr(s_szPlain, c);
        char              szCode[8];
        if (pPlain)
            Quoted.append({'\\', s_szLetter[pPlain - s_szPlain]});
        else if (IsControl(c))
        {
            snprintf(szCode, sizeof szCode, "\\%03o", static_cast<unsigned>(c));
            Quoted += szCode;
        }
        else
            Quoted.push_back(c);
    }
    return Quoted + "\"";
}

// A name ends at its first blank, unless a tab follows it. What patch would not
// read as it is goes into quotes; a backslash alone is the Windows separator.
static std::string HeaderName(const std::string &Name)
{
    if (std::any_of(Name.begin(), Name.end(), IsControl) || Name.starts_with(' ') ||
        Name.starts_with('"') || Name.ends_with(' '))
        return QuotedName(Name);
    return Name.find(' ') == std::string::npos ? Name : Name + "\t";
}

std::string UnifiedDiff(const std::string &FileName, const std::vector<cFormattedLine> &Lines)
{
    std::string Diff;
    size_t      nNew = 0;  // lines that precede in the new text
    for (size_t nAt = 0; nAt < Lines.size();)
    {
        if (!IsChanged(Lines[nAt]))
        {
            nAt++;
            nNew++;
            continue;
        }
        // The lines before it are unchanged.
        const size_t nBefore = std::min(kContext, nAt);
        cHunk        Hunk    = {nAt - nBefore, HunkEnd(Lines, nAt), nNew - nBefore, 0};
        for (size_t i = Hunk.m_nFirst; i < Hunk.m_nEnd; i++)
            Hunk.m_nNewLines += !Lines[i].m_New.empty();
        AppendHunk(Lines, Hunk, &Diff);
        nAt  = Hunk.m_nEnd;
        nNew = Hunk.m_nNewFirst + Hunk.m_nNewLines;
    }
    const std::string Name = HeaderName(FileName);
    return Diff.empty() ? Diff : "--- " + Name + "\n+++ " + Name + "\n" + Diff;
}
