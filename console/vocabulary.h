// vocabulary.h - the words that people type for instructions. Beside the
// mnemonics of listings these are spellings in ASCII and Unicode of what stands
// on the keys ("x<>y", "Sum+" or "Σ+", "sqrt" or "√x", "CL REG"); case is ignored
// where no two instructions differ by it alone.

#ifndef CONSOLE_VOCABULARY_H
#define CONSOLE_VOCABULARY_H

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct cInstruction;

class cVocabulary
{
public:
    cVocabulary();

    // The instruction of this word, null if there is none. A word with an
    // indirect operand has one blank before it: "STO i".
    const cInstruction *Find(std::string_view Word) const;

    // For a key that is no instruction, its name for FindKeys(): "PRGM" for "CL PRGM".
    // Null for anything else.
    const char *FindKey(std::string_view Word) const;

    // 1 if there are words that belong together with this one before them: "CL".
    int BeginsPair(std::string_view First) const;

    // "CL REG" for the words "CL" and "REG", which belong together. Empty for two
    // words that do not; Second may be empty.
    std::string Joined(std::string_view First, std::string_view Second) const;

private:
    struct cHash
    {
        using is_transparent = void;
        size_t operator()(std::string_view Word) const;
    };
    struct cMeaning
    {
        const cInstruction *m_pInstruction;  // or:
        const char         *m_szKey;
    };
    typedef std::unordered_map<std::string, cMeaning, cHash, std::equal_to<>> cWords;

    void     Add(std::string_view Word, const cMeaning &Meaning);
    void     AddSpelling(std::string_view Word, const cMeaning &Meaning);
    cMeaning Meaning(std::string_view Word) const;

    cWords                   m_Words;   // as spelt
    cWords                   m_Folded;  // in lower case; nothing where that is ambiguous
    std::vector<std::string> m_Pairs;   // of words that belong together, in lower case
    std::vector<std::string> m_Firsts;  // the first words of them
};

#endif
