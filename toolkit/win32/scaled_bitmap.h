// scaled_bitmap.h - pictures in another size than they are drawn in.

#ifndef TOOLKIT_WIN32_SCALED_BITMAP_H
#define TOOLKIT_WIN32_SCALED_BITMAP_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/gdi.h"

// Draws rectangle From of hFrom over rectangle To of hTo. Pixels are averaged unless
// both have the same size.
void StretchPart(HDC hTo, const RECT &To, HDC hFrom, const RECT &From);

// A copy of the bitmap, which is not selected into a context, in another size and the
// format of the screen. Empty if memory is short.
cGdiBitmap ScaledBitmap(HBITMAP hBitmap, int nWidth, int nHeight);

#endif
