// gdi_canvas.h - a plot on a device context: a window, a bitmap in memory, a
// page of a printer. Each call of the canvas is one of the platform.
//
//     const cWindowDc Dc(hWnd);
//     cGdiCanvas      Canvas(Dc.Get(), hFont);
//     DrawAddedPoint(Layout, *Plot.DataSet(nLine), &Canvas);

#ifndef GRAPH_GDI_CANVAS_H
#define GRAPH_GDI_CANVAS_H

#include "toolkit/win32/win32.h"

#include "graph/plot_canvas.h"

class cGdiCanvas : public cPlotCanvas
{
public:
    // Writes with hFont, which lives as long as the canvas; null leaves the font
    // that is selected. The context gets back what it had when the canvas goes.
    cGdiCanvas(HDC hDc, HFONT hFont);
    ~cGdiCanvas() override;
    cGdiCanvas(const cGdiCanvas &)            = delete;
    cGdiCanvas &operator=(const cGdiCanvas &) = delete;

    int  PixelsPerInchX() const override;
    int  PixelsPerInchY() const override;
    int  TextHeight() const override;
    int  TextWidth(const char *szText) const override;
    void FillBox(const cRect &Rect, uint32_t crColour) override;
    void Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                   const cPlotPen &Pen) override;
    void Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen) override;
    void Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                  uint32_t crColour) override;
    void Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour) override;
    void PushClip(const cRect &Rect) override;
    void PopClip() override;

private:
    HDC m_hDc;
    int m_nSaved;  // what the context had
};

#endif
