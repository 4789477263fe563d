#include <string>

#include "listing/findings.h"
#include "listing/program_warnings.h"
#include "listing/source_program.h"

// Lines nFirst to nLast are not reached. R/S there does no harm: it is what
// unused lines hold. When a run ends with RTN, the next one begins in the line
// after it, which is hardly ever meant.
static void ReportBlock(const cSourceProgram &Program, unsigned nFirst, unsigned nLast,
                        cFindings *pFindings)
{
    int bHarmless = 1;
    for (unsigned nLine = nFirst; nLine <= nLast; nLine++)
        bHarmless = bHarmless && Program.Flow().Line(nLine).m_nFlow == flStop;
    if (bHarmless)
        return;
    const unsigned    nMore        = nLast - nFirst;
    const std::string Lines        = nMore == 0   ? "this line"
                                     : nMore == 1 ? "this line and the next"
                                                  : "this line and the next " + std::to_string(nMore);
    const int         bAfterReturn = Program.Flow().Line(nFirst - 1).m_nFlow == flReturn;
    pFindings->Warn(wnUnreachable, Program.Line(nFirst), Program.Word(nFirst),
                    {bAfterReturn ? " but R/S after a run that RTN has ended" : "", Lines});
}

static void FindUnreachable(const cSourceProgram &Program, const cLineSet &Reached,
                            cFindings *pFindings)
{
    unsigned nFirst = 0;  // of the present block; 0 outside of one
    for (unsigned nLine = 1; nLine <= Program.CountLines(); nLine++)
    {
        if (!Reached[nLine] && nFirst == 0)
            nFirst = nLine;
        if (!Reached[nLine] || nFirst == 0)
            continue;
        ReportBlock(Program, nFirst, nLine - 1, pFindings);
        nFirst = 0;
    }
    if (nFirst)
        ReportBlock(Program, nFirst, Program.CountLines(), pFindings);
}

// The last line continues in line 1; so does a test before it that skips it.
static void FindFallsOff(const cSourceProgram &Program, const cLineSet &Reached,
                         cFindings *pFindings)
{
    if (Program.CountLines() < kLastLine)
        return;
    const eFlow nLast = Program.Flow().Line(kLastLine).m_nFlow;
    if (Reached[kLastLine] &&
        (nLast == flNext || nLast == flSkip || nLast == flCall || nLast == flCallIndirect))
        pFindings->Warn(wnFallsOffEnd, Program.Line(kLastLine), Program.Word(kLastLine));
    else if (Reached[kLastLine - 1] && Program.Flow().Line(kLastLine - 1).m_nFlow == flSkip)
        pFindings->Warn(wnFallsOffEnd, Program.Line(kLastLine - 1), Program.Word(kLastLine - 1));
}

void FindFlowWarnings(const cSourceProgram &Program, cFindings *pFindings)
{
    const cLineSet Reached = Program.Flow().Reach(Program.Flow().Entries());
    if (!Program.Flow().IsIndirect())
        FindUnreachable(Program, Reached, pFindings);
    FindFallsOff(Program, Reached, pFindings);
}
