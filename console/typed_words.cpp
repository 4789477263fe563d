#include "console/typed_words.h"

#include <algorithm>

#include "console/vocabulary.h"
#include "engine/instruction.h"
#include "engine/mnemonic_map.h"
#include "listing/source_lines.h"
#include "listing/suggestion.h"
#include "toolkit/utf8.h"

static const char *const kBeforeWord = " \t\r\n";
static const char *const kWordEnds   = " \t\r\n;";

cTypedWords::cTypedWords(const cVocabulary &Vocabulary, std::string_view Line)
    : m_Vocabulary(Vocabulary), m_Line(Line), m_nAt(0), m_nCounted(0), m_nColumn(1)
{
}

// "" at the end of the line, or before a comment.
std::string_view cTypedWords::PeekWord()
{
    m_nAt             = std::min(m_Line.find_first_not_of(kBeforeWord, m_nAt), m_Line.size());
    const size_t nEnd = std::min(m_Line.find_first_of(kWordEnds, m_nAt), m_Line.size());
    return m_Line.substr(m_nAt, nEnd - m_nAt);
}

// A byte that belongs to no character counts as one.
static size_t CountCharacters(std::string_view Text)
{
    size_t nCount = 0;
    for (; !Text.empty(); nCount++)
        Text.remove_prefix(std::max<size_t>(Utf8Length(Text), 1));
    return nCount;
}

static void ParseListed(const std::string &Listed, cListingLine *pParsed)
{
    ParseListingLine(Listed.c_str(), Mnemonics(), pParsed);
    if (pParsed->m_nKind == llInstruction &&
        !TakesOperand(*pParsed->m_pInstruction, pParsed->m_szOperandText, pParsed->m_nOperand))
        pParsed->m_nKind = llBadOperand;
}

// The indirect instructions are rows of their own: "STO i".
void cTypedWords::ParseInstruction(const cInstruction &Instruction, cListingLine *pParsed)
{
    std::string Listed = Instruction.m_szMnemonic;
    if (Instruction.m_nOperand != opNone)
    {
        const std::string_view Operand = PeekWord();
        m_nAt += Operand.size();
        (Listed += " ") += Operand == "I" ? "i" : Operand;
    }
    ParseListed(Listed, pParsed);
    pParsed->m_pInstruction =
        pParsed->m_nKind == llInstruction ? pParsed->m_pInstruction : &Instruction;
}

// A longer word, or one with a NUL byte, would be cut.
static void ParseNumber(std::string_view Word, cListingLine *pParsed)
{
    if (Word.size() <= kLongestWord && Word.find('\0') == std::string_view::npos)
        ParseListed(std::string(Word), pParsed);
    else
        pParsed->m_nKind = llBadMnemonic;
}

// Takes "CL REG" as one word.
void cTypedWords::TakeWord(cTypedStep *pStep)
{
    const std::string_view First = PeekWord();
    pStep->m_Word                = First;
    m_nColumn += CountCharacters(m_Line.substr(m_nCounted, m_nAt - m_nCounted));
    m_nCounted       = m_nAt;
    pStep->m_nColumn = m_nColumn;
    m_nAt += First.size();
    if (!m_Vocabulary.BeginsPair(First))
        return;
    const std::string_view Second = PeekWord();
    const std::string      Both   = m_Vocabulary.Joined(First, Second);
    if (Both.empty())
        return;
    pStep->m_Word = Both;
    m_nAt += Second.size();
}

int cTypedWords::Next(cTypedStep *pStep)
{
    if (PeekWord().empty())
        return 0;
    TakeWord(pStep);
    if (const cInstruction *const pInstruction = m_Vocabulary.Find(pStep->m_Word))
        ParseInstruction(*pInstruction, &pStep->m_Parsed);
    else
        ParseNumber(pStep->m_Word, &pStep->m_Parsed);
    return 1;
}

std::string WhyRefused(const cVocabulary &Vocabulary, const cTypedStep &Step)
{
    if (Step.m_Parsed.m_nKind == llBadOperand)
        return WhatItTakes(*Step.m_Parsed.m_pInstruction);
    if (Step.m_Word.size() > kLongestWord)
        return "longer than " + std::to_string(kLongestWord) + " characters";
    if (Vocabulary.FindKey(Step.m_Word))
        return "a key, but neither an instruction nor a number";
    const std::string Suggestion = SuggestWord(Step.m_Word);
    const std::string Text       = "neither an instruction nor a number";
    return Suggestion.empty() ? Text : Text + ", did you mean " + Suggestion + "?";
}
