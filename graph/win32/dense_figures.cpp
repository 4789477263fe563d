#include "graph/win32/dense_figures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

#include "graph/dashed_line.h"
#include "graph/segment_rows.h"

// Segments that reach no farther in x and in y are drawn with stamps.
static const int    kReach     = 12;
static const int    kSteps     = 2 * kReach + 1;
static const size_t kAllStamps = static_cast<size_t>(kSteps) * kSteps;

// So many longer segments of one line are drawn by the platform, each in some
// microseconds. Of a line with more of them only the ends are, with stamps.
static const size_t kMostLong = 1000;

// Pixels by which Wine draws the middle of a slanted segment broader than its width.
static const double kSlantedMore = 0.25;

static const int kRunsPerCall  = 512;
static const int kStampCorners = 16;  // of a polygon

static const POINT *AsPlatformPoints(const cPoint *pPoints)
{
    return reinterpret_cast<const POINT *>(pPoints);
}

static cPoint Difference(cPoint a, cPoint b)
{
    return {a.m_nX - b.m_nX, a.m_nY - b.m_nY};
}

cDenseFigures::cDenseFigures(HDC hDc) : m_hDc(hDc), m_nStampWidth(0) {}

// An empty mask of the visible part, and a pad.
int cDenseFigures::Prepare()
{
    RECT Clip = {};
    return GetDeviceCaps(m_hDc, TECHNOLOGY) == DT_RASDISPLAY && GetClipBox(m_hDc, &Clip) != ERROR &&
           m_Mask.Create({Clip.left, Clip.top, Clip.right, Clip.bottom}) &&
           (m_Pad.Dc() || m_Pad.Create());
}

namespace
{

// Collects runs of pixels and draws them as lines of one pixel.
class cRunDrawer
{
public:
    explicit cRunDrawer(HDC hDc) : m_hDc(hDc) { std::fill_n(m_Counts, kRunsPerCall, 2u); }
    ~cRunDrawer() { Flush(); }
    cRunDrawer(const cRunDrawer &)            = delete;
    cRunDrawer &operator=(const cRunDrawer &) = delete;

    void Add(int nY, int nLeft, int nRight)
    {
        m_Ends[2 * m_nRuns]     = {nLeft, nY};
        m_Ends[2 * m_nRuns + 1] = {nRight, nY};
        if (++m_nRuns == kRunsPerCall)
            Flush();
    }

private:
    void Flush()
    {
        if (m_nRuns > 0)
            PolyPolyline(m_hDc, m_Ends, m_Counts, static_cast<DWORD>(m_nRuns));
        m_nRuns = 0;
    }

    HDC   m_hDc;
    int   m_nRuns = 0;
    POINT m_Ends[2 * kRunsPerCall];
    DWORD m_Counts[kRunsPerCall];
};

}  // namespace

void cDenseFigures::Show(uint32_t crColour) const
{
    const cGdiPen      Pen(CreatePen(PS_SOLID, 1, crColour));
    const cSelectGuard Selected(m_hDc, Pen.Get());
    cRunDrawer         Drawer(m_hDc);
    m_Mask.ForEachRun([&](int nY, int nLeft, int nRight) { Drawer.Add(nY, nLeft, nRight); });
}

// --- polygons

static int HasShape(const cPoint *pPoints, const cPoint *pShape, int nCorners)
{
    for (int i = 1; i < nCorners; i++)
        if (!(Difference(pPoints[i], pPoints[0]) == Difference(pShape[i], pShape[0])))
            return 0;
    return 1;
}

// The place of the stamp is the first corner.
int cDenseFigures::ReadPolygon(const cPoint *pPoints, int nCorners, cStamp *pStamp)
{
    POINT Corners[kStampCorners];
    if (nCorners > kStampCorners)
        return 0;
    for (int i = 0; i < nCorners; i++)
    {
        const cPoint At = Difference(pPoints[i], pPoints[0]);
        if (std::abs(At.m_nX) >= kStampSide || std::abs(At.m_nY) >= kStampSide)
            return 0;
        Corners[i] = {At.m_nX, At.m_nY};
    }
    const cSelectGuard Pen(m_Pad.Dc(), GetStockObject(WHITE_PEN));
    const cSelectGuard Brush(m_Pad.Dc(), GetStockObject(WHITE_BRUSH));
    m_Pad.Clear();
    ::Polygon(m_Pad.Dc(), Corners, nCorners);
    return m_Pad.Read(pStamp);
}

int cDenseFigures::DrawPolygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                                uint32_t crColour)
{
    cStamp    Stamp;
    const int nCorners = pCounts[0];
    if (!Prepare() || !ReadPolygon(pPoints, nCorners, &Stamp))
        return 0;
    const cPoint *pPolygon = pPoints;
    for (size_t i = 0; i < nPolygons; i++, pPolygon += nCorners)
    {
        if (pCounts[i] != nCorners || !HasShape(pPolygon, pPoints, nCorners))
            return 0;
        m_Mask.Stamp(Stamp, pPolygon[0]);
    }
    Show(crColour);
    return 1;
}

// --- wide lines

