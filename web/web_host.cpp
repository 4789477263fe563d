#include "web/web_host.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

#include "console/json.h"
#include "graph/vantor_data_set.h"
#include "resources/calculator_ids.h"
#include "web/worker_calls.h"

// How often a run lets the worker take messages, and with which of these turns it
// publishes: after 24 ms, so that a busy machine still shows 30 pictures a second, but for
// at most a quarter of the time.
static const std::chrono::milliseconds kDrainPeriod(8);
static const std::chrono::milliseconds kPublishPeriod(24);
static const int                       kPublishShare = 4;

// How many lines pass between two looks at the clock: so many that looking costs nothing,
// so few that a drain comes in time. Prime numbers, so that a loop is not seen at the same
// line each time: its display would seem to stand still.
static const unsigned                  s_LinesPerLook[] = {97, 997, 9973};
static const std::chrono::microseconds kShortLook(250);
static const std::chrono::milliseconds kLongLook(2);

static const char *const kCaption = "Vorstek";

// clang-format off
static const struct
{
    unsigned    m_nId;
    const char *m_szName;
} s_Sounds[] =
{
    { IDW_KEY_CLICK,    "key_click" },    { IDW_REFUSAL,  "refusal" },   { IDW_ERROR,     "error" },
    { IDW_HALTED,       "halted" },       { IDW_CLEARED,  "cleared" },   { IDW_SLIDE_ON,  "slide_on" },
    { IDW_PROGRAM_MODE, "program_mode" }, { IDW_RUN_MODE, "run_mode" },  { IDW_SLIDE_OFF, "slide_off" },
};
// clang-format on

// By eButtons, eIcon and eAnswer.
static const char *const s_Buttons[] = {"ok", "okCancel", "yesNoCancel", "retryCancel"};
static const char *const s_Icons[]   = {"none", "error", "question"};
static const char *const s_Answers[] = {"ok", "cancel", "yes", "no", "retry"};

static void Post(const std::string &Json)
{
    PostEvent(Json.data(), Json.size());
}

static std::string ReplyTo(const std::string &Json)
{
    std::string Reply(static_cast<size_t>(Converse(Json.data(), Json.size())), '\0');
    TakeReply(Reply.data());
    return Reply;
}

cWebHost::cWebHost()
    : m_Plot(this), m_bListingShown(0), m_bRegistersShown(0), m_bGraphShown(0), m_PublishTime(0),
      m_nPause(0), m_nPace(0), m_bDraining(0), m_bQuit(0)
{
}

// The only boxes of a line with another answer than OK ask whether to try again when
// memory is short. There is nothing that a user of the page could close meanwhile.
eAnswer cWebHost::Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon)
{
    if (!IsInLine())
    {
        ShowInformed();
        return AskNow(szText, szCaption, nButtons, nIcon);
    }
    m_Informed.push_back({szText, szCaption ? szCaption : kCaption, nIcon});
    return nButtons == bnOk ? anOk : anCancel;
}

void cWebHost::Inform(const char *szText)
{
    m_Informed.push_back({szText, kCaption, icNone});
}

void cWebHost::ShowInformed()
{
    while (!m_Informed.empty())
    {
        const cBox Box = m_Informed.front();
        m_Informed.pop_front();
        AskNow(Box.m_Text.c_str(), Box.m_Caption.c_str(), bnOk, Box.m_nIcon);
    }
}

// An answer that the box does not offer counts as Cancel, or OK where that is all.
eAnswer cWebHost::AskNow(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon)
{
    m_pPublish();
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("type", "ask");
        Object.Text("text", szText);
        Object.Text("caption", szCaption ? szCaption : kCaption);
        Object.Text("buttons", s_Buttons[nButtons]);
        Object.Text("icon", s_Icons[nIcon]);
    }
    static const std::set<eAnswer> s_Offered[] = {
        {anOk}, {anOk, anCancel}, {anYes, anNo, anCancel}, {anRetry, anCancel}};
    const auto *const pFound = std::find(std::begin(s_Answers), std::end(s_Answers), ReplyTo(Json));
    const auto        nAnswer = static_cast<eAnswer>(pFound - s_Answers);
    if (s_Offered[nButtons].count(nAnswer))
        return nAnswer;
    return nButtons == bnOk ? anOk : anCancel;
}

