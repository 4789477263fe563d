// session_target.cpp - the input is a listing, "a.txt", and, after a byte 0xFF, lines
// that are typed in the debugger. What undo takes back, redo restores. Editors are not
// started, nothing pauses, and a timer interrupts long runs as Ctrl-C does.

#include <algorithm>
#include <csignal>
#include <set>
#include <sstream>
#include <sys/time.h>

#include "console/arguments.h"
#include "console/debug/debug_session.h"
#include "console/json.h"
#include "console/state_report.h"
#include "tests/fuzz/fuzz_target.h"

namespace
{

class cSeenSession : public cDebugSession
{
public:
    using cDebugSession::cDebugSession;

    // The present state as JSON.
    std::string Seen();

    void Remember() { m_Seen.insert(Seen()); }
    int  HasSeen(const std::string &State) const { return m_Seen.contains(State); }

    std::set<std::string> m_Seen;
};

}  // namespace

static const int    kRunMicroseconds = 3000;  // of a line's runs
static const size_t kMostTypedLines  = 60;

std::string cSeenSession::Seen()
{
    std::string Json;
    m_Calculator.m_Engine.RefreshViews();
    {
        cJsonList Object(&Json, '{', '}');
        ReportState(&m_Calculator, m_Host, &Object);
    }
    // That a graph's window has been asked for is not undone.
    const size_t nShown = Json.find("\"graph_shown\"");
    Json.erase(nShown, Json.find(',', nShown) + 1 - nShown);
    return Json;
}

// While the session performs a line, it has a handler of its own for Ctrl-C; else the
// signal would end the process.
static void OnTimer(int)
{
    struct sigaction Present;
    if (sigaction(SIGINT, nullptr, &Present) == 0 && Present.sa_handler != SIG_DFL)
        raise(SIGINT);
}

static void SetTimer(int nMicroseconds)
{
    std::signal(SIGVTALRM, OnTimer);
    const itimerval Once = {{0, 0}, {0, nMicroseconds}};
    setitimer(ITIMER_VIRTUAL, &Once, nullptr);
}

// A pause sleeps for a second where there is a terminal.
static std::string WithoutPauses(std::string_view Text)
{
    static const std::string_view s_Pause = "pause";
    std::string                   Awake(Text);
    const auto                    IsSame = [](char a, char b) { return (a | 0x20) == b; };
    for (auto At = Awake.begin(); At != Awake.end();)
    {
        At = std::search(At, Awake.end(), s_Pause.begin(), s_Pause.end(), IsSame);
        if (At != Awake.end())
            *At++ = '-';
    }
    return Awake;
}

static void Type(const std::string &Line, cSeenSession *pSession)
{
    const std::vector<std::string> Words = SplitWords(Line);
    if (!Words.empty() && Words[0] == "edit")
        return;
    SetTimer(kRunMicroseconds);
    pSession->Perform(Line);
    SetTimer(0);
    pSession->Rows(24);
    pSession->PlainRows();
    pSession->News();
}

// Ten steps of undo lead to states that there have been; redo leads back.
static void CheckUndo(cSeenSession *pSession)
{
    std::vector<std::string> Undone = {pSession->Seen()};
    for (int nStep = 0; nStep < 10; nStep++)
    {
        Type("undo", pSession);
        if (!pSession->Error().empty())
            break;
        Undone.push_back(pSession->Seen());
        FUZZ_CHECK(pSession->HasSeen(Undone.back()));
    }
    for (; Undone.size() > 1; Undone.pop_back())
    {
        FUZZ_CHECK_TEXT(pSession->Seen(), Undone.back());
        Type("redo", pSession);
        FUZZ_CHECK_TEXT(pSession->Error(), "");
    }
    FUZZ_CHECK_TEXT(pSession->Seen(), Undone.back());
}

void FuzzSession(std::string_view Input)
{
    const cTwoParts      Parts = DivideInput(Input);
    const cScratchFolder Scratch;
    std::istringstream   In;
    std::istringstream   Lines(WithoutPauses(WithoutSlashes(Parts.m_Rest)));
    std::ostringstream   Out;
    std::ostringstream   Err;
    cSeenSession         Session({&In, &Out, &Err});
    WriteScratch("a.txt", WithoutPauses(Parts.m_Text));
    WriteScratch("b.txt", "LBL 1\n7\nSumG\nGTO 1\n");  // a program to load instead
    if (!Session.Load("a.txt"))
    {
        FUZZ_CHECK(!Session.Error().empty());
        return;
    }

    std::string Line;
    Session.Remember();
    for (size_t n = 0; n < kMostTypedLines && !Session.HasEnded() && getline(Lines, Line); n++)
    {
        Type(Line, &Session);
        Session.Remember();
    }
    CheckUndo(&Session);
}
