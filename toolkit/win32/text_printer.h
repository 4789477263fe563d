// text_printer.h - prints numbered lines of text, page by page.

#ifndef TOOLKIT_WIN32_TEXT_PRINTER_H
#define TOOLKIT_WIN32_TEXT_PRINTER_H

#include "toolkit/win32/win32.h"

#include <cstddef>
#include <memory>

#include "toolkit/message_box.h"
#include "toolkit/print_plan.h"
#include "toolkit/win32/gdi.h"

// Characters of the line end "\r\n".
const size_t kLineEndLength = 2;

// The text to be printed.
class cTextSource
{
public:
    virtual ~cTextSource() {}

    virtual int CountLines() const = 0;

    // Without the line end.
    virtual int GetLineLength(int nLine) const = 0;

    // Copies a line, cut to nSize - 3 characters, and appends "\r\n".
    virtual int GetLine(int nLine, char *szText, size_t nSize) const = 0;
};

struct cTextLook
{
    LOGFONTA     m_LogFont;     // its height is ignored
    int          m_nPointSize;  // tenths of a point
    COLORREF     m_crText;
    cPageMargins m_Margins;     // thousandths of an inch
    int          m_bLandscape;  // the text runs along the longer side
};

// A text laid out on sheets of paper.
class cTextPages
{
public:
    // hDc, Source and Look must outlive the object. Paper is the device's sheet,
    // upright.
    cTextPages(HDC hDc, const cTextSource &Source, const cTextLook &Look, const cPaper &Paper,
               const cPrintChoice &Choice);

    // Allocates a buffer for the longest line; call this once, before DrawSheet.
    // 0 if memory is short and the user gave up.
    int Prepare(cMessageBoxes *pBoxes);

    // Number of sheets, copies included.
    int CountSheets() const { return ::CountSheets(m_Plan); }

    // Draws sheet nSheet, from 0, in the order of printing.
    void DrawSheet(int nSheet) const;

private:
    cGdiFont MakeFont() const;
    int      LineHeight() const;
    void     DrawLine(int nLine, const cSheetPoint &At) const;

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

// Asks for a printer and prints the chosen pages as the document szDocument.
// hOwner is disabled meanwhile, and the user may cancel. 1 if everything was
// handed to the spooler. A box says so if the margins leave no room.
int PrintText(const cTextSource &Source, const cTextLook &Look, HWND hOwner, const char *szDocument,
              cMessageBoxes *pBoxes);

#endif
