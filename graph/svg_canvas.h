// svg_canvas.h - a picture as an SVG file. Text stays text; what runs along the
// axes covers whole pixels, as in a window; dashes are those of the platform's
// pens.
//
//     cSvgCanvas Canvas(pFile, 640, 480);
//     DrawPlot(Layout, Plot, &Canvas);
//     Canvas.End();

#ifndef GRAPH_SVG_CANVAS_H
#define GRAPH_SVG_CANVAS_H

#include <cstdio>
#include <string_view>

#include "graph/plot_canvas.h"

class cSvgCanvas : public cPlotCanvas
{
public:
    // Writes to pFile, open in binary mode, from the start of the file. The
    // picture's size is in pixels. With a title, UTF-8 of any bytes, the file is a
    // picture of its own for those who cannot see it; without one, a part of a page
    // that says what it is. The caller checks for write errors.
    cSvgCanvas(FILE *pFile, int nWidth, int nHeight, std::string_view Title = {},
               std::string_view Description = {});

    // Writes the end of the file. Called last.
    void End();

    // 96 pixels per inch, the web's convention.
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
    void WriteCenter(char cCommand, cPoint At);
    void WriteHalf(int n);
    void WriteLine(const cPoint *pPoints, size_t nPoints);
    void WritePen(const cPlotPen &Pen);
    void WriteColour(const char *szName, uint32_t crColour);
    void WriteElement(const char *szName, std::string_view Text);
    void WriteText(std::string_view Text);

    FILE *m_pFile;
    int   m_nClips;  // so far, for their names
};

#endif
