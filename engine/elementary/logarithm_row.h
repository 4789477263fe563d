// logarithm_row.h - how an argument is divided for its logarithm: a power of 2, a
// row of the table, and a significand near the middle of that row.

#ifndef ENGINE_ELEMENTARY_LOGARITHM_ROW_H
#define ENGINE_ELEMENTARY_LOGARITHM_ROW_H

#include "engine/elementary/tables.h"

struct cLogArgument
{
    int    m_nExponent;
    int    m_nRow;          // 0 to 127
    double m_dSignificand;  // 0.709 to 1.418
};

// For positive, finite numbers: m_dSignificand times 2 to the m_nExponent.
static inline cLogArgument SplitForLog(double dValue)
{
    const double kTwoTo52 = 4503599627370496.0;
    uint64_t     nBits    = BitsOf(dValue);
    int          nShift   = 0;
    if (nBits <= kSignificand)
    {
        nBits  = BitsOf(dValue * kTwoTo52);
        nShift = 52;
    }
    const uint64_t nFromFirst = nBits - kLogFirst;
    const auto     nExponent  = static_cast<int64_t>(nFromFirst) >> 52;
    return {static_cast<int>(nExponent) - nShift, static_cast<int>(nFromFirst >> 45 & 127),
            FromBits(nBits - (static_cast<uint64_t>(nExponent) << 52))};
}

#endif