// The stamp of a segment is kept, as most segments of a curve are like others.
int cDenseFigures::LineStamp(cPoint Step, int nWidth, const cStamp **ppStamp)
{
    if (!m_pStamps)
        m_pStamps.reset(new (std::nothrow) cStamp[kAllStamps]());
    if (!m_pStamps)
        return 0;
    if (nWidth != m_nStampWidth)
        std::fill_n(m_pStamps.get(), kAllStamps, cStamp{});
    m_nStampWidth        = nWidth;
    const int     nStamp = (Step.m_nY + kReach) * kSteps + Step.m_nX + kReach;
    cStamp *const pKept  = m_pStamps.get() + nStamp;
    *ppStamp             = pKept;
    if (pKept->m_nRows > 0)
        return 1;
    const cGdiPen      Pen(CreatePen(PS_SOLID, nWidth, RGB(255, 255, 255)));
    const cSelectGuard Selected(m_Pad.Dc(), Pen.Get());
    const POINT        Line[] = {{0, 0}, {Step.m_nX, Step.m_nY}};
    m_Pad.Clear();
    ::Polyline(m_Pad.Dc(), Line, 2);
    return m_Pad.Read(pKept);
}

static int IsLong(cPoint Step)
{
    return std::abs(Step.m_nX) > kReach || std::abs(Step.m_nY) > kReach;
}

static size_t CountLong(const cPoint *pPoints, size_t nPoints)
{
    size_t nLong = 0;
    for (size_t i = 0; i + 1 < nPoints; i++)
        nLong += IsLong(Difference(pPoints[i + 1], pPoints[i])) != 0;
    return nLong;
}

// The longest step in the direction of Step, nearly, for which there is a stamp.
static cPoint Shortened(cPoint Step)
{
    const int    nLonger = std::max(std::abs(Step.m_nX), std::abs(Step.m_nY));
    const double dPart   = static_cast<double>(kReach) / nLonger;
    return {static_cast<int>(std::lround(Step.m_nX * dPart)),
            static_cast<int>(std::lround(Step.m_nY * dPart))};
}

int cDenseFigures::CoverShort(cPoint At, cPoint Step, int nWidth)
{
    const cStamp *pStamp = nullptr;
    if (!LineStamp(Step, nWidth, &pStamp))
        return 0;
    m_Mask.Stamp(*pStamp, At);
    return 1;
}

// The ends are the platform's, the part between them may differ from what it draws
// by one pixel at the edges.
int cDenseFigures::CoverLong(cPoint From, cPoint To, int nWidth)
{
    const int    bSlanted = From.m_nX != To.m_nX && From.m_nY != To.m_nY;
    const double dWidth   = bSlanted ? nWidth + kSlantedMore : nWidth;
    cSegmentRows(From, To, dWidth).ForEachIn(m_Mask.Area(), [this](int nY, int nLeft, int nRight) {
        m_Mask.Cover(nY, nLeft, nRight);
    });
    const cPoint Step = Shortened(Difference(To, From));
    return CoverShort(From, Step, nWidth) && CoverShort(To, {-Step.m_nX, -Step.m_nY}, nWidth);
}

// A segment without length adds nothing to its neighbours. 0 if all are, or if a
// stamp cannot be made.
int cDenseFigures::CoverSegments(const cPoint *pPoints, size_t nPoints, int nWidth, int bWithLong)
{
    int bAny = 0;
    for (size_t i = 0; i + 1 < nPoints; i++)
    {
        const cPoint Step = Difference(pPoints[i + 1], pPoints[i]);
        if (Step == cPoint{0, 0})
            continue;
        bAny = 1;
        if (!IsLong(Step) ? !CoverShort(pPoints[i], Step, nWidth)
                          : bWithLong && !CoverLong(pPoints[i], pPoints[i + 1], nWidth))
            return 0;
    }
    return bAny;
}

int cDenseFigures::DrawWideLine(const cPoint *pPoints, size_t nPoints, int nWidth,
                                uint32_t crColour)
{
    const int bWithLong = CountLong(pPoints, nPoints) > kMostLong;
    if (!Prepare() || !CoverSegments(pPoints, nPoints, nWidth, bWithLong))
        return 0;
    Show(crColour);
    for (size_t i = 0; i + 1 < nPoints && !bWithLong; i++)
        if (IsLong(Difference(pPoints[i + 1], pPoints[i])))
            ::Polyline(m_hDc, AsPlatformPoints(pPoints + i), 2);
    return 1;
}

// --- dashed lines

// From the first pixel of a line to the right.
int cDenseFigures::ReadStrokes(uint32_t nStyle, uint32_t *pStrokes)
{
    const cGdiPen      Pen(CreatePen(static_cast<int>(nStyle), 1, RGB(255, 255, 255)));
    const cSelectGuard Selected(m_Pad.Dc(), Pen.Get());
    const POINT        Line[] = {{0, 0}, {kDashPeriod, 0}};
    cStamp             Stamp;
    m_Pad.Clear();
    ::Polyline(m_Pad.Dc(), Line, 2);
    if (!m_Pad.Read(&Stamp))
        return 0;
    *pStrokes = Stamp.m_Rows[0] << Stamp.m_Offset.m_nX;
    return 1;
}

int cDenseFigures::DrawDashedLine(const cPoint *pPoints, size_t nPoints, uint32_t nStyle,
                                  uint32_t crColour)
{
    uint32_t nStrokes = 0;
    if (!Prepare() || !ReadStrokes(nStyle, &nStrokes))
        return 0;
    CoverDashedLine(pPoints, nPoints, nStrokes, &m_Mask);
    Show(crColour);
    return 1;
}
