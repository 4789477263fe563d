#include "engine/run_lines.h"

#include <cstring>

#include "engine/calculator.h"

static const unsigned kCodeNumberLine = 125;

int ExecuteNumberLine(cCalculator &c, const ProgramLine &Line)
{
    c.PushIfLift();
    if (!Line.m_bNumberParsed)
        c.ShowProgramError(kCodeNumberLine);
    c.m_dX = Line.m_dNumber;
    return c.EndOperation(enLift);
}

static int ExecuteNumber(cCalculator &c, unsigned nLine)
{
    return ExecuteNumberLine(c, c.m_Program[nLine]);
}

static int ExecuteFirstLine(cCalculator &c, unsigned)
{
    const cRunLine &Line = c.m_RunLines.m_Lines[1];
    c.SetCurLine(1);
    return Line.m_pExecute(c, Line.m_nOperand);
}

static cRunLine PrepareLine(const ProgramLine &Line, unsigned nLine)
{
    if (!Line.m_pInstruction)
        return {ExecuteNumber, nLine, 0};
    return {Line.m_pInstruction->m_pExecute, Line.m_nOperand,
            Line.m_pInstruction->m_nRole == rlJump};
}

// From the last line up, the label met last is the first one below. The lines under
// the last label find it in the second pass, which begins with the first of all.
static void FindLabels(const ProgramLine (&Program)[kProgramLines], cRunLines *pLines)
{
    uint16_t Found[kLabels] = {};
    for (int nPass = 0; nPass < 2; nPass++)
        for (unsigned nLine = kLastLine; nLine > 0; nLine--)
        {
            const ProgramLine &Line = Program[nLine];
            if (Line.m_pInstruction && Line.m_pInstruction->m_nRole == rlLabel &&
                Line.m_nOperand < kLabels)
                Found[Line.m_nOperand] = static_cast<uint16_t>(nLine);
            memcpy(pLines->m_LabelLines[nLine], Found, sizeof Found);
        }
    memcpy(pLines->m_LabelLines[0], Found, sizeof Found);
}

void PrepareRunLines(cCalculator &c)
{
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        c.m_RunLines.m_Lines[nLine] = PrepareLine(c.m_Program[nLine], nLine);
    c.m_RunLines.m_Lines[0] = {ExecuteFirstLine, 0, c.m_RunLines.m_Lines[1].m_bJump};
    FindLabels(c.m_Program, &c.m_RunLines);
}
