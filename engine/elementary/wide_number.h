// wide_number.h - numbers of 128 significant bits, in integers. The elementary
// functions use them where doubles leave the rounding of a result open.
// Operations are wrong by at most 2^-125 of their result.

#ifndef ENGINE_ELEMENTARY_WIDE_NUMBER_H
#define ENGINE_ELEMENTARY_WIDE_NUMBER_H

#include <cstdint>

__extension__ typedef unsigned __int128 cUint128;

constexpr cUint128 Words(uint64_t nHigh, uint64_t nLow)
{
    return static_cast<cUint128>(nHigh) << 64 | nLow;
}

// m_nMantissa times 2 to the m_nExponent. The mantissa's first bit is 1, unless
// the number is 0.
struct cWide
{
    int      m_bMinus;
    int      m_nExponent;
    cUint128 m_nMantissa;
};

const cWide kWideOne = {0, -127, Words(0x8000000000000000, 0)};

// nMantissa times 2 to the nExponent, for any mantissa.
cWide MakeWide(int bMinus, int nExponent, cUint128 nMantissa);

// A finite double, exactly.
cWide MakeWide(double dValue);

// The first 128 bits of the product's 256.
cUint128 MultiplyHigh(cUint128 nA, cUint128 nB);

cWide Negative(const cWide &A);
cWide Add(const cWide &A, const cWide &B);
cWide Multiply(const cWide &A, const cWide &B);
cWide Divide(const cWide &A, const cWide &B);  // B is not 0
cWide SquareRoot(const cWide &A);              // A is not negative

// A's magnitude, below 1, in units of 2^-128. What is smaller gets lost.
cUint128 Fraction(const cWide &A);

// The nearest double, the even one of two; infinite beyond the largest.
double RoundToDouble(const cWide &A);

#endif
