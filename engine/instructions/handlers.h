// handlers.h - declares the handlers of all instructions, one for each row of
// instruction_rows.inc. They are defined by theme: display_mode.cpp, flow.cpp,
// graph_calls.cpp, mathematics.cpp, registers.cpp, stack.cpp, statistics.cpp.
//
// A handler contains only the operation itself, in run mode: it computes and
// returns 1, or reports an error and returns 0. LASTx, the range clamp and the
// ending follow from the row.

#ifndef ENGINE_INSTRUCTIONS_HANDLERS_H
#define ENGINE_INSTRUCTIONS_HANDLERS_H

class cCalculator;

#define INSTRUCTION(mnemonic, operand, handler, lastx, clamp, ending, role)                        \
    int handler(cCalculator &c, unsigned nOperand);

#include "engine/instructions/instruction_rows.inc"

#undef INSTRUCTION

#endif
