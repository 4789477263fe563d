// probe.h - what a test asks of a program that it works from outside and that
// no message tells: menus belong to their process. The probe is loaded into the
// program by a message hook and answers in shared memory.

#ifndef TESTS_WINDOW_PROBE_H
#define TESTS_WINDOW_PROBE_H

#include "toolkit/win32.h"

// Sent to a window of the program: wParam an eProbe, lParam a command number.
const char *const kProbeMessage = "vorstek-window-probe";
const char *const kProbeMemory  = "vorstek-window-probe-answer";

enum eProbe
{
    pbInput,       // m_Input is handed to the system
    pbQueue,       // m_nValue: 1 while input or posted messages wait
    pbMenuState,   // m_nValue: MF_ flags of a menu item; -1: no such item
    pbMenuText,    // m_szText
    pbMenuRect,    // m_Rect: where the open menu shows the item, on the screen
    pbBarRect,     // the same for an item of the menu bar; lParam its position
    pbStatusText,  // m_szText: of the status bar's only part
    pbObjects      // m_nValue: GDI objects, m_nMore: windows, menus and their like
};

struct cProbeAnswer
{
    INPUT m_Input;
    DWORD m_nCount;  // of the questions answered so far
    int   m_nValue;
    int   m_nMore;
    RECT  m_Rect;
    char  m_szText[260];
};

#endif
