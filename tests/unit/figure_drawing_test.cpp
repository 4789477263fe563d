#include "figure/figure_drawing.h"

#include <cmath>
#include <limits>

#include <doctest/doctest.h>

#include "tests/unit/figure_log.h"
#include "tests/unit/test_points.h"

namespace
{

// Lines of as many points as wanted, none of which is kept.
class cManyPoints : public cTestPoints
{
public:
    cManyPoints(size_t nLines, size_t nPoints) : cTestPoints(nLines, {}), m_nPoints(nPoints) {}

    // Up and down from point to point, and from left to right and back.
    int Read(cPointSink *pSink) override
    {
        m_nReads++;
        for (size_t nPoint = 0; nPoint < m_nPoints; nPoint++)
            for (size_t nLine = 0; nLine < m_nLines; nLine++)
                pSink->Take(nLine, static_cast<double>(nPoint * 7919 % 1000),
                            static_cast<double>(nPoint % 2));
        return 1;
    }

private:
    size_t m_nPoints;
};

// Keeps nothing but how much there was.
class cCountingCanvas : public cFigureLog
{
public:
    void MoveTo(const cSpot &) override { m_nVertices++; }
    void LineTo(const cSpot &) override { m_nVertices++; }

    size_t m_nVertices = 0;
};

}  // namespace

static eDrawing DrawOn(cFigureLog *pLog, const cFigure &Figure, cTestPoints *pSource,
                       cFigureNotes *pNotes)
{
    return DrawFigure(Figure, pSource, pLog, pNotes);
}

static cFigureLog LogOf(const cFigure &Figure, cTestPoints Source)
{
    cFigureLog   Log;
    cFigureNotes Notes;
    REQUIRE(DrawOn(&Log, Figure, &Source, &Notes) == drDone);
    return Log;
}

static std::vector<cSpot> OnlyPart(const cFigureLog &Log, const char *szGroup)
{
    const cFigureLog::cLogLine *const pLine = Log.LineOf(szGroup);
    REQUIRE(pLine != nullptr);
    REQUIRE(pLine->m_Parts.size() == 1);
    return pLine->m_Parts[0];
}

TEST_CASE("each data line is a group with a class and its label")
{
    cTestPoints Source(2, {{0, 0, 1}, {1, 0, 5}, {0, 1, 2}, {1, 1, 7}});
    Source.m_Labels      = {"speed", ""};
    const cFigureLog Log = LogOf({}, Source);

    CHECK(OnlyPart(Log, "line line-1").size() == 2);
    CHECK(OnlyPart(Log, "line line-2").size() == 2);
    CHECK(Log.m_Titles == std::vector<std::string>{"speed", "data line # 2"});
    CHECK(Log.m_Groups.empty());
}

TEST_CASE("types of lines have their vertices")
{
    static const struct
    {
        uint32_t m_nType;
        size_t   m_nVertices;
    } s_Rows[] = {{gtPlot, 3}, {gtStairStep, 5}, {gtStoop, 8}};
    for (const auto &Row : s_Rows)
    {
        cFigure Figure;
        Figure.m_Look.m_nType = Row.m_nType;
        const cFigureLog Log  = LogOf(Figure, {1, {{0, 0, 1}, {0, 1, 5}, {0, 2, 3}}});
        CHECK(OnlyPart(Log, "line line-1").size() == Row.m_nVertices);
    }
    cFigure Figure;
    Figure.m_Look.m_nType = gtScatter;
    CHECK(LogOf(Figure, {1, {{0, 0, 1}, {0, 1, 5}, {0, 2, 3}}}).m_Markers.at(0).m_Spots.size() ==
          3);
}

TEST_CASE("a line of a single point is a marker, in the legend too, and a single bar a bar")
{
    cFigure          Figure;
    const cFigureLog Log = LogOf(Figure, {2, {{0, 0, 1}, {1, 1, 5}, {1, 2, 3}}});
    REQUIRE(Log.m_Markers.size() == 2);
    CHECK(Log.m_Markers[0].m_Spots.size() == 1);

    Figure.m_Look.m_nType = gtStoop;
    CHECK(OnlyPart(LogOf(Figure, {1, {{0, 0, 1}}}), "line line-1").size() == 4);
}

TEST_CASE("a NaN is a gap")
{
    const double     dNone = std::numeric_limits<double>::quiet_NaN();
    const cFigureLog Log =
        LogOf({}, {1, {{0, 0, 1}, {0, 1, 5}, {0, 2, dNone}, {0, 3, 1}, {0, 4, 2}, {0, dNone, 2}}});
    CHECK(Log.LineOf("line line-1")->m_Parts.size() == 2);
}

TEST_CASE("coordinates are not rounded to pixels")
{
    cFigure Figure;
    Figure.m_X.m_Range.m_dFrom = 0.0;
    Figure.m_X.m_Range.m_dTo   = 1.0;
    const cFigureLog Log       = LogOf(Figure, {1, {{0, 0, 0}, {0, 1.0 / 3, 1}, {0, 1, 2}}});
    const auto       Part      = OnlyPart(Log, "line line-1");
    const double     dWidth    = Part[2].m_dX - Part[0].m_dX;
    CHECK(std::fabs(Part[1].m_dX - (Part[0].m_dX + dWidth / 3)) < 0.011);
}

TEST_CASE("what an axis has no place for is counted")
{
    cFigure Figure;
    Figure.m_X.m_Range.m_bLog = 1;
    cTestPoints  Source(1, {{0, 0, 1}, {0, 1, 5}, {0, 10, 3}, {0, -1, 3}});
    cFigureLog   Log;
    cFigureNotes Notes;
    CHECK(DrawOn(&Log, Figure, &Source, &Notes) == drDone);
    CHECK(Notes.m_nWithoutPlace == 2);
}

