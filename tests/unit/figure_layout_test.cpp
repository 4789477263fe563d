#include "figure/figure_layout.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>
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

// What a text covers, and in a legend its sample.
static cFigureBox CoveredBy(const cFigureLog::cLogText &Text)
{
    cFigureBox Box = Text.Box();
    if (Text.m_Group.starts_with("line "))
        Box.m_dLeft -= kSampleLength;
    return Box;
}

static const std::string kNoFault;

// Which texts are where they should not be.
static std::string FaultOfTexts(const cFigure &Figure, const cFigureLog &Log)
{
    const cFigureBox        Frame = Log.m_Clips.at(0);
    std::vector<cFigureBox> Boxes;
    for (const auto &Text : Log.m_Texts)
    {
        const cFigureBox Box = CoveredBy(Text);
        if (!(Box.m_dLeft >= 0.0 && Box.m_dTop >= 0.0 && Box.m_dRight <= Figure.m_nWidth &&
              Box.m_dBottom <= Figure.m_nHeight))
            return "beyond the figure: " + Text.m_Text;
        if (Text.m_Group != "no-data" && DoOverlap(Box, Frame))
            return "in the frame: " + Text.m_Text;
        for (size_t nOther = 0; nOther < Boxes.size(); nOther++)
            if (DoOverlap(Box, Boxes[nOther]))
                return "over each other: " + Log.m_Texts[nOther].m_Text + " | " + Text.m_Text;
        Boxes.push_back(Box);
    }
    return "";
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
                    CHECK(FaultOfTexts(Figure, DrawnFigure(Figure, Source)) == kNoFault);
                }
}

namespace
{

// Figures that nobody would think of, the same in each run.
class cOddFigures
{
public:
    cFigure     Figure();
    cTestPoints Points();
    double      Character() { return 0.3 + 0.1 * Below(8); }

private:
    int         Below(int nMost) { return static_cast<int>(m_Random() % nMost); }
    std::string Text();
    cAxisWish   Axis();

    std::minstd_rand m_Random = std::minstd_rand(20);
};

// Of words that are short, long, or one for all of it.
std::string cOddFigures::Text()
{
    static const int s_Lengths[] = {0, 1, 7, 22, 60, 100, 400};
    static const int s_Words[]   = {3, 9, 25, 400};

    std::string Text(s_Lengths[Below(std::size(s_Lengths))], 'w');
    const int   nWord = s_Words[Below(std::size(s_Words))];
    for (size_t nBlank = nWord; nBlank < Text.size(); nBlank += nWord + 1)
        Text[nBlank] = ' ';
    return Text;
}

cAxisWish cOddFigures::Axis()
{
    static const double s_Froms[]   = {0, 1, -1, 12345678, -0.0123456, 1e9, 1e-300, 1e300};
    static const double s_Lengths[] = {1, 1e-3, 1000, 7e6, 0.1};

    cAxisWish    Axis;
    const double dFrom = s_Froms[Below(std::size(s_Froms))];
    const double dTo   = dFrom + s_Lengths[Below(std::size(s_Lengths))] * std::fmax(1, dFrom);
    Axis.m_Label       = Text();
    Axis.m_nTicks      = Below(3) == 0 ? 2 + Below(25) : 0;
    if (Below(2) == 0)
        return Axis;
    Axis.m_Range.m_dFrom = Below(4) == 0 ? dTo : dFrom;
    Axis.m_Range.m_dTo   = Axis.m_Range.m_dFrom == dTo ? dFrom : dTo;
    Axis.m_Range.m_bLog  = dFrom > 0 && Below(3) == 0;
    return Axis;
}

cFigure cOddFigures::Figure()
{
    static const int         s_Sizes[]   = {60, 100, 150, 200, 300, 480, 640, 1600};
    static const eLegendWish s_Legends[] = {lwAuto, lwShown, lwHidden};

    cFigure Figure;
    Figure.m_nWidth       = s_Sizes[Below(std::size(s_Sizes))] + Below(20);
    Figure.m_nHeight      = s_Sizes[Below(std::size(s_Sizes))] + Below(20);
    Figure.m_Title        = Text();
    Figure.m_X            = Axis();
    Figure.m_Y            = Axis();
    Figure.m_nLegend      = s_Legends[Below(std::size(s_Legends))];
    Figure.m_Look.m_nType = static_cast<uint32_t>(Below(4));
    return Figure;
}

cTestPoints cOddFigures::Points()
{
    static const size_t s_Lines[] = {1, 2, 3, 7, 40};

    const size_t nLines = s_Lines[Below(std::size(s_Lines))];
    cTestPoints  Source = WaveOfLines(nLines, std::pow(10.0, Below(14) - 7),
                                      std::pow(10.0, Below(14) - 7), Below(3) - 1);
    for (size_t nLine = 0; nLine < nLines; nLine++)
        Source.m_Labels.push_back(Text());
    return Source;
}

}  // namespace

