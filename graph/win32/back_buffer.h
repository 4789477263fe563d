// back_buffer.h - a bitmap in memory with the contents of a window, which is then
// painted without flicker and restored without being drawn again.

#ifndef GRAPH_WIN32_BACK_BUFFER_H
#define GRAPH_WIN32_BACK_BUFFER_H

#include "toolkit/win32/win32.h"

#include <optional>

#include "toolkit/win32/gdi.h"

class cBackBuffer
{
public:
    // Makes the bitmap compatible with the window and as large as its client
    // area, at least 1 by 1 pixel. A change of size loses the contents. 0 if the
    // platform cannot create the bitmap.
    int Fit(HWND hWnd);

    // Null until Fit has succeeded.
    HDC Dc() const { return m_Dc.Get(); }

    // Copies a part to the same place in the window. Does nothing until Fit has
    // succeeded.
    void Show(HDC hWindowDc, const RECT &Part) const;

private:
    void Free();

    cGdiBitmap                  m_Bitmap;
    cCreatedDc                  m_Dc;
    std::optional<cSelectGuard> m_Selected;  // the bitmap in the context
    int                         m_nWidth  = 0;
    int                         m_nHeight = 0;
};

#endif
