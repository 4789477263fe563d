// vocabulary.h - the words that people type for instructions. Beside the
// mnemonics of listings these are spellings in ASCII and Unicode of what stands
// on the keys ("x<>y", "Sum+" or "Σ+", "sqrt" or "√x"); case is ignored where no
// two instructions differ by it alone.

#ifndef CONSOLE_VOCABULARY_H
#define CONSOLE_VOCABULARY_H

#include <string>
#include <string_view>
#include <unordered_map>

struct cInstruction;

class cVocabulary
{
public:
    cVocabulary();

    // The instruction of this word, null if there is none. A word with an
    // indirect operand has one blank before it: "STO i".
    const cInstruction *Find(std::string_view Word) const;

private:
    struct cHash
    {
        using is_transparent = void;
        size_t operator()(std::string_view Word) const;
    };
    typedef std::unordered_map<std::string, const cInstruction *, cHash, std::equal_to<>> cWords;

    void Add(std::string_view Word, const cInstruction *pInstruction);

    cWords m_Words;   // as spelt
    cWords m_Folded;  // in lower case; null where that is ambiguous
};

#endif
