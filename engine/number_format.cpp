#include "engine/number_format.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "engine/elementary/wide_number.h"

// Sign, up to 309 integer digits, point, 9 places.
static const int kPrintRoom = 336;

// What fixed notation mostly prints is scaled to an integer of at most 20 digits.
static const double kMostScaled   = 1e10;
static const int    kScaledDigits = 20;

// Of a double: the bits of its fraction, and the exponent, as it is stored, of a
// fraction that counts units.
static const int kFractionBits = 52;
static const int kUnitExponent = 1023 + kFractionBits;

static const int kWideBits = 128;

static const char *const kTenSignificant = "%+.9le";

// FIX shows at most 12 characters, sign and point included; the rest is cut,
// not rounded.
static const size_t kFixCharacters = 12;

void BuildFormat(unsigned nDigits, char cConversion, char (&szFormat)[12])
{
    snprintf(szFormat, sizeof szFormat, "%%+.%1ul%c", nDigits, cConversion);
}

static const char *NonFiniteText(double dValue)
{
    if (std::isnan(dValue))
        return "+nan";
    return dValue > 0.0 ? "+inf" : "-inf";
}

// dMagnitude x 10^nPlaces as an integer, exactly rounded, ties to even; dMagnitude is
// below 1e10 and nPlaces at most 9. A double is an integer of 53 bits times a power
// of two, and 10^9 has 30 bits, so 128 bits hold the exact product.
static uint64_t ScaleExactly(double dMagnitude, int nPlaces)
{
    static const uint64_t s_Tens[] = {1,      10,      100,      1000,      10000,
                                      100000, 1000000, 10000000, 100000000, 1000000000};
    const auto            nBits    = std::bit_cast<uint64_t>(dMagnitude);
    const int             nBiased  = static_cast<int>(nBits >> kFractionBits);
    const uint64_t        nHidden  = nBiased > 0 ? uint64_t{1} << kFractionBits : 0;
    const uint64_t        nInteger = (nBits & ((uint64_t{1} << kFractionBits) - 1)) | nHidden;
    const cUint128        nProduct = static_cast<cUint128>(nInteger) * s_Tens[nPlaces];
    const int             nShift   = kUnitExponent - std::max(nBiased, 1);
    if (nShift <= 0)
        return static_cast<uint64_t>(nProduct << -nShift);
    if (nShift >= kWideBits)  // the product is far below a half
        return 0;
    const cUint128 nHalf  = static_cast<cUint128>(1) << (nShift - 1);
    const cUint128 nRest  = nProduct & (2 * nHalf - 1);
    const auto     nFloor = static_cast<uint64_t>(nProduct >> nShift);
    return nFloor + (nRest > nHalf || (nRest == nHalf && nFloor % 2 == 1));
}

// Digits of dMagnitude in fixed notation. Returns their end.
static char *PrintFixed(double dMagnitude, int nPlaces, char *pText, char *pTextEnd)
{
    if (!(dMagnitude < kMostScaled))
        return std::to_chars(pText, pTextEnd, dMagnitude, std::chars_format::fixed, nPlaces).ptr;

    // With one digit more than places, at least, so that one is left of the point.
    char           szDigits[kScaledDigits];
    const uint64_t nScaled = ScaleExactly(dMagnitude, nPlaces);
    char *const    pEnd    = szDigits + sizeof szDigits;
    char          *pFirst  = pEnd;
    for (uint64_t nLeft = nScaled; nLeft > 0 || pEnd - pFirst <= nPlaces; nLeft /= 10)
        *--pFirst = static_cast<char>('0' + nLeft % 10);

    const auto nIntegers = static_cast<size_t>(pEnd - nPlaces - pFirst);
    memcpy(pText, pFirst, nIntegers);
    pText += nIntegers;
    if (nPlaces == 0)
        return pText;
    *pText++ = '.';
    memcpy(pText, pEnd - nPlaces, static_cast<size_t>(nPlaces));
    return pText + nPlaces;
}

void PrintNumber(const char *szFormat, double dValue, char *szText, size_t nSize)
{
    if (!std::isfinite(dValue))
    {
        snprintf(szText, nSize, "%s", NonFiniteText(dValue));
        return;
    }
    char              szPrinted[kPrintRoom];
    const int         nDigits    = szFormat[3] - '0';
    const double      dMagnitude = std::fabs(dValue);
    char *const       pFirst     = szPrinted + 1;
    char *const       pMost      = szPrinted + sizeof szPrinted;
    const char *const pEnd =
        szFormat[5] == 'f'
            ? PrintFixed(dMagnitude, nDigits, pFirst, pMost)
            : std::to_chars(pFirst, pMost, dMagnitude, std::chars_format::scientific, nDigits).ptr;
    szPrinted[0]         = std::signbit(dValue) ? '-' : '+';
    const size_t nLength = std::min(static_cast<size_t>(pEnd - szPrinted), nSize - 1);
    memcpy(szText, szPrinted, nLength);
    szText[nLength] = 0;
}

