#include <array>
#include <string>

#include "listing/findings.h"
#include "listing/program_warnings.h"
#include "listing/source_program.h"

static void FindMissing(const cSourceProgram &Program, cFindings *pFindings)
{
    for (unsigned nLine = 1; nLine <= Program.CountLines(); nLine++)
    {
        const cFlowLine &Flow = Program.Flow().Line(nLine);
        if ((Flow.m_nFlow == flGoto || Flow.m_nFlow == flCall) && !Flow.m_nTarget)
            pFindings->Warn(wnMissingLabel, Program.Line(nLine), Program.Word(nLine),
                            {std::to_string(Flow.m_nOperand)});
    }
}

static void FindDuplicates(const cSourceProgram &Program, cFindings *pFindings)
{
    std::array<unsigned, kLabels> Former = {};  // file lines
    for (unsigned nLine = 1; nLine <= Program.CountLines(); nLine++)
    {
        const cFlowLine &Flow = Program.Flow().Line(nLine);
        if (!Flow.m_bLabel)
            continue;
        unsigned &nFormer = Former[Flow.m_nOperand];
        if (nFormer)
            pFindings->Warn(wnDuplicateLabel, Program.Line(nLine), Program.Word(nLine),
                            {std::to_string(Flow.m_nOperand), std::to_string(nFormer)});
        nFormer = Program.Line(nLine).m_nLine;
    }
}

// A label in line 1 is where R/S starts.
static int IsRunInto(const cProgramFlow &Flow, const cLineSet &Reached, unsigned nLine)
{
    if (nLine == 1 || !Reached[nLine - 1])
        return 0;
    const eFlow nBefore = Flow.Line(nLine - 1).m_nFlow;
    return nBefore == flNext || nBefore == flSkip || nBefore == flCall;
}

static int EndsWithReturn(const cProgramFlow &Flow, unsigned nLine)
{
    const cLineSet Reached = Flow.ReachInLevel(nLine);
    for (unsigned nEnd = 1; nEnd <= kLastLine; nEnd++)
        if (Reached[nEnd] && Flow.Line(nEnd).m_nFlow == flReturn)
            return 1;
    return 0;
}

static void FindUnused(const cSourceProgram &Program, cFindings *pFindings)
{
    const cProgramFlow &Flow    = Program.Flow();
    const cLineSet      Targets = Flow.Targets();
    const cLineSet      Reached = Flow.Reach(Flow.Entries());
    if (Flow.IsIndirect())
        return;
    for (unsigned nLine = 1; nLine <= Program.CountLines(); nLine++)
    {
        const unsigned nLabel = Flow.Line(nLine).m_nOperand;
        if (Flow.Line(nLine).m_bLabel && !Targets[nLine] && !Program.NamedLabels()[nLabel] &&
            IsRunInto(Flow, Reached, nLine) && !EndsWithReturn(Flow, nLine))
            pFindings->Warn(wnUnusedLabel, Program.Line(nLine), Program.Word(nLine),
                            {std::to_string(nLabel)});
    }
}

void FindLabelWarnings(const cSourceProgram &Program, cFindings *pFindings)
{
    FindMissing(Program, pFindings);
    FindDuplicates(Program, pFindings);
    FindUnused(Program, pFindings);
}
