// modal_guard.h - a dialog makes its owner wait; the program's other windows
// would go on, and start in the dialog's own message loop what does not belong
// there.

#ifndef TOOLKIT_MODAL_GUARD_H
#define TOOLKIT_MODAL_GUARD_H

#include "toolkit/win32/win32.h"

// Disables all visible windows of the thread but the owner, which the dialog
// disables itself, until the end of the scope.
//
//     const cModalGuard Others(hOwner);
//     DialogBoxParamA(...);
class cModalGuard
{
public:
    // hOwner null: none is left out.
    explicit cModalGuard(HWND hOwner);
    ~cModalGuard();
    cModalGuard(const cModalGuard &)            = delete;
    cModalGuard &operator=(const cModalGuard &) = delete;

private:
    static BOOL CALLBACK Disable(HWND hWnd, LPARAM lParam);

    // More than the program has: calculator, graph, and a dialog over a dialog.
    static const int kMostWindows = 16;

    HWND m_hOwner;
    HWND m_hDisabled[kMostWindows];
    int  m_nDisabled;
};

#endif
