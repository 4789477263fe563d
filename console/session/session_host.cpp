#include "console/session/session_host.h"

#include <chrono>
#include <ostream>
#include <utility>

#include "console/session/terminal.h"
#include "console/state_report.h"
#include "console/stop_signal.h"
#include "toolkit/sleep.h"

// Between two looks at the signals.
static const unsigned kPauseLook = 20;  // milliseconds

cSessionHost::cSessionHost(const cStreams &Streams)
    : m_Streams(Streams), m_pEngine(nullptr), m_bPaused(0)
{
}

eAnswer cSessionHost::Ask(const char *szText, const char *, eButtons nButtons, eIcon)
{
    const eAnswer nAnswer = AnswerOf(nButtons);
    m_Boxes.emplace_back(szText);
    return nAnswer;
}

unsigned cSessionHost::DrainMessages(unsigned)
{
    if (cStopSignals::Caught())
        m_pEngine->HaltProgram();
    return kLinesPerLook;
}

// Only a person needs time to read.
void cSessionHost::Pause(unsigned nMilliseconds)
{
    typedef std::chrono::steady_clock cClock;
    const auto End = cClock::now() + std::chrono::milliseconds(nMilliseconds);
    *m_Streams.m_pOut << DisplayedText(m_pEngine) << std::endl;
    m_bPaused = 1;
    while (IsTerminal() && !cStopSignals::Caught() && cClock::now() < End)
        SleepFor(kPauseLook);
    if (cStopSignals::Caught())
        m_pEngine->HaltProgram();
}

std::vector<std::string> cSessionHost::TakeBoxes()
{
    return std::exchange(m_Boxes, {});
}

int cSessionHost::TakePaused()
{
    return std::exchange(m_bPaused, 0);
}
