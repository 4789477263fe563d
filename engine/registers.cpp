// registers.cpp - store, recall and register arithmetic, direct and through
// the index register i (Reg[0]).

#include <cmath>

#include "engine/vorstek_engine.h"

// Performs the direct form on the register that i names: floor |Reg[0]|.
// Compared as a double, so that no huge value or NaN is converted.
int cVorstekEngine::ThroughIndex(cHandler pDirect)
{
    const double dIndex = std::floor(std::fabs(m_dReg[0]));
    if (!(dIndex < kRegisters))
        return ShowUserError("Error: no such reg");
    return (this->*pDirect)(static_cast<unsigned>(dIndex));
}

// Stores select their line of the registers box, other changes do not.
int cVorstekEngine::Store(unsigned nRegister, double dValue)
{
    m_dReg[nRegister] = dValue;
    TraceRegister(nRegister);
    m_nSelectRegister = static_cast<int>(nRegister);
    return 1;
}

// A plain store is not clamped.
int cVorstekEngine::OnSto(unsigned nRegister)
{
    return Store(nRegister, m_dX);
}

int cVorstekEngine::OnStoPlus(unsigned nRegister)
{
    return Store(nRegister, Clamp(m_dReg[nRegister] + m_dX));
}

int cVorstekEngine::OnStoMinus(unsigned nRegister)
{
    return Store(nRegister, Clamp(m_dReg[nRegister] - m_dX));
}

int cVorstekEngine::OnStoTimes(unsigned nRegister)
{
    return Store(nRegister, Clamp(m_dReg[nRegister] * m_dX));
}

int cVorstekEngine::OnStoDivide(unsigned nRegister)
{
    if (m_dX == 0.0)
        return ShowUserError("Error: divide by 0");
    return Store(nRegister, Clamp(m_dReg[nRegister] / m_dX));
}

int cVorstekEngine::OnRcl(unsigned nRegister)
{
    PushIfLift();
    m_dX = m_dReg[nRegister];
    return 1;
}

int cVorstekEngine::OnStoI(unsigned)
{
    return ThroughIndex(&cVorstekEngine::OnSto);
}

int cVorstekEngine::OnStoPlusI(unsigned)
{
    return ThroughIndex(&cVorstekEngine::OnStoPlus);
}

int cVorstekEngine::OnStoMinusI(unsigned)
{
    return ThroughIndex(&cVorstekEngine::OnStoMinus);
}

int cVorstekEngine::OnStoTimesI(unsigned)
{
    return ThroughIndex(&cVorstekEngine::OnStoTimes);
}

int cVorstekEngine::OnStoDivideI(unsigned)
{
    return ThroughIndex(&cVorstekEngine::DivideQuietly);
}

// Unlike STO/, division by 0 fails without a text and without a sound; the
// display stays as it is.
int cVorstekEngine::DivideQuietly(unsigned nRegister)
{
    if (m_dX != 0.0)
        return OnStoDivide(nRegister);
    SettleTexts();
    EndEntry();
    ShowX();
    m_bDisplayShowsX = 0;
    return 0;
}

int cVorstekEngine::OnRclI(unsigned)
{
    return ThroughIndex(&cVorstekEngine::RecallOver);
}

// Unlike RCL, overwrites X and never pushes.
int cVorstekEngine::RecallOver(unsigned nRegister)
{
    m_dX = m_dReg[nRegister];
    return 1;
}
