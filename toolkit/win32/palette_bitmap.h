// palette_bitmap.h - a bitmap resource and its palette, for screens that show 256
// colours at a time.

#ifndef TOOLKIT_PALETTE_BITMAP_H
#define TOOLKIT_PALETTE_BITMAP_H

#include "toolkit/win32/win32.h"

// Loads bitmap resource nId of the program as a bitmap for the screen, and the
// palette of its colour table; a bitmap without one (16 bits and more) gets the
// platform's half-tone palette. Both belong to the caller (DeleteObject). 0, and
// two nulls, if there is no such resource or GDI has no room for it.
int LoadPaletteBitmap(unsigned nId, HBITMAP *phBitmap, HPALETTE *phPalette);

#endif
