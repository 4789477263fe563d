// dashed_line.h - the pixels of a dashed line of one pixel.
// Pure: no canvas, no device.

#ifndef GRAPH_DASHED_LINE_H
#define GRAPH_DASHED_LINE_H

#include <cstddef>
#include <cstdint>

#include "graph/pixel_mask.h"

// Strokes and gaps repeat after so many pixels, in all styles of the platform.
const int kDashPeriod = 24;

// Covers the strokes of the line through nPoints points as far as they are in the
// area of the mask. Bit i of nStrokes is 1 if pixel i of each period is part of a
// stroke. Pixels are counted along the line, in the direction in which a segment has
// more of them, and go on from segment to segment. As on the platform, a segment has
// its first pixel but not its last one.
void CoverDashedLine(const cPoint *pPoints, size_t nPoints, uint32_t nStrokes, cPixelMask *pMask);

#endif
