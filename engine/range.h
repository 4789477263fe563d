// range.h - the range of results.

#ifndef ENGINE_RANGE_H
#define ENGINE_RANGE_H

#include <cmath>

// Results stay within +-kLargest; magnitudes below kSmallest become 0.
const double kLargest  = 9.999999999e99;
const double kSmallest = 1e-99;

// A NaN passes unchanged. Most lines of a running program come here, with a number that
// is within the range: two comparisons say so.
inline double Clamp(double dValue)
{
    const double dMagnitude = std::fabs(dValue);
    if (dMagnitude >= kSmallest && dMagnitude <= kLargest)
        return dValue;
    if (dValue > kLargest)
        return kLargest;
    if (dValue < -kLargest)
        return -kLargest;
    if (dValue > -kSmallest && dValue < kSmallest)
        return 0.0;
    return dValue;
}

#endif
