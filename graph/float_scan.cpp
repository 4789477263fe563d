#include "graph/float_scan.h"

#include <cfloat>
#include <system_error>

#include "toolkit/floating_chars.h"

// Far above any exponent that decides between too large and too small, and far
// below what an int can hold.
static const int kExponentCap = 100000000;

static int IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Space, tab, newline, vertical tab, form feed, carriage return.
static int IsWhite(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

static const char *SkipWhite(const char *pText)
{
    while (IsWhite(*pText))
        pText++;
    return pText;
}

static const char *SkipDigits(const char *pText)
{
    while (IsDigit(*pText))
        pText++;
    return pText;
}

// Returns pText itself where there is no complete exponent.
static const char *SkipExponent(const char *pText)
{
    if (*pText != 'e' && *pText != 'E')
        return pText;
    const char *pDigits = pText + 1;
    if (*pDigits == '+' || *pDigits == '-')
        pDigits++;
    return IsDigit(*pDigits) ? SkipDigits(pDigits) : pText;
}

// pText points to the first character of the number, if there is one.
static const char *NumberEnd(const char *pText)
{
    if (*pText == '+' || *pText == '-')
        pText++;
    const char *pEnd    = SkipDigits(pText);
    auto        nDigits = pEnd - pText;
    if (*pEnd == '.')
    {
        const char *pFraction = pEnd + 1;
        pEnd                  = SkipDigits(pFraction);
        nDigits += pEnd - pFraction;
    }
    return nDigits > 0 ? SkipExponent(pEnd) : nullptr;
}

static int ExponentValue(const char *pText)
{
    if (*pText != 'e' && *pText != 'E')
        return 0;
    pText++;
    const int bNegative = *pText == '-';
    if (*pText == '+' || *pText == '-')
        pText++;
    int nValue = 0;
    for (; IsDigit(*pText); pText++)
        if (nValue < kExponentCap)
            nValue = 10 * nValue + (*pText - '0');
    return bNegative ? -nValue : nValue;
}

// Distinguishes a number that is too large from one that is too small: is the
// decimal exponent of its first non-zero digit positive? pText is after the sign.
static int IsLarge(const char *pText)
{
    while (*pText == '0')
        pText++;
    int nExponent = 0;
    for (; IsDigit(*pText); pText++)
        if (nExponent < kExponentCap)
            nExponent++;
    if (*pText == '.')
    {
        pText++;
        if (nExponent == 0)
            for (; *pText == '0'; pText++)
                if (nExponent > -kExponentCap)
                    nExponent--;
        pText = SkipDigits(pText);
    }
    return nExponent + ExponentValue(pText) > 0;
}

const char *SkipFloat(const char *szText)
{
    return NumberEnd(SkipWhite(szText));
}

const char *ReadFloat(const char *szText, float *pValue)
{
    const char *pStart = SkipWhite(szText);
    const char *pEnd   = NumberEnd(pStart);
    if (!pEnd)
        return nullptr;

    const int bNegative = *pStart == '-';
    if (*pStart == '+' || *pStart == '-')
        pStart++;
    float fAbs = 0.0F;
    if (FloatingFromChars(pStart, pEnd, fAbs).ec == std::errc::result_out_of_range)
        fAbs = IsLarge(pStart) ? FLT_MAX : 0.0F;
    *pValue = bNegative ? -fAbs : fAbs;
    return pEnd;
}
