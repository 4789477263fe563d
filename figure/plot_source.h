// plot_source.h - the data lines of a plot as the points of a figure.

#ifndef FIGURE_PLOT_SOURCE_H
#define FIGURE_PLOT_SOURCE_H

#include "figure/point_source.h"
#include "graph/vantor_plot.h"

class cPlotSource : public cPointSource
{
public:
    // The plot outlives the source.
    explicit cPlotSource(const cVantorPlot &Plot) : m_Plot(Plot) {}

    int         Read(cPointSink *pSink) override;  // always 1
    size_t      Lines() const override { return m_Plot.Count(); }
    std::string LineLabel(size_t nLine) const override;  // "" for the default one
    std::string Title() const override { return m_Plot.Settings().m_szTitle; }
    std::string XLabel() const override { return m_Plot.Settings().m_szHorzLabel; }

private:
    const cVantorPlot &m_Plot;
};

#endif
