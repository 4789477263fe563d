// listing_save.cpp - writes the listing to a file, and the file commands of
// the menu.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "engine/line_box.h"
#include "engine/vorstek_engine.h"
#include "toolkit/replacement_file.h"
#include "toolkit/retry_alloc.h"

static const size_t      kListingMark = 3;  // "05 ", "   " or "-- "
static const char *const kUntitled    = "UNTITLED";

// Where the line behind the one at pText begins.
static const char *EndOfLine(const char *pText, const char *pTextEnd)
{
    const void *const pLineEnd = memchr(pText, '\n', static_cast<size_t>(pTextEnd - pText));
    return pLineEnd ? static_cast<const char *>(pLineEnd) + 1 : pTextEnd;
}

static int IsRunStopLine(const char *pLine, const char *pEnd)
{
    const char *const kRunStop = "R/S";
    const size_t      nRunStop = strlen(kRunStop);
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
int cVorstekEngine::SaveProgram(const char *szFileName)
{
    const size_t                                  nLength = m_pListing->GetTextLength();
    const std::unique_ptr<char, void (*)(void *)> Text(
        AllocateWithRetry(m_pHost, [nLength] { return static_cast<char *>(malloc(nLength + 1)); }),
        free);
    if (!Text)
        return 0;
    const char *const pTextEnd = Text.get() + m_pListing->GetText(Text.get(), nLength + 1);

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

void cVorstekEngine::ShowFileName()
{
    char szText[kFileNameText + 16];
    snprintf(szText, sizeof szText, "filename: %s", m_szFileName[0] ? m_szFileName : kUntitled);
    m_pHost->SetStatusText(szText);
}

int cVorstekEngine::SaveUnderName(const char *szFileName)
{
    if (strlen(szFileName) >= kFileNameText || !SaveProgram(szFileName))
    {
        char szText[kFileNameText + 32];
        snprintf(szText, sizeof szText, "Could not write the file:\n %s", szFileName);
        AskUser(szText, bnOk, icError);
        return 0;
    }
    snprintf(m_szFileName, sizeof m_szFileName, "%s", szFileName);
    m_bProgramModified = 0;
    ShowFileName();
    return 1;
}

int cVorstekEngine::SaveAs()
{
    char szName[kFileNameText] = "";
    return m_pHost->AskFileName(fdSave, szName, sizeof szName) && SaveUnderName(szName);
}

int cVorstekEngine::Save()
{
    char szName[kFileNameText];
    if (!m_szFileName[0])
        return SaveAs();
    memcpy(szName, m_szFileName, sizeof szName);
    return SaveUnderName(szName);
}

int cVorstekEngine::ConfirmDiscard()
{
    if (!m_bProgramModified)
        return 1;
    char szText[kFileNameText + 32];
    snprintf(szText, sizeof szText, "Save current changes in %s?",
             m_szFileName[0] ? m_szFileName : kUntitled);
    const eAnswer nAnswer = AskUser(szText, bnYesNoCancel, icQuestion);
    if (nAnswer == anYes)
        return Save();
    return nAnswer == anNo;
}

int cVorstekEngine::New()
{
    if (!ConfirmDiscard())
        return 0;
    ClearProgram();
    m_nReturnDepth = 0;
    AbandonKeys();
    return 1;
}

int cVorstekEngine::Open()
{
    char szName[kFileNameText] = "";
    if (!ConfirmDiscard() || !m_pHost->AskFileName(fdOpen, szName, sizeof szName))
        return 0;
    if (LoadProgram(szName))
    {
        TakeLoadedProgram(szName);
        return 1;
    }
    m_szFileName[0] = 0;
    ShowFileName();
    return 0;
}

// A listing that the box has cut must not take its file's place unasked.
void cVorstekEngine::TakeLoadedProgram(const char *szFileName)
{
    snprintf(m_szFileName, sizeof m_szFileName, "%s", m_bListingWhole ? szFileName : "");
    m_bProgramModified = 0;
    ShowFileName();
    AbandonEntry();
    AbandonKeys();
}

// Pending keys go, and with them the wait for a key; a switch to program mode
// that waited for it is carried out.
void cVorstekEngine::AbandonKeys()
{
    SetKeystrokes("");
    SwitchIfPending();
    m_bPaintStale = 1;
    RefreshViews();
}
