// modal_guard.h - makes a dialog modal for the whole program. A dialog disables
// only its owner; commands of the program's other windows would run within the
// dialog's message loop.

#ifndef TOOLKIT_WIN32_MODAL_GUARD_H
#define TOOLKIT_WIN32_MODAL_GUARD_H

#include "toolkit/win32/win32.h"

// Disables all visible windows of the thread until the end of the scope, except
// the owner, which the dialog itself disables.
//
//     const cModalGuard Others(hOwner);
//     DialogBoxParamA(...);
class cModalGuard
{
public:
    // hOwner null: disables all of them.
    explicit cModalGuard(HWND hOwner);
    ~cModalGuard();
    cModalGuard(const cModalGuard &)            = delete;
    cModalGuard &operator=(const cModalGuard &) = delete;

private:
    static BOOL CALLBACK Disable(HWND hWnd, LPARAM lParam);

    // More than the program has: calculator, graph, a dialog and a dialog above it.
    static const int kMostWindows = 16;

    HWND m_hOwner;
    HWND m_hDisabled[kMostWindows];
    int  m_nDisabled;
};

#endif
