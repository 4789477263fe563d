// probe_link.h - the test's end of the probe in the program that is worked.

#ifndef TESTS_WINDOW_PROBE_LINK_H
#define TESTS_WINDOW_PROBE_LINK_H

#include "toolkit/win32.h"

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

    cProbeAnswer Ask(eProbe nProbe, UINT nId = 0) const;
    void         Inject(const INPUT &Input) const;

    static const cProbeLink *Current() { return s_pCurrent; }

private:
    static cProbeLink *s_pCurrent;

    HANDLE        m_hMemory;
    cProbeAnswer *m_pAnswer;
    HHOOK         m_hHook;
    HWND          m_hWnd;
};

#endif
