// svg_figure_canvas.h - a figure as an SVG file, with coordinates to 1/100 of a
// pixel. Text stays text. Classes name what can be styled: title, grid, axes,
// legend, and line-1 for all of the first data line.

#ifndef FIGURE_SVG_FIGURE_CANVAS_H
#define FIGURE_SVG_FIGURE_CANVAS_H

#include <cstdint>
#include <cstdio>

#include "figure/figure_canvas.h"

class cSvgFigureCanvas : public cFigureCanvas
{
public:
    // Writes to pFile, open in binary mode. The size is in pixels; shown at its
    // natural size the figure is dScale times as large. The caller checks for write
    // errors.
    cSvgFigureCanvas(FILE *pFile, int nWidth, int nHeight, double dScale);

    void   Begin(const cFigureAbout &About) override;
    int    End() override;
    double TextWidth(const cFigureText &Text, const cTextStyle &Style) const override;
    void   BeginGroup(const char *szClasses, const std::string &Title) override;
    void   EndGroup() override;
    void   PushClip(const cFigureBox &Box) override;
    void   PopClip() override;
    void   FillPolygon(std::span<const cSpot> Corners, uint32_t crColour) override;
    void   BeginLine(const cStroke &Stroke) override;
    void   MoveTo(const cSpot &Spot) override;
    void   LineTo(const cSpot &Spot) override;
    void   EndLine() override;
    void   BeginMarkers(const cMarkerLook &Look) override;
    void   Marker(const cSpot &Spot) override;
    void   EndMarkers() override;
    void   Text(const cSpot &At, eTextAnchor nAnchor, int bTurned, const cFigureText &Text,
                const cTextStyle &Style) override;

private:
    void WriteNumber(int64_t nHundredths);
    void WriteNext(int64_t nHundredths);
    void WriteStep(char cCommand, int64_t nX, int64_t nY);
    void WritePolygon(std::span<const cSpot> Corners, const cSpot &Spot, double dSize);
    void WriteSpot(const cSpot &Spot);
    void WriteColour(const char *szName, uint32_t crColour);
    void WriteEscaped(const std::string &Text);
    void WriteElement(const char *szName, const std::string &Text);
    void WriteRun(const cTextRun &Run, const cTextStyle &Style, int *pbLifted);

    FILE       *m_pFile;
    int         m_nWidth;
    int         m_nHeight;
    double      m_dScale;
    int         m_nClips;  // so far, for their names
    int64_t     m_nX;      // where the path is, in 1/100 pixel
    int64_t     m_nY;
    char        m_cCommand;  // of the path, which need not be repeated; 0: none
    cMarkerLook m_Marker;
};

#endif
