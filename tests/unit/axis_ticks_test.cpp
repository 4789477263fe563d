#include "figure/axis_ticks.h"

#include <cfloat>
#include <set>
#include <string>

#include <doctest/doctest.h>

static std::string PlainOf(const cFigureText &Text)
{
    std::string Plain;
    for (const cTextRun &Run : Text)
        Plain += Run.m_bRaised ? "^" + Run.m_Text : Run.m_Text;
    return Plain;
}

// "0 5 10 | x10^6": labels, and the factor if there is one; "." is a short tick.
static std::string TicksOf(const cAxisRange &Range, uint32_t nWanted)
{
    const cAxisTicks Ticks = FindTicks(Range, nWanted);
    std::string      Texts;
    for (const cAxisTick &Tick : Ticks.m_Ticks)
        Texts += (Texts.empty() ? "" : " ") + (Tick.m_Label.empty() ? "." : PlainOf(Tick.m_Label));
    return Ticks.m_Factor.empty() ? Texts : Texts + " | " + PlainOf(Ticks.m_Factor);
}

TEST_CASE("ticks are at 1, 2 and 5 times a power of ten, in as few digits as differ")
{
    static const struct
    {
        double      m_dFrom;
        double      m_dTo;
        uint32_t    m_nWanted;
        const char *m_szTicks;
    } s_Rows[] = {
        {-0.5, 10.5, 6, "0 2 4 6 8 10"},
        {0.0, 1.0, 6, "0.0 0.2 0.4 0.6 0.8 1.0"},
        {0.0, 0.3, 4, "0.0 0.1 0.2 0.3"},
        {0.1, 1.3, 3, "0.5 1.0"},
        {10.5, -0.5, 6, "0 2 4 6 8 10"},
        {-1.99, 3.98, 7, "−1 0 1 2 3"},
        {0.0, 26.0, 26, "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26"},
        {0.0, 99999.0, 3, "0 50000"},
        {0.0, 2e6, 5, "0.0 0.5 1.0 1.5 2.0 | ×10^6"},
        {0.0, 4e-5, 5, "0 10 20 30 40 | ×10^−6"},
        {-4e30, 4e30, 5, "−4 −2 0 2 4 | ×10^30"},
        {1700000000.0, 1700000040.0, 5, "0 10 20 30 40 | +1700000000"},
        {1.0, 1.000009, 4, "0 2 4 6 8 | ×10^−6\u00a0+ 1"},
        {-1.000009, -1.0, 4, "−8 −6 −4 −2 0 | ×10^−6\u00a0− 1"},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_dFrom);
        CAPTURE(Row.m_dTo);
        CHECK(TicksOf({Row.m_dFrom, Row.m_dTo, 0}, Row.m_nWanted) == Row.m_szTicks);
    }
}

TEST_CASE("any range has ticks within it whose labels differ")
{
    static const cAxisRange s_Ranges[] = {
        {-DBL_MAX, DBL_MAX, 0},    {0.0, DBL_MAX, 0},
        {DBL_MIN, 3 * DBL_MIN, 0}, {1.0, 1.0 + 1e-12, 0},
        {1e30, 1.1e30, 0},         {-1e-30, 1e-30, 0},
        {12345.678, 12345.679, 0}, {-1e9 - 1, -1e9, 0},
        {DBL_MIN, DBL_MAX, 1},     {1.0, 2.0, 1},
        {0.3, 0.30001, 1},         {1e-5, 1e5, 1},
        {5e-324, 1e-300, 1},
    };
    for (const cAxisRange &Range : s_Ranges)
        for (const uint32_t nWanted : {2U, 5U, 10U, 26U})
        {
            CAPTURE(Range.m_dFrom);
            CAPTURE(Range.m_dTo);
            CAPTURE(nWanted);
            std::set<std::string> Labels;
            size_t                nLabels = 0;
            double                dFormer = -DBL_MAX;
            for (const cAxisTick &Tick : FindTicks(Range, nWanted).m_Ticks)
            {
                CHECK(Tick.m_dValue >= dFormer);
                dFormer = Tick.m_dValue;
                if (Tick.m_Label.empty())
                    continue;
                nLabels++;
                Labels.insert(PlainOf(Tick.m_Label));
                CHECK(PlainOf(Tick.m_Label).size() <= 10);
            }
            CHECK(Labels.size() == nLabels);
            CHECK(nLabels >= 2);
            CHECK(nLabels <= 3 * nWanted);
        }
}

TEST_CASE("a logarithmic axis has its decades, and what is between them")
{
    CHECK(TicksOf({0.5, 200.0, 1}, 6) == ". . . . . 1 . . . . . . . . 10 . . . . . . . . 100 .");
    CHECK(TicksOf({1.0, 1e6, 1}, 4).substr(0, 26) == "10^0 . 10^2 . 10^4 . 10^6");
    CHECK(TicksOf({0.9, 9.0, 1}, 6) == ". 1 2 . . 5 . . . .");
    CHECK(TicksOf({3.0, 4.0, 1}, 3) == "3.0 3.5 4.0");
}

TEST_CASE("decimal texts have all zeros and a true minus")
{
    CHECK(DecimalText(250, -3) == "0.250");
    CHECK(DecimalText(-5, 2) == "−500");
    CHECK(DecimalText(0, 3) == "0");
    CHECK(DecimalText(12, 0) == "12");
    CHECK(DecimalValue(250, -3) == 0.25);
    CHECK(DecimalValue(-5, 22) == -5e22);
    CHECK(DecimalValue(3, -320) == doctest::Approx(3e-320));
}

TEST_CASE("ticks of the largest numbers are numbers")
{
    for (const int bLog : {0, 1})
        for (const double dFrom : {1e300, 3e307, 9e307})
            for (const cAxisTick &Tick : FindTicks({dFrom, DBL_MAX, bLog}, 6).m_Ticks)
            {
                CAPTURE(dFrom);
                CHECK(Tick.m_dValue >= dFrom);
                CHECK(Tick.m_dValue <= DBL_MAX);
            }
}
