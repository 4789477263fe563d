#include "console/run_host.h"

#include <algorithm>
#include <ostream>

#include "console/input_file.h"
#include "console/run_options.h"
#include "console/state_report.h"
#include "console/stop_signal.h"
#include "toolkit/sleep.h"

cRunHost::cRunHost(const cRunOptions &Options, const cStreams &Streams)
    : m_Options(Options), m_Streams(Streams), m_pEngine(nullptr), m_bLoading(0), m_bSaving(0),
      m_nBoxes(0), m_nLines(0), m_bHalted(0)
{
}

// While loading, only the first box matters: it ends the command.
eAnswer cRunHost::Ask(const char *szText, const char *, eButtons nButtons, eIcon)
{
    const eAnswer nAnswer = AnswerOf(nButtons);
    if (m_bSaving)
        m_SavingText += std::string(szText) + "\n";
    else if (!m_bLoading || m_nBoxes == 0)
        *m_Streams.m_pErr << szText << "\n";
    m_nBoxes++;
    return nAnswer;
}

unsigned cRunHost::DrainMessages(unsigned nLines)
{
    m_nLines += nLines;
    if (cStopSignals::Caught())
        m_pEngine->HaltProgram();
    if (m_Options.m_nMaxLines == 0)
        return kLinesPerLook;
    const uint64_t nLeft = m_Options.m_nMaxLines - m_nLines;
    if (nLeft > 0)
        return static_cast<unsigned>(std::min<uint64_t>(nLeft, kLinesPerLook));
    m_bHalted = 1;
    m_pEngine->HaltProgram();
    return kLinesPerLook;
}

// Where the final state is JSON, or the trace is printed, standard output is theirs.
// A program whose output can no longer be written is halted.
void cRunHost::Pause(unsigned nMilliseconds)
{
    const int           bElsewhere = m_Options.m_bJson || m_Options.m_TraceFile == kStandardOutput;
    std::ostream *const pOut       = bElsewhere ? m_Streams.m_pErr : m_Streams.m_pOut;
    *pOut << DisplayedText(m_pEngine) << "\n";
    if (m_Options.m_bRealtime)
        pOut->flush();
    if (!*m_Streams.m_pOut)
        m_pEngine->HaltProgram();
    else if (m_Options.m_bRealtime)
        SleepFor(nMilliseconds);
}

int cRunHost::Load(const std::string &Listing)
{
    m_bLoading        = 1;
    const int bLoaded = m_pEngine->LoadListing(Listing.data(), Listing.size());
    m_bLoading        = 0;
    return bLoaded && m_nBoxes == 0;
}
