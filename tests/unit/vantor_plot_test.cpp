#include "graph/vantor_plot.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"

static const float kFloatInfinity = std::numeric_limits<float>::infinity();
static const float kFloatNan      = std::numeric_limits<float>::quiet_NaN();

namespace
{

struct cPlotRig
{
    explicit cPlotRig(const std::vector<eAnswer> &Answers = {}) : m_Boxes(Answers), m_Plot(&m_Boxes)
    {
    }

    // nCount points (100, -0), (101, -1), (102, -2) ... after line nLine.
    int AddMany(uint32_t nLine, uint32_t nCount)
    {
        for (uint32_t i = 0; i < nCount; i++)
            if (!m_Plot.AddPoint(nLine, 100.0F + static_cast<float>(i), -static_cast<float>(i)))
                return 0;
        return 1;
    }

    int AddWhole(uint32_t nCount, int bExplicitX)
    {
        const std::vector<float> X(nCount, 2.0F);
        const std::vector<float> Y(nCount, 3.0F);
        return m_Plot.AddDataSet(nCount, bExplicitX ? X.data() : nullptr, Y.data(), nullptr);
    }

    const cVantorDataSet &Set(uint32_t nLine)
    {
        REQUIRE(m_Plot.DataSet(nLine));
        return *m_Plot.DataSet(nLine);
    }

    std::string Label(uint32_t nLine) { return Set(nLine).m_pszLabel.get(); }

    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
};

struct cExtents
{
    float m_fXMin;
    float m_fXMax;
    float m_fYMin;
    float m_fYMax;
};

}  // namespace

static void CheckExtents(const cVantorDataSet &Set, const cExtents &Expected)
{
    CHECK(Set.m_fXMin == Expected.m_fXMin);
    CHECK(Set.m_fXMax == Expected.m_fXMax);
    CHECK(Set.m_fYMin == Expected.m_fYMin);
    CHECK(Set.m_fYMax == Expected.m_fYMax);
}

TEST_CASE("a new plot is empty and has the calculator's settings in automatic range")
{
    cPlotRig                   Rig;
    const cVantorPlotSettings &Settings = Rig.m_Plot.Settings();

    CHECK(Rig.m_Plot.Count() == 0);
    CHECK(!Rig.m_Plot.DataSet(0));
    CHECK(!Rig.m_Plot.DataSet(1));
    CHECK(Rig.m_Plot.UserRange() == 0);
    CHECK(Rig.m_Plot.LegendRows() == 4);
    CHECK(std::string(Settings.m_szTitle) == "My Graph");
    CHECK(std::string(Settings.m_szHorzLabel) == "x axis");
    CHECK(Settings.m_nHorzTicks == 6);
    CHECK(Settings.m_nVertTicks == 6);
    CHECK(Settings.m_fMinHorzTick == 0.0F);
    CHECK(Settings.m_fMaxHorzTick == 10.0F);
    CHECK(Settings.m_fMinVertTick == 0.0F);
    CHECK(Settings.m_fMaxVertTick == 5.0F);
    CHECK(Settings.m_bHorzGrid == 0);
    CHECK(Settings.m_bVertGrid == 0);
    CHECK(Settings.m_crAxis == 0);
    CHECK(Settings.m_crText == 0);
    CHECK(Settings.m_crBackground == 0xFFFFFF);
    CHECK(Settings.m_bLegend == 1);
}

TEST_CASE("applied settings are kept and fix the range")
{
    cPlotRig            Rig;
    cVantorPlotSettings Settings;
    snprintf(Settings.m_szTitle, sizeof Settings.m_szTitle, "Fall");
    Settings.m_szHorzLabel[0] = '\0';
    Settings.m_nHorzTicks     = 20;
    Settings.m_fMaxVertTick   = -2.5F;
    Settings.m_bLegend        = 0;

    Rig.m_Plot.ApplySettings(Settings);

    CHECK(Rig.m_Plot.UserRange() == 1);
    CHECK(std::string(Rig.m_Plot.Settings().m_szTitle) == "Fall");
    CHECK(std::string(Rig.m_Plot.Settings().m_szHorzLabel) == "");
    CHECK(Rig.m_Plot.Settings().m_nHorzTicks == 20);
    CHECK(Rig.m_Plot.Settings().m_fMaxVertTick == -2.5F);
    CHECK(Rig.m_Plot.Settings().m_bLegend == 0);
}

TEST_CASE("title and axis label keep 100 characters")
{
    cPlotRig Rig;

    Rig.m_Plot.SetTitle(std::string(100, 't').c_str());
    Rig.m_Plot.SetHorzLabel(std::string(150, 'h').c_str());

    CHECK(std::string(Rig.m_Plot.Settings().m_szTitle) == std::string(100, 't'));
    CHECK(std::string(Rig.m_Plot.Settings().m_szHorzLabel) == std::string(100, 'h'));
}

TEST_CASE("a point for line count + 1 begins a new set with the defaults")
{
    cPlotRig Rig;

    CHECK(Rig.m_Plot.AddPoint(1, 2.5F, -4.0F) == 1);
    CHECK(Rig.m_Plot.AddPoint(2, 7.0F, 8.0F) == 1);

    REQUIRE(Rig.m_Plot.Count() == 2);
    const cVantorDataSet &Set = Rig.Set(1);
    CHECK(Set.m_nPoints == 1);
    CHECK(Set.m_nCapacity == 100);
    CHECK(Set.m_nAllocHint == 100);
    REQUIRE(Set.m_pX);
    CHECK(Set.m_pX[0] == 2.5F);
    CHECK(Set.m_pY[0] == -4.0F);
    CheckExtents(Set, {2.5F, 2.5F, -4.0F, -4.0F});
    CHECK(Set.m_fMultiplier == 1.0F);
    CHECK(Set.m_fOffset == 0.0F);
    CHECK(Set.m_nGraphType == gtPlot);
    CHECK(Set.m_crColor == 0);
    CHECK(Set.m_nWidth == 1);
    CHECK(Set.m_nStyle == 0);
    CHECK(Rig.Label(1) == "data line # 1");
    CHECK(Rig.Label(2) == "data line # 2");
    CHECK(Set.m_pNext == &Rig.Set(2));
    CHECK(!Rig.Set(2).m_pNext);
}

