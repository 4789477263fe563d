// column_runs.h - shortens a line of very many vertices without changing its
// look: a solid line that moves up and down within one column of pixels.

#ifndef GRAPH_COLUMN_RUNS_H
#define GRAPH_COLUMN_RUNS_H

#include <cstddef>

#include "graph/plot_canvas.h"

// Of each run of vertices in one column, its first, its highest, its lowest and
// its last are kept; the last vertex of the line is always kept by itself, as
// the platform does not draw its pixel. pMerged has room for nVertices. Returns
// how many are stored: 12,800 samples of a sine on 600 columns leave some 2400.
size_t MergeColumns(const cPoint *pVertices, size_t nVertices, cPoint *pMerged);

#endif
