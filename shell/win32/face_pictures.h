// face_pictures.h - the pictures of the face, its keys, slide switches and lamps for a
// screen of any resolution.

#ifndef SHELL_WIN32_FACE_PICTURES_H
#define SHELL_WIN32_FACE_PICTURES_H

#include "toolkit/win32/win32.h"

#include "toolkit/scale.h"
#include "toolkit/win32/gdi.h"

struct cFaceRect;

class cFacePictures
{
public:
    // Loads the pictures that are drawn for this scale, or shrinks the next larger
    // ones. The strips have the layout of cButtonArray: each image has the size of its
    // rectangle, scaled by its edges. Pictures that cannot be loaded are null.
    void Load(const cScale &Scale);

    HBITMAP  Face() const { return m_Face.Get(); }
    HBITMAP  Keys() const { return m_Keys.Get(); }
    HBITMAP  Switches() const { return m_Switches.Get(); }
    HBITMAP  Lamps() const { return m_Lamps.Get(); }      // lit
    HPALETTE Palette() const { return m_Palette.Get(); }  // the face's; the strips share it

private:
    cGdiBitmap  m_Face;
    cGdiBitmap  m_Keys;
    cGdiBitmap  m_Switches;
    cGdiBitmap  m_Lamps;
    cGdiPalette m_Palette;
};

#endif
