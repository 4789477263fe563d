#include "listing/source_program.h"

#include <algorithm>

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

static const std::string_view kLabelDigits = "0123456789";

// Labels and jumps have an operand, in a word of its own or not. Numbers have none.
static std::string_view OperandOf(const cLineWords &Words)
{
    const std::string_view Word = Words.m_Words[0];
    if (Word.find_first_of("0123456789.+-") == 0)
        return "";
    return Words.m_nWords > 1
               ? Words.m_Words[1]
               : Word.substr(std::min(Word.find_first_of(kLabelDigits), Word.size()));
}

// The label of "lbl5", any for "LBL 12" or "LBL x".
static std::bitset<kLabels> LabelsOf(std::string_view Operand)
{
    std::bitset<kLabels> Labels;
    const size_t         nLabel = Operand.size() == 1 ? kLabelDigits.find(Operand[0]) : kLabels;
    return nLabel < kLabels ? Labels.set(nLabel) : Labels.set();
}

void cSourceProgram::AddRejected(const cSourceLine &Line)
{
    const cLineWords           Words    = WordsOf(Line.m_Text);
    const cInstruction *const  pMeant   = Meant(Words);
    const eFlow                nFlow    = pMeant ? FlowOf(*pMeant) : flNext;
    const std::string_view     Operand  = OperandOf(Words);
    const std::bitset<kLabels> Possible = LabelsOf(Operand);
    const int bAny   = !pMeant && Line.m_Parsed.m_nKind == llBadMnemonic && !Operand.empty();
    const int bJumps = bAny || nFlow == flGoto || nFlow == flCall;
    m_bErrors        = 1;
    m_bIndirect      = m_bIndirect || (bJumps && Possible.all());
    if (bAny || (pMeant && pMeant->m_nRole == rlLabel))
        m_PossibleLabels |= Possible;
    if (bJumps)
        m_PossibleJumps |= Possible;
    m_Flow.SetUnknown(m_nLines);
}

std::string_view cSourceProgram::Word(unsigned nLine) const
{
    return WordsOf(m_Lines[nLine].m_Text).m_Words[0];
}
