#include <array>
#include <string>

#include "listing/findings.h"
#include "listing/program_warnings.h"
#include "listing/source_program.h"

// As deep as the calculator can return.
static const unsigned kCallLevels = 3;

// A program without tests that takes longer runs in a circle.
static const unsigned kMostSteps = 1000;

namespace
{

// Which subroutine calls which. A subroutine is known by its LBL line; line 0 is
// the main program, all that runs before the first call.
class cCalls
{
public:
    explicit cCalls(const cSourceProgram &Program);

    // The GSB lines of a subroutine.
    const cLineSet &LinesOf(unsigned nSubroutine) const { return m_Bodies[nSubroutine]; }
    const cLineSet &Subroutines() const { return m_Subroutines; }

    // 1 if each of the two leads to a call of the other.
    int IsCircle(unsigned nOne, unsigned nTwo) const
    {
        return m_Leads[nOne][nTwo] && m_Leads[nTwo][nOne];
    }

private:
    void FindBodies(const cProgramFlow &Flow);
    void FindLeads(const cProgramFlow &Flow);

    cLineSet                            m_Subroutines;
    std::array<cLineSet, kProgramLines> m_Bodies;
    std::array<cLineSet, kProgramLines> m_Leads;  // subroutines called, also by those
};

}  // namespace

static cLineSet CallsIn(const cProgramFlow &Flow, cLineSet Lines)
{
    for (unsigned nLine = 0; nLine <= kLastLine; nLine++)
        if (Flow.Line(nLine).m_nFlow != flCall || !Flow.Line(nLine).m_nTarget)
            Lines.reset(nLine);
    return Lines;
}

cCalls::cCalls(const cSourceProgram &Program)
{
    FindBodies(Program.Flow());
    FindLeads(Program.Flow());
}

// What may run first may also be called; its calls then count for the deeper
// level.
void cCalls::FindBodies(const cProgramFlow &Flow)
{
    m_Bodies[0] = CallsIn(Flow, Flow.Reach(Flow.Entries(), Flow.Unknown()));
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        if (m_Bodies[0][nLine])
            m_Subroutines.set(Flow.Line(nLine).m_nTarget);
    for (unsigned nSubroutine = 1; nSubroutine <= kLastLine; nSubroutine++)
        if (m_Subroutines[nSubroutine])
            m_Bodies[nSubroutine] = CallsIn(Flow, Flow.ReachInLevel(nSubroutine));
}

void cCalls::FindLeads(const cProgramFlow &Flow)
{
    for (unsigned nSubroutine = 1; nSubroutine <= kLastLine; nSubroutine++)
        for (unsigned nLine = 1; m_Subroutines[nSubroutine] && nLine <= kLastLine; nLine++)
            if (m_Bodies[nSubroutine][nLine])
                m_Leads[nSubroutine].set(Flow.Line(nLine).m_nTarget);
    for (unsigned nMiddle = 1; nMiddle <= kLastLine; nMiddle++)
        for (unsigned nCaller = 1; m_Subroutines[nMiddle] && nCaller <= kLastLine; nCaller++)
            if (m_Leads[nCaller][nMiddle])
                m_Leads[nCaller] |= m_Leads[nMiddle];
}

namespace
{

// The calls that led to a subroutine, at most kCallLevels.
struct cChain
{
    unsigned    m_nDepth = 0;
    std::string m_Text;  // "GSB 1, GSB 2"
};

class cDeepCalls
{
public:
    cDeepCalls(const cSourceProgram &Program, cFindings *pFindings)
        : m_Program(Program), m_pFindings(pFindings), m_Calls(Program)
    {
    }

    void FollowChains() { Descend(0); }
    void FollowStraight(unsigned nLine);

private:
    cChain Longer(const cChain &Chain, unsigned nLine) const;
    void   Report(const cChain &Chain, unsigned nLine);
    void   Descend(unsigned nCaller);

    const cSourceProgram             &m_Program;
    cFindings                        *m_pFindings;
    cCalls                            m_Calls;
    std::array<cChain, kProgramLines> m_Chains;  // the longest found to each subroutine
    cLineSet                          m_Reported;
};

}  // namespace

cChain cDeepCalls::Longer(const cChain &Chain, unsigned nLine) const
{
    return {Chain.m_nDepth + 1, Chain.m_Text + (Chain.m_nDepth ? ", " : "") + "GSB " +
                                    std::to_string(m_Program.Flow().Line(nLine).m_nOperand)};
}

void cDeepCalls::Report(const cChain &Chain, unsigned nLine)
{
    if (!m_Reported[nLine])
        m_pFindings->Warn(wnDeepCalls, m_Program.Line(nLine), m_Program.Word(nLine),
                          {Longer(Chain, nLine).m_Text});
    m_Reported.set(nLine);
}

// Subroutines that call one another in a circle end that by a condition, as a
// rule; FollowStraight() finds those that cannot.
void cDeepCalls::Descend(unsigned nCaller)
{
    const cChain Chain = m_Chains[nCaller];
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        const unsigned nTarget = m_Program.Flow().Line(nLine).m_nTarget;
        if (!m_Calls.LinesOf(nCaller)[nLine] || m_Calls.IsCircle(nCaller, nTarget))
            continue;
        if (Chain.m_nDepth == kCallLevels)
            Report(Chain, nLine);
        else if (Chain.m_nDepth + 1 > m_Chains[nTarget].m_nDepth)
        {
            m_Chains[nTarget] = Longer(Chain, nLine);
            Descend(nTarget);
        }
    }
}

// Runs from a line on as far as no number decides where to go.
void cDeepCalls::FollowStraight(unsigned nLine)
{
    std::array<unsigned, kCallLevels> Returns = {};
    std::array<cChain, kCallLevels>   Chains;  // before each call
    cChain                            Chain;
    for (unsigned nStep = 0; nStep < kMostSteps; nStep++)
    {
        const cFlowLine &Flow = m_Program.Flow().Line(nLine);
        if (Flow.m_nFlow == flCall && Chain.m_nDepth == kCallLevels && Flow.m_nTarget)
            return Report(Chain, nLine);
        if (Flow.m_nFlow == flCall && Flow.m_nTarget)
        {
            Returns[Chain.m_nDepth] = NextLine(nLine);
            Chains[Chain.m_nDepth]  = Chain;
            Chain                   = Longer(Chain, nLine);
            nLine                   = Flow.m_nTarget;
        }
        else if (Flow.m_nFlow == flReturn && Chain.m_nDepth > 0)
        {
            Chain = Chains[Chain.m_nDepth - 1];
            nLine = Returns[Chain.m_nDepth];
        }
        else if (Flow.m_nFlow == flNext)
            nLine = NextLine(nLine);
        else if (Flow.m_nFlow == flGoto && Flow.m_nTarget)
            nLine = Flow.m_nTarget;
        else
            return;
    }
}

void FindCallWarnings(const cSourceProgram &Program, cFindings *pFindings)
{
    if (Program.PossibleLabels().any() || Program.PossibleJumps().any())
        return;
    cDeepCalls     DeepCalls(Program, pFindings);
    const cLineSet Entries = Program.Flow().Entries();
    DeepCalls.FollowChains();
    for (unsigned nLine = 1; nLine <= Program.CountLines(); nLine++)
        if (Entries[nLine])
            DeepCalls.FollowStraight(nLine);
}
