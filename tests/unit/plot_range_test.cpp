#include "graph/plot_range.h"

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include <doctest/doctest.h>

#include "graph/vantor_plot.h"
#include "tests/unit/recording_boxes.h"

// By the C library, in the locale "C".
static double Printed(double dValue)
{
    char szText[32];
    snprintf(szText, sizeof szText, "%.2e", dValue);
    return strtod(szText, nullptr);
}

namespace
{

struct cRangeRig
{
    cRangeRig() : m_Plot(&m_Boxes) {}

    // A set of these points; without x values when X is empty.
    void Add(std::vector<float> X, std::vector<float> Y, uint32_t nType = gtPlot,
             float fMultiplier = 1.0F, float fOffset = 0.0F)
    {
        cVantorLineFormat Format;
        Format.m_nGraphType = nType;
        REQUIRE(m_Plot.AddDataSet(static_cast<uint32_t>(Y.size()), X.empty() ? nullptr : X.data(),
                                  Y.data(), &Format) == 1);
        REQUIRE(m_Plot.FormatDataSet(m_Plot.Count(), Format, fMultiplier, fOffset) == 1);
    }

    cPlotRange Range() const { return cRangeFinder().Find(m_Plot.DataSet(1), 640, 480, 1); }

    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
};

}  // namespace

static void CheckBounds(const cPlotRange &Range, float fXMin, float fXMax, float fYMin, float fYMax)
{
    CHECK(Range.m_fXMin == fXMin);
    CHECK(Range.m_fXMax == fXMax);
    CHECK(Range.m_fYMin == fYMin);
    CHECK(Range.m_fYMax == fYMax);
}

TEST_CASE("bounds are pushed outwards and rounded to three digits")
{
    // clang-format off
    static const struct { double dValue; double dUp; double dDown; } s_Rows[] =
    {
        {    0.0,       0.0,       0.0   },
        {    9.87,      9.87,      9.87  },
        {    9.875,     9.88,      9.87  },
        {    1.0,       1.0,       1.0   },
        {    1.005,     1.01,      1.0   },
        {    9.996,    10.0,       9.99  },
        { 1234.0,    1230.0,    1230.0   },
        { 1234.9,    1240.0,    1230.0   },
        {   -9.87,     -9.87,     -9.87  },
        {   -9.875,    -9.87,     -9.88  },
        { -100.5,    -100.0,    -101.0   },
        {  3.4028235e38, 3.4e38,  3.4e38 },
        {  1.5e-40,    1.5e-40,   1.5e-40 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dValue);
        CHECK(RoundUp(Row.dValue) == Row.dUp);
        CHECK(RoundDown(Row.dValue) == Row.dDown);
    }
}

TEST_CASE("rounding agrees with printing three digits, for any value")
{
    std::mt19937_64                        Random(5);
    std::uniform_real_distribution<double> Exponent(-46.0, 39.0);
    for (int i = 0; i < 20000; i++)
    {
        const double dAbs   = std::pow(10.0, Exponent(Random));
        const double dValue = i % 2 == 0 ? dAbs : -dAbs;
        CAPTURE(dValue);
        REQUIRE(RoundUp(dValue) == Printed(dValue * (dValue >= 0.0 ? 1.0005 : 0.9995)));
        REQUIRE(RoundDown(dValue) == Printed(dValue * (dValue >= 0.0 ? 0.9995 : 1.0005)));
    }
}

TEST_CASE("rounding agrees with printing three digits, close to the middle and to powers of ten")
{
    const double dInfinity = std::numeric_limits<double>::infinity();
    for (int nExponent = -24; nExponent <= 24; nExponent++)
        for (const double dDigits :
             {99.95, 100.0, 100.5, 101.5, 387.5, 512.5, 998.5, 999.5, 1000.0})
        {
            // Some twenty doubles around the one that becomes this number.
            double dValue = dDigits * std::pow(10.0, nExponent) / 1.0005;
            for (int i = 0; i < 10; i++)
                dValue = std::nextafter(dValue, 0.0);
            for (int i = 0; i < 20; i++, dValue = std::nextafter(dValue, dInfinity))
            {
                CAPTURE(dValue);
                CHECK(RoundUp(dValue) == Printed(dValue * 1.0005));
                CHECK(RoundDown(-dValue) == Printed(-dValue * 1.0005));
            }
        }
}

TEST_CASE("the number of horizontal ticks follows the width")
{
    // clang-format off
    static const struct { int nWidth; uint32_t nTicks; } s_Rows[] =
    {
        { 0, 2 }, { 199, 2 }, { 200, 3 }, { 299, 3 }, { 300, 4 }, { 449, 4 }, { 450, 5 },
        { 549, 5 }, { 550, 6 }, { 649, 6 }, { 650, 7 }, { 799, 7 }, { 800, 8 }, { 5000, 8 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nWidth);
        CHECK(HorzTickCount(Row.nWidth) == Row.nTicks);
    }
}

