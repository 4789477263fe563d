#include "engine/vorstek_engine.h"

#include "engine/calculator.h"
#include "engine/dispatch.h"
#include "engine/keystrokes.h"
#include "engine/listing_files.h"
#include "engine/number_entry.h"
#include "engine/number_transfer.h"
#include "engine/options.h"
#include "engine/program_memory.h"
#include "engine/program_run.h"
#include "engine/snapshot.h"

cVorstekEngine::cVorstekEngine(cVorstekHost *pHost, cLineBox *pListing, cLineBox *pRegisters)
    : m_pCalculator(std::make_unique<cCalculator>(pHost, pListing, pRegisters))
{
}

cVorstekEngine::~cVorstekEngine() {}

int cVorstekEngine::Start()
{
    ListClearedProgram(*m_pCalculator);
    m_pCalculator->ListRegisters();
    ShowFileName(*m_pCalculator);
    return 1;
}

const cVorstekState &cVorstekEngine::State()
{
    m_pCalculator->SettleTexts();
    return *m_pCalculator;
}

void cVorstekEngine::ShowProgramError(unsigned nCode)
{
    m_pCalculator->ShowProgramError(nCode);
}

void cVorstekEngine::OnCalcKey(unsigned nKeyCode, int bIsDown)
{
    ::OnCalcKey(*m_pCalculator, nKeyCode, bIsDown);
}

void cVorstekEngine::OnChar(char cChar)
{
    ::OnChar(*m_pCalculator, cChar);
}

void cVorstekEngine::HaltProgram()
{
    m_pCalculator->Halt();
}

int cVorstekEngine::Perform(const char *szMnemonic, unsigned nOperand)
{
    return ::Perform(*m_pCalculator, szMnemonic, nOperand);
}

int cVorstekEngine::Perform(const cStep &Step)
{
    return PerformStep(*m_pCalculator, Step);
}

int cVorstekEngine::EnterCharacter(char cKey)
{
    return ::EnterCharacter(*m_pCalculator, cKey);
}

int cVorstekEngine::EnterNumber(const char *szText)
{
    return EnterTransferred(*m_pCalculator, szText);
}

int cVorstekEngine::SetStackLevel(unsigned nLevel, double dValue)
{
    return m_pCalculator->SetStackLevel(nLevel, dValue);
}

int cVorstekEngine::SetRegister(unsigned nRegister, double dValue)
{
    return m_pCalculator->SetRegister(nRegister, dValue);
}

int cVorstekEngine::GoToLine(unsigned nLine)
{
    return ::GoToLine(*m_pCalculator, nLine);
}

int cVorstekEngine::RepairHighlight()
{
    m_pCalculator->RepairHighlight();
    return 1;
}

int cVorstekEngine::IsRunning() const
{
    return m_pCalculator->m_bProgramRunning;
}

int cVorstekEngine::IsInRun() const
{
    return m_pCalculator->m_bInRun;
}

int cVorstekEngine::HasRunFailed() const
{
    return m_pCalculator->m_bRunFailed;
}

unsigned cVorstekEngine::RunNumber() const
{
    return m_pCalculator->m_nRuns;
}

void cVorstekEngine::TakeSnapshot(cSnapshot *pSnapshot)
{
    ::TakeSnapshot(*m_pCalculator, pSnapshot);
}

int cVorstekEngine::Restore(const cSnapshot &Snapshot, const char *szListing)
{
    return RestoreSnapshot(*m_pCalculator, Snapshot, szListing);
}

int cVorstekEngine::ContinueRun()
{
    return ::ContinueRun(*m_pCalculator);
}

void cVorstekEngine::SetObserver(cRunObserver *pObserver)
{
    m_pCalculator->m_pObserver = pObserver;
}

void cVorstekEngine::SetTraceFileName(const char *szName)
{
    m_pCalculator->m_Trace.SetName(szName);
}

void cVorstekEngine::SetTraceCap(unsigned nMegabytes)
{
    m_pCalculator->m_Trace.SetCap(nMegabytes);
}

void cVorstekEngine::SetTraceStream(FILE *pStream)
{
    m_pCalculator->m_Trace.SetStream(pStream);
}

eLogLoss cVorstekEngine::TraceLoss() const
{
    return m_pCalculator->m_Trace.Loss();
}

int cVorstekEngine::LoadProgram(const char *szFileName)
{
    return ::LoadProgram(*m_pCalculator, szFileName);
}

int cVorstekEngine::LoadListing(const char *pText, size_t nLength)
{
    return ::LoadListing(*m_pCalculator, pText, nLength);
}

int cVorstekEngine::SaveProgram(const char *szFileName)
{
    return ::SaveProgram(*m_pCalculator, szFileName);
}

void cVorstekEngine::TakeLoadedProgram(const char *szFileName)
{
    ::TakeLoadedProgram(*m_pCalculator, szFileName);
}

int cVorstekEngine::New()
{
    return ::FileNew(*m_pCalculator);
}

int cVorstekEngine::Open()
{
    return ::FileOpen(*m_pCalculator);
}

int cVorstekEngine::Save()
{
    return ::FileSave(*m_pCalculator);
}

int cVorstekEngine::SaveAs()
{
    return ::FileSaveAs(*m_pCalculator);
}

int cVorstekEngine::SaveUnderName(const char *szFileName)
{
    return ::SaveUnderName(*m_pCalculator, szFileName);
}

int cVorstekEngine::ConfirmDiscard()
{
    return ::ConfirmDiscard(*m_pCalculator);
}

void cVorstekEngine::ApplyOptions(const cOptions &Options)
{
    ::ApplyOptions(*m_pCalculator, Options);
}

void cVorstekEngine::RefreshViews()
{
    m_pCalculator->RefreshViews();
}

int cVorstekEngine::PaintDisplay()
{
    m_pCalculator->PaintDisplay();
    return 1;
}

int cVorstekEngine::BlankDisplay()
{
    m_pCalculator->BlankDisplay();
    return 1;
}

void cVorstekEngine::ComposeDisplay(cDisplay *pDisplay)
{
    m_pCalculator->ComposeDisplay(pDisplay);
}
