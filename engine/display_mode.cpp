// display_mode.cpp - FIX, SCI and ENG.

#include "engine/vorstek_engine.h"

static const double kFixMax = 1e10;

// nDigits 0 to 9. SCI keeps FIX's formats and thresholds, ENG keeps all.
int cVorstekEngine::SetDisplayMode(unsigned nMode, unsigned nDigits)
{
    WriteRegisterLines();
    m_nDisplayMode   = nMode;
    m_nDisplayDigits = nDigits;
    if (nMode != kModeEng)
        BuildFormat(nDigits, 'e', m_szSciFormat);
    if (nMode == kModeFix)
    {
        BuildFormat(nDigits, 'f', m_szFixFormat);
        m_dFixMin = 0.5 * Power(10.0, -static_cast<int>(nDigits));
        m_dFixMax = kFixMax;
    }
    ReportUnformattable(m_dY);
    ReportUnformattable(m_dZ);
    ReportUnformattable(m_dT);
    return 1;
}

int cVorstekEngine::OnFix(unsigned nDigits)
{
    return SetDisplayMode(kModeFix, nDigits);
}

int cVorstekEngine::OnSci(unsigned nDigits)
{
    return SetDisplayMode(kModeSci, nDigits);
}

int cVorstekEngine::OnEng(unsigned nDigits)
{
    return SetDisplayMode(kModeEng, nDigits);
}
