// choosers.h - the platform's dialogs for a colour and for a font.

#ifndef TOOLKIT_WIN32_CHOOSERS_H
#define TOOLKIT_WIN32_CHOOSERS_H

#include "toolkit/win32/win32.h"

// Lets the user choose a colour, starting from *pcrColour. 0, with nothing
// changed, if the user cancelled. Custom colours are kept for the next call.
int AskColour(HWND hOwner, COLORREF *pcrColour);

// Lets the user choose a screen font and a text colour, starting from the given
// ones. 0, with nothing changed, if the user cancelled.
int AskFont(HWND hOwner, LOGFONTA *pFont, COLORREF *pcrText);

#endif
