// statistics.cpp - sums over points (X, Y) in the registers .0 to .5, and what
// is worked out from them.

#include <cmath>

#include "engine/vorstek_engine.h"

// Adds (dSign 1) or removes (dSign -1) the point; nothing keeps n from going
// negative. Of the register lines that change, that of n stays selected: LASTx
// has changed before.
int cVorstekEngine::AddPoint(double dSign)
{
    m_dReg[kRegisterN] += dSign;
    m_dReg[kRegisterSumX] += dSign * m_dX;
    m_dReg[kRegisterSumX2] += dSign * (m_dX * m_dX);
    m_dReg[kRegisterSumY] += dSign * m_dY;
    m_dReg[kRegisterSumY2] += dSign * (m_dY * m_dY);
    m_dReg[kRegisterSumXY] += dSign * (m_dX * m_dY);
    for (unsigned nRegister = kRegisterN; nRegister <= kRegisterSumXY; nRegister++)
        SetRegister(nRegister, m_dReg[nRegister]);
    m_nSelectRegister = kRegisterN;
    m_dX              = m_dReg[kRegisterN];
    return 1;
}

int cVorstekEngine::OnSumPlus(unsigned)
{
    return AddPoint(1.0);
}

int cVorstekEngine::OnSumMinus(unsigned)
{
    return AddPoint(-1.0);
}

// Multiplies by the reciprocal of n, on purpose, where division would round
// once less.
int cVorstekEngine::OnMean(unsigned)
{
    const double dN = m_dReg[kRegisterN];
    if (dN == 0.0)
        return ShowUserError("Error: npts = 0");
    const double dReciprocal = 1.0 / dN;
    m_dX                     = dReciprocal * m_dReg[kRegisterSumX];
    m_dY                     = dReciprocal * m_dReg[kRegisterSumY];
    return 1;
}

static double SampleDeviation(double dN, double dSum, double dSquares)
{
    const double dReciprocal = 1.0 / dN;
    return std::sqrt((dSquares - dReciprocal * dSum * dSum) * (1.0 / (dN - 1.0)));
}

int cVorstekEngine::OnStdDev(unsigned)
{
    const double dN = m_dReg[kRegisterN];
    if (dN <= 1.0)
        return ShowUserError("Error: npts <= 1");
    m_dX = SampleDeviation(dN, m_dReg[kRegisterSumX], m_dReg[kRegisterSumX2]);
    m_dY = SampleDeviation(dN, m_dReg[kRegisterSumY], m_dReg[kRegisterSumY2]);
    return 1;
}

// X is the slope, Y the intercept of the least-squares line.
int cVorstekEngine::OnLinearRegression(unsigned)
{
    const double dN    = m_dReg[kRegisterN];
    const double dSumX = m_dReg[kRegisterSumX];
    const double dSumY = m_dReg[kRegisterSumY];
    if (dN == 0.0)
        return ShowUserError("Error: npts = 0");
    if (dN * m_dReg[kRegisterSumX2] == dSumX * dSumX)
        return ShowUserError("Error: bad summation");
    const double dSlope = (dN * m_dReg[kRegisterSumXY] - dSumX * dSumY) /
                          (dN * m_dReg[kRegisterSumX2] - dSumX * dSumX);
    m_dX = dSlope;
    m_dY = (dSumY - dSlope * dSumX) / dN;
    return 1;
}

int cVorstekEngine::OnRecallSums(unsigned)
{
    m_dX = m_dReg[kRegisterSumX];
    m_dY = m_dReg[kRegisterSumY];
    ReportUnformattable(m_dY);
    return 1;
}

int cVorstekEngine::OnClearSums(unsigned)
{
    for (unsigned nRegister = kRegisterN; nRegister <= kRegisterSumXY; nRegister++)
        SetRegister(nRegister, 0.0);
    return 1;
}

int cVorstekEngine::OnClearRegisters(unsigned)
{
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        SetRegister(nRegister, 0.0);
    return 1;
}
