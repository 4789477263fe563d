// nearest_point.h - the data point under the mouse.
// Pure: plot and layout in, no window.

#ifndef GRAPH_NEAREST_POINT_H
#define GRAPH_NEAREST_POINT_H

#include <cstdint>

#include "graph/plot_layout.h"
#include "graph/vantor_plot.h"

struct cNearestPoint
{
    uint32_t m_nLine;   // data line, from 1
    uint32_t m_nIndex;  // of the point in it, from 0
    cPoint   m_Pixel;   // where the layout puts it
};

// 1 within the rectangle of the plot; its left and upper edges belong to it,
// the right and lower ones do not.
int IsInPlot(const cPlotLayout &Layout, cPoint At);

// The point of all data lines, shown or beyond the view, whose pixel is nearest
// to At, horizontal and vertical distance added up. Of those at the same
// distance the last one is taken, of the last data line. 0 if there is no data.
int FindNearestPoint(const cPlotLayout &Layout, const cVantorPlot &Plot, cPoint At,
                     cNearestPoint *pFound);

#endif
