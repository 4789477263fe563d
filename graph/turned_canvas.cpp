#include "graph/turned_canvas.h"

namespace
{

// Draws upright for as long as it lives. Lines are turned by the platform's
// transformation of coordinates; not so texts, whose sizes some printers do
// not know then, and rectangles, which would move by a pixel.
class cUprightGuard
{
public:
    cUprightGuard(HDC hDc, const XFORM &Turn) : m_hDc(hDc), m_Turn(Turn)
    {
        ModifyWorldTransform(m_hDc, nullptr, MWT_IDENTITY);
    }
    ~cUprightGuard() { SetWorldTransform(m_hDc, &m_Turn); }
    cUprightGuard(const cUprightGuard &)            = delete;
    cUprightGuard &operator=(const cUprightGuard &) = delete;

private:
    HDC          m_hDc;
    const XFORM &m_Turn;
};

}  // namespace

cTurnedCanvas::cTurnedCanvas(HDC hDc, HFONT hFont, int nWidth)
    : cGdiCanvas(hDc, hFont), m_hDc(hDc), m_nWidth(nWidth),
      // x' = nWidth - 1 - y, y' = x
      m_Turn{0.0F, 1.0F, -1.0F, 0.0F, static_cast<FLOAT>(nWidth - 1), 0.0F}
{
    SetGraphicsMode(hDc, GM_ADVANCED);
    SetWorldTransform(hDc, &m_Turn);
}

int cTurnedCanvas::TextHeight() const
{
    const cUprightGuard Upright(m_hDc, m_Turn);
    return cGdiCanvas::TextHeight();
}

int cTurnedCanvas::TextWidth(const char *szText) const
{
    const cUprightGuard Upright(m_hDc, m_Turn);
    return cGdiCanvas::TextWidth(szText);
}

void cTurnedCanvas::FillBox(const cRect &Rect, uint32_t crColor)
{
    const cUprightGuard Upright(m_hDc, m_Turn);
    cGdiCanvas::FillBox(OnSheet(Rect), crColor);
}

// The upper edge of the text is the right one of its first pixels on the sheet.
void cTurnedCanvas::Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColor)
{
    const cUprightGuard Upright(m_hDc, m_Turn);
    cGdiCanvas::Label({m_nWidth - At.m_nY, At.m_nX}, nAlign, szText, crColor);
}

void cTurnedCanvas::PushClip(const cRect &Rect)
{
    const cUprightGuard Upright(m_hDc, m_Turn);
    cGdiCanvas::PushClip(OnSheet(Rect));
}

// What comes back with the former clip was saved upright.
void cTurnedCanvas::PopClip()
{
    cGdiCanvas::PopClip();
    SetWorldTransform(m_hDc, &m_Turn);
}

cRect cTurnedCanvas::OnSheet(const cRect &Rect) const
{
    return {m_nWidth - Rect.m_nBottom, Rect.m_nLeft, m_nWidth - Rect.m_nTop, Rect.m_nRight};
}
