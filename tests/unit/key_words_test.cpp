#include "console/key_words.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "console/typed_words.h"
#include "console/vocabulary.h"
#include "engine/instruction.h"
#include "engine/key_codes.h"
#include "shell/key_names.h"

typedef std::vector<unsigned> cKeys;

// The keys of a line, none if it is refused.
static cKeys KeysOf(const std::string &Line)
{
    static const cVocabulary s_Vocabulary;
    cKeys                    Keys;
    std::string              Why;
    const int                bFound = FindKeysOfLine(s_Vocabulary, Line, &Keys, &Why);
    CHECK(Why.empty() == (bFound == 1));
    return bFound ? Keys : cKeys();
}

static std::string WhyNot(const std::string &Line)
{
    const cVocabulary Vocabulary;
    cKeys             Keys;
    std::string       Why;
    CHECK(FindKeysOfLine(Vocabulary, Line, &Keys, &Why) == 0);
    return Why;
}

// The legend as it is, in small and in capital letters, with and without its blank.
static std::vector<std::string> SpellingsOf(const std::string &Legend)
{
    std::string Joined = Legend;
    Joined.erase(std::remove(Joined.begin(), Joined.end(), ' '), Joined.end());
    std::vector<std::string> Spellings;
    for (const std::string &Text : {Legend, Joined})
    {
        std::string Lower = Text;
        std::string Upper = Text;
        for (size_t i = 0; i < Text.size(); i++)
        {
            const auto c = static_cast<unsigned char>(Text[i]);
            Lower[i]     = static_cast<char>(c < 0x80 ? tolower(c) : c);
            Upper[i]     = static_cast<char>(c < 0x80 ? toupper(c) : c);
        }
        Spellings.insert(Spellings.end(), {Text, Lower, Upper});
    }
    return Spellings;
}

TEST_CASE("what is printed on a key presses it, in any case, with its blank or without")
{
    int nLegends = 0;
    for (unsigned nKey = 1; nKey <= static_cast<unsigned>(kFaceKeys); nKey++)
    {
        const cKeyName &Name = kKeyNames[nKey - 1];
        const struct
        {
            const char *szLegend;
            cKeys       Keys;
        } s_Rows[] = {{Name.m_Plain.m_szLegend, {nKey}},
                      {Name.m_Gold.m_szLegend, {kKeyF, nKey}},
                      {Name.m_Blue.m_szLegend, {kKeyG, nKey}}};
        for (const auto &Row : s_Rows)
        {
            if (!*Row.szLegend)
                continue;
            nLegends++;
            for (const std::string &Spelling : SpellingsOf(Row.szLegend))
            {
                CAPTURE(Spelling);
                CHECK(KeysOf(Spelling) == Row.Keys);
            }
        }
    }
    CHECK(nLegends == 84);  // f, g and ENTER have one each
}

TEST_CASE("what is printed on a key is an instruction, unless it is a prefix, a digit or edits")
{
    const cVocabulary Vocabulary;
    std::string       Others;
    for (const cKeyName &Name : kKeyNames)
        for (const cKeyFunction *const pFunction : {&Name.m_Plain, &Name.m_Gold, &Name.m_Blue})
        {
            const std::string Legend = pFunction->m_szLegend;
            cTypedStep        Step;
            if (Legend.empty())
                continue;
            REQUIRE(cTypedWords(Vocabulary, Legend).Next(&Step));
            CHECK(Step.m_Word == Legend);
            if (!Vocabulary.Find(Legend) && Step.m_Parsed.m_nKind != llNumber)
                Others += Legend + ", ";
        }
    CHECK(Others == "SST, BST, f, g, i, DEL, CL PRGM, EEX, ., ");
}

TEST_CASE("an instruction that needs several keys presses them all")
{
    CHECK(KeysOf("STO+ 5") == cKeys{8, 19, 21});
    CHECK(KeysOf("sto + .5") == cKeys{8, 19, 29, 21});
    CHECK(KeysOf("STO/ i") == cKeys{8, 27, 5, 7});
    CHECK(KeysOf("STO×") == cKeys{8, 23});
    CHECK(KeysOf("STO−") == cKeys{8, 15});
    for (const char *const szWord : {"RCLSum+", "RCL Σ+", "RCLΣ+", "rcl sum+"})
        CHECK(KeysOf(szWord) == cKeys{9, 10});
    CHECK(KeysOf("12.5 CL REG 3") == cKeys{24, 25, 29, 21, 4, 13, 26});
    CHECK(KeysOf("CL").empty());
    CHECK(KeysOf("").empty());
}

TEST_CASE("every instruction has keys, or a reason why not")
{
    for (const cInstruction &Instruction : Instructions())
    {
        const std::string Mnemonic = Instruction.m_szMnemonic;
        CAPTURE(Mnemonic);
        if (Mnemonic.starts_with("->H"))
            CHECK(WhyNot(Mnemonic) ==
                  "\"" + Mnemonic + "\" has no key; do " + Mnemonic + " performs it");
        else
            CHECK(!KeysOf(Mnemonic).empty());
    }
    CHECK(WhyNot("5 entr") == "\"entr\" is on no key, did you mean ENTER?");
    CHECK(WhyNot("foo") == "\"foo\" is on no key");
    CHECK(WhyNot("CL FOO") == "\"CL\" is on no key");
}