TEST_CASE("a point for any other line is refused")
{
    cPlotRig Rig;
    REQUIRE(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 1);

    for (const uint32_t nLine : {0U, 3U, 4U, 4294967295U})
    {
        CAPTURE(nLine);
        CHECK(Rig.m_Plot.AddPoint(nLine, 5.0F, 5.0F) == 0);
    }

    CHECK(Rig.m_Plot.Count() == 1);
    CHECK(Rig.Set(1).m_nPoints == 1);
    CheckExtents(Rig.Set(1), {1.0F, 1.0F, 1.0F, 1.0F});
}

TEST_CASE("a point widens the extents where it lies outside them")
{
    cPlotRig Rig;
    // clang-format off
    static const struct { float fX; float fY; cExtents Extents; } s_Rows[] =
    {
        {  5.0F,  5.0F, {  5.0F, 5.0F,  5.0F, 5.0F } },
        {  6.0F,  4.0F, {  5.0F, 6.0F,  4.0F, 5.0F } },
        {  5.5F,  4.5F, {  5.0F, 6.0F,  4.0F, 5.0F } },
        { -1.0F,  9.0F, { -1.0F, 6.0F,  4.0F, 9.0F } },
        {  0.0F, -9.0F, { -1.0F, 6.0F, -9.0F, 9.0F } },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.fX);
        REQUIRE(Rig.m_Plot.AddPoint(1, Row.fX, Row.fY) == 1);
        CheckExtents(Rig.Set(1), Row.Extents);
    }
}

TEST_CASE("a point with a NaN is refused and changes nothing")
{
    cPlotRig Rig;

    CHECK(Rig.m_Plot.AddPoint(1, kFloatNan, 1.0F) == 0);
    CHECK(Rig.m_Plot.AddPoint(1, 1.0F, kFloatNan) == 0);
    CHECK(Rig.m_Plot.Count() == 0);

    REQUIRE(Rig.AddWhole(2, false) == 1);
    CHECK(Rig.m_Plot.AddPoint(1, kFloatNan, 1.0F) == 0);
    CHECK(Rig.m_Plot.AddPoint(1, 1.0F, kFloatNan) == 0);
    CHECK(Rig.Set(1).m_nPoints == 2);
    CHECK(Rig.Set(1).m_nCapacity == 2);
}

TEST_CASE("an infinite point is stored as the largest float")
{
    cPlotRig Rig;

    CHECK(Rig.m_Plot.AddPoint(1, kFloatInfinity, -kFloatInfinity) == 1);
    CHECK(Rig.m_Plot.AddPoint(1, 0.0F, kFloatInfinity) == 1);

    CHECK(Rig.Set(1).m_pX[0] == FLT_MAX);
    CHECK(Rig.Set(1).m_pY[0] == -FLT_MAX);
    CheckExtents(Rig.Set(1), {0.0F, FLT_MAX, -FLT_MAX, FLT_MAX});
}

TEST_CASE("a set built point by point doubles its room from 100 to 12800")
{
    cPlotRig Rig;
    uint32_t nCapacity = 100;
    for (uint32_t i = 1; i <= 12800; i++)
    {
        REQUIRE(Rig.m_Plot.AddPoint(1, static_cast<float>(i), -static_cast<float>(i)) == 1);
        if (i > nCapacity)
            nCapacity *= 2;
        REQUIRE(Rig.Set(1).m_nCapacity == nCapacity);
    }
    CHECK(nCapacity == 12800);
    for (uint32_t i = 0; i < 12800; i++)
    {
        REQUIRE(Rig.Set(1).m_pX[i] == static_cast<float>(i + 1));
        REQUIRE(Rig.Set(1).m_pY[i] == -static_cast<float>(i + 1));
    }
}

TEST_CASE("the 12801st point of a set is refused and the 12800 stay")
{
    cPlotRig Rig;
    REQUIRE(Rig.AddMany(1, 12800) == 1);

    CHECK(Rig.m_Plot.AddPoint(1, 1e9F, 1e9F) == 0);

    CHECK(Rig.Set(1).m_nPoints == 12800);
    CHECK(Rig.Set(1).m_nCapacity == 12800);
    CheckExtents(Rig.Set(1), {100.0F, 12899.0F, -12799.0F, 0.0F});
    CHECK(Rig.m_Boxes.m_Boxes.empty());
    CHECK(Rig.m_Plot.AddPoint(2, 1.0F, 1.0F) == 1);
}

TEST_CASE("a set loaded whole with 20000 points is kept, and one more point is refused")
{
    cPlotRig Rig;
    REQUIRE(Rig.AddWhole(20000, true) == 1);

    CHECK(Rig.Set(1).m_nPoints == 20000);
    CHECK(Rig.Set(1).m_nCapacity == 20000);
    CHECK(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 0);
    CHECK(Rig.Set(1).m_nPoints == 20000);
}

