#include "console/stop_signal.h"

#include <csignal>

static const int kSignals[] = {SIGINT, SIGTERM};

static volatile std::sig_atomic_t s_nCaught;
static volatile std::sig_atomic_t s_nSecond;
static int                        s_bNoting;

static void Note(int nSignal)
{
    if (s_nCaught != SIGTERM)
        s_nCaught = nSignal;
    std::signal(nSignal, s_nSecond == ssNoted ? Note : SIG_DFL);
}

// A signal that the caller has told us to ignore, as "nohup" does, stays ignored.
static void Handle(void (*pHandler)(int))
{
    for (const int nSignal : kSignals)
        if (std::signal(nSignal, pHandler) == SIG_IGN)
            std::signal(nSignal, SIG_IGN);
}

cStopSignals::cStopSignals(eSecondSignal nSecond) : m_bOutermost(!s_bNoting)
{
    if (!m_bOutermost)
        return;
    s_bNoting = 1;
    s_nCaught = 0;
    s_nSecond = nSecond;
    Handle(Note);
}

cStopSignals::~cStopSignals()
{
    if (!m_bOutermost)
        return;
    Handle(SIG_DFL);
    s_bNoting = 0;
}

int cStopSignals::Caught()
{
    return s_nCaught;
}

void cStopSignals::ForgetInterrupt()
{
    if (s_nCaught == SIGINT)
        s_nCaught = 0;
}

int ExitCodeOfSignal(int nSignal)
{
    return 128 + nSignal;
}
