// plot_reader.h - finds the plot in what the graph's window shows: axes and
// ticks, black on white, and from them where a value stands.

#ifndef TESTS_WINDOW_PLOT_READER_H
#define TESTS_WINDOW_PLOT_READER_H

#include "toolkit/win32/win32.h"

#include "tests/window/graph_window.h"
#include "tests/window/picture.h"

struct cSeenPlot
{
    // Looks at a picture of the plot without grid, in which no data line is
    // drawn along an axis.
    explicit cSeenPlot(const cPicture &Picture);

    RECT m_Rect;        // right column and bottom row are those of the axes
    int  m_nHorzTicks;  // marks on the axes
    int  m_nVertTicks;
};

// The range of the axes, read in the dialog that changes it.
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

// How many pixels of a picture are not white, or not alike in two of one size.
int CountInk(const cPicture &Picture);
int CountDifferences(const cPicture &a, const cPicture &b);

#endif
