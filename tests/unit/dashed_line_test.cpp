#include "graph/dashed_line.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

typedef std::set<std::pair<int, int>> cInkedPixels;  // x, y

static const cRect    kSheet   = {-20, 10, 140, 90};
static const uint32_t kStrokes = 0x03FFFF;  // 18 pixels of 24

static cInkedPixels Drawn(const std::vector<cPoint> &Points, uint32_t nStrokes)
{
    cPixelMask Mask;
    REQUIRE(Mask.Create(kSheet));
    CoverDashedLine(Points.data(), Points.size(), nStrokes, &Mask);
    cInkedPixels Ink;
    Mask.ForEachRun([&](int nY, int nLeft, int nRight) {
        for (int nX = nLeft; nX < nRight; nX++)
            Ink.insert({nX, nY});
    });
    return Ink;
}

// The nearest pixel, or the lower one of two.
static int Nearest(double dPlace)
{
    return static_cast<int>(std::ceil(dPlace - 0.5));
}

// Pixel by pixel, as the definition says.
static cInkedPixels Expected(const std::vector<cPoint> &Points, uint32_t nStrokes)
{
    cInkedPixels Ink;
    int          nPixel = 0;
    for (size_t i = 0; i + 1 < Points.size(); i++)
    {
        const int nX      = Points[i + 1].m_nX - Points[i].m_nX;
        const int nY      = Points[i + 1].m_nY - Points[i].m_nY;
        const int nPixels = std::max(std::abs(nX), std::abs(nY));
        for (int n = 0; n < nPixels; n++, nPixel++)
        {
            const int nAtX = Nearest(Points[i].m_nX + static_cast<double>(nX) * n / nPixels);
            const int nAtY = Nearest(Points[i].m_nY + static_cast<double>(nY) * n / nPixels);
            if (nStrokes >> nPixel % kDashPeriod & 1 && nAtX >= kSheet.m_nLeft &&
                nAtX < kSheet.m_nRight && nAtY >= kSheet.m_nTop && nAtY < kSheet.m_nBottom)
                Ink.insert({nAtX, nAtY});
        }
    }
    return Ink;
}

TEST_CASE("strokes and gaps alternate, and end before the last pixel")
{
    CHECK(Drawn({{0, 20}, {24, 20}}, 0x800007) ==
          cInkedPixels{{0, 20}, {1, 20}, {2, 20}, {23, 20}});
    CHECK(Drawn({{0, 20}, {0, 20}}, 0xFFFFFF).empty());
    CHECK(Drawn({{3, 22}, {3, 20}}, 0xFFFFFF) == cInkedPixels{{3, 22}, {3, 21}});
}

TEST_CASE("strokes go on around corners")
{
    CHECK(Drawn({{0, 20}, {2, 20}, {2, 24}}, 0x00000D) == cInkedPixels{{0, 20}, {2, 20}, {2, 21}});
}

TEST_CASE("of two pixels that are as near, a dashed line has the left or the upper one")
{
    CHECK(Drawn({{0, 20}, {2, 21}}, 0xFFFFFF) == cInkedPixels{{0, 20}, {1, 20}});
    CHECK(Drawn({{2, 21}, {0, 20}}, 0xFFFFFF) == cInkedPixels{{2, 21}, {1, 20}});
    CHECK(Drawn({{0, 20}, {1, 22}}, 0xFFFFFF) == cInkedPixels{{0, 20}, {0, 21}});
    CHECK(Drawn({{1, 22}, {0, 20}}, 0xFFFFFF) == cInkedPixels{{1, 22}, {0, 21}});
}

TEST_CASE("a dashed line in any direction, across the edges or far away, has its pixels")
{
    std::mt19937 Random(3);
    for (const int nSpread : {3, 40, 300, 16383})
        for (int nLine = 0; nLine < 40; nLine++)
        {
            std::vector<cPoint> Points(8);
            for (cPoint &Point : Points)
                Point = {60 + static_cast<int>(Random() % (2 * nSpread + 1)) - nSpread,
                         50 + static_cast<int>(Random() % (2 * nSpread + 1)) - nSpread};
            CAPTURE(nSpread);
            CAPTURE(nLine);
            CHECK(Drawn(Points, kStrokes) == Expected(Points, kStrokes));
        }
}
