#include "graph/plot_layout.h"

#include <algorithm>
#include <cfloat>
#include <cstdio>

#include "graph/vantor_plot.h"

static const int kRasterTick    = 2;   // pixels at 96 dots per inch
static const int kTicksPerInch  = 20;  // a tick on paper is a twentieth of an inch
static const int kGapBelowTicks = 3;   // pixels between a tick and its label

static int ValueWidth(const cPlotCanvas &Canvas, double dValue, const char *szSuffix)
{
    char szValue[kValueText];
    char szLabel[kValueText + 1];
    FormatValue(dValue, szValue);
    snprintf(szLabel, sizeof szLabel, "%s%s", szValue, szSuffix);
    return Canvas.TextWidth(szLabel);
}

static int LeftMargin(const cPlotRange &Range, int nWidth, const cPlotCanvas &Canvas)
{
    const cTickValues Values(Range.m_fYMax, Range.m_fYMin, Range.m_nVertTicks);
    int               nWidest = ValueWidth(Canvas, static_cast<double>(Range.m_fXMin), "");
    for (uint32_t nTick = 0; nTick < Range.m_nVertTicks; nTick++)
        nWidest = std::max(nWidest, ValueWidth(Canvas, Values.Value(nTick), " "));
    return std::min(nWidest + Canvas.TextWidth("M"), nWidth / 2);
}

// The bound is that of the bottom margin, a third of the height, on purpose.
static int RightMargin(const cPlotRange &Range, int nHeight, const cPlotCanvas &Canvas)
{
    const int nHalfLabel = ValueWidth(Canvas, static_cast<double>(Range.m_fXMax), "") / 2;
    return std::min(nHalfLabel + Canvas.TextWidth("M"), nHeight / 3);
}

static int BottomMargin(const cPlotLayout &Layout, int bLabel, int nHeight)
{
    const int nTexts = bLabel ? 2 : 1;
    return std::min(Layout.m_nTickLength + nTexts * Layout.m_nTextHeight +
                        Layout.m_Scale.Length(kGapBelowTicks),
                    nHeight / 3);
}

// The list shows as many rows as there are sets and as the user allows, but
// leaves half of the height for the plot.
static int ListHeight(const cVantorPlot &Plot, const cLegendList &List, int nHeight)
{
    uint32_t nRows = std::max(std::min(Plot.Count(), Plot.LegendRows()), uint32_t{1});
    nRows = std::min(nRows, static_cast<uint32_t>(std::max(nHeight / 2 / List.m_nRowHeight, 1)));
    return static_cast<int>(nRows) * List.m_nRowHeight + List.m_nBorders;
}

// A row of headings and one for each set.
static int DrawnLegendHeight(const cVantorPlot &Plot, int nTextHeight, int nHeight)
{
    const int64_t nWanted = (int64_t{1} + Plot.Count()) * nTextHeight;
    return static_cast<int>(std::min(nWanted, static_cast<int64_t>(nHeight / 2)));
}

static int LegendHeight(const cVantorPlot &Plot, const cPlotTarget &Target, int nTextHeight)
{
    if (!Plot.Settings().m_bLegend)
        return 0;
    const int nHeight = Target.m_Rect.Height();
    return Target.m_nKind == ptScreen ? ListHeight(Plot, Target.m_LegendList, nHeight)
                                      : DrawnLegendHeight(Plot, nTextHeight, nHeight);
}

static double Scale(int nPixels, float fMin, float fMax)
{
    const double dExtent = static_cast<double>(fMax) - static_cast<double>(fMin);
    return dExtent == 0.0 ? DBL_MIN : nPixels / dExtent;
}

static void PlacePlot(const cVantorPlot &Plot, const cRect &Rect, const cPlotCanvas &Canvas,
                      cPlotLayout *pLayout)
{
    const int bLabel  = Plot.Settings().m_szHorzLabel[0] != '\0';
    cRect    &Area    = pLayout->m_Plot;
    Area.m_nLeft      = Rect.m_nLeft + LeftMargin(pLayout->m_Range, Rect.Width(), Canvas);
    Area.m_nRight     = Rect.m_nRight - RightMargin(pLayout->m_Range, Rect.Height(), Canvas);
    Area.m_nBottom    = pLayout->m_Legend.m_nTop - BottomMargin(*pLayout, bLabel, Rect.Height());
    const int nWanted = pLayout->m_Title.m_nBottom + pLayout->m_nTextHeight / 2;
    Area.m_nTop       = std::min(nWanted, Area.m_nBottom);
    pLayout->m_nLabelTop =
        Area.m_nBottom + pLayout->m_nTickLength + pLayout->m_Scale.Length(kGapBelowTicks);
    const cPlotRange &Range = pLayout->m_Range;
    pLayout->m_dHorzScale   = Scale(Area.Width() - 1, Range.m_fXMin, Range.m_fXMax);
    pLayout->m_dVertScale   = Scale(Area.Height(), Range.m_fYMin, Range.m_fYMax);
}

cPlotLayout LayOutPlot(const cVantorPlot &Plot, const cPlotTarget &Target,
                       const cPlotCanvas &Canvas)
{
    const cRect &Rect   = Target.m_Rect;
    const int    bTitle = Plot.Settings().m_szTitle[0] != '\0';
    const int    nInchX = Canvas.PixelsPerInchX();

    cPlotLayout Layout;
    Layout.m_nKind       = Target.m_nKind;
    Layout.m_Range       = Plot.Range();
    Layout.m_dXMin       = static_cast<double>(Layout.m_Range.m_fXMin);
    Layout.m_dYMax       = static_cast<double>(Layout.m_Range.m_fYMax);
    Layout.m_nTextHeight = Canvas.TextHeight();
    Layout.m_Scale       = Target.m_Scale;
    Layout.m_nTickLength =
        Target.m_nKind == ptPrinter ? nInchX / kTicksPerInch : Target.m_Scale.Length(kRasterTick);
    Layout.m_nLegendInch     = Target.m_bTurned ? Canvas.PixelsPerInchY() : nInchX;
    Layout.m_Title           = Rect;
    Layout.m_Title.m_nBottom = Rect.m_nTop + (bTitle ? Layout.m_nTextHeight : 0);
    Layout.m_Legend          = Rect;
    Layout.m_Legend.m_nTop   = Rect.m_nBottom - LegendHeight(Plot, Target, Layout.m_nTextHeight);
    PlacePlot(Plot, Rect, Canvas, &Layout);
    return Layout;
}
