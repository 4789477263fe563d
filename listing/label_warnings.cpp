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
        if ((Flow.m_nFlow == flGoto || Flow.m_nFlow == flCall) && !Flow.m_nTarget &&
            !Program.PossibleLabels()[Flow.m_nOperand])
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

// Nothing runs into the line after it.
static int Ends(eFlow nFlow)
{
    return nFlow == flGoto || nFlow == flGotoIndirect || nFlow == flReturn || nFlow == flStop;
}

// An unknown line may be a RTN.
static int EndsWithReturn(const cProgramFlow &Flow, unsigned nLine)
{
    const cLineSet Reached = Flow.ReachInLevel(nLine);
    for (unsigned nEnd = 1; nEnd <= kLastLine; nEnd++)
        if (Reached[nEnd] &&
            (Flow.Line(nEnd).m_nFlow == flReturn || Flow.Line(nEnd).m_nFlow == flUnknown))
            return 1;
    return 0;
}

// A rejected line may also be taken out.
static int IsFirst(const cProgramFlow &Flow, unsigned nLine)
{
    unsigned nFirst = 1;
    while (Flow.Line(nFirst).m_nFlow == flUnknown)
        nFirst++;
    return nLine <= nFirst;
}

// A label in line 1 is where R/S starts. One that the program runs into may be the
// entry of a subroutine that begins with what is above it.
static int MayBeStarted(const cSourceProgram &Program, unsigned nLine)
{
    const cProgramFlow &Flow   = Program.Flow();
    const unsigned      nLabel = Flow.Line(nLine).m_nOperand;
    return IsFirst(Flow, nLine) || Program.NamedLabels()[nLabel] ||
           Program.PossibleJumps()[nLabel] ||
           (!Ends(Flow.Line(nLine - 1).m_nFlow) && EndsWithReturn(Flow, nLine));
}

static void FindUnused(const cSourceProgram &Program, cFindings *pFindings)
{
    const cProgramFlow &Flow    = Program.Flow();
    const cLineSet      Targets = Flow.Targets();
    if (Flow.IsIndirect() || Program.MayBeIndirect())
        return;
    for (unsigned nLine = 1; nLine <= Program.CountLines(); nLine++)
        if (Flow.Line(nLine).m_bLabel && !Targets[nLine] && !MayBeStarted(Program, nLine))
            pFindings->Warn(wnUnusedLabel, Program.Line(nLine), Program.Word(nLine),
                            {std::to_string(Flow.Line(nLine).m_nOperand)});
}

void FindLabelWarnings(const cSourceProgram &Program, cFindings *pFindings)
{
    FindMissing(Program, pFindings);
    FindDuplicates(Program, pFindings);
    FindUnused(Program, pFindings);
}
