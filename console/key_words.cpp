#include "console/key_words.h"

#include "console/arguments.h"
#include "console/vocabulary.h"
#include "engine/instruction.h"
#include "engine/key_codes.h"
#include "listing/suggestion.h"
#include "toolkit/finding.h"

static int AddKeys(std::string_view Name, std::vector<unsigned> *pKeys)
{
    const cKeySequence Keys = FindKeys(Name);
    pKeys->insert(pKeys->end(), Keys.m_nKeys, Keys.m_nKeys + Keys.m_nCount);
    return Keys.m_nCount > 0;
}

// "STO+" is STO and +, "RCLSum+" is RCL and Sum+.
static int AddTwoKeys(std::string_view Name, std::vector<unsigned> *pKeys)
{
    for (size_t nAt = 1; nAt < Name.size(); nAt++)
        if (FindKeys(Name.substr(0, nAt)).m_nCount > 0 && FindKeys(Name.substr(nAt)).m_nCount > 0)
            return AddKeys(Name.substr(0, nAt), pKeys) && AddKeys(Name.substr(nAt), pKeys);
    return 0;
}

static int AddDigits(std::string_view Number, std::vector<unsigned> *pKeys)
{
    if (Number.find_first_not_of("0123456789.") != std::string_view::npos)
        return 0;
    for (size_t i = 0; i < Number.size(); i++)
        AddKeys(Number.substr(i, 1), pKeys);
    return 1;
}

static int AddKeysOfWord(const cVocabulary &Vocabulary, const std::string &Word,
                         std::vector<unsigned> *pKeys)
{
    if (const cInstruction *const pInstruction = Vocabulary.Find(Word))
        return AddKeys(pInstruction->m_szMnemonic, pKeys) ||
               AddTwoKeys(pInstruction->m_szMnemonic, pKeys);
    const char *const szKey = Vocabulary.FindKey(Word);
    return AddKeys(szKey ? szKey : Word, pKeys) || AddDigits(Word, pKeys);
}

static std::string WhyNoKeys(const cVocabulary &Vocabulary, const std::string &Word)
{
    if (const cInstruction *const pInstruction = Vocabulary.Find(Word))
        return QuotedWord(Word) + " has no key; do " + pInstruction->m_szMnemonic + " performs it";
    const std::string Suggestion = SuggestWord(Word);
    return QuotedWord(Word) + " is on no key" +
           (Suggestion.empty() ? "" : ", did you mean " + Suggestion + "?");
}

int FindKeysOfLine(const cVocabulary &Vocabulary, std::string_view Line,
                   std::vector<unsigned> *pKeys, std::string *pWhy)
{
    const std::vector<std::string> Words = SplitWords(Line);
    for (size_t i = 0; i < Words.size(); i++)
    {
        const std::string Both =
            i + 1 < Words.size() ? Vocabulary.Joined(Words[i], Words[i + 1]) : "";
        if (!AddKeysOfWord(Vocabulary, Both.empty() ? Words[i] : Both, pKeys))
        {
            *pWhy = WhyNoKeys(Vocabulary, Words[i]);
            return 0;
        }
        i += static_cast<size_t>(!Both.empty());
    }
    return 1;
}
