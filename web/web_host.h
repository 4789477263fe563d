// web_host.h - the calculator's surroundings in a browser: events for the page, and
// questions that the page answers. README.md explains the order of things.
//
// A program line cannot wait: the loop that runs the lines is the part of the module
// that cannot be suspended. Boxes and the PAUSE of a line wait in the drain that
// follows it.

#ifndef WEB_WEB_HOST_H
#define WEB_WEB_HOST_H

#include <chrono>
#include <deque>
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
    void    Inform(const char *szText) override;
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

    // Shows what Inform() was given, and the boxes that a program line could not wait
    // for. Called where the module can be suspended.
    void ShowInformed();

    // Set once, before the first call: publishes what has changed; handles the requests
    // that wait, as long as a program runs; says whether one runs.
    std::function<void()> m_pPublish = [] {};
    std::function<void()> m_pServe   = [] {};
    std::function<int()>  m_pIsInRun = [] { return 0; };

    cPicturePlot       m_Plot;
    std::set<unsigned> m_Disabled;  // commands
    std::string        m_StatusText;
    int                m_bListingShown;
    int                m_bRegistersShown;
    int                m_bGraphShown;

private:
    typedef std::chrono::steady_clock cClock;

    struct cBox
    {
        std::string m_Text;
        std::string m_Caption;
        eIcon       m_nIcon;
    };

    int      IsInLine() const { return !m_bDraining && m_pIsInRun(); }
    eAnswer  AskNow(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon);
    void     PublishInRun();
    unsigned LinesUntilLook(unsigned nDone, cClock::duration Time);

    cClock::time_point m_LastLook;  // at the clock
    cClock::time_point m_LastDrain;
    cClock::time_point m_LastPublished;
    cClock::duration   m_PublishTime;  // of the last one
    std::deque<cBox>   m_Informed;
    unsigned           m_nPause;     // milliseconds, to be waited for after the line
    unsigned           m_nPace;      // index in the numbers of lines between two looks
    int                m_bDraining;  // requests are handled during a run
    int                m_bQuit;
};

#endif
