// print_job.h - a printer as the user chose it, and a document that goes there.
//
//     cPrinter Printer;
//     if (!Printer.Ask(hOwner, pgOnePage))
//         return 0;
//     cPrintJob Job(Printer.Dc(), hOwner);
//     return Job.Send("factorial.txt", 1, [&](int) { return Draw(Printer.Dc()); });

#ifndef TOOLKIT_PRINT_JOB_H
#define TOOLKIT_PRINT_JOB_H

#include "toolkit/win32/win32.h"

#include <functional>

#include "toolkit/print_plan.h"
#include "toolkit/win32/modal_guard.h"
#include "toolkit/win32/sending_dialog.h"

enum ePages
{
    pgOnePage,   // there is nothing to choose from
    pgManyPages  // a range of them can be chosen
};

class cPrinter
{
public:
    cPrinter() : m_hDc(nullptr), m_Choice() {}
    ~cPrinter();
    cPrinter(const cPrinter &)            = delete;
    cPrinter &operator=(const cPrinter &) = delete;

    // Shows the platform's printer dialog above hOwner, for which all windows
    // wait; offers one copy of all pages. 0 if the user cancelled. Called once.
    int Ask(HWND hOwner, ePages nPages);

    HDC                 Dc() const { return m_hDc; }
    const cPrintChoice &Choice() const { return m_Choice; }

private:
    HDC          m_hDc;
    cPrintChoice m_Choice;
};

// The sheet of a printer, upright.
cPaper PaperOf(HDC hDc);

// What a print job asks of the platform.
struct cPageCalls
{
    int(WINAPI *m_pfnStartDoc)(HDC hDc, const DOCINFOA *pDocument);
    int(WINAPI *m_pfnStartPage)(HDC hDc);
    int(WINAPI *m_pfnEndPage)(HDC hDc);
    int(WINAPI *m_pfnEndDoc)(HDC hDc);
};

// While it lives all windows are disabled and a dialog offers to cancel.
class cPrintJob
{
public:
    // With calls other than the platform's in tests.
    cPrintJob(HDC hDc, HWND hOwner);
    cPrintJob(HDC hDc, HWND hOwner, const cPageCalls &Calls);
    ~cPrintJob();
    cPrintJob(const cPrintJob &)            = delete;
    cPrintJob &operator=(const cPrintJob &) = delete;

    // Prints nSheets sheets as a document of this name. DrawSheet(nSheet), from
    // 0, draws one and returns 0 to give up. Returns 1 once everything is handed
    // to the spooler; 0 when the printer fails or the user has cancelled. A
    // cancelled document is ended; how much of it comes out is the spooler's
    // business. One whose page failed is left to DeleteDC. Called once.
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
    cPrintJob     *m_pFormer;  // a message that this job has dispatched may start another
};

#endif
