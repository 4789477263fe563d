// help.h - opens the calculator's help.

#ifndef SHELL_WIN32_HELP_H
#define SHELL_WIN32_HELP_H

#include "toolkit/win32/win32.h"

// Opens the help file at its table of contents and stores the viewer's window in
// *phHelpWnd. Without a viewer, opens the introduction in the browser. 0, after a
// message box, if both fail.
int ShowHelp(HWND *phHelpWnd);

#endif
