// edit_line_box.h - shows the engine's listing or registers in an edit box.
//
// The edit box counts an empty line after the last line end, and the engine does
// not: 99 lines of the engine are 100 lines of the edit box.

#ifndef SHELL_WIN32_EDIT_LINE_BOX_H
#define SHELL_WIN32_EDIT_LINE_BOX_H

#include "toolkit/win32/win32.h"

#include "engine/line_box.h"
#include "toolkit/win32/edit_box.h"

class cEditLineBox : public cLineBox
{
public:
    // The edit box must outlive the object. Its window may be created later, but
    // before the first call.
    explicit cEditLineBox(cEditBox *pEditBox) : m_pEditBox(pEditBox) {}

    unsigned CountLines() const override;
    int      GetLine(unsigned nLine, char *szText, size_t nSize) const override;
    int      InsertLine(unsigned nLine, const char *szText) override;
    int      ReplaceLine(unsigned nLine, const char *szText) override;
    size_t   GetTextLength() const override;
    size_t   GetText(char *szText, size_t nSize) const override;
    int      SetText(const char *szText) override;
    int      HighlightLine(unsigned nLine) override;

private:
    cEditBox *m_pEditBox;
};

#endif
