#include "shell/win32/edit_line_box.h"

unsigned cEditLineBox::CountLines() const
{
    const int nLast = m_pEditBox->GetLineCount() - 1;
    return static_cast<unsigned>(m_pEditBox->GetLineLength(nLast) > 0 ? nLast + 1 : nLast);
}

int cEditLineBox::GetLine(unsigned nLine, char *szText, size_t nSize) const
{
    return m_pEditBox->GetLine(static_cast<int>(nLine), szText, nSize);
}

int cEditLineBox::InsertLine(unsigned nLine, const char *szText)
{
    return m_pEditBox->InsertLine(static_cast<int>(nLine), szText);
}

int cEditLineBox::ReplaceLine(unsigned nLine, const char *szText)
{
    return m_pEditBox->ReplaceLine(static_cast<int>(nLine), szText);
}

size_t cEditLineBox::GetTextLength() const
{
    return m_pEditBox->GetTextLength();
}

size_t cEditLineBox::GetText(char *szText, size_t nSize) const
{
    return m_pEditBox->GetText(szText, nSize);
}

int cEditLineBox::SetText(const char *szText)
{
    return m_pEditBox->SetText(szText);
}

int cEditLineBox::HighlightLine(unsigned nLine)
{
    return nLine < CountLines() && m_pEditBox->HighlightLines(static_cast<int>(nLine), 1);
}
