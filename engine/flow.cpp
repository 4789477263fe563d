// flow.cpp - labels, jumps, subroutines, tests, counters, R/S and PAUSE.

#include <cmath>

#include "engine/vorstek_engine.h"

static const unsigned kPauseMilliseconds = 1000;
static const double   kFarthestJump      = -99.0;
static const unsigned kNoLabel           = 10;  // labels are 0 to 9

// Searches from the current line down to line 98, then from line 1 down to
// the line before it; a hit becomes the current line.
int cVorstekEngine::FindLabel(unsigned nLabel)
{
    for (unsigned i = 0; i < kProgramLines; i++)
    {
        const unsigned            nLine = (m_nCurLine + i) % kProgramLines;
        const cInstruction *const pRow  = m_Program[nLine].m_pHandler;
        if (pRow && pRow->m_pExecute == &cVorstekEngine::OnLbl &&
            m_Program[nLine].m_nOperand == nLabel && nLabel < kNoLabel)
        {
            SetCurLine(nLine);
            return 1;
        }
    }
    return ShowUserError("Error: no such label");
}

// The target that Reg[0] names: a label, or with -1 to -99 a jump back by so
// many lines, wrapping within lines 1 to 98. Compared as a double, so that no
// huge value or NaN is converted.
int cVorstekEngine::FindTargetI()
{
    const double dTarget = std::trunc(m_dReg[0]);
    if (dTarget < kFarthestJump)
        return ShowUserError("Error: neg i too big");
    if (!(dTarget < 0.0))
        return FindLabel(dTarget < kNoLabel ? static_cast<unsigned>(dTarget) : kNoLabel);
    const int nBack = -static_cast<int>(dTarget);
    int       nLine = static_cast<int>(m_nCurLine) - nBack;
    if (nLine <= 0)
        nLine += static_cast<int>(kLastLine);
    SetCurLine(static_cast<unsigned>(nLine));
    return 1;
}

int cVorstekEngine::OnLbl(unsigned)
{
    return 1;
}

int cVorstekEngine::OnGto(unsigned nLabel)
{
    return FindLabel(nLabel);
}

int cVorstekEngine::OnGtoI(unsigned)
{
    return FindTargetI();
}

int cVorstekEngine::OnGsb(unsigned nLabel)
{
    const unsigned nCaller = m_nCurLine;
    return FindLabel(nLabel) && CallFrom(nCaller);
}

int cVorstekEngine::OnGsbI(unsigned)
{
    const unsigned nCaller = m_nCurLine;
    return FindTargetI() && CallFrom(nCaller);
}

// The current line is the target. From the keyboard the run starts there.
int cVorstekEngine::CallFrom(unsigned nCaller)
{
    if (!m_bProgramRunning)
    {
        EndOperation(enLift);
        return RunProgram();
    }
    if (m_nReturnDepth == kReturnLevels)
    {
        SetCurLine(nCaller);
        return ShowUserError("Error: subr overflow");
    }
    m_nReturnAddr[m_nReturnDepth++] = nCaller < kLastLine ? nCaller + 1 : 1;
    return EndOperation(enLift);
}

int cVorstekEngine::OnRtn(unsigned)
{
    if (!m_bProgramRunning)
        SetCurLine(0);
    else if (m_nReturnDepth > 0)
        SetCurLine(m_nReturnAddr[--m_nReturnDepth]);
    else
    {
        m_bProgramRunning = 0;
        AdvanceLine();
    }
    return 1;
}

int cVorstekEngine::OnRunStop(unsigned)
{
    EndOperation(enLift);
    if (!m_bProgramRunning)
        return RunProgram();
    m_bProgramRunning = 0;
    return 1;
}

int cVorstekEngine::OnPause(unsigned)
{
    EndOperation(enLift);
    m_bPaintStale = 1;
    RefreshViews();
    m_pHost->Pause(kPauseMilliseconds);
    return 1;
}

// The advance of the run loop, or of the user, then skips one more line.
int cVorstekEngine::SkipUnless(int bHolds)
{
    if (!bHolds)
        AdvanceLine();
    return 1;
}

int cVorstekEngine::OnXLessOrEqualY(unsigned)
{
    return SkipUnless(m_dX <= m_dY);
}

int cVorstekEngine::OnXGreaterY(unsigned)
{
    return SkipUnless(m_dX > m_dY);
}

int cVorstekEngine::OnXNotEqualY(unsigned)
{
    return SkipUnless(m_dX != m_dY);
}

int cVorstekEngine::OnXEqualY(unsigned)
{
    return SkipUnless(m_dX == m_dY);
}

int cVorstekEngine::OnXNegative(unsigned)
{
    return SkipUnless(m_dX < 0.0);
}

int cVorstekEngine::OnXPositive(unsigned)
{
    return SkipUnless(m_dX > 0.0);
}

int cVorstekEngine::OnXNotZero(unsigned)
{
    return SkipUnless(m_dX != 0.0);
}

int cVorstekEngine::OnXZero(unsigned)
{
    return SkipUnless(m_dX == 0.0);
}

// Skips when the integer part of |i| is 0, so 0.5 and -0.7 skip too.
int cVorstekEngine::CountIndex(double dStep)
{
    SetRegister(0, m_dReg[0] + dStep);
    return SkipUnless(std::floor(std::fabs(m_dReg[0])) != 0.0);
}

int cVorstekEngine::OnDsz(unsigned)
{
    return CountIndex(-1.0);
}

int cVorstekEngine::OnIsz(unsigned)
{
    return CountIndex(1.0);
}
