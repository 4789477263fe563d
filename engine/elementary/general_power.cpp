// general_power.cpp - any number to the power of any other.

#include <limits>

#include "engine/elementary/elementary.h"
#include "engine/elementary/exponential_step.h"
#include "engine/elementary/logarithm_row.h"
#include "engine/elementary/power_middle.h"
#include "engine/elementary/wide_functions.h"

// The logarithm of a positive, finite number, as in logarithms.cpp, but with
// the square in the series exact: what is rounded is the rest of the series,
// five times, and smaller parts. The low part is up to 2^-16 of the high one.
static inline cDoublePair LnForPower(double dValue, double *pdError)
{
    const cLogRest Divided  = DivideByRow(SplitForLog(dValue));
    const double   r        = Divided.m_Rest.m_dHigh;
    const double   dRestLow = Divided.m_Rest.m_dLow;
    const double   dHead    = Leading<26>(r);
    const double   dHalf    = dHead * (-0.5 * dHead);
    const double   dHalfLow = -0.5 * (r - dHead) * (r + dHead) - dRestLow * r;
    const double   dSquare  = r * r;
    const double   dFirst   = 1.0 / 3 - r * 0.25;
    const double   dSecond  = 1.0 / 5 - r * (1.0 / 6);
    const double   dThird   = (1.0 / 7 - r * (1.0 / 8)) + dSquare * (1.0 / 9);
    const double   dMiddle  = dSecond + dSquare * dThird;
    const double   dSeries  = dSquare * r * (dFirst + dSquare * dMiddle);
    const auto     First    = FastTwoSum(Divided.m_dTable, r);
    const auto     Second   = FastTwoSum(First.m_dHigh, dHalf);
    const double   dSmall   = First.m_dLow + ((dRestLow + Divided.m_dTableLow) + dHalfLow);
    *pdError                = Magnitude(dSeries) * 0x1.4p-50;
    return {Second.m_dHigh, Second.m_dLow + (dSmall + dSeries)};
}

// The high part is exact, the low one up to 2^-25 of it and rounded six times.
static inline cDoublePair Product(const cDoublePair &Log, double dPower)
{
    const double dLog       = Log.m_dHigh + Log.m_dLow;
    const double dPowerHead = Leading<26>(dPower);
    const double dLogHead   = Leading<26>(dLog);
    const double dLogTail   = (Log.m_dHigh - dLogHead) + Log.m_dLow;
    return {dPowerHead * dLogHead, dPowerHead * dLogTail + (dPower - dPowerHead) * dLog};
}

// The power's logarithm is up to 760 and wrong by less than 2^-123.5 of itself; the
// exponential adds less than 2^-117. That makes 2^-113.7 of the result. The slack
// is 2^-113 to 2^-112 of it.
static double WidePower(double dBase, double dPower)
{
    const cWide  Result = WideExp(Multiply(WideLn(dBase), MakeWide(dPower)));
    const cWide  Slack  = MakeWide(0, Result.m_nExponent, cUint128{1} << 15);
    const double dBelow = RoundToDouble(Add(Result, Negative(Slack)));
    if (dBelow == RoundToDouble(Add(Result, Slack)))
        return dBelow;
    return RoundPowerAbove(dBelow, dBase, dPower);
}

// For bases that are positive and finite.
static double PositivePower(double dBase, double dPower)
{
    double            dLogError;
    const cDoublePair Log    = LnForPower(dBase, &dLogError);
    const double      dRough = (Log.m_dHigh + Log.m_dLow) * dPower;
    if (Magnitude(dRough) >= 700.0)
    {
        if (Magnitude(dRough) >= 760.0)
            return dRough > 0.0 ? std::numeric_limits<double>::infinity() : 0.0;
        return WidePower(dBase, dPower);
    }
    // What decides is 2^-53 above 1 and 2^-54 below it, but dRough is rounded.
    if (Magnitude(dRough) < 0x1p-55)
        return 1.0;
    const cDoublePair Power  = Product(Log, dPower);
    const double      dSteps = NearestInteger(dRough * kStepsPerUnit);
    const double      dFirst = Power.m_dHigh - dSteps * kStep1;
    const int         nSteps = static_cast<int>(dSteps);
    const auto        Result = ExpOfRest(nSteps, dFirst, Power.m_dLow - dSteps * kStep2);
    const double dError = kExpError + (Magnitude(dRough) * 0x1p-75 + Magnitude(dPower) * dLogError);
    double       dResult;
    if (!Rounds(Result, Result.m_dHigh * dError, &dResult))
        return WidePower(dBase, dPower);
    return Scaled(dResult, nSteps >> kStepsLog2);
}

// 0 for a fraction, 1 for an odd number, 2 for an even one.
static int WholeKind(double dPower)
{
    const double dMagnitude = Magnitude(dPower);
    if (dMagnitude >= 0x1p53)
        return 2;
    if (dMagnitude < 1.0)
        return dMagnitude == 0.0 ? 2 : 0;
    const auto nWhole = static_cast<int64_t>(dMagnitude);
    if (static_cast<double>(nWhole) != dMagnitude)
        return 0;
    return nWhole % 2 ? 1 : 2;
}

// A base of 0 or infinity; the power is not 0 and no NaN.
static double PowerOfLimit(double dBase, double dPower)
{
    const double dInfinity = std::numeric_limits<double>::infinity();
    const int    bZero     = (dBase == 0.0) == (dPower > 0.0);
    const double dResult   = bZero ? 0.0 : dInfinity;
    return WholeKind(dPower) == 1 ? WithSignOf(dResult, dBase) : dResult;
}

static double InfinitePower(double dBase, double dPower)
{
    const double dMagnitude = Magnitude(dBase);
    if (dMagnitude == 1.0)
        return 1.0;
    return (dMagnitude > 1.0) == (dPower > 0.0) ? std::numeric_limits<double>::infinity() : 0.0;
}

static double RarePower(double dBase, double dPower)
{
    if (dPower == 0.0 || dBase == 1.0)
        return 1.0;
    if (IsNan(dBase) || IsNan(dPower))
        return dBase + dPower;
    if (ExponentField(dPower) == 0x7ff)
        return InfinitePower(dBase, dPower);
    if (dBase == 0.0 || ExponentField(dBase) == 0x7ff)
        return PowerOfLimit(dBase, dPower);
    if (dBase > 0.0)
        return PositivePower(dBase, dPower);
    const int nKind = WholeKind(dPower);
    if (nKind == 0)
        return std::numeric_limits<double>::quiet_NaN();
    const double dResult = PositivePower(-dBase, dPower);
    return nKind == 1 ? -dResult : dResult;
}

// Powers of ordinary size, and positive, normal bases, are told at once.
double Pow(double dBase, double dPower)
{
    const uint64_t nLeast = kSignificand + 1;
    if (BitsOf(dBase) - nLeast >= kInfinityBits - nLeast ||
        static_cast<unsigned>(ExponentField(dPower) - 1) >= 2046U)
        return RarePower(dBase, dPower);
    return PositivePower(dBase, dPower);
}
