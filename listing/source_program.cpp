#include "listing/source_program.h"

#include "listing/named_labels.h"

void cSourceProgram::Add(const cSourceLine &Line)
{
    m_NamedLabels |= ::NamedLabels(CommentOf(Line.m_Text));
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
