// trigonometry.cpp - sine, cosine and tangent. A table has the sines of
// multiples of pi/128; the rest, at most pi/256, comes through the addition
// theorems. After S. Gal and B. Bachelis, "An accurate elementary mathematical
// library for the IEEE floating point standard" (1991).

#include <limits>

#include "engine/elementary/elementary.h"
#include "engine/elementary/tables.h"
#include "engine/elementary/wide_functions.h"

namespace
{

// m_nStep times pi/128, and a rest of at most 2^-6.3 whose head has 29 bits.
struct cFastAngle
{
    int    m_nStep;
    double m_dHead;
    double m_dTail;
    double m_dError;  // absolute
};

// What sine and cosine need of a rest: the rest itself, sin r - r and cos r - 1.
struct cRestTerms
{
    double m_dHead;
    double m_dTail;
    double m_dAll;
    double m_dSine;
    double m_dCosine;
};

}  // namespace

// Relative error of SineOf, and of Rounds with it. The product of the leading
// parts and its sum are exact. The largest of the other terms is that of cos r - 1
// beside a sine which r has made half of that in the table: 2^-13 of the result,
// rounded eight times. The series leave out less than 2^-68.
static const double kAngleError = 0x1p-63;

// The same for the tangent: where one of its two parts has the larger error, the
// other has next to none.
static const double kTangentError = 0x1.8p-63;

// Below this the steps have at most 24.4 bits, and their products with kAngle1
// and kAngle2 are exact.
static const double kNear = 0x1p19;

// By W. J. Cody and W. Waite, "Software manual for the elementary functions"
// (1980). The distance of the first rest from the head may be rounded, below
// 2^-89 for each step or 2^-82 of the rest; all else is smaller.
static inline cFastAngle ReduceNear(double dRadians)
{
    const double dSteps  = NearestInteger(dRadians * kStepsPerRadian);
    const double dFirst  = dRadians - dSteps * kAngle1;
    const double dSecond = dSteps * kAngle2;
    const double dHead   = Leading<29>(dFirst - dSecond);
    const double dTail   = ((dFirst - dHead) - dSecond) - dSteps * kAngle3;
    return {static_cast<int>(dSteps), dHead, dTail, Magnitude(dSteps) * 0x1p-88};
}

// The first 8 bits of 256 are the step; the next 128 leave an error of less
// than 2^-128 of one.
static cFastAngle ReduceFar(double dRadians)
{
    cUint128 nHigh;
    cUint128 nLow;
    TurnsOf(Magnitude(dRadians), &nHigh, &nLow);
    const cUint128 nRest = nHigh << 8 | nLow >> 120;
    const int      nStep = static_cast<int>(nHigh >> 120) + static_cast<int>(nRest >> 127);
    // A rest above 1/2 is that of the next step, less 1.
    const auto   nBits   = static_cast<int64_t>(static_cast<uint64_t>(nRest >> 64));
    const auto   nLast   = static_cast<uint64_t>((nRest >> 11) & ~uint64_t{0});
    const double dSign   = dRadians < 0.0 ? -1.0 : 1.0;
    const double dHigh   = static_cast<double>(nBits >> 11) * 0x1p-53 * dSign;
    const double dLow    = static_cast<double>(nLast) * 0x1p-117 * dSign;
    const double dHead   = Leading<26>(dHigh);
    const double dHeadOf = dHead * kAngleStep1;
    const double dTailOf = ((dHigh - dHead) + dLow) * kAngleStep1 + (dHigh + dLow) * kAngleStep2;
    const double dCut    = Leading<29>(dHeadOf);
    return {dSign < 0.0 ? -nStep : nStep, dCut, (dHeadOf - dCut) + dTailOf, 0x1p-83};
}

static inline cFastAngle Reduce(double dRadians)
{
    return Magnitude(dRadians) < kNear ? ReduceNear(dRadians) : ReduceFar(dRadians);
}

static inline cRestTerms TermsOf(const cFastAngle &Angle)
{
    const double r       = Angle.m_dHead + Angle.m_dTail;
    const double dSquare = r * r;
    const double dSine =
        r * dSquare * ((-1.0 / 6 + dSquare * (1.0 / 120)) - dSquare * dSquare * (1.0 / 5040));
    const double dCosine = dSquare * ((-0.5 + dSquare * (1.0 / 24)) +
                                      dSquare * dSquare * (-1.0 / 720 + dSquare * (1.0 / 40320)));
    return {Angle.m_dHead, Angle.m_dTail, r, dSine, dCosine};
}

