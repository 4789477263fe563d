// instruction.h - one row of the instruction table: all that is known of an
// instruction.

#ifndef ENGINE_INSTRUCTION_H
#define ENGINE_INSTRUCTION_H

#include <span>

class cCalculator;

enum eOperand
{
    opNone,
    opDigits,    // FIX 0 to FIX 9
    opRegister,  // 0 to 9, .0 to .10 for 10 to 20
    opLabel      // 0 to 9
};

// Results that the instruction computes and that are held within
// +-9.999999999e99 and away from the denormal range.
enum eClamp
{
    clNone,
    clX,
    clXY
};

// How the instruction leaves the calculator.
enum eEnding
{
    enLift,  // X shown, entry ended, the next number pushes the stack
    enOver,  // the same, but the next number overwrites X
    enKeep,  // the same, the stack-lift flag as it was
    enOwn    // the handler does it
};

// What other parts of the engine must know of some instructions.
enum eRole
{
    rlNone,
    rlJump,   // sets the current line itself
    rlLabel,  // the target of jumps
    rlSkip,   // may skip the next line
    rlStop,   // halts a run
    rlSign    // belongs to number entry while a number is being keyed in
};

// When LASTx gets the X from before the operation: once all else is done, or
// first. 0: never.
const int kLastXAfter  = 1;
const int kLastXBefore = 2;

// Performs the instruction in run mode; returns 1, or 0 after an error.
typedef int (*cHandler)(cCalculator &c, unsigned nOperand);

struct cInstruction
{
    const char *m_szMnemonic;
    cHandler    m_pExecute;  // the row's handler with its LASTx, clamp and ending
    eOperand    m_nOperand;
    eRole       m_nRole;
};

// The instruction table, in registration order.
std::span<const cInstruction> Instructions();

#endif
