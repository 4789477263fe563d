#include "console/session/session_host.h"

#include <chrono>
#include <new>
#include <ostream>
#include <thread>
#include <utility>

#include "console/state_report.h"
#include "console/stop_signal.h"

cSessionHost::cSessionHost(const cStreams &Streams)
    : m_Streams(Streams), m_pEngine(nullptr), m_bPaused(0)
{
}

eAnswer cSessionHost::Ask(const char *szText, const char *, eButtons nButtons, eIcon)
{
    if (nButtons == bnRetryCancel)  // whether to try again when memory is short
        throw std::bad_alloc();
    (m_Boxes += szText) += "\n";
    return nButtons == bnOk ? anOk : anCancel;
}

unsigned cSessionHost::DrainMessages(unsigned)
{
    if (cStopSignals::Caught())
        m_pEngine->HaltProgram();
    return kLinesPerLook;
}

void cSessionHost::Pause(unsigned nMilliseconds)
{
    *m_Streams.m_pOut << DisplayedText(m_pEngine) << std::endl;
    std::this_thread::sleep_for(std::chrono::milliseconds(nMilliseconds));
    m_bPaused = 1;
}

std::string cSessionHost::TakeBoxes()
{
    return std::exchange(m_Boxes, "");
}

int cSessionHost::TakePaused()
{
    return std::exchange(m_bPaused, 0);
}
