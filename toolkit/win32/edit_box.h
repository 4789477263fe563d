// edit_box.h - a multi-line text that is worked on line by line: the program
// listing and the registers beside the face. It prints itself.
//
// Lines count from 0. The platform counts an empty line behind the last line
// end, so "a\r\nb\r\n" has three.

#ifndef TOOLKIT_EDIT_BOX_H
#define TOOLKIT_EDIT_BOX_H

#include "toolkit/win32/win32.h"

#include <cstddef>

#include "toolkit/page_margins.h"
#include "toolkit/win32/base_window.h"

// Styles of SetFont, to be or-ed.
const unsigned kFontBold       = 1;
const unsigned kFontItalic     = 2;
const unsigned kFontUnderline  = 4;
const unsigned kFontStrikeOut  = 8;
const unsigned kFontFixedPitch = 16;  // also when another face takes the place of a missing one

class cEditBox : public cBaseWindow
{
public:
    // In the system font, with margins of an inch.
    explicit cEditBox(cMessageBoxes *pBoxes);
    ~cEditBox() override;

    // "EDIT", or "RichEdit20A" after Create with bRich.
    const char *GetClassName() const override;

    // A hidden box with both scroll bars that breaks no lines. bRich asks for a
    // rich-edit control, bPlainText for one in which all text looks alike.
    // nTextLimit is in characters, line ends counting as two; what the user
    // types and what InsertLine, ReplaceLine and SetText put in stays within
    // it, and the owner is told by EN_MAXTEXT when something was cut. 0, and a
    // box has said so, if the control or the rich-edit library cannot be had;
    // without the library quit is posted too.
    int Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, DWORD dwStyle,
               uint32_t nId, int bRich, int bPlainText, uint32_t nTextLimit);

    // Keeps the user, not the program, from changing the text.
    void SetReadOnly(int bReadOnly);
    int  IsReadOnly() const;

    // nPointSize is in tenths of a point: SetFont("Courier New", 90,
    // kFontFixedPitch) is 9 points. The platform may take another face for a
    // missing one. 0, and the font stays, if no font can be created.
    int SetFont(const char *szFace, int nPointSize, unsigned nStyles);

    const LOGFONTA &FontDescription() const { return m_LogFont; }
    int             PointSize() const { return m_nPointSize; }  // tenths of a point

    int GetLineCount() const;

    // Without the line end; 0 for a line that does not exist.
    int GetLineLength(int nLine) const;

    // Copies line nLine, cut to nSize - 3 characters, and closes it with
    // "\r\n". A line that does not exist reads as empty. nSize is at least 3.
    // Always returns 1.
    int GetLine(int nLine, char *szText, size_t nSize) const;

    // Puts szText before line nLine; it carries its own line end. The view stays
    // at its lines. 0 if there is no such line.
    int InsertLine(int nLine, const char *szText);

    // Puts szText in the place of line nLine and its line end. The view stays at
    // its lines. 0 if there is no such line or none behind it.
    int ReplaceLine(int nLine, const char *szText);

    // The whole text, line ends included.
    size_t GetTextLength() const;

    // Copies at most nSize - 1 characters; returns how many.
    size_t GetText(char *szText, size_t nSize) const;

    // Replaces everything. The view stays at its lines as far as there are as
    // many, the caret goes to the start. Returns 1, or 0 when the text was cut.
    int SetText(const char *szText);

    // Selects nCount lines from nLine, or as many as there are, and scrolls
    // them to the middle of the view if they stand at its edge or outside. 0,
    // and nothing changes, if there is no line nLine.
    int HighlightLines(int nLine, int nCount);

    // WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC of the owner: the text colour, on
    // white also when read-only.
    HBRUSH OnCtlColor(HDC hDc) const;

    // Asks the user for margins and orientation. 0 if he cancelled.
    int PageSetup();

    // Asks for a printer and prints the text under the name szDocument. An
    // empty text is not printed, and a box says so. 0 if nothing, or not all,
    // was printed.
    int Print(const char *szDocument);

    COLORREF TextColour() const { return m_crText; }
    void     SetTextColour(COLORREF crText) { m_crText = crText; }

private:
    int  LoadRichLibrary();
    int  IsRichScrollOk() const;
    void SetUpRichText();
    int  TakeFont(const LOGFONTA &LogFont);
    int  LineStart(int nLine) const;
    int  TextEnd() const;
    int  FirstVisibleLine() const;
    int  LastVisibleLine() const;
    void ReplaceRange(int nStart, int nEnd, const char *szText);
    int  ScrollsByLines() const;
    void ScrollTo(int nCharacters, int nFirstLine);

    HFONT        m_hFont;
    LOGFONTA     m_LogFont;     // describes m_hFont
    int          m_nPointSize;  // tenths of a point
    COLORREF     m_crText;
    cPageMargins m_Margins;         // thousandths of an inch
    int          m_bLandscape;      // the text is printed down the page
    uint32_t     m_bRich;           // a rich-edit control
    uint32_t     m_bPlainTextMode;  // of a rich-edit control
    HMODULE      m_hRichLib;
    uint32_t     m_bRichScrollOk;  // a rich-edit control scrolls by lines
};

#endif
