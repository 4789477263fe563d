// picture_canvas.h - a plot as numbers and texts, which the page draws. engine.d.ts
// describes them. Texts are as wide as in an SVG file.

#ifndef WEB_PICTURE_CANVAS_H
#define WEB_PICTURE_CANVAS_H

#include <string>
#include <vector>

#include "graph/plot_canvas.h"

class cPictureCanvas : public cPlotCanvas
{
public:
    // To the page, as one picture.
    void Send(int nWidth, int nHeight) const;

    // The web's convention.
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
    void PopClip() override;

private:
    void PutRect(const cRect &Rect);
    void PutPoints(const cPoint *pPoints, size_t nPoints);
    void PutColour(uint32_t crColour);

    std::vector<int32_t> m_Numbers;
    std::string          m_Texts;  // each ends in a zero
    int32_t              m_nTexts = 0;
};

// 0xRRGGBB of 0xBBGGRR, and the other way round.
uint32_t TurnedColour(uint32_t nColour);

#endif
