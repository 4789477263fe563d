// arcs.cpp - the inverse functions of trigonometry: Taylor series around the
// nearest row of a table. Quotients and roots, which bring large arguments into
// the table, are computed as pairs.

#include <limits>

#include "engine/elementary/elementary.h"
#include "engine/elementary/tables.h"
#include "engine/elementary/wide_functions.h"

// Relative error of all results. A row is at most 2^-7 away for tangents and 2^-8
// for sines. The product with the slope is exact; the square's term is at most
// 2^-14 of the result, rounded four times, and the series leaves out 2^-67.
static const double kArcError = 0x1p-63;

namespace
{

// A function of the rows is multiplied and added to an angle.
struct cArcBase
{
    double m_dHigh;
    double m_dLow;
    double m_dFactor;  // 1, -1, 2 or -2
};

}  // namespace

// The distance from the row is dHead, of 26 bits, and dTail.
static inline cDoublePair ArcOfRow(const cArcRow &Row, double dHead, double dTail)
{
    const double  d       = dHead + dTail;
    const double  dSquare = d * d;
    const double *pTerms  = Row.m_dTerms;
    const double  dFirst  = pTerms[0] + d * pTerms[1];
    const double  dSecond = pTerms[2] + d * pTerms[3];
    const double  dThird  = (pTerms[4] + d * pTerms[5]) + dSquare * (pTerms[6] + d * pTerms[7]);
    const double  dSeries = dSquare * (dFirst + dSquare * (dSecond + dSquare * dThird));
    const double  dSlope  = Row.m_dSlopeHigh * dTail + Row.m_dSlopeLow * d;
    const auto    Sum     = FastTwoSum(Row.m_dValueHigh, Row.m_dSlopeHigh * dHead);
    return {Sum.m_dHigh, ((Sum.m_dLow + Row.m_dValueLow) + dSlope) + dSeries};
}

static inline cDoublePair FromBase(const cArcBase &Base, const cDoublePair &Arc)
{
    const auto Sum = FastTwoSum(Base.m_dHigh, Base.m_dFactor * Arc.m_dHigh);
    return {Sum.m_dHigh, (Sum.m_dLow + Base.m_dLow) + Base.m_dFactor * Arc.m_dLow};
}

// --- the tangent

// The angle whose tangent is dSmaller/dLarger. Both are positive and of moderate
// size; their quotient is at most 1 and not tiny.
static inline cDoublePair ArcOfRatio(double dSmaller, double dLarger)
{
    const double dInverse    = 1.0 / dLarger;
    const double dHead       = Leading<26>(dSmaller * dInverse);
    const double dLargerHead = Leading<26>(dLarger);
    const double dRest       = (dSmaller - dHead * dLargerHead) - dHead * (dLarger - dLargerHead);
    const double dRow        = NearestInteger(64 * dHead);
    return ArcOfRow(kArcTangentRows[static_cast<int>(dRow)], dHead - dRow * (1.0 / 64),
                    dRest * dInverse);
}

// For 0 to 1.
static inline cDoublePair ArcOfSmallTangent(double dTangent)
{
    const double dRow  = NearestInteger(64 * dTangent);
    const double d     = dTangent - dRow * (1.0 / 64);
    const double dHead = Leading<26>(d);
    return ArcOfRow(kArcTangentRows[static_cast<int>(dRow)], dHead, d - dHead);
}

static double WideArcTan(double dTangent)
{
    cWide Arc    = WideArc(MakeWide(Magnitude(dTangent)), kWideOne);
    Arc.m_bMinus = dTangent < 0.0;
    return RoundToDouble(Arc);
}

// Beyond 2^53, and below 2^-27, the result is the nearest double to pi/2 or to
// the tangent itself.
double ArcTan(double dTangent)
{
    const double dSize = Magnitude(dTangent);
    if (dSize < 0x1p-27)
        return dTangent;
    if (!(dSize < 0x1p53))
        return IsNan(dTangent) ? dTangent + dTangent : WithSignOf(kHalfPi1, dTangent);
    const cArcBase Steep = {kHalfPi1, kHalfPi2, -1.0};
    const auto     Arc =
        dSize > 1.0 ? FromBase(Steep, ArcOfRatio(1.0, dSize)) : ArcOfSmallTangent(dSize);
    double dResult;
    if (!Rounds(Arc, Arc.m_dHigh * kArcError, &dResult))
        return WideArcTan(dTangent);
    return WithSignOf(dResult, dTangent);
}

