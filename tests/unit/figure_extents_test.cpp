#include "figure/figure_extents.h"

#include <limits>

#include <doctest/doctest.h>

#include "tests/unit/test_points.h"

static const double kNone = std::numeric_limits<double>::quiet_NaN();

static cFigureExtents ExtentsOf(const cFigure &Figure, cTestPoints Source)
{
    cFigureExtents Extents;
    REQUIRE(FindExtents(Figure, &Source, &Extents) == 1);
    return Extents;
}

static void CheckExtent(const cValueExtent &Extent, double dMin, double dMax)
{
    CHECK(Extent.m_dMin == doctest::Approx(dMin));
    CHECK(Extent.m_dMax == doctest::Approx(dMax));
}

TEST_CASE("the extents are those of all finite points")
{
    const double         dInfinite = std::numeric_limits<double>::infinity();
    const cFigureExtents Extents   = ExtentsOf(
          {}, {3, {{0, 1, 10}, {1, -2, 5}, {0, kNone, 99}, {0, 99, kNone}, {0, 4, -dInfinite}}});
    CheckExtent(Extents.m_X, -2, 1);
    CheckExtent(Extents.m_Y, 5, 10);
    CHECK(Extents.m_Lines.size() == 3);
    CHECK(Extents.m_Lines[0].m_nPoints == 1);
    CHECK(Extents.m_nPoints == 2);
}

TEST_CASE("a source without points has no extent")
{
    CHECK(ExtentsOf({}, {1, {}}).m_X.IsEmpty());
    CHECK(ExtentsOf({}, {1, {{0, kNone, kNone}}}).m_Y.IsEmpty());
}

TEST_CASE("a logarithmic axis has no place for values that are not above 0")
{
    cFigure Figure;
    Figure.m_Y.m_Range.m_bLog = 1;
    const cFigureExtents Extents =
        ExtentsOf(Figure, {1, {{0, -1, 10}, {0, 0, 0}, {0, 1, -5}, {0, 2, 1e-3}}});
    CheckExtent(Extents.m_X, -1, 2);
    CheckExtent(Extents.m_Y, 1e-3, 10);
    CHECK(Extents.m_nWithoutPlace == 2);
}

TEST_CASE("a bound on one axis limits what counts for the other one")
{
    cFigure Figure;
    Figure.m_X.m_Range.m_dTo  = 2.0;
    const cFigureExtents Line = ExtentsOf(Figure, {1, {{0, 0, 0}, {0, 1, 1}, {0, 3, 9}}});
    CheckExtent(Line.m_X, 0, 2);
    CheckExtent(Line.m_Y, 0, 5);

    Figure.m_Look.m_nType       = gtScatter;
    const cFigureExtents Points = ExtentsOf(Figure, {1, {{0, 0, 0}, {0, 1, 1}, {0, 3, 9}}});
    CheckExtent(Points.m_X, 0, 1);
    CheckExtent(Points.m_Y, 0, 1);
}

TEST_CASE("a line is visible between two points that are not")
{
    cFigure Figure;
    Figure.m_X.m_Range.m_dFrom = 4.0;
    Figure.m_X.m_Range.m_dTo   = 6.0;
    CheckExtent(ExtentsOf(Figure, {1, {{0, 0, 0}, {0, 10, 100}}}).m_Y, 40, 60);
    CHECK(ExtentsOf(Figure, {1, {{0, 0, 0}, {0, kNone, 0}, {0, 10, 100}}}).m_Y.IsEmpty());

    Figure.m_Look.m_nType = gtStairStep;
    CheckExtent(ExtentsOf(Figure, {1, {{0, 0, 7}, {0, 10, 100}}}).m_Y, 7, 7);

    cFigure Steep;
    Steep.m_Look.m_nType      = gtStairStep;
    Steep.m_Y.m_Range.m_dFrom = 40.0;
    Steep.m_Y.m_Range.m_dTo   = 60.0;
    CheckExtent(ExtentsOf(Steep, {1, {{0, 0, 7}, {0, 10, 100}}}).m_X, 10, 10);

    Figure.m_Look.m_nType     = gtPlot;
    Figure.m_Y.m_Range.m_bLog = 1;
    CheckExtent(ExtentsOf(Figure, {1, {{0, 0, 1}, {0, 10, 1e10}}}).m_Y, 1e4, 1e6);
}

TEST_CASE("bars need a place from 0, and for the last one's width")
{
    cFigure Figure;
    Figure.m_Look.m_nType        = gtStoop;
    const cFigureExtents Extents = ExtentsOf(Figure, {1, {{0, 1, 10}, {0, 3, 20}}});
    CheckExtent(Extents.m_X, 1, 5);
    CheckExtent(Extents.m_Y, 0, 20);
}

TEST_CASE("a source that fails is reported")
{
    cTestPoints Source(1, {{0, 1, 1}});
    Source.m_nGoodReads = 0;
    cFigureExtents Extents;
    CHECK(FindExtents({}, &Source, &Extents) == 0);
}
