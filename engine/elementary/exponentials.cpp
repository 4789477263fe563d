// exponentials.cpp - powers of e and of 10.

#include <limits>

#include "engine/elementary/elementary.h"
#include "engine/elementary/exponential_step.h"
#include "engine/elementary/wide_functions.h"

static const double kInfinity = std::numeric_limits<double>::infinity();

// Powers of e from 2^-54 to 2^9, and of 10 from 2^-56 to 2^8, take the fast way:
// the results are normal, and what is smaller leaves 1.
static int IsBetween(double dValue, int nFirstExponent, int nEndExponent)
{
    const unsigned nField = static_cast<unsigned>(ExponentField(dValue));
    return nField - static_cast<unsigned>(kExponentOfOne + nFirstExponent) <
           static_cast<unsigned>(nEndExponent - nFirstExponent);
}

static double RareExp(double dPower)
{
    if (IsNan(dPower))
        return dPower + dPower;
    if (Magnitude(dPower) < 0x1p-54)
        return 1.0 + dPower;
    if (Magnitude(dPower) > 800.0)
        return dPower > 0.0 ? kInfinity : 0.0;
    return RoundToDouble(WideExp(MakeWide(dPower)));
}

// Power = n ln 2/512 + r. kStep1 has 34 bits and n 19, so that the first part of
// r is exact.
double Exp(double dPower)
{
    if (!IsBetween(dPower, -54, 9))
        return RareExp(dPower);
    const double dSteps = NearestInteger(dPower * kStepsPerUnit);
    const double dFirst = dPower - dSteps * kStep1;
    const int    nSteps = static_cast<int>(dSteps);
    const auto   Result = ExpOfRest(nSteps, dFirst, -(dSteps * kStep2));
    double       dResult;
    if (!Rounds(Result, Result.m_dHigh * kExpError, &dResult))
        return RareExp(dPower);
    return Scaled(dResult, nSteps >> kStepsLog2);
}

static double RareExp10(double dPower)
{
    if (IsNan(dPower))
        return dPower + dPower;
    if (Magnitude(dPower) < 0x1p-56)
        return 1.0 + dPower;
    if (Magnitude(dPower) > 400.0)
        return dPower > 0.0 ? kInfinity : 0.0;
    // The one power in the middle between two doubles: 5^23 has 54 bits.
    if (dPower == 23.0)
        return 1e23;
    return RoundToDouble(WideExp(Multiply(MakeWide(dPower), kWideLn10)));
}

// As Exp, with steps of log 2/512 and a rest times ln 10.
double Exp10(double dPower)
{
    if (!IsBetween(dPower, -56, 8))
        return RareExp10(dPower);
    const double dSteps = NearestInteger(dPower * kStepsPerDecade);
    const double dFirst = dPower - dSteps * kDecadeStep1;
    const double dHead  = Leading<26>(dFirst);
    const double dTail  = (dFirst - dHead) - dSteps * kDecadeStep2;
    const int    nSteps = static_cast<int>(dSteps);
    const auto   Result = ExpOfRest(nSteps, dHead * kLn10Part1,
                                    dTail * (kLn10Part1 + kLn10Part2) + dHead * kLn10Part2);
    double       dResult;
    if (!Rounds(Result, Result.m_dHigh * kExpError, &dResult))
        return RareExp10(dPower);
    return Scaled(dResult, nSteps >> kStepsLog2);
}
