#include "shell/win32/face_pictures.h"

#include <algorithm>

#include "resources/resource.h"
#include "shell/face_geometry.h"
#include "toolkit/win32/palette_bitmap.h"

// An image of the strip at nLeft, in row nRow. All images of a column have its size.
static RECT ImageRect(int nLeft, int nRow, const cFaceRect &Shown)
{
    const int nTop = nRow * Shown.m_nHeight;
    return {nLeft, nTop, nLeft + Shown.m_nWidth, nTop + Shown.m_nHeight};
}

static void Stretch(HDC hTo, const RECT &To, HDC hFrom, const RECT &From)
{
    SetStretchBltMode(hTo, HALFTONE);
    SetBrushOrgEx(hTo, 0, 0, nullptr);
    StretchBlt(hTo, To.left, To.top, To.right - To.left, To.bottom - To.top, hFrom, From.left,
               From.top, From.right - From.left, From.bottom - From.top, SRCCOPY);
}

static cGdiBitmap CreateShown(int nWidth, int nHeight)
{
    return cGdiBitmap(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), nWidth, nHeight));
}

static cGdiBitmap ScaleFace(HBITMAP hDrawn, const cScale &Drawn, const cScale &Scale)
{
    const RECT From = {0, 0, Drawn.Length(kFaceWidth), Drawn.Length(kFaceHeight)};
    const RECT To   = {0, 0, Scale.Length(kFaceWidth), Scale.Length(kFaceHeight)};
    cGdiBitmap Shown(CreateShown(To.right, To.bottom));

    const cMemoryDc    FromDc(nullptr);
    const cMemoryDc    ToDc(nullptr);
    const cSelectGuard FromBitmap(FromDc.Get(), hDrawn);
    const cSelectGuard ToBitmap(ToDc.Get(), Shown.Get());
    Stretch(ToDc.Get(), To, FromDc.Get(), From);
    return Shown;
}

// Scales each image of a strip by itself, so that it has exactly the pixels of its
// rectangle on the face.
static cGdiBitmap ScaleStrip(HBITMAP hDrawn, const cScale &Drawn, const cScale &Scale,
                             const cFaceRect *pRects, int nRects, int nRows)
{
    int nWidth  = 0;
    int nHeight = 0;
    for (int i = 0; i < nRects; i++)
    {
        nWidth += ScaledRect(pRects[i], Scale).m_nWidth;
        nHeight = std::max(nHeight, ScaledRect(pRects[i], Scale).m_nHeight);
    }
    cGdiBitmap Shown(CreateShown(nWidth, nRows * nHeight));

    const cMemoryDc    FromDc(nullptr);
    const cMemoryDc    ToDc(nullptr);
    const cSelectGuard FromBitmap(FromDc.Get(), hDrawn);
    const cSelectGuard ToBitmap(ToDc.Get(), Shown.Get());
    int                nFromX = 0;
    int                nToX   = 0;
    for (int i = 0; i < nRects; i++)
    {
        const cFaceRect From = ScaledRect(pRects[i], Drawn);
        const cFaceRect To   = ScaledRect(pRects[i], Scale);
        for (int nRow = 0; nRow < nRows; nRow++)
            Stretch(ToDc.Get(), ImageRect(nToX, nRow, To), FromDc.Get(),
                    ImageRect(nFromX, nRow, From));
        nFromX += From.m_nWidth;
        nToX += To.m_nWidth;
    }
    return Shown;
}

void cFacePictures::Load(const cScale &Scale)
{
    cGdiPalette Unused;
    LoadPaletteBitmap(IDB_FACE, &m_Face, &m_Palette);
    LoadPaletteBitmap(IDB_KEYS, &m_Keys, &Unused);
    LoadPaletteBitmap(IDB_SWITCHES, &m_Switches, &Unused);
    if (Scale == cScale())
        return;

    const cScale Drawn;
    m_Face = ScaleFace(m_Face.Get(), Drawn, Scale);
    m_Keys = ScaleStrip(m_Keys.Get(), Drawn, Scale, kKeyRects, kFaceKeys, 2);
    m_Switches =
        ScaleStrip(m_Switches.Get(), Drawn, Scale, kSwitchRects, kFaceSwitches, kSwitchFrames);
}
