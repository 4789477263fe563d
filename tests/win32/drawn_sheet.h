// drawn_sheet.h - a bitmap in memory in place of a window or a sheet of paper, for
// tests that draw and check pixels.
//
//     cDrawnSheet Sheet(40, 30);
//     cGdiCanvas(Sheet.Dc(), nullptr).FillBox({0, 0, 4, 3}, RGB(255, 0, 0));
//     CHECK(Sheet.Pixel(0, 0) == RGB(255, 0, 0));

#ifndef TESTS_WIN32_DRAWN_SHEET_H
#define TESTS_WIN32_DRAWN_SHEET_H

#include "toolkit/win32/win32.h"

#include "graph/plot_canvas.h"
#include "toolkit/win32/gdi.h"

class cDrawnSheet
{
public:
    // White.
    cDrawnSheet(int nWidth, int nHeight);

    HDC      Dc() const { return m_Dc.Get(); }
    int      Width() const { return m_nWidth; }
    int      Height() const { return m_nHeight; }
    COLORREF Pixel(int nX, int nY) const { return GetPixel(m_Dc.Get(), nX, nY); }

    // The smallest box around all pixels that are not white; empty if there are
    // none.
    cRect DrawnBox() const;

private:
    int          m_nWidth;
    int          m_nHeight;
    cGdiBitmap   m_Bitmap;
    cMemoryDc    m_Dc;
    cSelectGuard m_Selected;
};

#endif
