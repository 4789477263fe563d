// marker_grid.h - which places of a frame have a marker, so that each is drawn once.

#ifndef FIGURE_MARKER_GRID_H
#define FIGURE_MARKER_GRID_H

#include <cstddef>
#include <vector>

#include "figure/figure_canvas.h"

class cMarkerGrid
{
public:
    // Places are squares of a quarter of a pixel, and larger in frames beyond some
    // 2000 by 2000 pixels, for which the memory of a grid is limited to 8 MB.
    explicit cMarkerGrid(const cFigureBox &Frame);

    // 1 if the spot is within the frame, and the first at its place.
    int Take(const cSpot &Spot);

private:
    cFigureBox        m_Frame;
    double            m_dPerPixel;
    size_t            m_nColumns;
    std::vector<bool> m_Taken;  // row by row
};

#endif
