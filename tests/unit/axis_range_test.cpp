#include "figure/axis_range.h"

#include <cfloat>
#include <cmath>

#include <doctest/doctest.h>

static cValueExtent ExtentOf(double dMin, double dMax)
{
    cValueExtent Extent;
    Extent.Widen(dMin);
    Extent.Widen(dMax);
    return Extent;
}

TEST_CASE("a range is longer than its data on both sides")
{
    const cAxisRange Range = ChooseRange({}, ExtentOf(0.0, 10.0), 0.05);
    CHECK(Range.m_dFrom == doctest::Approx(-0.5));
    CHECK(Range.m_dTo == doctest::Approx(10.5));
}

TEST_CASE("bounds that the user sets are kept, the other ones follow the data")
{
    cRangeWish Wish;
    Wish.m_dTo             = 30.0;
    const cAxisRange Range = ChooseRange(Wish, ExtentOf(0.0, 10.0), 0.1);
    CHECK(Range.m_dFrom == doctest::Approx(-3.0));
    CHECK(Range.m_dTo == 30.0);

    Wish.m_dFrom               = 40.0;
    const cAxisRange Backwards = ChooseRange(Wish, ExtentOf(0.0, 10.0), 0.1);
    CHECK(Backwards.m_dFrom == 40.0);
    CHECK(Backwards.m_dTo == 30.0);
}

TEST_CASE("bounds with next to nothing between them show what is around them")
{
    cRangeWish Wish;
    Wish.m_dFrom           = 1e-320;
    Wish.m_dTo             = 2e-320;
    const cAxisRange Range = ChooseRange(Wish, {}, 0.05);
    CHECK(Range.m_dFrom < -1e-301);
    CHECK(Range.m_dTo > 1e-301);
}

TEST_CASE("a range has a length whatever the data")
{
    static const struct
    {
        double m_dMin;
        double m_dMax;
    } s_Rows[] = {{7.0, 7.0},       {0.0, 0.0},          {-3.0, -3.0},       {1.0, 1.0 + 1e-15},
                  {-1e308, 1e308},  {-DBL_MAX, DBL_MAX}, {DBL_MAX, DBL_MAX}, {DBL_MIN, DBL_MIN},
                  {5e-324, 5e-324}, {1e30, 1e30 + 1e20}, {-1e-300, 1e-300},  {5e-324, 1e-323},
                  {1e-307, 2e-307}, {-1e-310, 0.0}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_dMin);
        CAPTURE(Row.m_dMax);
        const cAxisRange Range = ChooseRange({}, ExtentOf(Row.m_dMin, Row.m_dMax), 0.05);
        CHECK(std::isfinite(Range.m_dFrom));
        CHECK(std::isfinite(Range.m_dTo));
        CHECK(Range.m_dFrom < Range.m_dTo);
        CHECK(Range.m_dFrom <= Row.m_dMin);
        CHECK(Range.m_dTo >= Row.m_dMax);
        CHECK(std::isfinite(cAxisScale(Range, 0.0, 16383.0).Position(Row.m_dMax)));
    }
}

TEST_CASE("without data a range is 0 to 1, logarithmic 1 to 10")
{
    const cAxisRange Linear = ChooseRange({}, {}, 0.05);
    CHECK(Linear.m_dFrom == 0.0);
    CHECK(Linear.m_dTo == 1.0);

    cRangeWish Wish;
    Wish.m_bLog          = 1;
    const cAxisRange Log = ChooseRange(Wish, {}, 0.05);
    CHECK(Log.m_dFrom == doctest::Approx(1.0));
    CHECK(Log.m_dTo == doctest::Approx(10.0));
}

TEST_CASE("a logarithmic range is longer by the same factor on both sides")
{
    cRangeWish Wish;
    Wish.m_bLog            = 1;
    const cAxisRange Range = ChooseRange(Wish, ExtentOf(1.0, 1e10), 0.1);
    CHECK(Range.m_dFrom == doctest::Approx(0.1));
    CHECK(Range.m_dTo == doctest::Approx(1e11));

    const cAxisRange Widest = ChooseRange(Wish, ExtentOf(5e-324, DBL_MAX), 0.1);
    CHECK(Widest.m_dFrom > 0.0);
    CHECK(std::isfinite(Widest.m_dTo));
}

TEST_CASE("values within the bounds of a wish are shown, whatever their order")
{
    cRangeWish Wish;
    CHECK(Wish.Shows(-DBL_MAX));
    Wish.m_dFrom = 2.0;
    CHECK(Wish.Shows(2.0));
    CHECK_FALSE(Wish.Shows(1.9));
    Wish.m_dTo = -1.0;
    CHECK(Wish.Shows(0.0));
    CHECK_FALSE(Wish.Shows(2.1));
    CHECK(Wish.HasPlaceFor(-1.0));
    Wish.m_bLog = 1;
    CHECK_FALSE(Wish.HasPlaceFor(0.0));
    CHECK(Wish.HasPlaceFor(5e-324));
}

TEST_CASE("a scale maps values to pixels, in both directions")
{
    const cAxisScale Up({0.0, 10.0, 0}, 400.5, 0.5);
    CHECK(Up.Position(0.0) == 400.5);
    CHECK(Up.Position(2.5) == 300.5);
    CHECK(Up.Contains(10.0));
    CHECK_FALSE(Up.Contains(10.1));

    const cAxisScale Log({1.0, 1000.0, 1}, 0.0, 300.0);
    CHECK(Log.Position(10.0) == doctest::Approx(100.0));

    const cAxisScale Widest({-DBL_MAX, DBL_MAX, 0}, 0.0, 100.0);
    CHECK(Widest.Position(0.0) == 50.0);
    CHECK(Widest.Position(DBL_MAX) == 100.0);
}
