// svg_file.h - a plot as an SVG file, with the legend drawn below it.

#ifndef GRAPH_SVG_FILE_H
#define GRAPH_SVG_FILE_H

#include "graph/vantor_plot.h"

// Writes a picture of nWidth by nHeight pixels. Returns 0 when szFile could not
// be written, or memory ran out and the user gave up; then what was there before
// is unchanged.
int SaveSvgFile(const cVantorPlot &Plot, int nWidth, int nHeight, const char *szFile);

#endif
