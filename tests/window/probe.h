// probe.h - questions to the program under test that no message can answer, such as
// the state of its menus, which belong to its process. A message hook loads the probe
// into the program and creates a window there, which answers in shared memory. The
// hook is gone then: with it, every message would be sent ten times as slowly.

#ifndef TESTS_WINDOW_PROBE_H
#define TESTS_WINDOW_PROBE_H

#include "toolkit/win32/win32.h"

// Sent to any window of the program once, so that the hook creates the probe's window.
const char *const kProbeMessage = "vorstek-window-probe";
const char *const kProbeClass   = "vorstek-window-probe";
const char *const kProbeMemory  = "vorstek-window-probe-answer";

// Sent to the probe's window: wParam an eProbe, lParam a command number.
const UINT kAskProbe = WM_APP;

enum eProbe
{
    pbInput,         // hands the inputs to the system, all at once
    pbQueue,         // m_nValue: 1 while input or posted messages wait
    pbPaint,         // m_nValue: 1 while a window waits to be painted; finished paint
                     // is on the screen
    pbMenuState,     // m_nValue: MF_ flags of an item of the window's menu, or of the
                     // popup menu that the window shows; -1: no such item
    pbMenuText,      // m_szText
    pbMenuRect,      // m_Rect: screen position of an item of the open menu
    pbMenuOpen,      // m_nValue: 1 if the popup menu of the bar is open; lParam its
                     // position
    pbBarRect,       // the same for an item of the menu bar; lParam its position
    pbMenuItem,      // m_nValue: command, 0: separator, -1: none; m_nMore: MF_
                     // flags; m_szText. lParam an ItemAt()
    pbMenuTitle,     // m_szText: of an item of the menu bar; lParam its position
    pbToolButton,    // m_nValue: command, 0: separator, -1: none; m_nMore: image,
                     // m_nState: TBSTATE_ flags; m_Rect: on the screen. lParam its
                     // position
    pbClassIcon,     // m_nValue: 1 if the window's class has the icon; lParam its
                     // number
    pbBoxIcon,       // m_nValue: number of the platform's icon that the message box
                     // lParam shows, 0: none
    pbCursor,        // m_nValue: 1 if the pointer is the platform's cursor lParam
    pbStatusText,    // m_szText: of the status bar's only part
    pbObjects,       // m_nValue: GDI objects, m_nMore: user objects, such as windows and menus
    pbEndWelcome,    // ends the two seconds during which the welcome box disables OK
    pbResolution,    // the window comes to a screen with other dots per inch; lParam the
                     // new ones, in its upper half the former ones
    pbDiskRoom,      // the disk is full after lParam more bytes
    pbReadOnly,      // no file can be created
    pbNoDibs,        // the screen has no device-independent bitmaps
    pbBitmapRoom,    // bitmaps of more than lParam columns exceed the memory
    pbNoFonts,       // no font can be made
    pbMemoryRetry,   // allocation lParam fails, and the box about it is answered with
    pbMemoryCancel,  // Retry or Cancel
    pbMemoryCounts,  // m_nValue: allocations since then, m_nMore: boxes, m_nState: quits
    pbGiveFile       // file dialogs answer with the name that the atom lParam has
};

const int kMostInputs = 8;  // a key with all its modifiers

// An item of a popup menu by its position.
inline UINT ItemAt(UINT nPopup, UINT nPosition)
{
    return nPopup << 8 | nPosition;
}

struct cProbeAnswer
{
    HWND  m_hProbe;  // the probe's window that was created last
    HWND  m_hAsked;  // the window that the question is about
    INPUT m_Inputs[kMostInputs];
    UINT  m_nInputs;
    DWORD m_nCount;  // of answers so far
    int   m_nValue;
    int   m_nMore;
    int   m_nState;
    RECT  m_Rect;
    char  m_szText[600];  // more than a status bar holds
};

#endif
