// double_bits.h - the bits of a double, and pairs of doubles whose sum is a
// number of some 100 bits. The methods are those of T. J. Dekker, "A
// floating-point technique for extending the available precision" (1971): a
// product is exact where the factors have 53 bits in all.
//
// All of it relies on each operation being rounded to double, once.

#ifndef ENGINE_ELEMENTARY_DOUBLE_BITS_H
#define ENGINE_ELEMENTARY_DOUBLE_BITS_H

#include <bit>
#include <cstdint>

// m_dHigh + m_dLow. m_dLow is at most some units in the last place of m_dHigh.
struct cDoublePair
{
    double m_dHigh;
    double m_dLow;
};

const uint64_t kSignBit       = uint64_t{1} << 63;
const uint64_t kInfinityBits  = uint64_t{0x7ff} << 52;
const uint64_t kSignificand   = (uint64_t{1} << 52) - 1;
const int      kExponentOfOne = 1023;

static inline uint64_t BitsOf(double dValue)
{
    return std::bit_cast<uint64_t>(dValue);
}

static inline double FromBits(uint64_t nBits)
{
    return std::bit_cast<double>(nBits);
}

static inline double Magnitude(double dValue)
{
    return __builtin_fabs(dValue);
}

// dMagnitude is not negative.
static inline double WithSignOf(double dMagnitude, double dSign)
{
    return FromBits(BitsOf(dMagnitude) | (BitsOf(dSign) & kSignBit));
}

// 0 to 2047: 0 for 0 and subnormal numbers, 2047 for infinities and NaN.
static inline int ExponentField(double dValue)
{
    return static_cast<int>(BitsOf(dValue) >> 52 & 0x7ff);
}

static inline int IsNan(double dValue)
{
    return dValue != dValue;
}

// Two numbers in one register, of which the first is used: bits are masked where
// doubles are added, which saves the way to the integers and back.
typedef double  cDoubleLanes __attribute__((vector_size(16)));
typedef int64_t cBitLanes __attribute__((vector_size(16)));

// The first nBits significant bits; the rest has 53 - nBits.
template <int nBits> static inline double Leading(double dValue)
{
    const cDoubleLanes Lanes = {dValue, dValue};
    const cBitLanes    Mask  = {-(int64_t{1} << (53 - nBits)), 0};
    return std::bit_cast<cDoubleLanes>(std::bit_cast<cBitLanes>(Lanes) & Mask)[0];
}

// The nearest integer, the even one of two, for magnitudes below 2^51.
static inline double NearestInteger(double dValue)
{
    const double kThreeHalves = 6755399441055744.0;  // 1.5 x 2^52: units are its last bits
    return (dValue + kThreeHalves) - kThreeHalves;
}

// The sum as a pair, where dA is 0 or not smaller than dB, or the last bits of
// both are those of numbers for which that is so.
static inline cDoublePair FastTwoSum(double dA, double dB)
{
    const double dSum = dA + dB;
    return {dSum, dB - (dSum - dA)};
}

// The sum as a pair; by Møller and Knuth.
static inline cDoublePair TwoSum(double dA, double dB)
{
    const double dSum   = dA + dB;
    const double dPartB = dSum - dA;
    return {dSum, (dA - (dSum - dPartB)) + (dB - dPartB)};
}

// Whether a number that differs from the pair by at most dError is certain to
// round as the pair does, which is *pdRounded then. The test is that of A. Ziv,
// "Fast evaluation of elementary mathematical functions with correctly rounded
// last bit" (1991).
static inline int Rounds(const cDoublePair &Pair, double dError, double *pdRounded)
{
    *pdRounded = Pair.m_dHigh + (Pair.m_dLow + dError);
    return *pdRounded == Pair.m_dHigh + (Pair.m_dLow - dError);
}

#endif
