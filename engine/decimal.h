// decimal.h - decimal numbers as they are keyed and written in listings:
// sign, digits, point, digits, "e" with sign and digits. ".5", "5." and "1E5"
// are numbers; hexadecimal, "inf" and "nan" are not.
// Pure: no locale.

#ifndef ENGINE_DECIMAL_H
#define ENGINE_DECIMAL_H

#include <cstddef>

// Length of the number at the start of szText, 0 if there is none. An
// exponent without digits is not part of the number: 1 for "1e+".
size_t DecimalLength(const char *szText);

// The number at the start of szText, correctly rounded; 0.0 if there is none.
// Beyond the range of a double it is infinite or 0.0. Returns 1 when the
// number is all of the text.
int ParseDecimal(const char *szText, double *pdValue);

#endif
