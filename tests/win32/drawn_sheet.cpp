#include "tests/win32/drawn_sheet.h"

#include <algorithm>

static const COLORREF kSheetGround = RGB(255, 255, 255);

static HBITMAP MakeBitmap(int nWidth, int nHeight)
{
    BITMAPINFO Info              = {};
    Info.bmiHeader.biSize        = sizeof Info.bmiHeader;
    Info.bmiHeader.biWidth       = nWidth;
    Info.bmiHeader.biHeight      = -nHeight;
    Info.bmiHeader.biPlanes      = 1;
    Info.bmiHeader.biBitCount    = 32;
    Info.bmiHeader.biCompression = BI_RGB;
    void *pBits                  = nullptr;
    return CreateDIBSection(nullptr, &Info, DIB_RGB_COLORS, &pBits, nullptr, 0);
}

cDrawnSheet::cDrawnSheet(int nWidth, int nHeight)
    : m_nWidth(nWidth), m_nHeight(nHeight), m_Bitmap(MakeBitmap(nWidth, nHeight)), m_Dc(nullptr),
      m_Selected(m_Dc.Get(), m_Bitmap.Get())
{
    const RECT All = {0, 0, nWidth, nHeight};
    FillRect(m_Dc.Get(), &All, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

cRect cDrawnSheet::DrawnBox() const
{
    cRect Box = {m_nWidth, m_nHeight, 0, 0};
    for (int nY = 0; nY < m_nHeight; nY++)
        for (int nX = 0; nX < m_nWidth; nX++)
            if (Pixel(nX, nY) != kSheetGround)
                Box = {std::min(Box.m_nLeft, nX), std::min(Box.m_nTop, nY),
                       std::max(Box.m_nRight, nX + 1), std::max(Box.m_nBottom, nY + 1)};
    return Box;
}