// The quotient of two positive numbers, rounded as if it were a little smaller:
// so small an arc is below its tangent, by less than the last of 128 bits.
static cWide JustBelowQuotient(const cWide &Y, const cWide &X)
{
    const cUint128 nDivisor   = X.m_nMantissa >> 75;
    const cUint128 nQuotient  = Y.m_nMantissa / nDivisor;
    const int      bRemainder = nQuotient * nDivisor != Y.m_nMantissa;
    const int      nExponent  = Y.m_nExponent - (X.m_nExponent + 75);
    return MakeWide(0, nExponent - 8, bRemainder ? (nQuotient << 8) + 1 : (nQuotient << 8) - 1);
}

// For finite numbers other than 0.
static double WideArcTan2(double dY, double dX)
{
    const cWide Y    = MakeWide(Magnitude(dY));
    const cWide X    = MakeWide(Magnitude(dX));
    const int   bFar = Y.m_nExponent < X.m_nExponent - 70;
    cWide       Arc  = bFar && dX > 0.0 ? JustBelowQuotient(Y, X) : WideArc(Y, X);
    if (dX < 0.0)
        Arc = Add(kWidePi, Negative(Arc));
    Arc.m_bMinus = dY < 0.0;
    return RoundToDouble(Arc);
}

// Zeros and infinities: one of the axes, or a diagonal.
static double ArcTan2OfLimits(double dY, double dX)
{
    const int    bLeft     = BitsOf(dX) >> 63 ? 1 : 0;
    const int    bInfinite = ExponentField(dX) == 0x7ff;
    const double kQuarter  = kHalfPi1 / 2;
    if (bInfinite && ExponentField(dY) == 0x7ff)
        return WithSignOf(bLeft ? 0x1.2d97c7f3321d2p1 : kQuarter, dY);
    if (dY == 0.0 || bInfinite)
        return WithSignOf(bLeft ? kPi1 : 0.0, dY);
    return WithSignOf(kHalfPi1, dY);
}

// The fast way takes numbers from 2^-400 to 2^400 whose quotient is not tiny.
static int IsModerate(double dY, double dX)
{
    const unsigned kLeast = kExponentOfOne - 400;
    const unsigned nY     = static_cast<unsigned>(ExponentField(dY));
    const unsigned nX     = static_cast<unsigned>(ExponentField(dX));
    return nY - kLeast < 800 && nX - kLeast < 800 && nY - nX + 50 < 100;
}

static double RareArcTan2(double dY, double dX)
{
    if (IsNan(dY) || IsNan(dX))
        return dY + dX;
    if (dY == 0.0 || dX == 0.0 || ExponentField(dY) == 0x7ff || ExponentField(dX) == 0x7ff)
        return ArcTan2OfLimits(dY, dX);
    return WideArcTan2(dY, dX);
}

double ArcTan2(double dY, double dX)
{
    if (!IsModerate(dY, dX))
        return RareArcTan2(dY, dX);
    const double dHigh  = Magnitude(dY);
    const double dWide  = Magnitude(dX);
    const int    bSteep = dHigh > dWide;
    cArcBase     Base   = {0.0, 0.0, 1.0};
    if (bSteep)
        Base = {kHalfPi1, kHalfPi2, dX < 0.0 ? 1.0 : -1.0};
    else if (dX < 0.0)
        Base = {kPi1, kPi2, -1.0};
    const double dSmaller = bSteep ? dWide : dHigh;
    const double dLarger  = bSteep ? dHigh : dWide;
    const auto   Arc      = FromBase(Base, ArcOfRatio(dSmaller, dLarger));
    double       dResult;
    if (!Rounds(Arc, Arc.m_dHigh * kArcError, &dResult))
        return RareArcTan2(dY, dX);
    return WithSignOf(dResult, dY);
}

