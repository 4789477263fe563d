// turned_canvas.h - a sheet of paper that its reader turns left by 90 degrees:
// what is drawn from left to right runs down the sheet.
//
//     cGdiCanvas    Sheet(hDc, hFontThatWritesDown);
//     cTurnedCanvas Canvas(&Sheet, nPixelsAcross);

#ifndef GRAPH_TURNED_CANVAS_H
#define GRAPH_TURNED_CANVAS_H

#include "graph/plot_canvas.h"

// Points are turned here, not by the platform: printers whose coordinates are
// turned lose the height of texts and the width of pens.
class cTurnedCanvas : public cPlotCanvas
{
public:
    // The sheet as it leaves the printer, nWidth pixels wide; its font must write
    // downwards. The reader's point (0, 0) is its pixel
    // (nWidth - 1, 0).
    cTurnedCanvas(cPlotCanvas *pSheet, int nWidth) : m_pSheet(pSheet), m_nWidth(nWidth), m_Points()
    {
    }

    // Those of the sheet, as it leaves the printer.
    int PixelsPerInchX() const override { return m_pSheet->PixelsPerInchX(); }
    int PixelsPerInchY() const override { return m_pSheet->PixelsPerInchY(); }

    int  TextHeight() const override { return m_pSheet->TextHeight(); }
    int  TextWidth(const char *szText) const override { return m_pSheet->TextWidth(szText); }
    void FillBox(const cRect &Rect, uint32_t crColour) override;

    // Lines and polygons go out one by one, long lines in pieces.
    void Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                   const cPlotPen &Pen) override;
    void Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen) override;

    // Of at most kMostTurnedCorners corners each.
    void Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                  uint32_t crColour) override;

    void Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour) override;
    void PushClip(const cRect &Rect) override;
    void PopClip() override { m_pSheet->PopClip(); }

    static constexpr size_t kMostTurnedCorners = 1024;

private:
    const cPoint *Turn(const cPoint *pPoints, size_t nPoints);
    cRect         Turn(const cRect &Rect) const;

    cPlotCanvas *m_pSheet;
    int          m_nWidth;
    cPoint       m_Points[kMostTurnedCorners];  // turned
};

#endif
