// program_run.cpp - the run loop, one line of it, and the single step.

#include "engine/vorstek_engine.h"
#include "resources/calculator_ids.h"

static const unsigned kCodeNumberLine = 125;

void cVorstekEngine::EnableRunCommands(int bEnable)
{
    static const unsigned s_Commands[] = {IDM_NEW, IDM_OPEN, IDM_EXIT, IDM_OPTIONS};
    for (const unsigned nId : s_Commands)
        m_pHost->EnableCommand(nId, bEnable);
}

// A host that goes on draining after the halt could bring a key here that
// wants to start a second run inside the first; it is refused.
int cVorstekEngine::RunProgram()
{
    if (m_bInRun)
        return 0;
    m_bInRun = 1;
    EnableRunCommands(0);
    int nResult       = OpenTrace();
    m_nReturnDepth    = 0;
    m_bProgramRunning = nResult;
    m_nRuns++;
    while (m_bProgramRunning)
    {
        nResult = RunLine();
        if (m_bProgramRunning && !m_pHost->DrainMessages())
            m_bProgramRunning = 0;
    }
    m_bInRun = 0;
    CloseTrace();
    EnableRunCommands(1);
    RefreshViews();
    if (nResult && !IsWaitingForKey())
        SwitchIfPending();
    return nResult;
}

// Jumps set the current line themselves, all others go on to the next.
int cVorstekEngine::RunLine()
{
    if (m_nCurLine == 0)
        SetCurLine(1);
    const cInstruction *const pRow    = m_Program[m_nCurLine].m_pHandler;
    const int                 nResult = ExecuteCurrentLine();
    if (!nResult)
        m_bProgramRunning = 0;
    else if (!pRow || !pRow->m_bJump)
        AdvanceLine();
    return nResult;
}

int cVorstekEngine::SingleStep()
{
    if (m_bInRun)
        return 0;
    m_bProgramRunning = 1;
    const int nResult = RunLine();
    m_bProgramRunning = 0;
    return nResult;
}

int cVorstekEngine::ExecuteCurrentLine()
{
    if (m_nCurLine == 0)
        SetCurLine(1);
    const unsigned     nLine = m_nCurLine;
    const ProgramLine &Line  = m_Program[nLine];
    const int nResult = Line.m_pHandler ? PerformInstruction(*Line.m_pHandler, Line.m_nOperand)
                                        : ExecuteNumberLine(Line);
    m_bPaintStale     = 1;
    if (m_pTraceFile)
        WriteTraceLine(nLine);
    return nResult;
}

int cVorstekEngine::ExecuteNumberLine(const ProgramLine &Line)
{
    PushIfLift();
    if (!Line.m_bNumberWhole)
        ShowProgramError(kCodeNumberLine);
    m_dX = Line.m_dNumber;
    return EndOperation(enLift);
}
