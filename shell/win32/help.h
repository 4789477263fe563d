// help.h - opens the on-line documentation.

#ifndef SHELL_HELP_H
#define SHELL_HELP_H

#include "toolkit/win32/win32.h"

// Opens the help file at its contents and keeps the viewer's window in
// *phHelpWnd; without a viewer opens the introduction as a page. If both fail
// a box says so and 0 is returned.
int ShowHelp(HWND *phHelpWnd);

#endif
