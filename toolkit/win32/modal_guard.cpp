#include "toolkit/win32/modal_guard.h"

cModalGuard::cModalGuard(HWND hOwner) : m_hOwner(hOwner), m_hDisabled(), m_nDisabled(0)
{
    EnumThreadWindows(GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(this));
}

cModalGuard::~cModalGuard()
{
    for (int i = 0; i < m_nDisabled; i++)
        EnableWindow(m_hDisabled[i], TRUE);
}

BOOL CALLBACK cModalGuard::Disable(HWND hWnd, LPARAM lParam)
{
    auto *const pGuard = reinterpret_cast<cModalGuard *>(lParam);
    if (hWnd != pGuard->m_hOwner && IsWindowVisible(hWnd) && IsWindowEnabled(hWnd))
    {
        pGuard->m_hDisabled[pGuard->m_nDisabled++] = hWnd;
        EnableWindow(hWnd, FALSE);
    }
    return pGuard->m_nDisabled < kMostWindows;
}
