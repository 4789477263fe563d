#include "engine/program_run.h"

#include "engine/calculator.h"
#include "engine/dispatch.h"
#include "engine/mode_switch.h"
#include "engine/pending_keys.h"
#include "resources/calculator_ids.h"

static const unsigned kCodeNumberLine = 125;

static void EnableRunCommands(cCalculator &c, int bEnable)
{
    static const unsigned s_Commands[] = {IDM_NEW, IDM_OPEN, IDM_EXIT, IDM_OPTIONS};
    for (const unsigned nId : s_Commands)
        c.m_pHost->EnableCommand(nId, bEnable);
}

// Jumps set the current line themselves, all others continue with the next line.
static int RunLine(cCalculator &c)
{
    if (c.m_nCurLine == 0)
        c.SetCurLine(1);
    const cInstruction *const pRow    = c.m_Program[c.m_nCurLine].m_pInstruction;
    const int                 nResult = ExecuteCurrentLine(c);
    if (!nResult)
        c.m_bProgramRunning = 0;
    else if (!pRow || pRow->m_nRole != rlJump)
        c.AdvanceLine();
    return nResult;
}

// A host that continues to drain after the halt could bring a key here that
// starts a second run inside the first; it is refused.
int RunProgram(cCalculator &c)
{
    if (c.m_bInRun)
        return 0;
    c.m_bInRun = 1;
    EnableRunCommands(c, 0);
    int nResult         = c.m_bTrace ? c.m_Trace.Open(c) : 1;
    c.m_nReturnDepth    = 0;
    c.m_bProgramRunning = nResult;
    c.m_nRuns++;
    while (c.m_bProgramRunning)
    {
        nResult = RunLine(c);
        if (c.m_bProgramRunning && !c.m_pHost->DrainMessages())
            c.m_bProgramRunning = 0;
    }
    c.m_bInRun = 0;
    c.m_Trace.Close();
    EnableRunCommands(c, 1);
    c.RefreshViews();
    if (nResult && !IsWaitingForKey(c))
        SwitchIfPending(c);
    return nResult;
}

int SingleStep(cCalculator &c)
{
    if (c.m_bInRun)
        return 0;
    c.m_bProgramRunning = 1;
    const int nResult   = RunLine(c);
    c.m_bProgramRunning = 0;
    return nResult;
}

static int ExecuteNumberLine(cCalculator &c, const ProgramLine &Line)
{
    c.PushIfLift();
    if (!Line.m_bNumberParsed)
        c.ShowProgramError(kCodeNumberLine);
    c.m_dX = Line.m_dNumber;
    return c.EndOperation(enLift);
}

int ExecuteCurrentLine(cCalculator &c)
{
    if (c.m_nCurLine == 0)
        c.SetCurLine(1);
    const unsigned     nLine   = c.m_nCurLine;
    const ProgramLine &Line    = c.m_Program[nLine];
    const int          nResult = Line.m_pInstruction
                                     ? PerformInstruction(c, *Line.m_pInstruction, Line.m_nOperand)
                                     : ExecuteNumberLine(c, Line);
    c.MarkDisplay();
    if (c.m_Trace.IsOpen())
        c.m_Trace.WriteLine(c, nLine);
    return nResult;
}
