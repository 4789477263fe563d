#include "console/vocabulary.h"

#include <algorithm>

#include "engine/instruction.h"
#include "listing/spellings.h"
#include "toolkit/spelling.h"

size_t cVocabulary::cHash::operator()(std::string_view Word) const
{
    return std::hash<std::string_view>()(Word);
}

cVocabulary::cVocabulary()
{
    for (const cInstruction &Instruction : Instructions())
        Add(Instruction.m_szMnemonic, {&Instruction, nullptr});
    for (const cSpelling &Spelling : Spellings())
        AddSpelling(Spelling.m_szWord, Spelling.m_nKind == spKey
                                           ? cMeaning{nullptr, Spelling.m_szMeans}
                                           : m_Words.find(Spelling.m_szMeans)->second);
}

void cVocabulary::Add(std::string_view Word, const cMeaning &Meaning)
{
    m_Words.emplace(Word, Meaning);
    const auto [Folded, bNew] = m_Folded.emplace(FoldedSpelling(Word), Meaning);
    if (!bNew && Folded->second.m_pInstruction != Meaning.m_pInstruction)
        Folded->second = {nullptr, nullptr};
}

// Also without its blank.
void cVocabulary::AddSpelling(std::string_view Word, const cMeaning &Meaning)
{
    const size_t nBlank = Word.find(' ');
    Add(Word, Meaning);
    if (nBlank == std::string_view::npos)
        return;
    const std::string First(Word.substr(0, nBlank));
    Add(First + std::string(Word.substr(nBlank + 1)), Meaning);
    m_Pairs.push_back(FoldedSpelling(Word));
    if (!BeginsPair(First))
        m_Firsts.push_back(First);
}

cVocabulary::cMeaning cVocabulary::Meaning(std::string_view Word) const
{
    const auto Exact = m_Words.find(Word);
    if (Exact != m_Words.end())
        return Exact->second;
    const auto Folded = m_Folded.find(FoldedSpelling(Word));
    return Folded == m_Folded.end() ? cMeaning{nullptr, nullptr} : Folded->second;
}

const cInstruction *cVocabulary::Find(std::string_view Word) const
{
    return Meaning(Word).m_pInstruction;
}

const char *cVocabulary::FindKey(std::string_view Word) const
{
    return Meaning(Word).m_szKey;
}

int cVocabulary::BeginsPair(std::string_view First) const
{
    return std::any_of(m_Firsts.begin(), m_Firsts.end(), [First](const std::string &Known) {
        return EqualIgnoringCase(First, Known);
    });
}

std::string cVocabulary::Joined(std::string_view First, std::string_view Second) const
{
    if (Second.empty() || !BeginsPair(First))
        return "";
    std::string Both = std::string(First) + " " + std::string(Second);
    return std::count(m_Pairs.begin(), m_Pairs.end(), FoldedSpelling(Both)) ? Both : "";
}
