// stamp_pad.h - a small picture in which the platform draws one figure, to learn
// which pixels it covers.

#ifndef GRAPH_WIN32_STAMP_PAD_H
#define GRAPH_WIN32_STAMP_PAD_H

#include "toolkit/win32/win32.h"

#include "graph/pixel_mask.h"
#include "toolkit/win32/gdi.h"

class cStampPad
{
public:
    cStampPad() = default;
    ~cStampPad();
    cStampPad(const cStampPad &)            = delete;
    cStampPad &operator=(const cStampPad &) = delete;

    // 0 if the platform cannot create the picture.
    int Create();

    // Figures are drawn here, in white, around (0, 0). Null until Create has
    // succeeded.
    HDC Dc() const { return m_Dc.Get(); }

    void Clear();

    // Stores what has been drawn since Clear. 0 if it is nothing, or larger than a
    // stamp.
    int Read(cStamp *pStamp) const;

private:
    uint32_t Pixel(int nX, int nY) const;
    cRect    DrawnBox() const;

    cCreatedDc m_Dc;
    cGdiBitmap m_Bitmap;
    uint32_t  *m_pPixels = nullptr;
};

#endif
