// plot_range.h - the automatic range of a plot: round bounds around all data
// sets and a number of ticks that suits the window.
// No plot state, no window, no locale.

#ifndef GRAPH_PLOT_RANGE_H
#define GRAPH_PLOT_RANGE_H

#include <cstdint>

class cVantorDataSet;

// The largest number of ticks drawn on an axis.
const uint32_t kMostTicks = 26;

// What an axis shows, from its first to its last tick. The minimum is above
// the maximum if the user has set it so.
struct cPlotRange
{
    uint32_t m_nHorzTicks;
    uint32_t m_nVertTicks;
    float    m_fXMin;
    float    m_fXMax;
    float    m_fYMin;
    float    m_fYMax;
};

inline bool operator==(const cPlotRange &a, const cPlotRange &b)
{
    return a.m_nHorzTicks == b.m_nHorzTicks && a.m_nVertTicks == b.m_nVertTicks &&
           a.m_fXMin == b.m_fXMin && a.m_fXMax == b.m_fXMax && a.m_fYMin == b.m_fYMin &&
           a.m_fYMax == b.m_fYMax;
}

// A bound pushed outwards by 0.05 % and then rounded to three significant
// digits, to the nearest: 1234 becomes 1230 either way. Up is for maxima, down
// for minima: 9.875 becomes 9.88 as a maximum and 9.87 as a minimum.
double RoundUp(double dValue);
double RoundDown(double dValue);

// How many ticks suit a client area of this size: 2 to 8, and 2 to 6 or 11.
uint32_t HorzTickCount(int nWidth);
uint32_t VertTickCount(int nHeight, int bLegend);

class cRangeFinder
{
public:
    // The range for a client area of this size around all data sets from pFirst on.
    // Without any: 6 ticks and 0 to 10 both ways. Bounds that have not changed since
    // the last call are not rounded again.
    cPlotRange Find(const cVantorDataSet *pFirst, int nWidth, int nHeight, int bLegend);

private:
    // A bound and what it was rounded to.
    struct cBound
    {
        float Round(double dValue, double (*pRound)(double));

        int      m_bFound   = 0;
        uint64_t m_nBits    = 0;
        float    m_fRounded = 0.0F;
    };

    cBound m_XMin;
    cBound m_XMax;
    cBound m_YMin;
    cBound m_YMax;
};

#endif
