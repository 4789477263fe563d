// tables.h - constants of the elementary functions. scripts/elementary-tables
// computes them with 400 bits and writes constants.inc and tables.inc; a test
// compares. Names with a number at the end are parts of a sum, the leading ones
// of so few bits that their products are exact.

#ifndef ENGINE_ELEMENTARY_TABLES_H
#define ENGINE_ELEMENTARY_TABLES_H

#include "engine/elementary/double_bits.h"
#include "engine/elementary/wide_number.h"

#include "engine/elementary/constants.inc"

// 2 to the i/512, and to the i/16 in units of 2^-127.
extern const cDoublePair kTwoTo[512];
extern const cUint128    kWideTwoTo[16];

// 1/i! in units of 2^-127.
extern const cUint128 kInverseFactorial[36];

// Significands from 0.709 to 1.418 in 128 rows, 1 in the middle of one: the
// inverse of about the middle, and minus its logarithm. Inverses are multiples of
// 1/1024, and m_dLogHigh of 2^-42, as kLn2High.
struct cLogRow
{
    double m_dInverse;
    double m_dLogHigh;
    double m_dLogLow;
};
extern const cLogRow kLogRows[128];
extern const cWide   kWideLogs[128];

// 1/(i + 1) in units of 2^-127.
extern const cUint128 kInverse[32];

// The sine of i pi/128; the high parts have 24 bits. The cosine is 64 rows on.
extern const cDoublePair kSines[256];

// 64 zeros and then the binary places of 2/pi.
extern const uint64_t kTwoOverPi[23];

// The arc tangent of i/64.
extern const cWide kWideArcTangents[65];

// A function near one argument: its value, its derivative, whose high part has
// 26 bits, and the Taylor series from the square on.
struct cArcRow
{
    double m_dValueHigh;
    double m_dValueLow;
    double m_dSlopeHigh;
    double m_dSlopeLow;
    double m_dTerms[8];
};

// The arc tangent near i/64, and the arc sine near i/128, up to 3/4.
extern const cArcRow kArcTangentRows[65];
extern const cArcRow kArcSineRows[97];

#endif
