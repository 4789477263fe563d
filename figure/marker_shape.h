// marker_shape.h - the corners of markers, in parts of their size.

#ifndef FIGURE_MARKER_SHAPE_H
#define FIGURE_MARKER_SHAPE_H

#include <span>

#include "figure/figure_canvas.h"

// Relative to the point, y down, for a marker of size 1. Empty for a circle.
std::span<const cSpot> CornersOfMarker(uint32_t nShape);

#endif
