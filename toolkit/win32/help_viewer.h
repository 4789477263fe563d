// help_viewer.h - opens compiled help files in the platform's viewer, if it has
// one.

#ifndef TOOLKIT_WIN32_HELP_VIEWER_H
#define TOOLKIT_WIN32_HELP_VIEWER_H

#include "toolkit/win32/win32.h"

// The path of a help file: in the program's folder, "C:\Vorstek\VORSTEK.chm", and never
// in the current one, where a file of that name may be anybody's. "" if it is too long.
void FindHelp(const char *szName, char (&szPath)[MAX_PATH]);

// Open a help file at its table of contents, or at a topic, which is the name of
// a page in it. FindHelp locates the file. Return the viewer's window, null if it
// cannot be opened.
HWND OpenHelpContents(const char *szFile);
HWND OpenHelpTopic(const char *szFile, const char *szTopic);

// Formats the message that the viewer could not find szFile, "VORSTEK.CHM".
const size_t kMissingHelpText = 512;
void         FormatMissingHelp(const char *szFile, char (&szText)[kMissingHelpText]);

#endif
