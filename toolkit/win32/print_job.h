// print_job.h - a printer chosen by the user, and a document sent to it.
//
//     cPrinter Printer;
//     if (!Printer.Ask(hOwner, pgOnePage))
//         return 0;
//     cPrintJob Job(Printer.Dc(), hOwner);
//     return Job.Send("factorial.txt", 1, [&](int) { return Draw(Printer.Dc()); });

#ifndef TOOLKIT_WIN32_PRINT_JOB_H
#define TOOLKIT_WIN32_PRINT_JOB_H

#include "toolkit/win32/win32.h"

#include <functional>

#include "toolkit/print_plan.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/modal_guard.h"
#include "toolkit/win32/sending_dialog.h"

enum ePages
{
    pgOnePage,   // no page range can be chosen
    pgManyPages  // the user may choose a range of pages
};

class cPrinter
{
public:
    // Shows the platform's printer dialog above hOwner, modal for all windows,
    // and proposes one copy of all pages. 0 if the user cancelled.
    int Ask(HWND hOwner, ePages nPages);

    HDC                 Dc() const { return m_Dc.Get(); }
    const cPrintChoice &Choice() const { return m_Choice; }

private:
    cCreatedDc   m_Dc;
    cPrintChoice m_Choice = {};
};

// The sheet of a printer, upright.
cPaper PaperOf(HDC hDc);

// Turns the text of a font by a quarter if the sheet is turned.
void TurnFont(const cPaper &Paper, LOGFONTA *pFont);

// The platform's calls that a print job makes.
struct cPageCalls
{
    int(WINAPI *m_pfnStartDoc)(HDC hDc, const DOCINFOA *pDocument);
    int(WINAPI *m_pfnStartPage)(HDC hDc);
    int(WINAPI *m_pfnEndPage)(HDC hDc);
    int(WINAPI *m_pfnEndDoc)(HDC hDc);
};

// During its life all windows are disabled, and a dialog lets the user cancel.
class cPrintJob
{
public:
    // Tests replace the platform's calls.
    cPrintJob(HDC hDc, HWND hOwner);
    cPrintJob(HDC hDc, HWND hOwner, const cPageCalls &Calls);
    ~cPrintJob();
    cPrintJob(const cPrintJob &)            = delete;
    cPrintJob &operator=(const cPrintJob &) = delete;

    // Prints nSheets sheets as the document szDocument. DrawSheet(nSheet), from 0,
    // draws one and returns 0 to give up. Returns 1 when everything has been
    // handed to the spooler, 0 if the printer failed or the user cancelled. A
    // cancelled document is ended; the spooler decides how much of it is printed.
    // A document with a failed page is not ended; DeleteDC discards it. Call this
    // once.
    int Send(const char *szDocument, int nSheets, const std::function<int(int nSheet)> &DrawSheet);

private:
    static BOOL CALLBACK AbortProc(HDC hDc, int nError);

    int Begin(const char *szDocument);
    int SendSheet(int nSheet, const std::function<int(int nSheet)> &DrawSheet);
    int GoesOn();

    static cPrintJob *s_pCurrent;

    HDC            m_hDc;
    HWND           m_hOwner;
    cModalGuard    m_Others;
    cPageCalls     m_Calls;
    cSendingDialog m_Dialog;
    cPrintJob     *m_pPrevious;  // a message handled by that job may have started this one
};

#endif
