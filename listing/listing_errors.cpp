#include "listing/listing_errors.h"

#include <string>

#include "engine/instruction.h"
#include "engine/mnemonic_map.h"
#include "listing/findings.h"
#include "listing/source_lines.h"
#include "listing/suggestion.h"

static const char *const kWordError     = "mnemonic";
static const char *const kNumberError   = "number";
static const char *const kOperandError  = "operand";
static const char *const kOverflowError = "overflow";

// The loader's message up to its line number.
static std::string LoaderText(const cSourceLine &Line)
{
    const std::string Text = RejectionText(Line.m_Parsed.m_nKind);
    return Text.substr(0, Text.find(" on line "));
}

static void FindWordError(const cSourceLine &Line, const cLineWords &Words, cFindings *pFindings)
{
    const std::string_view Word = Words.m_Words[0];
    const std::string      Pair = SuggestForPair(Word, Words.m_Words[1]);
    pFindings->AddError(Line, Word, kWordError, LoaderText(Line) + " " + QuotedWord(Word),
                        Pair.empty() ? SuggestWord(Word) : Pair);
}

static void FindNumberError(const cSourceLine &Line, const cLineWords &Words, cFindings *pFindings)
{
    const std::string Text = LoaderText(Line) + ": only a comment may follow " +
                             std::string(Words.m_Words[0]) + ", not " +
                             QuotedWord(Words.m_Words[1]);
    pFindings->AddError(Line, Words.m_Words[1], kNumberError, Text, "");
}

static void FindOperandError(const cSourceLine &Line, const cLineWords &Words, cFindings *pFindings)
{
    // The first word is a mnemonic; the parsed one may be missing, as in "FIX i".
    const cInstruction &Instruction = *Mnemonics().Find(std::string(Words.m_Words[0]).c_str());
    const std::string   Text        = LoaderText(Line);
    const std::string   Takes       = ": " + WhatItTakes(Instruction);
    if (Words.m_nWords == 1)
    {
        pFindings->AddError(Line, Words.m_Words[0], kOperandError, Text + Takes, "");
        return;
    }
    const std::string Pair = SuggestForPair(Words.m_Words[0], Words.m_Words[1]);
    if (Words.m_nWords > 2 && Instruction.m_nOperand != opNone && Pair.empty())
    {
        pFindings->AddError(
            Line, Words.m_Words[2], kOperandError,
            Text + ": only a comment may follow, not " + QuotedWord(Words.m_Words[2]), "");
        return;
    }
    const std::string Suggestion =
        Pair.empty() ? SuggestOperand(Instruction, Words.m_Words[1]) : Pair;
    const std::string Named = Text + " " + QuotedWord(Words.m_Words[1]);
    pFindings->AddError(Line, Words.m_Words[1], kOperandError,
                        Suggestion.empty() ? Named + Takes : Named, Suggestion);
}

void FindErrors(const cSourceLine &Line, cFindings *pFindings)
{
    const cLineWords Words = WordsOf(Line.m_Text);
    if (Line.m_bOverflow)
        pFindings->AddError(Line, Words.m_Words[0], kOverflowError,
                            std::string(kOverflowText) + " " + QuotedWord(Words.m_Words[0]) +
                                ": a program has at most " + std::to_string(kLastLine) + " lines",
                            "");
    else if (Line.m_Parsed.m_nKind == llBadMnemonic)
        FindWordError(Line, Words, pFindings);
    else if (Line.m_Parsed.m_nKind == llBadNumber)
        FindNumberError(Line, Words, pFindings);
    else if (Line.m_Parsed.m_nKind == llBadOperand)
        FindOperandError(Line, Words, pFindings);
}
