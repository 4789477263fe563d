#include "console/session/interactive.h"

#include <csignal>
#include <ostream>

#include "console/session/line_source.h"
#include "console/session/screen.h"
#include "console/session/session.h"
#include "console/session/terminal.h"
#include "console/stop_signal.h"
#include "resources/version.h"

static const char kPrompt[] = "> ";

static std::unique_ptr<cLineSource> Lines(const cStreams &Streams, int bRedraws)
{
    std::unique_ptr<cLineSource> pLines;
    if (bRedraws)
        pLines = EditedLines(HistoryFile(), cSession::Words());
    return pLines ? std::move(pLines) : PlainLines(Streams);
}

int RunInteractive(const cStreams &Streams)
{
    const int  bRedraws = CanRedraw();
    const auto pLines   = Lines(Streams, bRedraws);
    cSession   Session(Streams);
    cScreen    Screen(Streams, bRedraws);
    *Streams.m_pOut << "Vorstek " VORSTEK_VERSION ". help says what there is, Ctrl-D ends.\n";
    Screen.Show(&Session);
    while (!Session.HasEnded() && *Streams.m_pOut)
    {
        std::string Line;
        Streams.m_pOut->flush();  // the editing library writes past it
        const eTyped nTyped = pLines->Read(kPrompt, &Line);
        if (nTyped != tyLine)
            *Streams.m_pOut << "\n";
        if (nTyped == tyEnd)
            break;
        if (nTyped == tyInterrupted)
        {
            Screen.Show(&Session);
            continue;
        }
        Session.Perform(Line);
        if (!Session.HasEnded())
            Screen.Answer(&Session, kPrompt + Line);
    }
    const int nSignal = cStopSignals::Caught();
    return nSignal == SIGTERM ? ExitCodeOfSignal(nSignal) : kExitDone;
}
