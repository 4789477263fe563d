#include "toolkit/modal_guard.h"

cModalGuard::cModalGuard(HWND hOwner) : m_hOwner(hOwner)
{
    EnumThreadWindows(GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(this));
}

cModalGuard::~cModalGuard()
{
    for (const HWND hWnd : m_Disabled)
        EnableWindow(hWnd, TRUE);
}

BOOL CALLBACK cModalGuard::Disable(HWND hWnd, LPARAM lParam)
{
    auto *const pGuard = reinterpret_cast<cModalGuard *>(lParam);
    if (hWnd != pGuard->m_hOwner && IsWindowVisible(hWnd) && IsWindowEnabled(hWnd))
    {
        pGuard->m_Disabled.push_back(hWnd);
        EnableWindow(hWnd, FALSE);
    }
    return TRUE;
}
