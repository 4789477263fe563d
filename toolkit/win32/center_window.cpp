#include "toolkit/win32/center_window.h"

#include <algorithm>

void CenterWindow(HWND hWnd)
{
    RECT Around = {0, 0, GetSystemMetrics(SM_CXFULLSCREEN), GetSystemMetrics(SM_CYFULLSCREEN)};
    const HWND hParent = GetParent(hWnd);
    if (hParent && hParent != GetDesktopWindow())
        GetWindowRect(hParent, &Around);

    RECT Window = {};
    GetWindowRect(hWnd, &Window);
    const LONG nWidth  = Window.right - Window.left;
    const LONG nHeight = Window.bottom - Window.top;
    const LONG nX      = (Around.left + Around.right - nWidth) / 2;
    const LONG nY      = (Around.top + Around.bottom - nHeight) / 2;
    MoveWindow(hWnd, std::max<LONG>(nX, 0), std::max<LONG>(nY, 0), nWidth, nHeight, FALSE);
}
