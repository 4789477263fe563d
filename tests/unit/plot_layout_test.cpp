#include "graph/plot_layout.h"

#include <cfloat>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "graph/vantor_plot.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/recording_canvas.h"

static const cRect kPicture = {0, 0, 640, 480};

namespace
{

struct cLayoutRig
{
    // x and y from 0 to 10, 6 ticks each, title and axis label.
    cLayoutRig() : m_Plot(&m_Boxes) { m_Plot.AutoRange(); }

    cPlotLayout LayOut(ePlotTarget nKind = ptImage, const cRect &Rect = kPicture)
    {
        return LayOutPlot(m_Plot, {nKind, Rect, m_LegendList, m_bTurned}, m_Canvas);
    }

    void AddSets(int nSets)
    {
        const float fY = 5.0F;
        for (int i = 0; i < nSets; i++)
            REQUIRE(m_Plot.AddDataSet(1, nullptr, &fY, nullptr) == 1);
    }

    void FixRange(float fXMin, float fXMax, float fYMin, float fYMax)
    {
        cVantorPlotSettings Settings = m_Plot.Settings();
        Settings.m_fMinHorzTick      = fXMin;
        Settings.m_fMaxHorzTick      = fXMax;
        Settings.m_fMinVertTick      = fYMin;
        Settings.m_fMaxVertTick      = fYMax;
        m_Plot.ApplySettings(Settings);
    }

    void SetTicks(uint32_t nHorz, uint32_t nVert)
    {
        cVantorPlotSettings Settings = m_Plot.Settings();
        Settings.m_nHorzTicks        = nHorz;
        Settings.m_nVertTicks        = nVert;
        m_Plot.ApplySettings(Settings);
    }

    cRecordingBoxes  m_Boxes;
    cVantorPlot      m_Plot;
    cRecordingCanvas m_Canvas;
    cLegendList      m_LegendList = {18, 4};
    int              m_bTurned    = 0;
};

}  // namespace

TEST_CASE("a picture is laid out from its margins inwards")
{
    cLayoutRig Rig;

    const cPlotLayout Layout = Rig.LayOut();

    CHECK(Layout.m_nTextHeight == 14);
    CHECK(Layout.m_nTickLength == 2);
    CHECK(Layout.m_Title == cRect{0, 0, 640, 14});
    CHECK(Layout.m_Legend == cRect{0, 466, 640, 480});  // the headings alone
    CHECK(Layout.m_Plot.m_nLeft == 20 + 12);            // "10 " and "M"
    CHECK(Layout.m_Plot.m_nTop == 14 + 7);
    CHECK(Layout.m_Plot.m_nRight == 640 - 8 - 12);  // half of "10", and "M"
    CHECK(Layout.m_Plot.m_nBottom == 466 - 2 - 14 - 3 - 14);
    CHECK(Layout.m_nLabelTop == 433 + 2 + 3);
    CHECK(Layout.m_dHorzScale == 587.0 / 10.0);
    CHECK(Layout.m_dVertScale == 412.0 / 10.0);
    CHECK(Layout.m_Range == cPlotRange{6, 6, 0.0F, 10.0F, 0.0F, 10.0F});
}

TEST_CASE("the target rectangle may lie anywhere")
{
    cLayoutRig Rig;

    const cPlotLayout Layout = Rig.LayOut(ptImage, {100, 50, 740, 530});

    CHECK(Layout.m_Title == cRect{100, 50, 740, 64});
    CHECK(Layout.m_Plot == cRect{132, 71, 720, 483});
    CHECK(Layout.m_Legend == cRect{100, 516, 740, 530});
}

TEST_CASE("what a plot does not have takes no room")
{
    cLayoutRig Rig;
    Rig.m_Plot.SetTitle("");
    CHECK(Rig.LayOut().m_Title == cRect{0, 0, 640, 0});
    CHECK(Rig.LayOut().m_Plot.m_nTop == 7);

    Rig.m_Plot.SetHorzLabel("");
    CHECK(Rig.LayOut().m_Plot.m_nBottom == 466 - 2 - 14 - 3);

    Rig.m_Plot.SetLegend(0);
    CHECK(Rig.LayOut().m_Legend == cRect{0, 480, 640, 480});
    CHECK(Rig.LayOut().m_Plot.m_nBottom == 480 - 2 - 14 - 3);
}

