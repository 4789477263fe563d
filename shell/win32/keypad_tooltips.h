// keypad_tooltips.h - tooltips of the keys and slide switches, and of a status bar
// whose text does not fit. None appears while a program runs.

#ifndef SHELL_WIN32_KEYPAD_TOOLTIPS_H
#define SHELL_WIN32_KEYPAD_TOOLTIPS_H

#include "toolkit/win32/status_bar.h"
#include "toolkit/win32/win32.h"

class cButtonArray;
class cVorstekEngine;

class cKeypadTooltips
{
public:
    explicit cKeypadTooltips(const cVorstekEngine *pEngine);
    cKeypadTooltips(const cKeypadTooltips &)            = delete;
    cKeypadTooltips &operator=(const cKeypadTooltips &) = delete;

    // Both have to exist, with all their keys. The tips are destroyed together with
    // their owner, who passes TTN_NEEDTEXTA of Window() to OnTipText. 0 on failure,
    // which does no other harm.
    int Create(cButtonArray *pKeypad, cStatusBar *pStatusBar);

    HWND Window() const { return m_hWnd; }

    // The text of the status bar, or none if all of it is visible.
    void OnTipText(NMTTDISPINFOA *pRequest);

private:
    static LRESULT CALLBACK WatchedProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR nId, DWORD_PTR dwTips);

    void AddKey(unsigned nCode);
    void AddStatusBar();
    void PlaceKeys();
    void Relay(UINT nMessage, WPARAM wParam, LPARAM lParam);
    int  IsStatusCut() const;

    const cVorstekEngine *m_pEngine;
    cButtonArray         *m_pKeypad;
    cStatusBar           *m_pStatusBar;
    HWND                  m_hWnd;
    RECT                  m_FirstKey;  // where the keys were placed last
    char                  m_szStatus[kStatusText];
};

#endif
