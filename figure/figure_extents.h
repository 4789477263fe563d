// figure_extents.h - what the first reading of a figure's points finds out.

#ifndef FIGURE_FIGURE_EXTENTS_H
#define FIGURE_FIGURE_EXTENTS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "figure/figure.h"
#include "figure/point_source.h"

struct cLineExtent
{
    uint64_t m_nPoints  = 0;    // that the axes have a place for
    double   m_dLastX   = 0.0;  // of these
    double   m_dSpacing = 1.0;  // from the second last x to the last, 1 with one point
};

struct cFigureExtents
{
    std::vector<cLineExtent> m_Lines;  // one for each of the source
    cValueExtent             m_X;      // of what is visible
    cValueExtent             m_Y;
    uint64_t                 m_nPoints       = 0;
    uint64_t                 m_nWithoutPlace = 0;  // not above 0 on a logarithmic axis
};

// A bound that the user has set on one axis leaves out, on the other one, what is
// beyond it; of a line that crosses it the visible part counts. Bars need a place from 0 up, and for the width of the last one.
// Returns 0 when reading failed.
int FindExtents(const cFigure &Figure, cPointSource *pSource, cFigureExtents *pExtents);

#endif
