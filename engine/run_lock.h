// run_lock.h - the menu commands that a run locks.

#ifndef ENGINE_RUN_LOCK_H
#define ENGINE_RUN_LOCK_H

#include <algorithm>
#include <iterator>

#include "resources/calculator_ids.h"

// The engine disables these for the duration of a run, through the host's
// EnableCommand().
inline constexpr unsigned kLockedInRun[] = {IDM_NEW, IDM_OPEN, IDM_EXIT, IDM_OPTIONS};

constexpr int IsLockedInRun(unsigned nId)
{
    return std::find(std::begin(kLockedInRun), std::end(kLockedInRun), nId) !=
           std::end(kLockedInRun);
}

#endif
