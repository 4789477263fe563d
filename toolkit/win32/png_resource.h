// png_resource.h - pictures that are kept as PNG files in the program.

#ifndef TOOLKIT_WIN32_PNG_RESOURCE_H
#define TOOLKIT_WIN32_PNG_RESOURCE_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/gdi.h"

// The PNG file that is RCDATA resource nId of the program, as a bitmap of 32 bits with
// premultiplied transparency. Empty if there is none, if the platform cannot decode
// it, or if memory is short.
cGdiBitmap LoadPngResource(unsigned nId);

#endif
