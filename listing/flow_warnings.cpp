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

// The last line continues in line 1; so does a test before it that skips it, also
// where the last line is not used.
static void FindFallsOff(const cSourceProgram &Program, cFindings *pFindings)
{
    const cProgramFlow &Flow     = Program.Flow();
    const cLineSet      DeadEnds = Flow.DeadEnds();
    const cLineSet      Goes     = Flow.Reach(Flow.Entries(), DeadEnds) & ~DeadEnds;
    const eFlow         nLast    = Flow.Line(kLastLine).m_nFlow;
    unsigned            nFalls   = 0;
    if (Goes[kLastLine] &&
        (nLast == flNext || nLast == flSkip || nLast == flCall || nLast == flCallIndirect))
        nFalls = kLastLine;
    else if (Goes[kLastLine - 1] && Flow.Line(kLastLine - 1).m_nFlow == flSkip)
        nFalls = kLastLine - 1;
    if (nFalls)
        pFindings->Warn(wnFallsOffEnd, Program.Line(nFalls), Program.Word(nFalls));
}

void FindFlowWarnings(const cSourceProgram &Program, cFindings *pFindings)
{
    // A line that might be a label is reached, and what follows it.
    const cLineSet Entries = Program.Flow().Entries() | Program.Flow().Unknown();
    if (!Program.Flow().IsIndirect() && !Program.MayBeIndirect())
        FindUnreachable(Program, Program.Flow().Reach(Entries), pFindings);
    if (!Program.HasErrors())
        FindFallsOff(Program, pFindings);
}
