// memory_line_box.h - a line box without a window, for the console and tests.

#ifndef ENGINE_MEMORY_LINE_BOX_H
#define ENGINE_MEMORY_LINE_BOX_H

#include <string>
#include <vector>

#include "engine/line_box.h"

class cMemoryLineBox : public cLineBox
{
public:
    unsigned CountLines() const override;
    int      GetLine(unsigned nLine, char *szText, size_t nSize) const override;
    int      InsertLine(unsigned nLine, const char *szText) override;
    int      ReplaceLine(unsigned nLine, const char *szText) override;
    size_t   GetTextLength() const override;
    size_t   GetText(char *szText, size_t nSize) const override;
    int      SetText(const char *szText) override;
    int      HighlightLine(unsigned nLine) override;

    // The line that was highlighted last, 0 at the start.
    unsigned HighlightedLine() const { return m_nHighlighted; }

private:
    void   FindLines(unsigned nFirst, size_t nStart);
    size_t LineEnd(unsigned nLine) const;

    std::string         m_Text;
    std::vector<size_t> m_Starts;  // of each line in m_Text
    unsigned            m_nHighlighted = 0;
};

#endif
