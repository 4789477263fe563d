#include "console/stop_signal.h"

#include <csignal>

static const int kSignals[] = {SIGINT, SIGTERM};

static volatile std::sig_atomic_t s_nCaught;

static void Note(int nSignal)
{
    s_nCaught = nSignal;
    std::signal(nSignal, SIG_DFL);
}

// A signal that the caller has told us to ignore, as "nohup" does, stays ignored.
cStopSignals::cStopSignals()
{
    s_nCaught = 0;
    for (const int nSignal : kSignals)
        if (std::signal(nSignal, Note) == SIG_IGN)
            std::signal(nSignal, SIG_IGN);
}

cStopSignals::~cStopSignals()
{
    for (const int nSignal : kSignals)
        if (std::signal(nSignal, SIG_DFL) == SIG_IGN)
            std::signal(nSignal, SIG_IGN);
}

int cStopSignals::Caught()
{
    return s_nCaught;
}

int ExitCodeOfSignal(int nSignal)
{
    return 128 + nSignal;
}