TEST_CASE("the number of vertical ticks follows the height and jumps from 6 to 11 at 500")
{
    // clang-format off
    static const struct { int nHeight; uint32_t nLegend; uint32_t nPlain; } s_Rows[] =
    {
        {   0,  2,  2 }, {  99,  2,  2 }, { 100,  2,  3 }, { 149,  2,  3 }, { 150,  3,  3 },
        { 199,  3,  3 }, { 200,  3,  4 }, { 249,  3,  4 }, { 250,  4,  5 }, { 299,  4,  5 },
        { 300,  5,  5 }, { 349,  5,  5 }, { 350,  5,  6 }, { 399,  5,  6 }, { 400,  6,  6 },
        { 499,  6,  6 }, { 500, 11, 11 }, { 900, 11, 11 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nHeight);
        CHECK(VertTickCount(Row.nHeight, 1) == Row.nLegend);
        CHECK(VertTickCount(Row.nHeight, 0) == Row.nPlain);
    }
}

TEST_CASE("without data the range is 0 to 10 with 6 ticks both ways, whatever the size")
{
    const cPlotRange Expected = {6, 6, 0.0F, 10.0F, 0.0F, 10.0F};

    CHECK(cRangeFinder().Find(nullptr, 100, 100, 1) == Expected);
    CHECK(cRangeFinder().Find(nullptr, 1000, 1000, 0) == Expected);
}

TEST_CASE("a single point has a range of 1 around it")
{
    cRangeRig Rig;
    Rig.Add({5.0F}, {5.0F});

    CheckBounds(Rig.Range(), 4.0F, 6.0F, 4.0F, 6.0F);
    CHECK(Rig.Range().m_nHorzTicks == 6);
    CHECK(Rig.Range().m_nVertTicks == 6);
}

TEST_CASE("equal bounds for which 1 does not matter stay equal")
{
    cRangeRig Rig;
    Rig.Add({1e20F}, {-2e30F});

    CheckBounds(Rig.Range(), 1e20F, 1e20F, -2e30F, -2e30F);
}

TEST_CASE("the range goes round all data sets")
{
    cRangeRig Rig;
    Rig.Add({-3.0F, 4.0F}, {2.0F, 7.0F});
    Rig.Add({1.0F, 21.0F}, {-1.0F, 3.0F});

    CheckBounds(Rig.Range(), -3.0F, 21.0F, -1.0F, 7.0F);
}

TEST_CASE("y is taken as it is plotted, the stored minimum for the minimum")
{
    // clang-format off
    static const struct { float fMultiplier; float fOffset; float fMin; float fMax; } s_Rows[] =
    {
        {  1.0F,  0.0F,    2.0F,   8.0F },
        { 10.0F,  5.0F,   25.0F,  85.0F },
        { -1.0F,  0.0F,   -2.0F,  -8.0F },  // upside down, the range too
        {  0.0F,  3.0F,    2.0F,   4.0F },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.fMultiplier);
        cRangeRig Rig;
        Rig.Add({1.0F, 9.0F}, {2.0F, 8.0F}, gtPlot, Row.fMultiplier, Row.fOffset);
        CheckBounds(Rig.Range(), 1.0F, 9.0F, Row.fMin, Row.fMax);
    }
}

TEST_CASE("bars reach one spacing beyond their last x")
{
    // clang-format off
    static const struct { uint32_t nType; std::vector<float> X; float fXMax; } s_Rows[] =
    {
        { gtStoop,     {},                       4.0F },
        { gtStairStep, {},                       3.0F },
        { gtStoop,     { 0.0F, 1.0F, 3.0F, 5.5F }, 8.0F },
        { gtPlot,      { 0.0F, 1.0F, 3.0F, 5.5F }, 5.5F },
        { gtStoop,     { 0.0F, 9.0F, 3.0F, 5.0F }, 11.0F },  // not from the greatest
        { gtStoop,     { 0.0F, 9.0F, 8.0F, 5.0F }, 6.0F },   // backwards
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.fXMax);
        cRangeRig Rig;
        Rig.Add(Row.X, {1.0F, 2.0F, 3.0F, 4.0F}, Row.nType);
        CheckBounds(Rig.Range(), 0.0F, Row.fXMax, 1.0F, 4.0F);
    }
}

TEST_CASE("a single bar ends one further without x values, at its x with them")
{
    cRangeRig Implicit;
    Implicit.Add({}, {5.0F}, gtStoop);
    cRangeRig Explicit;
    Explicit.Add({2.0F}, {5.0F}, gtStoop);

    CheckBounds(Implicit.Range(), 0.0F, 1.0F, 4.0F, 6.0F);
    CheckBounds(Explicit.Range(), 1.0F, 3.0F, 4.0F, 6.0F);
}

TEST_CASE("the range of the largest floats is finite")
{
    cRangeRig Rig;
    Rig.Add({-FLT_MAX, FLT_MAX}, {-FLT_MAX, FLT_MAX}, gtStoop, FLT_MAX, FLT_MAX);

    CheckBounds(Rig.Range(), -3.4e38F, FLT_MAX, -FLT_MAX, FLT_MAX);
}
