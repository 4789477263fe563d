// bitmap_files.h - the platform's bitmaps as BMP and GIF files.

#ifndef IMAGING_BITMAP_FILES_H
#define IMAGING_BITMAP_FILES_H

#include "toolkit/win32/win32.h"

#include "toolkit/message_box.h"

// Both take a bitmap that is selected into no device context, and the palette
// of its colours, null for the platform's default palette. When memory is short
// the user is asked through pBoxes, and giving up ends in 0. An old file of the
// name is replaced.

// Writes a BMP file of nBits bits per pixel, rounded up to 1, 4, 8, 16, 24 or
// 32. Returns 0 without a bitmap, for 0 bits, or if anything cannot be read or
// written; a file that was begun stays as it is then.
int WriteBmpFile(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, const char *szFileName,
                 cMessageBoxes *pBoxes);

// Writes a GIF file of 256 colours, reduced from pixels of nBits bits, at most
// 24. b555 says how 16 bits are divided: 1 for 5-5-5. Returns 0 as above; a file
// that was begun is removed then.
int WriteBitmapAsGif(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, const char *szFileName,
                     int b555, cMessageBoxes *pBoxes);

#endif
