// options.cpp - what the options dialog's OK does.

#include "engine/vorstek_engine.h"
#include "resources/calculator_ids.h"

// In program mode the listing stays as it is until run mode is entered.
void cVorstekEngine::ApplyOptions(const cOptions &Options)
{
    m_bKeepListingOpen   = Options.m_bKeepListingOpen;
    m_bKeepRegistersOpen = Options.m_bKeepRegistersOpen;
    m_bTrace             = Options.m_bTrace;
    m_bSoundOff          = Options.m_bSoundOff;

    if (m_bKeepListingOpen || !m_bProgramMode)
    {
        m_pHost->ShowListing(m_bKeepListingOpen);
        m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, m_bKeepListingOpen);
    }
    if (m_bKeepListingOpen)
        HighlightSoon();
    m_pHost->ShowRegisters(m_bKeepRegistersOpen);
    RefreshViews();
}
