#include "engine/run_profile.h"

#include <algorithm>

static double Seconds(std::chrono::steady_clock::duration Time)
{
    return std::chrono::duration<double>(Time).count();
}

// The fastest of some rounds; the others were interrupted.
static double TimeOfClock()
{
    const int kRounds = 20;
    const int kLooks  = 100;
    double    dBest   = 1.0;
    for (int nRound = 0; nRound < kRounds; nRound++)
    {
        const auto Begin = std::chrono::steady_clock::now();
        auto       End   = Begin;
        for (int nLook = 0; nLook < kLooks; nLook++)
            End = std::chrono::steady_clock::now();
        dBest = std::min(dBest, Seconds(End - Begin) / kLooks);
    }
    return dBest;
}

cRunProfile::cRunProfile() : m_nCounts{}, m_Times{}, m_dClock(TimeOfClock()) {}

void cRunProfile::OnRunBegins()
{
    m_Last = std::chrono::steady_clock::now();
}

void cRunProfile::OnLineDone(unsigned nLine)
{
    const auto Now = std::chrono::steady_clock::now();
    m_nCounts[nLine]++;
    m_Times[nLine] += Now - m_Last;
    m_Last = Now;
}

double cRunProfile::TimeOf(unsigned nLine) const
{
    const double dClocks = m_dClock * static_cast<double>(m_nCounts[nLine]);
    return std::max(Seconds(m_Times[nLine]) - dClocks, 0.0);
}
