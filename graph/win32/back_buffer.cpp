#include "graph/win32/back_buffer.h"

#include <algorithm>

#include "toolkit/win32/gdi.h"

int cBackBuffer::Fit(HWND hWnd)
{
    RECT Client = {};
    GetClientRect(hWnd, &Client);
    const int nWidth  = std::max<int>(Client.right, 1);
    const int nHeight = std::max<int>(Client.bottom, 1);
    if (m_hDc && nWidth == m_nWidth && nHeight == m_nHeight)
        return 1;
    Free();
    const cWindowDc Window(hWnd);
    m_hDc     = CreateCompatibleDC(Window.Get());
    m_hBitmap = CreateCompatibleBitmap(Window.Get(), nWidth, nHeight);
    if (!m_hDc || !m_hBitmap)
    {
        Free();
        return 0;
    }
    m_hFormer = SelectObject(m_hDc, m_hBitmap);
    m_nWidth  = nWidth;
    m_nHeight = nHeight;
    return 1;
}

void cBackBuffer::Show(HDC hWindowDc, const RECT &Part) const
{
    if (!m_hDc)
        return;
    BitBlt(hWindowDc, Part.left, Part.top, Part.right - Part.left, Part.bottom - Part.top, m_hDc,
           Part.left, Part.top, SRCCOPY);
}

void cBackBuffer::Free()
{
    if (m_hFormer)
        SelectObject(m_hDc, m_hFormer);
    if (m_hBitmap)
        DeleteObject(m_hBitmap);
    if (m_hDc)
        DeleteDC(m_hDc);
    m_hDc     = nullptr;
    m_hBitmap = nullptr;
    m_hFormer = nullptr;
}