TEST_CASE("the left margin holds the widest label of the vertical axis and the first below")
{
    // clang-format off
    static const struct { float fXMin; float fYMin; float fYMax; int nLeft; } s_Rows[] =
    {
        {     0.0F,   0.0F,   10.0F, 3 * 8 - 4 + 12 },  // "10 "
        {     0.0F,   0.0F,    1.0F, 3 * 8 + 4 + 12 },  // "0.2 "
        {     0.0F, -100.0F,   0.0F, 4 * 8 + 4 + 12 },  // "-100 "
        { -12345.0F,  0.0F,   10.0F, 6 * 8 + 12     },  // "-12345"
        {     0.0F,   0.0F,    7.0F, 3 * 8 + 4 + 12 },  // "1.4 "
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nLeft);
        cLayoutRig Rig;
        Rig.FixRange(Row.fXMin, 10.0F, Row.fYMin, Row.fYMax);
        CHECK(Rig.LayOut().m_Plot.m_nLeft == Row.nLeft);
    }
}

TEST_CASE("one vertical tick measures the maximum only, none nothing")
{
    cLayoutRig Rig;
    Rig.FixRange(0.0F, 10.0F, -1000.0F, 5.0F);
    Rig.SetTicks(6, 1);
    CHECK(Rig.LayOut().m_Plot.m_nLeft == 12 + 12);  // "5 "

    Rig.SetTicks(6, 0);
    CHECK(Rig.LayOut().m_Plot.m_nLeft == 8 + 12);  // "0" below
}

TEST_CASE("margins are bounded by half of the width and a third of the height")
{
    cLayoutRig Rig;
    Rig.FixRange(0.0F, 1234567.0F, -123456.0F, 0.0F);
    Rig.m_Plot.SetLegend(0);

    const cPlotLayout Layout = Rig.LayOut(ptImage, {0, 0, 60, 50});

    CHECK(Layout.m_Plot.m_nLeft == 30);
    CHECK(Layout.m_Plot.m_nRight == 60 - 16);  // a third of the height, too
    CHECK(Layout.m_Plot.m_nBottom == 50 - 16);
}

TEST_CASE("the plot's top is never below its bottom")
{
    cLayoutRig Rig;

    const cPlotLayout Layout = Rig.LayOut(ptImage, {0, 0, 640, 24});

    CHECK(Layout.m_Plot.m_nBottom == 24 - 12 - 8);
    CHECK(Layout.m_Plot.m_nTop == Layout.m_Plot.m_nBottom);
    CHECK(Layout.m_dVertScale == 0.0);
}

TEST_CASE("a target without any size is laid out too")
{
    cLayoutRig Rig;
    for (const ePlotTarget nKind : {ptScreen, ptImage, ptPrinter})
    {
        const cPlotLayout Layout = Rig.LayOut(nKind, {0, 0, 0, 0});
        CHECK(Layout.m_Plot.IsEmpty());
    }
}

TEST_CASE("ticks and the gap below them grow with the screen's resolution")
{
    cLayoutRig  Rig;
    cPlotTarget Target = {ptScreen, kPicture, Rig.m_LegendList};

    const cPlotLayout Usual = LayOutPlot(Rig.m_Plot, Target, Rig.m_Canvas);
    Target.m_Scale          = cScale(192);
    const cPlotLayout Fine  = LayOutPlot(Rig.m_Plot, Target, Rig.m_Canvas);

    CHECK(Usual.m_nTickLength == 2);
    CHECK(Usual.m_nLabelTop - Usual.m_Plot.m_nBottom == 5);
    CHECK(Fine.m_nTickLength == 4);
    CHECK(Fine.m_nLabelTop - Fine.m_Plot.m_nBottom == 10);
    CHECK(Fine.m_Plot.m_nBottom == Usual.m_Plot.m_nBottom - 5);
}

TEST_CASE("ticks on paper are a twentieth of an inch long")
{
    cLayoutRig Rig;
    Rig.m_Canvas.m_nInchX = 600;

    CHECK(Rig.LayOut(ptPrinter).m_nTickLength == 30);
    CHECK(Rig.LayOut(ptPrinter).m_Plot.m_nBottom == 466 - 30 - 14 - 3 - 14);
    CHECK(Rig.LayOut(ptImage).m_nTickLength == 2);
    CHECK(Rig.LayOut(ptScreen).m_nTickLength == 2);
}

