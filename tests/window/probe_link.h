// probe_link.h - the test's end of the probe in the program that is worked.

#ifndef TESTS_WINDOW_PROBE_LINK_H
#define TESTS_WINDOW_PROBE_LINK_H

#include "toolkit/win32/win32.h"

#include <vector>

#include "tests/window/probe.h"

// There is one at a time; mouse and keyboard go through it.
class cProbeLink
{
public:
    cProbeLink();
    ~cProbeLink();
    cProbeLink(const cProbeLink &)            = delete;
    cProbeLink &operator=(const cProbeLink &) = delete;

    // Begins to ask the thread with this window.
    void Attach(HWND hWnd);

    // The window that is asked from now on, of the same thread.
    void SetWindow(HWND hWnd) { m_hWnd = hWnd; }

    // A window that has gone while it was asked is replaced by another of the
    // thread.
    cProbeAnswer Ask(eProbe nProbe, UINT nId = 0) const { return AskWindow(m_hWnd, nProbe, nId); }
    cProbeAnswer AskWindow(HWND hWnd, eProbe nProbe, UINT nId = 0) const;

    // Returns when the program and the desktop, which is another program, have
    // taken all that the screen had told them of the mouse.
    void HearScreen() const;

    // Waits until no input waits in the thread's queue.
    void Settle() const;

    // Hands inputs to the system, kMostInputs at the most, with nothing between
    // them.
    void Inject(const std::vector<INPUT> &Inputs) const;

    static const cProbeLink *Current() { return s_pCurrent; }

private:
    HWND AnyWindow(HWND hWnd) const;

    static cProbeLink *s_pCurrent;

    HANDLE        m_hMemory;
    cProbeAnswer *m_pAnswer;
    HHOOK         m_hHook;
    HHOOK         m_hDesktopHook;
    HWND          m_hWnd;
    DWORD         m_dwThread;
};

#endif
