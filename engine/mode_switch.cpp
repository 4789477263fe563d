// mode_switch.cpp - from run mode to program mode and back.

#include "engine/mode_switch.h"

#include <cstdio>

#include "engine/calculator.h"
#include "engine/pending_keys.h"
#include "resources/calculator_ids.h"

static const unsigned kCodeInProgramMode = 107;
static const unsigned kCodeInRunMode     = 108;

static void EnterProgramMode(cCalculator &c)
{
    c.m_bSwitchToProgramPending = 0;
    if (c.m_bProgramMode)
    {
        c.ShowProgramError(kCodeInProgramMode);
        return;
    }
    c.m_nReturnDepth = 0;
    c.BlankDisplay();
    c.AbandonEntry();
    SetKeystrokes(c, "");
    c.DisplayFollowsX();
    c.m_bProgramMode = 1;
    c.StartSound(IDW_PROGRAM_MODE);
    c.m_pHost->ShowListing(1);
    c.MarkHighlight();
    c.m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, 1);
    if (!c.m_bKeepRegistersOpen)
        c.m_pHost->ShowRegisters(0);
    c.PaintDisplay();
}

static void EnterRunMode(cCalculator &c)
{
    if (!c.m_bProgramMode)
    {
        c.ShowProgramError(kCodeInRunMode);
        return;
    }
    c.BlankDisplay();
    c.StartSound(IDW_RUN_MODE);
    c.AbandonEntry();
    SetKeystrokes(c, "");
    c.m_bProgramMode = 0;
    c.DisplayFollowsX();
    if (!c.m_bKeepListingOpen)
    {
        c.m_pHost->ShowListing(0);
        c.m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, 0);
    }
    c.MarkHighlight();
    c.PaintDisplay();
}

void SwitchToProgramMode(cCalculator &c)
{
    snprintf(c.m_szSavedLastOp, sizeof c.m_szSavedLastOp, "%s", c.m_szLastOp);
    EnterProgramMode(c);
}

void SwitchToRunMode(cCalculator &c)
{
    snprintf(c.m_szLastOp, sizeof c.m_szLastOp, "%s", c.m_szSavedLastOp);
    EnterRunMode(c);
}

void SwitchIfPending(cCalculator &c)
{
    if (c.m_bSwitchToProgramPending)
        SwitchToProgramMode(c);
}

void AbandonKeys(cCalculator &c)
{
    SetKeystrokes(c, "");
    SwitchIfPending(c);
    c.MarkDisplay();
    c.RefreshViews();
}
