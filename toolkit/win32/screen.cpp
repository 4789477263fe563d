#include "toolkit/win32/screen.h"

#include "toolkit/win32/gdi.h"

int ScreenDpi(HWND hWnd)
{
    // Newer than the platform's other functions.
    static const auto pfnForWindow =
        reinterpret_cast<UINT(WINAPI *)(HWND)>(reinterpret_cast<void *>(
            GetProcAddress(GetModuleHandleA("user32.dll"), "GetDpiForWindow")));
    const UINT nDpi = hWnd && pfnForWindow ? pfnForWindow(hWnd) : 0;
    return nDpi ? static_cast<int>(nDpi) : GetDeviceCaps(cWindowDc(nullptr).Get(), LOGPIXELSY);
}

void TakeRect(HWND hWnd, const RECT &Rect)
{
    SetWindowPos(hWnd, nullptr, Rect.left, Rect.top, Rect.right - Rect.left, Rect.bottom - Rect.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT WorkArea(HWND hWnd)
{
    MONITORINFO Monitor = {};
    Monitor.cbSize      = sizeof Monitor;
    GetMonitorInfoA(MonitorFromWindow(hWnd, MONITOR_DEFAULTTOPRIMARY), &Monitor);
    return Monitor.rcWork;
}
