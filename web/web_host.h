// web_host.h - the calculator's surroundings in a browser: events for the page, and
// questions that the page answers. README.md explains the order of things.

#ifndef WEB_WEB_HOST_H
#define WEB_WEB_HOST_H

#include <chrono>
#include <functional>
#include <set>
#include <string>

#include "engine/vorstek_host.h"
#include "web/picture_plot.h"

class cWebHost : public cVorstekHost
{
public:
    cWebHost();

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    void    PostQuit(int nExitCode) override;
    void    StartSound(unsigned nId) override;
    void    DrawDisplay(const cDisplay &Display) override;
    void    BlankDisplay() override;
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

    // The next question for a file is answered with this name, without the page.
    void ChooseFile(const std::string &Name) { m_ChosenFile = Name; }

    // Set once, before the first call: publishes what has changed, and handles the
    // requests that wait, as long as a program runs.
    std::function<void()> m_pPublish;
    std::function<void()> m_pServe;

    cPicturePlot       m_Plot;
    std::set<unsigned> m_Disabled;  // commands
    std::string        m_StatusText;
    int                m_bListingShown;
    int                m_bRegistersShown;
    int                m_bGraphShown;

private:
    typedef std::chrono::steady_clock cClock;

    void PublishInRun();

    cClock::time_point m_LastDrain;
    cClock::time_point m_LastPublished;
    cClock::duration   m_PublishTime;  // of the last one
    std::string        m_ChosenFile;
    int                m_bQuit;
};

#endif
