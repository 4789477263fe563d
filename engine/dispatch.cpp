#include "engine/dispatch.h"

#include <cstring>

#include "engine/calculator.h"
#include "engine/listing_words.h"
#include "engine/program_memory.h"

static const unsigned kCodeWrongMnemonic = 100;
static const unsigned kCodeRegister      = 102;
static const unsigned kCodeDigits        = 112;

int Perform(cCalculator &c, const char *szMnemonic, unsigned nOperand)
{
    const cInstruction *const pInstruction = c.m_mapHandlers.Find(szMnemonic);
    return pInstruction ? PerformInstruction(c, *pInstruction, nOperand) : 0;
}

// Whether the line in m_szMnemonic and m_szOperand is legal; nOperand is its
// value.
static int AcceptsOperand(cCalculator &c, const cInstruction &Instruction, unsigned nOperand)
{
    if (strcmp(c.m_szMnemonic, Instruction.m_szMnemonic) != 0)
    {
        c.ShowProgramError(kCodeWrongMnemonic);
        return 0;
    }
    return TakesOperand(Instruction, c.m_szOperand, nOperand);
}

static unsigned RepairOperand(cCalculator &c, const cInstruction &Instruction, unsigned nOperand)
{
    if (Instruction.m_nOperand == opRegister && nOperand > kLargestRegister)
    {
        c.ShowProgramError(kCodeRegister);
        return 0;
    }
    if (Instruction.m_nOperand == opDigits && nOperand > 9)
    {
        c.ShowProgramError(kCodeDigits);
        return nOperand % 10;
    }
    return nOperand;
}

// While a number is keyed in, its sign is part of it in program mode, too.
static int IsRecorded(const cCalculator &c, const cInstruction &Instruction)
{
    return c.m_bProgramMode && !(c.m_szEntry[0] && Instruction.m_nRole == rlSign);
}

int PerformInstruction(cCalculator &c, const cInstruction &Instruction, unsigned nOperand)
{
    if (c.m_bParseOnly)
        return AcceptsOperand(c, Instruction, nOperand);
    nOperand = RepairOperand(c, Instruction, nOperand);
    return IsRecorded(c, Instruction) ? InsertInstruction(c, Instruction, nOperand)
                                      : Instruction.m_pExecute(c, nOperand);
}

int PerformStep(cCalculator &c, const cStep &Step)
{
    if (Step.m_pInstruction)
        return PerformInstruction(c, *Step.m_pInstruction, Step.m_nOperand);
    if (c.m_bProgramMode)
        return InsertNumberLine(c, Step.m_szText);
    ProgramLine Line = {};
    SetNumber(&Line, Step.m_szText);
    return ExecuteNumberLine(c, Line);
}
