// logarithms.cpp - natural and common logarithms. After P. T. P. Tang,
// "Table-driven implementation of the logarithm function in IEEE floating-point
// arithmetic" (1990).

#include <limits>

#include "engine/elementary/elementary.h"
#include "engine/elementary/logarithm_row.h"
#include "engine/elementary/wide_functions.h"

namespace
{

// The natural logarithm is the sum of the parts.
struct cLogParts
{
    cDoublePair m_Log;
    double      m_dError;
};

}  // namespace

// The series is rounded six times, leaves out 2^-56 of itself, and without the low
// part of r as much as two more roundings.
static inline cLogParts FastLn(const cLogArgument &Argument)
{
    const cLogRest Divided = DivideByRow(Argument);
    const double   r       = Divided.m_Rest.m_dHigh;
    const double   dSquare = r * r;
    const double   dFirst  = -0.5 + r * (1.0 / 3);
    const double   dSecond = -0.25 + r * (1.0 / 5);
    const double   dThird  = (-1.0 / 6 + r * (1.0 / 7)) - dSquare * (1.0 / 8);
    const double   dSeries = dSquare * dFirst + dSquare * dSquare * (dSecond + dSquare * dThird);
    const double   dLow    = Divided.m_Rest.m_dLow + Divided.m_dTableLow;
    const auto     Sum     = FastTwoSum(Divided.m_dTable, r);
    return {{Sum.m_dHigh, (Sum.m_dLow + dLow) + dSeries},
            Magnitude(dSeries) * 0x1.4p-50 + Magnitude(Divided.m_dTable) * 0x1p-80};
}

// What is no positive normal number.
static int IsRare(double dValue)
{
    return BitsOf(dValue) - (kSignificand + 1) >= kInfinityBits - (kSignificand + 1);
}

// Returns 0 if the number has a logarithm.
static int HasSpecialLog(double dValue, double *pdLog)
{
    const double dInfinity = std::numeric_limits<double>::infinity();
    if (IsNan(dValue))
        *pdLog = dValue + dValue;
    else if (dValue == 0.0)
        *pdLog = -dInfinity;
    else if (dValue < 0.0)
        *pdLog = std::numeric_limits<double>::quiet_NaN();
    else if (dValue == dInfinity)
        *pdLog = dInfinity;
    else
        return 0;
    return 1;
}

static double RareLn(double dValue)
{
    double dLog;
    if (HasSpecialLog(dValue, &dLog))
        return dLog;
    return RoundToDouble(WideLn(dValue));
}

double Ln(double dValue)
{
    if (IsRare(dValue))
        return RareLn(dValue);
    const cLogParts Parts = FastLn(SplitForLog(dValue));
    double          dLog;
    if (!Rounds(Parts.m_Log, Parts.m_dError, &dLog))
        return RareLn(dValue);
    return dLog;
}

static double RareLog10(double dValue)
{
    double dLog;
    if (HasSpecialLog(dValue, &dLog))
        return dLog;
    return RoundToDouble(Multiply(WideLn(dValue), kWideLogOfE));
}

// The product with log e adds errors of 2^-79.
double Log10(double dValue)
{
    if (IsRare(dValue))
        return RareLog10(dValue);
    const cLogParts   Parts = FastLn(SplitForLog(dValue));
    const double      dHigh = Parts.m_Log.m_dHigh;
    const double      dHead = Leading<27>(dHigh);
    const cDoublePair Log   = {dHead * kLogOfE1,
                               (dHigh - dHead) * kLogOfE1 +
                                   (dHigh * kLogOfE2 + Parts.m_Log.m_dLow * (kLogOfE1 + kLogOfE2))};
    double            dLog;
    if (!Rounds(Log, Parts.m_dError + Magnitude(dHigh) * 0x1p-76, &dLog))
        return RareLog10(dValue);
    return dLog;
}
