// back_buffer.h - a bitmap in memory with the contents of a window, which is then
// painted without flicker and restored without being drawn again.

#ifndef GRAPH_BACK_BUFFER_H
#define GRAPH_BACK_BUFFER_H

#include "toolkit/win32/win32.h"

class cBackBuffer
{
public:
    cBackBuffer()
        : m_hDc(nullptr), m_hBitmap(nullptr), m_hFormer(nullptr), m_nWidth(0), m_nHeight(0)
    {
    }
    ~cBackBuffer() { Free(); }
    cBackBuffer(const cBackBuffer &)            = delete;
    cBackBuffer &operator=(const cBackBuffer &) = delete;

    // Makes the bitmap as large as the window's client area, at least one pixel
    // each way, and like its device; what it held is lost when the size is
    // another. 0 if the platform has none.
    int Fit(HWND hWnd);

    // Null before the first Fit.
    HDC Dc() const { return m_hDc; }

    // Copies a part to the same place in the window. Does nothing until Fit has
    // succeeded.
    void Show(HDC hWindowDc, const RECT &Part) const;

private:
    void Free();

    HDC     m_hDc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hFormer;
    int     m_nWidth;
    int     m_nHeight;
};

#endif
