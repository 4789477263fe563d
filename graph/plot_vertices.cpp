#include "graph/plot_vertices.h"

#include "toolkit/hash_slot.h"

namespace
{

// Corners relative to the point, y down.
struct cMarker
{
    int    m_nCorners;
    cPoint m_Corners[kMostCorners];
};

}  // namespace

// clang-format off
static const cMarker kMarkers[kStyles] =
{
    { 3, { { -2,  2 }, {  0, -2 }, { 2, 2 }           } },  // triangle
    { 4, { { -2, -2 }, {  2, -2 }, { 2, 2 }, { -2, 2 } } },  // square
    { 4, { { -2,  0 }, {  0, -2 }, { 2, 0 }, {  0, 2 } } },  // diamond
    { 4, { { -1, -3 }, {  1, -3 }, { 1, 3 }, { -1, 3 } } },  // vert line
    { 4, { { -3, -1 }, {  3, -1 }, { 3, 1 }, { -3, 1 } } },  // horz line
};
// clang-format on

static const cMarker &MarkerOf(uint32_t nStyle)
{
    return kMarkers[nStyle < kStyles ? nStyle : 0];
}

static int HasSteps(const cVantorDataSet &Set)
{
    return Set.m_nGraphType == gtStairStep || Set.m_nGraphType == gtStoop;
}

// The points, with a step between each two of them.
static cPoint *StoreSteps(const cPlotLayout &Layout, const cVantorDataSet &Set, cPoint *pVertices)
{
    cPoint At    = Layout.PixelOf(Set, 0);
    *pVertices++ = At;
    for (uint32_t nPoint = 1; nPoint < Set.m_nPoints; nPoint++)
    {
        const cPoint Next = Layout.PixelOf(Set, nPoint);
        *pVertices++      = {Next.m_nX, At.m_nY};
        *pVertices++      = Next;
        At                = Next;
    }
    return pVertices;
}

static void StoreBars(const cPlotLayout &Layout, const cVantorDataSet &Set, cPoint *pVertices)
{
    const int    nBottom = Layout.m_Plot.m_nBottom;
    const double dEnd    = static_cast<double>(Set.X(Set.m_nPoints - 1)) + LastSpacing(Set);
    const int    nEnd    = Layout.PixelX(dEnd);

    cPoint *pAfter    = StoreSteps(Layout, Set, pVertices + 1);
    pVertices[0]      = {pVertices[1].m_nX, nBottom};
    const int nHeight = pAfter[-1].m_nY;
    pAfter[0]         = {nEnd, nHeight};
    pAfter[1]         = {nEnd, nBottom};
}

int IsDrawnAsMarkers(const cVantorDataSet &Set)
{
    return Set.m_nGraphType == gtScatter || Set.m_nPoints == 1;
}

int MarkerCorners(uint32_t nStyle)
{
    return MarkerOf(nStyle).m_nCorners;
}

cPoint *StoreMarker(uint32_t nStyle, cPoint At, cPoint *pVertices, const cScale &Scale)
{
    const cMarker &Marker = MarkerOf(nStyle);
    for (int i = 0; i < Marker.m_nCorners; i++)
        *pVertices++ = {At.m_nX + Scale.Length(Marker.m_Corners[i].m_nX),
                        At.m_nY + Scale.Length(Marker.m_Corners[i].m_nY)};
    return pVertices;
}

size_t CountLineVertices(const cVantorDataSet &Set)
{
    const size_t nPoints = Set.m_nPoints;
    switch (Set.m_nGraphType)
    {
    case gtStairStep:
        return 2 * nPoints - 1;
    case gtStoop:
        return 2 * nPoints + 2;
    default:
        return nPoints;
    }
}

void StoreLineVertices(const cPlotLayout &Layout, const cVantorDataSet &Set, cPoint *pVertices)
{
    if (Set.m_nGraphType == gtStairStep)
        StoreSteps(Layout, Set, pVertices);
    else if (Set.m_nGraphType == gtStoop)
        StoreBars(Layout, Set, pVertices);
    else
        for (uint32_t nPoint = 0; nPoint < Set.m_nPoints; nPoint++)
            pVertices[nPoint] = Layout.PixelOf(Set, nPoint);
}

namespace
{

// Finds out which pixels have a marker.
class cMarkerPixels
{
public:
    // pSlots holds the numbers of the markers stored at pVertices, counted from 1.
    cMarkerPixels(uint32_t *pSlots, uint32_t nSlots, const cPoint *pVertices, int nCorners)
        : m_pSlots(pSlots), m_nSlots(nSlots), m_pVertices(pVertices), m_nCorners(nCorners)
    {
    }

    // 1 if marker nMarker, which has been stored, is the first on its pixel.
    int Take(size_t nMarker)
    {
        const cPoint At  = Corner(nMarker);
        const auto   nX  = static_cast<uint32_t>(At.m_nX);
        const auto   nY  = static_cast<uint32_t>(At.m_nY);
        uint32_t     nAt = HashSlot(nX << 16 ^ nY, m_nSlots);
        for (; m_pSlots[nAt] != 0; nAt = nAt + 1 < m_nSlots ? nAt + 1 : 0)
            if (Corner(m_pSlots[nAt] - 1) == At)
                return 0;
        m_pSlots[nAt] = static_cast<uint32_t>(nMarker + 1);
        return 1;
    }

private:
    cPoint Corner(size_t nMarker) const
    {
        return m_pVertices[nMarker * static_cast<size_t>(m_nCorners)];
    }

    uint32_t     *m_pSlots;
    uint32_t      m_nSlots;
    const cPoint *m_pVertices;
    int           m_nCorners;
};

}  // namespace

size_t StoreMarkerVertices(const cPlotLayout &Layout, const cVantorDataSet &Set, uint32_t *pTaken,
                           cPoint *pVertices)
{
    cMarkerPixels Pixels(pTaken, 2 * Set.m_nPoints, pVertices, MarkerCorners(Set.m_nStyle));
    size_t        nMarkers = 0;
    for (uint32_t nPoint = 0; nPoint < Set.m_nPoints; nPoint++)
    {
        cPoint *const pAfter =
            StoreMarker(Set.m_nStyle, Layout.PixelOf(Set, nPoint), pVertices, Layout.m_Scale);
        if (pTaken && !Pixels.Take(nMarkers))
            continue;
        pVertices = pAfter;
        nMarkers++;
    }
    return nMarkers;
}

size_t StoreAddedVertices(const cPlotLayout &Layout, const cVantorDataSet &Set,
                          cPoint (&Vertices)[3])
{
    const cPoint Former = Layout.PixelOf(Set, Set.m_nPoints - 2);
    const cPoint Added  = Layout.PixelOf(Set, Set.m_nPoints - 1);
    size_t       nCount = 0;
    Vertices[nCount++]  = Former;
    if (HasSteps(Set))
        Vertices[nCount++] = {Added.m_nX, Former.m_nY};
    Vertices[nCount++] = Added;
    return nCount;
}
