#include "engine/decimal.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "toolkit/floating_chars.h"

static int IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

static int IsSign(char c)
{
    return c == '+' || c == '-';
}

static size_t CountDigits(const char *szText)
{
    size_t nDigits = 0;
    while (IsDigit(szText[nDigits]))
        nDigits++;
    return nDigits;
}

// Length of "e+05" at the start of szText, 0 if it has no digits.
static size_t ExponentLength(const char *szText)
{
    if (*szText != 'e' && *szText != 'E')
        return 0;
    const size_t nSign   = IsSign(szText[1]) ? 1 : 0;
    const size_t nDigits = CountDigits(szText + 1 + nSign);
    return nDigits ? 1 + nSign + nDigits : 0;
}

size_t DecimalLength(const char *szText)
{
    size_t       nLength   = IsSign(*szText) ? 1 : 0;
    const size_t nIntegers = CountDigits(szText + nLength);
    nLength += nIntegers;
    size_t nPlaces = 0;
    if (szText[nLength] == '.')
    {
        nPlaces = CountDigits(szText + nLength + 1);
        nLength += 1 + nPlaces;
    }
    if (nIntegers + nPlaces == 0)
        return 0;
    return nLength + ExponentLength(szText + nLength);
}

// Power of ten of the first digit that is not 0: 2 for "123", -3 for "0.001".
static long long LeadingPower(const char *pText, const char *pEnd)
{
    long long nPower   = -1;
    int       bPoint   = 0;
    int       bLeading = 1;
    for (; pText < pEnd && (IsDigit(*pText) || *pText == '.'); pText++)
    {
        if (*pText == '.')
            bPoint = 1;
        else if (bLeading && *pText == '0')
            nPower -= bPoint;
        else
        {
            bLeading = 0;
            nPower += !bPoint;
        }
    }
    return nPower;
}

// The exponent after "e", 0 if there is none. Any exponent beyond the number of
// places that a text can have counts as kMostExponent.
static long long Exponent(const char *pText, const char *pEnd)
{
    const long long   kMostExponent = 1000000000000;
    const char *const pMark =
        std::find_if(pText, pEnd, [](char c) { return c == 'e' || c == 'E'; });
    if (pMark == pEnd)
        return 0;
    const int         bMinus    = pMark[1] == '-';
    const char *const pDigits   = pMark + (IsSign(pMark[1]) ? 2 : 1);
    long long         nExponent = 0;
    if (std::from_chars(pDigits, pEnd, nExponent).ec != std::errc())
        nExponent = kMostExponent;
    nExponent = std::min(nExponent, kMostExponent);
    return bMinus ? -nExponent : nExponent;
}

// Whether a number that no double can hold is too large, not too small.
static int IsTooLarge(const char *pText, const char *pEnd)
{
    return LeadingPower(pText, pEnd) + Exponent(pText, pEnd) > 0;
}

int ParseDecimal(const char *szText, double *pdValue)
{
    *pdValue             = 0.0;
    const size_t nLength = DecimalLength(szText);
    if (nLength == 0)
        return 0;
    const char *const pEnd   = szText + nLength;
    const int         bMinus = *szText == '-';
    const char *const pFirst = szText + (IsSign(*szText) ? 1 : 0);
    double            dValue = 0.0;
    if (FloatingFromChars(pFirst, pEnd, dValue).ec == std::errc::result_out_of_range)
        dValue = IsTooLarge(pFirst, pEnd) ? std::numeric_limits<double>::infinity() : 0.0;
    *pdValue = bMinus ? -dValue : dValue;
    return *pEnd == 0;
}
