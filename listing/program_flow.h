// program_flow.h - how a run can go from line to line of a program, followed
// without running it.
//
// A program is entered in line 1 by R/S and at any label by the keys GSB and the
// label's digit. After R/S the next run continues in the next line, with an empty
// return stack. Where a jump through i goes is not known here.

#ifndef LISTING_PROGRAM_FLOW_H
#define LISTING_PROGRAM_FLOW_H

#include <array>
#include <bitset>

#include "engine/program_line.h"

struct cInstruction;
struct cSourceLine;

enum eFlow
{
    flNext,          // continues in the next line
    flSkip,          // in the next, or in the one after it
    flGoto,          // at a label
    flGotoIndirect,  // anywhere
    flCall,          // at a label, later in the next line
    flCallIndirect,  // anywhere, later in the next line
    flReturn,        // after the call; or the run ends
    flStop,          // ends the run; the next one continues in the next line
    flUnknown        // a line that the loader rejects: flNext, flSkip, flReturn or flStop
};

struct cFlowLine
{
    eFlow    m_nFlow;
    int      m_bLabel;    // LBL
    unsigned m_nOperand;  // the label of LBL, GTO and GSB, else 0
    unsigned m_nTarget;   // the line that a GTO or GSB finds; 0: no such label
};

typedef std::bitset<kProgramLines> cLineSet;

eFlow FlowOf(const cInstruction &Instruction);

class cProgramFlow
{
public:
    // An empty program: every line is R/S.
    cProgramFlow();

    // Line is an instruction or a number.
    void SetLine(unsigned nLine, const cSourceLine &Line);

    // Not known what was meant, but no label and no jump.
    void SetUnknown(unsigned nLine) { m_Lines[nLine].m_nFlow = flUnknown; }

    // Finds the targets; once, when all lines are set.
    void Connect();

    const cFlowLine &Line(unsigned nLine) const { return m_Lines[nLine]; }

    // 1 if any line jumps or calls through i.
    int IsIndirect() const;

    // Lines that some GTO or GSB finds.
    cLineSet Targets() const;

    // Lines that the loader rejects.
    cLineSet Unknown() const;

    // Lines that begin a run: line 1 and the labels.
    cLineSet Entries() const;

    // All that a run can reach from these lines, as far as it is known. A line of
    // Ends is reached, but what follows it is not.
    cLineSet Reach(const cLineSet &From, const cLineSet &Ends = {}) const;

    // The same from one line within one level of subroutines: calls return at
    // once, and a run that halts, or comes to an unknown line, does not continue.
    cLineSet ReachInLevel(unsigned nFrom) const;

    // Jumps to labels that are missing, and calls that never return: nothing
    // continues behind them.
    cLineSet DeadEnds() const;

private:
    unsigned FindLabel(unsigned nFrom, unsigned nLabel) const;
    int      Returns(unsigned nLine, const cLineSet &Returning) const;
    cLineSet FindReturning() const;
    cLineSet After(unsigned nLine, int bInLevel) const;
    cLineSet Follow(cLineSet From, const cLineSet &Ends, int bInLevel) const;

    std::array<cFlowLine, kProgramLines> m_Lines;
};

// The line after this one: line 1 after the last.
unsigned NextLine(unsigned nLine);

#endif
