// number_entry.cpp - builds a number key by key. m_szEntry holds the mantissa
// with its sign, m_szExponent "e", a sign and two digits. In run mode the
// number grows in X, in program mode in a line of the program.

#include <cstdio>
#include <cstring>

#include "engine/decimal.h"
#include "engine/vorstek_engine.h"

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

int cVorstekEngine::EnterCharacter(char cKey)
{
    if (!IsDigitKey(cKey) && cKey != '.' && cKey != 'e' && !m_szExponent[0])
    {
        ShowProgramError(kCodeEntryKey);
        return 1;
    }
    const int bNew = m_szEntry[0] == 0;
    if (!m_bProgramMode)
    {
        if (bNew)
            PushIfLift();
        m_bStackLift = 1;
    }
    if (!AcceptEntryKey(cKey))
        return 1;

    char szText[kStackText];
    ComposeEntry(szText);
    double    dValue = ParseEntry(szText);
    const int bEnded = ClampEntry(szText, &dValue);
    if (!m_bProgramMode)
        ShowEntry(szText, dValue, bEnded);
    else if (bNew)
        InsertNumberLine(szText);
    else
        ReplaceCurrentLine(szText);
    if (bEnded)
        EndEntry();
    return 1;
}

// Takes the key into the entry, or refuses it with a sound. 1 when taken.
int cVorstekEngine::AcceptEntryKey(char cKey)
{
    int bTaken;
    if (IsDigitKey(cKey))
        bTaken = AcceptDigit(cKey);
    else if (m_szExponent[0])
        bTaken = 0;
    else
        bTaken = cKey == '.' ? AcceptPoint() : AcceptExponentKey();
    if (!bTaken)
        PlayRejectSound();
    return bTaken;
}

// There is room for it.
void cVorstekEngine::AppendToEntry(char c)
{
    const size_t nLength   = strlen(m_szEntry);
    m_szEntry[nLength]     = c;
    m_szEntry[nLength + 1] = 0;
}

int cVorstekEngine::AcceptPoint()
{
    if (!m_szEntry[0])
        strcpy(m_szEntry, "+0");
    if (strchr(m_szEntry, '.') || strlen(m_szEntry) >= kLongestMantissa)
        return 0;
    AppendToEntry('.');
    return 1;
}

// EEX alone begins 1 x 10^n, and so does EEX after a zero.
int cVorstekEngine::AcceptExponentKey()
{
    if (!m_szEntry[0] || ParseEntry(m_szEntry) == 0.0)
        strcpy(m_szEntry, "+1.");
    strcpy(m_szExponent, "e+00");
    return 1;
}

// Exponent digits move up: e+03, then 4, is e+34.
int cVorstekEngine::AcceptDigit(char cDigit)
{
    if (m_szExponent[0])
    {
        m_szExponent[2] = m_szExponent[3];
        m_szExponent[3] = cDigit;
        return 1;
    }
    if (!m_szEntry[0])
        strcpy(m_szEntry, "+");
    const size_t nLength  = strlen(m_szEntry);
    const size_t nLongest = strchr(m_szEntry, '.') ? kLongestMantissa : kLongestInteger;
    if (nLength >= nLongest)
        return 0;
    AppendToEntry(cDigit);
    return 1;
}

// The keyed text always shows a point: "+12.", "+1.5e+03".
void cVorstekEngine::ComposeEntry(char (&szText)[kStackText]) const
{
    snprintf(szText, sizeof szText, "%s%s%s", m_szEntry, strchr(m_szEntry, '.') ? "" : ".",
             m_szExponent);
}

double cVorstekEngine::ParseEntry(const char *szText)
{
    double dValue;
    if (!ParseDecimal(szText, &dValue))
        ShowProgramError(kCodeEntryText);
    return dValue;
}

// A number beyond the range ends the entry at the limit. A mantissa alone may
// be zero; with an exponent it may not come too close to it.
int cVorstekEngine::ClampEntry(char (&szText)[kStackText], double *pdValue)
{
    const double dClamped  = Clamp(*pdValue);
    const int    bTooSmall = m_szExponent[0] && *pdValue > -kSmallest && *pdValue < kSmallest;
    if (std::fabs(*pdValue) <= kLargest && !bTooSmall)
        return 0;
    *pdValue     = dClamped;
    m_bStackLift = 1;
    FormatNumber(dClamped, szText);
    return 1;
}

// While the entry goes on, X and the display hold the keyed text.
void cVorstekEngine::ShowEntry(const char *szText, double dValue, int bEnded)
{
    m_dX             = dValue;
    m_bStackStale    = 1;
    m_bDisplayShowsX = 1;
    if (!bEnded)
        snprintf(m_szX, sizeof m_szX, "%s", szText);
}

int cVorstekEngine::ChangeEntrySign()
{
    if (m_szExponent[0])
    {
        if (m_szExponent[1] == '+')
            m_szExponent[1] = '-';
        else if (m_szExponent[1] == '-')
            m_szExponent[1] = '+';
        else
            ShowProgramError(kCodeExponentSign);
    }
    else if (ParseEntry(m_szEntry) != 0.0)
    {
        if (m_szEntry[0] == '+')
            m_szEntry[0] = '-';
        else if (m_szEntry[0] == '-')
            m_szEntry[0] = '+';
        else
            ShowProgramError(kCodeMantissaSign);
    }

    char szText[kStackText];
    ComposeEntry(szText);
    const double dValue = ParseEntry(szText);
    if (m_bProgramMode)
        return ReplaceCurrentLine(szText);
    ShowEntry(szText, dValue, 0);
    return 1;
}
