// welcome_dialog.h - the picture shown when the program starts.

#ifndef SHELL_WIN32_WELCOME_DIALOG_H
#define SHELL_WIN32_WELCOME_DIALOG_H

#include "toolkit/win32/win32.h"

// Shows the welcome dialog until it is closed. After two seconds a chime sounds
// and OK is enabled.
void ShowWelcome();

#endif
