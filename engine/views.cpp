// views.cpp - texts of the stack levels, the registers box, the highlight and
// the display. Operations note what has changed; the texts are made when they
// become visible.

#include <cstdio>
#include <cstring>

#include "engine/calculator.h"
#include "engine/display.h"
#include "engine/line_box.h"

void cCalculator::FormatNumber(double dValue, char (&szText)[kStackText])
{
    const unsigned nCode = m_NumberTexts.Format(dValue, *this, szText);
    if (nCode)
        ShowProgramError(nCode);
}

void cCalculator::ReportRepairs(double dValue)
{
    char szText[kStackText];
    FormatNumber(dValue, szText);
}

void cCalculator::SettleTexts()
{
    if (m_bStackStale)
    {
        m_bStackStale = 0;
        if (!IsXKeyed())
            m_NumberTexts.Format(m_dX, *this, m_szX);
        m_NumberTexts.Format(m_dY, *this, m_szY);
        m_NumberTexts.Format(m_dZ, *this, m_szZ);
        m_NumberTexts.Format(m_dT, *this, m_szT);
    }
    if (m_bDisplayShowsX)
        memcpy(m_szDisplay, m_szX, sizeof m_szX);
}

void cCalculator::MarkKeyedX(const char *szText)
{
    m_bStackStale    = 1;
    m_bDisplayShowsX = 1;
    memcpy(m_szX, szText, strlen(szText) + 1);
}

void cCalculator::SetDisplayText(const char *szText)
{
    m_bDisplayShowsX = 0;
    snprintf(m_szDisplay, sizeof m_szDisplay, "%.*s", kDisplayVisible, szText);
}

void cCalculator::FormatRegisterLine(unsigned nLine, char *szText, size_t nSize)
{
    char szValue[kStackText];
    if (nLine == kLastXLine)
    {
        m_NumberTexts.Format(m_dLastX, *this, szValue);
        snprintf(szText, nSize, "LASTx   = %s\r\n", szValue);
        return;
    }
    m_NumberTexts.Format(m_dReg[nLine], *this, szValue);
    snprintf(szText, nSize, "Reg[%2u] = %s\r\n", nLine, szValue);
}

void cCalculator::WriteRegisterLines()
{
    for (unsigned nLine = 0; nLine < kRegisterLines; nLine++)
        if (m_bRegisterStale[nLine])
        {
            char szText[40];
            m_bRegisterStale[nLine] = 0;
            FormatRegisterLine(nLine, szText, sizeof szText);
            m_pRegisters->ReplaceLine(nLine, szText);
        }
    if (m_nSelectRegister >= 0)
        m_pRegisters->HighlightLine(static_cast<unsigned>(m_nSelectRegister));
    m_nSelectRegister = -1;
}

void cCalculator::ListRegisters()
{
    char   szText[kRegisterLines * 40];
    size_t nLength = 0;
    for (unsigned nLine = 0; nLine <= kLastXLine; nLine++)
    {
        FormatRegisterLine(nLine, szText + nLength, sizeof szText - nLength);
        nLength += strlen(szText + nLength);
    }
    m_pRegisters->SetText(szText);
}

void cCalculator::RepairHighlight()
{
    m_bHighlightStale = 0;
    m_pListing->HighlightLine(m_Program[m_nCurLine].m_nListingLine);
}

void cCalculator::RefreshViews()
{
    SettleTexts();
    WriteRegisterLines();
    if (m_bHighlightStale)
        RepairHighlight();
    if (m_bPaintStale)
        PaintDisplay();
}

void cCalculator::PaintDisplay()
{
    cDisplay Display;
    m_bPaintStale = 0;
    ComposeDisplay(&Display);
    m_pHost->DrawDisplay(Display);
}

void cCalculator::BlankDisplay()
{
    m_pHost->BlankDisplay();
}
