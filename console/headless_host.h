// headless_host.h - a calculator without a window: listing and registers are in
// memory, nothing is painted, and the graph is only its data. Each command
// overrides the operations that matter to it.

#ifndef CONSOLE_HEADLESS_HOST_H
#define CONSOLE_HEADLESS_HOST_H

#include "engine/memory_line_box.h"
#include "engine/vorstek_engine.h"
#include "engine/vorstek_host.h"
#include "graph/vantor_plot.h"

class cHeadlessHost : public cVorstekHost
{
public:
    cHeadlessHost();

    // These do nothing, or only note what was asked.
    void     PostQuit(int nExitCode) override;
    void     StartSound(unsigned nId) override;
    void     DrawDisplay(const cDisplay &Display) override;
    void     BlankDisplay() override;
    unsigned DrainMessages(unsigned nLines) override;
    void     Pause(unsigned nMilliseconds) override;
    int      AskFileName(eFileDialog nDialog, char *szName, size_t nSize) override;
    void     SetStatusText(const char *szText) override;
    void     EnableCommand(unsigned nId, int bEnable) override;
    void     ShowListing(int bShow) override;
    void     ShowRegisters(int bShow) override;
    void     ShowGraph() override;
    void     ClearGraph() override;
    unsigned CountDataSets() override;
    int      AddGraphPoint(unsigned nLine, double dX, double dY) override;

    // The answer to a box that nobody sees: OK or Cancel. The question whether to try
    // again when memory is short ends the command: throws std::bad_alloc.
    static eAnswer AnswerOf(eButtons nButtons);

    cVantorPlot m_Plot;
    unsigned    m_nGraphsCleared;  // how often; without that the graph only grows
    int         m_bListingShown;
    int         m_bRegistersShown;
    int         m_bGraphShown;
};

// An engine with its boxes. The host is built first and outlives it.
class cHeadlessCalculator
{
public:
    explicit cHeadlessCalculator(cHeadlessHost *pHost);

    cMemoryLineBox m_Listing;
    cMemoryLineBox m_Registers;
    cVorstekEngine m_Engine;
};

#endif
