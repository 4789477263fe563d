// flow.cpp - labels, jumps, subroutines, tests, counters, R/S and PAUSE.

#include <cmath>

#include "engine/calculator.h"
#include "engine/instructions/handlers.h"
#include "engine/program_run.h"

static const unsigned kPauseMilliseconds = 1000;
static const double   kFarthestJump      = -static_cast<double>(kProgramLines);

// The label at or below the current line, else the first one in the program,
// becomes the current line.
static int FindLabel(cCalculator &c, unsigned nLabel)
{
    const unsigned nLine = nLabel < kLabels ? c.m_RunLines.m_LabelLines[c.m_nCurLine][nLabel] : 0;
    if (nLine == 0)
        return c.ShowUserError("Error: no such label");
    c.SetCurLine(nLine);
    return 1;
}

// The target given by Reg[0]: a label, or a number of lines to jump back,
// -1 to kFarthestJump, wrapping from line 1 to the last. Compared as a double, so
// that no huge value or NaN is converted.
static int FindTargetI(cCalculator &c)
{
    const double dTarget = std::trunc(c.m_dReg[0]);
    if (dTarget < kFarthestJump)
        return c.ShowUserError("Error: neg i too big");
    if (!(dTarget < 0.0))
        return FindLabel(c, dTarget < kLabels ? static_cast<unsigned>(dTarget) : kLabels);
    const int nBack = -static_cast<int>(dTarget);
    int       nLine = static_cast<int>(c.m_nCurLine) - nBack;
    if (nLine <= 0)
        nLine += static_cast<int>(kLastLine);
    c.SetCurLine(static_cast<unsigned>(nLine));
    return 1;
}

int OnLbl(cCalculator &, unsigned)
{
    return 1;
}

int OnGto(cCalculator &c, unsigned nLabel)
{
    return FindLabel(c, nLabel);
}

int OnGtoI(cCalculator &c, unsigned)
{
    return FindTargetI(c);
}

// The current line is the target. From the keyboard, the run starts there.
static int CallFrom(cCalculator &c, unsigned nCaller)
{
    if (!c.m_bProgramRunning)
    {
        c.EndOperation(enLift);
        return RunProgram(c);
    }
    if (c.m_nReturnDepth == kReturnLevels)
    {
        c.SetCurLine(nCaller);
        return c.ShowUserError("Error: subr overflow");
    }
    c.m_nReturnAddr[c.m_nReturnDepth++] = nCaller < kLastLine ? nCaller + 1 : 1;
    return c.EndOperation(enLift);
}

// A key may come while a halted run still ends. The run that it asks for would be
// refused, so the current line must not move to its label first.
static int IsRunEnding(const cCalculator &c)
{
    return c.m_bInRun && !c.m_bProgramRunning;
}

int OnGsb(cCalculator &c, unsigned nLabel)
{
    const unsigned nCaller = c.m_nCurLine;
    return !IsRunEnding(c) && FindLabel(c, nLabel) && CallFrom(c, nCaller);
}

int OnGsbI(cCalculator &c, unsigned)
{
    const unsigned nCaller = c.m_nCurLine;
    return !IsRunEnding(c) && FindTargetI(c) && CallFrom(c, nCaller);
}

int OnRtn(cCalculator &c, unsigned)
{
    if (!c.m_bProgramRunning)
        c.SetCurLine(0);
    else if (c.m_nReturnDepth > 0)
        c.SetCurLine(c.m_nReturnAddr[--c.m_nReturnDepth]);
    else
    {
        c.Halt();
        c.AdvanceLine();
    }
    return 1;
}

int OnRunStop(cCalculator &c, unsigned)
{
    c.EndOperation(enLift);
    if (!c.m_bProgramRunning)
        return RunProgram(c);
    c.Halt();
    return 1;
}

int OnPause(cCalculator &c, unsigned)
{
    c.EndOperation(enLift);
    c.MarkDisplay();
    c.RefreshViews();
    c.m_Trace.Flush();
    c.Interrupt();
    c.m_pHost->Pause(kPauseMilliseconds);
    return 1;
}

// The advance of the run loop, or of the user, then skips one more line.
static int SkipUnless(cCalculator &c, int bHolds)
{
    if (!bHolds)
        c.AdvanceLine();
    return 1;
}

int OnXLessOrEqualY(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX <= c.m_dY);
}

int OnXGreaterY(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX > c.m_dY);
}

int OnXNotEqualY(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX != c.m_dY);
}

int OnXEqualY(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX == c.m_dY);
}

int OnXNegative(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX < 0.0);
}

int OnXPositive(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX > 0.0);
}

int OnXNotZero(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX != 0.0);
}

int OnXZero(cCalculator &c, unsigned)
{
    return SkipUnless(c, c.m_dX == 0.0);
}

// Skips when the integer part of |i| is 0, so 0.5 and -0.7 skip too.
static int CountIndex(cCalculator &c, double dStep)
{
    c.SetRegister(0, c.m_dReg[0] + dStep);
    return SkipUnless(c, std::floor(std::fabs(c.m_dReg[0])) != 0.0);
}

int OnDsz(cCalculator &c, unsigned)
{
    return CountIndex(c, -1.0);
}

int OnIsz(cCalculator &c, unsigned)
{
    return CountIndex(c, 1.0);
}
