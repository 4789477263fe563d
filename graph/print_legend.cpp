#include "graph/print_legend.h"

#include <algorithm>

#include "graph/plot_vertices.h"

static const double kSampleInches = 0.75;  // the line column, its gap excluded
static const double kGapFactor    = 1.25;  // of a column's width to the next column
static const int    kSampleIndent = 10;    // pixels before a sample

static const char *const kLineHeading  = " line";
static const char *const kLabelHeading = "label";
static const char *const kMinHeading   = "min";
static const char *const kMaxHeading   = "max";

namespace
{

// Distances of the columns from the left edge of the legend.
struct cColumns
{
    int m_nSampleEnd;
    int m_nLabel;
    int m_nMin;
    int m_nMax;
    int m_bExtents;  // min and max fit into the legend
};

}  // namespace

static int WithGap(double dWidth)
{
    return static_cast<int>(kGapFactor * dWidth);
}

static int ExtentWidth(const cPlotCanvas &Canvas, float fValue)
{
    char szValue[kValueText];
    FormatValue(static_cast<double>(fValue), szValue);
    return Canvas.TextWidth(szValue);
}

static cColumns MeasureColumns(const cPlotLayout &Layout, const cVantorPlot &Plot,
                               const cPlotCanvas &Canvas)
{
    int nLabel = Canvas.TextWidth(kLabelHeading);
    int nMin   = Canvas.TextWidth(kMinHeading);
    int nMax   = Canvas.TextWidth(kMaxHeading);
    for (const cVantorDataSet *pSet = Plot.DataSet(1); pSet; pSet = pSet->m_pNext)
    {
        nLabel = std::max(nLabel, Canvas.TextWidth(pSet->m_pszLabel.get()));
        nMin   = std::max(nMin, ExtentWidth(Canvas, pSet->m_fYMin));
        nMax   = std::max(nMax, ExtentWidth(Canvas, pSet->m_fYMax));
    }
    const double dSample  = kSampleInches * Layout.m_nLegendInch;
    const double dHeading = Canvas.TextWidth(kLineHeading);
    cColumns     Columns;
    Columns.m_nSampleEnd = static_cast<int>(dSample);
    Columns.m_nLabel     = WithGap(std::max(dSample, dHeading));
    Columns.m_nMin       = Columns.m_nLabel + WithGap(nLabel);
    Columns.m_nMax       = Columns.m_nMin + WithGap(nMin);
    Columns.m_bExtents   = Columns.m_nMax + nMax <= Layout.m_Legend.Width();
    return Columns;
}

static void DrawFrame(const cPlotLayout &Layout, const cPlotPen &Pen, cPlotCanvas *pCanvas)
{
    const cRect   &Area      = Layout.m_Legend;
    const int      nRight    = Area.m_nRight - 1;
    const int      nBottom   = Area.m_nBottom - 1;
    const int      nRule     = Area.m_nTop + Layout.m_nTextHeight;
    const cPoint   Lines[]   = {{Area.m_nLeft, Area.m_nTop}, {nRight, Area.m_nTop},
                                {nRight, nBottom},           {Area.m_nLeft, nBottom},
                                {Area.m_nLeft, Area.m_nTop}, {Area.m_nLeft, nRule},
                                {Area.m_nRight, nRule}};
    const uint32_t nCounts[] = {5, 2};
    pCanvas->Polylines(Lines, nCounts, 2, Pen);
}

static void DrawText(const cPlotLayout &Layout, int nColumn, int nTop, const char *szText,
                     uint32_t crText, cPlotCanvas *pCanvas)
{
    pCanvas->Label({Layout.m_Legend.m_nLeft + nColumn, nTop}, alLeft, szText, crText);
}

static void DrawExtent(const cPlotLayout &Layout, int nColumn, int nTop, float fValue,
                       uint32_t crText, cPlotCanvas *pCanvas)
{
    char szValue[kValueText];
    FormatValue(static_cast<double>(fValue), szValue);
    DrawText(Layout, nColumn, nTop, szValue, crText, pCanvas);
}

static void DrawHeadings(const cPlotLayout &Layout, const cColumns &Columns, uint32_t crText,
                         cPlotCanvas *pCanvas)
{
    const int nTop = Layout.m_Legend.m_nTop;
    DrawText(Layout, 0, nTop, kLineHeading, crText, pCanvas);
    DrawText(Layout, Columns.m_nLabel, nTop, kLabelHeading, crText, pCanvas);
    if (!Columns.m_bExtents)
        return;
    DrawText(Layout, Columns.m_nMin, nTop, kMinHeading, crText, pCanvas);
    DrawText(Layout, Columns.m_nMax, nTop, kMaxHeading, crText, pCanvas);
}

// The sample is a line for every type of set.
static void DrawRow(const cPlotLayout &Layout, const cColumns &Columns, const cVantorDataSet &Set,
                    int nTop, uint32_t crText, cPlotCanvas *pCanvas)
{
    const int    nLeft    = Layout.m_Legend.m_nLeft;
    const int    nMiddle  = nTop + Layout.m_nTextHeight / 2;
    const cPoint Sample[] = {{nLeft + kSampleIndent, nMiddle},
                             {nLeft + Columns.m_nSampleEnd, nMiddle}};
    pCanvas->Polyline(Sample, 2, PenOf(Set));
    DrawText(Layout, Columns.m_nLabel, nTop, Set.m_pszLabel.get(), crText, pCanvas);
    if (!Columns.m_bExtents)
        return;
    DrawExtent(Layout, Columns.m_nMin, nTop, Set.m_fYMin, crText, pCanvas);
    DrawExtent(Layout, Columns.m_nMax, nTop, Set.m_fYMax, crText, pCanvas);
}

void DrawPrintLegend(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas)
{
    if (Layout.m_Legend.IsEmpty())
        return;
    const cVantorPlotSettings &Settings = Plot.Settings();
    const cColumns             Columns  = MeasureColumns(Layout, Plot, *pCanvas);
    const cClipGuard           Clip(pCanvas, Layout.m_Legend);
    DrawFrame(Layout, {0, 1, Settings.m_crAxis}, pCanvas);
    DrawHeadings(Layout, Columns, Settings.m_crText, pCanvas);
    int nTop = Layout.m_Legend.m_nTop + Layout.m_nTextHeight;
    for (const cVantorDataSet *pSet = Plot.DataSet(1); pSet && nTop < Layout.m_Legend.m_nBottom;
         pSet                       = pSet->m_pNext)
    {
        DrawRow(Layout, Columns, *pSet, nTop, Settings.m_crText, pCanvas);
        nTop += Layout.m_nTextHeight;
    }
}
