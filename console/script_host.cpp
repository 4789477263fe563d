#include "console/script_host.h"

#include <ostream>

#include "console/json.h"

static const uint64_t kDefaultLimit = 10000;

cScriptHost::cScriptHost(std::ostream *pOut)
    : m_pEngine(nullptr), m_pOut(pOut), m_nLimit(kDefaultLimit), m_nRun(0), m_nLines(0)
{
}

void cScriptHost::WriteLine(const std::string &Json)
{
    *m_pOut << Json << "\n" << std::flush;
}

// Which answers a box has, best first for a script that queued none.
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

// An answer that the box does not have is used up all the same.
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

// A character of several bytes is one character.
void cScriptHost::Type(std::string_view Text)
{
    for (size_t nAt = 0; nAt < Text.size(); nAt++)
        if ((static_cast<unsigned char>(Text[nAt]) & 0xC0) != 0x80)
            m_pEngine->OnChar(Text[nAt]);
}

void cScriptHost::Deliver(const cScriptEvent &Event)
{
    if (Event.m_nKind == cScriptEvent::evText)
        Type(Event.m_Text);
    else
        m_pEngine->OnCalcKey(Event.m_nKeyCode, Event.m_nKind == cScriptEvent::evDown);
}

void cScriptHost::DeliverAfter(uint64_t nLine, const cScriptEvent &Event)
{
    m_Later.push_back({m_pEngine->RunNumber() + 1, nLine, Event});
}

int cScriptHost::DrainMessages()
{
    if (m_nRun != m_pEngine->RunNumber())
    {
        m_nRun   = m_pEngine->RunNumber();
        m_nLines = 0;
        std::erase_if(m_Later, [this](const cLaterEvent &Later) { return Later.m_nRun < m_nRun; });
    }
    m_nLines++;
    for (const cLaterEvent &Later : m_Later)
        if (Later.m_nRun == m_nRun && Later.m_nLine == m_nLines)
            Deliver(Later.m_Event);
    if (m_nLines >= m_nLimit && m_pEngine->IsRunning())
    {
        m_pEngine->OnCalcKey(kKeyRunStop, 1);
        m_pEngine->OnCalcKey(kKeyRunStop, 0);
    }
    return cHeadlessHost::DrainMessages();
}
