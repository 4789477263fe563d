// run_host.h - the surroundings of a program that "vorstek-cli run" executes.

#ifndef CONSOLE_RUN_HOST_H
#define CONSOLE_RUN_HOST_H

#include <cstdint>
#include <string>

#include "console/console.h"
#include "console/headless_host.h"

struct cRunOptions;

// Boxes go to standard error; questions are answered with Cancel.
class cRunHost : public cHeadlessHost
{
public:
    // Both must outlive the host.
    cRunHost(const cRunOptions &Options, const cStreams &Streams);

    // Set before the engine runs.
    void SetEngine(cVorstekEngine *pEngine) { m_pEngine = pEngine; }

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    unsigned DrainMessages(unsigned nLines) override;
    void     Pause(unsigned nMilliseconds) override;

    // The calculator with this host loads a listing, silently after the first box;
    // 0 if there was one.
    int Load(const std::string &Listing);

    // While the graph is saved, boxes are kept as text instead.
    void               BeginSaving() { m_bSaving = 1; }
    const std::string &SavingText() const { return m_SavingText; }

    int IsHalted() const { return m_bHalted; }  // by the limit of lines

private:
    const cRunOptions &m_Options;
    const cStreams    &m_Streams;
    cVorstekEngine    *m_pEngine;
    int                m_bLoading;
    int                m_bSaving;
    std::string        m_SavingText;
    int                m_nBoxes;  // shown so far
    uint64_t           m_nLines;  // executed without ending the program
    int                m_bHalted;
};

#endif
