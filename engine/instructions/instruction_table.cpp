// instruction_table.cpp - the table, and what a row adds to its handler.

#include "engine/calculator.h"
#include "engine/instruction.h"
#include "engine/instructions/handlers.h"
#include "engine/range.h"

// One function for each row, so that no line of a running program looks up what
// its row says.
template <cHandler pHandler, int nLastX, eClamp nClamp, eEnding nEnding>
static int Execute(cCalculator &c, unsigned nOperand)
{
    const double dLastX = c.m_dX;
    if constexpr (nLastX == kLastXBefore)
        c.SaveLastX(dLastX);
    if (!pHandler(c, nOperand))
        return 0;
    if constexpr (nClamp != clNone)
        c.m_dX = Clamp(c.m_dX);
    if constexpr (nClamp == clXY)
        c.m_dY = Clamp(c.m_dY);
    if constexpr (nLastX == kLastXAfter)
        c.SaveLastX(dLastX);
    if constexpr (nEnding != enOwn)
        c.EndOperation(nEnding);
    return 1;
}

#define INSTRUCTION(mnemonic, operand, handler, lastx, clamp, ending, role)                        \
    {mnemonic, Execute<handler, lastx, clamp, ending>, operand, role},

static const cInstruction s_Instructions[] = {
#include "engine/instructions/instruction_rows.inc"
};

#undef INSTRUCTION

std::span<const cInstruction> Instructions()
{
    return s_Instructions;
}
