// tool_images.h - the images of a toolbar for a screen of any resolution.

#ifndef TOOLKIT_WIN32_TOOL_IMAGES_H
#define TOOLKIT_WIN32_TOOL_IMAGES_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/owned_handle.h"

struct cFreeImageList
{
    static void Free(HIMAGELIST hList) { ImageList_Destroy(hList); }
};
using cImageList = cOwnedHandle<HIMAGELIST, cFreeImageList>;

// The images of hList in another size. The first nStandard of them are the platform's
// standard images, which it also has in a larger size. The others are those of hStrip,
// side by side, with premultiplied transparency. Empty if memory is short.
cImageList ScaledToolImages(HIMAGELIST hList, int nStandard, HBITMAP hStrip, SIZE Size);

#endif
