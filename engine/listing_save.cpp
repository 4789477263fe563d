// listing_save.cpp - writes the listing to a file, and the file commands of
// the menu.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "engine/calculator.h"
#include "engine/line_box.h"
#include "engine/listing_files.h"
#include "engine/listing_words.h"
#include "engine/mode_switch.h"
#include "engine/program_memory.h"
#include "toolkit/replacement_file.h"
#include "toolkit/retry_alloc.h"

static const char *const kUntitled = "UNTITLED";

// Where the line after the one at pText begins.
static const char *EndOfLine(const char *pText, const char *pTextEnd)
{
    const void *const pLineEnd = memchr(pText, '\n', static_cast<size_t>(pTextEnd - pText));
    return pLineEnd ? static_cast<const char *>(pLineEnd) + 1 : pTextEnd;
}

static int IsRunStopLine(const char *pLine, const char *pEnd)
{
    const size_t nRunStop = strlen(kRunStop);
    return static_cast<size_t>(pEnd - pLine) >= kListingMark + nRunStop &&
           strncmp(pLine + kListingMark, kRunStop, nRunStop) == 0;
}

// The end of the last line that is written: trailing R/S lines are not, since
// an unused line holds R/S. Line 0 is never written.
static const char *FindListingEnd(const char *pFirst, const char *pTextEnd)
{
    const char *pListingEnd = pFirst;
    for (const char *pLine = pFirst; pLine < pTextEnd;)
    {
        const char *const pEnd = EndOfLine(pLine, pTextEnd);
        if (!IsRunStopLine(pLine, pEnd))
            pListingEnd = pEnd;
        pLine = pEnd;
    }
    return pListingEnd;
}

// A box that keeps less than it was given may end within a mark.
static void WriteListingLine(const char *pLine, const char *pEnd, FILE *pStream)
{
    const auto nLength = static_cast<size_t>(pEnd - pLine);
    if (nLength > kListingMark)
        fwrite(pLine + kListingMark, 1, nLength - kListingMark, pStream);
}

// The new content is complete on disk before it takes the old file's place.
int SaveProgram(cCalculator &c, const char *szFileName)
{
    const size_t                                  nLength = c.m_pListing->GetTextLength();
    const std::unique_ptr<char, void (*)(void *)> Text(
        AllocateWithRetry(c.m_pHost,
                          [nLength] { return static_cast<char *>(malloc(nLength + 1)); }),
        free);
    if (!Text)
        return 0;
    const char *const pTextEnd = Text.get() + c.m_pListing->GetText(Text.get(), nLength + 1);

    cReplacementFile File;
    if (!File.Open(szFileName, "wb"))
        return 0;
    const char       *pLine = EndOfLine(Text.get(), pTextEnd);
    const char *const pEnd  = FindListingEnd(pLine, pTextEnd);
    while (pLine < pEnd)
    {
        const char *const pNext = EndOfLine(pLine, pTextEnd);
        WriteListingLine(pLine, pNext, File.Stream());
        pLine = pNext;
    }
    return File.Commit();
}

void ShowFileName(cCalculator &c)
{
    char szText[kFileNameText + 16];
    snprintf(szText, sizeof szText, "filename: %s", c.m_szFileName[0] ? c.m_szFileName : kUntitled);
    c.m_pHost->SetStatusText(szText);
}

int SaveUnderName(cCalculator &c, const char *szFileName)
{
    if (strlen(szFileName) >= kFileNameText || !SaveProgram(c, szFileName))
    {
        char szText[kFileNameText + 32];
        snprintf(szText, sizeof szText, "Could not write the file:\n %s", szFileName);
        c.AskUser(szText, bnOk, icError);
        return 0;
    }
    snprintf(c.m_szFileName, sizeof c.m_szFileName, "%s", szFileName);
    c.m_bProgramModified = 0;
    ShowFileName(c);
    return 1;
}

int FileSaveAs(cCalculator &c)
{
    char szName[kFileNameText] = "";
    return c.m_pHost->AskFileName(fdSave, szName, sizeof szName) && SaveUnderName(c, szName);
}

int FileSave(cCalculator &c)
{
    char szName[kFileNameText];
    if (!c.m_szFileName[0])
        return FileSaveAs(c);
    memcpy(szName, c.m_szFileName, sizeof szName);
    return SaveUnderName(c, szName);
}

int ConfirmDiscard(cCalculator &c)
{
    if (!c.m_bProgramModified)
        return 1;
    char szText[kFileNameText + 32];
    snprintf(szText, sizeof szText, "Save current changes in %s?",
             c.m_szFileName[0] ? c.m_szFileName : kUntitled);
    const eAnswer nAnswer = c.AskUser(szText, bnYesNoCancel, icQuestion);
    if (nAnswer == anYes)
        return FileSave(c);
    return nAnswer == anNo;
}

int FileNew(cCalculator &c)
{
    if (!ConfirmDiscard(c))
        return 0;
    ClearProgram(c);
    c.m_nReturnDepth = 0;
    AbandonKeys(c);
    return 1;
}

int FileOpen(cCalculator &c)
{
    char szName[kFileNameText] = "";
    if (!ConfirmDiscard(c) || !c.m_pHost->AskFileName(fdOpen, szName, sizeof szName))
        return 0;
    if (LoadProgram(c, szName))
    {
        TakeLoadedProgram(c, szName);
        return 1;
    }
    c.m_szFileName[0] = 0;
    ShowFileName(c);
    return 0;
}

// A listing that the box has cut must not take its file's place unasked.
void TakeLoadedProgram(cCalculator &c, const char *szFileName)
{
    snprintf(c.m_szFileName, sizeof c.m_szFileName, "%s", c.m_bListingComplete ? szFileName : "");
    c.m_bProgramModified = 0;
    ShowFileName(c);
    c.AbandonEntry();
    AbandonKeys(c);
}
