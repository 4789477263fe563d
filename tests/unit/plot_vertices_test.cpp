#include "graph/plot_vertices.h"

#include <cmath>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "graph/vantor_plot.h"
#include "tests/unit/recording_boxes.h"

namespace
{

typedef std::vector<cPoint> cPoints;

}  // namespace

// One pixel is 0.1 along x and 1 along y; (0, 100) is at (50, 20), the bottom
// at 120.
static cPlotLayout TenPixels()
{
    cPlotLayout Layout  = {};
    Layout.m_dXMin      = 0.0;
    Layout.m_dYMax      = 100.0;
    Layout.m_dHorzScale = 10.0;
    Layout.m_dVertScale = 1.0;
    Layout.m_Plot       = {50, 20, 250, 120};
    return Layout;
}

namespace
{

struct cSetRig
{
    cSetRig(std::vector<float> X, std::vector<float> Y, uint32_t nType, uint32_t nStyle = 0)
        : m_Plot(&m_Boxes)
    {
        cVantorLineFormat Format;
        Format.m_nGraphType = nType;
        Format.m_nStyle     = nStyle;
        REQUIRE(m_Plot.AddDataSet(static_cast<uint32_t>(Y.size()), X.empty() ? nullptr : X.data(),
                                  Y.data(), &Format) == 1);
    }

    const cVantorDataSet &Set() const { return *m_Plot.DataSet(1); }

    cPoints Line() const
    {
        cPoints Vertices(CountLineVertices(Set()));
        StoreLineVertices(TenPixels(), Set(), Vertices.data());
        return Vertices;
    }

    cPoints Added() const
    {
        cPoint       Vertices[3];
        const size_t nCount = StoreAddedVertices(TenPixels(), Set(), Vertices);
        return {Vertices, Vertices + nCount};
    }

    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
};

}  // namespace

static const std::vector<float> kX = {0.0F, 1.0F, 3.0F};
static const std::vector<float> kY = {10.0F, 40.0F, 30.0F};

TEST_CASE("a Plot line goes through its points in order, as does one of unknown type")
{
    const cPoints Expected = {{50, 110}, {60, 80}, {80, 90}};

    CHECK(cSetRig(kX, kY, gtPlot).Line() == Expected);
    CHECK(cSetRig(kX, kY, 99).Line() == Expected);
    CHECK(cSetRig({3.0F, 0.0F}, {0.0F, 0.0F}, gtPlot).Line() == cPoints{{80, 120}, {50, 120}});
}

TEST_CASE("without x values points are at their indices")
{
    CHECK(cSetRig({}, kY, gtPlot).Line() == cPoints{{50, 110}, {60, 80}, {70, 90}});
}

TEST_CASE("StairStep goes horizontally first")
{
    CHECK(cSetRig(kX, kY, gtStairStep).Line() ==
          cPoints{{50, 110}, {60, 110}, {60, 80}, {80, 80}, {80, 90}});
}

TEST_CASE("Stoop is the outline of bars, the last as wide as the one before it")
{
    CHECK(
        cSetRig(kX, kY, gtStoop).Line() ==
        cPoints{
            {50, 120}, {50, 110}, {60, 110}, {60, 80}, {80, 80}, {80, 90}, {100, 90}, {100, 120}});
}

TEST_CASE("a Stoop set of 4 points without x values reaches x = 4")
{
    const cPoints Line = cSetRig({}, {10.0F, 20.0F, 30.0F, 40.0F}, gtStoop).Line();

    REQUIRE(Line.size() == 10);
    CHECK(Line[8] == cPoint{90, 80});
    CHECK(Line[9] == cPoint{90, 120});
}

TEST_CASE("vertices are counted before they are stored")
{
    const std::vector<float> Y(7, 1.0F);
    CHECK(CountLineVertices(cSetRig({}, Y, gtPlot).Set()) == 7);
    CHECK(CountLineVertices(cSetRig({}, Y, gtStairStep).Set()) == 13);
    CHECK(CountLineVertices(cSetRig({}, Y, gtStoop).Set()) == 16);
    CHECK(CountLineVertices(cSetRig({}, Y, 4).Set()) == 7);
}

TEST_CASE("points far off are held within 16383 pixels of the plot's corner")
{
    CHECK(cSetRig({-1e9F, 1e9F}, {-1e9F, 1e9F}, gtPlot).Line() ==
          cPoints{{50 - 16383, 20 + 16383}, {50 + 16383, 20 - 16383}});
}

TEST_CASE("each style has its marker, a style above 4 the triangle")
{
    // clang-format off
    static const struct { uint32_t nStyle; cPoints Corners; } s_Rows[] =
    {
        { 0,  { { 98, 202 }, { 100, 198 }, { 102, 202 }              } },
        { 1,  { { 98, 198 }, { 102, 198 }, { 102, 202 }, {  98, 202 } } },
        { 2,  { { 98, 200 }, { 100, 198 }, { 102, 200 }, { 100, 202 } } },
        { 3,  { { 99, 197 }, { 101, 197 }, { 101, 203 }, {  99, 203 } } },
        { 4,  { { 97, 199 }, { 103, 199 }, { 103, 201 }, {  97, 201 } } },
        { 5,  { { 98, 202 }, { 100, 198 }, { 102, 202 }              } },
        { 77, { { 98, 202 }, { 100, 198 }, { 102, 202 }              } },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nStyle);
        cPoint        Corners[kMostCorners];
        cPoint *const pEnd = StoreMarker(Row.nStyle, {100, 200}, Corners);
        CHECK(cPoints(Corners, pEnd) == Row.Corners);
        CHECK(MarkerCorners(Row.nStyle) == static_cast<int>(Row.Corners.size()));
    }
}

