// run_profile.h - how often a run executes each line, and how long that takes.

#ifndef ENGINE_RUN_PROFILE_H
#define ENGINE_RUN_PROFILE_H

#include <chrono>
#include <cstdint>

#include "engine/program_line.h"
#include "engine/run_observer.h"

class cRunProfile : public cRunObserver
{
public:
    cRunProfile();

    // The time since the line before is the line's own.
    void OnRunBegins() override;
    void OnLineDone(unsigned nLine) override;

    uint64_t CountOf(unsigned nLine) const { return m_nCounts[nLine]; }

    // In seconds, without what the clock itself takes; 0 and above. Times of some
    // nanoseconds are no more exact than the clock.
    double TimeOf(unsigned nLine) const;

private:
    typedef std::chrono::steady_clock::duration cTime;

    uint64_t                              m_nCounts[kProgramLines];
    cTime                                 m_Times[kProgramLines];
    std::chrono::steady_clock::time_point m_Last;
    double                                m_dClock;  // seconds that one look at the clock takes
};

#endif
