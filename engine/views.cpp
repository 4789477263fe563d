// views.cpp - texts of the stack levels, the registers box, the highlight and
// the display. Operations note what has changed; the texts are made when
// somebody looks.

#include <cstdio>
#include <cstring>

#include "engine/display.h"
#include "engine/line_box.h"
#include "engine/vorstek_engine.h"

static const unsigned kLastXLine = kRegisters;  // line of LASTx in the registers box

void cVorstekEngine::FormatNumber(double dValue, char (&szText)[kStackText])
{
    const unsigned nCode = ::FormatNumber(dValue, *this, szText);
    if (nCode)
        ShowProgramError(nCode);
}

// Shows the box that formatting dValue now would show. All numbers but the
// very smallest and largest format without one, whatever the display mode.
void cVorstekEngine::ReportUnformattable(double dValue)
{
    const double dMagnitude = std::fabs(dValue);
    if ((dMagnitude > 1e-98 && dMagnitude < 1e99) || dValue == 0.0)
        return;
    ReportFormatCode(dValue);
}

void cVorstekEngine::ReportFormatCode(double dValue)
{
    char szText[kStackText];
    FormatNumber(dValue, szText);
}

void cVorstekEngine::SettleTexts()
{
    if (m_bStackStale)
    {
        m_bStackStale = 0;
        if (!IsXKeyed())
            ::FormatNumber(m_dX, *this, m_szX);
        ::FormatNumber(m_dY, *this, m_szY);
        ::FormatNumber(m_dZ, *this, m_szZ);
        ::FormatNumber(m_dT, *this, m_szT);
    }
    if (m_bDisplayShowsX)
        snprintf(m_szDisplay, sizeof m_szDisplay, "%s", m_szX);
}

// X is formatted and shown.
void cVorstekEngine::ShowX()
{
    m_bStackStale    = 1;
    m_bDisplayShowsX = 1;
    ReportUnformattable(m_dX);
}

// X as it was formatted last is shown again.
void cVorstekEngine::ShowFormattedX()
{
    m_bDisplayShowsX = 1;
}

void cVorstekEngine::ShowText(const char *szText)
{
    m_bDisplayShowsX = 0;
    snprintf(m_szDisplay, sizeof m_szDisplay, "%.*s", kDisplayVisible, szText);
}

void cVorstekEngine::TraceRegister(unsigned nRegister)
{
    m_nStaleRegisters |= 1u << nRegister;
    m_nSelectRegister = -1;
    ReportUnformattable(m_dReg[nRegister]);
}

void cVorstekEngine::TraceLastX()
{
    m_nStaleRegisters |= 1u << kLastXLine;
    m_nSelectRegister = -1;
    ReportUnformattable(m_dLastX);
}

void cVorstekEngine::FormatRegisterLine(unsigned nLine, char *szText, size_t nSize)
{
    char szValue[kStackText];
    if (nLine == kLastXLine)
    {
        ::FormatNumber(m_dLastX, *this, szValue);
        snprintf(szText, nSize, "LASTx   = %s\r\n", szValue);
        return;
    }
    ::FormatNumber(m_dReg[nLine], *this, szValue);
    snprintf(szText, nSize, "Reg[%2u] = %s\r\n", nLine, szValue);
}

void cVorstekEngine::WriteRegisterLine(unsigned nLine)
{
    char szText[40];
    FormatRegisterLine(nLine, szText, sizeof szText);
    m_pRegisters->ReplaceLine(nLine, szText);
}

// A line keeps the format in which it was last written, so this also comes
// before each change of the display mode.
void cVorstekEngine::WriteRegisterLines()
{
    for (unsigned nLine = 0; m_nStaleRegisters; nLine++, m_nStaleRegisters >>= 1)
        if (m_nStaleRegisters & 1)
            WriteRegisterLine(nLine);
    if (m_nSelectRegister >= 0)
        m_pRegisters->HighlightLine(static_cast<unsigned>(m_nSelectRegister));
    m_nSelectRegister = -1;
}

void cVorstekEngine::ListRegisters()
{
    char   szText[(kRegisters + 1) * 40];
    size_t nLength = 0;
    for (unsigned nLine = 0; nLine <= kLastXLine; nLine++)
    {
        FormatRegisterLine(nLine, szText + nLength, sizeof szText - nLength);
        nLength += strlen(szText + nLength);
    }
    m_pRegisters->SetText(szText);
}

void cVorstekEngine::WriteHighlight()
{
    m_bHighlightStale = 0;
    m_pListing->HighlightLine(m_Program[m_nCurLine].m_nListingLine);
}

int cVorstekEngine::RepairHighlight()
{
    WriteHighlight();
    return 1;
}

void cVorstekEngine::RefreshViews()
{
    SettleTexts();
    WriteRegisterLines();
    if (m_bHighlightStale)
        WriteHighlight();
    if (m_bPaintStale)
        PaintDisplay();
}

int cVorstekEngine::PaintDisplay()
{
    cDisplay Display;
    m_bPaintStale = 0;
    ComposeDisplay(&Display);
    m_pHost->DrawDisplay(Display);
    return 1;
}

int cVorstekEngine::BlankDisplay()
{
    m_pHost->BlankDisplay();
    return 1;
}