// sin(a + r) = sin a + r cos a + sin a (cos r - 1) + cos a (sin r - r)
static inline cDoublePair SineOf(int nStep, const cRestTerms &Terms)
{
    const cDoublePair &Sine   = kSines[nStep & 255];
    const cDoublePair &Cosine = kSines[(nStep + 64) & 255];
    const auto         Sum    = FastTwoSum(Sine.m_dHigh, Cosine.m_dHigh * Terms.m_dHead);
    const double       dSmall =
        (Sine.m_dHigh + Sine.m_dLow) * Terms.m_dCosine + Cosine.m_dHigh * Terms.m_dSine;
    const double dParts =
        Cosine.m_dHigh * Terms.m_dTail + Cosine.m_dLow * (Terms.m_dAll + Terms.m_dSine);
    return {Sum.m_dHigh, ((Sum.m_dLow + Sine.m_dLow) + dParts) + dSmall};
}

// What the fast way takes: from 2^-27 up to the infinities, which it leaves out.
static inline int IsOrdinaryAngle(double dRadians)
{
    const unsigned nField = static_cast<unsigned>(ExponentField(dRadians));
    return nField - (kExponentOfOne - 27U) < 0x7ffU - (kExponentOfOne - 27U);
}

// Infinite angles have no functions, NaN stays.
static double NoAngle(double dRadians)
{
    return IsNan(dRadians) ? dRadians + dRadians : std::numeric_limits<double>::quiet_NaN();
}

static double WideSineOf(double dRadians, int nMoreQuadrants)
{
    const cWideAngle Angle     = WideReduce(dRadians);
    const int        nQuadrant = (Angle.m_nQuadrant + nMoreQuadrants) & 3;
    const cWide      Result    = nQuadrant & 1 ? WideCosine(Angle.m_Rest) : WideSine(Angle.m_Rest);
    return RoundToDouble(nQuadrant & 2 ? Negative(Result) : Result);
}

static double WideTangentOf(double dRadians)
{
    const cWideAngle Angle  = WideReduce(dRadians);
    const cWide      Sine   = WideSine(Angle.m_Rest);
    const cWide      Cosine = WideCosine(Angle.m_Rest);
    if (Angle.m_nQuadrant & 1)
        return RoundToDouble(Negative(Divide(Cosine, Sine)));
    return RoundToDouble(Divide(Sine, Cosine));
}

double Sin(double dRadians)
{
    if (!IsOrdinaryAngle(dRadians))
        return ExponentField(dRadians) == 0x7ff ? NoAngle(dRadians) : dRadians;
    const cFastAngle  Angle = Reduce(dRadians);
    const cDoublePair Sine  = SineOf(Angle.m_nStep, TermsOf(Angle));
    double            dResult;
    if (!Rounds(Sine, Magnitude(Sine.m_dHigh) * kAngleError + Angle.m_dError, &dResult))
        return WideSineOf(dRadians, 0);
    return dResult;
}

double Cos(double dRadians)
{
    if (!IsOrdinaryAngle(dRadians))
        return ExponentField(dRadians) == 0x7ff ? NoAngle(dRadians) : 1.0;
    const cFastAngle  Angle  = Reduce(dRadians);
    const cDoublePair Cosine = SineOf(Angle.m_nStep + 64, TermsOf(Angle));
    double            dResult;
    if (!Rounds(Cosine, Magnitude(Cosine.m_dHigh) * kAngleError + Angle.m_dError, &dResult))
        return WideSineOf(dRadians, 1);
    return dResult;
}

// The quotient of two pairs: 26 bits and a remainder, which is exact up to the
// smaller parts. The second part is wrong by 2^-76 of the quotient.
static inline cDoublePair Quotient(const cDoublePair &A, const cDoublePair &B)
{
    const double dInverse  = 1.0 / (B.m_dHigh + B.m_dLow);
    const double dHead     = Leading<26>((A.m_dHigh + A.m_dLow) * dInverse);
    const double dDivisor  = Leading<26>(B.m_dHigh);
    const double dRest     = (A.m_dHigh - dHead * dDivisor) - dHead * (B.m_dHigh - dDivisor);
    const double dRestLess = dRest + (A.m_dLow - dHead * B.m_dLow);
    return {dHead, dRestLess * dInverse};
}

// The errors of sine and cosine add up; an absolute one is large beside the
// smaller of the two only.
double Tan(double dRadians)
{
    if (!IsOrdinaryAngle(dRadians))
        return ExponentField(dRadians) == 0x7ff ? NoAngle(dRadians) : dRadians;
    const cFastAngle  Angle    = Reduce(dRadians);
    const cRestTerms  Terms    = TermsOf(Angle);
    const cDoublePair Sine     = SineOf(Angle.m_nStep, Terms);
    const cDoublePair Cosine   = SineOf(Angle.m_nStep + 64, Terms);
    const cDoublePair Tangent  = Quotient(Sine, Cosine);
    const double      dSize    = Magnitude(Tangent.m_dHigh);
    const double      dRelated = kTangentError * dSize;
    const double      dSlope   = Angle.m_dError * (1.0 + dSize * dSize);
    double            dResult;
    if (!Rounds(Tangent, dRelated + 2 * dSlope, &dResult))
        return WideTangentOf(dRadians);
    return dResult;
}
