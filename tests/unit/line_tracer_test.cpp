#include "figure/line_tracer.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "figure/clipped_segment.h"

namespace
{

class cVertexText : public cVertexSink
{
public:
    void Vertex(const cSpot &Spot, int bMove) override
    {
        char szText[80];
        snprintf(szText, sizeof szText, "%s%g,%g", bMove ? "M" : " ", Spot.m_dX, Spot.m_dY);
        m_Text += szText;
        m_nCount++;
    }

    std::string m_Text;
    size_t      m_nCount = 0;
};

}  // namespace

static std::string TracedIn(const cFigureBox &Box, const std::vector<cSpot> &Spots)
{
    cVertexText  Sink;
    cLineClipper Clipper(Box, &Sink);
    for (const cSpot &Spot : Spots)
        if (std::isnan(Spot.m_dY))
            Clipper.Gap();
        else
            Clipper.LineTo(Spot);
    Clipper.Gap();
    return Sink.m_Text;
}

static std::string Traced(const std::vector<cSpot> &Spots)
{
    return TracedIn({-100.0, -100.0, 100.0, 100.0}, Spots);
}

static const double kGapMark = std::numeric_limits<double>::quiet_NaN();

TEST_CASE("a line of few points keeps them all")
{
    CHECK(Traced({{0, 0}, {1, 2}, {3, 1}}) == "M0,0 1,2 3,1");
}

TEST_CASE("points in a quarter of a column become first, top, bottom and last")
{
    CHECK(Traced({{0.0, 5}, {0.05, 9}, {0.1, 6}, {0.15, 1}, {0.2, 4}, {2, 2}}) ==
          "M0,5 0.05,9 0.15,1 0.2,4 2,2");
    CHECK(Traced({{0.0, 5}, {0.05, 1}, {0.1, 9}, {0.2, 9}}) == "M0,5 0.05,1 0.1,9 0.2,9");
    CHECK(Traced({{0.0, 5}, {0.05, 5}, {0.1, 5}}) == "M0,5 0.1,5");
}

TEST_CASE("only consecutive points are merged, whatever the order of x")
{
    CHECK(Traced({{0, 0}, {5, 1}, {0, 2}, {5, 3}}) == "M0,0 5,1 0,2 5,3");
}

TEST_CASE("a million points become some thousand vertices")
{
    cVertexText  Sink;
    cLineClipper Clipper({0.0, -10.0, 600.0, 10.0}, &Sink);
    for (int n = 0; n < 1000000; n++)
        Clipper.LineTo({n * 600e-6, std::sin(n * 0.37)});
    Clipper.Gap();
    CHECK(Sink.m_nCount <= 4 * 2400);
    CHECK(Sink.m_nCount >= 2 * 2400);
}

TEST_CASE("a gap ends a part, and a single point is a dot")
{
    CHECK(Traced({{0, 0}, {1, 1}, {0, kGapMark}, {5, 5}, {0, kGapMark}, {7, 7}, {8, 8}}) ==
          "M0,0 1,1M5,5 5,5M7,7 8,8");
    CHECK(Traced({{0, kGapMark}, {0, kGapMark}}).empty());
}

TEST_CASE("what is outside of the box is cut off")
{
    const cFigureBox Box = {0.0, 0.0, 10.0, 10.0};
    CHECK(TracedIn(Box, {{-10, 5}, {20, 5}}) == "M0,5 10,5");
    CHECK(TracedIn(Box, {{5, 5}, {5, 1000}, {9, 1000}, {9, 5}}) == "M5,5 5,10M9,10 9,5");
    CHECK(TracedIn(Box, {{-5, 0}, {0, -5}}).empty());
    CHECK(TracedIn(Box, {{5, 50}}).empty());
    CHECK(TracedIn(Box, {{50, 5}, {5, 5}, {50, 5}}) == "M10,5 5,5 10,5");
}

TEST_CASE("infinite and immense coordinates are not drawn as lines")
{
    const double     dInfinite = std::numeric_limits<double>::infinity();
    const cFigureBox Box       = {0.0, 0.0, 10.0, 10.0};
    CHECK(TracedIn(Box, {{5, 5}, {dInfinite, 5}, {6, 5}}) == "M5,5 5,5M6,5 6,5");
    CHECK(TracedIn(Box, {{-1e300, 5}, {1e300, 5}}) == "M0,5 10,5");
}

TEST_CASE("a segment is clipped at sides that may be infinite")
{
    const double dInfinite = std::numeric_limits<double>::infinity();
    cSpot        From      = {0.0, 0.0};
    cSpot        To        = {10.0, 20.0};
    CHECK(ClipSegment({2.0, -dInfinite, 3.0, dInfinite}, &From, &To) == 1);
    CHECK(From.m_dX == 2.0);
    CHECK(From.m_dY == 4.0);
    CHECK(To.m_dX == 3.0);
    CHECK(To.m_dY == 6.0);
    CHECK(ClipSegment({4.0, -dInfinite, 5.0, dInfinite}, &From, &To) == 0);
}
