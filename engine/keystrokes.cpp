#include "engine/keystrokes.h"

#include "engine/calculator.h"
#include "engine/dispatch.h"
#include "engine/key_actions.h"
#include "engine/key_codes.h"
#include "engine/mode_switch.h"
#include "engine/pending_keys.h"
#include "engine/program_run.h"
#include "resources/calculator_ids.h"

static const unsigned kCodeKey             = 101;
static const unsigned kCodeStepRelease     = 120;
static const unsigned kCodeModeSwitch      = 121;
static const unsigned kCodePressClearing   = 122;
static const unsigned kCodeStackView       = 123;
static const unsigned kCodeRunRelease      = 124;
static const unsigned kCodeSwitchAfterHalt = 126;

static void SetStackView(cCalculator &c, int bShow)
{
    c.BlankDisplay();
    c.m_bShowStack = bShow;
    c.StartSound(bShow ? IDW_SLIDE_ON : IDW_SLIDE_OFF);
    c.PaintDisplay();
}

// Only flags are set: the run loop is active further up the call stack.
static void OnKeyWhileRunning(cCalculator &c, unsigned nKeyCode, int bIsDown)
{
    if (nKeyCode == kKeyMode)
    {
        c.StartSound(IDW_REFUSAL);
        c.m_bSwitchToProgramPending = bIsDown == 0;
    }
    else if (bIsDown == 1)
    {
        c.Halt();
        c.StartSound(IDW_HALTED);
        SetKeystrokes(c, kAwaitHalt);
    }
}

static void OnReleaseAfterHalt(cCalculator &c, unsigned nKeyCode)
{
    if (nKeyCode == kKeyStackView || nKeyCode == kKeyMode)
    {
        ShowKeystrokesError(c, kCodeSwitchAfterHalt);
        return;
    }
    SetKeystrokes(c, "");
    SwitchIfPending(c);
}

static void OnReleaseAfterError(cCalculator &c, unsigned nKeyCode)
{
    if (nKeyCode == kKeyStackView)
        SetStackView(c, 0);
    else if (nKeyCode == kKeyMode)
    {
        SetKeystrokes(c, "");
        c.DisplayFollowsX();
        SwitchToProgramMode(c);
    }
}

// The key only clears the error; it is not interpreted.
static void OnPressAfterError(cCalculator &c, unsigned nKeyCode)
{
    if (nKeyCode == kKeyStackView)
        SetStackView(c, 1);
    else if (nKeyCode == kKeyMode)
        c.ShowProgramError(kCodeModeSwitch);
    else
    {
        SetKeystrokes(c, kAwaitRelease);
        c.DisplayFollowsX();
        c.PaintDisplay();
        c.StartSound(IDW_CLEARED);
    }
}

static void OnKeyAfterError(cCalculator &c, unsigned nKeyCode, int bIsDown)
{
    if (bIsDown == 0)
        OnReleaseAfterError(c, nKeyCode);
    else if (bIsDown == 1)
        OnPressAfterError(c, nKeyCode);
}

static void OnKeyWhileClearing(cCalculator &c, unsigned nKeyCode, int bIsDown)
{
    if (nKeyCode == kKeyMode)
        c.ShowProgramError(kCodeModeSwitch);
    else if (nKeyCode == kKeyStackView)
        c.ShowProgramError(kCodeStackView);
    else if (bIsDown == 1)
        c.ShowProgramError(kCodePressClearing);
    else if (bIsDown == 0)
    {
        SetKeystrokes(c, "");
        SwitchIfPending(c);
    }
}

static void OnPress(cCalculator &c, unsigned nKeyCode)
{
    c.StartSound(IDW_KEY_CLICK);
    if (nKeyCode == kKeyStackView)
        SetStackView(c, 1);
    else if (nKeyCode == kKeyMode)
        SwitchToRunMode(c);
    else if (nKeyCode < 1 || nKeyCode > kKeyRunStop)
        c.ShowProgramError(kCodeKey);
    else if (!PressFaceKey(c, nKeyCode))
        SetKeystrokes(c, kAwaitPress);
    c.MarkDisplay();
}

static int ReleaseStepKey(cCalculator &c)
{
    if (EndsWith(c, "FIX "))
        return 1;
    const int bStep = EndsWith(c, "SST ");
    if (!bStep && !EndsWith(c, "BST "))
        ShowKeystrokesError(c, kCodeStepRelease);
    else if (!bStep && !c.m_bProgramMode)
        c.DisplayFollowsX();
    SetKeystrokes(c, "");
    return bStep && !c.m_bProgramMode ? SingleStep(c) : 1;
}

static int ReleaseRunKey(cCalculator &c)
{
    const int bRun = EndsWith(c, "R/S ");
    if (!bRun && !EndsWith(c, "PAUSE ") && !EndsWith(c, "1/x "))
        c.ShowProgramError(kCodeRunRelease);
    SetKeystrokes(c, "");
    return bRun && !c.m_bProgramMode ? Perform(c, "R/S", 0) : 1;
}

static void OnRelease(cCalculator &c, unsigned nKeyCode)
{
    int nResult = 1;
    if (nKeyCode == kKeySst)
        nResult = ReleaseStepKey(c);
    else if (nKeyCode == kKeyRunStop)
        nResult = ReleaseRunKey(c);
    else if (nKeyCode == kKeyStackView)
        SetStackView(c, 0);
    else if (nKeyCode == kKeyMode)
        SwitchToProgramMode(c);
    if (!nResult)
        SetKeystrokes(c, kAwaitPress);
    // Another key has ended the wait for the one that halted the program.
    if (!c.m_bProgramRunning && !IsWaitingForKey(c))
        SwitchIfPending(c);
    c.MarkDisplay();
}

static void InterpretKey(cCalculator &c, unsigned nKeyCode, int bIsDown)
{
    if (c.m_bProgramRunning && nKeyCode != kKeyStackView)
        OnKeyWhileRunning(c, nKeyCode, bIsDown);
    else if (IsAwaiting(c, kAwaitHalt) && bIsDown == 0)
        OnReleaseAfterHalt(c, nKeyCode);
    else if (IsAwaiting(c, kAwaitPress))
        OnKeyAfterError(c, nKeyCode, bIsDown);
    else if (IsAwaiting(c, kAwaitRelease))
        OnKeyWhileClearing(c, nKeyCode, bIsDown);
    else if (bIsDown == 0)
        OnRelease(c, nKeyCode);
    else if (bIsDown == 1)
        OnPress(c, nKeyCode);
}

void OnCalcKey(cCalculator &c, unsigned nKeyCode, int bIsDown)
{
    InterpretKey(c, nKeyCode, bIsDown);
    c.RefreshViews();
}
