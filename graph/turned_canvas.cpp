#include "graph/turned_canvas.h"

#include <algorithm>

void cTurnedCanvas::FillBox(const cRect &Rect, uint32_t crColour)
{
    m_pSheet->FillBox(Turn(Rect), crColour);
}

void cTurnedCanvas::Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                              const cPlotPen &Pen)
{
    for (size_t i = 0; i < nLines; i++)
    {
        Polyline(pPoints, pCounts[i], Pen);
        pPoints += pCounts[i];
    }
}

// Each piece begins with the last point of the former one.
void cTurnedCanvas::Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen)
{
    while (nPoints > 1)
    {
        const size_t nPiece = std::min(nPoints, kMostTurnedCorners);
        m_pSheet->Polyline(Turn(pPoints, nPiece), nPiece, Pen);
        pPoints += nPiece - 1;
        nPoints -= nPiece - 1;
    }
}

void cTurnedCanvas::Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                             uint32_t crColour)
{
    for (size_t i = 0; i < nPolygons; i++)
    {
        const auto nCorners = static_cast<size_t>(pCounts[i]);
        m_pSheet->Polygons(Turn(pPoints, nCorners), &pCounts[i], 1, crColour);
        pPoints += nCorners;
    }
}

// The upper edge of the text is the right one of its first pixels on the sheet.
void cTurnedCanvas::Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour)
{
    m_pSheet->Label({m_nWidth - At.m_nY, At.m_nX}, nAlign, szText, crColour);
}

void cTurnedCanvas::PushClip(const cRect &Rect)
{
    m_pSheet->PushClip(Turn(Rect));
}

const cPoint *cTurnedCanvas::Turn(const cPoint *pPoints, size_t nPoints)
{
    std::transform(pPoints, pPoints + nPoints, m_Points, [this](cPoint Point) -> cPoint {
        return {m_nWidth - 1 - Point.m_nY, Point.m_nX};
    });
    return m_Points;
}

cRect cTurnedCanvas::Turn(const cRect &Rect) const
{
    return {m_nWidth - Rect.m_nBottom, Rect.m_nLeft, m_nWidth - Rect.m_nTop, Rect.m_nRight};
}
