#include "graph/win32/gdi_canvas.h"

#include <cstddef>
#include <memory>
#include <new>

#include "graph/column_runs.h"

// The renderer's vertices are passed to the platform unchanged.
static_assert(sizeof(cPoint) == sizeof(POINT));
static_assert(offsetof(cPoint, m_nX) == offsetof(POINT, x));
static_assert(offsetof(cPoint, m_nY) == offsetof(POINT, y));
static_assert(sizeof(uint32_t) == sizeof(DWORD));

static const size_t kFewPoints = 100;  // always drawn quickly

static const POINT *AsPoints(const cPoint *pPoints)
{
    return reinterpret_cast<const POINT *>(pPoints);
}

// Line styles have the numbers of the platform's pen styles.
static int PenStyle(const cPlotPen &Pen)
{
    return Pen.m_nWidth > 1 ? PS_SOLID : static_cast<int>(Pen.m_nStyle);
}

// Dashes and gaps by pen style, in pixels at 96 dots per inch, as the platform draws
// them with a pen of one pixel. It has no wider pens with dashes of this length.
static const struct
{
    DWORD m_nParts;
    int   m_Parts[6];
} s_Dashes[] = {{0, {}}, {2, {18, 6}}, {2, {3, 3}}, {4, {9, 6, 3, 6}}, {6, {9, 3, 3, 3, 3, 3}}};
static const int kDashStyles = sizeof s_Dashes / sizeof *s_Dashes;

cGdiPen cGdiCanvas::MakePen(const cPlotPen &Pen) const
{
    const int nStyle = PenStyle(Pen);
    const int nWidth = m_Scale.Length(static_cast<int>(Pen.m_nWidth));
    if (nWidth <= 1 || nStyle <= PS_SOLID || nStyle >= kDashStyles)
        return cGdiPen(CreatePen(nStyle, nWidth, Pen.m_crColor));

    DWORD Parts[6];
    for (int i = 0; i < 6; i++)
        Parts[i] = static_cast<DWORD>(m_Scale.Length(s_Dashes[nStyle].m_Parts[i]));
    const LOGBRUSH Brush = {BS_SOLID, Pen.m_crColor, 0};
    return cGdiPen(ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT,
                                static_cast<DWORD>(nWidth), &Brush, s_Dashes[nStyle].m_nParts,
                                Parts));
}

// The transparent background mode also applies to the gaps of dashed lines.
cGdiCanvas::cGdiCanvas(HDC hDc, HFONT hFont, const cScale &Scale)
    : m_hDc(hDc), m_State(hDc), m_Scale(Scale)
{
    if (hFont)
        SelectObject(m_hDc, hFont);
    SetBkMode(m_hDc, TRANSPARENT);
}

// 0 if memory is short.
int cGdiCanvas::Dense()
{
    if (!m_pDense)
        m_pDense.reset(new (std::nothrow) cDenseFigures(m_hDc));
    return m_pDense != nullptr;
}

int cGdiCanvas::PixelsPerInchX() const
{
    return GetDeviceCaps(m_hDc, LOGPIXELSX);
}

int cGdiCanvas::PixelsPerInchY() const
{
    return GetDeviceCaps(m_hDc, LOGPIXELSY);
}

int cGdiCanvas::TextHeight() const
{
    TEXTMETRICA Metrics = {};
    GetTextMetricsA(m_hDc, &Metrics);
    return Metrics.tmHeight + Metrics.tmExternalLeading;
}

int cGdiCanvas::TextWidth(const char *szText) const
{
    SIZE Size = {};
    GetTextExtentPoint32A(m_hDc, szText, lstrlenA(szText), &Size);
    return Size.cx;
}

void cGdiCanvas::FillBox(const cRect &Rect, uint32_t crColour)
{
    const RECT      Box = {Rect.m_nLeft, Rect.m_nTop, Rect.m_nRight, Rect.m_nBottom};
    const cGdiBrush Brush(CreateSolidBrush(crColour));
    FillRect(m_hDc, &Box, Brush.Get());
}

void cGdiCanvas::Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                           const cPlotPen &Pen)
{
    const cGdiPen      GdiPen = MakePen(Pen);
    const cSelectGuard Selected(m_hDc, GdiPen.Get());
    PolyPolyline(m_hDc, AsPoints(pPoints), reinterpret_cast<const DWORD *>(pCounts),
                 static_cast<DWORD>(nLines));
}

void cGdiCanvas::Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen)
{
    const cGdiPen      GdiPen = MakePen(Pen);
    const cSelectGuard Selected(m_hDc, GdiPen.Get());

    // Without memory for merging them, all vertices are drawn.
    const std::unique_ptr<cPoint[]> pMerged(nPoints > kFewPoints && PenStyle(Pen) == PS_SOLID
                                                ? new (std::nothrow) cPoint[nPoints]
                                                : nullptr);
    const size_t        nMerged = pMerged ? MergeColumns(pPoints, nPoints, pMerged.get()) : nPoints;
    const cPoint *const pLine   = pMerged ? pMerged.get() : pPoints;
    if (nMerged <= kFewPoints || !DrawDenseLine(pLine, nMerged, Pen))
        ::Polyline(m_hDc, AsPoints(pLine), static_cast<int>(nMerged));
}

// The time for a wide line grows faster than the number of its vertices; the same
// holds for polygons. Each pixel of a dashed line takes as long as ten of a solid one.
// 0 for a solid line of one pixel and a wide dashed one, or if the line cannot be drawn
// another way.
int cGdiCanvas::DrawDenseLine(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen)
{
    const int nWidth = m_Scale.Length(static_cast<int>(Pen.m_nWidth));
    if (PenStyle(Pen) == PS_SOLID)
        return nWidth > 1 && Dense() &&
               m_pDense->DrawWideLine(pPoints, nPoints, nWidth, Pen.m_crColor);
    return nWidth <= 1 && Dense() &&
           m_pDense->DrawDashedLine(pPoints, nPoints, Pen.m_nStyle, Pen.m_crColor);
}

void cGdiCanvas::Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                          uint32_t crColour)
{
    if (nPolygons > kFewPoints && Dense() &&
        m_pDense->DrawPolygons(pPoints, pCounts, nPolygons, crColour))
        return;
    const cGdiPen      Pen(CreatePen(PS_SOLID, 1, crColour));
    const cGdiBrush    Brush(CreateSolidBrush(crColour));
    const cSelectGuard SelectedPen(m_hDc, Pen.Get());
    const cSelectGuard SelectedBrush(m_hDc, Brush.Get());
    SetPolyFillMode(m_hDc, WINDING);  // fills where polygons overlap
    PolyPolygon(m_hDc, AsPoints(pPoints), pCounts, static_cast<int>(nPolygons));
}

void cGdiCanvas::Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour)
{
    static const UINT s_Align[] = {TA_LEFT, TA_CENTER, TA_RIGHT};
    SetTextAlign(m_hDc, TA_TOP | s_Align[nAlign]);
    SetTextColor(m_hDc, crColour);
    TextOutA(m_hDc, At.m_nX, At.m_nY, szText, lstrlenA(szText));
}

void cGdiCanvas::PushClip(const cRect &Rect)
{
    SaveDC(m_hDc);
    IntersectClipRect(m_hDc, Rect.m_nLeft, Rect.m_nTop, Rect.m_nRight, Rect.m_nBottom);
}

void cGdiCanvas::PopClip()
{
    RestoreDC(m_hDc, -1);
}
