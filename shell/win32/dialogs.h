// dialogs.h - the options dialog and the About box.

#ifndef SHELL_WIN32_DIALOGS_H
#define SHELL_WIN32_DIALOGS_H

#include "toolkit/win32/win32.h"

struct cOptions;

// Shows *pOptions and lets the user change them. 0, with nothing changed, if the
// user cancelled.
int AskOptions(HWND hOwner, cOptions *pOptions);

// Shows the About box until the user closes it.
void ShowAbout(HWND hOwner);

#endif
