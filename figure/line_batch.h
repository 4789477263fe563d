// line_batch.h - draws data lines from a source that hands out the points of all
// lines in turn, while the canvas draws one line after the other.

#ifndef FIGURE_LINE_BATCH_H
#define FIGURE_LINE_BATCH_H

#include "figure/figure.h"
#include "figure/figure_canvas.h"
#include "figure/figure_extents.h"
#include "figure/figure_layout.h"
#include "figure/point_source.h"

// Draws all lines; a line is a group of class "line line-1" with its label as title.
// The source is read once if the vertices of all lines are few enough to be kept;
// else as often as is needed to draw some lines each time, of which the last one
// may be of any length. Memory stays below some 30 MB. Returns 0 when reading failed.
int DrawDataLines(const cFigure &Figure, const cFigureLayout &Layout, const cFigureTexts &Texts,
                  const cFigureExtents &Extents, cPointSource *pSource, cFigureCanvas *pCanvas);

// 1 for a line that is drawn as markers, as a single point is unless it is a bar.
int HasMarkers(const cLineLook &Look, const cLineExtent &Extent);

// "line line-3" for line 2, from 0.
std::string ClassesOfLine(size_t nLine);

#endif
