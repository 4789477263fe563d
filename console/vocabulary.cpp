#include "console/vocabulary.h"

#include "engine/instruction.h"

namespace
{

struct cSpelling
{
    const char *m_szWord;
    const char *m_szMnemonic;
};

}  // namespace

static const cSpelling kSpellings[] = {
    {"x̄", "Mean"},        {"s", "StdDev"},      {"L.R.", "LR"},       {"Σ-", "Sum-"},
    {"Σ−", "Sum-"},       {"Σ+", "Sum+"},       {"x↔y", "x<>y"},      {"x⇄y", "x<>y"},
    {"swap", "x<>y"},     {"x≷y", "x<>y"},      {"R↓", "Rolldown"},   {"Rdn", "Rolldown"},
    {"STO−", "STO-"},     {"STO×", "STO*"},     {"STO÷", "STO/"},     {"STO− i", "STO- i"},
    {"STO× i", "STO* i"}, {"STO÷ i", "STO/ i"}, {"RCLΣ+", "RCLSum+"}, {"ClearΣ", "ClearSum"},
    {"+/-", "CHS"},       {"±", "CHS"},         {"GRAD", "GRD"},      {"→R", "->R"},
    {"→P", "->P"},        {"→H.MS", "->H.MS"},  {"→H", "->H"},        {"->HMS", "->H.MS"},
    {"→HMS", "->H.MS"},   {"−", "-"},           {"×", "*"},           {"·", "*"},
    {"÷", "/"},           {"eˣ", "e^x"},        {"exp", "e^x"},       {"10ˣ", "10^x"},
    {"yˣ", "y^x"},        {"^", "y^x"},         {"x²", "x^2"},        {"√", "sqrt"},
    {"√x", "sqrt"},       {"sin⁻¹", "sin^-1"},  {"cos⁻¹", "cos^-1"},  {"tan⁻¹", "tan^-1"},
    {"asin", "sin^-1"},   {"acos", "cos^-1"},   {"atan", "tan^-1"},   {"π", "pi"},
    {"log10", "log"},     {"recip", "1/x"},     {"x≤y", "x<=y"},      {"x≠y", "x!=y"},
    {"x≠0", "x!=0"},
};

size_t cVocabulary::cHash::operator()(std::string_view Word) const
{
    return std::hash<std::string_view>()(Word);
}

// Letters beyond ASCII keep their case.
static std::string Fold(std::string_view Word)
{
    std::string Folded(Word);
    for (char &c : Folded)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return Folded;
}

cVocabulary::cVocabulary()
{
    for (const cInstruction &Instruction : Instructions())
        Add(Instruction.m_szMnemonic, &Instruction);
    for (const cSpelling &Spelling : kSpellings)
        Add(Spelling.m_szWord, m_Words.find(Spelling.m_szMnemonic)->second);
}

void cVocabulary::Add(std::string_view Word, const cInstruction *pInstruction)
{
    m_Words.emplace(Word, pInstruction);
    const auto [Folded, bNew] = m_Folded.emplace(Fold(Word), pInstruction);
    if (!bNew && Folded->second != pInstruction)
        Folded->second = nullptr;
}

const cInstruction *cVocabulary::Find(std::string_view Word) const
{
    const auto Exact = m_Words.find(Word);
    if (Exact != m_Words.end())
        return Exact->second;
    const auto Folded = m_Folded.find(Fold(Word));
    return Folded == m_Folded.end() ? nullptr : Folded->second;
}
