#include "graph/plot_ticks.h"

#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include <doctest/doctest.h>

static std::string Shown(double dValue)
{
    char szText[kValueText];
    CHECK(FormatValue(dValue, szText) == 1);
    return szText;
}

// The texts at all ticks, with a blank between each two.
static std::string Texts(float fFirst, float fLast, uint32_t nTicks)
{
    const cTickValues Values(fFirst, fLast, nTicks);
    std::string       All;
    for (uint32_t nTick = 0; nTick < nTicks; nTick++)
        All += (nTick > 0 ? " " : "") + Shown(Values.Value(nTick));
    return All;
}

TEST_CASE("values have six significant digits and an exponent of two at least")
{
    // clang-format off
    static const struct { double dValue; const char *szShown; } s_Rows[] =
    {
        { 0.0,          "0"            },
        { 0.25,         "0.25"         },
        { -1234.5678,   "-1234.57"     },
        { 123456.0,     "123456"       },
        { 1000000.0,    "1e+06"        },
        { 0.0001,       "0.0001"       },
        { 0.00001,      "1e-05"        },
        { -1.234567e-38, "-1.23457e-38" },
        { 3.4e38,       "3.4e+38"      },
        { 1e100,        "1e+100"       },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        CHECK(Shown(Row.dValue) == Row.szShown);
}

TEST_CASE("values are shown as the C library prints them")
{
    std::mt19937_64                        Random(11);
    std::uniform_real_distribution<double> Exponent(-50.0, 80.0);
    for (int i = 0; i < 20000; i++)
    {
        const double dValue = (i % 2 == 0 ? 1 : -1) * std::pow(10.0, Exponent(Random));
        char         szPrinted[32];
        snprintf(szPrinted, sizeof szPrinted, "%.6g", dValue);
        REQUIRE(Shown(dValue) == szPrinted);
    }
}

TEST_CASE("ticks are evenly spaced from the first to the last")
{
    // clang-format off
    static const struct { float fFirst; float fLast; uint32_t nTicks; const char *szTexts; } s_Rows[] =
    {
        {  0.0F,  10.0F,  6, "0 2 4 6 8 10"             },
        {  5.0F,   0.0F,  6, "5 4 3 2 1 0"              },
        {  0.3F,  -0.3F,  7, "0.3 0.2 0.1 0 -0.1 -0.2 -0.3" },  // 0 by rounding
        { -1.0F,   1.0F,  4, "-1 -0.333333 0.333333 1"  },
        {  7.5F,   9.0F,  1, "7.5"                      },
        {  7.5F,   9.0F,  0, ""                         },
        {  7.5F,   9.0F,  2, "7.5 9"                    },
        {  2.0F,   2.0F,  3, "2 2 2"                    },
        { 1e20F,  1e20F,  2, "1e+20 1e+20"              },
        { -3.4e38F, 3.4e38F, 3, "-3.4e+38 0 3.4e+38"    },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        CHECK(Texts(Row.fFirst, Row.fLast, Row.nTicks) == Row.szTexts);
}

TEST_CASE("only what is less than a millionth of the step is shown as 0")
{
    const cTickValues Above(0.0000011F, 1.0000011F, 2);
    const cTickValues Below(0.0000009F, 1.0000009F, 2);

    CHECK(Above.Value(0) != 0.0);
    CHECK(Below.Value(0) == 0.0);
}

TEST_CASE("tick pixels multiply first and round halves away from zero")
{
    // clang-format off
    static const struct { uint32_t nTick; uint32_t nTicks; int nPixels; int nPixel; } s_Rows[] =
    {
        { 0,  6, 500,   0 }, { 1,  6, 500, 100 }, { 5,  6, 500, 500 },
        { 1,  3,   5,   3 }, { 1,  3,  -5,  -3 }, { 2,  3,   5,   5 },
        { 1,  4, 100,  33 }, { 2,  4, 100,  67 }, { 1, 26, 333,  13 },
        { 0,  1, 500,   0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nTick);
        CAPTURE(Row.nTicks);
        CHECK(TickPixel(Row.nTick, Row.nTicks, Row.nPixels) == Row.nPixel);
    }
}

TEST_CASE("pixels round to the nearest, halves away from zero")
{
    CHECK(RoundToPixel(0.0) == 0);
    CHECK(RoundToPixel(0.49) == 0);
    CHECK(RoundToPixel(0.5) == 1);
    CHECK(RoundToPixel(1.5) == 2);
    CHECK(RoundToPixel(-0.5) == -1);
    CHECK(RoundToPixel(-0.49) == 0);
    CHECK(RoundToPixel(-2.5) == -3);
}
