#include "figure/marker_cover.h"

#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "figure/marker_shape.h"

static const cFigureBox kCoverFrame = {9.5, 9.5, 21.5, 19.5};
static const int        kSamples    = 4;  // of a pixel, in each direction

static cSpot AnySpot(std::mt19937 *pRandom)
{
    const auto nX = static_cast<int>((*pRandom)() % 1201);
    const auto nY = static_cast<int>((*pRandom)() % 1001);
    return {kCoverFrame.m_dLeft + nX / 100.0, kCoverFrame.m_dTop + nY / 100.0};
}

// 1 if the marker at At has ink at Place.
static int IsInMarker(const cMarkerLook &Look, const cSpot &At, const cSpot &Place)
{
    const double                 dX      = (Place.m_dX - At.m_dX) / Look.m_dSize;
    const double                 dY      = (Place.m_dY - At.m_dY) / Look.m_dSize;
    const std::span<const cSpot> Corners = CornersOfMarker(Look.m_nShape);
    int                          nLeft   = 0;
    for (size_t i = 0; i < Corners.size(); i++)
    {
        const cSpot &From = Corners[i];
        const cSpot &To   = Corners[(i + 1) % Corners.size()];
        nLeft +=
            (To.m_dX - From.m_dX) * (dY - From.m_dY) > (To.m_dY - From.m_dY) * (dX - From.m_dX);
    }
    if (Corners.empty())
        return std::hypot(dX, dY) < 0.5;
    return nLeft == 0 || nLeft == static_cast<int>(Corners.size());
}

// How many samples of the pixel the marker has.
static int SamplesIn(const cMarkerLook &Look, const cSpot &At, int nX, int nY)
{
    int nIn = 0;
    for (int i = 0; i < kSamples * kSamples; i++)
        nIn += IsInMarker(
            Look, At, {nX + (i % kSamples + 0.5) / kSamples, nY + (i / kSamples + 0.5) / kSamples});
    return nIn;
}

namespace
{

// The pixels that are covered completely by one of the markers drawn, by samples.
class cSampledPaper
{
public:
    static const int kSide = 32;

    void Draw(const cMarkerLook &Look, const cSpot &At)
    {
        ForEachPixel(Look, At, [&](int nX, int nY, int nIn) {
            m_bFull[nY * kSide + nX] = m_bFull[nY * kSide + nX] || nIn == kSamples * kSamples;
        });
    }

    int Hides(const cMarkerLook &Look, const cSpot &At) const
    {
        int bHidden = 1;
        ForEachPixel(Look, At, [&](int nX, int nY, int nIn) {
            bHidden = bHidden && (nIn == 0 || m_bFull[nY * kSide + nX]);
        });
        return bHidden;
    }

private:
    template <class cHandle>
    static void ForEachPixel(const cMarkerLook &Look, const cSpot &At, cHandle Handle)
    {
        const int nReach = static_cast<int>(Look.m_dSize) + 1;
        for (int nY = static_cast<int>(At.m_dY) - nReach; nY <= At.m_dY + nReach; nY++)
            for (int nX = static_cast<int>(At.m_dX) - nReach; nX <= At.m_dX + nReach; nX++)
                if (nX >= 0 && nX < kSide && nY >= 0 && nY < kSide)
                    Handle(nX, nY, SamplesIn(Look, At, nX, nY));
    }

    bool m_bFull[kSide * kSide] = {};
};

}  // namespace

TEST_CASE("a marker is left out only if others cover all that it touches")
{
    std::mt19937 Random(9);
    for (uint32_t nShape = 0; nShape < kFigureMarkers; nShape++)
        for (const double dSize : {5.0, 8.6})
        {
            const cMarkerLook Look = {0, dSize, nShape};
            cMarkerCover      Cover(kCoverFrame, Look);
            cSampledPaper     Paper;
            int               nLeftOut = 0;
            int               nWrong   = 0;
            for (int i = 0; i < 300; i++)
            {
                const cSpot At = AnySpot(&Random);
                if (Cover.Add(At))
                    Paper.Draw(Look, At);
                else
                {
                    nLeftOut++;
                    nWrong += !Paper.Hides(Look, At);
                }
            }
            CAPTURE(nShape);
            CAPTURE(dSize);
            CHECK(nWrong == 0);
            CHECK(nLeftOut > 20);
        }
}

TEST_CASE("most markers of a dense cloud are left out")
{
    std::mt19937 Random(2);
    cMarkerCover Cover(kCoverFrame, {0, 5.0, kCircle});
    int          nDrawn = 0;
    for (int i = 0; i < 20000; i++)
        nDrawn += Cover.Add(AnySpot(&Random));
    CHECK(nDrawn > 100);
    CHECK(nDrawn < 10000);
}

TEST_CASE("tiny, huge and far markers are handled, on paper of any size")
{
    for (const double dSize : {0.1, 100.0, 1000.0})
        for (const double dSide : {0.0, 1.0, 300.0, 16383.0})
        {
            CAPTURE(dSize);
            CAPTURE(dSide);
            cMarkerCover Cover({0.5, 0.5, dSide + 0.5, dSide + 0.5}, {0, dSize, kCircle});
            CHECK(Cover.Add({0.5, 0.5}) == 1);
            CHECK(Cover.Add({dSide + 0.5, dSide + 0.5}) == 1);
        }
}
