#include "console/debug/debugger.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "console/headless_host.h"
#include "console/stop_signal.h"
#include "engine/vorstek_state.h"

cDebugger::cDebugger(cHeadlessCalculator *pCalculator, cHeadlessHost *pHost)
    : m_pCalculator(pCalculator), m_Lines(pCalculator, pHost), m_nCounts{}, m_bMoved(0),
      m_bEnded(0), m_bSuspended(0)
{
    m_pCalculator->m_Engine.SetObserver(this);
}

cDebugger::~cDebugger()
{
    m_pCalculator->m_Engine.SetObserver(nullptr);
}

// --- where to stop

void cDebugger::AddBreakpoint(const cBreakpoint &Breakpoint)
{
    DeleteBreakpoint(Breakpoint.m_Place);
    m_Breakpoints.push_back(Breakpoint);
}

int cDebugger::DeleteBreakpoint(const cPlace &Place)
{
    return std::erase_if(m_Breakpoints, [&Place](const auto &Breakpoint) {
               return Breakpoint.m_Place == Place;
           }) > 0;
}

void cDebugger::Watch(const cQuantity &Quantity)
{
    Unwatch(Quantity);
    m_Watches.push_back({Quantity, 0.0});
}

int cDebugger::Unwatch(const cQuantity &Quantity)
{
    return std::erase_if(m_Watches, [&Quantity](const auto &Watch) {
               return Watch.m_Quantity == Quantity;
           }) > 0;
}

std::vector<cQuantity> cDebugger::Watched() const
{
    std::vector<cQuantity> Quantities;
    for (const cWatch &Watch : m_Watches)
        Quantities.push_back(Watch.m_Quantity);
    return Quantities;
}

// --- running

int cDebugger::Go(const cGoal &Goal)
{
    m_Goal          = Goal;
    const int bDone = m_bSuspended ? m_pCalculator->m_Engine.ContinueRun()
                                   : m_pCalculator->m_Engine.Perform("R/S", 0);
    m_Goal.reset();
    return bDone;
}

int cDebugger::Continue()
{
    return Go({});
}

int cDebugger::Step(uint64_t nLines)
{
    return Go({nLines, -1, {}});
}

// In a run that only begins, no call is open.
int cDebugger::StepOver(uint64_t nLines)
{
    const cVorstekState &State = m_pCalculator->m_Engine.State();
    return Go({nLines, m_bSuspended ? static_cast<int>(State.m_nReturnDepth) : 0, {}, 1});
}

int cDebugger::RunTo(const cPlace &Place)
{
    return Go({0, -1, Place});
}

int cDebugger::Finish()
{
    return Go({0, static_cast<int>(m_pCalculator->m_Engine.State().m_nReturnDepth) - 1, {}});
}

uint64_t cDebugger::Back(uint64_t nLines)
{
    uint64_t nDone = 0;
    m_Lines.Keep();
    for (; nDone < nLines; nDone++)
    {
        size_t nSteps = m_Lines.StepsToTag();
        if (nSteps == 0)
            break;
        for (; nSteps > 1; nSteps--)
            m_Lines.Undo();
        m_nCounts[m_Lines.Tag()]--;
        m_Lines.Undo();
        m_bMoved     = 1;
        m_bSuspended = 1;
    }
    return nDone;
}

// --- what happened

int cDebugger::TakeMoved()
{
    return std::exchange(m_bMoved, 0);
}

std::string cDebugger::TakeReason()
{
    if (std::exchange(m_bEnded, 0) && !m_pCalculator->m_Engine.HasRunFailed())
        m_Reason += "the program has halted\n";
    return std::exchange(m_Reason, "");
}

void cDebugger::ForgetRuns()
{
    m_Lines.Forget();
    std::fill(std::begin(m_nCounts), std::end(m_nCounts), 0U);
    m_bSuspended = 0;
}

// --- of the run

// Calls are open as they were: the run goes on here.
void cDebugger::Stop()
{
    m_pCalculator->m_Engine.HaltProgram();
    m_bSuspended = 1;
}

void cDebugger::NoteWatches()
{
    const cVorstekState &State = m_pCalculator->m_Engine.State();
    for (cWatch &Watch : m_Watches)
        Watch.m_dValue = Watch.m_Quantity.In(State);
}

// A run that R/S or GSB begins may stop before its first line; one that goes on is
// already there.
void cDebugger::OnRunBegins()
{
    m_bSuspended = 0;
    m_bEnded     = 0;
    NoteWatches();
    m_Lines.Keep();
    if (!m_Goal && StopsAtBreakpoint(m_pCalculator->m_Engine.State()))
        Stop();
    if (!m_Goal)
        m_bMoved = 1;
}

void cDebugger::OnLineDone(unsigned nLine)
{
    const cVorstekState &State = m_pCalculator->m_Engine.State();
    m_bMoved                   = 1;
    m_nCounts[nLine]++;
    m_Lines.Keep(nLine);
    const int bChanged = HasWatchChanged(State);
    const int bCaught  = cStopSignals::Caught();  // in a PAUSE the run has been halted for it
    m_bEnded           = !bCaught && !m_pCalculator->m_Engine.IsRunning();
    if (m_bEnded)
        return;
    const int bReached = HasReachedGoal(State);
    const int bBreak   = StopsAtBreakpoint(State);
    if (bCaught)
        m_Reason += "interrupted\n";
    if (bChanged || bReached || bBreak || bCaught)
        Stop();
}

int cDebugger::HasReachedGoal(const cVorstekState &State)
{
    if (!m_Goal)
        return 0;
    const int nDepth = static_cast<int>(State.m_nReturnDepth);
    if (m_Goal->m_bOver && nDepth > m_Goal->m_nDepth)
        return 0;
    if (m_Goal->m_bOver)
        m_Goal->m_nDepth = nDepth;
    if (m_Goal->m_nLines > 0)
        return --m_Goal->m_nLines == 0;
    if (m_Goal->m_Place && m_Goal->m_Place->IsAt(State.m_nCurLine, State))
        return 1;
    return nDepth <= m_Goal->m_nDepth;
}

int cDebugger::StopsAtBreakpoint(const cVorstekState &State)
{
    const unsigned nLine = std::max(State.m_nCurLine, 1U);  // line 0 is before it
    for (const cBreakpoint &Breakpoint : m_Breakpoints)
        if (Breakpoint.Stops(nLine, State))
        {
            m_Reason += "break " + Breakpoint.Text() + "\n";
            return 1;
        }
    return 0;
}

// NaN is the same as NaN, and -0 is not 0.
static int AreSame(double a, double b)
{
    return std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b);
}

int cDebugger::HasWatchChanged(const cVorstekState &State)
{
    int bChanged = 0;
    for (cWatch &Watch : m_Watches)
    {
        const double dValue = Watch.m_Quantity.In(State);
        if (AreSame(dValue, Watch.m_dValue))
            continue;
        m_Reason += "watch " + Watch.m_Quantity.Name() + ": " + NumberText(Watch.m_dValue) +
                    " -> " + NumberText(dValue) + "\n";
        Watch.m_dValue = dValue;
        bChanged       = 1;
    }
    return bChanged;
}
