// program_memory.cpp - the 98 program lines, their editing, the current line,
// and the listing that is kept line for line beside them. Memory is always
// full: an unused line holds R/S, inserting pushes the last line out.
//
// The listing also holds comments and rejected lines of a loaded file, so the
// place of a program line there is its m_nListingLine, never its number.

#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "engine/decimal.h"
#include "engine/line_box.h"
#include "engine/vorstek_engine.h"
#include "toolkit/retry_alloc.h"

static const unsigned kCodeDisplayLine   = 109;
static const unsigned kCodeLineNumber    = 114;
static const unsigned kCodeOperand       = 115;
static const unsigned kCodeDelete        = 117;
static const unsigned kCodeListingLength = 119;
static const unsigned kCodeMnemonic      = 127;

static const unsigned kFirstDottedRegister = 10;
static const int      kOperandCharacters   = 2;

void cVorstekEngine::SetRunStop(const cInstruction *pRunStop, ProgramLine *pLine,
                                unsigned nListingLine)
{
    *pLine            = ProgramLine{};
    pLine->m_pHandler = pRunStop;
    snprintf(pLine->m_szText, sizeof pLine->m_szText, "%s", pRunStop->m_szMnemonic);
    pLine->m_nListingLine = nListingLine;
}

// Keeps the line's place in the listing.
void cVorstekEngine::SetNumber(ProgramLine *pLine, const char *szText)
{
    const unsigned nListingLine = pLine->m_nListingLine;
    *pLine                      = ProgramLine{};
    snprintf(pLine->m_szText, sizeof pLine->m_szText, "%s", szText);
    pLine->m_nListingLine = nListingLine;
    pLine->m_bNumberWhole = ParseDecimal(pLine->m_szText, &pLine->m_dNumber);
    pLine->m_dNumber      = Clamp(pLine->m_dNumber);
}

void cVorstekEngine::ResetProgram()
{
    m_Program[0] = ProgramLine{};
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        SetRunStop(m_mapHandlers.Find("R/S"), &m_Program[nLine], nLine);
    m_bProgramModified = 0;
    m_szFileName[0]    = 0;
    m_nCurLine         = 0;
}

// The listing of a cleared program.
void cVorstekEngine::ListClearedProgram()
{
    char szText[kProgramLines * 32];
    int  nLength = snprintf(szText, sizeof szText, "00\r\n");
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        nLength += snprintf(szText + nLength, sizeof szText - static_cast<size_t>(nLength),
                            "%02u %s\r\n", nLine, m_Program[nLine].m_szText);
    m_pListing->SetText(szText);
    HighlightSoon();
}

int cVorstekEngine::ClearProgram()
{
    AbandonEntry();
    ResetProgram();
    ListClearedProgram();
    ShowFileName();
    return 1;
}

// Beyond the last line, 99 is line 1; more is an inconsistency.
void cVorstekEngine::SetCurLine(unsigned nLine)
{
    if (nLine > kProgramLines)
    {
        ShowProgramError(kCodeLineNumber);
        nLine = 0;
    }
    m_nCurLine = nLine == kProgramLines ? 1 : nLine;
    HighlightSoon();
}

void cVorstekEngine::AdvanceLine()
{
    SetCurLine(m_nCurLine + 1);
}

int cVorstekEngine::StepForward()
{
    AbandonEntry();
    AdvanceLine();
    return 1;
}

int cVorstekEngine::StepBack()
{
    AbandonEntry();
    SetCurLine(m_nCurLine > 1 ? m_nCurLine - 1 : kLastLine);
    return 1;
}

int cVorstekEngine::GoToLine(unsigned nLine)
{
    AbandonEntry();
    SetCurLine(nLine);
    if (!m_bProgramMode)
        ShowFormattedX();
    return 1;
}

int cVorstekEngine::ShowCurrentLine()
{
    if (m_bProgramMode)
    {
        ShowProgramError(kCodeDisplayLine);
        return 1;
    }
    const unsigned     nLine = m_nCurLine ? m_nCurLine : 1;
    const ProgramLine &Line  = m_Program[nLine];
    char               szText[40];
    snprintf(szText, sizeof szText, "%02u %s%s%s", nLine, Line.m_szText,
             Line.m_szOperandText[0] ? " " : "", Line.m_szOperandText);
    ShowText(szText);
    return 1;
}

