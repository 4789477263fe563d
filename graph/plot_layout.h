// plot_layout.h - the positions of everything in a plot. They are first computed
// into a plain struct, which drawing and the readout of points use.

#ifndef GRAPH_PLOT_LAYOUT_H
#define GRAPH_PLOT_LAYOUT_H

#include <cstdint>

#include "graph/plot_canvas.h"
#include "graph/plot_range.h"
#include "graph/plot_ticks.h"
#include "graph/vantor_data_set.h"
#include "toolkit/scale.h"

class cVantorPlot;

enum ePlotTarget
{
    ptScreen,  // the legend is a list window
    ptImage,   // the legend is drawn below the plot
    ptPrinter  // as ptImage, with ticks that suit the paper
};

// The list window that is the legend on the screen. Other targets need none.
struct cLegendList
{
    int m_nRowHeight;  // pixels, above 0
    int m_nBorders;    // the window's height above that of its client area
};

// The target of a layout.
struct cPlotTarget
{
    ePlotTarget m_nKind;
    cRect       m_Rect;
    cLegendList m_LegendList = {1, 0};
    int         m_bTurned    = 0;         // a drawn legend measures inches along y
    cScale      m_Scale      = cScale();  // of a screen
};

// The platform's drawing functions use 16-bit coordinates: a point is drawn at
// most this many pixels from the corner of the plot.
const double kMostDistance = 16383.0;

struct cPlotLayout
{
    // The pixel of a value of the x axis and of the y axis.
    int PixelX(double dX) const { return m_Plot.m_nLeft + Distance((dX - m_dXMin) * m_dHorzScale); }
    int PixelY(double dY) const { return m_Plot.m_nTop + Distance((m_dYMax - dY) * m_dVertScale); }

    // Of a stored point of a set.
    cPoint PixelOf(const cVantorDataSet &Set, uint32_t nPoint) const
    {
        return {PixelX(static_cast<double>(Set.X(nPoint))),
                PixelY(PlottedY(Set, Set.m_pY[nPoint]))};
    }

    // Scaled distances are limited before they are rounded.
    static int Distance(double dPixels)
    {
        const double dLeast = dPixels > -kMostDistance ? dPixels : -kMostDistance;
        return RoundToPixel(dLeast < kMostDistance ? dLeast : kMostDistance);
    }

    ePlotTarget m_nKind;
    cPlotRange  m_Range;        // tick counts are at most kMostTicks
    double      m_dXMin;        // = m_Range.m_fXMin
    double      m_dYMax;        // = m_Range.m_fYMax
    double      m_dHorzScale;   // pixels per unit, below 0 for a range that runs
    double      m_dVertScale;   //   backwards; DBL_MIN for one of no extent
    cRect       m_Plot;         // data are drawn and clipped here
    cRect       m_Title;        // no height without a title
    cRect       m_Legend;       // no height without a legend
    int         m_nTextHeight;  // of the font that was measured
    int         m_nTickLength;
    int         m_nLabelTop;    // of the numbers below the horizontal axis
    int         m_nLegendInch;  // pixels per inch of the drawn legend
    cScale      m_Scale;        // of markers
};

// Lays out the plot for the target and the font of the canvas.
cPlotLayout LayOutPlot(const cVantorPlot &Plot, const cPlotTarget &Target,
                       const cPlotCanvas &Canvas);

#endif
