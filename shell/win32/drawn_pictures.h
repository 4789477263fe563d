// drawn_pictures.h - the program's pictures for screens of higher resolution than
// usual.

#ifndef SHELL_WIN32_DRAWN_PICTURES_H
#define SHELL_WIN32_DRAWN_PICTURES_H

#include "toolkit/win32/win32.h"

#include "toolkit/scale.h"
#include "toolkit/win32/gdi.h"

// In the order of their resources.
enum ePicture
{
    piFace,
    piKeys,
    piSwitches,
    piToolBar,
    piLamps,
    piWelcome
};

struct cDrawnPicture
{
    cGdiBitmap m_Bitmap;
    cScale     m_Scale;  // in which it is drawn
};

// The picture that is drawn for this scale, or else for the next larger one, or the
// largest. At the usual scale, and where larger ones cannot be decoded, that is the
// bitmap resource.
cDrawnPicture LoadDrawnPicture(ePicture nPicture, const cScale &Scale);

#endif
