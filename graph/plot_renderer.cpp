#include "graph/plot_renderer.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>

#include "graph/plot_vertices.h"
#include "graph/print_legend.h"
#include "toolkit/retry_alloc.h"

static cPlotPen AxisPen(const cVantorPlot &Plot)
{
    return {0, 1, Plot.Settings().m_crAxis};
}

namespace
{

// Lines of two points that go out in one call.
class cSegments
{
public:
    cSegments() : m_nLines(0) {}

    void Add(int nX1, int nY1, int nX2, int nY2)
    {
        m_Points[2 * m_nLines]     = {nX1, nY1};
        m_Points[2 * m_nLines + 1] = {nX2, nY2};
        m_Counts[m_nLines]         = 2;
        m_nLines++;
    }

    void Draw(const cPlotPen &Pen, cPlotCanvas *pCanvas) const
    {
        pCanvas->Polylines(m_Points, m_Counts, m_nLines, Pen);
    }

private:
    static const size_t kMost = kMostTicks + 1;  // the ticks and the axis

    cPoint   m_Points[2 * kMost];
    uint32_t m_Counts[kMost];
    size_t   m_nLines;
};

}  // namespace

// The labels end with a blank, which separates them from the axis.
static void DrawVertLabel(const cPlotLayout &Layout, double dValue, int nY, uint32_t crText,
                          cPlotCanvas *pCanvas)
{
    char szValue[kValueText];
    char szLabel[kValueText + 1];
    FormatValue(dValue, szValue);
    snprintf(szLabel, sizeof szLabel, "%s ", szValue);
    pCanvas->Label({Layout.m_Plot.m_nLeft, nY - Layout.m_nTextHeight / 2}, alRight, szLabel,
                   crText);
}

// From the top down.
static void DrawVertAxis(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas)
{
    const cVantorPlotSettings &Settings = Plot.Settings();
    const cPlotRange          &Range    = Layout.m_Range;
    const cRect               &Area     = Layout.m_Plot;
    const cTickValues          Values(Range.m_fYMax, Range.m_fYMin, Range.m_nVertTicks);
    cSegments                  Lines;
    for (uint32_t nTick = 0; nTick < Range.m_nVertTicks; nTick++)
    {
        const int nY = Area.m_nTop + TickPixel(nTick, Range.m_nVertTicks, Area.Height());
        if (Settings.m_bHorzGrid)
            Lines.Add(Area.m_nLeft, nY, Area.m_nRight, nY);
        else
            Lines.Add(Area.m_nLeft - Layout.m_nTickLength, nY,
                      Area.m_nLeft + Layout.m_nTickLength + 1, nY);
        DrawVertLabel(Layout, Values.Value(nTick), nY, Settings.m_crText, pCanvas);
    }
    Lines.Add(Area.m_nLeft, Area.m_nTop, Area.m_nLeft, Area.m_nBottom + 1);
    Lines.Draw(AxisPen(Plot), pCanvas);
}

// From the left to the right.
static void DrawHorzAxis(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas)
{
    const cVantorPlotSettings &Settings = Plot.Settings();
    const cPlotRange          &Range    = Layout.m_Range;
    const cRect               &Area     = Layout.m_Plot;
    const cTickValues          Values(Range.m_fXMin, Range.m_fXMax, Range.m_nHorzTicks);
    cSegments                  Lines;
    for (uint32_t nTick = 0; nTick < Range.m_nHorzTicks; nTick++)
    {
        const int nX = Area.m_nLeft + TickPixel(nTick, Range.m_nHorzTicks, Area.Width());
        if (Settings.m_bVertGrid)
            Lines.Add(nX, Area.m_nTop, nX, Area.m_nBottom);
        else
            Lines.Add(nX, Area.m_nBottom - Layout.m_nTickLength, nX,
                      Area.m_nBottom + Layout.m_nTickLength + 1);
        char szLabel[kValueText];
        FormatValue(Values.Value(nTick), szLabel);
        pCanvas->Label({nX, Layout.m_nLabelTop}, alCenter, szLabel, Settings.m_crText);
    }
    Lines.Add(Area.m_nLeft, Area.m_nBottom, Area.m_nRight + 1, Area.m_nBottom);
    Lines.Draw(AxisPen(Plot), pCanvas);
}

// Below the numbers, in the middle of the plot.
static void DrawAxisLabel(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas)
{
    const cVantorPlotSettings &Settings = Plot.Settings();
    if (Settings.m_szHorzLabel[0] == '\0')
        return;
    const int nMiddle = (Layout.m_Plot.m_nLeft + Layout.m_Plot.m_nRight) / 2;
    pCanvas->Label({nMiddle, Layout.m_nLabelTop + Layout.m_nTextHeight}, alCenter,
                   Settings.m_szHorzLabel, Settings.m_crText);
}

