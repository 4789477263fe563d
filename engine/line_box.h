// line_box.h - a line-oriented text beside the face: the program listing or
// the registers. The window program shows one as an edit control, the console
// and the tests keep one in memory.
//
// Every line ends in "\r\n"; nothing follows the last line end. Lines count
// from 0.

#ifndef ENGINE_LINE_BOX_H
#define ENGINE_LINE_BOX_H

#include <cstddef>

class cLineBox
{
public:
    virtual ~cLineBox() {}

    virtual unsigned CountLines() const = 0;

    // Copies line nLine, cut to nSize - 3 characters, and ends it with
    // "\r\n". A line that does not exist reads as empty. Always returns 1.
    virtual int GetLine(unsigned nLine, char *szText, size_t nSize) const = 0;

    // Puts szText before line nLine; nLine = CountLines() appends. szText
    // includes its line end. 0 if there is no such line.
    virtual int InsertLine(unsigned nLine, const char *szText) = 0;

    // Replaces line nLine and its line end by szText; "" removes the
    // line. 0 if there is no such line.
    virtual int ReplaceLine(unsigned nLine, const char *szText) = 0;

    // Length of the text, line ends included.
    virtual size_t GetTextLength() const = 0;

    // Copies at most nSize - 1 characters; returns how many.
    virtual size_t GetText(char *szText, size_t nSize) const = 0;

    // Replaces everything. 1 when all of szText fits.
    virtual int SetText(const char *szText) = 0;

    // Selects line nLine and brings it into view. 0, and nothing changes, if
    // there is no such line.
    virtual int HighlightLine(unsigned nLine) = 0;
};

#endif
