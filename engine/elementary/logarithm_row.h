// logarithm_row.h - how an argument is divided for its logarithm: a power of 2, a
// row of the table, and a significand near the middle of that row; and what that
// leaves to a series.

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

// The logarithm of an argument is that of 1 + m_Rest, plus the table's part.
struct cLogRest
{
    cDoublePair m_Rest;  // up to 2^-7.7
    double      m_dTable;
    double      m_dTableLow;
};

// The rest is significand times inverse, minus 1, exactly, because the inverse has
// 11 bits. So is the table's high part; the low one is below 2^-33, and 0 in the
// row of 1.
static inline cLogRest DivideByRow(const cLogArgument &Argument)
{
    const cLogRow &Row      = kLogRows[Argument.m_nRow];
    const double   dScale   = Argument.m_nExponent;
    const double   dLeading = Leading<32>(Argument.m_dSignificand);
    return {FastTwoSum(dLeading * Row.m_dInverse - 1.0,
                       (Argument.m_dSignificand - dLeading) * Row.m_dInverse),
            dScale * kLn2High + Row.m_dLogHigh, dScale * kLn2Low + Row.m_dLogLow};
}

#endif
