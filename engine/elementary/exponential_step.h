// exponential_step.h - the common end of all exponentials: a row of a table times
// a short series. After P. T. P. Tang, "Table-driven implementation of the
// exponential function in IEEE floating-point arithmetic" (1989).

#ifndef ENGINE_ELEMENTARY_EXPONENTIAL_STEP_H
#define ENGINE_ELEMENTARY_EXPONENTIAL_STEP_H

#include "engine/elementary/tables.h"

// Powers are divided by ln 2/512.
const int kStepsLog2 = 9;

// Relative error of ExpOfRest, and of Rounds with it: the product of row and rest,
// its sum with the smaller terms and that with the bound are below 2^-9 of the row
// and rounded once each, by 2^-63. The series leaves out less than 2^-72.
const double kExpError = 0x1.9p-62;

// 2^(nSteps/512) times e^(dHigh + dLow), apart from whole powers of 2, for a rest
// of at most ln 2/1024 = 2^-10.5 whose low part is below 2^-15.
static inline cDoublePair ExpOfRest(int nSteps, double dHigh, double dLow)
{
    const cDoublePair &Row     = kTwoTo[nSteps & ((1 << kStepsLog2) - 1)];
    const double       d       = dHigh + dLow;
    const double       dSquare = d * d;
    const double       dSeries = (0.5 + d * (1.0 / 6)) + dSquare * (1.0 / 24 + d * (1.0 / 120));
    const double       dTail   = dLow + dSquare * dSeries;
    return {Row.m_dHigh, (Row.m_dLow + Row.m_dHigh * dHigh) + Row.m_dHigh * dTail};
}

// Times a power of two, where the result is a normal number.
static inline double Scaled(double dValue, int nExponent)
{
    return FromBits(BitsOf(dValue) + (static_cast<uint64_t>(nExponent) << 52));
}

#endif
