// gdi_canvas.h - draws a plot on a device context: of a window, of a bitmap in
// memory, or of a printer.
//
//     const cWindowDc Dc(hWnd);
//     cGdiCanvas      Canvas(Dc.Get(), hFont);
//     DrawAddedPoint(Layout, *Plot.DataSet(nLine), &Canvas);

#ifndef GRAPH_WIN32_GDI_CANVAS_H
#define GRAPH_WIN32_GDI_CANVAS_H

#include "toolkit/win32/win32.h"

#include <memory>

#include "graph/plot_canvas.h"
#include "graph/win32/dense_figures.h"
#include "toolkit/scale.h"
#include "toolkit/win32/gdi.h"

class cGdiCanvas : public cPlotCanvas
{
public:
    // Labels use hFont, which must outlive the canvas, or the selected font for
    // null. Widths and dashes of pens are scaled, coordinates are not. The destructor
    // restores the state of the context.
    cGdiCanvas(HDC hDc, HFONT hFont, const cScale &Scale = cScale());

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
    cGdiPen MakePen(const cPlotPen &Pen) const;

    int Dense();
    int DrawDenseLine(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen);

    HDC                            m_hDc;
    cStateGuard                    m_State;
    cScale                         m_Scale;
    std::unique_ptr<cDenseFigures> m_pDense;  // made when it is needed
};

#endif
