#include "engine/decimal.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/exact_decimal.h"
#include "tests/unit/special_numbers.h"

static double ParsedNumber(const std::string &Text)
{
    double dValue = -77.0;
    CAPTURE(Text);
    CHECK(ParseDecimal(Text.c_str(), &dValue) == 1);
    return dValue;
}

// "1.2345e+05" as text, of any length.
static std::string ScientificText(const cExactDecimal &Decimal)
{
    return Decimal.m_Digits.substr(0, 1) + "." + Decimal.m_Digits.substr(1) + "e" +
           std::to_string(Decimal.m_nPoint - 1);
}

static cExactDecimal ALittleMore(cExactDecimal Decimal)
{
    Decimal.m_Digits.append(400, '0').append("1");
    return Decimal;
}

static cExactDecimal ALittleLess(cExactDecimal Decimal)
{
    Decimal.m_Digits.back()--;
    Decimal.m_Digits.append(400, '9');
    return Decimal;
}

// Length of the longest number at the start of a text, by a table of states.
static size_t NumberLength(const std::string &Text)
{
    // clang-format off
    static const int s_Next[8][4] =
    {
        // sign, digit, point, e; 0 is the end
        { 1, 2, 3, 0 },   // 0 at the start
        { 0, 2, 3, 0 },   // 1 after the sign
        { 0, 2, 4, 5 },   // 2 in the integer digits: a number
        { 0, 4, 0, 0 },   // 3 after a point without digits before it
        { 0, 4, 0, 5 },   // 4 after the point or in the places: a number
        { 6, 7, 0, 0 },   // 5 after e
        { 0, 7, 0, 0 },   // 6 after its sign
        { 0, 7, 0, 0 },   // 7 in the exponent: a number
    };
    // clang-format on
    static const std::string s_Classes = "+-0123456789.eE";
    size_t                   nLongest  = 0;
    int                      nState    = 0;
    for (size_t i = 0; i < Text.size(); i++)
    {
        const size_t nClass = s_Classes.find(Text[i]);
        if (nClass == std::string::npos)
            break;
        nState = s_Next[nState][nClass < 2 ? 0 : nClass < 12 ? 1 : nClass < 13 ? 2 : 3];
        if (nState == 0)
            break;
        if (nState == 2 || nState == 4 || nState == 7)
            nLongest = i + 1;
    }
    return nLongest;
}

TEST_CASE("a decimal number is a sign, digits with a point, and an exponent")
{
    // clang-format off
    static const struct { const char *szText; size_t nLength; double dValue; } s_Rows[] =
    {
        { "0",           1,  0.0      },
        { "7",           1,  7.0      },
        { "+3",          2,  3.0      },
        { "-3",          2,  -3.0     },
        { "007",         3,  7.0      },
        { "12.5",        4,  12.5     },
        { ".5",          2,  0.5      },
        { "-.5",         3,  -0.5     },
        { "+.5",         3,  0.5      },
        { "5.",          2,  5.0      },
        { "1e5",         3,  1e5      },
        { "1E5",         3,  1e5      },
        { "1e+5",        4,  1e5      },
        { "1E-5",        4,  1e-5     },
        { "5.e1",        4,  50.0     },
        { ".5e1",        4,  5.0      },
        { "+1.5e-99",    8,  1.5e-99  },
        { "+9.999999999e+99", 16, 9.999999999e99 },
        { "1e0005",      6,  1e5      },
        { "0.1",         3,  0.1      },
        { "1234567890.", 11, 1234567890.0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szText));
        double dValue = -77.0;

        CHECK(DecimalLength(Row.szText) == Row.nLength);
        CHECK(ParseDecimal(Row.szText, &dValue) == 1);
        CHECK(dValue == Row.dValue);
    }
}

TEST_CASE("text after a decimal number is not part of it")
{
    // clang-format off
    static const struct { const char *szText; size_t nLength; double dValue; } s_Rows[] =
    {
        { "1 ",      1, 1.0   },
        { "1x",      1, 1.0   },
        { "3.5x",    3, 3.5   },
        { "1,5",     1, 1.0   },
        { "1.2.3",   3, 1.2   },
        { "1..2",    2, 1.0   },
        { "1-2",     1, 1.0   },
        { "1e",      1, 1.0   },
        { "1e+",     1, 1.0   },
        { "1e-",     1, 1.0   },
        { "1e x",    1, 1.0   },
        { "1e+-5",   1, 1.0   },
        { "1.e",     2, 1.0   },
        { "1e5e5",   3, 1e5   },
        { "1e2.5",   3, 100.0 },
        { "0x10",    1, 0.0   },
        { "1f",      1, 1.0   },
        { "1d5",     1, 1.0   },
        { "1p5",     1, 1.0   },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szText));
        double dValue = -77.0;

        CHECK(DecimalLength(Row.szText) == Row.nLength);
        CHECK(ParseDecimal(Row.szText, &dValue) == 0);
        CHECK(dValue == Row.dValue);
    }
}

