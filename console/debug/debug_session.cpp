#include "console/debug/debug_session.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <ostream>
#include <sstream>

#include "console/arguments.h"
#include "console/commands.h"
#include "console/input_text.h"
#include "console/session/session_commands.h"
#include "console/state_report.h"
#include "engine/listing_words.h"
#include "engine/vorstek_state.h"
#include "toolkit/spelling.h"

template <void (cDebugSession::*pOperation)(const std::string &)>
static const auto Debug = PerformIn<cDebugSession, pOperation>;

// clang-format off
static const cSessionCommand s_DebugCommands[] =
{
    { "break",    "[PLACE]",  "stop before a line: 12, LBL 3, 12 if x<0; alone, print them", 0, Debug<&cDebugSession::OnBreak> },
    { "delete",   "[PLACE]",  "forget a breakpoint, or all",                  0, Debug<&cDebugSession::OnDelete> },
    { "watch",    "[NAME]",   "stop when x to t, lastx, i or r5 changes; alone, print them", 0, Debug<&cDebugSession::OnWatch> },
    { "unwatch",  "[NAME]",   "forget a watched number, or all",              0, Debug<&cDebugSession::OnUnwatch> },
    { "step",     "[N]",      "run one line, or N",                           0, Debug<&cDebugSession::OnStep> },
    { "next",     "[N]",      "run one line, or N; a GSB with all it calls",  0, Debug<&cDebugSession::OnNext> },
    { "until",    "PLACE",    "run to a line or a label",                     0, Debug<&cDebugSession::OnUntil> },
    { "finish",   "",         "run to the end of the subroutine",             0, Debug<&cDebugSession::OnFinish> },
    { "continue", "",         "run on; Ctrl-C halts as R/S does",             0, Debug<&cDebugSession::OnContinue> },
    { "back",     "[N]",      "take back the last line that ran, or N lines", 0, Debug<&cDebugSession::OnBack> },
    { "where",    "",         "print the calls that are open",                0, Debug<&cDebugSession::OnWhere> },
    { "counts",   "",         "print the program with how often each line ran", 0, Debug<&cDebugSession::OnCounts> },
};
// clang-format on

// Those that are beside the session's own come first, as its help has them.
std::vector<cHelpRow> DebugHelpRows()
{
    std::vector<cHelpRow> Rows;
    for (const auto Table : {std::span<const cSessionCommand>(s_DebugCommands), SessionCommands()})
        for (const cSessionCommand &Row : Table)
            Rows.push_back({Row.m_szName, Row.m_szArgument, Row.m_szSummary});
    return Rows;
}

cDebugSession::cDebugSession(const cStreams &Streams)
    : cSession(Streams), m_Debugger(&m_Calculator, &m_Host), m_bMoved(0), m_bTravelled(0),
      m_nLine(0)
{
}

int cDebugSession::Load(const std::string &Name)
{
    std::string Listing;
    if (!ReadInput(Name, m_Streams, &Listing) || !LoadAs(Name, Listing))
        return 0;
    BeginHistory();
    return 1;
}

std::vector<std::span<const cSessionCommand>> cDebugSession::Commands() const
{
    return {s_DebugCommands, SessionCommands()};
}

// --- what is shown

static const size_t kRowsOfProgram = 5;

// "> 12 STO 5", "* 12 STO 5" at a breakpoint.
std::string cDebugSession::ProgramRow(unsigned nLine)
{
    const cVorstekState &Is = State();
    return MarkOf(nLine, Is) + BoxLine(m_Calculator.m_Listing, Is.m_Program[nLine].m_nListingLine);
}

std::vector<std::string> cDebugSession::WatchRows()
{
    std::vector<std::string> Rows;
    const cVorstekState     &Is = State();
    for (const cQuantity &Quantity : m_Debugger.Watched())
        Rows.push_back(Quantity.Name() + " = " + NumberText(Quantity.In(Is)));
    return Rows;
}

