// power_middle.cpp - decides on which side of the middle between two doubles a power
// lies. If it can be the middle itself, it is computed exactly; otherwise the
// logarithms of both are compared, with 320 binary places.
//
// Those logarithms are wrong by less than 2^-311 for numbers from 11/16 to 11/8, and
// 2^-301 for others. The exponent is up to 2^63 in the first case and 2^12 in the
// second, so that the comparison is right unless the power is within 2^-247 of the
// middle. That is enough, if not by proof:
//
// - There are 2^121 pairs of doubles whose power is neither 1 nor out of range. If
//   their distances from the middle, up to 2^-54, were random, the least would be
//   2^-175.
// - Next to 1 they are not random. With u = 2^-52 and small a and b, the power
//   (1 + au)^(b/a - cu) has two terms of 1 + bu where c = b(b - a)/2a. The third is
//   off by b(b - a)(4b + a)/12 u^3, which is 2^-160.6 for the first a and b where
//   b/a - cu is a double and 1 + bu is a middle. It is 0 only for b = a, where the
//   power is the base, and for a = -4b, where c = -5b/8 has more places than a
//   double near -1/4.

#include "engine/elementary/power_middle.h"

#include <bit>

#include "engine/elementary/double_bits.h"
#include "engine/elementary/elementary.h"
#include "engine/elementary/wide_number.h"

namespace
{

// m_nSignificand times 2 to the m_nExponent.
struct cBinary
{
    uint64_t m_nSignificand;
    int      m_nExponent;
};

const int kPlaces = 5;  // words after the point

// From the last word to the first, which is that before the point and has the sign,
// as a complement of two.
struct cFixed
{
    uint64_t m_nWords[kPlaces + 1];
};

}  // namespace

// dMagnitude is finite and not negative.
static cBinary BinaryOf(double dMagnitude)
{
    const int nField = ExponentField(dMagnitude);
    if (nField == 0)
        return {BitsOf(dMagnitude), -1074};
    return {(BitsOf(dMagnitude) & kSignificand) | (kSignificand + 1), nField - 1075};
}

// --- powers that are exact

// Returns 0 and leaves the number as it is if it is no square.
static int TakeRoot(cBinary *pOdd)
{
    const double dRoot = Sqrt(static_cast<double>(pOdd->m_nSignificand));
    const auto   nRoot = static_cast<uint64_t>(dRoot);
    if (pOdd->m_nExponent % 2 || nRoot * nRoot != pOdd->m_nSignificand)
        return 0;
    *pOdd = {nRoot, pOdd->m_nExponent / 2};
    return 1;
}

// The exact power, if its odd part has at most 54 bits, as that of a middle has: it
// is a whole power of a square root of a square root ... of the base. The power of
// an odd number from 3 up is at most the 34th.
static int ExactPower(double dBase, double dPower, cWide *pExact)
{
    cBinary   Root   = BinaryOf(dBase);
    const int nZeros = std::countr_zero(Root.m_nSignificand);
    Root             = {Root.m_nSignificand >> nZeros, Root.m_nExponent + nZeros};
    while (Magnitude(dPower) < 0x1p51 && NearestInteger(dPower) != dPower)
    {
        if (!TakeRoot(&Root))
            return 0;
        dPower *= 2.0;
    }
    if (Root.m_nSignificand > 1 && !(dPower > 0.0 && dPower <= 34.0))
        return 0;
    cUint128 nProduct = 1;
    for (int i = 0; Root.m_nSignificand > 1 && i < static_cast<int>(dPower); i++)
    {
        nProduct *= Root.m_nSignificand;
        if (nProduct >> 54)
            return 0;
    }
    *pExact = MakeWide(0, static_cast<int>(Root.m_nExponent * dPower), nProduct);
    return 1;
}

// --- logarithms with 320 places

static cFixed Sum(const cFixed &A, const cFixed &B)
{
    cFixed   Result;
    cUint128 nCarry = 0;
    for (int i = 0; i <= kPlaces; i++)
    {
        nCarry += static_cast<cUint128>(A.m_nWords[i]) + B.m_nWords[i];
        Result.m_nWords[i] = static_cast<uint64_t>(nCarry);
        nCarry >>= 64;
    }
    return Result;
}

static cFixed Opposite(const cFixed &A)
{
    cFixed Result;
    int    bCarry = 1;
    for (int i = 0; i <= kPlaces; i++)
    {
        Result.m_nWords[i] = ~A.m_nWords[i] + (bCarry ? 1 : 0);
        bCarry             = bCarry && Result.m_nWords[i] == 0;
    }
    return Result;
}

static int IsNegative(const cFixed &A)
{
    return A.m_nWords[kPlaces] >> 63 ? 1 : 0;
}

static int IsZero(const cFixed &A)
{
    uint64_t nBits = 0;
    for (const uint64_t nWord : A.m_nWords)
        nBits |= nWord;
    return nBits == 0;
}

// Of a number that is not negative.
static cFixed Product(const cFixed &A, uint64_t nFactor)
{
    cFixed   Result;
    cUint128 nCarry = 0;
    for (int i = 0; i <= kPlaces; i++)
    {
        nCarry += static_cast<cUint128>(A.m_nWords[i]) * nFactor;
        Result.m_nWords[i] = static_cast<uint64_t>(nCarry);
        nCarry >>= 64;
    }
    return Result;
}

