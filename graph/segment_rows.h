// segment_rows.h - the pixels around a straight line, row by row.
// Pure: no canvas, no device.

#ifndef GRAPH_SEGMENT_ROWS_H
#define GRAPH_SEGMENT_ROWS_H

#include <algorithm>
#include <cstdint>

#include "graph/plot_canvas.h"

// The pixels of the straight band of dWidth pixels around the segment, that has no
// caps: it ends within the box of From and To, which are two different pixels. A
// vertical band of 4 has the two columns left of its line, that of the line and one
// more.
class cSegmentRows
{
public:
    cSegmentRows(cPoint From, cPoint To, double dWidth);

    // Calls Handle(nY, nLeft, nRight) for the pixels nLeft to nRight - 1 of each row
    // that has any in the area.
    template <class cHandle> void ForEachIn(const cRect &Area, cHandle Handle) const;

private:
    // Places in units of 2^-32 pixels.
    static const int kFractionBits = 32;

    static int64_t Fixed(double dPixels);

    // The first pixel of nFirst to nAfter that is not left of nPlace, at most nAfter.
    static int FirstFrom(int64_t nPlace, int64_t nFirst, int64_t nAfter)
    {
        return static_cast<int>(std::clamp(-(-nPlace >> kFractionBits), nFirst, nAfter));
    }

    int     m_nTop;
    int     m_nBottom;
    int     m_nLeft;
    int     m_nRight;
    int64_t m_nMiddle;  // of the band, in its top row
    int64_t m_nSlope;   // to the right from one row to the next
    int64_t m_nHalf;    // from the middle to each side
};

template <class cHandle> void cSegmentRows::ForEachIn(const cRect &Area, cHandle Handle) const
{
    const int nTop    = std::max(m_nTop, Area.m_nTop);
    const int nBottom = std::min(m_nBottom, Area.m_nBottom);
    const int nLeft   = std::max(m_nLeft, Area.m_nLeft);
    const int nRight  = std::min(m_nRight, Area.m_nRight);
    if (nLeft >= nRight)
        return;
    int64_t nMiddle = m_nMiddle + m_nSlope * (nTop - m_nTop);
    for (int nY = nTop; nY < nBottom; nY++, nMiddle += m_nSlope)
    {
        const int nFirst = FirstFrom(nMiddle - m_nHalf, nLeft, nRight);
        const int nAfter = FirstFrom(nMiddle + m_nHalf, nLeft, nRight);
        if (nFirst < nAfter)
            Handle(nY, nFirst, nAfter);
    }
}

#endif
