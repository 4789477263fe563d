// text_printer.h - prints numbered lines of text, page by page.

#ifndef TOOLKIT_TEXT_PRINTER_H
#define TOOLKIT_TEXT_PRINTER_H

#include "toolkit/win32/win32.h"

#include <cstddef>
#include <memory>

#include "toolkit/message_box.h"
#include "toolkit/print_plan.h"
#include "toolkit/win32/gdi.h"

// What is printed.
class cTextSource
{
public:
    virtual ~cTextSource() {}

    virtual int CountLines() const = 0;

    // Without the line end.
    virtual int GetLineLength(int nLine) const = 0;

    // Copies a line, cut to nSize - 3 characters, with "\r\n" behind it.
    virtual int GetLine(int nLine, char *szText, size_t nSize) const = 0;
};

struct cTextLook
{
    LOGFONTA     m_LogFont;     // its height does not count
    int          m_nPointSize;  // tenths of a point
    COLORREF     m_crText;
    cPageMargins m_Margins;     // thousandths of an inch
    int          m_bLandscape;  // the text runs down the sheet
};

// A text laid out on the sheets of a device.
class cTextPages
{
public:
    // All three must outlive the object. Paper is the device's, upright.
    cTextPages(HDC hDc, const cTextSource &Source, const cTextLook &Look, const cPaper &Paper,
               const cPrintChoice &Choice);

    // Makes room for the longest line; called once, before DrawSheet. 0 if
    // memory is short and the user gave up.
    int Prepare(cMessageBoxes *pBoxes);

    // How many sheets there are to draw, copies included.
    int CountSheets() const { return ::CountSheets(m_Plan); }

    // Draws sheet nSheet, from 0, in the order of printing.
    void DrawSheet(int nSheet) const;

private:
    HFONT MakeFont() const;
    int   LineHeight() const;
    void  DrawLine(int nLine, const cSheetPoint &At) const;

    HDC                     m_hDc;
    const cTextSource      &m_Source;
    const cTextLook        &m_Look;
    cPaper                  m_Paper;
    cGdiFont                m_Font;
    cTextBand               m_Band;
    int                     m_nLineHeight;
    cPrintPlan              m_Plan;
    size_t                  m_nLineSize;
    std::unique_ptr<char[]> m_Line;
};

// Asks for a printer and prints all or the chosen pages as a document named
// szDocument. hOwner is disabled meanwhile, and the user may cancel. Returns 1
// if everything was handed to the spooler.
int PrintText(const cTextSource &Source, const cTextLook &Look, HWND hOwner, const char *szDocument,
              cMessageBoxes *pBoxes);

#endif
