#include "graph/win32/stamp_pad.h"

#include <algorithm>
#include <cstring>

static const int kPadSide   = 2 * kStampSide;
static const int kPadCentre = kPadSide / 2;

cStampPad::~cStampPad()
{
    m_Dc.Reset();  // deselects the bitmap
}

int cStampPad::Create()
{
    BITMAPINFO Info              = {};
    Info.bmiHeader.biSize        = sizeof Info.bmiHeader;
    Info.bmiHeader.biWidth       = kPadSide;
    Info.bmiHeader.biHeight      = -kPadSide;  // from the top down
    Info.bmiHeader.biPlanes      = 1;
    Info.bmiHeader.biBitCount    = 32;
    Info.bmiHeader.biCompression = BI_RGB;
    void *pPixels                = nullptr;
    m_Dc.Reset(CreateCompatibleDC(nullptr));
    m_Bitmap.Reset(CreateDIBSection(m_Dc.Get(), &Info, DIB_RGB_COLORS, &pPixels, nullptr, 0));
    if (!m_Dc || !m_Bitmap || !SelectObject(m_Dc.Get(), m_Bitmap.Get()))
    {
        m_Dc.Reset();
        return 0;
    }
    m_pPixels = static_cast<uint32_t *>(pPixels);
    SetBkMode(m_Dc.Get(), TRANSPARENT);
    SetViewportOrgEx(m_Dc.Get(), kPadCentre, kPadCentre, nullptr);
    return 1;
}

// What has been drawn may not have reached the memory before GdiFlush.
void cStampPad::Clear()
{
    GdiFlush();
    memset(m_pPixels, 0, kPadSide * kPadSide * sizeof *m_pPixels);
}

uint32_t cStampPad::Pixel(int nX, int nY) const
{
    return m_pPixels[nY * kPadSide + nX] & 0xFFFFFF;
}

cRect cStampPad::DrawnBox() const
{
    cRect Box = {kPadSide, kPadSide, 0, 0};
    for (int nY = 0; nY < kPadSide; nY++)
        for (int nX = 0; nX < kPadSide; nX++)
            if (Pixel(nX, nY))
                Box = {std::min(Box.m_nLeft, nX), std::min(Box.m_nTop, nY),
                       std::max(Box.m_nRight, nX + 1), std::max(Box.m_nBottom, nY + 1)};
    return Box;
}

int cStampPad::Read(cStamp *pStamp) const
{
    GdiFlush();
    const cRect Box = DrawnBox();
    if (Box.IsEmpty() || Box.Width() > kStampSide || Box.Height() > kStampSide)
        return 0;
    *pStamp          = {};
    pStamp->m_Offset = {Box.m_nLeft - kPadCentre, Box.m_nTop - kPadCentre};
    pStamp->m_nRows  = Box.Height();
    for (int nY = Box.m_nTop; nY < Box.m_nBottom; nY++)
        for (int nX = Box.m_nLeft; nX < Box.m_nRight; nX++)
            if (Pixel(nX, nY))
                pStamp->m_Rows[nY - Box.m_nTop] |= 1u << (nX - Box.m_nLeft);
    return 1;
}
