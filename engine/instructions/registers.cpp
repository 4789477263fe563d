// registers.cpp - store, recall and register arithmetic, direct and through
// the index register i (Reg[0]).

#include <cmath>

#include "engine/calculator.h"
#include "engine/instructions/handlers.h"
#include "engine/range.h"

// Performs the direct form on the register that i selects: floor |Reg[0]|.
// Compared as a double, so that no huge value or NaN is converted.
static int ThroughIndex(cCalculator &c, cHandler pDirect)
{
    const double dIndex = std::floor(std::fabs(c.m_dReg[0]));
    if (!(dIndex < kRegisters))
        return c.ShowUserError("Error: no such reg");
    return pDirect(c, static_cast<unsigned>(dIndex));
}

// Stores select their line of the registers box, other changes do not.
static int Store(cCalculator &c, unsigned nRegister, double dValue)
{
    c.m_dReg[nRegister] = dValue;
    c.TraceRegister(nRegister);
    c.SelectRegister(nRegister);
    return 1;
}

// A plain store is not clamped.
int OnSto(cCalculator &c, unsigned nRegister)
{
    return Store(c, nRegister, c.m_dX);
}

int OnStoPlus(cCalculator &c, unsigned nRegister)
{
    return Store(c, nRegister, Clamp(c.m_dReg[nRegister] + c.m_dX));
}

int OnStoMinus(cCalculator &c, unsigned nRegister)
{
    return Store(c, nRegister, Clamp(c.m_dReg[nRegister] - c.m_dX));
}

int OnStoTimes(cCalculator &c, unsigned nRegister)
{
    return Store(c, nRegister, Clamp(c.m_dReg[nRegister] * c.m_dX));
}

int OnStoDivide(cCalculator &c, unsigned nRegister)
{
    if (c.m_dX == 0.0)
        return c.ShowUserError("Error: divide by 0");
    return Store(c, nRegister, Clamp(c.m_dReg[nRegister] / c.m_dX));
}

int OnRcl(cCalculator &c, unsigned nRegister)
{
    c.PushIfLift();
    c.m_dX = c.m_dReg[nRegister];
    return 1;
}

int OnStoI(cCalculator &c, unsigned)
{
    return ThroughIndex(c, OnSto);
}

int OnStoPlusI(cCalculator &c, unsigned)
{
    return ThroughIndex(c, OnStoPlus);
}

int OnStoMinusI(cCalculator &c, unsigned)
{
    return ThroughIndex(c, OnStoMinus);
}

int OnStoTimesI(cCalculator &c, unsigned)
{
    return ThroughIndex(c, OnStoTimes);
}

// Unlike STO/, division by 0 fails without a text and without a sound; the
// display stays as it is.
static int DivideQuietly(cCalculator &c, unsigned nRegister)
{
    if (c.m_dX != 0.0)
        return OnStoDivide(c, nRegister);
    c.SettleTexts();
    c.EndEntry();
    c.MarkX();
    c.FreezeDisplay();
    return 0;
}

int OnStoDivideI(cCalculator &c, unsigned)
{
    return ThroughIndex(c, DivideQuietly);
}

// Unlike RCL, overwrites X and never pushes.
static int RecallOver(cCalculator &c, unsigned nRegister)
{
    c.m_dX = c.m_dReg[nRegister];
    return 1;
}

int OnRclI(cCalculator &c, unsigned)
{
    return ThroughIndex(c, RecallOver);
}
