#include "console/script_host.h"

#include <algorithm>
#include <ostream>
#include <vector>

#include "console/json.h"
#include "console/state_report.h"
#include "engine/key_codes.h"
#include "engine/vorstek_state.h"

static const uint64_t kDefaultLimit = 10000;

cScriptHost::cScriptHost(std::ostream *pOut)
    : m_pEngine(nullptr), m_pOut(pOut), m_nLimit(kDefaultLimit), m_nReportedRun(0), m_nRun(0),
      m_nLines(0)
{
}

void cScriptHost::WriteLine(const std::string &Json)
{
    *m_pOut << Json << "\n" << std::flush;
}

// The answers of a box, in the order used when the queue is empty.
static std::vector<eAnswer> AnswersOf(eButtons nButtons)
{
    switch (nButtons)
    {
    case bnOk:
        return {anOk};
    case bnOkCancel:
        return {anOk, anCancel};
    case bnYesNoCancel:
        return {anNo, anCancel, anYes};
    default:
        return {anCancel, anRetry};
    }
}

// An answer that the box does not have is also removed from the queue.
eAnswer cScriptHost::NextAnswer(eButtons nButtons)
{
    const std::vector<eAnswer> Possible = AnswersOf(nButtons);
    if (m_Answers.empty())
        return Possible.front();
    const eAnswer nQueued = m_Answers.front();
    m_Answers.pop_front();
    for (const eAnswer nAnswer : Possible)
        if (nAnswer == nQueued)
            return nAnswer;
    return Possible.front();
}

eAnswer cScriptHost::Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon)
{
    static const char *const s_Buttons[] = {"ok", "okcancel", "yesnocancel", "retrycancel"};
    static const char *const s_Icons[]   = {"none", "error", "question"};
    static const char *const s_Answers[] = {"ok", "cancel", "yes", "no", "retry"};
    const eAnswer            nAnswer     = NextAnswer(nButtons);
    std::string              Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("event", "box");
        Object.Text("text", szText);
        Object.Text("caption", szCaption ? szCaption : "Vorstek");
        Object.Text("buttons", s_Buttons[nButtons]);
        Object.Text("icon", s_Icons[nIcon]);
        Object.Text("answer", s_Answers[nAnswer]);
    }
    WriteLine(Json);
    return nAnswer;
}

void cScriptHost::StartSound(unsigned nId)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("event", "sound");
        Object.Number("id", nId);
    }
    WriteLine(Json);
}

void cScriptHost::Pause(unsigned nMilliseconds)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("event", "pause");
        Object.Number("ms", nMilliseconds);
    }
    WriteLine(Json);
}

void cScriptHost::Dispatch(const cScriptEvent &Event)
{
    if (Event.m_nKind == cScriptEvent::evChar)
        m_pEngine->OnChar(Event.m_cChar);
    else
        m_pEngine->OnCalcKey(Event.m_nKeyCode, Event.m_nKind == cScriptEvent::evDown);
}

// A run that has ended with an error is an event.
void cScriptHost::ReportRun()
{
    if (m_nReportedRun == m_pEngine->RunNumber() || m_pEngine->IsInRun())
        return;
    m_nReportedRun = m_pEngine->RunNumber();
    if (!m_pEngine->HasRunFailed())
        return;
    const cVorstekState &State = m_pEngine->State();
    const ProgramLine   &Line  = State.m_Program[State.m_nCurLine];
    char                 szStep[kStepText];
    PrintStep(Line, szStep);
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("event", "error");
        Object.Number("line", State.m_nCurLine);
        Object.Number("listing_line", Line.m_nListingLine);
        Object.Text("instruction", szStep);
        Object.Text("text", DisplayedText(m_pEngine));
    }
    WriteLine(Json);
}

void cScriptHost::DispatchWaiting()
{
    ReportRun();
    while (!m_Waiting.empty())
    {
        const cScriptEvent Next = m_Waiting.front();
        m_Waiting.pop_front();
        Dispatch(Next);
        ReportRun();
    }
}

void cScriptHost::Deliver(const cScriptEvent &Event)
{
    Dispatch(Event);
    DispatchWaiting();
}

void cScriptHost::Perform(const std::vector<cListingLine> &Steps)
{
    for (const cListingLine &Step : Steps)
        if (!m_pEngine->Perform(Step))
            break;
    DispatchWaiting();
}

void cScriptHost::DeliverAfter(uint64_t nLine, const cScriptEvent &Event)
{
    m_Later.insert({{m_pEngine->RunNumber() + 1, nLine}, Event});
}

// Appends the events that are due now to those that are waiting, and drops those
// whose moment was never reached.
void cScriptHost::TakeDueEvents()
{
    const cMoment Now(m_nRun, m_nLines);
    while (!m_Later.empty() && m_Later.begin()->first <= Now)
    {
        if (m_Later.begin()->first == Now)
            m_Waiting.push_back(m_Later.begin()->second);
        m_Later.erase(m_Later.begin());
    }
}

// Lines until the next event of this run or the limit; both are to come, if the
// program still runs.
uint64_t cScriptHost::CountLinesToNextEvent() const
{
    uint64_t nNext = m_nLimit;
    if (!m_Later.empty() && m_Later.begin()->first.first == m_nRun)
        nNext = std::min(nNext, m_Later.begin()->first.second);
    return nNext - m_nLines;
}

// After a halt, the remaining events wait for the end of the run. A program whose
// output can no longer be written is halted as well.
unsigned cScriptHost::DrainMessages(unsigned nLines)
{
    if (m_nRun != m_pEngine->RunNumber())
    {
        m_nRun   = m_pEngine->RunNumber();
        m_nLines = 0;
    }
    m_nLines += nLines;
    if (!*m_pOut)
        m_pEngine->HaltProgram();
    TakeDueEvents();
    while (!m_Waiting.empty() && m_pEngine->IsRunning())
    {
        const cScriptEvent Next = m_Waiting.front();
        m_Waiting.pop_front();
        Dispatch(Next);
    }
    if (m_nLines >= m_nLimit && m_pEngine->IsRunning())
    {
        Dispatch({cScriptEvent::evDown, kKeyRunStop, 0});
        Dispatch({cScriptEvent::evUp, kKeyRunStop, 0});
    }
    const unsigned nAny = cHeadlessHost::DrainMessages(nLines);
    return static_cast<unsigned>(std::min<uint64_t>(CountLinesToNextEvent(), nAny));
}
