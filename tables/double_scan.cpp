#include "tables/double_scan.h"

#include <algorithm>
#include <cfloat>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

#include "graph/float_scan.h"
#include "toolkit/floating_chars.h"

// Powers of ten that a double holds exactly.
static const double s_ExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

static const int kMostExactDigits = 15;  // every number of so many digits is a double

static int IsDecimalDigit(char c)
{
    return c >= '0' && c <= '9';
}

static uint64_t DigitValue(char c)
{
    return static_cast<uint64_t>(c - '0');
}

static int IsSign(char c)
{
    return c == '+' || c == '-';
}

static const char *EndOfDigits(const char *pText, const char *pEnd)
{
    while (pText < pEnd && IsDecimalDigit(*pText))
        pText++;
    return pText;
}

// The end of the number that begins here, after its sign; null if there is none.
static const char *EndOfNumber(const char *pText, const char *pEnd, char cPoint)
{
    const char *pNext   = EndOfDigits(pText, pEnd);
    auto        nDigits = pNext - pText;
    if (pNext < pEnd && *pNext == cPoint)
    {
        const char *const pFraction = pNext + 1;
        pNext                       = EndOfDigits(pFraction, pEnd);
        nDigits += pNext - pFraction;
    }
    if (nDigits == 0)
        return nullptr;
    if (pNext == pEnd || (*pNext | 0x20) != 'e')
        return pNext;
    const char *pExponent = pNext + 1;
    if (pExponent < pEnd && IsSign(*pExponent))
        pExponent++;
    const char *const pAfter = EndOfDigits(pExponent, pEnd);
    return pAfter > pExponent ? pAfter : pNext;
}

// A number without a sign that is in the range of a double or not.
static double Convert(std::string Text, char cPoint)
{
    std::replace(Text.begin(), Text.end(), cPoint, '.');
    double dValue = 0.0;
    if (FloatingFromChars(Text.data(), Text.data() + Text.size(), dValue).ec !=
        std::errc::result_out_of_range)
        return dValue;
    // What a double cannot hold, a float cannot: it tells too large from too small.
    float fValue = 0.0F;
    ReadFloat(Text.c_str(), &fValue);
    return fValue == FLT_MAX ? std::numeric_limits<double>::infinity() : 0.0;
}

// Most numbers of a table have few digits and no exponent. Digits and power of ten
// are both exact then, and their quotient is rounded once. Returns null if this one
// is not so simple.
static const char *ReadSimple(const char *pText, const char *pEnd, char cPoint, double *pValue)
{
    int      nDigits   = 0;
    int      nDecimals = 0;
    uint64_t nValue    = 0;  // of too many digits: meaningless
    for (; pText < pEnd && IsDecimalDigit(*pText); pText++, nDigits++)
        nValue = 10 * nValue + DigitValue(*pText);
    if (pText < pEnd && *pText == cPoint)
        for (pText++; pText < pEnd && IsDecimalDigit(*pText); pText++, nDecimals++)
            nValue = 10 * nValue + DigitValue(*pText);
    nDigits += nDecimals;
    if (nDigits == 0 || nDigits > kMostExactDigits || (pText < pEnd && (*pText | 0x20) == 'e'))
        return nullptr;
    *pValue = static_cast<double>(static_cast<int64_t>(nValue)) / s_ExactPowers[nDecimals];
    return pText;
}

const char *ReadDouble(const char *pText, const char *pEnd, char cPoint, double *pValue)
{
    const int bNegative = pText < pEnd && *pText == '-';
    if (pText < pEnd && IsSign(*pText))
        pText++;
    double      dAbs   = 0.0;
    const char *pAfter = ReadSimple(pText, pEnd, cPoint, &dAbs);
    if (!pAfter)
    {
        pAfter = EndOfNumber(pText, pEnd, cPoint);
        if (!pAfter)
            return nullptr;
        dAbs = Convert(std::string(pText, pAfter), cPoint);
    }
    *pValue = bNegative ? -dAbs : dAbs;
    return pAfter;
}

// Word is in small letters.
static int BeginsWithWord(std::string_view Text, std::string_view Word)
{
    return Text.size() >= Word.size() &&
           std::equal(Word.begin(), Word.end(), Text.begin(), [](char cWord, char c) {
               return cWord == (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
           });
}

const char *SkipGapWord(const char *pText, const char *pEnd)
{
    static const struct
    {
        std::string_view m_Word;
        int              m_bSigned;
    } s_Words[] = {
        {"nan", 1}, {"na", 0}, {"n/a", 0}, {"null", 0}, {"none", 0}, {"inf", 1}, {"infinity", 1},
    };
    const int              bSigned = pText < pEnd && IsSign(*pText);
    const std::string_view Text(pText + bSigned, static_cast<size_t>(pEnd - pText - bSigned));
    for (const auto &Row : s_Words)
    {
        if ((bSigned && !Row.m_bSigned) || !BeginsWithWord(Text, Row.m_Word))
            continue;
        const std::string_view Rest = Text.substr(Row.m_Word.size());
        if (Rest.empty() || std::string_view(" \t\v\f,;").find(Rest[0]) != std::string_view::npos)
            return Rest.data();
    }
    return nullptr;
}
