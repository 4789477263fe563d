// dense_figures.h - draws very many figures of one colour that lie on top of each
// other. A platform may need a time for them that grows with the square of their
// number; here each of them costs some tens of nanoseconds.
//
// The platform draws a figure of each kind once, in a picture of its own. From there
// its pixels go into a mask for each figure, and the mask to the screen, so that the
// result is the platform's to the pixel. The exception is a line with more than a
// thousand segments that are longer than 12 pixels: there the edges of segments may
// be off by a pixel, most of them inside other segments.

#ifndef GRAPH_WIN32_DENSE_FIGURES_H
#define GRAPH_WIN32_DENSE_FIGURES_H

#include "toolkit/win32/win32.h"

#include <memory>

#include "graph/pixel_mask.h"
#include "graph/win32/stamp_pad.h"

class cDenseFigures
{
public:
    // hDc outlives this object. Only a screen, or a picture that is compatible with
    // one, is drawn on.
    explicit cDenseFigures(HDC hDc);

    // Draws polygons of one shape, as PolyPolygon does with a pen of 1 pixel and a
    // brush of this colour. 0 if nothing has been drawn: for another device, for
    // polygons that differ in shape or are large, or if memory is short.
    int DrawPolygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                     uint32_t crColour);

    // Draws a solid line of nWidth pixels, at least 2, as Polyline does; its pen is
    // selected. 0 as above, for a width that stamps are too small for, or if all
    // points are the same.
    int DrawWideLine(const cPoint *pPoints, size_t nPoints, int nWidth, uint32_t crColour);

    // Draws a line of one pixel in a style of kLineStyles with gaps, as Polyline does;
    // its pen is selected. 0 as above.
    int DrawDashedLine(const cPoint *pPoints, size_t nPoints, uint32_t nStyle, uint32_t crColour);

private:
    int  Prepare();
    int  ReadStrokes(uint32_t nStyle, uint32_t *pStrokes);
    int  ReadPolygon(const cPoint *pPoints, int nCorners, cStamp *pStamp);
    int  LineStamp(cPoint Step, int nWidth, const cStamp **ppStamp);
    int  CoverShort(cPoint At, cPoint Step, int nWidth);
    int  CoverLong(cPoint From, cPoint To, int nWidth);
    int  CoverSegments(const cPoint *pPoints, size_t nPoints, int nWidth, int bWithLong);
    void Show(uint32_t crColour) const;

    HDC        m_hDc;
    cStampPad  m_Pad;
    cPixelMask m_Mask;

    // Of a line of m_nStampWidth pixels, by the distance of its ends.
    std::unique_ptr<cStamp[]> m_pStamps;
    int                       m_nStampWidth;
};

#endif
