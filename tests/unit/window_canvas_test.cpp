#include "figure/window_canvas.h"

#include <doctest/doctest.h>

#include "graph/vantor_data_set.h"
#include "tests/unit/figure_log.h"

TEST_CASE("a window's pixels are points in the middle of a figure's")
{
    cFigureLog    Log;
    cWindowCanvas Canvas(&Log);
    const cPoint  Points[] = {{0, 0}, {10, 5}, {20, 0}};
    Canvas.Polyline(Points, 3, {0, 2, kBlack});

    const auto &Part = Log.m_Lines.at(0).m_Parts.at(0);
    REQUIRE(Part.size() == 3);
    CHECK(Part[1].m_dX == 10.5);
    CHECK(Part[1].m_dY == 5.5);
    CHECK(Log.m_Lines[0].m_Stroke.m_dWidth == 2.0);
}

TEST_CASE("a line along an axis covers its pixels and ends before its last one")
{
    cFigureLog     Log;
    cWindowCanvas  Canvas(&Log);
    const cPoint   Points[] = {{3, 7}, {9, 7}, {4, 1}, {4, 6}, {8, 8}};
    const uint32_t Counts[] = {2, 2, 1};
    Canvas.Polylines(Points, Counts, 3, {1, 1, kBlack});

    const auto &Parts = Log.m_Lines.at(0).m_Parts;
    REQUIRE(Parts.size() == 3);
    CHECK(Parts[0][0].m_dX == 3.0);
    CHECK(Parts[0][1].m_dX == 9.0);
    CHECK(Parts[0][1].m_dY == 7.5);
    CHECK(Parts[1][1].m_dY == 6.0);
    CHECK(Parts[2].size() == 1);
    CHECK(Log.m_Lines[0].m_Stroke.m_Dashes.size() == 2);
}

TEST_CASE("polygons are filled and have the width of a pen around them")
{
    cFigureLog    Log;
    cWindowCanvas Canvas(&Log);
    const cPoint  Points[] = {{3, 7}, {9, 7}, {4, 1}};
    const int32_t nCount   = 3;
    Canvas.Polygons(Points, &nCount, 1, kBlack);
    CHECK(Log.m_nPolygons == 1);
    CHECK(Log.m_Lines.at(0).m_Parts.at(0).size() == 4);
}

TEST_CASE("a label hangs from its place, which its base line is below")
{
    cFigureLog    Log;
    cWindowCanvas Canvas(&Log);
    Canvas.Label({20, 10}, alRight, "1.5", kBlack);
    Canvas.Label({20, 10}, alLeft, "", kBlack);
    Canvas.Label({20, 10}, alRight, " 0  ", kBlack);
    REQUIRE(Log.m_Texts.size() == 2);
    CHECK(Log.m_Texts[1].m_Text == "0");
    CHECK(Log.m_Texts[1].m_At.m_dX == 20.0 - 2 * 7.0);
    CHECK(Log.m_Texts[0].m_nAnchor == taEnd);
    CHECK(Log.m_Texts[0].m_At.m_dX == 20.0);
    CHECK(Log.m_Texts[0].m_At.m_dY == 23.0);
}
