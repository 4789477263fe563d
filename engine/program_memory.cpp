#include "engine/program_memory.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "engine/calculator.h"
#include "engine/decimal.h"
#include "engine/line_box.h"
#include "engine/listing_files.h"
#include "engine/listing_words.h"
#include "engine/range.h"
#include "toolkit/retry_alloc.h"

static const unsigned kCodeDisplayLine   = 109;
static const unsigned kCodeDelete        = 117;
static const unsigned kCodeListingLength = 119;

void SetStep(const cStep &Step, ProgramLine *pLine)
{
    static_cast<cStep &>(*pLine) = Step;
}

void SetRunStop(const cCalculator &c, ProgramLine *pLine, unsigned nListingLine)
{
    *pLine = ProgramLine{};
    SetStep(RecordedStep(*c.m_mapHandlers.Find(kRunStop), 0), pLine);
    pLine->m_nListingLine = nListingLine;
}

void SetNumber(ProgramLine *pLine, const char *szText)
{
    const unsigned nListingLine = pLine->m_nListingLine;
    *pLine                      = ProgramLine{};
    snprintf(pLine->m_szText, sizeof pLine->m_szText, "%s", szText);
    pLine->m_nListingLine  = nListingLine;
    pLine->m_bNumberParsed = ParseDecimal(pLine->m_szText, &pLine->m_dNumber);
    pLine->m_dNumber       = Clamp(pLine->m_dNumber);
}

void ResetProgram(cCalculator &c)
{
    c.m_Program[0] = ProgramLine{};
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        SetRunStop(c, &c.m_Program[nLine], nLine);
    PrepareRunLines(c);
    c.m_bProgramModified = 0;
    c.m_szFileName[0]    = 0;
    c.m_nCurLine         = 0;
}

void ListClearedProgram(cCalculator &c)
{
    char   szText[kProgramLines * kListedText];
    size_t nLength = 0;
    for (unsigned nLine = 0; nLine <= kLastLine; nLine++)
        nLength += PrintListedLine(nLine, c.m_Program[nLine].m_szText, szText + nLength,
                                   sizeof szText - nLength);
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
    const unsigned nLine = c.m_nCurLine ? c.m_nCurLine : 1;
    char           szText[kListedText];
    PrintNumberedStep(nLine, c.m_Program[nLine], szText);
    c.SetDisplayText(szText);
    return 1;
}

static char *NextLine(char *pText)
{
    char *const pEnd = strchr(pText, '\n');
    return pEnd ? pEnd + 1 : nullptr;
}

// Renumbers the program lines of the listing from listing line nFirstListingLine
// on, beginning with nNumber. Comments have no number.
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
        nNumber += static_cast<unsigned>(RenumberListedLine(nNumber, pLine));
    c.m_pListing->SetText(szText);
    free(szText);
}

// Puts the line after the current one; the last line is pushed out.
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
    PrepareRunLines(c);

    char szListed[kListedText];
    PrintListedLine(nLine, szText, szListed, sizeof szListed);
    c.m_pListing->InsertLine(c.m_Program[nLine].m_nListingLine, szListed);
    RenumberListing(c, c.m_Program[nLine].m_nListingLine + 1, nLine + 1);
    c.SetCurLine(nLine);
    c.m_bProgramModified = 1;
}

int InsertInstruction(cCalculator &c, const cInstruction &Instruction, unsigned nOperand)
{
    if (c.m_nCurLine >= kLastLine)
    {
        c.PlayRejectSound();
        return 1;
    }
    c.AbandonEntry();

    char        szText[kStepText];
    ProgramLine Line = {};
    SetStep(RecordedStep(Instruction, nOperand), &Line);
    PrintInstruction(Instruction, nOperand, szText);
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
    char szLine[kListedText];
    SetNumber(&c.m_Program[c.m_nCurLine], szText);
    PrepareRunLines(c);
    PrintListedLine(c.m_nCurLine, szText, szLine, sizeof szLine);
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

    char         szListed[kListedText];
    ProgramLine &Last = c.m_Program[kLastLine];
    SetRunStop(c, &Last, c.m_pListing->CountLines());
    PrepareRunLines(c);
    PrintListedLine(kLastLine, Last.m_szText, szListed, sizeof szListed);
    c.m_pListing->InsertLine(c.m_pListing->CountLines(), szListed);
    c.SetCurLine(c.m_nCurLine - 1);
    c.m_bProgramModified = 1;
    return 1;
}