TEST_CASE("a set loaded whole grows to twice its points until that is 12800 or more")
{
    // clang-format off
    static const struct { uint32_t nWhole; uint32_t nMost; } s_Rows[] =
    {
        {     1, 16384 },
        {    50, 12800 },
        {  6400, 12800 },
        {  7000, 14000 },
        { 12799, 25598 },
        { 12800, 12800 },
        { 12801, 12801 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        for (const int bExplicitX : {true, false})
        {
            CAPTURE(Row.nWhole);
            cPlotRig Rig;
            REQUIRE(Rig.AddWhole(Row.nWhole, bExplicitX) == 1);

            uint32_t nPoints = Row.nWhole;
            while (nPoints < 30000 && Rig.m_Plot.AddPoint(1, 1.0F, 1.0F))
                nPoints++;

            CHECK(nPoints == Row.nMost);
            CHECK(Rig.Set(1).m_nPoints == Row.nMost);
            CHECK(Rig.Set(1).m_nCapacity == Row.nMost);
            CHECK(Rig.Set(1).m_nAllocHint == 50);
        }
}

TEST_CASE("a set added whole owns copies and has exactly the room of its points")
{
    cPlotRig Rig;
    float    X[] = {3.0F, 1.0F, 2.0F};
    float    Y[] = {-1.0F, -5.0F, -3.0F};

    REQUIRE(Rig.m_Plot.AddDataSet(3, X, Y, nullptr) == 1);
    X[0] = Y[0] = 99.0F;

    const cVantorDataSet &Set = Rig.Set(1);
    CHECK(Set.m_nPoints == 3);
    CHECK(Set.m_nCapacity == 3);
    CHECK(Set.m_nAllocHint == 50);
    CHECK(Set.m_pX[0] == 3.0F);
    CHECK(Set.m_pX[2] == 2.0F);
    CHECK(Set.m_pY[0] == -1.0F);
    CHECK(Set.m_pY[2] == -3.0F);
    CheckExtents(Set, {1.0F, 3.0F, -5.0F, -1.0F});
    CHECK(Set.m_fMultiplier == 1.0F);
    CHECK(Set.m_fOffset == 0.0F);
    CHECK(Set.m_nGraphType == gtPlot);
    CHECK(Set.m_crColor == 0);
    CHECK(Set.m_nWidth == 1);
    CHECK(Set.m_nStyle == 0);
    CHECK(Rig.Label(1) == "data line # 1");
}

TEST_CASE("without x values the first point sits at x = 0 and the extent ends at count - 1")
{
    cPlotRig    Rig;
    const float Y[] = {9.0F, 8.0F, 7.0F, 6.0F};

    REQUIRE(Rig.m_Plot.AddDataSet(4, nullptr, Y, nullptr) == 1);

    CHECK(!Rig.Set(1).m_pX);
    CHECK(Rig.Set(1).X(0) == 0.0F);
    CHECK(Rig.Set(1).X(3) == 3.0F);
    CheckExtents(Rig.Set(1), {0.0F, 3.0F, 6.0F, 9.0F});
}

TEST_CASE("a point added to a set without x values gets its index as x")
{
    cPlotRig    Rig;
    const float Y[] = {9.0F, 8.0F};
    REQUIRE(Rig.m_Plot.AddDataSet(2, nullptr, Y, nullptr) == 1);

    CHECK(Rig.m_Plot.AddPoint(1, 1000.0F, -3.0F) == 1);

    CHECK(!Rig.Set(1).m_pX);
    CHECK(Rig.Set(1).m_pY[2] == -3.0F);
    CheckExtents(Rig.Set(1), {0.0F, 2.0F, -3.0F, 9.0F});
}

TEST_CASE("a set added whole takes its format within the tables")
{
    // clang-format off
    static const struct
    {
        uint32_t nWidth; uint32_t nStyle; uint32_t nStoredWidth; uint32_t nStoredStyle;
    } s_Rows[] =
    {
        { 1,           0,           1, 0 },
        { 4,           4,           4, 4 },
        { 5,           5,           4, 0 },
        { 4294967295U, 4294967295U, 4, 0 },
        { 0,           1,           1, 1 },
        { 3,           2,           3, 2 },
    };
    // clang-format on
    cPlotRig    Rig;
    const float Y[]   = {1.0F};
    uint32_t    nLine = 0;
    for (const auto &Row : s_Rows)
    {
        cVantorLineFormat Format;
        Format.m_nGraphType = gtStoop;
        Format.m_crColor    = MakeColour(1, 2, 3);
        Format.m_nWidth     = Row.nWidth;
        Format.m_nStyle     = Row.nStyle;
        Format.m_pszLabel   = "speed";

        REQUIRE(Rig.m_Plot.AddDataSet(1, nullptr, Y, &Format) == 1);

        const cVantorDataSet &Set = Rig.Set(++nLine);
        CAPTURE(nLine);
        CHECK(Set.m_nGraphType == gtStoop);
        CHECK(Set.m_crColor == 0x030201);
        CHECK(Set.m_nWidth == Row.nStoredWidth);
        CHECK(Set.m_nStyle == Row.nStoredStyle);
        CHECK(Rig.Label(nLine) == "speed");
    }
}

TEST_CASE("a given label is copied, even an empty one; a missing one is the default")
{
    cPlotRig          Rig;
    const float       Y[] = {1.0F};
    std::string       Label(200, 'l');
    cVantorLineFormat Long;
    Long.m_pszLabel = Label.c_str();
    cVantorLineFormat Empty;
    Empty.m_pszLabel = "";
    cVantorLineFormat None;

    REQUIRE(Rig.m_Plot.AddDataSet(1, nullptr, Y, &Long) == 1);
    REQUIRE(Rig.m_Plot.AddDataSet(1, nullptr, Y, &Empty) == 1);
    REQUIRE(Rig.m_Plot.AddDataSet(1, nullptr, Y, &None) == 1);
    Label.assign(200, 'x');

    CHECK(Rig.Label(1) == std::string(200, 'l'));
    CHECK(Rig.Label(2) == "");
    CHECK(Rig.Label(3) == "data line # 3");
}

TEST_CASE("a set without points is not added")
{
    cPlotRig    Rig;
    const float Y[] = {1.0F};

    CHECK(Rig.m_Plot.AddDataSet(0, Y, Y, nullptr) == 0);
    CHECK(Rig.m_Plot.AddDataSet(0, nullptr, nullptr, nullptr) == 0);
    CHECK(Rig.m_Plot.AddDataSet(1, Y, nullptr, nullptr) == 0);

    CHECK(Rig.m_Plot.Count() == 0);
}

TEST_CASE("deleting line 2 of 3 makes line 3 line 2 with its old label")
{
    cPlotRig Rig;
    for (uint32_t nLine = 1; nLine <= 3; nLine++)
        REQUIRE(Rig.m_Plot.AddPoint(nLine, static_cast<float>(nLine), 0.0F) == 1);

    CHECK(Rig.m_Plot.DeleteDataSet(2) == 1);

    CHECK(Rig.m_Plot.Count() == 2);
    CHECK(Rig.Label(1) == "data line # 1");
    CHECK(Rig.Label(2) == "data line # 3");
    CHECK(Rig.Set(2).m_pX[0] == 3.0F);
    CHECK(!Rig.m_Plot.DataSet(3));
    REQUIRE(Rig.m_Plot.AddPoint(3, 9.0F, 9.0F) == 1);
    CHECK(Rig.Label(3) == "data line # 3");
    CHECK(Rig.Set(2).m_nPoints == 1);
}

TEST_CASE("the first, the last and the only line can be deleted")
{
    cPlotRig Rig;
    for (uint32_t nLine = 1; nLine <= 4; nLine++)
        REQUIRE(Rig.m_Plot.AddPoint(nLine, static_cast<float>(nLine), 0.0F) == 1);

    CHECK(Rig.m_Plot.DeleteDataSet(1) == 1);
    CHECK(Rig.Set(1).m_pX[0] == 2.0F);
    CHECK(Rig.m_Plot.DeleteDataSet(3) == 1);
    CHECK(Rig.Set(2).m_pX[0] == 3.0F);
    CHECK(!Rig.Set(2).m_pNext);
    REQUIRE(Rig.m_Plot.AddPoint(3, 5.0F, 0.0F) == 1);
    CHECK(Rig.Set(2).m_pNext == &Rig.Set(3));
    CHECK(Rig.m_Plot.DeleteDataSet(1) == 1);
    CHECK(Rig.m_Plot.DeleteDataSet(1) == 1);
    CHECK(Rig.Set(1).m_pX[0] == 5.0F);
    CHECK(Rig.m_Plot.DeleteDataSet(1) == 1);
    CHECK(Rig.m_Plot.Count() == 0);
    CHECK(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 1);
}

TEST_CASE("deleting a line that does not exist changes nothing")
{
    cPlotRig Rig;
    CHECK(Rig.m_Plot.DeleteDataSet(1) == 0);
    REQUIRE(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 1);

    CHECK(Rig.m_Plot.DeleteDataSet(0) == 0);
    CHECK(Rig.m_Plot.DeleteDataSet(2) == 0);

    CHECK(Rig.m_Plot.Count() == 1);
}

TEST_CASE("replaced points keep the look of their set")
{
    cPlotRig          Rig;
    const float       OldX[] = {100.0F, 200.0F};
    const float       OldY[] = {300.0F, 400.0F};
    const float       X[]    = {3.0F, 1.0F, 2.0F};
    const float       Y[]    = {5.0F, 4.0F, 6.0F};
    cVantorLineFormat Format;
    Format.m_nGraphType = gtScatter;
    Format.m_crColor    = MakeColour(255, 0, 0);
    Format.m_nWidth     = 3;
    Format.m_nStyle     = 2;
    Format.m_pszLabel   = "speed";
    REQUIRE(Rig.m_Plot.AddDataSet(2, OldX, OldY, &Format) == 1);

    CHECK(Rig.m_Plot.ReplaceDataSetPoints(1, 3, X, Y) == 1);

    const cVantorDataSet &Set = Rig.Set(1);
    CHECK(Set.m_nPoints == 3);
    CHECK(Set.m_nCapacity == 3);
    CHECK(Set.m_pX[1] == 1.0F);
    CHECK(Set.m_pY[1] == 4.0F);
    CheckExtents(Set, {1.0F, 3.0F, 4.0F, 6.0F});
    CHECK(Set.m_nGraphType == gtScatter);
    CHECK(Set.m_crColor == 0x0000FF);
    CHECK(Set.m_nWidth == 3);
    CHECK(Set.m_nStyle == 2);
    CHECK(Rig.Label(1) == "speed");
}

TEST_CASE("replaced points without x values extend from 0 to count - 1")
{
    cPlotRig    Rig;
    const float Y[] = {5.0F, 4.0F, 6.0F};
    REQUIRE(Rig.AddWhole(10, false) == 1);

    CHECK(Rig.m_Plot.ReplaceDataSetPoints(1, 3, nullptr, Y) == 1);

    CHECK(!Rig.Set(1).m_pX);
    CheckExtents(Rig.Set(1), {0.0F, 2.0F, 4.0F, 6.0F});
}

TEST_CASE("points are not replaced by none nor in a line that does not exist")
{
    cPlotRig    Rig;
    const float Y[] = {5.0F};
    REQUIRE(Rig.AddWhole(2, true) == 1);

    CHECK(Rig.m_Plot.ReplaceDataSetPoints(0, 1, nullptr, Y) == 0);
    CHECK(Rig.m_Plot.ReplaceDataSetPoints(2, 1, nullptr, Y) == 0);
    CHECK(Rig.m_Plot.ReplaceDataSetPoints(1, 0, nullptr, Y) == 0);
    CHECK(Rig.m_Plot.ReplaceDataSetPoints(1, 1, Y, nullptr) == 0);

    CHECK(Rig.Set(1).m_nPoints == 2);
    CHECK(Rig.Set(1).m_pX);
}

TEST_CASE("clearing leaves no data, no title, no axis label and 4 legend rows")
{
    cPlotRig Rig;
    REQUIRE(Rig.AddMany(1, 3) == 1);
    REQUIRE(Rig.AddMany(2, 3) == 1);
    Rig.m_Plot.SetLegendRows(9);

    CHECK(Rig.m_Plot.ClearAll() == 1);

    CHECK(Rig.m_Plot.Count() == 0);
    CHECK(!Rig.m_Plot.DataSet(1));
    CHECK(std::string(Rig.m_Plot.Settings().m_szTitle) == "");
    CHECK(std::string(Rig.m_Plot.Settings().m_szHorzLabel) == "");
    CHECK(Rig.m_Plot.LegendRows() == 4);
    CHECK(Rig.m_Plot.AddPoint(2, 1.0F, 1.0F) == 0);
    CHECK(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 1);
    CHECK(Rig.Label(1) == "data line # 1");
}

TEST_CASE("clearing keeps the range that the user has fixed and the other settings")
{
    cPlotRig            Rig;
    cVantorPlotSettings Settings;
    Settings.m_fMaxHorzTick = 77.0F;
    Settings.m_bHorzGrid    = 1;
    Rig.m_Plot.ApplySettings(Settings);

    Rig.m_Plot.ClearAll();

    CHECK(Rig.m_Plot.UserRange() == 1);
    CHECK(Rig.m_Plot.Settings().m_fMaxHorzTick == 77.0F);
    CHECK(Rig.m_Plot.Settings().m_bHorzGrid == 1);
}

TEST_CASE("a retried allocation adds the point as if nothing had happened")
{
    // The record, its label, the x and the y array of a new set.
    for (int nSucceed = 0; nSucceed < 4; nSucceed++)
    {
        CAPTURE(nSucceed);
        cPlotRig Rig({anRetry, anRetry});
        {
            cFailingMemory Memory(nSucceed, 2);
            CHECK(Rig.m_Plot.AddPoint(1, 5.0F, 6.0F) == 1);
            CHECK(Memory.FailuresLeft() == 0);
        }
        REQUIRE(Rig.m_Boxes.m_Boxes.size() == 2);
        CHECK(Rig.m_Boxes.m_Boxes[0].m_Text == "ERROR: insufficient memory.\n"
                                               "Close other running applications\n"
                                               "and then hit 'Retry'");
        CHECK(Rig.m_Boxes.m_Boxes[0].m_nButtons == bnRetryCancel);
        CHECK(Rig.m_Boxes.m_Boxes[0].m_nIcon == icError);
        CHECK(Rig.m_Boxes.m_QuitCodes.empty());
        CHECK(Rig.Set(1).m_pY[0] == 6.0F);
        CHECK(Rig.Label(1) == "data line # 1");
    }
}

TEST_CASE("giving up on memory for a new set posts quit and adds nothing")
{
    const float Y[] = {1.0F};
    for (int nSucceed = 0; nSucceed < 4; nSucceed++)
    {
        CAPTURE(nSucceed);
        cPlotRig       Rig({anCancel});
        cFailingMemory Memory(nSucceed, 1);

        const int bAdded = nSucceed % 2 == 0 ? Rig.m_Plot.AddPoint(1, 5.0F, 6.0F)
                                             : Rig.m_Plot.AddDataSet(1, Y, Y, nullptr);

        CHECK(bAdded == 0);
        CHECK(Memory.FailuresLeft() == 0);
        CHECK(Rig.m_Plot.Count() == 0);
        CHECK(Rig.m_Boxes.m_Boxes.size() == 1);
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
    }
}

TEST_CASE("giving up on memory for a growing set posts quit and keeps its points")
{
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)
    {
        CAPTURE(nSucceed);
        cPlotRig Rig({anCancel});
        REQUIRE(Rig.AddMany(1, 100) == 1);
        {
            cFailingMemory Memory(nSucceed, 1);
            CHECK(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 0);
        }
        CHECK(Rig.Set(1).m_nPoints == 100);
        CHECK(Rig.Set(1).m_nCapacity == 100);
        CHECK(Rig.Set(1).m_pX[99] == 199.0F);
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
        CHECK(Rig.m_Plot.AddPoint(1, 1.0F, 1.0F) == 1);
    }
}

TEST_CASE("giving up on memory for replaced points keeps the old ones")
{
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)
    {
        CAPTURE(nSucceed);
        cPlotRig    Rig({anCancel});
        const float X[] = {7.0F, 8.0F, 9.0F};
        REQUIRE(Rig.AddWhole(2, true) == 1);
        {
            cFailingMemory Memory(nSucceed, 1);
            CHECK(Rig.m_Plot.ReplaceDataSetPoints(1, 3, X, X) == 0);
        }
        CHECK(Rig.Set(1).m_nPoints == 2);
        CHECK(Rig.Set(1).m_pX[1] == 2.0F);
        CHECK(Rig.Set(1).m_pY[1] == 3.0F);
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
    }
}

