// statistics.cpp - sums over points (X, Y) in the registers .0 to .5, and what
// is computed from them.

#include "engine/calculator.h"
#include "engine/elementary/elementary.h"
#include "engine/instructions/handlers.h"

// Adds (dSign 1) or removes (dSign -1) the point; nothing keeps n from going
// negative. Of the register lines that change, that of n stays selected: LASTx
// has changed before.
static int AddPoint(cCalculator &c, double dSign)
{
    c.m_dReg[kRegisterN] += dSign;
    c.m_dReg[kRegisterSumX] += dSign * c.m_dX;
    c.m_dReg[kRegisterSumX2] += dSign * (c.m_dX * c.m_dX);
    c.m_dReg[kRegisterSumY] += dSign * c.m_dY;
    c.m_dReg[kRegisterSumY2] += dSign * (c.m_dY * c.m_dY);
    c.m_dReg[kRegisterSumXY] += dSign * (c.m_dX * c.m_dY);
    for (unsigned nRegister = kRegisterN; nRegister <= kRegisterSumXY; nRegister++)
        c.SetRegister(nRegister, c.m_dReg[nRegister]);
    c.SelectRegister(kRegisterN);
    c.m_dX = c.m_dReg[kRegisterN];
    return 1;
}

int OnSumPlus(cCalculator &c, unsigned)
{
    return AddPoint(c, 1.0);
}

int OnSumMinus(cCalculator &c, unsigned)
{
    return AddPoint(c, -1.0);
}

// Multiplies by the reciprocal of n, on purpose, where division would round
// once less.
int OnMean(cCalculator &c, unsigned)
{
    const double dN = c.m_dReg[kRegisterN];
    if (dN == 0.0)
        return c.ShowUserError("Error: npts = 0");
    const double dReciprocal = 1.0 / dN;
    c.m_dX                   = dReciprocal * c.m_dReg[kRegisterSumX];
    c.m_dY                   = dReciprocal * c.m_dReg[kRegisterSumY];
    return 1;
}

static double SampleDeviation(double dN, double dSum, double dSquares)
{
    const double dReciprocal = 1.0 / dN;
    return Sqrt((dSquares - dReciprocal * dSum * dSum) * (1.0 / (dN - 1.0)));
}

int OnStdDev(cCalculator &c, unsigned)
{
    const double dN = c.m_dReg[kRegisterN];
    if (dN <= 1.0)
        return c.ShowUserError("Error: npts <= 1");
    c.m_dX = SampleDeviation(dN, c.m_dReg[kRegisterSumX], c.m_dReg[kRegisterSumX2]);
    c.m_dY = SampleDeviation(dN, c.m_dReg[kRegisterSumY], c.m_dReg[kRegisterSumY2]);
    return 1;
}

// X is the slope, Y the intercept of the least-squares line.
int OnLinearRegression(cCalculator &c, unsigned)
{
    const double dN    = c.m_dReg[kRegisterN];
    const double dSumX = c.m_dReg[kRegisterSumX];
    const double dSumY = c.m_dReg[kRegisterSumY];
    if (dN == 0.0)
        return c.ShowUserError("Error: npts = 0");
    if (dN * c.m_dReg[kRegisterSumX2] == dSumX * dSumX)
        return c.ShowUserError("Error: bad summation");
    const double dSlope = (dN * c.m_dReg[kRegisterSumXY] - dSumX * dSumY) /
                          (dN * c.m_dReg[kRegisterSumX2] - dSumX * dSumX);
    c.m_dX = dSlope;
    c.m_dY = (dSumY - dSlope * dSumX) / dN;
    return 1;
}

int OnRecallSums(cCalculator &c, unsigned)
{
    c.m_dX = c.m_dReg[kRegisterSumX];
    c.m_dY = c.m_dReg[kRegisterSumY];
    c.ReportUnformattable(c.m_dY);
    return 1;
}

int OnClearSums(cCalculator &c, unsigned)
{
    for (unsigned nRegister = kRegisterN; nRegister <= kRegisterSumXY; nRegister++)
        c.SetRegister(nRegister, 0.0);
    return 1;
}

int OnClearRegisters(cCalculator &c, unsigned)
{
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        c.SetRegister(nRegister, 0.0);
    return 1;
}