TEST_CASE("markers are larger on a finer screen")
{
    cPoint      Corners[kMostCorners];
    cPlotLayout Layout = TenPixels();
    Layout.m_Scale     = cScale(144);

    cPoint *const pEnd = StoreMarker(3, {100, 200}, Corners, cScale(192));

    CHECK(cPoints(Corners, pEnd) == cPoints{{98, 194}, {102, 194}, {102, 206}, {98, 206}});
    const cSetRig Rig(kX, kY, gtScatter, 2);
    cPoints       Vertices(12);
    StoreMarkerVertices(Layout, Rig.Set(), nullptr, Vertices.data());
    CHECK(Vertices[0] == cPoint{47, 110});
    CHECK(Vertices[1] == cPoint{50, 107});
}

TEST_CASE("the markers of a set follow each other")
{
    const cSetRig Rig(kX, kY, gtScatter, 2);
    cPoints       Vertices(12);

    CHECK(StoreMarkerVertices(TenPixels(), Rig.Set(), nullptr, Vertices.data()) == 3);

    CHECK(Vertices[0] == cPoint{48, 110});
    CHECK(Vertices[4] == cPoint{58, 80});
    CHECK(Vertices[11] == cPoint{80, 92});
}

TEST_CASE("of the markers on one pixel the first stays")
{
    // Points 1, 3 and 5 have the pixels of the points before them.
    const cSetRig         Rig({1.0F, 1.01F, 3.0F, 3.0F, 1e9F, 2e9F, 3.0F},
                              {1.0F, 1.04F, 1.0F, 0.96F, 1e9F, 3e9F, 2.0F}, gtScatter, 1);
    cPoints               Vertices(7 * 4);
    std::vector<uint32_t> Taken(2 * 7);

    const size_t nMarkers =
        StoreMarkerVertices(TenPixels(), Rig.Set(), Taken.data(), Vertices.data());

    REQUIRE(nMarkers == 4);
    CHECK(Vertices[0] == cPoint{58, 117});
    CHECK(Vertices[4] == cPoint{78, 117});
    CHECK(Vertices[8] == cPoint{50 + 16383 - 2, 20 - 16383 - 2});
    CHECK(Vertices[12] == cPoint{78, 116});
    CHECK(StoreMarkerVertices(TenPixels(), Rig.Set(), nullptr, Vertices.data()) == 7);
}

TEST_CASE("a cloud of markers keeps each of its pixels, in the order of the points")
{
    std::mt19937                  Random(3);
    std::vector<float>            X(5000);
    std::vector<float>            Y(5000);
    cPoints                       Expected;
    std::set<std::pair<int, int>> Pixels;
    for (size_t i = 0; i < X.size(); i++)
    {
        X[i] = static_cast<float>(Random() % 20) / 10;
        Y[i] = static_cast<float>(Random() % 400);
    }
    const cSetRig     Rig(X, Y, gtScatter, 2);
    const cPlotLayout Layout = TenPixels();
    for (uint32_t nPoint = 0; nPoint < 5000; nPoint++)
    {
        const cPoint At = Layout.PixelOf(Rig.Set(), nPoint);
        if (Pixels.insert({At.m_nX, At.m_nY}).second)
            Expected.push_back({At.m_nX - 2, At.m_nY});
    }
    cPoints               Vertices(4 * 5000);
    std::vector<uint32_t> Taken(2 * 5000);

    const size_t nMarkers = StoreMarkerVertices(Layout, Rig.Set(), Taken.data(), Vertices.data());

    REQUIRE(nMarkers == Expected.size());
    CHECK(nMarkers > 3000);
    CHECK(nMarkers < 5000);
    for (size_t i = 0; i < nMarkers; i++)
        REQUIRE(Vertices[4 * i] == Expected[i]);
}

TEST_CASE("scattered points and a lone point are markers")
{
    for (const uint32_t nType : {0U, 1U, 2U, 3U, 9U})
    {
        CAPTURE(nType);
        CHECK(IsDrawnAsMarkers(cSetRig({}, {1.0F}, nType).Set()) == 1);
        CHECK(IsDrawnAsMarkers(cSetRig({}, {1.0F, 2.0F}, nType).Set()) == (nType == gtScatter));
    }
}

TEST_CASE("an added point adds a segment, or a step")
{
    CHECK(cSetRig(kX, kY, gtPlot).Added() == cPoints{{60, 80}, {80, 90}});
    CHECK(cSetRig(kX, kY, gtStairStep).Added() == cPoints{{60, 80}, {80, 80}, {80, 90}});
    CHECK(cSetRig(kX, kY, gtStoop).Added() == cPoints{{60, 80}, {80, 80}, {80, 90}});
    CHECK(cSetRig(kX, kY, 8).Added() == cPoints{{60, 80}, {80, 90}});
}

// The mapping once more, word for word, for values of every size.
TEST_CASE("pixels are those of the plain formula")
{
    const cPlotLayout Layout = TenPixels();
    for (double dValue = -1e6; dValue < 1e6; dValue += 37.31)
    {
        double dDistance = (dValue - Layout.m_dXMin) * Layout.m_dHorzScale;
        if (dDistance < -16383.0)
            dDistance = -16383.0;
        if (dDistance > 16383.0)
            dDistance = 16383.0;
        REQUIRE(Layout.PixelX(dValue) == 50 + static_cast<int>(std::round(dDistance)));
    }
}
