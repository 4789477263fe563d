// file_dialogs.h - the platform's dialogs for the name of a file.

#ifndef TOOLKIT_FILE_DIALOGS_H
#define TOOLKIT_FILE_DIALOGS_H

#include "toolkit/win32/win32.h"

#include "toolkit/message_box.h"

const int kFileName = 260;  // characters of a path, closing zero included

enum eFileNameDialog
{
    fnOpen,  // the file must exist
    fnSave   // asks before a file is overwritten
};

// Asks for a file. szFilter is pairs of text and pattern, ended by an empty
// one: "Text Files (*.TXT)\0*.TXT\0". szFolder is where to begin, null for the
// current one. szExtension, "txt" or null, is added to a name without one. A
// name that is too long gets a message through pBoxes.
// szFileName holds the name that is proposed, "" for none, and gets the whole
// path. 0 if the user cancelled; then szFileName is to be used no more.
int AskFileName(eFileNameDialog nDialog, const char *szFilter, const char *szFolder,
                const char *szExtension, cMessageBoxes *pBoxes, char (&szFileName)[kFileName]);

#endif
