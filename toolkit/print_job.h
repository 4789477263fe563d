// print_job.h - a printer as the user chose it, and a document that goes there.
//
//     cPrinter Printer;
//     if (!Printer.Ask(hOwner))
//         return 0;
//     cPrintJob Job(Printer.Dc(), hOwner);
//     if (!Job.Begin("factorial.txt") || !Job.BeginPage())
//         return 0;
//     ...                                   // draw
//     return Job.EndPage() && Job.End();

#ifndef TOOLKIT_PRINT_JOB_H
#define TOOLKIT_PRINT_JOB_H

#include "toolkit/win32.h"

#include "toolkit/print_plan.h"
#include "toolkit/sending_dialog.h"

class cPrinter
{
public:
    cPrinter() : m_hDc(nullptr), m_Choice() {}
    ~cPrinter();
    cPrinter(const cPrinter &)            = delete;
    cPrinter &operator=(const cPrinter &) = delete;

    // Shows the platform's printer dialog above hOwner; offers one copy of all
    // pages. 0 if the user cancelled. Called once.
    int Ask(HWND hOwner);

    HDC                 Dc() const { return m_hDc; }
    const cPrintChoice &Choice() const { return m_Choice; }

private:
    HDC          m_hDc;
    cPrintChoice m_Choice;
};

// The sheet of a printer, upright.
cPaper PaperOf(HDC hDc);

// While it lives hOwner is disabled and a dialog offers to cancel.
class cPrintJob
{
public:
    cPrintJob(HDC hDc, HWND hOwner);
    ~cPrintJob();
    cPrintJob(const cPrintJob &)            = delete;
    cPrintJob &operator=(const cPrintJob &) = delete;

    // All return 0 when the printer fails or the user has cancelled; then
    // nothing more is to be called. A cancelled document has been ended by
    // then; how much of it comes out is the spooler's business.
    int Begin(const char *szDocument);
    int BeginPage();
    int EndPage();
    int End();

private:
    static BOOL CALLBACK AbortProc(HDC hDc, int nError);

    int GoesOn();

    static cPrintJob *s_pCurrent;

    HDC            m_hDc;
    HWND           m_hOwner;
    cSendingDialog m_Dialog;
    cPrintJob     *m_pFormer;  // a message that this job has dispatched may start another
};

#endif
