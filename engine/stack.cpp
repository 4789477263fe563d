// stack.cpp - movements of the stack, how operations end, and the
// instructions that only move numbers. A level's text is made from its number
// when somebody looks.

#include "engine/vorstek_engine.h"

static const double kPi = 3.141592653589793;

// A NaN passes unchanged.
double cVorstekEngine::Clamp(double dValue)
{
    if (dValue > kLargest)
        return kLargest;
    if (dValue < -kLargest)
        return -kLargest;
    if (dValue > -kSmallest && dValue < kSmallest)
        return 0.0;
    return dValue;
}

// X keeps its value; the caller overwrites it.
void cVorstekEngine::Push()
{
    m_dT = m_dZ;
    m_dZ = m_dY;
    m_dY = m_dX;
}

void cVorstekEngine::Drop()
{
    m_dY = m_dZ;
    m_dZ = m_dT;
}

void cVorstekEngine::PushIfLift()
{
    if (m_bStackLift)
        Push();
}

void cVorstekEngine::EndEntry()
{
    m_szEntry[0]    = 0;
    m_szExponent[0] = 0;
}

// Outside program mode the number keyed so far stays in X, formatted.
void cVorstekEngine::AbandonEntry()
{
    const int bInX = IsXKeyed();
    EndEntry();
    if (bInX)
        ShowX();
}

int cVorstekEngine::EndOperation(eEnding nEnding)
{
    EndEntry();
    ShowX();
    if (nEnding != enKeep)
        m_bStackLift = nEnding == enLift;
    return 1;
}

void cVorstekEngine::SaveLastX(double dFormerX)
{
    m_dLastX = dFormerX;
    TraceLastX();
}

int cVorstekEngine::OnEnter(unsigned)
{
    Push();
    return 1;
}

int cVorstekEngine::OnClearX(unsigned)
{
    m_dX = 0.0;
    return 1;
}

int cVorstekEngine::OnSwapXY(unsigned)
{
    const double dX = m_dX;
    m_dX            = m_dY;
    m_dY            = dX;
    return 1;
}

int cVorstekEngine::OnRollDown(unsigned)
{
    const double dX = m_dX;
    m_dX            = m_dY;
    m_dY            = m_dZ;
    m_dZ            = m_dT;
    m_dT            = dX;
    return 1;
}

int cVorstekEngine::OnLastX(unsigned)
{
    PushIfLift();
    m_dX = m_dLastX;
    return 1;
}

int cVorstekEngine::OnPi(unsigned)
{
    PushIfLift();
    m_dX = kPi;
    return 1;
}

// While a number is keyed in, CHS belongs to number entry.
int cVorstekEngine::OnChangeSign(unsigned)
{
    m_dX = -m_dX;
    return 1;
}
