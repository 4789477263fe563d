#include "graph/nearest_point.h"

#include <climits>
#include <cstdlib>
#include <random>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"
#include "tests/unit/recording_canvas.h"

namespace
{

// A plot of 0 to 10 both ways in a picture of 640 by 480 pixels.
struct cNearestRig
{
    cNearestRig() : m_Plot(&m_Boxes)
    {
        cVantorPlotSettings Settings;
        Settings.m_fMaxVertTick = 10.0F;
        m_Plot.ApplySettings(Settings);
    }

    cPlotLayout Layout()
    {
        return LayOutPlot(m_Plot, {ptImage, {0, 0, 640, 480}, {1, 0}, 0}, m_Canvas);
    }

    void Add(uint32_t nLine, float fX, float fY) { REQUIRE(m_Plot.AddPoint(nLine, fX, fY) == 1); }

    cNearestPoint Find(cPoint At)
    {
        cNearestPoint Found = {};
        REQUIRE(FindNearestPoint(Layout(), m_Plot, At, &Found) == 1);
        return Found;
    }

    cRecordingBoxes  m_Boxes;
    cVantorPlot      m_Plot;
    cRecordingCanvas m_Canvas;
};

}  // namespace

static int Distance(cPoint a, cPoint b)
{
    return abs(a.m_nX - b.m_nX) + abs(a.m_nY - b.m_nY);
}

TEST_CASE("without data there is no nearest point")
{
    cNearestRig   Rig;
    cNearestPoint Found = {};

    CHECK(FindNearestPoint(Rig.Layout(), Rig.m_Plot, {100, 100}, &Found) == 0);
}

TEST_CASE("the point under the mouse is found with its pixel")
{
    cNearestRig Rig;
    Rig.Add(1, 2.0F, 3.0F);
    Rig.Add(1, 5.0F, 5.0F);
    Rig.Add(2, 8.0F, 1.0F);
    const cPoint Pixel = Rig.Layout().PixelOf(*Rig.m_Plot.DataSet(2), 0);

    const cNearestPoint Found = Rig.Find({Pixel.m_nX + 3, Pixel.m_nY - 2});

    CHECK(Found.m_nLine == 2);
    CHECK(Found.m_nIndex == 0);
    CHECK(Found.m_Pixel == Pixel);
}

TEST_CASE("horizontal and vertical distance add up")
{
    cNearestRig Rig;
    Rig.Add(1, 5.0F, 5.0F);
    const cPoint At = Rig.Layout().PixelOf(*Rig.m_Plot.DataSet(1), 0);
    // 40 pixels to the side, and 30 to the side and 25 below, which is nearer only
    // in a straight line.
    const cPlotLayout Layout  = Rig.Layout();
    const float       fPixelX = static_cast<float>(1.0 / Layout.m_dHorzScale);
    const float       fPixelY = static_cast<float>(1.0 / Layout.m_dVertScale);
    Rig.Add(2, 5.0F + 40.0F * fPixelX, 5.0F);
    Rig.Add(3, 5.0F - 30.0F * fPixelX, 5.0F - 25.0F * fPixelY);
    REQUIRE(Rig.m_Plot.DeleteDataSet(1) == 1);

    CHECK(Rig.Find(At).m_nLine == 1);
}

TEST_CASE("of two points at the same pixel the later one wins")
{
    cNearestRig Rig;
    Rig.Add(1, 4.0F, 4.0F);
    Rig.Add(1, 4.0F, 4.0F);
    Rig.Add(2, 4.0F, 4.0F);
    const cPoint At = Rig.Layout().PixelOf(*Rig.m_Plot.DataSet(1), 0);

    CHECK(Rig.Find(At).m_nLine == 2);
    REQUIRE(Rig.m_Plot.DeleteDataSet(2) == 1);
    CHECK(Rig.Find(At).m_nIndex == 1);
}

TEST_CASE("a point beyond the view takes part, where it is held")
{
    cNearestRig Rig;
    Rig.Add(1, 1e30F, 5.0F);
    const cPlotLayout Layout = Rig.Layout();

    CHECK(Rig.Find({300, 200}).m_Pixel.m_nX == Layout.m_Plot.m_nLeft + 16383);
}

TEST_CASE("the multiplier and the offset move a point")
{
    cNearestRig Rig;
    Rig.Add(1, 5.0F, 1.0F);
    const cVantorLineFormat Format;
    REQUIRE(Rig.m_Plot.FormatDataSet(1, Format, 2.0F, 3.0F) == 1);

    CHECK(Rig.Find({0, 0}).m_Pixel == cPoint{Rig.Layout().PixelX(5.0), Rig.Layout().PixelY(5.0)});
}

TEST_CASE("the nearest of many points is that of a plain search")
{
    cNearestRig                        Rig;
    std::mt19937                       Random(1);
    std::uniform_int_distribution<int> Value(0, 40);
    for (uint32_t i = 0; i < 600; i++)
        Rig.Add(i % 3 < Rig.m_Plot.Count() ? i % 3 + 1 : Rig.m_Plot.Count() + 1,
                static_cast<float>(Value(Random)) / 4.0F, static_cast<float>(Value(Random)) / 4.0F);
    const cPlotLayout Layout = Rig.Layout();

    for (int nTry = 0; nTry < 300; nTry++)
    {
        const cPoint  At     = {Value(Random) * 16, Value(Random) * 12};
        int           nLeast = INT_MAX;
        cNearestPoint Last   = {};
        for (uint32_t nLine = 1; nLine <= Rig.m_Plot.Count(); nLine++)
            for (uint32_t i = 0; i < Rig.m_Plot.DataSet(nLine)->m_nPoints; i++)
            {
                const cPoint Pixel = Layout.PixelOf(*Rig.m_Plot.DataSet(nLine), i);
                if (Distance(Pixel, At) <= nLeast)
                    Last = {nLine, i, Pixel};
                nLeast = Distance(Last.m_Pixel, At);
            }
        const cNearestPoint Found = Rig.Find(At);
        CHECK(Found.m_nLine == Last.m_nLine);
        CHECK(Found.m_nIndex == Last.m_nIndex);
    }
}

TEST_CASE("left and upper edge belong to the plot, right and lower edge do not")
{
    cNearestRig       Rig;
    const cPlotLayout Layout = Rig.Layout();
    const cRect      &Plot   = Layout.m_Plot;

    CHECK(IsInPlot(Layout, {Plot.m_nLeft, Plot.m_nTop}) == 1);
    CHECK(IsInPlot(Layout, {Plot.m_nLeft - 1, Plot.m_nTop}) == 0);
    CHECK(IsInPlot(Layout, {Plot.m_nLeft, Plot.m_nTop - 1}) == 0);
    CHECK(IsInPlot(Layout, {Plot.m_nRight - 1, Plot.m_nBottom - 1}) == 1);
    CHECK(IsInPlot(Layout, {Plot.m_nRight, Plot.m_nBottom - 1}) == 0);
    CHECK(IsInPlot(Layout, {Plot.m_nRight - 1, Plot.m_nBottom}) == 0);
}
