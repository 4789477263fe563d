// window_canvas.h - a plot with the pixels of a window, on the canvas of a figure.

#ifndef FIGURE_WINDOW_CANVAS_H
#define FIGURE_WINDOW_CANVAS_H

#include "figure/figure_canvas.h"
#include "graph/plot_canvas.h"

class cWindowCanvas : public cPlotCanvas
{
public:
    // The canvas outlives it, and has begun when something is drawn.
    explicit cWindowCanvas(cFigureCanvas *pCanvas) : m_pCanvas(pCanvas) {}

    int  PixelsPerInchX() const override { return 96; }
    int  PixelsPerInchY() const override { return 96; }
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
    void PopClip() override { m_pCanvas->PopClip(); }

private:
    void DrawLine(const cPoint *pPoints, size_t nPoints);

    cFigureCanvas *m_pCanvas;
};

#endif
