// typed_words.h - reads a line of instructions and numbers, several in a row:
// "2 ENTER 3 + STO .3". A ';' begins a comment.

#ifndef CONSOLE_TYPED_WORDS_H
#define CONSOLE_TYPED_WORDS_H

#include <cstddef>
#include <string>
#include <string_view>

#include "engine/listing_words.h"

class cVocabulary;

struct cTypedStep
{
    cListingLine m_Parsed;  // llBadOperand also if the instruction rejects the operand
    std::string  m_Word;    // the instruction or number, without the operand: as typed, but
                            // for one blank in "CL REG"
    size_t m_nColumn;       // of its first character, from 1; a tab is one
};

// Why a step is neither an instruction with its operand nor a number, for messages:
// "neither an instruction nor a number, did you mean sqrt?"
std::string WhyRefused(const cVocabulary &Vocabulary, const cTypedStep &Step);

class cTypedWords
{
public:
    // Both must outlive this.
    cTypedWords(const cVocabulary &Vocabulary, std::string_view Line);

    // Reads the next step; 0 at the end of the line.
    int Next(cTypedStep *pStep);

private:
    std::string_view PeekWord();
    void             TakeWord(cTypedStep *pStep);
    void             ParseInstruction(const cInstruction &Instruction, cListingLine *pParsed);

    const cVocabulary &m_Vocabulary;
    std::string_view   m_Line;
    size_t             m_nAt;
    size_t             m_nCounted;  // bytes before the last word
    size_t             m_nColumn;   // of what follows them
};

#endif