// The digits after "e+" or "e-", or null if there is no exponent.
static char *ExponentDigits(char *szText)
{
    char *const pExponent = strchr(szText, 'e');
    return pExponent ? pExponent + 2 : nullptr;
}

static int HasThreeDigitExponent(char *szText)
{
    const char *const pDigits = ExponentDigits(szText);
    return pDigits && strlen(pDigits) > 2;
}

// A wrong two-digit exponent is kept on purpose rather than an overlong text.
static void DropFirstExponentDigit(char *szText)
{
    char *const pDigits = ExponentDigits(szText);
    memmove(pDigits, pDigits + 1, strlen(pDigits));
}

static unsigned FormatScientific(double dValue, const char *szFormat, char (&szText)[kStackText])
{
    PrintNumber(szFormat, dValue, szText, sizeof szText);
    if (!HasThreeDigitExponent(szText))
        return 0;
    PrintNumber(kTenSignificant, dValue, szText, sizeof szText);
    if (!HasThreeDigitExponent(szText))
        return 0;
    DropFirstExponentDigit(szText);
    return kCodeExponent;
}

static unsigned FormatFixed(double dValue, const cNumberFormat &Format, char (&szText)[kStackText])
{
    const double dMagnitude = std::fabs(dValue);
    const int    bFits =
        dValue == 0.0 || (dMagnitude >= Format.m_dFixMin && dMagnitude < Format.m_dFixMax);
    if (!bFits)
        return FormatScientific(dValue, Format.m_szSciFormat, szText);
    PrintNumber(Format.m_szFixFormat, dValue, szText, sizeof szText);
    szText[kFixCharacters] = 0;
    return 0;
}

// The decimal digits of a magnitude: dValue = 0.DIGITS x 10^m_nPoint.
struct cDecimalDigits
{
    char m_szDigits[12];
    int  m_nPoint;
};

static cDecimalDigits SplitDigits(double dValue, unsigned nDigits)
{
    char szFormat[12];
    char szPrinted[kStackText];
    BuildFormat(nDigits - 1, 'e', szFormat);
    PrintNumber(szFormat, dValue, szPrinted, sizeof szPrinted);

    // "+d.ddde+xx"; a single digit has no point.
    cDecimalDigits Digits = {};
    Digits.m_szDigits[0]  = szPrinted[1];
    if (nDigits > 1)
        memcpy(Digits.m_szDigits + 1, szPrinted + 3, nDigits - 1);
    const char *const pExponent = ExponentDigits(szPrinted);
    int               nExponent = 0;
    std::from_chars(pExponent, pExponent + strlen(pExponent), nExponent);
    Digits.m_nPoint = (pExponent[-1] == '-' ? -nExponent : nExponent) + 1;
    return Digits;
}

// The multiple of three that leaves 1 to 3 digits before the point.
static int EngineeringExponent(int nPoint)
{
    if (nPoint >= 1)
        return (nPoint - 1) / 3 * 3;
    return nPoint / 3 * 3 - 3;
}

// 10 with ENG 2 shows "+1.000000000e+01", not "+10.0e+00": odd and kept. The
// exponent is printed with three digits and always loses the first.
static void FormatTen(double dValue, char (&szText)[kStackText])
{
    PrintNumber(kTenSignificant, dValue, szText, sizeof szText);
    if (HasThreeDigitExponent(szText))
        DropFirstExponentDigit(szText);
}

static unsigned FormatEngineering(double dValue, unsigned nDigits, char (&szText)[kStackText])
{
    cDecimalDigits Digits    = SplitDigits(dValue, nDigits + 1);
    int            nExponent = 0;
    if (dValue == 0.0)
        Digits.m_nPoint = 1;
    else
        nExponent = EngineeringExponent(Digits.m_nPoint);

    unsigned nCode     = 0;
    int      nIntegers = Digits.m_nPoint - nExponent;
    if (nIntegers < 1 || nIntegers > 3)
    {
        nCode     = kCodeIntegerDigits;
        nIntegers = 1;
    }
    for (int i = static_cast<int>(nDigits) + 1; i < nIntegers; i++)
        Digits.m_szDigits[i] = '0';

    const char *const szPlaces = Digits.m_szDigits + nIntegers;
    snprintf(szText, sizeof szText, "%c%.*s.%.9se%+03d", std::signbit(dValue) ? '-' : '+',
             nIntegers, Digits.m_szDigits, szPlaces, nExponent);
    if (strncmp(szText + 1, "10.", 3) == 0)
        FormatTen(dValue, szText);
    return nCode;
}

unsigned FormatNumber(double dValue, const cNumberFormat &Format, char (&szText)[kStackText])
{
    if (!std::isfinite(dValue))
    {
        PrintNumber(kTenSignificant, dValue, szText, sizeof szText);
        return 0;
    }
    if (Format.m_nDisplayMode == kModeFix)
        return FormatFixed(dValue, Format, szText);
    if (Format.m_nDisplayMode == kModeSci)
        return FormatScientific(dValue, Format.m_szSciFormat, szText);
    return FormatEngineering(dValue, Format.m_nDisplayDigits, szText);
}
