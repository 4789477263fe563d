// dialogs.h - the options dialog and the About box.

#ifndef SHELL_DIALOGS_H
#define SHELL_DIALOGS_H

#include "toolkit/win32/win32.h"

struct cOptions;

// Shows *pOptions and lets the user change them. 0, and nothing has changed,
// if he cancelled.
int AskOptions(HWND hOwner, cOptions *pOptions);

// Shows what the program is until it is closed.
void ShowAbout(HWND hOwner);

#endif
