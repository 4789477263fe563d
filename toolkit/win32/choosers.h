// choosers.h - the platform's dialogs for a colour and for a font.

#ifndef TOOLKIT_CHOOSERS_H
#define TOOLKIT_CHOOSERS_H

#include "toolkit/win32/win32.h"

// Lets the user choose a colour, beginning with *pcrColour. 0, and nothing has
// changed, if he cancelled. The custom colours that he has mixed come back the
// next time.
int AskColour(HWND hOwner, COLORREF *pcrColour);

// Lets the user choose a screen font and a text colour, starting from the given
// ones. 0, with nothing changed, if the user cancelled.
int AskFont(HWND hOwner, LOGFONTA *pFont, COLORREF *pcrText);

#endif