// The current line with two on either side, fewer where there is little room, and below
// them what is watched, which goes first.
std::vector<std::string> cDebugSession::Rows(size_t nMost)
{
    std::vector<std::string> Watched  = WatchRows();
    const unsigned           nCurrent = State().m_nCurLine;
    const size_t             nRoom    = nMost > Watched.size() ? nMost - Watched.size() : 0;
    const auto     nLines = static_cast<unsigned>(std::clamp<size_t>(nRoom, 1, kRowsOfProgram));
    const unsigned nAbove = (nLines - 1) / 2;
    const unsigned nFirst =
        std::min(nCurrent > nAbove ? nCurrent - nAbove : 0, kLastLine + 1 - nLines);
    std::vector<std::string> Rows;
    for (unsigned nLine = nFirst; nLine < nFirst + nLines; nLine++)
        Rows.push_back(ProgramRow(nLine));
    if (nMost > nLines)
        Watched.resize(std::min(Watched.size(), nMost - nLines));
    else
        Watched.clear();
    Rows.insert(Rows.end(), Watched.begin(), Watched.end());
    return Rows;
}

std::vector<std::string> cDebugSession::PlainRows()
{
    if (!m_bMoved)
        return {};
    return {ProgramRow(State().m_nCurLine)};
}

std::string cDebugSession::MarkOf(unsigned nLine, const cVorstekState &State) const
{
    const auto &Breakpoints = m_Debugger.Breakpoints();
    const int   bBreak =
        nLine <= kLastLine && std::any_of(Breakpoints.begin(), Breakpoints.end(),
                                          [nLine, &State](const cBreakpoint &Breakpoint) {
                                              return Breakpoint.m_Place.IsAt(nLine, State);
                                          });
    return std::string(nLine == State.m_nCurLine ? ">" : " ") + (bBreak ? "*" : " ");
}

// --- what a line has brought about

// An empty line repeats a step.
std::string cDebugSession::Meant(const std::string &Typed)
{
    const std::vector<std::string> Words = SplitWords(Typed);
    if (Words.empty())
        return m_Repeated;
    const int bStep = EqualIgnoringCase(Words[0], "step") || EqualIgnoringCase(Words[0], "next") ||
                      EqualIgnoringCase(Words[0], "back");
    m_Repeated = bStep ? Typed : "";
    return Typed;
}

void cDebugSession::OnProgramChanged()
{
    m_Debugger.ForgetRuns();
}

unsigned cDebugSession::OnPerformed()
{
    std::istringstream Reasons(m_Debugger.TakeReason());
    for (std::string Reason; std::getline(Reasons, Reason);)
        m_News.push_back(Reason);
    const unsigned nLine = State().m_nCurLine;
    m_bMoved             = m_Debugger.TakeMoved() || (m_bTravelled && nLine != m_nLine);
    m_bTravelled         = 0;
    m_nLine              = nLine;
    return static_cast<unsigned>(m_Debugger.IsSuspended());
}

void cDebugSession::OnTravelled(unsigned nNote)
{
    m_Debugger.SetSuspended(nNote != 0);
    m_bTravelled = 1;
}

// --- where to stop

void cDebugSession::PrintBreakpoints() const
{
    for (const cBreakpoint &Breakpoint : m_Debugger.Breakpoints())
        *m_Streams.m_pOut << "break " << Breakpoint.Text() << "\n";
}

void cDebugSession::OnBreak(const std::string &Argument)
{
    m_bAnswers            = 0;
    const auto Breakpoint = cBreakpoint::Parse(Argument);
    m_bPrinted            = Argument.empty();
    if (Argument.empty())
        PrintBreakpoints();
    else if (Breakpoint)
        m_Debugger.AddBreakpoint(*Breakpoint);
    else
        m_Error = "break: " + cBreakpoint::WhyNot(Argument);
}

void cDebugSession::OnDelete(const std::string &Argument)
{
    m_bAnswers            = 0;
    const auto Breakpoint = cBreakpoint::Parse(Argument);  // as break prints them
    if (Argument.empty())
        m_Debugger.DeleteBreakpoints();
    else if (!Breakpoint || !m_Debugger.DeleteBreakpoint(Breakpoint->m_Place))
        m_Error = "delete: there is no breakpoint '" + Argument + "'";
}

