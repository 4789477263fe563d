// plot_renderer.h - draws a plot on any canvas, using its layout.

#ifndef GRAPH_PLOT_RENDERER_H
#define GRAPH_PLOT_RENDERER_H

#include "graph/plot_layout.h"
#include "graph/vantor_plot.h"

// Draws title, axes with ticks or grid, axis label, data lines, and, unless the
// target is the screen, the legend. The caller draws the background.
// Each data line is one call of the canvas; its vertices are allocated for it. Of the
// markers of a line that are on the same pixel only one is drawn.
// Returns 0 when memory ran out and the user gave up; quit has been posted then.
int DrawPlot(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas);

// Draws what the last point of a set adds to a picture that shows the points
// before it: a marker, a line, or a step of two lines.
void DrawAddedPoint(const cPlotLayout &Layout, const cVantorDataSet &Set, cPlotCanvas *pCanvas);

// Draws the title in its place, or what a window shows there instead.
void DrawTitle(const cPlotLayout &Layout, const char *szText, uint32_t crText,
               cPlotCanvas *pCanvas);

#endif
