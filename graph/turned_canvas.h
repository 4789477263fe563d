// turned_canvas.h - a sheet of paper that its reader has turned by a quarter to
// the left: what is drawn from left to right runs down the sheet.
//
//     const cGdiFont Font(CreateFontIndirectA(&LogFont));  // lfEscapement = kTurnedText
//     cTurnedCanvas  Canvas(hDc, Font.Get(), GetDeviceCaps(hDc, HORZRES));

#ifndef GRAPH_TURNED_CANVAS_H
#define GRAPH_TURNED_CANVAS_H

#include "toolkit/win32.h"

#include "graph/gdi_canvas.h"

class cTurnedCanvas : public cGdiCanvas
{
public:
    // hFont writes down the sheet, by its escapement and orientation. nWidth is
    // that of the sheet as it leaves the printer, in pixels: the reader's point
    // (0, 0) is its pixel (nWidth - 1, 0).
    cTurnedCanvas(HDC hDc, HFONT hFont, int nWidth);

    int  TextHeight() const override;
    int  TextWidth(const char *szText) const override;
    void FillBox(const cRect &Rect, uint32_t crColor) override;
    void Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColor) override;
    void PushClip(const cRect &Rect) override;
    void PopClip() override;

private:
    cRect OnSheet(const cRect &Rect) const;

    HDC   m_hDc;
    int   m_nWidth;
    XFORM m_Turn;
};

#endif
