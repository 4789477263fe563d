// display_mode.cpp - FIX, SCI and ENG.

#include "engine/calculator.h"
#include "engine/instructions/handlers.h"
#include "engine/power.h"

static const double kFixMax = 1e10;

// nDigits 0 to 9. SCI keeps FIX's formats and thresholds, ENG keeps all.
static int SetDisplayMode(cCalculator &c, unsigned nMode, unsigned nDigits)
{
    c.WriteRegisterLines();
    c.m_nDisplayMode   = nMode;
    c.m_nDisplayDigits = nDigits;
    if (nMode != kModeEng)
        BuildFormat(nDigits, 'e', c.m_szSciFormat);
    if (nMode == kModeFix)
    {
        BuildFormat(nDigits, 'f', c.m_szFixFormat);
        c.m_dFixMin = 0.5 * Power(10.0, -static_cast<int>(nDigits));
        c.m_dFixMax = kFixMax;
    }
    c.ReportUnformattable(c.m_dY);
    c.ReportUnformattable(c.m_dZ);
    c.ReportUnformattable(c.m_dT);
    return 1;
}

int OnFix(cCalculator &c, unsigned nDigits)
{
    return SetDisplayMode(c, kModeFix, nDigits);
}

int OnSci(cCalculator &c, unsigned nDigits)
{
    return SetDisplayMode(c, kModeSci, nDigits);
}

int OnEng(cCalculator &c, unsigned nDigits)
{
    return SetDisplayMode(c, kModeEng, nDigits);
}
