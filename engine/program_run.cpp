#include "engine/program_run.h"

#include "engine/calculator.h"
#include "engine/mode_switch.h"
#include "engine/pending_keys.h"
#include "engine/run_lock.h"
#include "engine/run_observer.h"

static void EnableRunCommands(cCalculator &c, int bEnable)
{
    for (const unsigned nId : kLockedInRun)
        c.m_pHost->EnableCommand(nId, bEnable);
}

// Executes the current line. Jumps set the next line themselves, all others
// continue with the line below.
template <int bTraced, int bObserved> static int RunLine(cCalculator &c)
{
    const unsigned nLine   = c.m_nCurLine;
    const cRunLine Line    = c.m_RunLines.m_Lines[nLine];
    const int      nResult = Line.m_pExecute(c, Line.m_nOperand);
    c.MarkDisplay();
    if constexpr (bTraced)
        c.m_Trace.WriteLine(c, nLine ? nLine : 1);
    if (!nResult)
        c.Halt();
    else if (!Line.m_bJump)
        c.AdvanceLine();
    if constexpr (bObserved)
        c.m_pObserver->OnLineDone(nLine ? nLine : 1);
    return nResult;
}

// Executes lines until something interrupts them, at least one and at most
// nLines. Returns how many; *pnResult is the last one's result.
template <int bTraced, int bObserved>
static unsigned RunLines(cCalculator &c, unsigned nLines, int *pnResult)
{
    unsigned nLeft   = nLines;
    int      nResult = 1;
    c.m_bInterrupted = 0;
    do
    {
        nResult = RunLine<bTraced, bObserved>(c);
        nLeft--;
    }
    while (nLeft > 0 && !c.m_bInterrupted);
    *pnResult = nResult;
    return nLines - nLeft;
}

static auto ChooseRunLines(const cCalculator &c)
{
    if (c.m_pObserver)
        return c.m_Trace.IsOpen() ? RunLines<1, 1> : RunLines<0, 1>;
    return c.m_Trace.IsOpen() ? RunLines<1, 0> : RunLines<0, 0>;
}

// The host allows the first line and says after it how many may follow.
static int RunUntilHalt(cCalculator &c)
{
    const auto pRunLines = ChooseRunLines(c);
    unsigned   nAllowed  = 1;
    int        nResult   = 1;
    if (c.m_pObserver)
        c.m_pObserver->OnRunBegins();
    while (c.m_bProgramRunning)
    {
        const unsigned nDone = pRunLines(c, nAllowed, &nResult);
        if (!c.m_bProgramRunning)
            break;
        nAllowed = c.m_pHost->DrainMessages(nDone);
        if (nAllowed == 0)
            c.Halt();
    }
    return nResult;
}

// A host that continues to drain after the halt could bring a key here that
// starts a second run inside the first; it is refused.
int ContinueRun(cCalculator &c)
{
    if (c.m_bInRun)
        return 0;
    c.m_bInRun = 1;
    EnableRunCommands(c, 0);
    const int bOpened   = !c.m_bTrace || c.m_Trace.Open(c);
    c.m_bProgramRunning = bOpened;
    c.m_nRuns++;
    const int nResult = bOpened && RunUntilHalt(c);
    c.m_bInRun        = 0;
    c.m_bRunFailed    = !nResult;
    c.m_Trace.Close();
    EnableRunCommands(c, 1);
    c.RefreshViews();
    if (nResult && !IsWaitingForKey(c))
        SwitchIfPending(c);
    return nResult;
}

int RunProgram(cCalculator &c)
{
    if (c.m_bInRun)
        return 0;
    c.m_nReturnDepth = 0;
    return ContinueRun(c);
}

int SingleStep(cCalculator &c)
{
    if (c.m_bInRun)
        return 0;
    c.m_bProgramRunning = 1;
    const int nResult   = RunLine<0, 0>(c);
    c.m_bProgramRunning = 0;
    return nResult;
}

int ExecuteCurrentLine(cCalculator &c)
{
    const cRunLine &Line    = c.m_RunLines.m_Lines[c.m_nCurLine];
    const int       nResult = Line.m_pExecute(c, Line.m_nOperand);
    c.MarkDisplay();
    return nResult;
}
