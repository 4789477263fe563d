// center_window.h - centres a dialog when it opens.

#ifndef TOOLKIT_WIN32_CENTER_WINDOW_H
#define TOOLKIT_WIN32_CENTER_WINDOW_H

#include "toolkit/win32/win32.h"

// Centres a window over its parent or owner, or on the screen's work area if it
// has none or only the desktop. Keeps its size; never moves it off the left or
// top edge of the screen.
void CenterWindow(HWND hWnd);

#endif
