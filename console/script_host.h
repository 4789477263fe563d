// script_host.h - a calculator that a script drives: what happens is written
// as JSON Lines, boxes are answered from a queue, and key events are delivered
// while a program runs.

#ifndef CONSOLE_SCRIPT_HOST_H
#define CONSOLE_SCRIPT_HOST_H

#include <cstdint>
#include <deque>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "console/headless_host.h"

// A key event or typed characters.
struct cScriptEvent
{
    enum eKind
    {
        evDown,
        evUp,
        evText
    };
    eKind       m_nKind    = evText;
    unsigned    m_nKeyCode = 0;
    std::string m_Text;
};

class cScriptHost : public cHeadlessHost
{
public:
    explicit cScriptHost(std::ostream *pOut);

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    void    StartSound(unsigned nId) override;
    void    Pause(unsigned nMilliseconds) override;
    int     DrainMessages() override;

    // Delivers an event now.
    void Deliver(const cScriptEvent &Event);

    // Delivers an event in the next run, when its nLine-th line has been
    // executed.
    void DeliverAfter(uint64_t nLine, const cScriptEvent &Event);

    void QueueAnswer(eAnswer nAnswer) { m_Answers.push_back(nAnswer); }
    void SetLimit(uint64_t nLines) { m_nLimit = nLines; }

    // Writes a finished object as one line.
    void WriteLine(const std::string &Json);

    cVorstekEngine *m_pEngine;

private:
    struct cLaterEvent
    {
        unsigned     m_nRun;
        uint64_t     m_nLine;
        cScriptEvent m_Event;
    };

    eAnswer NextAnswer(eButtons nButtons);
    void    Type(std::string_view Text);

    std::ostream            *m_pOut;
    std::deque<eAnswer>      m_Answers;
    std::vector<cLaterEvent> m_Later;
    uint64_t                 m_nLimit;
    unsigned                 m_nRun;    // the run that m_nLines counts in
    uint64_t                 m_nLines;  // executed in it so far
};

#endif
