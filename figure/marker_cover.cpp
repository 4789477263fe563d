#include "figure/marker_cover.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "figure/marker_shape.h"

static const size_t kWordBits    = 64;
static const double kMostSquares = 8.0 * 8 * 1024 * 1024;

// A circle's corners are on it, or outside so that the edges touch it.
static const int    kCorners       = 32;
static const double kFullTurn      = 6.283185307179586;
static const double kCircleOutside = 1.005;

// Of a marker of size 1, from its point.
static const double kMarkerReach = 0.75;

namespace
{

// From left to right; empty if m_dLeft is not below m_dRight.
struct cChord
{
    double m_dLeft  = std::numeric_limits<double>::infinity();
    double m_dRight = -std::numeric_limits<double>::infinity();
};

}  // namespace

static void Widen(double dX, cChord *pChord)
{
    pChord->m_dLeft  = std::min(pChord->m_dLeft, dX);
    pChord->m_dRight = std::max(pChord->m_dRight, dX);
}

static std::vector<cSpot> CornersOf(const cMarkerLook &Look, double dCircle)
{
    std::vector<cSpot> Corners;
    for (const cSpot &Corner : CornersOfMarker(Look.m_nShape))
        Corners.push_back({Corner.m_dX * Look.m_dSize, Corner.m_dY * Look.m_dSize});
    const double dRadius = Look.m_dSize / 2.0 * dCircle;
    for (int i = 0; i < kCorners && Look.m_nShape == kCircle; i++)
        Corners.push_back({std::cos(kFullTurn * i / kCorners) * dRadius,
                           std::sin(kFullTurn * i / kCorners) * dRadius});
    return Corners;
}

// The part of a convex shape at this height.
static cChord ChordAt(const std::vector<cSpot> &Corners, double dY)
{
    cChord Chord;
    for (size_t i = 0; i < Corners.size(); i++)
    {
        const cSpot &From = Corners[i];
        const cSpot &To   = Corners[(i + 1) % Corners.size()];
        if ((From.m_dY < dY) != (To.m_dY < dY))
            Widen(From.m_dX + (To.m_dX - From.m_dX) * (dY - From.m_dY) / (To.m_dY - From.m_dY),
                  &Chord);
    }
    return Chord;
}

// As far as the shape reaches anywhere between two heights.
static cChord WidestWithin(const std::vector<cSpot> &Corners, double dTop, double dBottom)
{
    cChord Widest = ChordAt(Corners, dTop);
    for (const cSpot &Corner : Corners)
        if (Corner.m_dY >= dTop && Corner.m_dY <= dBottom)
            Widen(Corner.m_dX, &Widest);
    const cChord AtBottom = ChordAt(Corners, dBottom);
    return {std::min(Widest.m_dLeft, AtBottom.m_dLeft),
            std::max(Widest.m_dRight, AtBottom.m_dRight)};
}

// As far as it reaches everywhere between them: a convex shape is narrowest at one end.
static cChord NarrowestWithin(const std::vector<cSpot> &Corners, double dTop, double dBottom)
{
    const cChord AtTop    = ChordAt(Corners, dTop);
    const cChord AtBottom = ChordAt(Corners, dBottom);
    return {std::max(AtTop.m_dLeft, AtBottom.m_dLeft), std::min(AtTop.m_dRight, AtBottom.m_dRight)};
}

static double SideOfSquares(double dWidth, double dHeight)
{
    return std::ceil(std::sqrt(std::max(dWidth * dHeight / kMostSquares, 1.0)));
}

cMarkerCover::cMarkerCover(const cFigureBox &Frame, const cMarkerLook &Look)
{
    const double dReach  = std::ceil(Look.m_dSize * kMarkerReach) + 1.0;
    m_dLeft              = std::floor(Frame.m_dLeft - dReach);
    m_dTop               = std::floor(Frame.m_dTop - dReach);
    const double dWidth  = std::max(Frame.m_dRight + dReach - m_dLeft, 1.0);
    const double dHeight = std::max(Frame.m_dBottom + dReach - m_dTop, 1.0);
    m_dSide              = SideOfSquares(dWidth, dHeight);
    m_nRowWords          = static_cast<size_t>(dWidth / m_dSide) / kWordBits + 2;
    m_Words.resize(m_nRowWords * (static_cast<size_t>(dHeight / m_dSide) + 2));
    for (int nY = 0; nY < kParts; nY++)
        for (int nX = 0; nX < kParts; nX++)
            m_Stamps.push_back(MakeStamp({Look.m_crColour, Look.m_dSize / m_dSide, Look.m_nShape},
                                         static_cast<double>(nX) / kParts,
                                         static_cast<double>(nY) / kParts));
}

