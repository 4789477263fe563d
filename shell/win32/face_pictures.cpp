#include "shell/win32/face_pictures.h"

#include <algorithm>
#include <utility>

#include "resources/resource.h"
#include "shell/face_geometry.h"
#include "shell/win32/drawn_pictures.h"
#include "toolkit/win32/palette_bitmap.h"
#include "toolkit/win32/scaled_bitmap.h"

// An image of the strip at nLeft, in row nRow. All images of a column have its size.
static RECT ImageRect(int nLeft, int nRow, const cFaceRect &Shown)
{
    const int nTop = nRow * Shown.m_nHeight;
    return {nLeft, nTop, nLeft + Shown.m_nWidth, nTop + Shown.m_nHeight};
}

static cGdiBitmap CreateShown(int nWidth, int nHeight)
{
    return cGdiBitmap(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), nWidth, nHeight));
}

// Scales each image of a strip by itself, so that it has exactly the pixels of its
// rectangle on the face.
static cGdiBitmap ScaleStrip(cDrawnPicture Drawn, const cScale &Scale, const cFaceRect *pRects,
                             int nRects, int nRows)
{
    if (Drawn.m_Scale == Scale)
        return std::move(Drawn.m_Bitmap);
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
    const cSelectGuard FromBitmap(FromDc.Get(), Drawn.m_Bitmap.Get());
    const cSelectGuard ToBitmap(ToDc.Get(), Shown.Get());
    int                nFromX = 0;
    int                nToX   = 0;
    for (int i = 0; i < nRects; i++)
    {
        const cFaceRect From = ScaledRect(pRects[i], Drawn.m_Scale);
        const cFaceRect To   = ScaledRect(pRects[i], Scale);
        for (int nRow = 0; nRow < nRows; nRow++)
            StretchPart(ToDc.Get(), ImageRect(nToX, nRow, To), FromDc.Get(),
                        ImageRect(nFromX, nRow, From));
        nFromX += From.m_nWidth;
        nToX += To.m_nWidth;
    }
    return Shown;
}

static cGdiBitmap ScaleFace(cDrawnPicture Drawn, const cScale &Scale)
{
    if (Drawn.m_Scale == Scale)
        return std::move(Drawn.m_Bitmap);
    return ScaledBitmap(Drawn.m_Bitmap.Get(), Scale.Length(kFaceWidth), Scale.Length(kFaceHeight));
}

// A released key drawn over the face changes nothing, however both are scaled.
static void CopyReleasedKeys(HBITMAP hFace, HBITMAP hKeys, const cScale &Scale)
{
    const cMemoryDc    Face(nullptr);
    const cMemoryDc    Keys(nullptr);
    const cSelectGuard FaceBitmap(Face.Get(), hFace);
    const cSelectGuard KeysBitmap(Keys.Get(), hKeys);
    int                nX = 0;
    for (const cFaceRect &Usual : kKeyRects)
    {
        const cFaceRect Key = ScaledRect(Usual, Scale);
        BitBlt(Keys.Get(), nX, 0, Key.m_nWidth, Key.m_nHeight, Face.Get(), Key.m_nLeft, Key.m_nTop,
               SRCCOPY);
        nX += Key.m_nWidth;
    }
}

void cFacePictures::Load(const cScale &Scale)
{
    cGdiPalette Unused;
    LoadPaletteBitmap(IDB_FACE, &m_Face, &m_Palette);
    LoadPaletteBitmap(IDB_KEYS, &m_Keys, &Unused);
    LoadPaletteBitmap(IDB_SWITCHES, &m_Switches, &Unused);
    LoadPaletteBitmap(IDB_LAMPS, &m_Lamps, &Unused);
    if (Scale == cScale())
        return;

    m_Face     = ScaleFace(LoadDrawnPicture(piFace, Scale), Scale);
    m_Keys     = ScaleStrip(LoadDrawnPicture(piKeys, Scale), Scale, kKeyRects, kFaceKeys, 2);
    m_Switches = ScaleStrip(LoadDrawnPicture(piSwitches, Scale), Scale, kSwitchRects, kFaceSwitches,
                            kSwitchFrames);
    m_Lamps    = ScaleStrip(LoadDrawnPicture(piLamps, Scale), Scale, kLampRects, kFaceLamps, 1);
    CopyReleasedKeys(m_Face.Get(), m_Keys.Get(), Scale);
}
