// figure_layout.h - the positions of everything in a figure. They are first
// computed into a plain struct, which drawing uses.

#ifndef FIGURE_FIGURE_LAYOUT_H
#define FIGURE_FIGURE_LAYOUT_H

#include <string>
#include <vector>

#include "figure/axis_range.h"
#include "figure/axis_ticks.h"
#include "figure/figure.h"
#include "figure/figure_canvas.h"
#include "figure/figure_extents.h"
#include "figure/figure_texts.h"

struct cPlacedText
{
    cSpot       m_At;
    eTextAnchor m_nAnchor;
    int         m_bTurned;
    cFigureText m_Text;
    cTextStyle  m_Style;
};

struct cLegendEntry
{
    size_t      m_nLine;
    cSpot       m_Sample;  // its left end
    cPlacedText m_Text;
};

// What there is no room for. A legend may also say how many lines it leaves out.
struct cLeftOut
{
    int m_bLegend  = 0;
    int m_bTitle   = 0;
    int m_bLabels  = 0;  // of the axes
    int m_bNumbers = 0;
};

struct cFigureLayout
{
    cFigureBox                m_Frame;
    cAxisScale                m_XScale;
    cAxisScale                m_YScale;
    cAxisTicks                m_XTicks;  // without labels that would overlap
    cAxisTicks                m_YTicks;
    std::vector<cPlacedText>  m_Titles;
    std::vector<cPlacedText>  m_AxisTexts;
    std::vector<cLegendEntry> m_Legend;
    cLeftOut                  m_LeftOut;
};

// Pixels.
const double kTickLength      = 5.0;
const double kShortTickLength = 3.0;
const double kSampleLength    = 26.0;

// Texts that would leave no room for the curves become shorter, the legend moves above
// the frame, and what has no room then is left out: first the legend, then the title,
// the labels of the axes, and the ticks.
cFigureLayout LayOutFigure(const cFigure &Figure, const cFigureTexts &Texts,
                           const cFigureExtents &Extents, const cFigureCanvas &Canvas);

#endif
