// print_legend.h - the legend of a picture and of a printed page: a framed
// table below the plot with a line sample, a label, and the least and greatest
// y of each data set. On the screen, a list window is the legend.

#ifndef GRAPH_PRINT_LEGEND_H
#define GRAPH_PRINT_LEGEND_H

#include "graph/plot_layout.h"
#include "graph/vantor_plot.h"

// Draws it into the legend rectangle; rows that do not fit are cut
// off. The columns "min" and "max" are left out where they do not fit.
void DrawPrintLegend(const cPlotLayout &Layout, const cVantorPlot &Plot, cPlotCanvas *pCanvas);

#endif
