// listing_load.cpp - reads a listing file into program memory. The new program
// and its listing are built aside and put in place at the end; while a box is
// open, the listing box shows the lines loaded so far.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "engine/calculator.h"
#include "engine/dispatch.h"
#include "engine/line_box.h"
#include "engine/listing_files.h"
#include "engine/listing_words.h"
#include "engine/program_memory.h"
#include "toolkit/read_file.h"
#include "toolkit/retry_alloc.h"

static const char *const kLoaderCaption = "ERROR";

static const size_t kUnusedLine = kListingExtra + std::char_traits<char>::length(kRunStop);

namespace
{

struct cLoad
{
    ProgramLine m_Program[kProgramLines];
    unsigned    m_nLines;         // program lines so far
    unsigned    m_nListingLines;  // listing lines so far
    char       *m_pListing;
    size_t      m_nListingLength;
    size_t      m_nListingRoom;
    size_t      m_nShown;  // of the listing's text

    char  *End() const { return m_pListing + m_nListingLength; }
    size_t Room() const { return m_nListingRoom - m_nListingLength; }

    // A line of this length has been printed at the end.
    void Listed(size_t nLength)
    {
        m_nListingLength += nLength;
        m_nListingLines++;
    }

    void ListLine(unsigned nLine, const char *szText)
    {
        Listed(PrintListedLine(nLine, szText, End(), Room()));
    }
};

}  // namespace

static size_t CountFileLines(const char *pText, const char *pEnd)
{
    char   szLine[kFileLineText];
    size_t nLines = 0;
    while ((pText = NextFileLine(pText, pEnd, szLine)) != nullptr)
        nLines++;
    return nLines;
}

static void ShowListingSoFar(cCalculator &c, cLoad *pLoad)
{
    const char *const szNew = pLoad->m_pListing + pLoad->m_nShown;
    if (pLoad->m_nShown == 0)
        c.m_pListing->SetText(szNew);
    else
        c.m_pListing->InsertLine(c.m_pListing->CountLines(), szNew);
    pLoad->m_nShown = pLoad->m_nListingLength;
    c.SetCurLine(0);
    c.RefreshViews();
}

// Whether the instruction takes this operand. Its own rule decides, from the line
// in m_szMnemonic and m_szOperand.
static int CheckLine(cCalculator &c, const cListingLine &Line)
{
    snprintf(c.m_szMnemonic, sizeof c.m_szMnemonic, "%s", Line.m_szText);
    snprintf(c.m_szOperand, sizeof c.m_szOperand, "%s", Line.m_szOperandText);
    return PerformInstruction(c, *Line.m_pInstruction, Line.m_nOperand);
}

static void StoreLine(cLoad *pLoad, const cListingLine &Line, const char *szLine)
{
    ProgramLine *const pProgramLine = &pLoad->m_Program[++pLoad->m_nLines];
    pProgramLine->m_nListingLine    = pLoad->m_nListingLines;
    if (Line.m_nKind == llNumber)
        SetNumber(pProgramLine, Line.m_szText);
    else
        SetStep(Line, pProgramLine);
    pLoad->ListLine(pLoad->m_nLines, szLine);
}

// Asks whether to continue without the line.
static int RejectLine(cCalculator &c, const cListingLine &Line, const char *szLine)
{
    char szText[kFileLineText + 64];
    snprintf(szText, sizeof szText, "%s%u:\n%s", RejectionText(Line.m_nKind), c.m_nLoaderLine,
             szLine);
    return c.AskUser(szText, bnOkCancel, icNone, kLoaderCaption) == anOk;
}

// 0 if the user cancelled.
static int ReadLines(cCalculator &c, cLoad *pLoad, const char *pText, const char *pEnd)
{
    char szLine[kFileLineText];
    c.m_nLoaderLine = 0;
    while ((pText = NextFileLine(pText, pEnd, szLine)) != nullptr)
    {
        c.m_nLoaderLine++;
        cListingLine Line;
        ParseListingLine(szLine, c.m_mapHandlers, &Line);
        if (Line.m_nKind == llInstruction && !CheckLine(c, Line))
            Line.m_nKind = llBadOperand;
        if (Line.m_nKind == llComment)
            pLoad->Listed(PrintListedComment(szLine, pLoad->End(), pLoad->Room()));
        else if (Line.m_nKind != llInstruction && Line.m_nKind != llNumber)
        {
            ShowListingSoFar(c, pLoad);
            if (!RejectLine(c, Line, szLine))
                return 0;
            pLoad->Listed(PrintListedRejection(szLine, pLoad->End(), pLoad->Room()));
        }
        else if (pLoad->m_nLines == kLastLine)
        {
            ShowListingSoFar(c, pLoad);
            c.AskUser(kOverflowText, bnOk, icNone);
            return 1;
        }
        else
            StoreLine(pLoad, Line, szLine);
    }
    return 1;
}

static int CancelLoad(cCalculator &c)
{
    ClearProgram(c);
    c.m_nReturnDepth = 0;
    c.MarkDisplay();
    c.RefreshViews();
    c.AskUser("Program Memory has been cleared", bnOk, icNone);
    return 0;
}

static void FinishLoad(cCalculator &c, cLoad *pLoad)
{
    for (unsigned nLine = pLoad->m_nLines + 1; nLine <= kLastLine; nLine++)
    {
        SetRunStop(c, &pLoad->m_Program[nLine], pLoad->m_nListingLines);
        pLoad->ListLine(nLine, kRunStop);
    }
    memcpy(c.m_Program, pLoad->m_Program, sizeof c.m_Program);
    PrepareRunLines(c);
    c.m_bListingComplete = c.m_pListing->SetText(pLoad->m_pListing);
    c.m_bProgramModified = 0;
    c.m_nReturnDepth     = 0;
    c.SetCurLine(0);
    c.RefreshViews();
}

int LoadProgram(cCalculator &c, const char *szFileName)
{
    cFileText File;
    if (strlen(szFileName) >= kFileNameText || !File.Read(szFileName, c.m_pHost))
    {
        char szText[kFileNameText + 64];
        snprintf(szText, sizeof szText, "ERROR: couldn't open the file '%s' for reading",
                 szFileName);
        c.AskUser(szText, bnOk, icError);
        return 0;
    }
    return LoadListing(c, File.Text(), File.Length());
}

int LoadListing(cCalculator &c, const char *pText, size_t nLength)
{
    const char *const pEnd   = pText + nLength;
    const size_t      nLines = CountFileLines(pText, pEnd);
    const size_t      nRoom  = nLength + nLines * kListingExtra + kProgramLines * kUnusedLine + 1;
    const std::unique_ptr<char, void (*)(void *)> Listing(
        AllocateWithRetry(c.m_pHost, [nRoom] { return static_cast<char *>(malloc(nRoom)); }), free);
    if (!Listing)
        return 0;

    cLoad Load          = {};
    Load.m_pListing     = Listing.get();
    Load.m_nListingRoom = nRoom;
    Load.ListLine(0, "");
    c.m_bParseOnly  = 1;
    const int bRead = ReadLines(c, &Load, pText, pEnd);
    c.m_bParseOnly  = 0;
    if (!bRead)
        return CancelLoad(c);
    FinishLoad(c, &Load);
    return 1;
}
