#include "engine/number_entry.h"

#include <cmath>
#include <cstring>

#include "engine/calculator.h"
#include "engine/decimal.h"
#include "engine/program_memory.h"
#include "engine/range.h"

static const unsigned kCodeEntryKey     = 103;
static const unsigned kCodeMantissaSign = 104;
static const unsigned kCodeExponentSign = 105;
static const unsigned kCodeEntryText    = 110;

// Length of the mantissa's text, sign included: ten digits, or ten and a point.
static const size_t kLongestInteger  = 11;
static const size_t kLongestMantissa = 12;

static int IsDigitKey(char cKey)
{
    return cKey >= '0' && cKey <= '9';
}

// The caller has checked that there is room.
static void AppendToEntry(cCalculator &c, char cKey)
{
    const size_t nLength     = strlen(c.m_szEntry);
    c.m_szEntry[nLength]     = cKey;
    c.m_szEntry[nLength + 1] = 0;
}

static int AcceptPoint(cCalculator &c)
{
    if (!c.m_szEntry[0])
        strcpy(c.m_szEntry, "+0");
    if (strchr(c.m_szEntry, '.') || strlen(c.m_szEntry) >= kLongestMantissa)
        return 0;
    AppendToEntry(c, '.');
    return 1;
}

static double ParseEntry(cCalculator &c, const char *szText)
{
    double dValue;
    if (!ParseDecimal(szText, &dValue))
        c.ShowProgramError(kCodeEntryText);
    return dValue;
}

// EEX alone begins 1 x 10^n, and so does EEX after a zero.
static int AcceptExponentKey(cCalculator &c)
{
    if (!c.m_szEntry[0] || ParseEntry(c, c.m_szEntry) == 0.0)
        strcpy(c.m_szEntry, "+1.");
    strcpy(c.m_szExponent, "e+00");
    return 1;
}

// Exponent digits move up: e+03, then 4, is e+34.
static int AcceptDigit(cCalculator &c, char cDigit)
{
    if (c.m_szExponent[0])
    {
        c.m_szExponent[2] = c.m_szExponent[3];
        c.m_szExponent[3] = cDigit;
        return 1;
    }
    if (!c.m_szEntry[0])
        strcpy(c.m_szEntry, "+");
    const size_t nLength  = strlen(c.m_szEntry);
    const size_t nLongest = strchr(c.m_szEntry, '.') ? kLongestMantissa : kLongestInteger;
    if (nLength >= nLongest)
        return 0;
    AppendToEntry(c, cDigit);
    return 1;
}

// Takes the key into the entry, or refuses it with a sound. 1 when taken.
static int AcceptEntryKey(cCalculator &c, char cKey)
{
    int bTaken;
    if (IsDigitKey(cKey))
        bTaken = AcceptDigit(c, cKey);
    else if (c.m_szExponent[0])
        bTaken = 0;
    else
        bTaken = cKey == '.' ? AcceptPoint(c) : AcceptExponentKey(c);
    if (!bTaken)
        c.PlayRejectSound();
    return bTaken;
}

// The keyed text always shows a point: "+12.", "+1.5e+03".
static void ComposeEntry(const cCalculator &c, char (&szText)[kStackText])
{
    const size_t nMantissa = strlen(c.m_szEntry);
    char        *pEnd      = szText + nMantissa;
    memcpy(szText, c.m_szEntry, nMantissa);
    if (!memchr(szText, '.', nMantissa))
        *pEnd++ = '.';
    memcpy(pEnd, c.m_szExponent, strlen(c.m_szExponent) + 1);
}

// A number beyond the range ends the entry at the limit. A mantissa alone may
// be zero; with an exponent it may not come too close to it.
static int ClampEntry(cCalculator &c, char (&szText)[kStackText], double *pdValue)
{
    const double dClamped  = Clamp(*pdValue);
    const int    bTooSmall = c.m_szExponent[0] && *pdValue > -kSmallest && *pdValue < kSmallest;
    if (std::fabs(*pdValue) <= kLargest && !bTooSmall)
        return 0;
    *pdValue       = dClamped;
    c.m_bStackLift = 1;
    c.FormatNumber(dClamped, szText);
    return 1;
}

// X and the display hold the keyed text.
static void ShowEntry(cCalculator &c, const char *szText, double dValue)
{
    c.m_dX = dValue;
    c.MarkKeyedX(szText);
}

int EnterCharacter(cCalculator &c, char cKey)
{
    if (!IsDigitKey(cKey) && cKey != '.' && cKey != 'e' && !c.m_szExponent[0])
    {
        c.ShowProgramError(kCodeEntryKey);
        return 1;
    }
    const int bNew = c.m_szEntry[0] == 0;
    if (!c.m_bProgramMode)
    {
        if (bNew)
            c.PushIfLift();
        c.m_bStackLift = 1;
    }
    if (!AcceptEntryKey(c, cKey))
        return 1;

    char szText[kStackText];
    ComposeEntry(c, szText);
    double    dValue = ParseEntry(c, szText);
    const int bEnded = ClampEntry(c, szText, &dValue);
    if (!c.m_bProgramMode)
        ShowEntry(c, szText, dValue);
    else if (bNew)
        InsertNumberLine(c, szText);
    else
        ReplaceCurrentLine(c, szText);
    if (bEnded)
        c.EndEntry();
    return 1;
}

int ChangeEntrySign(cCalculator &c)
{
    if (c.m_szExponent[0])
    {
        if (c.m_szExponent[1] == '+')
            c.m_szExponent[1] = '-';
        else if (c.m_szExponent[1] == '-')
            c.m_szExponent[1] = '+';
        else
            c.ShowProgramError(kCodeExponentSign);
    }
    else if (ParseEntry(c, c.m_szEntry) != 0.0)
    {
        if (c.m_szEntry[0] == '+')
            c.m_szEntry[0] = '-';
        else if (c.m_szEntry[0] == '-')
            c.m_szEntry[0] = '+';
        else
            c.ShowProgramError(kCodeMantissaSign);
    }

    char szText[kStackText];
    ComposeEntry(c, szText);
    const double dValue = ParseEntry(c, szText);
    if (c.m_bProgramMode)
        return ReplaceCurrentLine(c, szText);
    ShowEntry(c, szText, dValue);
    return 1;
}
