#include "listing/source_program.h"

#include <algorithm>

#include "toolkit/spelling.h"

static const char *const kWordLimits = " \t\r,;:.()[]'\"";

// The label of a text like "1" or "3-5"; -1 if there is none.
static int LabelDigit(std::string_view Word)
{
    const int bDigit = !Word.empty() && Word[0] >= '0' && Word[0] <= '9';
    const int bAlone = Word.size() < 2 || Word[1] < '0' || Word[1] > '9';
    return bDigit && bAlone ? Word[0] - '0' : -1;
}

static int NamesLabels(std::string_view Word)
{
    static const std::string_view s_Names[] = {"GSB", "GTO", "LBL", "label", "--label"};
    return std::any_of(std::begin(s_Names), std::end(s_Names),
                       [Word](std::string_view Name) { return EqualIgnoringCase(Word, Name); });
}

void cSourceProgram::FindNames(std::string_view Comment)
{
    int    bNamed = 0;
    size_t nAt    = Comment.find_first_not_of(kWordLimits);
    while (nAt != std::string_view::npos)
    {
        const std::string_view Rest   = Comment.substr(nAt);
        const std::string_view Word   = Rest.substr(0, Rest.find_first_of(kWordLimits));
        const int              nLabel = LabelDigit(Word);
        if (bNamed && nLabel >= 0)
            m_NamedLabels.set(static_cast<size_t>(nLabel));
        bNamed = NamesLabels(Word);
        nAt    = Comment.find_first_not_of(kWordLimits, nAt + Word.size());
    }
}

void cSourceProgram::Add(const cSourceLine &Line)
{
    FindNames(CommentOf(Line.m_Text));
    if (Line.m_nProgramLine == 0)
        return;
    m_nLines          = Line.m_nProgramLine;
    m_Lines[m_nLines] = Line;
    m_Flow.SetLine(Line);
}

std::string_view cSourceProgram::Word(unsigned nLine) const
{
    return WordsOf(m_Lines[nLine].m_Text).m_Words[0];
}
