#include "engine/options.h"

#include "engine/calculator.h"
#include "engine/vorstek_engine.h"
#include "resources/calculator_ids.h"

// In program mode the listing stays as it is until run mode is entered.
void ApplyOptions(cCalculator &c, const cOptions &Options)
{
    c.m_bKeepListingOpen   = Options.m_bKeepListingOpen;
    c.m_bKeepRegistersOpen = Options.m_bKeepRegistersOpen;
    c.m_bTrace             = Options.m_bTrace;
    c.m_bSoundOff          = Options.m_bSoundOff;

    if (c.m_bKeepListingOpen || !c.m_bProgramMode)
    {
        c.m_pHost->ShowListing(c.m_bKeepListingOpen);
        c.m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, c.m_bKeepListingOpen);
    }
    if (c.m_bKeepListingOpen)
        c.MarkHighlight();
    c.m_pHost->ShowRegisters(c.m_bKeepRegistersOpen);
    c.RefreshViews();
}
