// figure.h - what the user wants of a figure. All that is not said follows the data.

#ifndef FIGURE_FIGURE_H
#define FIGURE_FIGURE_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "figure/axis_range.h"
#include "figure/figure_canvas.h"
#include "figure/palette.h"
#include "graph/vantor_plot.h"

// The look of a data line as far as it has been chosen.
struct cChosenLook
{
    std::optional<uint32_t> m_nType;        // eGraphType
    std::optional<uint32_t> m_nStyle;       // kLineStyles
    std::optional<uint32_t> m_nShape;       // of markers
    std::optional<double>   m_dWidth;       // pixels
    std::optional<double>   m_dMarkerSize;  // pixels
};

struct cAxisWish
{
    std::optional<std::string> m_Label;  // default: the source's, if it has one
    cRangeWish                 m_Range;
    uint32_t                   m_nTicks = 0;  // about; 0: as many as suit the size
};

enum eLegendWish
{
    lwAuto,  // if there are several data lines
    lwShown,
    lwHidden
};

struct cFigure
{
    int                           m_nWidth  = kPlotWidth;  // pixels
    int                           m_nHeight = kPlotHeight;
    std::optional<std::string>    m_Title;  // default: the source's
    std::string                   m_Name;   // of the source, for those who cannot see it
    cAxisWish                     m_X;
    cAxisWish                     m_Y;
    int                           m_bGrid   = 0;
    int                           m_bStrict = 0;  // nothing is drawn unless every point has a place
    eLegendWish                   m_nLegend = lwAuto;
    const cPalette               *m_pPalette = &DefaultPalette();
    int                           m_bDark    = 0;  // SVG: suit dark pages, too
    cChosenLook                   m_Look;          // of all data lines
    std::map<size_t, cChosenLook> m_LineLooks;     // instead, by line from 0
};

// The look of a data line with all that nobody chose.
struct cLineLook
{
    uint32_t    m_nType;
    cStroke     m_Stroke;
    cMarkerLook m_Marker;
};

// Of line nLine, from 0: the palette's colours in turn, then these with dashes, or
// markers of other shapes.
cLineLook LookOfLine(const cFigure &Figure, size_t nLine);

// 1 if data lines of markers have been chosen.
int HasScatter(const cFigure &Figure);

#endif
