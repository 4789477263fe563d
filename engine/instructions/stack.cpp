// stack.cpp - the instructions that only move numbers.

#include "engine/calculator.h"
#include "engine/instructions/handlers.h"
#include "engine/number_entry.h"

static const double kPi = 3.141592653589793;

int OnEnter(cCalculator &c, unsigned)
{
    c.Push();
    return 1;
}

int OnClearX(cCalculator &c, unsigned)
{
    c.m_dX = 0.0;
    return 1;
}

int OnSwapXY(cCalculator &c, unsigned)
{
    const double dX = c.m_dX;
    c.m_dX          = c.m_dY;
    c.m_dY          = dX;
    return 1;
}

int OnRollDown(cCalculator &c, unsigned)
{
    const double dX = c.m_dX;
    c.m_dX          = c.m_dY;
    c.m_dY          = c.m_dZ;
    c.m_dZ          = c.m_dT;
    c.m_dT          = dX;
    return 1;
}

int OnLastX(cCalculator &c, unsigned)
{
    c.PushIfLift();
    c.m_dX = c.m_dLastX;
    return 1;
}

int OnPi(cCalculator &c, unsigned)
{
    c.PushIfLift();
    c.m_dX = kPi;
    return 1;
}

int OnChangeSign(cCalculator &c, unsigned)
{
    if (c.m_szEntry[0])
        return ChangeEntrySign(c);
    c.m_dX = -c.m_dX;
    return c.EndOperation(enKeep);
}
