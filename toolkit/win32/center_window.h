// center_window.h - where a dialog comes up.

#ifndef TOOLKIT_CENTER_WINDOW_H
#define TOOLKIT_CENTER_WINDOW_H

#include "toolkit/win32/win32.h"

// Puts a window in the middle of its parent or owner, or of the screen's work
// area when it has none or only the desktop. Its size stays; it does not leave
// the screen at the left or the top.
void CenterWindow(HWND hWnd);

#endif
