// graph_calls.cpp - ClearG, SetG and SumG, with which a program draws.

#include <cmath>

#include "engine/calculator.h"
#include "engine/instructions/handlers.h"

int OnClearG(cCalculator &c, unsigned)
{
    c.Interrupt();
    c.m_pHost->ClearGraph();
    c.m_nGraphLine = 0;
    return 1;
}

// Selects the data line of X, one of those that exist or the next new one.
int OnSetG(cCalculator &c, unsigned)
{
    const double dLine = std::trunc(c.m_dX);
    if (!(dLine >= 1.0 && dLine <= c.m_pHost->CountDataSets() + 1.0))
        return c.ShowUserError("Error: bad graph");
    c.m_nGraphLine = static_cast<uint32_t>(dLine) - 1;
    return 1;
}

// Adds the point (X, Y). The window is shown even if the point is bad.
int OnSumG(cCalculator &c, unsigned)
{
    c.Interrupt();
    c.m_pHost->ShowGraph();
    if (c.m_nGraphLine > c.m_pHost->CountDataSets() || std::isnan(c.m_dX) || std::isnan(c.m_dY))
        return c.ShowUserError("Error: bad graph");
    if (c.m_pHost->AddGraphPoint(c.m_nGraphLine + 1, c.m_dX, c.m_dY))
        return 1;
    c.AskUser("The Vorstek's program must now halt\n"
              "since the cVantor window has reached its\n"
              "memory limit\n",
              bnOk, icNone);
    c.Halt();
    return 1;
}
