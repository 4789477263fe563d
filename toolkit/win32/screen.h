// screen.h - the resolution of screens, on which windows of the same program may
// differ. A platform that does not know that has one for all of them.

#ifndef TOOLKIT_WIN32_SCREEN_H
#define TOOLKIT_WIN32_SCREEN_H

#include "toolkit/win32/win32.h"

// Dots per inch of the screen that shows the window, or of the first screen for null.
int ScreenDpi(HWND hWnd);

// The font of status bars on a screen with nDpi dots per inch. 0 where the platform
// does not know it.
int FindStatusFont(int nDpi, LOGFONTW *pLogFont);

// Moves a window to where the platform wants it after WM_DPICHANGED.
void TakeRect(HWND hWnd, const RECT &Rect);

// The part of the window's screen that is not covered by the taskbar.
RECT WorkArea(HWND hWnd);

#endif
