#include "figure/clipped_segment.h"

#include <algorithm>
#include <cmath>

// Moves the ends to where one of their coordinates is between two bounds, exactly on
// these. Returns 0 if no part of the line is there.
static int ClipBetween(double cSpot::*pCoordinate, double cSpot::*pOther, double dLeast,
                       double dMost, cSpot *pFrom, cSpot *pTo)
{
    const cSpot  Start = *pFrom;
    const double dStep = pTo->*pCoordinate - Start.*pCoordinate;
    const double dRise = pTo->*pOther - Start.*pOther;
    if (std::max(Start.*pCoordinate, pTo->*pCoordinate) < dLeast ||
        std::min(Start.*pCoordinate, pTo->*pCoordinate) > dMost)
        return 0;
    for (cSpot *const pEnd : {pFrom, pTo})
    {
        const double dAt = std::clamp(pEnd->*pCoordinate, dLeast, dMost);
        if (dAt == pEnd->*pCoordinate)
            continue;
        pEnd->*pOther      = Start.*pOther + (dAt - Start.*pCoordinate) / dStep * dRise;
        pEnd->*pCoordinate = dAt;
    }
    return 1;
}

int ClipSegment(const cFigureBox &Box, cSpot *pFrom, cSpot *pTo)
{
    return std::isfinite(pTo->m_dX - pFrom->m_dX) && std::isfinite(pTo->m_dY - pFrom->m_dY) &&
           ClipBetween(&cSpot::m_dX, &cSpot::m_dY, Box.m_dLeft, Box.m_dRight, pFrom, pTo) &&
           ClipBetween(&cSpot::m_dY, &cSpot::m_dX, Box.m_dTop, Box.m_dBottom, pFrom, pTo);
}