void cWebHost::PostQuit(int)
{
    m_bQuit = 1;
    Post("{\"type\":\"quit\"}");
}

void cWebHost::StartSound(unsigned nId)
{
    for (const auto &Row : s_Sounds)
        if (Row.m_nId == nId)
        {
            std::string Json;
            {
                cJsonList Object(&Json, '{', '}');
                Object.Text("type", "sound");
                Object.Number("id", nId);
                Object.Text("name", Row.m_szName);
            }
            Post(Json);
        }
}

// The display is published with the rest of the state.
void cWebHost::DrawDisplay(const cDisplay &) {}

void cWebHost::BlankDisplay() {}

// The lines until the next look, from how long the last ones have taken. Lines that were
// interrupted were fewer than allowed and say nothing.
unsigned cWebHost::LinesUntilLook(unsigned nDone, cClock::duration Time)
{
    if (Time > kLongLook && m_nPace > 0)
        m_nPace--;
    else if (Time < kShortLook && nDone == s_LinesPerLook[m_nPace] &&
             m_nPace + 1 < std::size(s_LinesPerLook))
        m_nPace++;
    return s_LinesPerLook[m_nPace];
}

unsigned cWebHost::DrainMessages(unsigned nLines)
{
    const unsigned nPause = std::exchange(m_nPause, 0);
    const auto     Now    = cClock::now();
    const unsigned nNext  = LinesUntilLook(nLines, Now - m_LastLook);
    m_LastLook            = Now;
    if (nPause == 0 && m_Informed.empty() && Now - m_LastDrain < kDrainPeriod)
        return nNext;
    m_bDraining = 1;
    ShowInformed();
    PublishInRun();
    WaitInWorker(nPause);
    m_pServe();
    m_bDraining = 0;
    m_LastDrain = m_LastLook = cClock::now();
    return m_bQuit ? 0 : nNext;
}

void cWebHost::PublishInRun()
{
    const auto Begin = cClock::now();
    if (Begin - m_LastPublished <
        std::max<cClock::duration>(kPublishPeriod, kPublishShare * m_PublishTime))
        return;
    m_pPublish();
    m_LastPublished = Begin;
    m_PublishTime   = cClock::now() - Begin;
}

void cWebHost::Pause(unsigned nMilliseconds)
{
    m_pPublish();
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("type", "pause");
        Object.Number("milliseconds", nMilliseconds);
    }
    Post(Json);
    if (IsInLine())
        m_nPause = nMilliseconds;
    else
        WaitInWorker(nMilliseconds);
}

int cWebHost::AskFileName(eFileDialog nDialog, char *szName, size_t nSize)
{
    m_pPublish();
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("type", "askFile");
        Object.Text("dialog", nDialog == fdOpen ? "open" : "save");
        Object.Text("name", szName);
    }
    const std::string Name = ReplyTo(Json);
    if (Name.empty() || Name.size() >= nSize)
        return 0;
    snprintf(szName, nSize, "%s", Name.c_str());
    return 1;
}

void cWebHost::SetStatusText(const char *szText)
{
    m_StatusText = szText;
}

void cWebHost::EnableCommand(unsigned nId, int bEnable)
{
    if (bEnable)
        m_Disabled.erase(nId);
    else
        m_Disabled.insert(nId);
}

void cWebHost::ShowListing(int bShow)
{
    m_bListingShown = bShow;
}

void cWebHost::ShowRegisters(int bShow)
{
    m_bRegistersShown = bShow;
}

void cWebHost::ShowGraph()
{
    m_bGraphShown = 1;
}

// What a program has drawn is shown before it is cleared.
void cWebHost::ClearGraph()
{
    PublishInRun();
    m_Plot.ClearAll();
}

unsigned cWebHost::CountDataSets()
{
    return m_Plot.Count();
}

int cWebHost::AddGraphPoint(unsigned nLine, double dX, double dY)
{
    return m_Plot.AddPoint(nLine, NarrowToFloat(dX), NarrowToFloat(dY));
}
