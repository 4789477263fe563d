// plot_reader.h - finds axes and ticks, black on white, in a picture of the graph, and
// from them the position of a value.

#ifndef TESTS_WINDOW_PLOT_READER_H
#define TESTS_WINDOW_PLOT_READER_H

#include "toolkit/win32/win32.h"

#include "tests/window/graph_window.h"
#include "tests/window/picture.h"

struct cSeenPlot
{
    // The picture has no grid and no data line along an axis.
    explicit cSeenPlot(const cPicture &Picture);

    RECT m_Rect;        // right column and bottom row are those of the axes
    int  m_nHorzTicks;  // ticks on the axes
    int  m_nVertTicks;
};

// The range of the axes, read from the dialog that changes it.
struct cSeenRange
{
    explicit cSeenRange(cCalculator *pCalculator, cGraphWindow *pGraph);

    unsigned m_nHorzTicks;
    unsigned m_nVertTicks;
    double   m_dXMin;
    double   m_dXMax;
    double   m_dYMin;
    double   m_dYMax;
};

// The pixel of a value in a plot with this rectangle and range.
POINT PixelOf(const RECT &Plot, const cSeenRange &Range, double dX, double dY);

// The number of pixels that are not white, or that differ in two pictures of one
// size.
int CountInk(const cPicture &Picture);
int CountDifferences(const cPicture &a, const cPicture &b);

#endif
