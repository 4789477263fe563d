#include "console/session/session.h"

#include <algorithm>
#include <csignal>

#include "console/session/session_commands.h"
#include "console/session/terminal.h"
#include "console/stack_text.h"
#include "console/state_report.h"
#include "console/stop_signal.h"
#include "engine/vorstek_state.h"
#include "listing/findings.h"
#include "toolkit/utf8.h"

cSession::cSession(const cStreams &Streams)
    : m_Streams(Streams), m_Host(Streams), m_Calculator(&m_Host), m_bPrinted(0), m_bPaused(0),
      m_bAnswers(0), m_Lines(&m_Calculator.m_Engine), m_History(&m_Calculator, &m_Host), m_bEnded(0)
{
    m_Host.SetEngine(&m_Calculator.m_Engine);
}

const cVorstekState &cSession::State()
{
    m_Calculator.m_Engine.RefreshViews();
    return m_Calculator.m_Engine.State();
}

// Of a line with an error, what was done before it stays done.
void cSession::Calculate(const std::string &Line)
{
    cTypedError Error;
    if (!m_Lines.Perform(Line, &Error))
    {
        const cSessionCommand *const pLike = FindCommandLike(Error.m_Word);
        if (Error.m_bUnknown && FindCommand(Error.m_Word))
            Error.m_Text = "a command is alone in its line";
        else if (Error.m_bUnknown && pLike)
            Error.m_Text = "neither an instruction nor a number, did you mean " +
                           std::string(pLike->m_szName) + "?";
        m_Error = Error.Message();
    }
    m_bAnswers = m_Lines.CountSteps() > 0;
}

// A comment is no argument.
void cSession::PerformCommand(const cSessionCommand &Row, const std::string &Argument)
{
    if (*Row.m_szArgument || Argument.empty() || Argument[0] == ';')
        return Row.m_pPerform(this, Argument);
    m_Error    = std::string(Row.m_szName) + " takes no argument";
    m_bAnswers = 0;
}

// Arguments may be anything that was typed: control characters would reach the terminal.
std::string Readable(std::string_view Text)
{
    std::string Readable;
    while (!Text.empty())
    {
        const std::string_view Character = Text.substr(0, std::max<size_t>(Utf8Length(Text), 1));
        const std::string      Quoted    = QuotedWord(Character);
        Readable += Character == "\n" ? "\n" : Quoted.substr(1, Quoted.size() - 2);
        Text.remove_prefix(Character.size());
    }
    return Readable;
}

void cSession::Perform(const std::string &Typed)
{
    const std::string  Line = Meant(Typed);
    const cStopSignals Signals(IsTerminal() ? ssNoted : ssEnds);
    m_bPrinted = 0;
    m_News.clear();
    m_bAnswers = 1;
    m_Error.clear();

    const size_t      nName    = Line.find_first_not_of(" \t");
    const size_t      nEnd     = Line.find_first_of(" \t", nName);
    const std::string Name     = nName == std::string::npos ? "" : Line.substr(nName, nEnd - nName);
    const size_t      nRest    = Line.find_first_not_of(" \t", nEnd);
    std::string       Argument = nRest == std::string::npos ? "" : Line.substr(nRest);
    Argument.resize(Argument.find_last_not_of(" \t\r") + 1);

    const cSessionCommand *const pCommand = FindCommand(Name);
    if (pCommand)
        PerformCommand(*pCommand, Argument);
    else
        Calculate(Line);

    for (const std::string &Box : m_Host.TakeBoxes())
        m_Error += (m_Error.empty() ? "" : "\n") + Box;
    m_Error              = Readable(m_Error);
    m_bPaused            = m_Host.TakePaused();
    m_bEnded             = m_bEnded || cStopSignals::Caught() == SIGTERM;
    const unsigned nNote = OnPerformed();
    for (std::string &Row : m_News)
        Row = Readable(Row);
    if (!pCommand || !pCommand->m_bTravels)
        m_History.Keep(nNote);
}

std::string cSession::XText()
{
    return AnswerText(State().m_szX);
}

std::string cSession::LastXText()
{
    State();
    const std::string Line = BoxLine(m_Calculator.m_Registers, kRegisters);  // "LASTx   = +3.00"
    return AnswerText(Line.c_str() + Line.find('=') + 2);
}

std::string cSession::ModesText()
{
    return AngleText(State()) + "  " + FormatText(State());
}
