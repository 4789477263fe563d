// lamps.h - the lamps on the face, each a small picture that is drawn over the face
// while the lamp is lit. Which of them mean what: eLamp in engine/display.h.

#ifndef SHELL_WIN32_LAMPS_H
#define SHELL_WIN32_LAMPS_H

#include "toolkit/win32/win32.h"

#include "shell/face_geometry.h"

class cFacePictures;

class cLamps
{
public:
    cLamps();

    // The pictures, which must outlive this object or the next call, and the scale for
    // which they were loaded; nTop is the row of the face at the top of its window.
    void SetPictures(const cFacePictures &Pictures, const cScale &Scale, int nTop);

    // Lights those whose bit is set, bit n for lamp n, and no others. Draws the ones
    // that change on the window of the face.
    void Show(HWND hFace, unsigned nLit);

    // Draws the lit ones over a face without them.
    void Paint(HDC hDc) const;

private:
    void PaintLamp(HDC hDc, int nLamp, HBITMAP hPicture, int nX, int nY) const;
    void PaintLit(HDC hDc, int nLamp) const;
    void PaintDark(HDC hDc, int nLamp) const;

    const cFacePictures *m_pPictures;  // null before SetPictures
    cFaceRect            m_Rects[kFaceLamps];
    int                  m_nTop;
    unsigned             m_nLit;
};

#endif
