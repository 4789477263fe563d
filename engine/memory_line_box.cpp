#include "engine/memory_line_box.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

static const char *const kLineEnd       = "\r\n";
static const size_t      kLineEndLength = 2;

// From line nFirst on, which starts at nStart.
void cMemoryLineBox::FindLines(unsigned nFirst, size_t nStart)
{
    m_Starts.resize(nFirst);
    while (nStart < m_Text.size())
    {
        m_Starts.push_back(nStart);
        const size_t nEnd = m_Text.find(kLineEnd, nStart);
        nStart            = nEnd == std::string::npos ? m_Text.size() : nEnd + kLineEndLength;
    }
}

size_t cMemoryLineBox::LineEnd(unsigned nLine) const
{
    return nLine + 1 < m_Starts.size() ? m_Starts[nLine + 1] : m_Text.size();
}

unsigned cMemoryLineBox::CountLines() const
{
    return static_cast<unsigned>(m_Starts.size());
}

int cMemoryLineBox::GetLine(unsigned nLine, char *szText, size_t nSize) const
{
    size_t nLength = 0;
    if (nLine < m_Starts.size())
    {
        nLength = LineEnd(nLine) - m_Starts[nLine];
        if (m_Text.compare(m_Starts[nLine] + nLength - kLineEndLength, kLineEndLength, kLineEnd) ==
            0)
            nLength -= kLineEndLength;
        nLength = std::min(nLength, nSize - kLineEndLength - 1);
        memcpy(szText, m_Text.data() + m_Starts[nLine], nLength);
    }
    memcpy(szText + nLength, kLineEnd, kLineEndLength + 1);
    return 1;
}

int cMemoryLineBox::InsertLine(unsigned nLine, const char *szText)
{
    if (nLine > m_Starts.size())
        return 0;
    const size_t nStart = nLine < m_Starts.size() ? m_Starts[nLine] : m_Text.size();
    m_Text.insert(nStart, szText);
    FindLines(nLine, nStart);
    return 1;
}

int cMemoryLineBox::ReplaceLine(unsigned nLine, const char *szText)
{
    if (nLine >= m_Starts.size())
        return 0;
    const size_t nStart = m_Starts[nLine];
    m_Text.replace(nStart, LineEnd(nLine) - nStart, szText);
    FindLines(nLine, nStart);
    return 1;
}

size_t cMemoryLineBox::GetTextLength() const
{
    return m_Text.size();
}

size_t cMemoryLineBox::GetText(char *szText, size_t nSize) const
{
    const size_t nLength = std::min(m_Text.size(), nSize - 1);
    memcpy(szText, m_Text.data(), nLength);
    szText[nLength] = 0;
    return nLength;
}

int cMemoryLineBox::SetText(const char *szText)
{
    m_Text = szText;
    FindLines(0, 0);
    return 1;
}

int cMemoryLineBox::HighlightLine(unsigned nLine)
{
    if (nLine >= m_Starts.size())
        return 0;
    m_nHighlighted = nLine;
    return 1;
}
