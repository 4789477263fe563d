#include "listing/suggestion.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "engine/decimal.h"
#include "engine/instruction.h"
#include "engine/listing_words.h"
#include "engine/mnemonic_map.h"
#include "listing/plain_spelling.h"
#include "listing/source_lines.h"
#include "listing/spellings.h"
#include "toolkit/spelling.h"

// Longer than any word that one of three mistakes could make of a mnemonic; so
// a file of other things is not searched for hours.
static const size_t kLongestMisspelling = 24;

static int IsNumber(const std::string &Word)
{
    double dValue;
    return Word.size() <= kLongestWord && ParseDecimal(Word.c_str(), &dValue);
}

static const std::vector<std::string_view> &MnemonicWords()
{
    static const std::vector<std::string_view> s_Words = [] {
        std::vector<std::string_view> Words;
        for (const cInstruction &Instruction : Instructions())
            Words.emplace_back(Instruction.m_szMnemonic);
        return Words;
    }();
    return s_Words;
}

// The mnemonic itself, or one that differs only in the case of letters.
static std::string KnownMnemonic(std::string_view Word)
{
    for (const std::string_view Mnemonic : MnemonicWords())
        if (EqualIgnoringCase(Word, Mnemonic))
            return std::string(Mnemonic);
    return "";
}

// What the word is on a key or another calculator.
static std::string KnownSpelling(std::string_view Word)
{
    const std::string Folded = FoldedSpelling(Word);
    for (const cSpelling &Spelling : Spellings())
    {
        const std::string Known = FoldedSpelling(Spelling.m_szWord);
        std::string       Whole = Known;
        Whole.erase(std::remove(Whole.begin(), Whole.end(), ' '), Whole.end());
        if (Spelling.m_nKind != spKey && (Folded == Known || Folded == Whole))
            return Spelling.m_szMeans;
    }
    return "";
}

static std::string WithPoint(std::string Word)
{
    std::replace(Word.begin(), Word.end(), ',', '.');
    return IsNumber(Word) ? Word : "";
}

// "STO 5" for "sto5": a mnemonic whose operand follows without a blank.
static std::string Separated(std::string_view Word)
{
    for (size_t nAt = Word.size() - 1; nAt > 0; nAt--)
    {
        const std::string Mnemonic = KnownMnemonic(Word.substr(0, nAt));
        if (Mnemonic.empty())
            continue;
        std::string  Line = Mnemonic + " " + std::string(Word.substr(nAt));
        cListingLine Parsed;
        ParseListingLine(Line.c_str(), Mnemonics(), &Parsed);
        if (Parsed.m_nKind == llInstruction &&
            TakesOperand(*Parsed.m_pInstruction, Parsed.m_szOperandText, Parsed.m_nOperand))
            return Line;
    }
    return "";
}

static std::string Nearest(std::string_view Word)
{
    const int nNearest = NearestWord(Word, MnemonicWords());
    return nNearest < 0 ? "" : std::string(MnemonicWords()[static_cast<size_t>(nNearest)]);
}

static int HasControls(std::string_view Word)
{
    return std::any_of(Word.begin(), Word.end(),
                       [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

std::string SuggestWord(std::string_view Word)
{
    if (Word.size() > kLongestMisspelling || HasControls(Word))
        return "";
    std::string Plain = PlainSpelling(Word);
    if (Plain.empty())
        return "";
    if (IsNumber(Plain))
        return Plain;
    for (const auto pSuggest : {KnownMnemonic, KnownSpelling, Separated, Nearest})
    {
        std::string Suggestion = pSuggest(Plain);
        if (!Suggestion.empty())
            return Suggestion;
    }
    return WithPoint(Plain);
}

std::string SuggestForPair(std::string_view First, std::string_view Second)
{
    if (First.size() + Second.size() > kLongestMisspelling)
        return "";
    return KnownSpelling(std::string(First) + " " + std::string(Second));
}

// "5" for "05", ".5" for "15": registers from 10 on have a point. Empty for a
// number that is no register.
static std::string RegisterText(unsigned nRegister)
{
    if (nRegister > kLargestRegister)
        return "";
    const std::string Point = nRegister < kFirstDottedRegister ? "" : ".";
    return Point + std::to_string(nRegister < kFirstDottedRegister
                                      ? nRegister
                                      : nRegister - kFirstDottedRegister);
}

std::string SuggestOperand(const cInstruction &Instruction, std::string_view Operand)
{
    const std::string Plain = PlainSpelling(Operand);
    unsigned          nValue;
    const auto        Result = std::from_chars(Plain.data(), Plain.data() + Plain.size(), nValue);
    if (Plain.empty() || Result.ec != std::errc() || Result.ptr != Plain.data() + Plain.size())
        return "";
    if (Instruction.m_nOperand == opRegister)
        return RegisterText(nValue);
    return Instruction.m_nOperand != opNone && nValue <= 9 ? std::to_string(nValue) : "";
}

std::string WhatItTakes(const cInstruction &Instruction)
{
    static const char *const s_Operands[] = {"no operand", "the number of digits, 0 to 9",
                                             "a register, 0 to 9 or .0 to .10", "a label, 0 to 9"};
    const std::string        Mnemonic     = Instruction.m_szMnemonic;
    const int                bIndirect    = Mnemonics().Contains((Mnemonic + " i").c_str());
    return Mnemonic + " takes " + s_Operands[Instruction.m_nOperand] + (bIndirect ? ", or i" : "");
}
