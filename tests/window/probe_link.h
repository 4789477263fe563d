// probe_link.h - the test's side of the probe in the program under test.

#ifndef TESTS_WINDOW_PROBE_LINK_H
#define TESTS_WINDOW_PROBE_LINK_H

#include "toolkit/win32/win32.h"

#include <vector>

#include "tests/window/probe.h"

// There is one at a time, which mouse and keyboard use.
class cProbeLink
{
public:
    cProbeLink();
    ~cProbeLink();
    cProbeLink(const cProbeLink &)            = delete;
    cProbeLink &operator=(const cProbeLink &) = delete;

    // Loads the probe into the thread of this window.
    void Attach(HWND hWnd);

    // Sets the window that receives the questions, of the same thread.
    void SetWindow(HWND hWnd) { m_hWnd = hWnd; }

    // If the window has been destroyed, another one of the thread answers.
    cProbeAnswer Ask(eProbe nProbe, UINT nId = 0) const { return AskWindow(m_hWnd, nProbe, nId); }
    cProbeAnswer AskWindow(HWND hWnd, eProbe nProbe, UINT nId = 0) const;

    // Returns when the program and the desktop, which is another program, have read
    // all mouse events of the screen.
    void HearScreen() const;

    // Waits until the thread has taken all input and posted messages from its queue.
    void Settle() const;

    // Hands up to kMostInputs inputs to the system in one call.
    void Inject(const std::vector<INPUT> &Inputs) const;

    static const cProbeLink *Current() { return s_pCurrent; }

private:
    HWND         CreateProbe(HWND hWnd) const;
    HWND         AnyWindow(HWND hWnd) const;
    cProbeAnswer AskProbe(HWND hProbe, HWND hAsked, eProbe nProbe, UINT nId) const;

    static cProbeLink *s_pCurrent;

    HANDLE        m_hMemory;
    cProbeAnswer *m_pAnswer;
    HWND          m_hProbe;
    HWND          m_hDesktopProbe;
    HWND          m_hWnd;
    DWORD         m_dwThread;
};

#endif
