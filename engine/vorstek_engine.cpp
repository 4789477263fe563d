#include "engine/vorstek_engine.h"

#include <cstdio>
#include <cstring>

#include "resources/calculator_ids.h"

static const unsigned kBuckets = 120;

cVorstekEngine::cVorstekEngine(cVorstekHost *pHost, cLineBox *pListing, cLineBox *pRegisters)
    : cVorstekState{}, m_pHost(pHost), m_pListing(pListing), m_pRegisters(pRegisters),
      m_mapHandlers(kBuckets, pHost), m_pTraceFile(nullptr), m_szTraceFileName("tracelog.txt"),
      m_bTraceLost(0), m_nLoaderLine(0), m_nRuns(0), m_bInRun(0), m_bListingWhole(1),
      m_bStackStale(1), m_bDisplayShowsX(1), m_nStaleRegisters(0), m_nSelectRegister(-1),
      m_bHighlightStale(0), m_bPaintStale(0)
{
    m_bStackLift = 1;
    m_nAngleMode = kAngleDeg;
    SetDisplayMode(kModeFix, 2);
    for (const cInstruction &Row : s_Instructions)
        m_mapHandlers.Slot(Row.m_szMnemonic) = &Row;
    ResetProgram();
    SettleTexts();
}

cVorstekEngine::~cVorstekEngine()
{
    CloseTrace();
}

int cVorstekEngine::Start()
{
    ListClearedProgram();
    ListRegisters();
    ShowFileName();
    return 1;
}

const cVorstekState &cVorstekEngine::State()
{
    SettleTexts();
    return *this;
}

// During a run the views lag behind; nobody may see that beside a box.
eAnswer cVorstekEngine::AskUser(const char *szText, eButtons nButtons, eIcon nIcon,
                                const char *szCaption)
{
    if (m_bProgramRunning)
        RefreshViews();
    return m_pHost->Ask(szText, szCaption, nButtons, nIcon);
}

void cVorstekEngine::ShowProgramError(unsigned nCode)
{
    char szText[32];
    snprintf(szText, sizeof szText, "Program Error Code #%03u", nCode);
    AskUser(szText, bnOk, icNone);
}

void cVorstekEngine::ShowKeystrokesError(unsigned nCode)
{
    char szText[64];
    snprintf(szText, sizeof szText, "Program Error Code #%03u\nm_szKeystrokes = %s", nCode,
             m_szKeystrokes);
    AskUser(szText, bnOk, icNone);
}

int cVorstekEngine::ShowUserError(const char *szText)
{
    EndEntry();
    ShowX();
    ShowText(szText);
    PlayErrorSound();
    return 0;
}

void cVorstekEngine::StartSound(unsigned nId)
{
    if (!m_bSoundOff)
        m_pHost->StartSound(nId);
}

void cVorstekEngine::PlayErrorSound()
{
    StartSound(IDW_ERROR);
}

void cVorstekEngine::PlayRejectSound()
{
    StartSound(IDW_REFUSAL);
}

double cVorstekEngine::Power(double dBase, int n)
{
    double dPower = 1.0;
    for (unsigned nBits = n < 0 ? 0u - static_cast<unsigned>(n) : static_cast<unsigned>(n); nBits;
         nBits >>= 1)
    {
        if (nBits & 1)
            dPower *= dBase;
        dBase *= dBase;
    }
    return n < 0 ? 1.0 / dPower : dPower;
}

int cVorstekEngine::SetStackLevel(unsigned nLevel, double dValue)
{
    double *const pLevels[] = {&m_dX, &m_dY, &m_dZ, &m_dT};
    if (nLevel >= sizeof pLevels / sizeof *pLevels)
        return 0;
    EndEntry();
    *pLevels[nLevel] = Clamp(dValue);
    ShowX();
    return 1;
}

int cVorstekEngine::SetRegister(unsigned nRegister, double dValue)
{
    if (nRegister >= kRegisters)
        return 0;
    m_dReg[nRegister] = Clamp(dValue);
    TraceRegister(nRegister);
    return 1;
}
