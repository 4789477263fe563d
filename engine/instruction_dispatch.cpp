// instruction_dispatch.cpp - one instruction serves three callers: a listing
// line is checked, program mode records, run mode executes.

#include <cstring>

#include "engine/vorstek_engine.h"

static const unsigned kCodeWrongMnemonic = 100;
static const unsigned kCodeRegister      = 102;
static const unsigned kCodeDigits        = 112;

static const unsigned kLargestRegister = 20;  // written .10

int cVorstekEngine::Perform(const char *szMnemonic, unsigned nOperand)
{
    const cInstruction *const pInstruction = m_mapHandlers.Find(szMnemonic);
    return pInstruction ? PerformInstruction(*pInstruction, nOperand) : 0;
}

int cVorstekEngine::PerformInstruction(const cInstruction &Instruction, unsigned nOperand)
{
    if (m_bParseOnly)
        return AcceptsOperand(Instruction, nOperand);
    if (m_szEntry[0] && Instruction.m_pExecute == &cVorstekEngine::OnChangeSign)
        return ChangeEntrySign();
    nOperand = RepairOperand(Instruction, nOperand);
    return m_bProgramMode ? Record(Instruction, nOperand) : Execute(Instruction, nOperand);
}

// Judges the line in m_szMnemonic and m_szOperand; nOperand is its value.
int cVorstekEngine::AcceptsOperand(const cInstruction &Instruction, unsigned nOperand)
{
    if (strcmp(m_szMnemonic, Instruction.m_szMnemonic) != 0)
    {
        ShowProgramError(kCodeWrongMnemonic);
        return 0;
    }
    if (Instruction.m_nOperand == opNone)
        return m_szOperand[0] == 0;
    if (Instruction.m_nOperand == opRegister && m_szOperand[0] == '.')
        return nOperand <= kLargestRegister;
    return strlen(m_szOperand) == 1 && nOperand <= 9;
}

unsigned cVorstekEngine::RepairOperand(const cInstruction &Instruction, unsigned nOperand)
{
    if (Instruction.m_nOperand == opRegister && nOperand > kLargestRegister)
    {
        ShowProgramError(kCodeRegister);
        return 0;
    }
    if (Instruction.m_nOperand == opDigits && nOperand > 9)
    {
        ShowProgramError(kCodeDigits);
        return nOperand % 10;
    }
    return nOperand;
}

int cVorstekEngine::Record(const cInstruction &Instruction, unsigned nOperand)
{
    if (Instruction.m_nOperand == opNone)
        return InsertInstruction("%s", Instruction.m_szMnemonic);
    if (Instruction.m_nOperand == opRegister && nOperand > 9)
        return InsertInstruction("%s .%u", Instruction.m_szMnemonic, nOperand - 10);
    return InsertInstruction("%s %u", Instruction.m_szMnemonic, nOperand);
}

int cVorstekEngine::Execute(const cInstruction &Instruction, unsigned nOperand)
{
    const double dFormerX = m_dX;
    if (Instruction.m_nLastX == kLastXBefore)
        SaveLastX(dFormerX);
    if (!(this->*Instruction.m_pExecute)(nOperand))
        return 0;
    if (Instruction.m_nClamp != clNone)
        m_dX = Clamp(m_dX);
    if (Instruction.m_nClamp == clXY)
        m_dY = Clamp(m_dY);
    if (Instruction.m_nLastX == kLastXAfter)
        SaveLastX(dFormerX);
    return Instruction.m_nEnding == enOwn ? 1 : EndOperation(Instruction.m_nEnding);
}
