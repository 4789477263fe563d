#include "shell/win32/lamps.h"

#include "shell/win32/face_pictures.h"
#include "toolkit/win32/gdi.h"

cLamps::cLamps() : m_pPictures(nullptr), m_Rects{}, m_nTop(0), m_nLit(0) {}

void cLamps::SetPictures(const cFacePictures &Pictures, const cScale &Scale, int nTop)
{
    m_pPictures = &Pictures;
    m_nTop      = nTop;
    for (int i = 0; i < kFaceLamps; i++)
        m_Rects[i] = ScaledRect(kLampRects[i], Scale);
}

static int IsLit(unsigned nLit, int nLamp)
{
    return (nLit >> nLamp & 1U) != 0;
}

void cLamps::PaintLamp(HDC hDc, int nLamp, HBITMAP hPicture, int nX, int nY) const
{
    const cFaceRect   &Rect = m_Rects[nLamp];
    const cMemoryDc    Picture(hDc);
    const cSelectGuard Selected(Picture.Get(), hPicture);
    BitBlt(hDc, Rect.m_nLeft, Rect.m_nTop - m_nTop, Rect.m_nWidth, Rect.m_nHeight, Picture.Get(),
           nX, nY, SRCCOPY);
}

void cLamps::PaintLit(HDC hDc, int nLamp) const
{
    int nX = 0;
    for (int i = 0; i < nLamp; i++)
        nX += m_Rects[i].m_nWidth;
    PaintLamp(hDc, nLamp, m_pPictures->Lamps(), nX, 0);
}

void cLamps::PaintDark(HDC hDc, int nLamp) const
{
    PaintLamp(hDc, nLamp, m_pPictures->Face(), m_Rects[nLamp].m_nLeft, m_Rects[nLamp].m_nTop);
}

void cLamps::Paint(HDC hDc) const
{
    for (int i = 0; m_pPictures && i < kFaceLamps; i++)
        if (IsLit(m_nLit, i))
            PaintLit(hDc, i);
}

void cLamps::Show(HWND hFace, unsigned nLit)
{
    const unsigned nChanged = m_nLit ^ nLit;
    m_nLit                  = nLit;
    if (!nChanged || !m_pPictures)
        return;
    const cWindowDc     Dc(hFace);
    const cPaletteGuard Colours(Dc.Get(), m_pPictures->Palette());
    for (int i = 0; i < kFaceLamps; i++)
        if (IsLit(nChanged, i))
            IsLit(nLit, i) ? PaintLit(Dc.Get(), i) : PaintDark(Dc.Get(), i);
}