TEST_CASE("long, short and wide texts never overlap in figures of any size, or are reported")
{
    cOddFigures Odd;
    int         nLegends = 0;
    int         nReports = 0;
    for (int nFigure = 0; nFigure < 2000; nFigure++)
    {
        const cFigure Figure = Odd.Figure();
        cTestPoints   Source = Odd.Points();
        cFigureLog    Log;
        cFigureNotes  Notes;
        Log.m_dCharacter = Odd.Character();
        REQUIRE(DrawFigure(Figure, &Source, &Log, &Notes) == drDone);

        CAPTURE(nFigure);
        CAPTURE(Figure.m_nWidth);
        CAPTURE(Figure.m_nHeight);
        CHECK(FaultOfTexts(Figure, Log) == kNoFault);
        const int bLegend = std::any_of(Log.m_Texts.begin(), Log.m_Texts.end(), [](const auto &t) {
            return t.m_Group.starts_with("line ");
        });
        const int bWanted =
            Figure.m_nLegend != lwHidden && (Source.Lines() > 1 || Figure.m_nLegend == lwShown);
        CHECK(bLegend + Notes.m_LeftOut.m_bLegend == bWanted);
        nLegends += bLegend;
        nReports += Notes.m_LeftOut.m_bLegend;
    }
    CHECK(nLegends > 400);
    CHECK(nReports > 100);
}

TEST_CASE("a legend that has no room beside a narrow figure is above it")
{
    cFigure Figure;
    Figure.m_nWidth  = 180;
    Figure.m_nHeight = 400;
    cTestPoints Source(WaveOfLines(5, 1, 1, 0));
    Source.m_Labels = std::vector<std::string>(5, "of more characters than there is room for");
    cFigureLog   Log;
    cFigureNotes Notes;
    REQUIRE(DrawFigure(Figure, &Source, &Log, &Notes) == drDone);

    const auto nEntries = std::count_if(Log.m_Texts.begin(), Log.m_Texts.end(), [](const auto &t) {
        return t.m_Text.starts_with("of more") && t.m_Text.ends_with("…");
    });
    CHECK(nEntries == 5);
    CHECK(Notes.m_LeftOut.m_bLegend == 0);
}

TEST_CASE("what a figure has no room for is reported")
{
    cFigure Figure;
    Figure.m_nWidth  = 180;
    Figure.m_nHeight = 110;
    Figure.m_Title   = "title";
    cTestPoints  Source(WaveOfLines(40, 1, 1, 0));
    cFigureLog   Log;
    cFigureNotes Notes;
    REQUIRE(DrawFigure(Figure, &Source, &Log, &Notes) == drDone);
    CHECK(Notes.m_LeftOut.m_bLegend == 1);
    CHECK(Notes.m_LeftOut.m_bNumbers == 0);

    Figure.m_nWidth = 20;
    REQUIRE(DrawFigure(Figure, &Source, &Log, &Notes) == drDone);
    CHECK(Notes.m_LeftOut.m_bTitle == 1);
    CHECK(Notes.m_LeftOut.m_bLabels == 0);  // it has none
    CHECK(Notes.m_LeftOut.m_bNumbers == 1);
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
