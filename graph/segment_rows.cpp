#include "graph/segment_rows.h"

#include <algorithm>
#include <cmath>

// A horizontal band is as high as it is wide, and a vertical one as wide as that.
static int Before(double dWidth)
{
    return static_cast<int>(dWidth / 2.0);
}

static int After(double dWidth)
{
    return static_cast<int>(std::ceil(dWidth / 2.0));
}

int64_t cSegmentRows::Fixed(double dPixels)
{
    return std::llround(std::ldexp(dPixels, kFractionBits));
}

cSegmentRows::cSegmentRows(cPoint From, cPoint To, double dWidth)
    : m_nTop(std::min(From.m_nY, To.m_nY)), m_nBottom(std::max(From.m_nY, To.m_nY) + 1),
      m_nLeft(std::min(From.m_nX, To.m_nX)), m_nRight(std::max(From.m_nX, To.m_nX) + 1),
      m_nMiddle(Fixed(From.m_nX)), m_nSlope(0), m_nHalf(Fixed(m_nRight - m_nLeft))
{
    const double dX = To.m_nX - From.m_nX;
    const double dY = To.m_nY - From.m_nY;
    if (std::fabs(dX) < std::fabs(dY))
    {
        m_nLeft -= Before(dWidth);
        m_nRight += After(dWidth) - 1;
    }
    else
    {
        m_nTop -= Before(dWidth);
        m_nBottom += After(dWidth) - 1;
    }
    if (dY == 0.0)
        return;
    m_nMiddle = Fixed(From.m_nX + dX / dY * (m_nTop - From.m_nY));
    m_nSlope  = Fixed(dX / dY);
    m_nHalf   = Fixed(dWidth / 2.0 * std::sqrt(dX * dX + dY * dY) / std::fabs(dY));
}
