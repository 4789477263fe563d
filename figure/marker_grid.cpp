#include "figure/marker_grid.h"

#include <algorithm>
#include <cmath>

#include "figure/line_tracer.h"

static const double kMostPlaces = 8.0 * 8 * 1024 * 1024;

// A spot on the right or the lower edge has a place, too.
cMarkerGrid::cMarkerGrid(const cFigureBox &Frame)
    : m_Frame(Frame), m_dPerPixel(kColumnsPerPixel), m_nColumns(0)
{
    const double dArea = std::max(Frame.Width(), 1.0) * std::max(Frame.Height(), 1.0);
    m_dPerPixel        = std::min(m_dPerPixel, std::sqrt(kMostPlaces / dArea));
    m_nColumns         = static_cast<size_t>(Frame.Width() * m_dPerPixel) + 1;
    m_Taken.resize(m_nColumns * (static_cast<size_t>(Frame.Height() * m_dPerPixel) + 1));
}

// A NaN is not within it.
int cMarkerGrid::Take(const cSpot &Spot)
{
    const int bInside = Spot.m_dX >= m_Frame.m_dLeft && Spot.m_dX <= m_Frame.m_dRight &&
                        Spot.m_dY >= m_Frame.m_dTop && Spot.m_dY <= m_Frame.m_dBottom;
    if (!bInside)
        return 0;
    const auto nColumn = static_cast<size_t>((Spot.m_dX - m_Frame.m_dLeft) * m_dPerPixel);
    const auto nRow    = static_cast<size_t>((Spot.m_dY - m_Frame.m_dTop) * m_dPerPixel);
    auto       Taken   = m_Taken[nRow * m_nColumns + nColumn];
    if (Taken)
        return 0;
    Taken = true;
    return 1;
}
