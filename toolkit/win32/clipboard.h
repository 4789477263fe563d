// clipboard.h - short texts to and from the clipboard.

#ifndef TOOLKIT_WIN32_CLIPBOARD_H
#define TOOLKIT_WIN32_CLIPBOARD_H

#include "toolkit/win32/win32.h"

// Replaces what is on the clipboard. 0 if another program has it open, or memory is
// short.
int CopyText(HWND hOwner, const char *szText);

// Reads the text on the clipboard. 0, and szText is empty, if there is none or it
// does not fit, or another program has the clipboard open.
int ReadCopiedText(HWND hReader, char *szText, size_t nSize);

#endif
