#include "figure/figure_layout.h"

#include <algorithm>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "figure/figure_drawing.h"
#include "tests/unit/figure_log.h"
#include "tests/unit/test_points.h"

static cFigureLog DrawnFigure(const cFigure &Figure, cTestPoints Source)
{
    cFigureLog   Log;
    cFigureNotes Notes;
    REQUIRE(DrawFigure(Figure, &Source, &Log, &Notes) == drDone);
    return Log;
}

static cTestPoints WaveOfLines(size_t nLines, double dXFactor, double dYFactor, double dYOffset)
{
    std::vector<cListedPoint> Points;
    for (size_t nPoint = 0; nPoint < 9; nPoint++)
        for (size_t nLine = 0; nLine < nLines; nLine++)
            Points.push_back({nLine, static_cast<double>(nPoint + 1) * dXFactor,
                              static_cast<double>(nPoint * (nLine + 1) % 7) * dYFactor + dYOffset});
    return {nLines, Points};
}

// By more than the parts of a pixel that nobody sees.
static int DoOverlap(const cFigureBox &a, const cFigureBox &b)
{
    return std::min(a.m_dRight, b.m_dRight) - std::max(a.m_dLeft, b.m_dLeft) > 0.5 &&
           std::min(a.m_dBottom, b.m_dBottom) - std::max(a.m_dTop, b.m_dTop) > 0.5;
}

static void CheckTexts(const cFigure &Figure, const cFigureLog &Log)
{
    const cFigureBox Frame = Log.m_Clips.at(0);
    for (size_t nText = 0; nText < Log.m_Texts.size(); nText++)
    {
        const cFigureBox Box = Log.m_Texts[nText].Box();
        CAPTURE(Log.m_Texts[nText].m_Text);
        CHECK(Box.m_dLeft >= 0.0);
        CHECK(Box.m_dTop >= 0.0);
        CHECK(Box.m_dRight <= Figure.m_nWidth);
        CHECK(Box.m_dBottom <= Figure.m_nHeight);
        if (Log.m_Texts[nText].m_Group != "no-data")
            CHECK_FALSE(DoOverlap(Box, Frame));
        for (size_t nOther = 0; nOther < nText; nOther++)
        {
            CAPTURE(Log.m_Texts[nOther].m_Text);
            CHECK_FALSE(DoOverlap(Box, Log.m_Texts[nOther].Box()));
        }
    }
}

TEST_CASE("texts never overlap, each other or the frame, and are within the figure")
{
    static const struct
    {
        double m_dX;
        double m_dY;
        double m_dYOffset;
    } s_Ranges[] = {{1, 1, 0},       {1e6, 1e30, 0},        {1e-9, -1e-12, 0}, {1, 1e-12, 1},
                    {86400, 1, 1e9}, {1, 1e-4, -12345.678}, {1e300, 1e300, 0}};
    static const struct
    {
        int m_nWidth;
        int m_nHeight;
    } s_Sizes[] = {{640, 480}, {200, 150}, {1600, 200}, {120, 900}, {90, 60}, {30, 20}, {1, 1}};

    for (const auto &Range : s_Ranges)
        for (const auto &Size : s_Sizes)
            for (const size_t nLines : {1U, 3U, 12U, 40U})
                for (int nLog = 0; nLog < 4; nLog++)
                {
                    cFigure Figure;
                    Figure.m_nWidth           = Size.m_nWidth;
                    Figure.m_nHeight          = Size.m_nHeight;
                    Figure.m_X.m_Range.m_bLog = nLog & 1;
                    Figure.m_Y.m_Range.m_bLog = nLog >> 1;
                    cTestPoints Source =
                        WaveOfLines(nLines, Range.m_dX, Range.m_dY, Range.m_dYOffset);
                    Source.m_Title  = "A title that is rather long, of a figure that is not wide";
                    Source.m_XLabel = "the horizontal axis, with its unit (m/s)";
                    Source.m_Labels = {"short", "a label of more than a few words, of line two"};
                    Figure.m_Y.m_Label = "the vertical axis (kg)";
                    CAPTURE(Range.m_dX);
                    CAPTURE(Range.m_dY);
                    CAPTURE(Size.m_nWidth);
                    CAPTURE(Size.m_nHeight);
                    CAPTURE(nLines);
                    CAPTURE(nLog);
                    CheckTexts(Figure, DrawnFigure(Figure, Source));
                }
}