// --- the sine

// The table of the arc sine ends here: near 1 its series do not converge.
static const double kLastSine = 0.75;

static inline cDoublePair ArcOfSmallSine(double dSine)
{
    const double dRow  = NearestInteger(128 * dSine);
    const double d     = dSine - dRow * (1.0 / 128);
    const double dHead = Leading<26>(d);
    return ArcOfRow(kArcSineRows[static_cast<int>(dRow)], dHead, d - dHead);
}

// Half the arc cosine of x is the arc sine of sqrt((1 - x)/2).
static inline cDoublePair HalfArcOfCosine(double dCosine)
{
    const double dSquare = 0.5 - 0.5 * dCosine;
    const double dRoot   = __builtin_sqrt(dSquare);
    const double dHead   = Leading<26>(dRoot);
    const double dTail   = (dSquare - dHead * dHead) / (dRoot + dHead);
    const double dRow    = NearestInteger(128 * dRoot);
    return ArcOfRow(kArcSineRows[static_cast<int>(dRow)], dHead - dRow * (1.0 / 128), dTail);
}

// The cosine or sine that belongs to a magnitude of at most 1.
static cWide WideComplement(const cWide &A)
{
    return SquareRoot(Multiply(Add(kWideOne, Negative(A)), Add(kWideOne, A)));
}

static double WideArcSin(double dSine)
{
    const cWide Sine = MakeWide(Magnitude(dSine));
    cWide       Arc  = WideArc(Sine, WideComplement(Sine));
    Arc.m_bMinus     = dSine < 0.0;
    return RoundToDouble(Arc);
}

static double WideArcCos(double dCosine)
{
    const cWide Cosine = MakeWide(Magnitude(dCosine));
    const cWide Arc    = WideArc(WideComplement(Cosine), Cosine);
    return RoundToDouble(dCosine < 0.0 ? Add(kWidePi, Negative(Arc)) : Arc);
}

// What has no arc or, for 1, none that needs to be computed.
static double ArcOfLimit(double dArgument, double dArcOfOne, double dArcOfMinusOne)
{
    if (dArgument == 1.0)
        return dArcOfOne;
    if (dArgument == -1.0)
        return dArcOfMinusOne;
    return IsNan(dArgument) ? dArgument + dArgument : std::numeric_limits<double>::quiet_NaN();
}

double ArcSin(double dSine)
{
    const double dSize = Magnitude(dSine);
    if (dSize < 0x1p-27)
        return dSine;
    if (!(dSize < 1.0))
        return ArcOfLimit(dSine, kHalfPi1, -kHalfPi1);
    const cArcBase Large = {kHalfPi1, kHalfPi2, -2.0};
    const auto     Arc =
        dSize > kLastSine ? FromBase(Large, HalfArcOfCosine(dSize)) : ArcOfSmallSine(dSize);
    double dResult;
    if (!Rounds(Arc, Arc.m_dHigh * kArcError, &dResult))
        return WideArcSin(dSine);
    return WithSignOf(dResult, dSine);
}

double ArcCos(double dCosine)
{
    const double dSize = Magnitude(dCosine);
    if (!(dSize < 1.0))
        return ArcOfLimit(dCosine, 0.0, kPi1);
    const int      bMinus = dCosine < 0.0;
    const cArcBase Large  = bMinus ? cArcBase{kPi1, kPi2, -2.0} : cArcBase{0.0, 0.0, 2.0};
    const cArcBase Small  = {kHalfPi1, kHalfPi2, bMinus ? 1.0 : -1.0};
    const auto     Arc    = dSize > kLastSine ? FromBase(Large, HalfArcOfCosine(dSize))
                                              : FromBase(Small, ArcOfSmallSine(dSize));
    double         dResult;
    if (!Rounds(Arc, Arc.m_dHigh * kArcError, &dResult))
        return WideArcCos(dCosine);
    return dResult;
}

double Sqrt(double dValue)
{
    return __builtin_sqrt(dValue);
}
