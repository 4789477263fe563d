#include "tables/double_scan.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include <doctest/doctest.h>

#include "tests/unit/special_numbers.h"

// How many characters the number at the start of Text takes up; 0 for none.
static size_t NumberLength(std::string_view Text, char cPoint, double *pValue)
{
    const char *const pAfter = ReadDouble(Text.data(), Text.data() + Text.size(), cPoint, pValue);
    return pAfter ? static_cast<size_t>(pAfter - Text.data()) : 0;
}

static size_t GapLength(std::string_view Text)
{
    const char *const pAfter = SkipGapWord(Text.data(), Text.data() + Text.size());
    return pAfter ? static_cast<size_t>(pAfter - Text.data()) : 0;
}

TEST_CASE("a double is sign, digits with a point, and a complete exponent")
{
    // clang-format off
    static const struct { std::string_view Text; size_t nLength; double dValue; } s_Rows[] =
    {
        { "0",       1, 0.0     }, { "12",      2, 12.0   }, { "+12,5",   3, 12.0  },
        { ".5",      2, 0.5     }, { "5.",      2, 5.0    }, { "-.5e1 ",  5, -5.0  },
        { "1e3",     3, 1000.0  }, { "1E+3x",   4, 1000.0 }, { "1e",      1, 1.0   },
        { "1e+",     1, 1.0     }, { "1.5.3",   3, 1.5    }, { "0x10",    1, 0.0   },
        { "2-1",     1, 2.0     }, { "1e-400",  6, 0.0    }, { "1e400",   5, kInfinity  },
        { "-1e400",  6, -kInfinity }, { "0e999",   5, 0.0 },
        { "0.000001e400", 12, kInfinity }, { "100000000e-400", 14, 0.0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.Text);
        double dValue = 99.0;
        CHECK(NumberLength(Row.Text, '.', &dValue) == Row.nLength);
        CHECK(dValue == Row.dValue);
    }
}

TEST_CASE("what begins with no digit is no double")
{
    double dValue = 99.0;
    for (const char *const szText :
         {"", ".", "-", "+.", "e5", ".e5", " 1", "--1", "+-1", "nan", "inf", ",5", "x"})
    {
        CAPTURE(szText);
        CHECK(NumberLength(szText, '.', &dValue) == 0);
    }
    CHECK(dValue == 99.0);
}

TEST_CASE("a number ends where the text ends, not at a zero byte")
{
    double dValue = 0.0;
    CHECK(NumberLength(std::string_view("12345", 3), '.', &dValue) == 3);
    CHECK(dValue == 123.0);
}

TEST_CASE("minus zero keeps its sign")
{
    double dValue = 1.0;
    CHECK(NumberLength("-0.0", '.', &dValue) == 4);
    CHECK(std::signbit(dValue));
}

TEST_CASE("a decimal comma takes the place of the point")
{
    double dValue = 0.0;
    CHECK(NumberLength("-1,5e2;", ',', &dValue) == 6);
    CHECK(dValue == -150.0);
    CHECK(NumberLength("1.5", ',', &dValue) == 1);
    CHECK(NumberLength("0,12345678901234567890", ',', &dValue) == 22);
    CHECK(dValue == 0.12345678901234567890);
}

TEST_CASE("doubles read as the standard library reads them")
{
    std::mt19937_64 Random(20);
    for (int i = 0; i < 200000; i++)
    {
        // Of 1 to 20 digits, most of them with a point and some with an exponent.
        std::string Text;
        for (uint64_t nDigits = 1 + Random() % 20; nDigits > 0; nDigits--)
            Text += static_cast<char>('0' + Random() % 10);
        if (Random() % 4 > 0)
            Text.insert(Random() % (Text.size() + 1), 1, '.');
        if (Random() % 3 == 0)
            Text += "e" + std::to_string(static_cast<int>(Random() % 700) - 350);
        double dExpected = 0.0;
        if (std::from_chars(Text.data(), Text.data() + Text.size(), dExpected).ec != std::errc())
            continue;
        double       dValue  = 99.0;
        const size_t nLength = NumberLength(Text, '.', &dValue);
        if (nLength != Text.size() ||
            std::bit_cast<uint64_t>(dValue) != std::bit_cast<uint64_t>(dExpected))
        {
            CAPTURE(Text);
            CHECK(nLength == Text.size());
            CHECK(dValue == dExpected);
            return;
        }
    }
}

TEST_CASE("words for a missing value end at a blank, a separator or the text's end")
{
    for (const char *const szWord : {"nan", "NaN", "-nan", "+NAN", "NA", "n/a", "null", "None",
                                     "inf", "-Inf", "infinity", "-INFINITY"})
    {
        CAPTURE(szWord);
        const std::string Word = szWord;
        CHECK(GapLength(Word) == Word.size());
        for (const char *const szRest : {" 1", "\t", ",2", ";"})
            CHECK(GapLength(Word + szRest) == Word.size());
        CHECK(GapLength(Word + "x") == 0);
        CHECK(GapLength(Word + "1") == 0);
    }
    for (const char *const szWord : {"", "-", "-na", "+none", "nano", "na.", "5", "missing"})
    {
        CAPTURE(szWord);
        CHECK(GapLength(szWord) == 0);
    }
}
