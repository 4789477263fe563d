#include "graph/pixel_mask.h"

#include <algorithm>
#include <random>
#include <set>
#include <tuple>
#include <vector>

#include <doctest/doctest.h>

namespace
{

typedef std::set<std::pair<int, int>>          cPixels;  // x, y
typedef std::vector<std::tuple<int, int, int>> cRuns;    // y, left, right

const cRect kArea = {-5, 10, 195, 40};

// A mask, and what must be in it.
struct cMaskRig
{
    cMaskRig() { REQUIRE(m_Mask.Create(kArea)); }

    void Expect(int nX, int nY)
    {
        if (nX >= kArea.m_nLeft && nX < kArea.m_nRight && nY >= kArea.m_nTop &&
            nY < kArea.m_nBottom)
            m_Expected.insert({nX, nY});
    }

    void Stamp(const cStamp &Stamp, cPoint At)
    {
        m_Mask.Stamp(Stamp, At);
        for (int nRow = 0; nRow < Stamp.m_nRows; nRow++)
            for (int nBit = 0; nBit < kStampSide; nBit++)
                if (Stamp.m_Rows[nRow] >> nBit & 1)
                    Expect(At.m_nX + Stamp.m_Offset.m_nX + nBit,
                           At.m_nY + Stamp.m_Offset.m_nY + nRow);
    }

    void Cover(int nY, int nLeft, int nRight) { m_Mask.Cover(nY, nLeft, nRight); }

    cRuns Runs() const
    {
        cRuns Found;
        m_Mask.ForEachRun(
            [&](int nY, int nLeft, int nRight) { Found.emplace_back(nY, nLeft, nRight); });
        return Found;
    }

    int IsAsExpected() const
    {
        cPixels Pixels;
        for (const auto &[nY, nLeft, nRight] : Runs())
            for (int nX = nLeft; nX < nRight; nX++)
                Pixels.insert({nX, nY});
        return Pixels == m_Expected;
    }

    cPixelMask m_Mask;
    cPixels    m_Expected;
};

}  // namespace

TEST_CASE("a mask of nothing is refused, and a new one is empty")
{
    cPixelMask Mask;
    CHECK(Mask.Create({5, 5, 5, 9}) == 0);
    CHECK(Mask.Create({5, 5, 9, 4}) == 0);
    CHECK(cMaskRig().Runs().empty());
}

TEST_CASE("runs of covered pixels come from the top down and from the left to the right")
{
    cMaskRig Rig;
    Rig.Cover(12, 3, 9);
    Rig.Cover(12, 0, 2);
    Rig.Cover(11, 50, 51);
    Rig.Cover(12, 9, 10);
    CHECK(Rig.Runs() == cRuns{{11, 50, 51}, {12, 0, 2}, {12, 3, 10}});
}

TEST_CASE("runs of every place and length are covered exactly")
{
    for (int nLeft = kArea.m_nLeft; nLeft < kArea.m_nRight; nLeft += 7)
        for (int nRight = nLeft + 1; nRight <= kArea.m_nRight; nRight++)
        {
            cMaskRig Rig;
            Rig.Cover(20, nLeft, nRight);
            REQUIRE(Rig.Runs() == cRuns{{20, nLeft, nRight}});
        }
}

TEST_CASE("stamps cover their pixels in and around the area, in any order")
{
    std::mt19937 Random(5);
    for (int nRound = 0; nRound < 40; nRound++)
    {
        cMaskRig Rig;
        cStamp   Stamp = {{-static_cast<int>(Random() % 20), -static_cast<int>(Random() % 20)},
                          static_cast<int>(Random() % 32) + 1,
                          {}};
        for (uint32_t &nBits : Stamp.m_Rows)
            nBits = static_cast<uint32_t>(Random()) & static_cast<uint32_t>(Random());
        for (int i = 0; i < 60; i++)
            Rig.Stamp(Stamp, {static_cast<int>(Random() % 320) - 60,
                              static_cast<int>(Random() % 120) - 40});
        Rig.Stamp(Stamp, {-16383, 20});
        Rig.Stamp(Stamp, {16383, 20});
        Rig.Stamp(Stamp, {20, -16383});
        Rig.Stamp(Stamp, {20, 16383});
        CAPTURE(nRound);
        CHECK(Rig.IsAsExpected());
    }
}
