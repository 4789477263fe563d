#include "figure/window_canvas.h"

#include <cmath>
#include <string>
#include <vector>

#include "graph/svg_font.h"
#include "graph/vantor_data_set.h"

static const double kCentre = 0.5;  // of a pixel, from its edge

// Pixels drawn and left out, in turn, by the style of a pen of width 1, as the
// platform's pens do.
static const double kPenDash[]       = {18.0, 6.0};
static const double kPenDot[]        = {3.0, 3.0};
static const double kPenDashDot[]    = {9.0, 6.0, 3.0, 6.0};
static const double kPenDashDotDot[] = {9.0, 3.0, 3.0, 3.0, 3.0, 3.0};

static std::span<const double> DashesOfPen(const cPlotPen &Pen)
{
    static const std::span<const double> s_Pens[] = {
        {}, kPenDash, kPenDot, kPenDashDot, kPenDashDotDot};
    return Pen.m_nWidth <= 1 && Pen.m_nStyle < kStyles ? s_Pens[Pen.m_nStyle]
                                                       : std::span<const double>();
}

static cStroke StrokeOf(const cPlotPen &Pen)
{
    return {Pen.m_crColor, Pen.m_nWidth > 1 ? Pen.m_nWidth : 1.0, DashesOfPen(Pen), 0};
}

static cTextStyle WindowText(uint32_t crColour)
{
    return {static_cast<double>(kSvgFontSize), 0, crColour};
}

static cFigureBox BoxOf(const cRect &Rect)
{
    return {static_cast<double>(Rect.m_nLeft), static_cast<double>(Rect.m_nTop),
            static_cast<double>(Rect.m_nRight), static_cast<double>(Rect.m_nBottom)};
}

static cSpot CentreOf(const cPoint &Point)
{
    return {Point.m_nX + kCentre, Point.m_nY + kCentre};
}

int cWindowCanvas::TextHeight() const
{
    return kSvgTextHeight;
}

int cWindowCanvas::TextWidth(const char *szText) const
{
    const cFigureText Text = {{szText}};
    return static_cast<int>(std::lround(m_pCanvas->TextWidth(Text, WindowText(0))));
}

void cWindowCanvas::FillBox(const cRect &Rect, uint32_t crColour)
{
    if (!Rect.IsEmpty())
        m_pCanvas->FillBox(BoxOf(Rect), crColour);
}

void cWindowCanvas::Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                              const cPlotPen &Pen)
{
    m_pCanvas->BeginLine(StrokeOf(Pen));
    for (size_t nLine = 0; nLine < nLines; nLine++)
    {
        DrawLine(pPoints, pCounts[nLine]);
        pPoints += pCounts[nLine];
    }
    m_pCanvas->EndLine();
}

void cWindowCanvas::Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen)
{
    m_pCanvas->BeginLine(StrokeOf(Pen));
    DrawLine(pPoints, nPoints);
    m_pCanvas->EndLine();
}

// A line along an axis covers whole pixels, from its first one to the one before
// its last; any other goes from middle to middle.
void cWindowCanvas::DrawLine(const cPoint *pPoints, size_t nPoints)
{
    const cSpot From = CentreOf(pPoints[0]);
    const cSpot To   = CentreOf(pPoints[nPoints - 1]);
    if (nPoints == 2 && From.m_dY == To.m_dY && From.m_dX < To.m_dX)
    {
        m_pCanvas->MoveTo({From.m_dX - kCentre, From.m_dY});
        m_pCanvas->LineTo({To.m_dX - kCentre, To.m_dY});
        return;
    }
    if (nPoints == 2 && From.m_dX == To.m_dX && From.m_dY < To.m_dY)
    {
        m_pCanvas->MoveTo({From.m_dX, From.m_dY - kCentre});
        m_pCanvas->LineTo({To.m_dX, To.m_dY - kCentre});
        return;
    }
    m_pCanvas->MoveTo(From);
    for (size_t nPoint = 1; nPoint < nPoints; nPoint++)
        m_pCanvas->LineTo(CentreOf(pPoints[nPoint]));
}

void cWindowCanvas::Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                             uint32_t crColour)
{
    std::vector<cSpot> Corners;
    for (size_t nPolygon = 0; nPolygon < nPolygons; nPolygon++)
    {
        Corners.clear();
        for (int nCorner = 0; nCorner < pCounts[nPolygon]; nCorner++)
            Corners.push_back(CentreOf(*pPoints++));
        m_pCanvas->FillPolygon(Corners, crColour);
        m_pCanvas->BeginLine({crColour, 1.0, {}, 1});
        m_pCanvas->MoveTo(Corners.back());
        for (const cSpot &Corner : Corners)
            m_pCanvas->LineTo(Corner);
        m_pCanvas->EndLine();
    }
}

// Blanks at the ends count for the place of a text and are not drawn: not all who
// show an SVG file treat them alike.
void cWindowCanvas::Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour)
{
    static const eTextAnchor s_Anchors[] = {taStart, taMiddle, taEnd};

    const std::string Text   = szText;
    const size_t      nFirst = Text.find_first_not_of(' ');
    if (nFirst == std::string::npos)
        return;
    const size_t nLast      = Text.find_last_not_of(' ');
    const auto   dBefore    = static_cast<double>(nFirst);
    const auto   dAfter     = static_cast<double>(Text.size() - 1 - nLast);
    const double FromLeft[] = {dBefore, (dBefore - dAfter) / 2, -dAfter};
    const double dBlank     = m_pCanvas->TextWidth({{" "}}, WindowText(0));
    const cSpot  Base       = {At.m_nX + FromLeft[nAlign] * dBlank,
                               static_cast<double>(At.m_nY + kSvgAscent)};
    m_pCanvas->Text(Base, s_Anchors[nAlign], 0, {{Text.substr(nFirst, nLast + 1 - nFirst)}},
                    WindowText(crColour));
}

void cWindowCanvas::PushClip(const cRect &Rect)
{
    m_pCanvas->PushClip(BoxOf(Rect));
}
