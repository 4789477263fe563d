#include "engine/calculator.h"

#include <cstdio>

#include "engine/instructions/handlers.h"
#include "engine/program_memory.h"
#include "resources/calculator_ids.h"

static const unsigned kBuckets        = 120;
static const unsigned kCodeLineNumber = 114;

cCalculator::cCalculator(cVorstekHost *pHost, cLineBox *pListing, cLineBox *pRegisters)
    : cVorstekState{}, m_pHost(pHost), m_pListing(pListing), m_pRegisters(pRegisters),
      m_mapHandlers(kBuckets, pHost), m_nRuns(0), m_bRunFailed(0), m_bInRun(0),
      m_bInterrupted(0), m_RunLines{}, m_pObserver(nullptr), m_nLoaderLine(0),
      m_bListingComplete(1), m_bStackStale(1), m_bDisplayShowsX(1), m_bHighlightStale(0),
      m_bPaintStale(0), m_bRegisterStale{}, m_nSelectRegister(-1)
{
    m_bStackLift = 1;
    m_nAngleMode = kAngleDeg;
    OnFix(*this, 2);
    for (const cInstruction &Row : Instructions())
        m_mapHandlers.Slot(Row.m_szMnemonic) = &Row;
    ResetProgram(*this);
    SettleTexts();
}

// During a run the views lag behind, which must not be visible beside a box.
void cCalculator::PrepareBox()
{
    if (m_bProgramRunning)
        RefreshViews();
    m_Trace.Flush();
    Interrupt();
}

eAnswer cCalculator::AskUser(const char *szText, eButtons nButtons, eIcon nIcon,
                             const char *szCaption)
{
    PrepareBox();
    return m_pHost->Ask(szText, szCaption, nButtons, nIcon);
}

void cCalculator::ShowProgramError(unsigned nCode)
{
    char szText[32];
    snprintf(szText, sizeof szText, "Program Error Code #%03u", nCode);
    PrepareBox();
    m_pHost->Inform(szText);
}

int cCalculator::ShowUserError(const char *szText)
{
    EndEntry();
    MarkX();
    SetDisplayText(szText);
    PlayErrorSound();
    return 0;
}

void cCalculator::StartSound(unsigned nId)
{
    if (!m_bSoundOff)
        m_pHost->StartSound(nId);
}

void cCalculator::PlayErrorSound()
{
    StartSound(IDW_ERROR);
}

void cCalculator::PlayRejectSound()
{
    StartSound(IDW_REFUSAL);
}

void cCalculator::AbandonEntry()
{
    const int bInX = IsXKeyed();
    EndEntry();
    if (bInX)
        MarkX();
}

int cCalculator::SetStackLevel(unsigned nLevel, double dValue)
{
    double *const pLevels[] = {&m_dX, &m_dY, &m_dZ, &m_dT};
    if (nLevel >= sizeof pLevels / sizeof *pLevels)
        return 0;
    EndEntry();
    *pLevels[nLevel] = Clamp(dValue);
    MarkX();
    return 1;
}

unsigned cCalculator::RepairLine(unsigned nLine)
{
    if (nLine == kProgramLines)
        return 1;
    ShowProgramError(kCodeLineNumber);
    return 0;
}