// Of numbers from 0 to below 1. Digits that do not fit are cut off.
static cFixed Product(const cFixed &A, const cFixed &B)
{
    uint64_t nDigits[2 * kPlaces] = {};
    for (int i = 0; i < kPlaces; i++)
    {
        uint64_t nCarry = 0;
        for (int j = 0; j < kPlaces; j++)
        {
            const cUint128 nDigit =
                static_cast<cUint128>(A.m_nWords[i]) * B.m_nWords[j] + nDigits[i + j] + nCarry;
            nDigits[i + j] = static_cast<uint64_t>(nDigit);
            nCarry         = static_cast<uint64_t>(nDigit >> 64);
        }
        nDigits[i + kPlaces] = nCarry;
    }
    cFixed Result = {};
    for (int i = 0; i < kPlaces; i++)
        Result.m_nWords[i] = nDigits[i + kPlaces];
    return Result;
}

// nRest, a number of whole units below nDivisor, and the places of A, divided.
static cFixed Quotient(uint64_t nRest, const cFixed &A, uint64_t nDivisor)
{
    cFixed Result = {};
    for (int i = kPlaces - 1; i >= 0; i--)
    {
        const cUint128 nDividend = Words(nRest, A.m_nWords[i]);
        Result.m_nWords[i]       = static_cast<uint64_t>(nDividend / nDivisor);
        nRest                    = static_cast<uint64_t>(nDividend % nDivisor);
    }
    return Result;
}

// Of a number that is not negative, times 2 to the nBits.
static cFixed Shifted(cFixed A, int nBits)
{
    for (; nBits > 0; nBits--)
        A = Sum(A, A);
    for (; nBits < 0; nBits++)
    {
        for (int i = 0; i < kPlaces; i++)
            A.m_nWords[i] = A.m_nWords[i] >> 1 | A.m_nWords[i + 1] << 63;
        A.m_nWords[kPlaces] >>= 1;
    }
    return A;
}

// ln((1 + t)/(1 - t)) = 2 (t + t^3/3 + t^5/5 ...), for a fraction t up to 1/3.
static cFixed LnOfRatio(uint64_t nNumerator, uint64_t nDenominator)
{
    cFixed       Term   = Quotient(nNumerator, {}, nDenominator);
    const cFixed Square = Product(Term, Term);
    cFixed       Result = Term;
    for (uint64_t n = 3; !IsZero(Term); n += 2)
    {
        Term   = Product(Term, Square);
        Result = Sum(Result, Quotient(0, Term, n));
    }
    return Sum(Result, Result);
}

// The logarithm of a number above 0 that has up to 54 bits.
static cFixed LongLn(const cBinary &Value)
{
    const uint64_t kOne         = uint64_t{1} << 56;
    const int      nZeros       = std::countl_zero(Value.m_nSignificand) - 7;
    const uint64_t nFromOne     = Value.m_nSignificand << nZeros;  // to 2
    const int      bHalf        = nFromOne > kOne / 8 * 11;
    const uint64_t nSignificand = bHalf ? nFromOne / 2 : nFromOne;
    const int      nExponent    = Value.m_nExponent - nZeros + 56 + bHalf;
    const int      bBelow       = nSignificand < kOne;
    const uint64_t nDistance    = bBelow ? kOne - nSignificand : nSignificand - kOne;
    const cFixed   Ln           = LnOfRatio(nDistance, nSignificand + kOne);
    const auto     nTwos        = static_cast<uint64_t>(nExponent < 0 ? -nExponent : nExponent);
    const cFixed   LnOfTwos     = Product(LnOfRatio(1, 3), nTwos);
    return Sum(nExponent < 0 ? Opposite(LnOfTwos) : LnOfTwos, bBelow ? Opposite(Ln) : Ln);
}

static int IsAbove(double dBase, double dPower, const cBinary &Middle)
{
    const cBinary Factor  = BinaryOf(Magnitude(dPower));
    const cFixed  Ln      = LongLn(BinaryOf(dBase));
    const int     bMinus  = IsNegative(Ln) != (dPower < 0.0 ? 1 : 0);
    const cFixed  LnSize  = IsNegative(Ln) ? Opposite(Ln) : Ln;
    const cFixed  Power   = Shifted(Product(LnSize, Factor.m_nSignificand), Factor.m_nExponent);
    const cFixed  LnAbove = Opposite(LongLn(Middle));
    return !IsNegative(Sum(bMinus ? Opposite(Power) : Power, LnAbove));
}

double RoundPowerAbove(double dBelow, double dBase, double dPower)
{
    cWide Exact;
    if (ExactPower(dBase, dPower, &Exact))
        return RoundToDouble(Exact);
    const cBinary Below  = BinaryOf(dBelow);
    const cBinary Middle = {2 * Below.m_nSignificand + 1, Below.m_nExponent - 1};
    return IsAbove(dBase, dPower, Middle) ? FromBits(BitsOf(dBelow) + 1) : dBelow;
}
