#include "engine/program_memory.h"

#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "engine/calculator.h"
#include "engine/decimal.h"
#include "engine/line_box.h"
#include "engine/listing_files.h"
#include "engine/range.h"
#include "toolkit/retry_alloc.h"

static const unsigned kCodeDisplayLine   = 109;
static const unsigned kCodeOperand       = 115;
static const unsigned kCodeDelete        = 117;
static const unsigned kCodeListingLength = 119;
static const unsigned kCodeMnemonic      = 127;

static const unsigned kFirstDottedRegister = 10;
static const int      kOperandCharacters   = 2;

void SetRunStop(const cInstruction *pRunStop, ProgramLine *pLine, unsigned nListingLine)
{
    *pLine                = ProgramLine{};
    pLine->m_pInstruction = pRunStop;
    snprintf(pLine->m_szText, sizeof pLine->m_szText, "%s", pRunStop->m_szMnemonic);
    pLine->m_nListingLine = nListingLine;
}

// Keeps the line's place in the listing.
void SetNumber(ProgramLine *pLine, const char *szText)
{
    const unsigned nListingLine = pLine->m_nListingLine;
    *pLine                      = ProgramLine{};
    snprintf(pLine->m_szText, sizeof pLine->m_szText, "%s", szText);
    pLine->m_nListingLine = nListingLine;
    pLine->m_bNumberWhole = ParseDecimal(pLine->m_szText, &pLine->m_dNumber);
    pLine->m_dNumber      = Clamp(pLine->m_dNumber);
}

void ResetProgram(cCalculator &c)
{
    c.m_Program[0] = ProgramLine{};
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        SetRunStop(c.m_mapHandlers.Find("R/S"), &c.m_Program[nLine], nLine);
    c.m_bProgramModified = 0;
    c.m_szFileName[0]    = 0;
    c.m_nCurLine         = 0;
}

// The listing of a cleared program.
void ListClearedProgram(cCalculator &c)
{
    char szText[kProgramLines * 32];
    int  nLength = snprintf(szText, sizeof szText, "00\r\n");
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        nLength += snprintf(szText + nLength, sizeof szText - static_cast<size_t>(nLength),
                            "%02u %s\r\n", nLine, c.m_Program[nLine].m_szText);
    c.m_pListing->SetText(szText);
    c.MarkHighlight();
}

int ClearProgram(cCalculator &c)
{
    c.AbandonEntry();
    ResetProgram(c);
    ListClearedProgram(c);
    ShowFileName(c);
    return 1;
}

int StepForward(cCalculator &c)
{
    c.AbandonEntry();
    c.AdvanceLine();
    return 1;
}

int StepBack(cCalculator &c)
{
    c.AbandonEntry();
    c.SetCurLine(c.m_nCurLine > 1 ? c.m_nCurLine - 1 : kLastLine);
    return 1;
}

int GoToLine(cCalculator &c, unsigned nLine)
{
    c.AbandonEntry();
    c.SetCurLine(nLine);
    if (!c.m_bProgramMode)
        c.DisplayFollowsX();
    return 1;
}

int ShowCurrentLine(cCalculator &c)
{
    if (c.m_bProgramMode)
    {
        c.ShowProgramError(kCodeDisplayLine);
        return 1;
    }
    const unsigned     nLine = c.m_nCurLine ? c.m_nCurLine : 1;
    const ProgramLine &Line  = c.m_Program[nLine];
    char               szText[40];
    snprintf(szText, sizeof szText, "%02u %s%s%s", nLine, Line.m_szText,
             Line.m_szOperandText[0] ? " " : "", Line.m_szOperandText);
    c.SetDisplayText(szText);
    return 1;
}

// Splits "STO .3": the operand's value and text go into *pLine; "STO i" is a
// mnemonic of its own.
static void ParseOperand(cCalculator &c, const char *szOperand, char (&szMnemonic)[kMnemonicText],
                         ProgramLine *pLine)
{
    if (strcmp(szOperand, "i") == 0)
    {
        strncat(szMnemonic, " i", sizeof szMnemonic - strlen(szMnemonic) - 1);
        return;
    }
    snprintf(pLine->m_szOperandText, sizeof pLine->m_szOperandText, "%.*s", kOperandCharacters,
             szOperand);
    const char *const pText = pLine->m_szOperandText;
    if (*pText == '.')
        pLine->m_nOperand = kFirstDottedRegister + static_cast<unsigned>(pText[1] - '0');
    else if (*pText >= '0' && *pText <= '9')
        std::from_chars(pText, pText + strlen(pText), pLine->m_nOperand);
    else
        c.ShowProgramError(kCodeOperand);
}

static char *NextLine(char *pText)
{
    char *const pEnd = strchr(pText, '\n');
    return pEnd ? pEnd + 1 : nullptr;
}

