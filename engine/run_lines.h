// run_lines.h - the program as the run loop executes it: everything that can be
// known of a line before it runs is found when the program changes.

#ifndef ENGINE_RUN_LINES_H
#define ENGINE_RUN_LINES_H

#include <cstdint>

#include "engine/instruction.h"
#include "engine/program_line.h"

class cCalculator;

const unsigned kLabels = 10;  // LBL 0 to LBL 9

struct cRunLine
{
    cHandler m_pExecute;  // also for a number line
    unsigned m_nOperand;  // of a number line: its line number
    int      m_bJump;     // sets the current line itself
};

struct cRunLines
{
    // Line 0 executes line 1.
    cRunLine m_Lines[kProgramLines];

    // Where each label is found from a line on: there or below, else from line 1
    // on. 0: nowhere.
    uint16_t m_LabelLines[kProgramLines][kLabels];
};

// Called after each change of program memory.
void PrepareRunLines(cCalculator &c);

// A number line puts its number into X; it pushes the stack first unless the line
// before it, ENTER for one, has said not to. Always returns 1.
int ExecuteNumberLine(cCalculator &c, const ProgramLine &Line);

#endif
