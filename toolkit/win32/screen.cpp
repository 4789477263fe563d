#include "toolkit/win32/screen.h"

#include "toolkit/win32/gdi.h"
#include "toolkit/win32/system_library.h"

// Old platforms lack some of its functions.
static HMODULE UserLibrary()
{
    return GetModuleHandleA("user32.dll");
}

int ScreenDpi(HWND hWnd)
{
    static const auto pfnForWindow =
        FindFunction<UINT(WINAPI *)(HWND)>(UserLibrary(), "GetDpiForWindow");
    const UINT nDpi = hWnd && pfnForWindow ? pfnForWindow(hWnd) : 0;
    return nDpi ? static_cast<int>(nDpi) : GetDeviceCaps(cWindowDc(nullptr).Get(), LOGPIXELSY);
}

int FindStatusFont(int nDpi, LOGFONTW *pLogFont)
{
    static const auto pfnForDpi = FindFunction<BOOL(WINAPI *)(UINT, UINT, void *, UINT, UINT)>(
        UserLibrary(), "SystemParametersInfoForDpi");
    NONCLIENTMETRICSW Metrics = {};
    Metrics.cbSize            = sizeof Metrics;
    if (!pfnForDpi ||
        !pfnForDpi(SPI_GETNONCLIENTMETRICS, sizeof Metrics, &Metrics, 0, static_cast<UINT>(nDpi)))
        return 0;
    *pLogFont = Metrics.lfStatusFont;
    return 1;
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
