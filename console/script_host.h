// script_host.h - a calculator driven by a script: events are written as JSON
// Lines, boxes are answered from a queue, and key events are delivered while a
// program runs.

#ifndef CONSOLE_SCRIPT_HOST_H
#define CONSOLE_SCRIPT_HOST_H

#include <cstdint>
#include <deque>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "console/headless_host.h"
#include "engine/listing_words.h"

// A key event or a typed character.
struct cScriptEvent
{
    enum eKind
    {
        evDown,
        evUp,
        evChar
    };
    eKind    m_nKind;
    unsigned m_nKeyCode;  // of evDown and evUp
    char     m_cChar;     // of evChar
};

class cScriptHost : public cHeadlessHost
{
public:
    explicit cScriptHost(std::ostream *pOut);

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    void    StartSound(unsigned nId) override;
    void    Pause(unsigned nMilliseconds) override;
    unsigned DrainMessages(unsigned nLines) override;

    // Delivers an event now, then those that a run left waiting.
    void Deliver(const cScriptEvent &Event);

    // Performs steps of a listing up to the first that ends with an error, then
    // delivers what a run left waiting.
    void Perform(const std::vector<cListingLine> &Steps);

    // Delivers an event in the next run, after its nLine-th executed line.
    void DeliverAfter(uint64_t nLine, const cScriptEvent &Event);

    void QueueAnswer(eAnswer nAnswer) { m_Answers.push_back(nAnswer); }
    void SetLimit(uint64_t nLines) { m_nLimit = nLines; }

    // Writes a finished object as one line.
    void WriteLine(const std::string &Json);

    cVorstekEngine *m_pEngine;

private:
    // A run and the lines executed in it.
    typedef std::pair<unsigned, uint64_t> cMoment;

    eAnswer  NextAnswer(eButtons nButtons);
    void     Dispatch(const cScriptEvent &Event);
    void     DispatchWaiting();
    void     ReportRun();
    void     TakeDueEvents();
    uint64_t CountLinesToNextEvent() const;

    std::ostream                        *m_pOut;
    std::deque<eAnswer>                  m_Answers;
    std::multimap<cMoment, cScriptEvent> m_Later;    // equal moments: in the order given
    std::deque<cScriptEvent>             m_Waiting;  // after the current event
    uint64_t                             m_nLimit;
    unsigned                             m_nReportedRun;  // whose end has been looked at
    unsigned                             m_nRun;          // the run that m_nLines counts in
    uint64_t                             m_nLines;        // executed in it so far
};

#endif
