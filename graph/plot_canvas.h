// plot_canvas.h - where a plot is drawn: window, bitmap, printer, SVG file, or
// a log in a test. It is all that the renderer knows of a device.

#ifndef GRAPH_PLOT_CANVAS_H
#define GRAPH_PLOT_CANVAS_H

#include <cstddef>
#include <cstdint>

// Device pixels, y down. Deliberately without a constructor, so that an array
// of them costs nothing before its values are stored.
struct cPoint
{
    int32_t m_nX;
    int32_t m_nY;
};

inline bool operator==(cPoint a, cPoint b)
{
    return a.m_nX == b.m_nX && a.m_nY == b.m_nY;
}

// Right and bottom do not belong to it.
struct cRect
{
    int Width() const { return m_nRight - m_nLeft; }
    int Height() const { return m_nBottom - m_nTop; }

    // 1 also for one whose edges are swapped.
    int IsEmpty() const { return m_nRight <= m_nLeft || m_nBottom <= m_nTop; }

    int m_nLeft;
    int m_nTop;
    int m_nRight;
    int m_nBottom;
};

inline bool operator==(const cRect &a, const cRect &b)
{
    return a.m_nLeft == b.m_nLeft && a.m_nTop == b.m_nTop && a.m_nRight == b.m_nRight &&
           a.m_nBottom == b.m_nBottom;
}

// A line style of kLineStyles; dashes are for lines of width 1, wider ones are
// solid whatever their style. Colours are 0x00BBGGRR.
struct cPlotPen
{
    uint32_t m_nStyle;
    uint32_t m_nWidth;  // pixels
    uint32_t m_crColor;
};

// Which point of the text is at the given place: always its top, and
// its left end, its middle or its right end.
enum eAlign
{
    alLeft,
    alCenter,
    alRight
};

// Each call has its own pen or colour and does not affect later ones. A line
// covers its first pixel and ends before its last one.
class cPlotCanvas
{
public:
    virtual ~cPlotCanvas() {}

    // Of the device, above 0.
    virtual int PixelsPerInchX() const = 0;
    virtual int PixelsPerInchY() const = 0;

    // The font's height with its external leading, above 0.
    virtual int TextHeight() const = 0;

    // All characters count, including blanks at the ends.
    virtual int TextWidth(const char *szText) const = 0;

    virtual void FillBox(const cRect &Rect, uint32_t crColour) = 0;

    // nLines lines of pCounts[i] points each, at least 2.
    virtual void Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                           const cPlotPen &Pen) = 0;

    // One line through nPoints points, at least 2.
    virtual void Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen) = 0;

    // nPolygons closed polygons of pCounts[i] corners each, filled, with an
    // outline of one pixel in the same colour.
    virtual void Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                          uint32_t crColour) = 0;

    // A line of text with a transparent background.
    virtual void Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour) = 0;

    // Until PopClip, drawing is limited to the rectangle. Calls nest.
    virtual void PushClip(const cRect &Rect) = 0;
    virtual void PopClip()                   = 0;
};

// Clips during its lifetime.
class cClipGuard
{
public:
    cClipGuard(cPlotCanvas *pCanvas, const cRect &Rect) : m_pCanvas(pCanvas)
    {
        m_pCanvas->PushClip(Rect);
    }
    ~cClipGuard() { m_pCanvas->PopClip(); }
    cClipGuard(const cClipGuard &)            = delete;
    cClipGuard &operator=(const cClipGuard &) = delete;

private:
    cPlotCanvas *m_pCanvas;
};

#endif