TEST_CASE("those who cannot see the figure get its title and its numbers")
{
    cTestPoints Source(2, {{0, 0, 1}, {1, 3, 5}});
    Source.m_Title       = "Free fall";
    Source.m_XLabel      = "seconds";
    const cFigureLog Log = LogOf({}, Source);
    CHECK(Log.m_About.m_Title == "Free fall");
    CHECK(Log.m_About.m_Description ==
          "2 data lines, 2 points. seconds from 0 to 3, y from 1 to 5.");
    CHECK(Log.m_About.m_DarkStyle.empty());
}

TEST_CASE("a figure without a title is called after its labels, or its source")
{
    cFigure     Figure;
    cTestPoints Source(5, {{0, 0, 1}});
    CHECK(LogOf(Figure, Source).m_About.m_Title == "Plot");
    Figure.m_Name = "fall.txt";
    CHECK(LogOf(Figure, Source).m_About.m_Title == "fall.txt");
    Source.m_Labels = {"", "height"};
    CHECK(LogOf(Figure, Source).m_About.m_Title == "height and 4 more");
    Source.m_Labels = {"height", "speed", "way", "time", "mass"};
    Source.m_XLabel = "seconds";
    CHECK(LogOf(Figure, Source).m_About.m_Title == "height, speed, way and 2 more over seconds");
    Source.m_nLines = 2;
    CHECK(LogOf(Figure, Source).m_About.m_Title == "height, speed over seconds");
    Figure.m_Y.m_Label = "metres";
    CHECK(LogOf(Figure, Source).m_About.m_Title == "metres over seconds");
    CHECK(LogOf(Figure, Source).TextOf("metres over seconds") == nullptr);
    Figure.m_Y.m_Label = std::string(200, 'm');
    CHECK(LogOf(Figure, Source).m_About.m_Title == std::string(100, 'm') + "…");
}

TEST_CASE("the description has as many digits as the range needs")
{
    static const struct
    {
        double      m_dFrom;
        double      m_dTo;
        const char *m_szText;
    } s_Rows[] = {
        {-0.99957, 0.99998, "x from -1 to 1"},
        {1e-17, 3.14159265, "x from 0 to 3.14"},
        {1234.5678, 8765.4321, "x from 1235 to 8765"},
        {1700000000, 1700086400, "x from 1700000000 to 1700086400"},
        {0.1000000015, 0.2, "x from 0.1 to 0.2"},
        {1, 1 + 2e-13, "x from 1 to 1.0000000000002"},
        {-2e-12, 3.14e-12, "x from -2e-12 to 3.14e-12"},
        {-1e300, 1.5e300, "x from -1e+300 to 1.5e+300"},
        {-1.7e308, 1.7e308, "x from -1.7e+308 to 1.7e+308"},
        {2.5, 2.5, "x from 2.5 to 2.5"},
    };
    for (const auto &Row : s_Rows)
    {
        const cFigureLog Log = LogOf({}, {1, {{0, Row.m_dFrom, 0}, {0, Row.m_dTo, 1}}});
        CAPTURE(Log.m_About.m_Description);
        CHECK(Log.m_About.m_Description.find(std::string(" ") + Row.m_szText + ",") !=
              std::string::npos);
    }
    cFigure Figure;
    Figure.m_X.m_Range.m_bLog = 1;
    const cFigureLog Log      = LogOf(Figure, {1, {{0, 0.00123456, 0}, {0, 1e6, 1}}});
    CHECK(Log.m_About.m_Description.find("x from 0.00123 to 1e+06") != std::string::npos);
}

TEST_CASE("dark pages have colours for each line, on request")
{
    cFigure Figure;
    Figure.m_bDark       = 1;
    const cFigureLog Log = LogOf(Figure, {2, {{0, 0, 1}, {1, 3, 5}}});
    for (const char *const szRule : {".line-1 .drawn {stroke: #", ".line-2 .filled {fill: #",
                                     ".ground .filled {fill: #16181d}", "text {fill: #dddddd}"})
        CHECK(Log.m_About.m_DarkStyle.find(szRule) != std::string::npos);
    CHECK(Log.m_About.m_DarkStyle.find(".line-3 ") == std::string::npos);
}

TEST_CASE("failures are told apart")
{
    cFigureNotes Notes;
    for (const int nGoodReads : {0, 1})
    {
        cTestPoints Source(1, {{0, 0, 1}, {0, 1, 2}});
        cFigureLog  Log;
        Source.m_nGoodReads = nGoodReads;
        CHECK(DrawOn(&Log, {}, &Source, &Notes) == drUnreadable);
    }
    cTestPoints Source(1, {{0, 0, 1}, {0, 1, 2}});
    cFigureLog  Log;
    Log.m_bEnd = 0;
    CHECK(DrawOn(&Log, {}, &Source, &Notes) == drTooLarge);
}

TEST_CASE("lines are read in two passes, and in more when they are long")
{
    cFigureNotes Notes;
    cManyPoints  Short(5, 1000);
    cFigureLog   Log;
    CHECK(DrawOn(&Log, {}, &Short, &Notes) == drDone);
    CHECK(Short.m_nReads == 2);

    cManyPoints     Long(3, 700000);
    cCountingCanvas Canvas;
    CHECK(DrawOn(&Canvas, {}, &Long, &Notes) == drDone);
    CHECK(Long.m_nReads == 4);
    CHECK(Canvas.m_nVertices > 3 * 700000);
    CHECK(Canvas.m_Titles.size() == 3);
}