// Splits "STO .3": the operand's value and text go into *pLine; "STO i" is a
// mnemonic of its own.
void cVorstekEngine::ParseOperand(const char  *szOperand, char (&szMnemonic)[kMnemonicText],
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
        ShowProgramError(kCodeOperand);
}

int cVorstekEngine::InsertInstruction(const char *szFormat, ...)
{
    if (m_nCurLine >= kLastLine)
    {
        PlayRejectSound();
        return 1;
    }
    AbandonEntry();

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
        ParseOperand(pBlank + 1, szMnemonic, &Line);
    Line.m_pHandler = m_mapHandlers.Find(szMnemonic);
    if (!Line.m_pHandler)
    {
        ShowProgramError(kCodeMnemonic);
        return 0;
    }
    snprintf(Line.m_szText, sizeof Line.m_szText, "%s", szMnemonic);
    InsertLine(Line, szText);
    return 1;
}

int cVorstekEngine::InsertNumberLine(const char *szText)
{
    if (m_nCurLine >= kLastLine)
        return ReplaceCurrentLine(szText);
    ProgramLine Line = {};
    SetNumber(&Line, szText);
    InsertLine(Line, szText);
    return 1;
}

int cVorstekEngine::ReplaceCurrentLine(const char *szText)
{
    char szLine[40];
    SetNumber(&m_Program[m_nCurLine], szText);
    snprintf(szLine, sizeof szLine, "%02u %s\r\n", m_nCurLine, szText);
    m_pListing->ReplaceLine(m_Program[m_nCurLine].m_nListingLine, szLine);
    m_bProgramModified = 1;
    HighlightSoon();
    return 1;
}

// Puts the line after the current one; line 98 falls out.
void cVorstekEngine::InsertLine(const ProgramLine &Line, const char *szText)
{
    const unsigned nLine = m_nCurLine + 1;
    m_pListing->ReplaceLine(m_Program[kLastLine].m_nListingLine, "");
    for (unsigned n = kLastLine; n > nLine; n--)
    {
        m_Program[n] = m_Program[n - 1];
        m_Program[n].m_nListingLine++;
    }
    m_Program[nLine]                = Line;
    m_Program[nLine].m_nListingLine = m_Program[m_nCurLine].m_nListingLine + 1;

    char szListed[40];
    snprintf(szListed, sizeof szListed, "%02u %s\r\n", nLine, szText);
    m_pListing->InsertLine(m_Program[nLine].m_nListingLine, szListed);
    RenumberListing(m_Program[nLine].m_nListingLine + 1, nLine + 1);
    SetCurLine(nLine);
    m_bProgramModified = 1;
}

int cVorstekEngine::DeleteCurrentLine()
{
    if (m_nCurLine > kLastLine)
    {
        ShowProgramError(kCodeDelete);
        return 1;
    }
    if (m_nCurLine == 0)
    {
        PlayRejectSound();
        return 1;
    }
    AbandonEntry();
    const unsigned nListingLine = m_Program[m_nCurLine].m_nListingLine;
    m_pListing->ReplaceLine(nListingLine, "");
    for (unsigned n = m_nCurLine; n < kLastLine; n++)
    {
        m_Program[n] = m_Program[n + 1];
        m_Program[n].m_nListingLine--;
    }
    RenumberListing(nListingLine, m_nCurLine);

    char szListed[40];
    SetRunStop(m_mapHandlers.Find("R/S"), &m_Program[kLastLine], m_pListing->CountLines());
    snprintf(szListed, sizeof szListed, "%02u R/S\r\n", kLastLine);
    m_pListing->InsertLine(m_pListing->CountLines(), szListed);
    SetCurLine(m_nCurLine - 1);
    m_bProgramModified = 1;
    return 1;
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
void cVorstekEngine::RenumberListing(unsigned nFirstListingLine, unsigned nNumber)
{
    const size_t nLength = m_pListing->GetTextLength();
    char *const  szText =
        AllocateWithRetry(m_pHost, [nLength] { return static_cast<char *>(malloc(nLength + 1)); });
    if (!szText)
        return;
    if (m_pListing->GetText(szText, nLength + 1) != nLength)
        ShowProgramError(kCodeListingLength);

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
    m_pListing->SetText(szText);
    free(szText);
}
