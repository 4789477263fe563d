#include "toolkit/win32/print_job.h"

#include <algorithm>

static const cPageCalls kPlatformCalls = {&StartDocA, &StartPage, &EndPage, &EndDoc};

cPrintJob *cPrintJob::s_pCurrent = nullptr;

int cPrinter::Ask(HWND hOwner, ePages nPages)
{
    PRINTDLGA Dialog   = {};
    Dialog.lStructSize = sizeof Dialog;
    Dialog.hwndOwner   = hOwner;
    Dialog.Flags       = PD_RETURNDC | PD_ALLPAGES | PD_NOSELECTION | PD_HIDEPRINTTOFILE;
    Dialog.Flags |= nPages == pgOnePage ? PD_NOPAGENUMS : 0;
    Dialog.nCopies   = 1;
    Dialog.nFromPage = 1;
    Dialog.nToPage   = 1;
    Dialog.nMinPage  = 1;
    Dialog.nMaxPage  = 0xFFFF;
    const cModalGuard   Others(hOwner);
    const int           bDone = PrintDlgA(&Dialog) ? 1 : 0;
    const cGlobalMemory Mode(Dialog.hDevMode);
    const cGlobalMemory Names(Dialog.hDevNames);

    m_Dc.Reset(Dialog.hDC);
    m_Choice = {std::max<int>(Dialog.nCopies, 1), (Dialog.Flags & PD_COLLATE) != 0,
                (Dialog.Flags & PD_PAGENUMS) != 0, Dialog.nFromPage, Dialog.nToPage};
    return bDone && m_Dc;
}

cPaper PaperOf(HDC hDc)
{
    const int nWidth  = GetDeviceCaps(hDc, PHYSICALWIDTH);
    const int nHeight = GetDeviceCaps(hDc, PHYSICALHEIGHT);
    const int nLeft   = GetDeviceCaps(hDc, PHYSICALOFFSETX);
    const int nTop    = GetDeviceCaps(hDc, PHYSICALOFFSETY);
    return {0,
            GetDeviceCaps(hDc, LOGPIXELSX),
            GetDeviceCaps(hDc, LOGPIXELSY),
            nWidth,
            nHeight,
            nLeft,
            nTop,
            nWidth - nLeft - GetDeviceCaps(hDc, HORZRES),
            nHeight - nTop - GetDeviceCaps(hDc, VERTRES)};
}

void TurnFont(const cPaper &Paper, LOGFONTA *pFont)
{
    if (!Paper.m_bTurned)
        return;
    pFont->lfEscapement  = kTurnedText;
    pFont->lfOrientation = kTurnedText;
}

cPrintJob::cPrintJob(HDC hDc, HWND hOwner) : cPrintJob(hDc, hOwner, kPlatformCalls) {}

cPrintJob::cPrintJob(HDC hDc, HWND hOwner, const cPageCalls &Calls)
    : m_hDc(hDc), m_hOwner(hOwner), m_Others(hOwner), m_Calls(Calls), m_pPrevious(s_pCurrent)
{
    s_pCurrent = this;
    EnableWindow(hOwner, FALSE);
}

// The owner is enabled first, so that closing the dialog activates the owner
// rather than another program.
cPrintJob::~cPrintJob()
{
    EnableWindow(m_hOwner, TRUE);
    m_Dialog.Close();
    s_pCurrent = m_pPrevious;
}

int cPrintJob::Send(const char *szDocument, int nSheets,
                    const std::function<int(int nSheet)> &DrawSheet)
{
    if (!Begin(szDocument))
        return 0;
    for (int i = 0; i < nSheets; i++)
        if (!SendSheet(i, DrawSheet))
            return 0;
    return m_Calls.m_pfnEndDoc(m_hDc) > 0;
}

int cPrintJob::Begin(const char *szDocument)
{
    m_Dialog.Open(m_hOwner, szDocument);
    SetAbortProc(m_hDc, &AbortProc);

    DOCINFOA Document    = {};
    Document.cbSize      = sizeof Document;
    Document.lpszDocName = szDocument;
    return m_Calls.m_pfnStartDoc(m_hDc, &Document) > 0;
}

int cPrintJob::SendSheet(int nSheet, const std::function<int(int nSheet)> &DrawSheet)
{
    return GoesOn() && m_Calls.m_pfnStartPage(m_hDc) > 0 && DrawSheet(nSheet) &&
           m_Calls.m_pfnEndPage(m_hDc) > 0 && GoesOn();
}

// Ends the document if the user has cancelled.
int cPrintJob::GoesOn()
{
    if (m_Dialog.PumpMessages())
        return 1;
    m_Calls.m_pfnEndDoc(m_hDc);
    return 0;
}

BOOL CALLBACK cPrintJob::AbortProc(HDC, int)
{
    return s_pCurrent->m_Dialog.PumpMessages() ? TRUE : FALSE;
}
