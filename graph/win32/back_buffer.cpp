#include "graph/win32/back_buffer.h"

#include <algorithm>

int cBackBuffer::Fit(HWND hWnd)
{
    RECT Client = {};
    GetClientRect(hWnd, &Client);
    const int nWidth  = std::max<int>(Client.right, 1);
    const int nHeight = std::max<int>(Client.bottom, 1);
    if (m_Dc && nWidth == m_nWidth && nHeight == m_nHeight)
        return 1;
    Free();
    const cWindowDc Window(hWnd);
    m_Dc.Reset(CreateCompatibleDC(Window.Get()));
    m_Bitmap.Reset(CreateCompatibleBitmap(Window.Get(), nWidth, nHeight));
    if (!m_Dc || !m_Bitmap)
    {
        Free();
        return 0;
    }
    m_Selected.emplace(m_Dc.Get(), m_Bitmap.Get());
    m_nWidth  = nWidth;
    m_nHeight = nHeight;
    return 1;
}

void cBackBuffer::Show(HDC hWindowDc, const RECT &Part) const
{
    if (!m_Dc)
        return;
    BitBlt(hWindowDc, Part.left, Part.top, Part.right - Part.left, Part.bottom - Part.top,
           m_Dc.Get(), Part.left, Part.top, SRCCOPY);
}

void cBackBuffer::Free()
{
    m_Selected.reset();
    m_Bitmap.Reset();
    m_Dc.Reset();
}
