#include "engine/instruction.h"
#include "engine/instructions/handlers.h"

#define INSTRUCTION(mnemonic, operand, handler, lastx, clamp, ending, role)                        \
    {mnemonic, operand, handler, lastx, clamp, ending, role},

static const cInstruction s_Instructions[] = {
#include "engine/instructions/instruction_rows.inc"
};

#undef INSTRUCTION

std::span<const cInstruction> Instructions()
{
    return s_Instructions;
}