namespace
{

// A window that writes down what it hears, and the range it would show then.
class cHearingPlot : public cVantorPlot
{
public:
    explicit cHearingPlot(cMessageBoxes *pBoxes) : cVantorPlot(pBoxes) {}

    // What was heard since the last call: "changed", "point 1", "added 2" ...
    std::string Heard() { return std::exchange(m_Heard, ""); }

protected:
    void OnPlotChanged() override { Hear("changed"); }
    void OnPointAdded(uint32_t nLine) override { Hear("point " + std::to_string(nLine)); }
    void OnLabelAdded(uint32_t nLine) override
    {
        Hear("added " + std::to_string(nLine) + " " + DataSet(nLine)->m_pszLabel.get());
    }
    void OnLabelChanged(uint32_t nLine) override
    {
        Hear("renamed " + std::to_string(nLine) + " " + DataSet(nLine)->m_pszLabel.get());
    }
    void OnLabelRemoved(uint32_t nLine) override { Hear("removed " + std::to_string(nLine)); }
    void OnChecksChanged() override { Hear(UserRange() ? "checks, fixed" : "checks, automatic"); }

private:
    void Hear(const std::string &Text) { m_Heard += (m_Heard.empty() ? "" : "; ") + Text; }

    std::string m_Heard;
};

struct cHearingRig
{
    cHearingRig() : m_Plot(&m_Boxes) {}

