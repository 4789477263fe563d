#include "engine/elementary/wide_functions.h"

#include "engine/elementary/logarithm_row.h"
#include "engine/elementary/tables.h"

// A number of units of 2^-127 times A.
static cWide Times(cUint128 nFixed, const cWide &A)
{
    return Multiply(MakeWide(0, -127, nFixed), A);
}

static cWide Integer(int n)
{
    return MakeWide(static_cast<double>(n));
}

static double ToDouble(const cWide &A)
{
    return RoundToDouble(A);
}

// The sum of r^n/n!, 18 terms, for 0 <= r < 0.05, in units of 2^-127.
static cUint128 ExpSeries(cUint128 nFraction)
{
    cUint128 nSum = kInverseFactorial[18];
    for (int n = 17; n >= 0; n--)
        nSum = kInverseFactorial[n] + MultiplyHigh(nFraction, nSum);
    return nSum;
}

// Power = k ln 2/16 + r. The high part of ln 2/16 has 112 bits, so that its
// product with k is exact.
cWide WideExp(const cWide &Power)
{
    const double kSixteenths = kStepsPerUnit / 32;
    const double dPower      = ToDouble(Power);
    // A little less than the quotient, so that r is not negative.
    const double dSteps = NearestInteger(dPower * kSixteenths - 0.5078125);
    const cWide  Steps  = MakeWide(-dSteps);
    const cWide  Rest =
        Add(Add(Power, Multiply(Steps, kWideStepHigh)), Multiply(Steps, kWideStepLow));
    const int nSteps = static_cast<int>(dSteps);
    cWide     Result = Times(ExpSeries(Fraction(Rest)), kWideOne);
    Result           = Times(kWideTwoTo[nSteps & 15], Result);
    Result.m_nExponent += (nSteps - (nSteps & 15)) / 16;
    return Result;
}

// ln(1 + r)/r = 1 - r/2 + r^2/3 ..., for |r| < 2^-7.
static cUint128 LnSeries(cUint128 nFraction, int bMinus)
{
    cUint128 nSum = kInverse[18];
    for (int n = 17; n >= 0; n--)
    {
        const cUint128 nTerm = MultiplyHigh(nFraction, nSum);
        nSum                 = bMinus ? kInverse[n] + nTerm : kInverse[n] - nTerm;
    }
    return nSum;
}

cWide WideLn(double dValue)
{
    const cLogArgument Argument = SplitForLog(dValue);
    const cLogRow     &Row      = kLogRows[Argument.m_nRow];
    // Inverse and significand have 11 and 53 bits.
    const cWide Product = Multiply(MakeWide(Row.m_dInverse), MakeWide(Argument.m_dSignificand));
    const cWide Rest    = Add(Product, Negative(kWideOne));
    const cWide Tail    = Times(LnSeries(Fraction(Rest), Rest.m_bMinus), Rest);
    const cWide Scale   = Multiply(Integer(Argument.m_nExponent), kWideLn2);
    return Add(Add(Scale, kWideLogs[Argument.m_nRow]), Tail);
}

// 256 bits of 2/pi meet the significand: those before them give whole turns,
// those after them too little to matter. By M. Payne and R. Hanek, "Radian
// reduction for trigonometric functions" (1983).
void TurnsOf(double dMagnitude, cUint128 *pnHigh, cUint128 *pnLow)
{
    const uint64_t  nSignificand = (BitsOf(dMagnitude) & kSignificand) | uint64_t{1} << 52;
    const int       nFirst       = ExponentField(dMagnitude) - 1075 - 2 + 64;
    const int       nShift       = nFirst % 64;
    const uint64_t *pWord        = kTwoOverPi + nFirst / 64;
    uint64_t        nProducts[4];
    cUint128        nCarry = 0;
    for (int i = 3; i >= 0; i--)
    {
        const uint64_t nWord =
            nShift ? pWord[i] << nShift | pWord[i + 1] >> (64 - nShift) : pWord[i];
        nCarry += static_cast<cUint128>(nWord) * nSignificand;
        nProducts[i] = static_cast<uint64_t>(nCarry);
        nCarry >>= 64;
    }
    *pnHigh = Words(nProducts[0], nProducts[1]);
    *pnLow  = Words(nProducts[2], nProducts[3]);
}

cWideAngle WideReduce(double dRadians)
{
    const double dMagnitude = Magnitude(dRadians);
    if (dMagnitude < 0.75)
        return {0, MakeWide(dRadians)};
    cUint128 nHigh;
    cUint128 nLow;
    TurnsOf(dMagnitude, &nHigh, &nLow);
    int nQuadrant = static_cast<int>(nHigh >> 126);
    // The fraction of a right angle, up to 1/2.
    cUint128  nFraction = nHigh << 2 | nLow >> 126;
    cUint128  nRest     = nLow << 2;
    const int bAbove    = nFraction >> 127 ? 1 : 0;
    if (bAbove)
    {
        nQuadrant++;
        nFraction = ~nFraction;
        nRest     = ~nRest;
    }
    const cWide Right  = Add(MakeWide(0, -128, nFraction), MakeWide(0, -256, nRest));
    cWide       Rest   = Multiply(Right, kWideHalfPi);
    const int   bMinus = dRadians < 0;
    Rest.m_bMinus      = bAbove != bMinus;
    return {(bMinus ? -nQuadrant : nQuadrant) & 3, Rest};
}

// The alternating sum of x^n/(2n + nFirst)!, for x < 0.65.
static cUint128 AngleSeries(cUint128 nSquare, int nFirst)
{
    cUint128 nSum = 0;
    for (int n = 32 + nFirst; n >= nFirst; n -= 2)
        nSum = kInverseFactorial[n] - MultiplyHigh(nSquare, nSum);
    return nSum;
}

cWide WideSine(const cWide &Rest)
{
    return Times(AngleSeries(Fraction(Multiply(Rest, Rest)), 1), Rest);
}

cWide WideCosine(const cWide &Rest)
{
    return Times(AngleSeries(Fraction(Multiply(Rest, Rest)), 0), kWideOne);
}

// The arc tangent of T, |T| < 2^-6.
static cWide ArcSeries(const cWide &T)
{
    const cUint128 nSquare = Fraction(Multiply(T, T));
    cUint128       nSum    = 0;
    for (int n = 22; n >= 0; n -= 2)
        nSum = kInverse[n] - MultiplyHigh(nSquare, nSum);
    return Times(nSum, T);
}

// The angle from the nearest row of the table, by the addition theorem of the
// tangent. Y is at most X.
static cWide ArcBelowHalf(const cWide &Y, const cWide &X)
{
    const double dRatio  = ToDouble(Divide(Y, X));
    const int    nRow    = static_cast<int>(NearestInteger(64 * dRatio));
    const cWide  Tangent = MakeWide(nRow / 64.0);
    const cWide  Above   = Add(Y, Negative(Multiply(Tangent, X)));
    const cWide  Below   = Add(X, Multiply(Tangent, Y));
    return Add(kWideArcTangents[nRow], ArcSeries(Divide(Above, Below)));
}

cWide WideArc(const cWide &Y, const cWide &X)
{
    const int bSteep = !Add(X, Negative(Y)).m_bMinus ? 0 : 1;
    if (!bSteep)
        return ArcBelowHalf(Y, X);
    return Add(kWideHalfPi, Negative(ArcBelowHalf(X, Y)));
}
