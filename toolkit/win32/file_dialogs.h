// file_dialogs.h - the platform's dialogs for opening and saving a file.

#ifndef TOOLKIT_WIN32_FILE_DIALOGS_H
#define TOOLKIT_WIN32_FILE_DIALOGS_H

#include "toolkit/win32/win32.h"

#include "toolkit/message_box.h"

const int kFileName = 260;  // characters of a path, closing zero included

enum eFileNameDialog
{
    fnOpen,  // the file must exist
    fnSave   // asks before a file is overwritten
};

// Asks for a file. szFilter is a list of pairs of text and pattern, terminated by
// an empty string: "Text Files (*.TXT)\0*.TXT\0". szFolder is the folder shown
// first, null for the current one. szExtension ("txt", or null for none) is
// appended to a name without an extension. A name that is too long is refused
// with a message through pBoxes.
// szFileName contains the proposed name ("" for none) and receives the full path.
// 0 if the user cancelled; the contents of szFileName are then undefined.
int AskFileName(eFileNameDialog nDialog, const char *szFilter, const char *szFolder,
                const char *szExtension, cMessageBoxes *pBoxes, char (&szFileName)[kFileName]);

#endif
