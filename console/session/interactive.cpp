#include "console/session/interactive.h"

#include <csignal>
#include <istream>
#include <ostream>

#include "console/session/line_source.h"
#include "console/session/screen.h"
#include "console/session/session.h"
#include "console/session/terminal.h"
#include "console/stop_signal.h"
#include "resources/version.h"

static std::unique_ptr<cLineSource> Lines(const cSession &Session, const cStreams &Streams,
                                          int bRedraws, const std::function<void()> &Resumed)
{
    std::unique_ptr<cLineSource> pLines;
    if (bRedraws)
        pLines = EditedLines(HistoryFile(), Session.Words(), Resumed);
    return pLines ? std::move(pLines) : PlainLines(Streams);
}

int RunInteractive(const cStreams &Streams)
{
    cSession Session(Streams);
    return RunSession(&Session, Streams);
}

int RunSession(cSession *pSession, const cStreams &Streams)
{
    const int         bTerminal = IsTerminal();
    const int         bRedraws  = CanRedraw();
    const std::string Prompt    = bTerminal ? pSession->Prompt() : "";
    cScreen           Screen(Streams, bRedraws);
    const auto        pLines  = Lines(*pSession, Streams, bRedraws, [&] {
        Screen.Show(pSession);
        Streams.m_pOut->flush();
    });
    int               bFailed = 0;
    if (bTerminal)
        *Streams.m_pOut << "Vorstek " VORSTEK_VERSION ". help says what there is, Ctrl-D ends.\n";
    Screen.Show(pSession);
    while (!pSession->HasEnded() && *Streams.m_pOut)
    {
        std::string Line;
        Streams.m_pOut->flush();  // the editing library writes past it
        const eTyped nTyped = pLines->Read(Prompt, &Line);
        if (nTyped != tyLine && bTerminal)
            *Streams.m_pOut << "\n";
        if (nTyped == tyEnd)
            break;
        if (nTyped == tyInterrupted)
        {
            Screen.Show(pSession);
            continue;
        }
        pSession->Perform(Line);
        bFailed = bFailed || !pSession->Error().empty();
        if (!pSession->HasEnded())
            Screen.Answer(pSession, Prompt + Line);
    }
    const int nSignal = cStopSignals::Caught();
    if (nSignal == SIGTERM)
        return ExitCodeOfSignal(nSignal);
    if (Streams.m_pIn->bad())
        return ReportUsage(Streams, "cannot read standard input");
    return bFailed && !bTerminal ? kExitError : kExitDone;
}
