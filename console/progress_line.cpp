#include "console/progress_line.h"

#include <algorithm>
#include <chrono>
#include <ostream>

static const double   kSecondsBefore  = 1.0;
static const double   kSecondsBetween = 0.2;
static const uint64_t kBytesPerMb     = 1000 * 1000;
static const char     kEraseLine[]    = "\r\033[K";

cProgressLine::cProgressLine(std::ostream *pTerminal, int bShown)
    : m_pTerminal(pTerminal), m_bShown(bShown), m_bOnScreen(0), m_bStarted(0), m_dNext(0.0),
      m_nExpected(0), m_nDone(0)
{
}

void cProgressLine::Begin()
{
    m_nDone = 0;
    if (!m_bStarted)
        m_dNext = Seconds() + kSecondsBefore;
    m_bStarted = 1;
}

void cProgressLine::Advance(uint64_t nBytes)
{
    m_nDone += nBytes;
    if (!m_bShown || Seconds() < m_dNext)
        return;
    m_dNext     = Seconds() + kSecondsBetween;
    m_bOnScreen = 1;
    *m_pTerminal << kEraseLine << Text() << std::flush;
}

void cProgressLine::End()
{
    if (m_bOnScreen)
        *m_pTerminal << kEraseLine << std::flush;
    m_bOnScreen = 0;
}

double cProgressLine::Seconds() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

std::string cProgressLine::Text() const
{
    if (m_nExpected == 0)
        return "reading: " + std::to_string(m_nDone / kBytesPerMb) + " MB";
    const uint64_t nDone = std::min(m_nDone, m_nExpected);
    return "reading: " + std::to_string(100 * nDone / m_nExpected) + " %";
}