static int IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Numbers the program lines of the listing anew, from listing line
// nFirstListingLine on, beginning with nNumber. Comments carry no number.
static void RenumberListing(cCalculator &c, unsigned nFirstListingLine, unsigned nNumber)
{
    const size_t nLength = c.m_pListing->GetTextLength();
    char *const  szText  = AllocateWithRetry(
          c.m_pHost, [nLength] { return static_cast<char *>(malloc(nLength + 1)); });
    if (!szText)
        return;
    if (c.m_pListing->GetText(szText, nLength + 1) != nLength)
        c.ShowProgramError(kCodeListingLength);

    char *pLine = szText;
    for (unsigned n = 0; pLine && n < nFirstListingLine; n++)
        pLine = NextLine(pLine);
    for (; pLine && *pLine; pLine = NextLine(pLine))
        if (IsDigit(pLine[0]) && IsDigit(pLine[1]))
        {
            pLine[0] = static_cast<char>('0' + nNumber / 10);
            pLine[1] = static_cast<char>('0' + nNumber % 10);
            nNumber++;
        }
    c.m_pListing->SetText(szText);
    free(szText);
}

// Puts the line after the current one; line 98 falls out.
static void InsertLine(cCalculator &c, const ProgramLine &Line, const char *szText)
{
    const unsigned nLine = c.m_nCurLine + 1;
    c.m_pListing->ReplaceLine(c.m_Program[kLastLine].m_nListingLine, "");
    for (unsigned n = kLastLine; n > nLine; n--)
    {
        c.m_Program[n] = c.m_Program[n - 1];
        c.m_Program[n].m_nListingLine++;
    }
    c.m_Program[nLine]                = Line;
    c.m_Program[nLine].m_nListingLine = c.m_Program[c.m_nCurLine].m_nListingLine + 1;

    char szListed[40];
    snprintf(szListed, sizeof szListed, "%02u %s\r\n", nLine, szText);
    c.m_pListing->InsertLine(c.m_Program[nLine].m_nListingLine, szListed);
    RenumberListing(c, c.m_Program[nLine].m_nListingLine + 1, nLine + 1);
    c.SetCurLine(nLine);
    c.m_bProgramModified = 1;
}

int InsertInstruction(cCalculator &c, const char *szFormat, ...)
{
    if (c.m_nCurLine >= kLastLine)
    {
        c.PlayRejectSound();
        return 1;
    }
    c.AbandonEntry();

    char    szText[kMnemonicText];
    va_list Arguments;
    va_start(Arguments, szFormat);
    vsnprintf(szText, sizeof szText, szFormat, Arguments);
    va_end(Arguments);

    ProgramLine       Line = {};
    char              szMnemonic[kMnemonicText];
    const char *const pBlank = strchr(szText, ' ');
    snprintf(szMnemonic, sizeof szMnemonic, "%.*s",
             static_cast<int>(pBlank ? pBlank - szText : kMnemonicText), szText);
    if (pBlank)
        ParseOperand(c, pBlank + 1, szMnemonic, &Line);
    Line.m_pInstruction = c.m_mapHandlers.Find(szMnemonic);
    if (!Line.m_pInstruction)
    {
        c.ShowProgramError(kCodeMnemonic);
        return 0;
    }
    snprintf(Line.m_szText, sizeof Line.m_szText, "%s", szMnemonic);
    InsertLine(c, Line, szText);
    return 1;
}

int InsertNumberLine(cCalculator &c, const char *szText)
{
    if (c.m_nCurLine >= kLastLine)
        return ReplaceCurrentLine(c, szText);
    ProgramLine Line = {};
    SetNumber(&Line, szText);
    InsertLine(c, Line, szText);
    return 1;
}

int ReplaceCurrentLine(cCalculator &c, const char *szText)
{
    char szLine[40];
    SetNumber(&c.m_Program[c.m_nCurLine], szText);
    snprintf(szLine, sizeof szLine, "%02u %s\r\n", c.m_nCurLine, szText);
    c.m_pListing->ReplaceLine(c.m_Program[c.m_nCurLine].m_nListingLine, szLine);
    c.m_bProgramModified = 1;
    c.MarkHighlight();
    return 1;
}

int DeleteCurrentLine(cCalculator &c)
{
    if (c.m_nCurLine > kLastLine)
    {
        c.ShowProgramError(kCodeDelete);
        return 1;
    }
    if (c.m_nCurLine == 0)
    {
        c.PlayRejectSound();
        return 1;
    }
    c.AbandonEntry();
    const unsigned nListingLine = c.m_Program[c.m_nCurLine].m_nListingLine;
    c.m_pListing->ReplaceLine(nListingLine, "");
    for (unsigned n = c.m_nCurLine; n < kLastLine; n++)
    {
        c.m_Program[n] = c.m_Program[n + 1];
        c.m_Program[n].m_nListingLine--;
    }
    RenumberListing(c, nListingLine, c.m_nCurLine);

    char szListed[40];
    SetRunStop(c.m_mapHandlers.Find("R/S"), &c.m_Program[kLastLine], c.m_pListing->CountLines());
    snprintf(szListed, sizeof szListed, "%02u R/S\r\n", kLastLine);
    c.m_pListing->InsertLine(c.m_pListing->CountLines(), szListed);
    c.SetCurLine(c.m_nCurLine - 1);
    c.m_bProgramModified = 1;
    return 1;
}