TEST_CASE("where no decimal number begins the value is 0")
{
    static const char *const s_Texts[] = {"",    " ",        " 1",  "\t1",   ".",    "-",   "+",
                                          "-.",  "+.e5",     "+-5", "--5",   "- 5",  "e5",  ".e5",
                                          "-e5", ",5",       "x",   "inf",   "-inf", "INF", "nan",
                                          "NaN", "infinity", "STO", "\"1\"", "\xB2"};
    for (const char *const szText : s_Texts)
    {
        CAPTURE(std::string(szText));
        double dValue = -77.0;

        CHECK(DecimalLength(szText) == 0);
        CHECK(ParseDecimal(szText, &dValue) == 0);
        CHECK(dValue == 0.0);
    }
}

TEST_CASE("decimal numbers beyond the range of a double are infinite or 0")
{
    const std::string Zeros(400, '0');
    const struct
    {
        std::string Text;
        double      dValue;
    } Rows[] = {
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"1e309", kInfinity},
        {"-1e309", -kInfinity},
        {"1e99999999999999999999", kInfinity},
        {"-1e+99999999999999999999", -kInfinity},
        {"123e9223372036854775807", kInfinity},
        {"0.01e-9223372036854775807", 0.0},
        {"1" + Zeros, kInfinity},
        {"0." + Zeros + "1e800", kInfinity},
        {"5e-324", std::numeric_limits<double>::denorm_min()},
        {"2e-324", 0.0},
        {"1e-400", 0.0},
        {"1e-99999999999999999999", 0.0},
        {"0." + Zeros + "1", 0.0},
        {"1" + Zeros + "e-800", 0.0},
        {"1" + Zeros + "e-400", 1.0},
        {"0." + Zeros + "25e402", 25.0},
        {"0e400", 0.0},
        {"0e99999999999999999999", 0.0},
        {"0.0e-99999999999999999999", 0.0},
    };
    for (const auto &Row : Rows)
        CHECK(ParsedNumber(Row.Text) == Row.dValue);
}

TEST_CASE("a negative zero keeps its sign")
{
    CHECK(std::signbit(ParsedNumber("-0")));
    CHECK(std::signbit(ParsedNumber("-0.000e+05")));
    CHECK(std::signbit(ParsedNumber("-1e-400")));
    CHECK_FALSE(std::signbit(ParsedNumber("+0")));
    CHECK_FALSE(std::signbit(ParsedNumber("0")));
}

TEST_CASE("a decimal number is rounded to the nearest double, ties to even")
{
    std::mt19937_64                         Random(20);
    std::uniform_int_distribution<uint64_t> Mantissas(1ull << 52, (1ull << 53) - 2);
    std::uniform_int_distribution<int>      Exponents(-400, 290);
    for (int i = 0; i < 5000; i++)
    {
        const uint64_t nMantissa = Mantissas(Random);
        const int      nExponent = Exponents(Random);
        const double   dBelow    = std::ldexp(static_cast<double>(nMantissa), nExponent);
        const double   dAbove    = std::ldexp(static_cast<double>(nMantissa + 1), nExponent);

        const cExactDecimal Middle = ExactDecimal(2 * nMantissa + 1, nExponent - 1);
        CHECK(ParsedNumber(ScientificText(Middle)) == (nMantissa % 2 ? dAbove : dBelow));
        CHECK(ParsedNumber(ScientificText(ALittleMore(Middle))) == dAbove);
        CHECK(ParsedNumber(ScientificText(ALittleLess(Middle))) == dBelow);
    }
}

TEST_CASE("random texts are numbers exactly as far as the grammar goes")
{
    static const char                     kAlphabet[] = "0123456789..++--eEx ";
    std::mt19937                          Random(21);
    std::uniform_int_distribution<size_t> Characters(0, sizeof kAlphabet - 2);
    std::uniform_int_distribution<size_t> Lengths(0, 12);
    for (int i = 0; i < 100000; i++)
    {
        std::string Text(Lengths(Random), ' ');
        for (char &c : Text)
            c = kAlphabet[Characters(Random)];
        const size_t nLength = NumberLength(Text);
        CAPTURE(Text);
        double dValue = -77.0;

        CHECK(DecimalLength(Text.c_str()) == nLength);
        CHECK(ParseDecimal(Text.c_str(), &dValue) == (nLength > 0 && nLength == Text.size()));
        CHECK(dValue == strtod(Text.substr(0, nLength).c_str(), nullptr));
    }
}

TEST_CASE("random numbers read as the C library reads them")
{
    std::mt19937                       Random(22);
    std::uniform_int_distribution<int> Digits(0, 9);
    std::uniform_int_distribution<int> Lengths(0, 14);
    std::uniform_int_distribution<int> Exponents(-340, 330);
    const auto                         AppendDigits = [&](std::string *pText) {
        for (int nLeft = Lengths(Random); nLeft > 0; nLeft--)
            *pText += static_cast<char>('0' + Digits(Random));
    };
    for (int i = 0; i < 100000; i++)
    {
        std::string Text = Random() % 2 ? "-" : "+";
        AppendDigits(&Text);
        Text += ".5";
        AppendDigits(&Text);
        Text += "e" + std::to_string(Exponents(Random));

        const double dValue = ParsedNumber(Text);

        CHECK(dValue == strtod(Text.c_str(), nullptr));
    }
}
