// bitmap_files.h - writes the platform's bitmaps as BMP and GIF files.

#ifndef IMAGING_WIN32_BITMAP_FILES_H
#define IMAGING_WIN32_BITMAP_FILES_H

#include "toolkit/win32/win32.h"

#include "toolkit/message_box.h"

// The bitmap must not be selected into a device context. hPalette is its palette,
// null for the platform's default palette. If memory is short, the user is asked
// through pBoxes whether to retry. An existing file is replaced by a complete one; it
// stays as it is if that fails.

// Writes a BMP file of nBits bits per pixel, rounded up to 1, 4, 8, 16, 24 or 32.
// 0 without a bitmap, for 0 bits, or if anything cannot be read or written; if
// there was no such file, an incomplete one is not removed.
int WriteBmpFile(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, const char *szFileName,
                 cMessageBoxes *pBoxes);

// Writes a GIF file of 256 colours, reduced from pixels of nBits bits, at most 24.
// b555 is the layout of 16-bit pixels: 1 for 5-5-5, 0 for 5-6-5. 0 as above, but no
// incomplete file is left.
int WriteBitmapAsGif(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, const char *szFileName,
                     int b555, cMessageBoxes *pBoxes);

#endif
