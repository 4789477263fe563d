// clipped_segment.h - the part of a straight line that is within a box.

#ifndef FIGURE_CLIPPED_SEGMENT_H
#define FIGURE_CLIPPED_SEGMENT_H

#include "figure/figure_canvas.h"

// Moves the ends into the box, whose sides may be infinite. Returns 0 if no part is
// within it, and for coordinates whose distance is not finite.
int ClipSegment(const cFigureBox &Box, cSpot *pFrom, cSpot *pTo);

#endif
