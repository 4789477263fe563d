// figure_legend.h - the legend of a figure: a sample and a label for each data line,
// in rows above the frame or in a column beside it.

#ifndef FIGURE_FIGURE_LEGEND_H
#define FIGURE_FIGURE_LEGEND_H

#include <string>
#include <vector>

#include "figure/figure_canvas.h"
#include "figure/figure_layout.h"

class cFigureLegend
{
public:
    // The labels of all data lines. Both outlive the legend.
    cFigureLegend(const cFigureCanvas &Canvas, const std::vector<std::string> &Labels);

    // Entries beside each other in rows of at most dWidth pixels, or one in each row.
    // Labels that are too wide are cut. What nMostRows have no room for is counted in
    // the last one: "and 7 more". Return 0 if there is no room for a legend that says
    // anything.
    int ArrangeRows(double dWidth, size_t nMostRows) { return Arrange(dWidth, nMostRows, 0); }
    int ArrangeColumn(double dWidth, size_t nMostRows) { return Arrange(dWidth, nMostRows, 1); }

    // Of what has been arranged.
    size_t Rows() const { return m_nRows; }
    double Width() const { return m_dWidth; }
    int    IsCut() const { return !m_More.empty(); }  // not all entries have room

    void Place(const cSpot &UpperLeft, cFigureLayout *pLayout) const;

private:
    struct cEntry
    {
        size_t      m_nLine;
        size_t      m_nRow;
        double      m_dX;  // from the legend's left edge
        std::string m_Text;
    };

    int         Arrange(double dWidth, size_t nMostRows, int bColumn);
    void        Flow(double dWidth, size_t nMostRows, int bColumn);
    int         CountTheRest(double dWidth, size_t nMostRows);
    double      WidthOf(const std::string &Text) const;
    cPlacedText PlacedText(const cSpot &UpperLeft, double dX, size_t nRow,
                           const std::string &Text) const;

    const cFigureCanvas            &m_Canvas;
    const std::vector<std::string> &m_Labels;
    std::vector<cEntry>             m_Entries;
    std::string                     m_More;  // in the last row; "": nothing is missing
    size_t                          m_nRows  = 0;
    double                          m_dWidth = 0.0;
};

// Pixels.
const double kLegendRowHeight = 18.0;

#endif