TEST_CASE("the drawn legend has a row for headings and for each set, at most half of the height")
{
    // clang-format off
    static const struct { int nSets; int nHeight; } s_Rows[] =
    {
        { 0, 14 }, { 1, 28 }, { 5, 84 }, { 16, 238 }, { 17, 240 }, { 300, 240 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nSets);
        cLayoutRig Rig;
        Rig.AddSets(Row.nSets);
        CHECK(Rig.LayOut(ptImage).m_Legend.Height() == Row.nHeight);
        CHECK(Rig.LayOut(ptPrinter).m_Legend.Height() == Row.nHeight);
        CHECK(Rig.LayOut(ptImage).m_Legend.m_nBottom == 480);
    }
}

TEST_CASE("the legend window shows as many rows as wanted in half of the height, at least 1")
{
    // clang-format off
    static const struct { int nSets; uint32_t nWanted; int nTarget; int nRows; } s_Rows[] =
    {
        { 0, 4, 480,  1 },
        { 1, 4, 480,  1 },
        { 3, 4, 480,  3 },
        { 9, 4, 480,  4 },
        { 9, 7, 480,  7 },
        { 9, 0, 480,  1 },
        { 9, 9, 144,  4 },   // 4 * 18 = 72
        { 9, 9, 145,  4 },
        { 9, 9, 143,  3 },
        { 9, 9,  20,  1 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nSets);
        CAPTURE(Row.nTarget);
        cLayoutRig Rig;
        Rig.AddSets(Row.nSets);
        Rig.m_Plot.SetLegendRows(Row.nWanted);
        const cPlotLayout Layout = Rig.LayOut(ptScreen, {0, 0, 640, Row.nTarget});
        CHECK(Layout.m_Legend.Height() == Row.nRows * 18 + 4);
    }
}

TEST_CASE("the drawn legend measures inches along x, turned along y")
{
    cLayoutRig Rig;

    CHECK(Rig.LayOut().m_nLegendInch == 96);
    Rig.m_bTurned = 1;
    CHECK(Rig.LayOut().m_nLegendInch == 120);
}

TEST_CASE("a range of no extent has the least scale, a backward one a negative scale")
{
    cLayoutRig Rig;
    Rig.FixRange(1e20F, 1e20F, 10.0F, 0.0F);

    const cPlotLayout Layout = Rig.LayOut();

    CHECK(Layout.m_dHorzScale == DBL_MIN);
    CHECK(Layout.m_dVertScale == -41.2);
}

TEST_CASE("values map to pixels, at most 16383 from the plot's corner")
{
    cLayoutRig        Rig;
    const cPlotLayout Layout = Rig.LayOut();
    // clang-format off
    static const struct { double dX; int nX; double dY; int nY; } s_Rows[] =
    {
        {   0.0,     32,         10.0,   21         },
        {  10.0,    619,          0.0,  433         },  // 587 and 412 further
        {   5.0,     32 + 294,    5.0,   21 + 206   },  // 293.5
        {  -5.0,     32 - 294,   15.0,   21 - 206   },
        {  -0.01,    32 - 1,     10.01,  21         },
        { 279.0,     32 + 16377, -388.0, 21 + 16398 - 15 },
        { 279.2,     32 + 16383, 1e30,   21 - 16383 },
        { 3.4e38,    32 + 16383, -3.4e38, 21 + 16383 },
        { -3.4e38,   32 - 16383, 1e300,  21 - 16383 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dX);
        CAPTURE(Row.dY);
        CHECK(Layout.PixelX(Row.dX) == Row.nX);
        CHECK(Layout.PixelY(Row.dY) == Row.nY);
    }
}

TEST_CASE("a stored point maps with its set's multiplier and offset, by index without x")
{
    cLayoutRig  Rig;
    const float Y[] = {0.5F, 1.0F, 1.5F};
    REQUIRE(Rig.m_Plot.AddDataSet(3, nullptr, Y, nullptr) == 1);
    REQUIRE(Rig.m_Plot.FormatDataSet(1, {}, -2.0F, 8.0F) == 1);
    Rig.FixRange(0.0F, 10.0F, 0.0F, 10.0F);
    Rig.m_Plot.SetLegend(0);

    const cPlotLayout Layout = Rig.LayOut();

    const cPoint At = Layout.PixelOf(*Rig.m_Plot.DataSet(1), 2);
    CHECK(At.m_nX == Layout.PixelX(2.0));
    CHECK(At.m_nY == Layout.PixelY(5.0));
}
