// floating_chars.h - text becomes a float or a double as std::from_chars does it, also
// where the standard library knows that only for integers.
//
// The text is a plain decimal number without a sign: digits, a point, an exponent. The
// caller has checked that.

#ifndef TOOLKIT_FLOATING_CHARS_H
#define TOOLKIT_FLOATING_CHARS_H

#include <charconv>

// By strtod() and strtof(). Only for C libraries that round correctly and know no
// locale but "C". ec is result_out_of_range for a number that is too large or too small;
// the value is then as it was.
std::from_chars_result FromCharsInC(const char *pFirst, const char *pEnd, double &dValue);
std::from_chars_result FromCharsInC(const char *pFirst, const char *pEnd, float &fValue);

template <class cFloating>
std::from_chars_result FloatingFromChars(const char *pFirst, const char *pEnd, cFloating &Value)
{
#ifdef __cpp_lib_to_chars
    return std::from_chars(pFirst, pEnd, Value);
#else
    return FromCharsInC(pFirst, pEnd, Value);
#endif
}

#endif
