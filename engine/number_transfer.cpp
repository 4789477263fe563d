#include "engine/number_transfer.h"

#include <charconv>
#include <cstdio>
#include <cstring>

#include "engine/calculator.h"
#include "engine/decimal.h"
#include "engine/listing_words.h"
#include "engine/pending_keys.h"
#include "engine/program_memory.h"
#include "engine/range.h"
#include "toolkit/blanks.h"

namespace
{

struct cTransfer
{
    char     m_szNumber[kFileLineText];  // "" until there is one
    double   m_dValue;
    unsigned m_nLine;                  // from 1, the line that was read last
    char     m_szLine[kFileLineText];  // its text
};

}  // namespace

void PrintForTransfer(double dValue, char (&szText)[kTransferText])
{
    *std::to_chars(szText, szText + sizeof szText - 1, dValue).ptr = 0;
}

static int IsBlankOrComment(const char *szText)
{
    const char cFirst = *SkipBlanks(szText);
    return cFirst == 0 || cFirst == ';';
}

// A number line may be longer than the loader's: a number with all of its digits does
// not always fit into program memory.
static int ReadLine(cTransfer *pTransfer, size_t nMost)
{
    const char *const pNumber = SkipBlanks(pTransfer->m_szLine);
    if (IsBlankOrComment(pNumber))
        return 1;
    const size_t nLength = strcspn(pNumber, " \t;");
    if (pTransfer->m_szNumber[0] || nLength > nMost || !IsBlankOrComment(pNumber + nLength))
        return 0;
    memcpy(pTransfer->m_szNumber, pNumber, nLength);
    pTransfer->m_szNumber[nLength] = 0;
    return ParseDecimal(pTransfer->m_szNumber, &pTransfer->m_dValue);
}

// 0 if there is not exactly one number.
static int ReadTransferred(const char *szText, size_t nMost, cTransfer *pTransfer)
{
    const char *const pEnd = szText + strlen(szText);
    *pTransfer             = cTransfer{};
    while ((szText = NextFileLine(szText, pEnd, pTransfer->m_szLine)) != nullptr)
    {
        pTransfer->m_nLine++;
        if (!ReadLine(pTransfer, nMost))
            return 0;
    }
    return pTransfer->m_szNumber[0] != 0;
}

static int IsReady(const cCalculator &c)
{
    return !c.m_bProgramRunning && (!c.m_szKeystrokes[0] || IsAwaiting(c, kAwaitPress));
}

static void ReportLine(cCalculator &c, const cTransfer &Transfer)
{
    char szText[kFileLineText + 64];
    snprintf(szText, sizeof szText, "%s%u:\n%s", RejectionText(llBadNumber),
             Transfer.m_nLine ? Transfer.m_nLine : 1, Transfer.m_szLine);
    c.AskUser(szText, bnOk, icNone);
}

static void PutIntoX(cCalculator &c, double dValue)
{
    c.PushIfLift();
    c.m_dX = Clamp(dValue);
    c.EndOperation(enLift);
}

int EnterTransferred(cCalculator &c, const char *szText)
{
    if (!IsReady(c))
    {
        c.PlayRejectSound();
        return 0;
    }
    cTransfer Transfer;
    if (!ReadTransferred(szText, (c.m_bProgramMode ? kMnemonicText : kFileLineText) - 1, &Transfer))
    {
        ReportLine(c, Transfer);
        return 0;
    }
    SetKeystrokes(c, "");
    c.AbandonEntry();
    if (c.m_bProgramMode)
        InsertNumberLine(c, Transfer.m_szNumber);
    else
        PutIntoX(c, Transfer.m_dValue);
    c.MarkDisplay();
    c.RefreshViews();
    return 1;
}
