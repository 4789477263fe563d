#include "web/picture_canvas.h"

#include "graph/svg_font.h"
#include "web/worker_calls.h"

// The codes of engine.d.ts.
enum eOperation
{
    opBox     = 1,
    opLine    = 2,
    opPolygon = 3,
    opText    = 4,
    opClip    = 5,
    opEndClip = 6
};

uint32_t TurnedColour(uint32_t nColour)
{
    return (nColour & 0xFF) << 16 | (nColour & 0xFF00) | (nColour >> 16 & 0xFF);
}

void cPictureCanvas::Send(int nWidth, int nHeight) const
{
    PostPicture(nWidth, nHeight, m_Numbers.data(), m_Numbers.size(), m_Texts.data(),
                m_Texts.size());
}

int cPictureCanvas::TextHeight() const
{
    return kSvgTextHeight;
}

int cPictureCanvas::TextWidth(const char *szText) const
{
    return SvgTextWidth(szText);
}

void cPictureCanvas::PutRect(const cRect &Rect)
{
    m_Numbers.insert(m_Numbers.end(), {Rect.m_nLeft, Rect.m_nTop, Rect.m_nRight, Rect.m_nBottom});
}

void cPictureCanvas::PutPoints(const cPoint *pPoints, size_t nPoints)
{
    m_Numbers.push_back(static_cast<int32_t>(nPoints));
    for (size_t n = 0; n < nPoints; n++)
        m_Numbers.insert(m_Numbers.end(), {pPoints[n].m_nX, pPoints[n].m_nY});
}

void cPictureCanvas::PutColour(uint32_t crColour)
{
    m_Numbers.push_back(static_cast<int32_t>(TurnedColour(crColour)));
}

void cPictureCanvas::FillBox(const cRect &Rect, uint32_t crColour)
{
    m_Numbers.push_back(opBox);
    PutRect(Rect);
    PutColour(crColour);
}

void cPictureCanvas::Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                               const cPlotPen &Pen)
{
    for (size_t n = 0; n < nLines; pPoints += pCounts[n], n++)
        Polyline(pPoints, pCounts[n], Pen);
}

void cPictureCanvas::Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen)
{
    m_Numbers.insert(m_Numbers.end(), {opLine, static_cast<int32_t>(Pen.m_nStyle),
                                       static_cast<int32_t>(Pen.m_nWidth)});
    PutColour(Pen.m_crColor);
    PutPoints(pPoints, nPoints);
}

void cPictureCanvas::Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                              uint32_t crColour)
{
    for (size_t n = 0; n < nPolygons; pPoints += pCounts[n], n++)
    {
        m_Numbers.push_back(opPolygon);
        PutColour(crColour);
        PutPoints(pPoints, static_cast<size_t>(pCounts[n]));
    }
}

void cPictureCanvas::Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour)
{
    m_Numbers.insert(m_Numbers.end(), {opText, At.m_nX, At.m_nY, static_cast<int32_t>(nAlign)});
    PutColour(crColour);
    m_Numbers.push_back(m_nTexts++);
    m_Texts.append(szText).push_back('\0');
}

void cPictureCanvas::PushClip(const cRect &Rect)
{
    m_Numbers.push_back(opClip);
    PutRect(Rect);
}

void cPictureCanvas::PopClip()
{
    m_Numbers.push_back(opEndClip);
}
