// graph_calls.cpp - ClearG, SetG and SumG: a program draws.

#include <cmath>

#include "engine/vorstek_engine.h"

int cVorstekEngine::OnClearG(unsigned)
{
    m_pHost->ClearGraph();
    m_nGraphLine = 0;
    return 1;
}

// Selects the data line of X, one of those that exist or the next new one.
int cVorstekEngine::OnSetG(unsigned)
{
    const double dLine = std::trunc(m_dX);
    if (!(dLine >= 1.0 && dLine <= m_pHost->CountDataSets() + 1.0))
        return ShowUserError("Error: bad graph");
    m_nGraphLine = static_cast<uint32_t>(dLine) - 1;
    return 1;
}

// Adds the point (X, Y). The window shows itself even if the point is bad.
int cVorstekEngine::OnSumG(unsigned)
{
    m_pHost->ShowGraph();
    if (m_nGraphLine > m_pHost->CountDataSets() || std::isnan(m_dX) || std::isnan(m_dY))
        return ShowUserError("Error: bad graph");
    if (m_pHost->AddGraphPoint(m_nGraphLine + 1, m_dX, m_dY))
        return 1;
    AskUser("The Vorstek's program must now halt\n"
            "since the cVantor window has reached its\n"
            "memory limit\n",
            bnOk, icNone);
    m_bProgramRunning = 0;
    return 1;
}
