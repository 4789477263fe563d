#include "graph/segment_rows.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <doctest/doctest.h>

namespace
{

struct cPixelRow
{
    bool operator==(const cPixelRow &) const = default;

    int m_nY, m_nLeft, m_nRight;
};

typedef std::vector<cPixelRow> cRows;

const cRect kEverywhere = {-100000, -100000, 100000, 100000};

}  // namespace

static cRows RowsOf(cPoint From, cPoint To, double dWidth, const cRect &Area = kEverywhere)
{
    cRows Rows;
    cSegmentRows(From, To, dWidth).ForEachIn(Area, [&](int nY, int nLeft, int nRight) {
        Rows.push_back({nY, nLeft, nRight});
    });
    return Rows;
}

// 1 if the pixel is among those of the rows.
static int Has(const cRows &Rows, int nX, int nY)
{
    return std::any_of(Rows.begin(), Rows.end(), [=](const cPixelRow &Row) {
        return nY == Row.m_nY && nX >= Row.m_nLeft && nX < Row.m_nRight;
    });
}

TEST_CASE("upright and level bands have their width and end with the segment")
{
    static const struct
    {
        cPoint From, To;
        double dWidth;
        cRect  Band;
    } s_Rows[] = {
        {{10, 20}, {10, 50}, 4, {8, 20, 12, 51}},  {{10, 50}, {10, 20}, 4, {8, 20, 12, 51}},
        {{10, 20}, {40, 20}, 4, {10, 18, 41, 22}}, {{40, 20}, {10, 20}, 4, {10, 18, 41, 22}},
        {{10, 20}, {10, 50}, 2, {9, 20, 11, 51}},  {{10, 20}, {40, 20}, 2, {10, 19, 41, 21}},
        {{10, 20}, {10, 50}, 3, {9, 20, 12, 51}},  {{10, 20}, {40, 20}, 3, {10, 19, 41, 22}},
    };
    for (const auto &Row : s_Rows)
    {
        cRows Expected;
        for (int nY = Row.Band.m_nTop; nY < Row.Band.m_nBottom; nY++)
            Expected.push_back({nY, Row.Band.m_nLeft, Row.Band.m_nRight});
        CAPTURE(Row.From.m_nX);
        CAPTURE(Row.dWidth);
        CHECK((RowsOf(Row.From, Row.To, Row.dWidth) == Expected));
    }
}

TEST_CASE("a band in any direction has the pixels within half its width of the line")
{
    std::mt19937 Random(11);
    const auto   Place = [&] { return static_cast<int>(Random() % 81) - 40; };
    for (int nSegment = 0; nSegment < 400; nSegment++)
    {
        const cPoint From   = {Place(), Place()};
        const cPoint To     = {Place(), Place()};
        const double dWidth = 2 + nSegment % 3;
        const double dX     = To.m_nX - From.m_nX;
        const double dY     = To.m_nY - From.m_nY;
        const double dLong  = std::hypot(dX, dY);
        if (dLong < 12.0)
            continue;
        const cRows Rows     = RowsOf(From, To, dWidth);
        int         nMissing = 0;
        int         nBeside  = 0;
        for (int nPixel = 0; nPixel < 101 * 101; nPixel++)
        {
            const int    nX     = nPixel % 101 - 50;
            const int    nY     = nPixel / 101 - 50;
            const double dAlong = ((nX - From.m_nX) * dX + (nY - From.m_nY) * dY) / dLong;
            const double dOff   = std::fabs((nX - From.m_nX) * dY - (nY - From.m_nY) * dX) / dLong;
            const int    bInside =
                dOff < dWidth / 2 - 1e-6 && dAlong > dWidth && dAlong < dLong - dWidth;
            const int bOutside =
                dOff > dWidth / 2 + 1e-6 || dAlong < -dWidth || dAlong > dLong + dWidth;
            nMissing += bInside && !Has(Rows, nX, nY);
            nBeside += bOutside && Has(Rows, nX, nY);
        }
        CAPTURE(nSegment);
        CHECK(nMissing == 0);
        CHECK(nBeside == 0);
    }
}

TEST_CASE("only what is in the area is reported")
{
    const cRect Area = {-7, 3, 21, 18};
    for (const cPoint To : {cPoint{40, 31}, cPoint{-12, 12}, cPoint{2, 60}, cPoint{35, 4}})
    {
        cRows Expected;
        for (const cPixelRow &Row : RowsOf({1, -9}, To, 4))
        {
            const cPixelRow Part = {Row.m_nY, std::max(Row.m_nLeft, Area.m_nLeft),
                                    std::min(Row.m_nRight, Area.m_nRight)};
            if (Row.m_nY >= Area.m_nTop && Row.m_nY < Area.m_nBottom &&
                Part.m_nLeft < Part.m_nRight)
                Expected.push_back(Part);
        }
        CAPTURE(To.m_nX);
        CHECK(Expected.empty() == (To.m_nX == 35));
        CHECK((RowsOf({1, -9}, To, 4, Area) == Expected));
    }
}

TEST_CASE("segments as long as they can be stay in their boxes")
{
    const int nFar = 16383;
    for (const cPoint To : {cPoint{nFar, nFar - 1}, cPoint{nFar, -nFar + 1}, cPoint{nFar, nFar},
                            cPoint{-nFar + 1, nFar}})
    {
        const cRows Rows   = RowsOf({-nFar, -nFar}, To, 4);
        const int   nLevel = To.m_nY < 0;
        CHECK(static_cast<int>(Rows.size()) >= (nLevel ? 4 : 2 * nFar + 1));
        CHECK(std::all_of(Rows.begin(), Rows.end(), [=](const cPixelRow &Row) {
            return Row.m_nLeft >= -nFar - 2 && Row.m_nRight <= nFar + 2;
        }));
        CHECK(Has(Rows, 0, (To.m_nY - nFar) / 2) == (To.m_nX == nFar));
    }
}
