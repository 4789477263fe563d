#include "listing/program_flow.h"

#include <algorithm>
#include <string_view>

#include "engine/instruction.h"
#include "listing/source_lines.h"

// clang-format off
static const struct
{
    std::string_view m_Mnemonic;
    eFlow            m_nFlow;
} s_Jumps[] =
{
    { "GTO",   flGoto         },
    { "GTO i", flGotoIndirect },
    { "GSB",   flCall         },
    { "GSB i", flCallIndirect },
    { "RTN",   flReturn       },
};
// clang-format on

eFlow FlowOf(const cInstruction &Instruction)
{
    if (Instruction.m_nRole == rlSkip)
        return flSkip;
    if (Instruction.m_nRole == rlStop)
        return flStop;
    for (const auto &Row : s_Jumps)
        if (Row.m_Mnemonic == Instruction.m_szMnemonic)
            return Row.m_nFlow;
    return flNext;
}

unsigned NextLine(unsigned nLine)
{
    return nLine < kLastLine ? nLine + 1 : 1;
}

cProgramFlow::cProgramFlow()
{
    m_Lines.fill({flStop, 0, 0, 0});
}

void cProgramFlow::SetLine(unsigned nLine, const cSourceLine &Line)
{
    cFlowLine                &Flow         = m_Lines[nLine];
    const cInstruction *const pInstruction = Line.m_Parsed.m_pInstruction;
    Flow.m_nFlow                           = pInstruction ? FlowOf(*pInstruction) : flNext;
    Flow.m_bLabel                          = pInstruction && pInstruction->m_nRole == rlLabel;
    Flow.m_nOperand                        = Line.m_Parsed.m_nOperand;
}

// As a run searches: downwards from the jump, then from the top.
unsigned cProgramFlow::FindLabel(unsigned nFrom, unsigned nLabel) const
{
    unsigned nLine = nFrom;
    do
    {
        if (m_Lines[nLine].m_bLabel && m_Lines[nLine].m_nOperand == nLabel)
            return nLine;
        nLine = NextLine(nLine);
    }
    while (nLine != nFrom);
    return 0;
}

void cProgramFlow::Connect()
{
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        cFlowLine &Flow = m_Lines[nLine];
        if (Flow.m_nFlow == flGoto || Flow.m_nFlow == flCall)
            Flow.m_nTarget = FindLabel(nLine, Flow.m_nOperand);
    }
}

int cProgramFlow::IsIndirect() const
{
    return std::any_of(m_Lines.begin(), m_Lines.end(), [](const cFlowLine &Line) {
        return Line.m_nFlow == flGotoIndirect || Line.m_nFlow == flCallIndirect;
    });
}

cLineSet cProgramFlow::Targets() const
{
    cLineSet Targets;
    for (const cFlowLine &Line : m_Lines)
        if (Line.m_nTarget)
            Targets.set(Line.m_nTarget);
    return Targets;
}

cLineSet cProgramFlow::Unknown() const
{
    cLineSet Unknown;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        Unknown[nLine] = m_Lines[nLine].m_nFlow == flUnknown;
    return Unknown;
}

cLineSet cProgramFlow::Entries() const
{
    cLineSet Entries;
    Entries.set(1);
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        if (m_Lines[nLine].m_bLabel)
            Entries.set(nLine);
    return Entries;
}

// A jump to a label that is missing is taken to continue, so that one mistake is
// reported once.
cLineSet cProgramFlow::After(unsigned nLine, int bInLevel) const
{
    const cFlowLine &Flow = m_Lines[nLine];
    cLineSet         After;
    if (Flow.m_nTarget && (Flow.m_nFlow == flGoto || !bInLevel))
        After.set(Flow.m_nTarget);
    const int bEnds = (Flow.m_nFlow == flGoto && Flow.m_nTarget) || Flow.m_nFlow == flReturn ||
                      Flow.m_nFlow == flGotoIndirect ||
                      ((Flow.m_nFlow == flStop || Flow.m_nFlow == flUnknown) && bInLevel);
    if (!bEnds)
        After.set(NextLine(nLine));
    if (Flow.m_nFlow == flSkip || (Flow.m_nFlow == flUnknown && !bInLevel))
        After.set(NextLine(NextLine(nLine)));
    return After;
}

// Downwards, as most lines continue; again from the top for jumps back.
cLineSet cProgramFlow::Follow(cLineSet From, const cLineSet &Ends, int bInLevel) const
{
    cLineSet Followed = Ends;
    while ((From & ~Followed).any())
        for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
            if (From[nLine] && !Followed[nLine])
            {
                Followed.set(nLine);
                From |= After(nLine, bInLevel);
            }
    return From;
}

cLineSet cProgramFlow::Reach(const cLineSet &From, const cLineSet &Ends) const
{
    return Follow(From, Ends, 0);
}

cLineSet cProgramFlow::ReachInLevel(unsigned nFrom) const
{
    return Follow(cLineSet().set(nFrom), {}, 1);
}

// Whether a subroutine can return from this line on, if it can from these lines.
// A jump through i may find any of them.
int cProgramFlow::Returns(unsigned nLine, const cLineSet &Returning) const
{
    const cFlowLine &Flow  = m_Lines[nLine];
    const int        bNext = Returning[NextLine(nLine)];
    switch (Flow.m_nFlow)
    {
    case flNext:
    case flCallIndirect:
        return bNext;
    case flSkip:
        return bNext || Returning[NextLine(NextLine(nLine))];
    case flGoto:
        return Returning[Flow.m_nTarget];
    case flGotoIndirect:
        return Returning.any();
    case flCall:
        return bNext && Returning[Flow.m_nTarget];
    case flReturn:
        return 1;
    default:
        return 0;
    }
}

// The lines from which a run can come to the RTN of its level.
cLineSet cProgramFlow::FindReturning() const
{
    cLineSet Returning;
    cLineSet Former;
    do
    {
        Former = Returning;
        for (unsigned nLine = kLastLine; nLine > 0; nLine--)
            if (Returns(nLine, Returning))
                Returning.set(nLine);
    }
    while (Returning != Former);
    return Returning;
}

cLineSet cProgramFlow::DeadEnds() const
{
    const cLineSet Returning = FindReturning();
    cLineSet       DeadEnds;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        const cFlowLine &Flow = m_Lines[nLine];
        DeadEnds[nLine]       = (Flow.m_nFlow == flGoto && !Flow.m_nTarget) ||
                          (Flow.m_nFlow == flCall && !Returning[Flow.m_nTarget]) ||
                          (Flow.m_nFlow == flCallIndirect && Returning.none());
    }
    return DeadEnds;
}
