// help_viewer.h - compiled help files, in the platform's viewer if it has one.

#ifndef TOOLKIT_HELP_VIEWER_H
#define TOOLKIT_HELP_VIEWER_H

#include "toolkit/win32/win32.h"

// Where a file of the help lies: szName itself if the current folder has it,
// else the file of this name beside the program, "C:\Vorstek\VORSTEK.chm". If
// that is not there either, szName as it is.
void FindHelp(const char *szName, char (&szPath)[MAX_PATH]);

// Open a help file with its table of contents, or at a topic, which is the
// name of a page in it. The file is looked for by FindHelp. The viewer's window,
// null if it does not come up.
HWND OpenHelpContents(const char *szFile);
HWND OpenHelpTopic(const char *szFile, const char *szTopic);

// The message that the viewer did not find szFile, "VORSTEK.CHM".
const size_t kMissingHelpText = 512;
void         FormatMissingHelp(const char *szFile, char (&szText)[kMissingHelpText]);

#endif
