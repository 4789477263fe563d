// session_target.cpp - the input is a listing, "a.txt", and, after a byte 0xFF, lines
// that are typed in the debugger. What undo takes back, redo restores. Editors are not
// started, nothing pauses, and a timer interrupts long runs as Ctrl-C does.

#include <set>
#include <sstream>

#include "console/debug/debug_session.h"
#include "console/json.h"
#include "console/state_report.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/typed_text.h"

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

static void Type(const std::string &Line, cSeenSession *pSession)
{
    if (StartsEditor(Line))
        return;
    {
        const cRunTimer Timer;
        pSession->Perform(Line);
    }
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
