// special_numbers.h - numbers that many tests compare with.

#ifndef TESTS_UNIT_SPECIAL_NUMBERS_H
#define TESTS_UNIT_SPECIAL_NUMBERS_H

#include <limits>

inline constexpr double kNan      = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kMost     = 9.999999999e99;  // the calculator's largest number
inline constexpr double kPi       = 3.141592653589793;

#endif
