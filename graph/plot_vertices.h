// plot_vertices.h - a data set as the vertices that are drawn.
// Pure: no canvas, no allocation.

#ifndef GRAPH_PLOT_VERTICES_H
#define GRAPH_PLOT_VERTICES_H

#include <cstddef>

#include "graph/plot_layout.h"

const int kMostCorners = 4;  // of a marker

inline cPlotPen PenOf(const cVantorDataSet &Set)
{
    return {Set.m_nStyle, Set.m_nWidth, Set.m_crColor};
}

// Markers are drawn for scattered points, and for a single point, whatever the
// type of its set.
int IsDrawnAsMarkers(const cVantorDataSet &Set);

// The number of corners of a marker of this style: 3 or 4.
int MarkerCorners(uint32_t nStyle);

// Stores the corners of a marker around At; returns the place after them.
cPoint *StoreMarker(uint32_t nStyle, cPoint At, cPoint *pVertices, const cScale &Scale = cScale());

// How many vertices the line of a set has that is not drawn as markers: n for
// Plot, 2 n - 1 for StairStep, 2 n + 2 for Stoop.
size_t CountLineVertices(const cVantorDataSet &Set);

// Stores them. StairStep goes from each point to the next horizontally first.
// Stoop begins at the bottom of the plot below its first point and ends there
// after its last point, one spacing further: the outline of bars.
void StoreLineVertices(const cPlotLayout &Layout, const cVantorDataSet &Set, cPoint *pVertices);

// Stores the markers of a set, MarkerCorners vertices for each point, and returns
// how many markers there are. A marker on the pixel of an earlier one is left out,
// as it would not be seen. pTaken has 2 * m_nPoints elements, all of them 0, in which
// the pixels are found again; without it (null) all markers are stored.
size_t StoreMarkerVertices(const cPlotLayout &Layout, const cVantorDataSet &Set, uint32_t *pTaken,
                           cPoint *pVertices);

// What the last of at least two points adds to the line: stores 2 or 3 vertices,
// beginning with the point before it, and returns how many.
size_t StoreAddedVertices(const cPlotLayout &Layout, const cVantorDataSet &Set,
                          cPoint (&Vertices)[3]);

#endif
