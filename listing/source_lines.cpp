#include "listing/source_lines.h"

#include "engine/instruction.h"
#include "engine/mnemonic_map.h"

static const unsigned kMnemonicBuckets = 128;

static const char *const kBlankEnds = " \t";

namespace
{

// Nothing can be asked here.
class cNoBoxes : public cMessageBoxes
{
public:
    eAnswer Ask(const char *, const char *, eButtons, eIcon) override { return anCancel; }
    void    PostQuit(int) override {}
};

class cInstructionMap : public cMnemonicMap
{
public:
    explicit cInstructionMap(cMessageBoxes *pBoxes) : cMnemonicMap(kMnemonicBuckets, pBoxes)
    {
        for (const cInstruction &Instruction : Instructions())
            Slot(Instruction.m_szMnemonic) = &Instruction;
    }
};

}  // namespace

const cMnemonicMap &Mnemonics()
{
    static cNoBoxes              s_Boxes;
    static const cInstructionMap s_Mnemonics(&s_Boxes);
    return s_Mnemonics;
}

std::string_view CodeOf(std::string_view Line)
{
    return Line.substr(0, Line.find_first_of(std::string_view(";\0", 2)));
}

std::string_view CommentOf(std::string_view Line)
{
    const size_t nAt = CodeOf(Line).size();
    return nAt < Line.size() && Line[nAt] == ';' ? Line.substr(nAt) : std::string_view();
}

cLineWords WordsOf(std::string_view Line)
{
    cLineWords             Words = {};
    const std::string_view Code  = CodeOf(Line);
    size_t                 nAt   = Code.find_first_not_of(kBlankEnds);
    while (nAt != std::string_view::npos && Words.m_nWords < Words.m_Words.size())
    {
        const std::string_view Rest     = Code.substr(nAt);
        const std::string_view Word     = Rest.substr(0, Rest.find_first_of(kBlankEnds));
        Words.m_Words[Words.m_nWords++] = Word;
        nAt                             = Code.find_first_not_of(kBlankEnds, nAt + Word.size());
    }
    return Words;
}

cSourceReader::cSourceReader(std::string_view Text)
    : m_Source(Text), m_nOffset(0), m_nLine(0), m_nProgramLines(0), m_bOverflow(0)
{
}

static std::string_view WithoutLineEnd(std::string_view Line)
{
    if (!Line.ends_with('\n'))
        return Line;
    Line.remove_suffix(1);
    if (Line.ends_with('\r'))
        Line.remove_suffix(1);
    return Line;
}

// Parses the line's text and numbers the program lines.
void cSourceReader::Classify(cSourceLine *pLine)
{
    cListingLine &Parsed = pLine->m_Parsed;
    if (Parsed.m_nKind == llInstruction &&
        !TakesOperand(*Parsed.m_pInstruction, Parsed.m_szOperandText, Parsed.m_nOperand))
        Parsed.m_nKind = llBadOperand;
    if (Parsed.m_nKind != llInstruction && Parsed.m_nKind != llNumber)
        return;
    m_bOverflow = m_nProgramLines == kLastLine;
    if (m_bOverflow)
        pLine->m_bOverflow = 1;
    else
        pLine->m_nProgramLine = ++m_nProgramLines;
}

int cSourceReader::Next(cSourceLine *pLine)
{
    char              szLine[kFileLineText];
    const char *const pText = m_Source.data() + m_nOffset;
    const char *const pEnd  = m_Source.data() + m_Source.size();
    const char *const pNext = m_bOverflow ? nullptr : NextFileLine(pText, pEnd, szLine);
    if (!pNext)
        return 0;
    const std::string_view Piece(pText, static_cast<size_t>(pNext - pText));
    *pLine          = cSourceLine{};
    pLine->m_nLine  = ++m_nLine;
    pLine->m_Text   = WithoutLineEnd(Piece);
    pLine->m_bSplit = !Piece.ends_with('\n') && pNext != pEnd;
    ParseListingLine(szLine, Mnemonics(), &pLine->m_Parsed);
    Classify(pLine);
    m_nOffset += Piece.size();
    return 1;
}
