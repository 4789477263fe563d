// range.h - the range of results.

#ifndef ENGINE_RANGE_H
#define ENGINE_RANGE_H

// Results stay within +-kLargest; magnitudes below kSmallest become 0.
const double kLargest  = 9.999999999e99;
const double kSmallest = 1e-99;

// A NaN passes unchanged.
inline double Clamp(double dValue)
{
    if (dValue > kLargest)
        return kLargest;
    if (dValue < -kLargest)
        return -kLargest;
    if (dValue > -kSmallest && dValue < kSmallest)
        return 0.0;
    return dValue;
}

#endif
