#include "engine/elementary/wide_number.h"

#include <bit>

#include "engine/elementary/double_bits.h"

static int LeadingZeros(cUint128 n)
{
    const auto nHigh = static_cast<uint64_t>(n >> 64);
    return nHigh ? std::countl_zero(nHigh) : 64 + std::countl_zero(static_cast<uint64_t>(n));
}

// nBits is not negative, unless n is 0.
static cUint128 ShiftRight(cUint128 n, int nBits)
{
    return nBits >= 0 && nBits < 128 ? n >> nBits : 0;
}

cWide MakeWide(int bMinus, int nExponent, cUint128 nMantissa)
{
    if (nMantissa == 0)
        return {0, 0, 0};
    const int nZeros = LeadingZeros(nMantissa);
    return {bMinus, nExponent - nZeros, nMantissa << nZeros};
}

cWide MakeWide(double dValue)
{
    const uint64_t nBits        = BitsOf(dValue);
    const int      bMinus       = nBits >> 63 ? 1 : 0;
    const int      nField       = ExponentField(dValue);
    const uint64_t nSignificand = nBits & kSignificand;
    if (nField == 0)
        return MakeWide(bMinus, -1074, nSignificand);
    return MakeWide(bMinus, nField - 1075, nSignificand | uint64_t{1} << 52);
}

cUint128 MultiplyHigh(cUint128 nA, cUint128 nB)
{
    const auto     nHighA   = static_cast<uint64_t>(nA >> 64);
    const auto     nHighB   = static_cast<uint64_t>(nB >> 64);
    const auto     nLowA    = static_cast<uint64_t>(nA);
    const auto     nLowB    = static_cast<uint64_t>(nB);
    const cUint128 nMiddle1 = static_cast<cUint128>(nHighA) * nLowB;
    const cUint128 nMiddle2 = static_cast<cUint128>(nLowA) * nHighB;
    const cUint128 nCarry   = (static_cast<cUint128>(nLowA) * nLowB >> 64) +
                            static_cast<uint64_t>(nMiddle1) + static_cast<uint64_t>(nMiddle2);
    return static_cast<cUint128>(nHighA) * nHighB + (nMiddle1 >> 64) + (nMiddle2 >> 64) +
           (nCarry >> 64);
}

cWide Negative(const cWide &A)
{
    return {!A.m_bMinus, A.m_nExponent, A.m_nMantissa};
}

static int IsSmaller(const cWide &A, const cWide &B)
{
    if (A.m_nMantissa == 0 || B.m_nMantissa == 0)
        return A.m_nMantissa < B.m_nMantissa;
    if (A.m_nExponent != B.m_nExponent)
        return A.m_nExponent < B.m_nExponent;
    return A.m_nMantissa < B.m_nMantissa;
}

cWide Add(const cWide &A, const cWide &B)
{
    if (IsSmaller(A, B))
        return Add(B, A);
    if (B.m_nMantissa == 0)
        return A;
    const cUint128 nSmaller = ShiftRight(B.m_nMantissa, A.m_nExponent - B.m_nExponent);
    if (A.m_bMinus != B.m_bMinus)
        return MakeWide(A.m_bMinus, A.m_nExponent, A.m_nMantissa - nSmaller);
    const cUint128 nSum = A.m_nMantissa + nSmaller;
    if (nSum >= nSmaller)
        return {A.m_bMinus, A.m_nExponent, nSum};
    return {A.m_bMinus, A.m_nExponent + 1, nSum >> 1 | Words(kSignBit, 0)};
}

cWide Multiply(const cWide &A, const cWide &B)
{
    return MakeWide(A.m_bMinus != B.m_bMinus, A.m_nExponent + B.m_nExponent + 128,
                    MultiplyHigh(A.m_nMantissa, B.m_nMantissa));
}

// The number between 1 and 2 with A's first 53 bits.
static double LeadingDouble(const cWide &A)
{
    const auto nBits = static_cast<uint64_t>(A.m_nMantissa >> 75);
    return FromBits((nBits & kSignificand) | static_cast<uint64_t>(kExponentOfOne) << 52);
}

static cWide Scaled(const cWide &A, int nExponent)
{
    return {A.m_bMinus, A.m_nExponent + nExponent, A.m_nMantissa};
}

// Newton's iteration: 52, 103 and then all bits are right.
cWide Divide(const cWide &A, const cWide &B)
{
    const cWide Divisor    = {0, -127, B.m_nMantissa};
    cWide       Reciprocal = MakeWide(1.0 / LeadingDouble(B));
    for (int i = 0; i < 2; i++)
    {
        const cWide Rest = Add(kWideOne, Negative(Multiply(Divisor, Reciprocal)));
        Reciprocal       = Add(Reciprocal, Multiply(Reciprocal, Rest));
    }
    Reciprocal.m_bMinus = B.m_bMinus;
    return Multiply(A, Scaled(Reciprocal, -127 - B.m_nExponent));
}

// Newton's iteration for the reciprocal root, which needs no division.
cWide SquareRoot(const cWide &A)
{
    if (A.m_nMantissa == 0)
        return A;
    const int    nOdd     = (A.m_nExponent + 127) & 1;
    const cWide  Radicand = {0, -127 + nOdd, A.m_nMantissa};  // 1 to 4
    const double dLeading = LeadingDouble(A) * (nOdd ? 2.0 : 1.0);
    cWide        Inverse  = MakeWide(1.0 / __builtin_sqrt(dLeading));
    for (int i = 0; i < 2; i++)
    {
        const cWide Square = Multiply(Radicand, Multiply(Inverse, Inverse));
        const cWide Rest   = Add(kWideOne, Negative(Square));
        Inverse            = Add(Inverse, Scaled(Multiply(Inverse, Rest), -1));
    }
    return Scaled(Multiply(Radicand, Inverse), (A.m_nExponent + 127 - nOdd) / 2);
}

cUint128 Fraction(const cWide &A)
{
    return ShiftRight(A.m_nMantissa, -128 - A.m_nExponent);
}

// nBits of nMantissa go; returns whether the rest rounds up.
static int RoundsUp(cUint128 nMantissa, int nBits, int bOdd)
{
    const cUint128 nHalf = cUint128{1} << (nBits - 1);
    const cUint128 nRest = nBits == 128 ? nMantissa : nMantissa & ((cUint128{1} << nBits) - 1);
    return nRest > nHalf || (nRest == nHalf && bOdd);
}

double RoundToDouble(const cWide &A)
{
    const uint64_t nSign     = A.m_bMinus ? kSignBit : 0;
    const int      nExponent = A.m_nExponent + 127;  // of the first bit
    if (A.m_nMantissa == 0 || nExponent < -1075)
        return FromBits(nSign);
    if (nExponent > 1023)
        return FromBits(nSign | kInfinityBits);
    const int nDropped = nExponent >= -1022 ? 75 : 75 - 1022 - nExponent;
    uint64_t  nRounded = static_cast<uint64_t>(ShiftRight(A.m_nMantissa, nDropped));
    nRounded += RoundsUp(A.m_nMantissa, nDropped, nRounded & 1) ? 1 : 0;
    // A significand that has become 2 carries into the exponent; 2 is infinite
    // with the largest.
    const int nField = nExponent >= -1022 ? nExponent + 1022 : 0;
    return FromBits(nSign | ((static_cast<uint64_t>(nField) << 52) + nRounded));
}