// Of markers whose points are from (dX, dY) to a part of a square farther right and
// down.
cMarkerCover::cStamp cMarkerCover::MakeStamp(const cMarkerLook &Look, double dX, double dY) const
{
    const double             dPart = 1.0 / kParts;
    const std::vector<cSpot> Inner = CornersOf(Look, 1.0);
    const std::vector<cSpot> Outer = CornersOf(Look, kCircleOutside);
    const auto [pHighest, pLowest] = std::minmax_element(
        Outer.begin(), Outer.end(), [](const cSpot &a, const cSpot &b) { return a.m_dY < b.m_dY; });
    const int nTop    = static_cast<int>(std::floor(pHighest->m_dY + dY));
    const int nBottom = static_cast<int>(std::floor(pLowest->m_dY + dY + dPart));
    cStamp    Stamp;
    Stamp.m_nTop = nTop;
    for (int nRow = nTop; nRow <= nBottom; nRow++)
    {
        const double dTop    = nRow - dY - dPart;
        const double dBottom = nRow + 1 - dY;
        const cChord Wide    = WidestWithin(Outer, dTop, dBottom);
        const cChord Narrow  = NarrowestWithin(Inner, dTop, dBottom);
        if (Wide.m_dLeft > Wide.m_dRight)
            break;
        Stamp.m_Touched.push_back({static_cast<int>(std::floor(Wide.m_dLeft + dX)),
                                   static_cast<int>(std::floor(Wide.m_dRight + dX + dPart)) + 1});
        const int nFirst = Narrow.m_dLeft < Narrow.m_dRight
                               ? static_cast<int>(std::ceil(Narrow.m_dLeft + dX + dPart))
                               : 0;
        const int nAfter = Narrow.m_dLeft < Narrow.m_dRight
                               ? static_cast<int>(std::floor(Narrow.m_dRight + dX))
                               : 0;
        Stamp.m_Covered.push_back({nFirst, std::max(nFirst, nAfter)});
    }
    return Stamp;
}

// Calls Handle(word, bits) for the words of squares nFirst to nAfter - 1 of a row.
template <class cHandle> static void ForEachWord(size_t nFirst, size_t nAfter, cHandle Handle)
{
    while (nFirst < nAfter)
    {
        const size_t nLow  = nFirst % kWordBits;
        const size_t nBits = std::min(nAfter - nFirst, kWordBits - nLow);
        Handle(nFirst / kWordBits, ~uint64_t(0) >> (kWordBits - nBits) << nLow);
        nFirst += nBits;
    }
}

int cMarkerCover::Has(size_t nRow, size_t nFirst, size_t nAfter) const
{
    const uint64_t *const pRow     = m_Words.data() + nRow * m_nRowWords;
    uint64_t              nMissing = 0;
    ForEachWord(nFirst, nAfter,
                [&](size_t nWord, uint64_t nBits) { nMissing |= nBits & ~pRow[nWord]; });
    return nMissing == 0;
}

void cMarkerCover::Cover(size_t nRow, size_t nFirst, size_t nAfter)
{
    uint64_t *const pRow = m_Words.data() + nRow * m_nRowWords;
    ForEachWord(nFirst, nAfter, [=](size_t nWord, uint64_t nBits) { pRow[nWord] |= nBits; });
}

int cMarkerCover::Add(const cSpot &Spot)
{
    const double  dX     = (Spot.m_dX - m_dLeft) / m_dSide;
    const double  dY     = (Spot.m_dY - m_dTop) / m_dSide;
    const auto    nX     = static_cast<int>(dX);
    const auto    nY     = static_cast<int>(dY);
    const int     nPartX = static_cast<int>((dX - nX) * kParts);
    const int     nPartY = static_cast<int>((dY - nY) * kParts);
    const cStamp &Stamp  = m_Stamps[static_cast<size_t>(nPartY * kParts + nPartX)];
    const size_t  nRows  = Stamp.m_Touched.size();
    const auto    nTop   = static_cast<size_t>(nY + Stamp.m_nTop);
    const auto    At     = [=](int nColumn) { return static_cast<size_t>(nX + nColumn); };

    int bHidden = 1;
    for (size_t i = 0; i < nRows && bHidden; i++)
        bHidden = Has(nTop + i, At(Stamp.m_Touched[i].m_nFirst), At(Stamp.m_Touched[i].m_nAfter));
    if (bHidden)
        return 0;
    for (size_t i = 0; i < nRows; i++)
        Cover(nTop + i, At(Stamp.m_Covered[i].m_nFirst), At(Stamp.m_Covered[i].m_nAfter));
    return 1;
}
