// palette_bitmap.h - a bitmap resource and its palette, for screens that show 256
// colours at a time.

#ifndef TOOLKIT_WIN32_PALETTE_BITMAP_H
#define TOOLKIT_WIN32_PALETTE_BITMAP_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/gdi.h"

// Loads bitmap resource nId of the program, converts it to the format of the
// screen, and makes a palette of its colour table; a bitmap without a colour table
// (16 bits and more) gets the platform's halftone palette. 0, with both owners
// empty, if there is no such resource or GDI is out of memory.
int LoadPaletteBitmap(unsigned nId, cGdiBitmap *pBitmap, cGdiPalette *pPalette);

#endif
