#include "listing/source_program.h"

#include "engine/instruction.h"
#include "engine/mnemonic_map.h"
#include "listing/named_labels.h"
#include "listing/suggestion.h"

void cSourceProgram::Add(const cSourceLine &Line)
{
    m_NamedLabels |= ::NamedLabels(CommentOf(Line.m_Text));
    if (Line.m_Parsed.m_nKind == llComment)
        return;
    m_bComplete = m_bComplete && m_nLines < kLastLine && !Line.m_bOverflow;
    if (!m_bComplete)
        return;
    m_Lines[++m_nLines] = Line;
    if (Line.m_nProgramLine)
        m_Flow.SetLine(m_nLines, Line);
    else
        AddRejected(Line);
}

static std::string FirstWord(const std::string &Line)
{
    return Line.substr(0, Line.find(' '));
}

// The instruction that was meant; null if nobody knows.
static const cInstruction *Meant(const cLineWords &Words)
{
    const std::string         Word(Words.m_Words[0]);
    const cInstruction *const pWritten = Mnemonics().Find(Word.c_str());
    return pWritten ? pWritten : Mnemonics().Find(FirstWord(SuggestWord(Word)).c_str());
}

// Labels and jumps have an operand, in a word of its own or not. Numbers have none.
static int MayHaveOperand(const cLineWords &Words)
{
    const std::string_view Word = Words.m_Words[0];
    return Word.find_first_of("0123456789.+-") != 0 &&
           (Words.m_nWords > 1 || Word.find_first_of("0123456789") != std::string_view::npos);
}

void cSourceProgram::AddRejected(const cSourceLine &Line)
{
    const cLineWords          Words  = WordsOf(Line.m_Text);
    const cInstruction *const pMeant = Meant(Words);
    const eFlow               nFlow  = pMeant ? FlowOf(*pMeant) : flNext;
    const int bAny = !pMeant && Line.m_Parsed.m_nKind == llBadMnemonic && MayHaveOperand(Words);
    m_bErrors      = 1;
    m_bLabel       = m_bLabel || bAny || (pMeant && pMeant->m_nRole == rlLabel);
    m_bJump        = m_bJump || bAny || nFlow == flGoto || nFlow == flCall;
    m_Flow.SetUnknown(m_nLines);
}

std::string_view cSourceProgram::Word(unsigned nLine) const
{
    return WordsOf(m_Lines[nLine].m_Text).m_Words[0];
}
