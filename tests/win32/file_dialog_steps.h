// file_dialog_steps.h - operates the platform's file dialog.

#ifndef TESTS_WIN32_FILE_DIALOG_STEPS_H
#define TESTS_WIN32_FILE_DIALOG_STEPS_H

#include "toolkit/win32/win32.h"

#include <string>

// The field for the file name: an edit field, or one in a combo box. Null until
// the dialog has it.
HWND FileNameField(HWND hDialog);

// Enters a name and clicks the default button. 0 if the dialog has no field yet.
int GiveFileName(HWND hDialog, const std::string &Name);

// The full path of a name, as the dialog returns it.
std::string FullPath(const std::string &Name);

#endif
