#include "toolkit/spelling.h"

#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

TEST_CASE("texts are equal if only the case of their letters differs")
{
    CHECK(EqualIgnoringCase("Sum+", "sUM+"));
    CHECK(EqualIgnoringCase("", ""));
    CHECK_FALSE(EqualIgnoringCase("sin", "sine"));
    CHECK_FALSE(EqualIgnoringCase("@", "`"));  // 32 apart, as letters of two cases are
    CHECK_FALSE(EqualIgnoringCase("\xC3\x89", "\xC3\xA9"));
}

TEST_CASE("each character that is missing, surplus, wrong or exchanged counts once")
{
    // clang-format off
    static const struct { const char *szText; const char *szOther; size_t nDistance; } s_Rows[] =
    {
        { "enter", "ENTER", 0 },
        { "entr",  "ENTER", 1 },
        { "enterr","ENTER", 1 },
        { "emter", "ENTER", 1 },
        { "etner", "ENTER", 1 },
        { "netre", "ENTER", 2 },
        { "ca",    "abc",   3 },
        { "",      "abc",   3 },
        { "abc",   "",      3 },
        { "",      "",      0 },
        { "sunday","Saturday", 3 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szText));
        CHECK(SpellingDistance(Row.szText, Row.szOther, 9) == Row.nDistance);
        CHECK(SpellingDistance(Row.szOther, Row.szText, 9) == Row.nDistance);
    }
}

TEST_CASE("a distance beyond the limit is the limit and one")
{
    CHECK(SpellingDistance("abcdef", "ghijkl", 2) == 3);
    CHECK(SpellingDistance("a", "abcdefgh", 2) == 3);
    CHECK(SpellingDistance("ab", "ba", 0) == 1);
    CHECK(SpellingDistance("abcdef", "ghijkl", 6) == 6);
}

TEST_CASE("random changes are never further apart than their number")
{
    std::mt19937 Random(16180);
    for (int i = 0; i < 2000; i++)
    {
        std::string Text;
        for (size_t n = Random() % 8; n > 0; n--)
            Text.push_back(static_cast<char>('a' + Random() % 4));
        std::string  Changed  = Text;
        const size_t nChanges = Random() % 4;
        for (size_t n = 0; n < nChanges; n++)
        {
            const size_t nAt = Changed.empty() ? 0 : Random() % Changed.size();
            if (Changed.empty() || Random() % 2)
                Changed.insert(nAt, 1, static_cast<char>('a' + Random() % 4));
            else
                Changed.erase(nAt, 1);
        }
        CAPTURE(Text);
        CAPTURE(Changed);
        CHECK(SpellingDistance(Text, Changed, 9) <= nChanges);
        CHECK((SpellingDistance(Text, Changed, 9) == 0) == (Text == Changed));
    }
}

TEST_CASE("the nearest word is the only one within reach of the word's length")
{
    static const std::vector<std::string_view> s_Words = {"check", "run",  "script", "plot",
                                                          "+",     "STO+", "STO-"};
    // clang-format off
    static const struct { const char *szWord; int nIndex; } s_Rows[] =
    {
        { "chek",   0  },
        { "CHCEK",  0  },
        { "chk",    -1 },  // two changes for three characters
        { "rum",    1  },
        { "scrpits",2  },  // two changes for seven
        { "scrpitss",2 },  // three for eight
        { "scr",    -1 },
        { "lot",    3  },
        { "=",      -1 },
        { "STO&",   -1 },  // two are equally near
        { "sto+",   5  },
        { "",       -1 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szWord));
        CHECK(NearestWord(Row.szWord, s_Words) == Row.nIndex);
    }
    CHECK(NearestWord("check", {}) == -1);
}
