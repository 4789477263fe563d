#include "toolkit/floating_chars.h"

#include <cmath>
#include <cstdlib>
#include <string>

// Nothing but zeros before the exponent.
static int IsZero(const std::string &Text)
{
    const size_t nExponent = Text.find_first_of("eE");
    return Text.substr(0, nExponent).find_first_of("123456789") == std::string::npos;
}

template <class cFloating>
static std::from_chars_result Take(const char *pFirst, const char                          *pEnd,
                                   cFloating (*pConvert)(const char *, char **), cFloating *pValue)
{
    const std::string Text(pFirst, pEnd);
    char             *pAfter = nullptr;
    const cFloating   Value  = pConvert(Text.c_str(), &pAfter);
    const char *const pNext  = pFirst + (pAfter - Text.c_str());
    if (pNext == pFirst)
        return {pFirst, std::errc::invalid_argument};
    if (std::isinf(Value) || (Value == 0 && !IsZero(Text)))
        return {pNext, std::errc::result_out_of_range};
    *pValue = Value;
    return {pNext, std::errc()};
}

std::from_chars_result FromCharsInC(const char *pFirst, const char *pEnd, double &dValue)
{
    return Take(pFirst, pEnd, strtod, &dValue);
}

std::from_chars_result FromCharsInC(const char *pFirst, const char *pEnd, float &fValue)
{
    return Take(pFirst, pEnd, strtof, &fValue);
}
