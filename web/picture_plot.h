// picture_plot.h - the graph of the page: its pictures are drawn here and sent to it.

#ifndef WEB_PICTURE_PLOT_H
#define WEB_PICTURE_PLOT_H

#include "graph/plot_layout.h"
#include "graph/vantor_plot.h"

class cPicturePlot : public cVantorPlot
{
public:
    explicit cPicturePlot(cMessageBoxes *pBoxes);

    // From now on pictures have this size, in pixels; 0 by 0: there are none.
    void SetView(int nWidth, int nHeight);

    // Sends a picture if there is a view and it has changed since the last one.
    void Publish();

    // As in the last picture; without a view that of one of the default size.
    cPlotLayout Layout() const;

    // How often anything visible has changed, so far.
    unsigned Changes() const { return m_nChanges; }

protected:
    void OnPlotChanged() override { m_nChanges++; }
    void OnPointAdded(uint32_t) override { m_nChanges++; }
    void OnLabelChanged(uint32_t) override { m_nChanges++; }
    void OnChecksChanged() override { m_nChanges++; }

private:
    cPlotTarget Target() const;

    int      m_nWidth;
    int      m_nHeight;
    unsigned m_nChanges;
    unsigned m_nPublished;
};

#endif