TEST_CASE("the vertices of curves are within the frame")
{
    for (const uint32_t nType : {gtPlot, gtStairStep, gtScatter, gtStoop})
    {
        cFigure Figure;
        Figure.m_Look.m_nType = nType;
        const cFigureLog Log  = DrawnFigure(Figure, WaveOfLines(2, 1.0, 3.0, 1.0));
        const cFigureBox Clip = Log.m_Clips.at(0);
        for (const auto &Line : Log.m_Lines)
            for (const auto &Part : Line.m_Parts)
                for (const cSpot &Spot : Part)
                    if (Line.m_Group.starts_with("line "))
                    {
                        CHECK(Spot.m_dX > Clip.m_dLeft);
                        CHECK(Spot.m_dX < Clip.m_dRight);
                        CHECK(Spot.m_dY <= Clip.m_dBottom);
                    }
    }
}

TEST_CASE("a single line's label is that of the vertical axis, several have a legend")
{
    cTestPoints One = WaveOfLines(1, 1, 1, 0);
    One.m_Labels    = {"speed"};
    CHECK(DrawnFigure({}, One).TextOf("speed")->m_bTurned == 1);
    CHECK(DrawnFigure({}, WaveOfLines(1, 1, 1, 0)).TextOf("data line # 1") == nullptr);

    cTestPoints Two = WaveOfLines(2, 1, 1, 0);
    Two.m_Labels    = {"speed"};
    CHECK(DrawnFigure({}, Two).TextOf("speed")->m_bTurned == 0);
    CHECK(DrawnFigure({}, Two).TextOf("data line # 2") != nullptr);

    cFigure Figure;
    Figure.m_nLegend = lwHidden;
    CHECK(DrawnFigure(Figure, Two).TextOf("speed") == nullptr);
    Figure.m_nLegend = lwShown;
    CHECK(DrawnFigure(Figure, One).TextOf("speed")->m_bTurned == 0);
}

TEST_CASE("a figure without points says so, and invents no numbers")
{
    const cFigureLog Empty = DrawnFigure({}, {1, {}});
    CHECK(Empty.TextOf("no data") != nullptr);
    CHECK(Empty.m_Texts.size() == 1);

    cFigure Figure;
    Figure.m_X.m_Range.m_dFrom = 100.0;
    Figure.m_X.m_Range.m_dTo   = 200.0;
    const cFigureLog Beyond    = DrawnFigure(Figure, WaveOfLines(1, 1, 1, 0));
    CHECK(Beyond.TextOf("no data in this range") != nullptr);
    CHECK(Beyond.TextOf("100") != nullptr);
}

TEST_CASE("one point is a marker in the middle of the figure")
{
    const cFigureLog Log = DrawnFigure({}, {1, {{0, 3.0, -5.0}}});
    REQUIRE(Log.m_Markers.size() == 1);
    REQUIRE(Log.m_Markers[0].m_Spots.size() == 1);
    const cFigureBox Clip = Log.m_Clips.at(0);
    CHECK(Log.m_Markers[0].m_Spots[0].m_dX == doctest::Approx((Clip.m_dLeft + Clip.m_dRight) / 2));
    CHECK(Log.m_Markers[0].m_Spots[0].m_dY == doctest::Approx((Clip.m_dTop + Clip.m_dBottom) / 2));
    CHECK(Log.TextOf("3.0") != nullptr);
}

TEST_CASE("a legend of more lines than there is room for says how many are missing")
{
    cFigure Figure;
    Figure.m_nHeight     = 200;
    const cFigureLog Log = DrawnFigure(Figure, WaveOfLines(40, 1, 1, 0));
    const auto nShown = std::count_if(Log.m_Texts.begin(), Log.m_Texts.end(), [](const auto &Text) {
        return Text.m_Text.starts_with("data line #");
    });
    CHECK(Log.TextOf("and " + std::to_string(40 - nShown) + " more") != nullptr);
}