void cDebugSession::OnWatch(const std::string &Argument)
{
    m_bAnswers          = 0;
    const auto Quantity = cQuantity::Parse(Argument);
    m_bPrinted          = Argument.empty();
    if (Quantity)
        m_Debugger.Watch(*Quantity);
    else if (!Argument.empty())
        m_Error = "watch: '" + Argument + "' is none of x, y, z, t, lastx, i, r0 to r29";
    else
        for (const std::string &Row : WatchRows())
            *m_Streams.m_pOut << Row << "\n";
}

void cDebugSession::OnUnwatch(const std::string &Argument)
{
    m_bAnswers          = 0;
    const auto Quantity = cQuantity::Parse(Argument);
    if (Argument.empty())
        m_Debugger.UnwatchAll();
    else if (!Quantity || !m_Debugger.Unwatch(*Quantity))
        m_Error = "unwatch: '" + Argument + "' is not watched";
}

// --- running

// "1/x: Error: divide by 0"
void cDebugSession::Ended(int bDone)
{
    char szStep[kStepText];
    if (bDone)
        return;
    PrintStep(State().m_Program[State().m_nCurLine], szStep);
    m_Error = szStep + (": " + DisplayedText(&m_Calculator.m_Engine));
}

void cDebugSession::OnStep(const std::string &Argument)
{
    const uint64_t nLines = CountFrom(Argument);
    if (nLines == 0)
        m_Error = "step: how many lines?";
    else
        Ended(m_Debugger.Step(nLines));
}

void cDebugSession::OnNext(const std::string &Argument)
{
    const uint64_t nLines = CountFrom(Argument);
    if (nLines == 0)
        m_Error = "next: how many lines?";
    else
        Ended(m_Debugger.StepOver(nLines));
}

void cDebugSession::OnUntil(const std::string &Argument)
{
    const auto Place = cPlace::Parse(Argument);
    if (!Place)
        m_Error = "until: to which place, such as 12 or LBL 3?";
    else
        Ended(m_Debugger.RunTo(*Place));
}

void cDebugSession::OnFinish(const std::string &)
{
    if (!m_Debugger.IsSuspended() || State().m_nReturnDepth == 0)
        m_Error = "finish: no call is open";
    else
        Ended(m_Debugger.Finish());
}

void cDebugSession::OnContinue(const std::string &)
{
    Ended(m_Debugger.Continue());
}

void cDebugSession::OnBack(const std::string &Argument)
{
    const uint64_t nLines = CountFrom(Argument);
    if (nLines == 0)
    {
        m_Error = "back: how many lines?";
        return;
    }
    const uint64_t nDone = m_Debugger.Back(nLines);
    if (nDone == 0)
        m_Error = "back: no line that ran is left";
    else if (nDone < nLines)
        m_Error = "back: only " + std::to_string(nDone) + " were left";
}

// --- what there is

void cDebugSession::OnWhere(const std::string &)
{
    const cVorstekState &Is    = State();
    const unsigned       nOpen = m_Debugger.IsSuspended() ? Is.m_nReturnDepth : 0;
    *m_Streams.m_pOut << ProgramRow(Is.m_nCurLine) << "\n";
    for (unsigned nCall = nOpen; nCall > 0; nCall--)
    {
        const unsigned nReturn = Is.m_nReturnAddr[nCall - 1];
        *m_Streams.m_pOut << "called by "
                          << TrimBlanks(ProgramRow(nReturn > 1 ? nReturn - 1 : kLastLine)) << "\n";
    }
    m_bPrinted = 1;
}

void cDebugSession::OnCounts(const std::string &)
{
    unsigned nLast = kLastLine;
    while (nLast > 0 && m_Debugger.CountOf(nLast) == 0)
        nLast--;
    for (unsigned nLine = 1; nLine <= nLast; nLine++)
    {
        char szCount[24];
        snprintf(szCount, sizeof szCount, "%10" PRIu64 "  ", m_Debugger.CountOf(nLine));
        *m_Streams.m_pOut << szCount << ProgramRow(nLine) << "\n";
    }
    m_bPrinted = 1;
}