static std::unique_ptr<cPoint[]> AllocateVertices(cMessageBoxes *pBoxes, size_t nCount)
{
    return AllocateWithRetry(
        pBoxes, [nCount] { return std::unique_ptr<cPoint[]>(new (std::nothrow) cPoint[nCount]); });
}

static int DrawMarkers(const cPlotLayout &Layout, const cVantorDataSet &Set, cMessageBoxes *pBoxes,
                       cPlotCanvas *pCanvas)
{
    const int                       nCorners  = MarkerCorners(Set.m_nStyle);
    const size_t                    nPoints   = Set.m_nPoints;
    const std::unique_ptr<cPoint[]> pVertices = AllocateVertices(pBoxes, nPoints * nCorners);
    if (!pVertices)
        return 0;
    const auto pCounts = AllocateWithRetry(pBoxes, [nPoints] {
        return std::unique_ptr<int32_t[]>(new (std::nothrow) int32_t[nPoints]);
    });
    if (!pCounts)
        return 0;
    std::fill_n(pCounts.get(), nPoints, nCorners);
    // Without this memory, markers on one pixel are all drawn.
    const std::unique_ptr<uint32_t[]> pTaken(new (std::nothrow) uint32_t[2 * nPoints]());
    const size_t nMarkers = StoreMarkerVertices(Layout, Set, pTaken.get(), pVertices.get());
    pCanvas->Polygons(pVertices.get(), pCounts.get(), nMarkers, Set.m_crColor);
    return 1;
}

static int DrawLine(const cPlotLayout &Layout, const cVantorDataSet &Set, cMessageBoxes *pBoxes,
                    cPlotCanvas *pCanvas)
{
    const size_t                    nVertices = CountLineVertices(Set);
    const std::unique_ptr<cPoint[]> pVertices = AllocateVertices(pBoxes, nVertices);
    if (!pVertices)
        return 0;
    StoreLineVertices(Layout, Set, pVertices.get());
    pCanvas->Polyline(pVertices.get(), nVertices, PenOf(Set));
    return 1;
}

static int DrawDataLines(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas)
{
    if (Layout.m_Plot.IsEmpty())
        return 1;
    const cClipGuard Clip(pCanvas, Layout.m_Plot);
    for (const cVantorDataSet *pSet = Plot.DataSet(1); pSet; pSet = pSet->m_pNext)
    {
        const auto pDraw = IsDrawnAsMarkers(*pSet) ? DrawMarkers : DrawLine;
        if (!pDraw(Layout, *pSet, Plot.Boxes(), pCanvas))
            return 0;
    }
    return 1;
}

int DrawPlot(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas)
{
    const cVantorPlotSettings &Settings = Plot.Settings();
    DrawTitle(Layout, Settings.m_szTitle, Settings.m_crText, pCanvas);
    DrawVertAxis(Layout, Plot, pCanvas);
    DrawHorzAxis(Layout, Plot, pCanvas);
    DrawAxisLabel(Layout, Plot, pCanvas);
    if (!DrawDataLines(Layout, Plot, pCanvas))
        return 0;
    if (Layout.m_nKind != ptScreen && Settings.m_bLegend)
        DrawPrintLegend(Layout, Plot, pCanvas);
    return 1;
}

void DrawAddedPoint(const cPlotLayout &Layout, const cVantorDataSet &Set, cPlotCanvas *pCanvas)
{
    if (Layout.m_Plot.IsEmpty())
        return;
    const cClipGuard Clip(pCanvas, Layout.m_Plot);
    if (IsDrawnAsMarkers(Set))
    {
        cPoint        Corners[kMostCorners];
        const int32_t nCorners = MarkerCorners(Set.m_nStyle);
        StoreMarker(Set.m_nStyle, Layout.PixelOf(Set, Set.m_nPoints - 1), Corners, Layout.m_Scale);
        pCanvas->Polygons(Corners, &nCorners, 1, Set.m_crColor);
        return;
    }
    cPoint       Vertices[3];
    const size_t nVertices = StoreAddedVertices(Layout, Set, Vertices);
    pCanvas->Polyline(Vertices, nVertices, PenOf(Set));
}

// In the middle of its band, or from its left edge where it is too long: then
// its beginning is seen.
void DrawTitle(const cPlotLayout &Layout, const char *szText, uint32_t crText, cPlotCanvas *pCanvas)
{
    if (szText[0] == '\0')
        return;
    const cRect &Band = Layout.m_Title;
    if (pCanvas->TextWidth(szText) > Band.Width())
        pCanvas->Label({Band.m_nLeft, Band.m_nTop}, alLeft, szText, crText);
    else
        pCanvas->Label({(Band.m_nLeft + Band.m_nRight) / 2, Band.m_nTop}, alCenter, szText, crText);
}