    // Points (0, 0) and (10, 10) in line 1; what was heard of them is forgotten.
    void Begin()
    {
        REQUIRE(m_Plot.AddPoint(1, 0.0F, 0.0F) == 1);
        REQUIRE(m_Plot.AddPoint(1, 10.0F, 10.0F) == 1);
        m_Plot.Heard();
    }

    cRecordingBoxes m_Boxes;
    cHearingPlot    m_Plot;
};

}  // namespace

TEST_CASE("a point within the extents is drawn by itself, one beyond them with all")
{
    cHearingRig Rig;
    CHECK(Rig.m_Plot.AddPoint(1, 0.0F, 0.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "added 1 data line # 1; changed");
    CHECK(Rig.m_Plot.AddPoint(1, 10.0F, 10.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "changed");
    CHECK(Rig.m_Plot.AddPoint(1, 10.0F, 0.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "point 1");
    CHECK(Rig.m_Plot.AddPoint(1, 5.0F, 10.001F) == 1);
    CHECK(Rig.m_Plot.Heard() == "changed");
    CHECK(Rig.m_Plot.AddPoint(3, 5.0F, 5.0F) == 0);
    CHECK(Rig.m_Plot.Heard().empty());
}

TEST_CASE("with a fixed range, too, a point beyond the extents of its set repaints")
{
    cHearingRig Rig;
    Rig.Begin();
    Rig.m_Plot.ApplySettings(cVantorPlotSettings());
    CHECK(Rig.m_Plot.Heard() == "checks, fixed; changed");

    CHECK(Rig.m_Plot.AddPoint(1, 3.0F, 3.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "point 1");
    CHECK(Rig.m_Plot.AddPoint(1, 3.0F, 50.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "changed");
}

TEST_CASE("a point that changes the number of ticks, or the end of bars, repaints")
{
    cHearingRig Rig;
    Rig.Begin();
    Rig.m_Plot.SetClientSize(900, 480);
    CHECK(Rig.m_Plot.Heard() == "changed");
    CHECK(Rig.m_Plot.Range().m_nHorzTicks == 6);  // until the data change
    CHECK(Rig.m_Plot.AddPoint(1, 3.0F, 3.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "changed");
    CHECK(Rig.m_Plot.Range().m_nHorzTicks == 8);
    CHECK(Rig.m_Plot.AddPoint(1, 3.0F, 3.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "point 1");

    cVantorLineFormat Stoop;
    Stoop.m_nGraphType = gtStoop;
    REQUIRE(Rig.m_Plot.FormatDataSet(1, Stoop, 1.0F, 0.0F) == 1);
    CHECK(Rig.m_Plot.Range().m_fXMax == 10.0F);  // the last two x are equal
    Rig.m_Plot.Heard();
    CHECK(Rig.m_Plot.AddPoint(1, 5.0F, 3.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "changed");
    CHECK(Rig.m_Plot.Range().m_fXMax == 12.0F);
    CHECK(Rig.m_Plot.AddPoint(1, 7.0F, 3.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "point 1");
}

TEST_CASE("a window hears of every other change after it was made")
{
    cHearingRig       Rig;
    const float       Y[]   = {1.0F, 2.0F};
    cVantorLineFormat Named = {};
    Named.m_pszLabel        = "Named";
    Rig.Begin();

    CHECK(Rig.m_Plot.AddDataSet(2, nullptr, Y, &Named) == 1);
    CHECK(Rig.m_Plot.Heard() == "added 2 Named; changed");
    CHECK(Rig.m_Plot.ReplaceDataSetPoints(1, 2, nullptr, Y) == 1);
    CHECK(Rig.m_Plot.Heard() == "changed");
    CHECK(Rig.m_Plot.FormatDataSet(1, Named, 1.0F, 0.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "renamed 1 Named; changed");
    CHECK(Rig.m_Plot.DeleteDataSet(1) == 1);
    CHECK(Rig.m_Plot.Heard() == "removed 1; changed");
    CHECK(Rig.m_Plot.AddPoint(2, 1.0F, 1.0F) == 1);
    CHECK(Rig.m_Plot.Heard() == "added 2 data line # 2; changed");
    CHECK(Rig.m_Plot.ClearAll() == 1);
    CHECK(Rig.m_Plot.Heard() == "removed 2; removed 1; changed");
    Rig.m_Plot.SetTitle("t");
    Rig.m_Plot.SetHorzLabel("h");
    Rig.m_Plot.SetLegendRows(7);
    CHECK(Rig.m_Plot.Heard() == "changed; changed; changed");
    Rig.m_Plot.SetGrid(1, 0);
    CHECK(Rig.m_Plot.Heard() == "checks, automatic; changed");
    Rig.m_Plot.SetLegend(0);
    CHECK(Rig.m_Plot.Heard() == "checks, automatic; changed");
    Rig.m_Plot.ApplySettings(cVantorPlotSettings());
    CHECK(Rig.m_Plot.Heard() == "checks, fixed; changed");
    Rig.m_Plot.AutoRange();
    CHECK(Rig.m_Plot.Heard() == "checks, automatic; changed");

    CHECK(Rig.m_Plot.DeleteDataSet(9) == 0);
    CHECK(Rig.m_Plot.AddDataSet(0, nullptr, Y, nullptr) == 0);
    CHECK(Rig.m_Plot.ReplaceDataSetPoints(9, 2, nullptr, Y) == 0);
    CHECK(Rig.m_Plot.FormatDataSet(9, Named, 1.0F, 0.0F) == 0);
    CHECK(Rig.m_Plot.Heard().empty());
}

TEST_CASE("the range follows the data until the user fixes it, and again on demand")
{
    cPlotRig Rig;
    REQUIRE(Rig.AddMany(1, 11) == 1);  // (100, -0) to (110, -10)
    CHECK(Rig.m_Plot.Range() == cPlotRange{6, 6, 100.0F, 110.0F, -10.0F, 0.0F});

    cVantorPlotSettings Settings = Rig.m_Plot.Settings();
    Settings.m_fMaxHorzTick      = 105.0F;
    Rig.m_Plot.ApplySettings(Settings);
    REQUIRE(Rig.m_Plot.AddPoint(1, 500.0F, 5.0F) == 1);
    REQUIRE(Rig.m_Plot.ClearAll() == 1);
    CHECK(Rig.m_Plot.Range() == cPlotRange{6, 6, 100.0F, 105.0F, -10.0F, 0.0F});

    REQUIRE(Rig.AddMany(1, 3) == 1);
    Rig.m_Plot.AutoRange();
    CHECK(Rig.m_Plot.UserRange() == 0);
    CHECK(Rig.m_Plot.Range() == cPlotRange{6, 6, 100.0F, 102.0F, -2.0F, 0.0F});
    REQUIRE(Rig.m_Plot.ClearAll() == 1);
    CHECK(Rig.m_Plot.Range() == cPlotRange{6, 6, 0.0F, 10.0F, 0.0F, 10.0F});
}

TEST_CASE("a set takes another look, and another label when one is given")
{
    cPlotRig Rig;
    REQUIRE(Rig.AddWhole(2, false) == 1);
    cVantorLineFormat Format;
    Format.m_nGraphType = gtStoop;
    Format.m_crColor    = MakeColour(1, 2, 3);
    Format.m_nWidth     = 9;
    Format.m_nStyle     = 5;

    CHECK(Rig.m_Plot.FormatDataSet(1, Format, 2.0F, -1.0F) == 1);

    CHECK(Rig.Set(1).m_nGraphType == gtStoop);
    CHECK(Rig.Set(1).m_crColor == MakeColour(1, 2, 3));
    CHECK(Rig.Set(1).m_nWidth == 4);
    CHECK(Rig.Set(1).m_nStyle == 0);
    CHECK(Rig.Set(1).m_fMultiplier == 2.0F);
    CHECK(Rig.Set(1).m_fOffset == -1.0F);
    CHECK(Rig.Label(1) == "data line # 1");
    CHECK(Rig.m_Plot.Range() == cPlotRange{6, 6, 0.0F, 2.0F, 4.0F, 6.0F});

    Format.m_pszLabel = "";
    CHECK(Rig.m_Plot.FormatDataSet(1, Format, 2.0F, -1.0F) == 1);
    CHECK(Rig.Label(1).empty());
}

TEST_CASE("giving up on memory for a label leaves the look as it was")
{
    cPlotRig Rig({anCancel});
    REQUIRE(Rig.AddWhole(2, false) == 1);
    cVantorLineFormat Format;
    Format.m_nWidth   = 3;
    Format.m_pszLabel = "new";
    {
        const cFailingMemory Failing(0, 1);
        CHECK(Rig.m_Plot.FormatDataSet(1, Format, 2.0F, 0.0F) == 0);
    }

    CHECK(Rig.Label(1) == "data line # 1");
    CHECK(Rig.Set(1).m_nWidth == 1);
    CHECK(Rig.Set(1).m_fMultiplier == 1.0F);
    CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
}

namespace
{

// What a set should be, kept by the plainest means.
struct cPlainSet
{
    int                m_bExplicitX;
    uint32_t           m_nCapacity;
    std::vector<float> m_X;  // the indices where x is implicit
    std::vector<float> m_Y;
    std::string        m_Label;
};

}  // namespace

static void NumberX(cPlainSet *pSet)
{
    if (!pSet->m_bExplicitX)
        for (size_t i = 0; i < pSet->m_X.size(); i++)
            pSet->m_X[i] = static_cast<float>(i);
}

static int IsSame(const cVantorDataSet &Set, const cPlainSet &Plain)
{
    const auto [pXMin, pXMax] = std::minmax_element(Plain.m_X.begin(), Plain.m_X.end());
    const auto [pYMin, pYMax] = std::minmax_element(Plain.m_Y.begin(), Plain.m_Y.end());
    int bSame = Set.m_nPoints == Plain.m_Y.size() && Set.m_nCapacity == Plain.m_nCapacity &&
                !Set.m_pX == !Plain.m_bExplicitX && Set.m_pszLabel.get() == Plain.m_Label &&
                Set.m_fXMin == *pXMin && Set.m_fXMax == *pXMax && Set.m_fYMin == *pYMin &&
                Set.m_fYMax == *pYMax;
    for (uint32_t i = 0; bSame && i < Set.m_nPoints; i++)
        bSame = Set.X(i) == Plain.m_X[i] && Set.m_pY[i] == Plain.m_Y[i];
    return bSame;
}

namespace
{

// Does the same to a plot and to its plain counterpart.
class cRandomWorker
{
public:
    explicit cRandomWorker(uint32_t nSeed) : m_Random(nSeed) { m_Rig.m_Plot.AutoRange(); }

    void DoSomething()
    {
        const uint32_t nChoice = Below(1000);
        if (nChoice < 800)
            AddPoint();
        else if (nChoice < 900)
            AddDataSet();
        else if (nChoice < 960)
            DeleteDataSet();
        else if (nChoice < 980)
            ReplaceDataSetPoints();
        else if (nChoice < 999)
            FormatDataSet();
        else
            ClearAll();
    }

    int IsLineSame(uint32_t nLine) const
    {
        const cVantorDataSet *pSet = m_Rig.m_Plot.DataSet(nLine);
        return pSet && IsSame(*pSet, m_Plain[nLine - 1]);
    }

    // The automatic range is the one recalculated from all sets.
    int IsRangeSame() const
    {
        const cVantorPlot &Plot = m_Rig.m_Plot;
        return Plot.Range() == cRangeFinder().Find(Plot.DataSet(1), m_nWidth, kPlotHeight,
                                                   static_cast<int>(Plot.Settings().m_bLegend));
    }

    int IsAllSame() const
    {
        int bSame = m_Rig.m_Plot.Count() == m_Plain.size() && IsRangeSame();
        for (uint32_t nLine = 1; bSame && nLine <= m_Plain.size(); nLine++)
            bSame = IsLineSame(nLine);
        return bSame;
    }

    // A line that was touched by the last operation, 0 for none.
    uint32_t m_nTouched    = 0;
    size_t   m_nMostPoints = 0;
    int      m_nWidth      = kPlotWidth;  // of the client area

private:
    uint32_t Below(uint32_t nLimit) { return static_cast<uint32_t>(m_Random() % nLimit); }
    uint32_t AnyLine() { return Below(static_cast<uint32_t>(m_Plain.size()) + 3); }
    int      Exists(uint32_t nLine) const { return nLine > 0 && nLine <= m_Plain.size(); }

    float AnyValue()
    {
        return static_cast<float>(static_cast<int>(Below(2000001)) - 1000000) / 8.0F;
    }

    std::string NextDefaultLabel() const
    {
        return "data line # " + std::to_string(m_Plain.size() + 1);
    }

    std::vector<float> AnyValues(size_t nCount)
    {
        std::vector<float> Values(nCount);
        for (float &fValue : Values)
            fValue = AnyValue();
        return Values;
    }

    void AddPoint()
    {
        // Mostly to one line, so that it has to grow.
        const uint32_t nLine = Below(4) != 0 && !m_Plain.empty() ? 1 : AnyLine();
        const float    fX    = AnyValue();
        const float    fY    = AnyValue();
        const int      bNew  = nLine == m_Plain.size() + 1;
        if (bNew)
            m_Plain.push_back({true, 100, {}, {}, NextDefaultLabel()});
        const int bAccepted = Exists(nLine);

        REQUIRE(m_Rig.m_Plot.AddPoint(nLine, fX, fY) == (bAccepted ? 1 : 0));

        m_nTouched = bAccepted ? nLine : 0;
        if (!bAccepted)
            return;
        cPlainSet &Set = m_Plain[nLine - 1];
        if (Set.m_Y.size() == Set.m_nCapacity)
            Set.m_nCapacity *= 2;
        Set.m_X.push_back(fX);
        Set.m_Y.push_back(fY);
        NumberX(&Set);
        m_nMostPoints = std::max(m_nMostPoints, Set.m_Y.size());
    }

    void AddDataSet()
    {
        const size_t      nCount     = Below(20);
        const int         bExplicitX = Below(2) == 0;
        cPlainSet         Set = {bExplicitX, static_cast<uint32_t>(nCount), AnyValues(nCount),
                                 AnyValues(nCount), NextDefaultLabel()};
        cVantorLineFormat Format;
        if (Below(2) == 0)
        {
            Set.m_Label       = "label " + std::to_string(m_Random());
            Format.m_pszLabel = Set.m_Label.c_str();
        }

        REQUIRE(m_Rig.m_Plot.AddDataSet(static_cast<uint32_t>(nCount),
                                        bExplicitX ? Set.m_X.data() : nullptr, Set.m_Y.data(),
                                        &Format) == (nCount > 0 ? 1 : 0));

        NumberX(&Set);
        if (nCount > 0)
            m_Plain.push_back(Set);
        m_nTouched = static_cast<uint32_t>(m_Plain.size());
    }

    void DeleteDataSet()
    {
        const uint32_t nLine = AnyLine();

        REQUIRE(m_Rig.m_Plot.DeleteDataSet(nLine) == (Exists(nLine) ? 1 : 0));

        if (Exists(nLine))
            m_Plain.erase(m_Plain.begin() + (nLine - 1));
        m_nTouched = Exists(nLine) ? nLine : 0;
    }

    void ReplaceDataSetPoints()
    {
        const uint32_t nLine      = AnyLine();
        const size_t   nCount     = Below(20);
        const int      bExplicitX = Below(2) == 0;
        const int      bAccepted  = Exists(nLine) && nCount > 0;
        cPlainSet      Set        = {bExplicitX, static_cast<uint32_t>(nCount), AnyValues(nCount),
                                     AnyValues(nCount), ""};

        REQUIRE(m_Rig.m_Plot.ReplaceDataSetPoints(nLine, static_cast<uint32_t>(nCount),
                                                  bExplicitX ? Set.m_X.data() : nullptr,
                                                  Set.m_Y.data()) == (bAccepted ? 1 : 0));

        NumberX(&Set);
        m_nTouched = Exists(nLine) ? nLine : 0;
        if (!bAccepted)
            return;
        Set.m_Label        = m_Plain[nLine - 1].m_Label;
        m_Plain[nLine - 1] = Set;
    }

    // Also gives the plot another size, which counts from now on.
    void FormatDataSet()
    {
        const uint32_t    nLine = AnyLine();
        cVantorLineFormat Format;
        Format.m_nGraphType = Below(5);
        m_nWidth            = static_cast<int>(Below(1000));
        m_Rig.m_Plot.SetClientSize(m_nWidth, kPlotHeight);

        REQUIRE(m_Rig.m_Plot.FormatDataSet(nLine, Format, AnyValue(), AnyValue()) ==
                (Exists(nLine) ? 1 : 0));

        m_Rig.m_Plot.AutoRange();
        m_nTouched = Exists(nLine) ? nLine : 0;
    }

    void ClearAll()
    {
        REQUIRE(m_Rig.m_Plot.ClearAll() == 1);
        m_Plain.clear();
        m_nTouched = 0;
    }

    std::mt19937           m_Random;
    cPlotRig               m_Rig;
    std::vector<cPlainSet> m_Plain;
};

}  // namespace

TEST_CASE("100000 random operations agree with a plain recomputation")
{
    cRandomWorker Worker(20011);
    for (int i = 0; i < 100000; i++)
    {
        Worker.DoSomething();
        const int bSame = i % 100 == 0
                              ? Worker.IsAllSame()
                              : Worker.m_nTouched == 0 ||
                                    (Worker.IsRangeSame() && Worker.IsLineSame(Worker.m_nTouched));
        CAPTURE(i);
        REQUIRE(bSame);
    }
    CHECK(Worker.IsAllSame());
    CHECK(Worker.m_nMostPoints > 200);
}
