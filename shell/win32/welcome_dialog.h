// welcome_dialog.h - the picture that the program opens with.

#ifndef SHELL_WELCOME_DIALOG_H
#define SHELL_WELCOME_DIALOG_H

#include "toolkit/win32/win32.h"

// Shows the welcome dialog until it is closed; OK can be chosen after two
// seconds, announced by a chime.
void ShowWelcome();

#endif
