// edit_box.h - a multi-line text that is read and changed line by line, for the
// program listing and the registers. It can be printed.
//
// Lines are counted from 0. The platform counts an empty line after the last line
// end, so "a\r\nb\r\n" has three lines.

#ifndef TOOLKIT_WIN32_EDIT_BOX_H
#define TOOLKIT_WIN32_EDIT_BOX_H

#include "toolkit/win32/win32.h"

#include <cstddef>

#include "toolkit/page_margins.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/owned_handle.h"

// Styles of SetFont, combined with |.
const unsigned kFontBold       = 1;
const unsigned kFontItalic     = 2;
const unsigned kFontUnderline  = 4;
const unsigned kFontStrikeOut  = 8;
const unsigned kFontFixedPitch = 16;  // also for the substitute of a missing face

class cEditBox : public cBaseWindow
{
public:
    // Uses the system font and margins of one inch.
    explicit cEditBox(cMessageBoxes *pBoxes);
    ~cEditBox() override;

    // "EDIT", or "RichEdit20A" after Create with bRich.
    const char *GetClassName() const override;

    // A hidden box with both scroll bars and no line wrapping. bRich asks for a
    // rich-edit control, bPlainText for one without text attributes. nTextLimit
    // is in characters; a line end counts as two. Typed text and the text of
    // InsertLine, ReplaceLine and SetText is cut at the limit, and EN_MAXTEXT
    // notifies the owner. 0, after a message box, if the control cannot be
    // created or the rich-edit library is missing; in the latter case it also
    // posts a quit message.
    int Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, DWORD dwStyle,
               uint32_t nId, int bRich, int bPlainText, uint32_t nTextLimit);

    // Prevents the user, but not the program, from changing the text.
    void SetReadOnly(int bReadOnly);
    int  IsReadOnly() const;

    // nPointSize is in tenths of a point: SetFont("Courier New", 90,
    // kFontFixedPitch) is 9 points. The platform substitutes a missing face. 0,
    // and the font does not change, if no font can be created.
    int SetFont(const char *szFace, int nPointSize, unsigned nStyles);

    // Dots per inch of the screen that shows the box; before, those of the first
    // screen. The font keeps its size in points.
    void SetDpi(int nDpi);

    const LOGFONTA &FontDescription() const { return m_LogFont; }
    int             PointSize() const { return m_nPointSize; }  // tenths of a point

    int GetLineCount() const;

    // Without the line end; 0 for a line that does not exist.
    int GetLineLength(int nLine) const;

    // Copies line nLine, cut to nSize - 3 characters, and appends "\r\n". A line
    // that does not exist reads as empty. nSize is at least 3. Always returns 1.
    int GetLine(int nLine, char *szText, size_t nSize) const;

    // Inserts szText, which includes its line end, before line nLine. The view
    // does not scroll. 0 if there is no such line.
    int InsertLine(int nLine, const char *szText);

    // Replaces line nLine and its line end by szText. The view does not scroll.
    // 0 if there is no such line or none after it.
    int ReplaceLine(int nLine, const char *szText);

    // Of all the text, line ends included.
    size_t GetTextLength() const;

    // Copies at most nSize - 1 characters; returns how many.
    size_t GetText(char *szText, size_t nSize) const;

    // Replaces all the text. The view stays at the same line, or at the last
    // lines of a shorter text; the caret moves to the start. 0 if the text was
    // cut.
    int SetText(const char *szText);

    // Selects nCount lines from nLine on, or as many as there are, and scrolls
    // them to the middle of the view if they are at its edge or outside it. 0,
    // with nothing changed, if there is no line nLine.
    int HighlightLines(int nLine, int nCount);

    // For WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC of the owner: sets the text
    // colour and returns a white brush, also for a read-only box.
    HBRUSH OnCtlColor(HDC hDc) const;

    // Asks the user for margins and orientation. 0 if the user cancelled.
    int PageSetup();

    // Asks for a printer and prints the text as the document szDocument. Shows
    // a message box instead if the text is empty. 1 if everything was printed.
    int Print(const char *szDocument);

    COLORREF TextColour() const { return m_crText; }
    void     SetTextColour(COLORREF crText) { m_crText = crText; }

private:
    int  LoadRichLibrary();
    int  IsRichScrollOk() const;
    void SetUpRichText();
    int  UseFont(const LOGFONTA &LogFont);
    int  LineStart(int nLine) const;
    int  TextEnd() const;
    int  FirstVisibleLine() const;
    int  LastVisibleLine() const;
    void ReplaceRange(int nStart, int nEnd, const char *szText);
    int  ScrollsByLines() const;
    void ScrollTo(int nCharacters, int nFirstLine);

    cGdiFont     m_hFont;
    LOGFONTA     m_LogFont;     // describes m_hFont
    int          m_nPointSize;  // tenths of a point
    int          m_nDpi;        // of the screen that shows the box
    COLORREF     m_crText;
    cPageMargins m_Margins;         // thousandths of an inch
    int          m_bLandscape;      // the text is printed along the longer side
    uint32_t     m_bRich;           // a rich-edit control
    uint32_t     m_bPlainTextMode;  // of a rich-edit control
    cModule      m_hRichLib;
    uint32_t     m_bRichScrollOk;  // the rich-edit control can scroll by lines
};

#endif
