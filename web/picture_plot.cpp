#include "web/picture_plot.h"

#include "graph/plot_renderer.h"
#include "web/picture_canvas.h"

static const int kMostPixels = 16383;  // of a side

cPicturePlot::cPicturePlot(cMessageBoxes *pBoxes)
    : cVantorPlot(pBoxes), m_nWidth(0), m_nHeight(0), m_nChanges(1), m_nPublished(0)
{
    SetClientSize(kPlotWidth, kPlotHeight);
}

void cPicturePlot::SetView(int nWidth, int nHeight)
{
    const int bVisible = nWidth > 0 && nHeight > 0;
    m_nWidth           = bVisible && nWidth < kMostPixels ? nWidth : 0;
    m_nHeight          = bVisible && nHeight < kMostPixels ? nHeight : 0;
    if (m_nWidth > 0 && m_nHeight > 0)
        SetClientSize(m_nWidth, m_nHeight);
    m_nChanges++;
}

cPlotTarget cPicturePlot::Target() const
{
    const int bVisible = m_nWidth > 0 && m_nHeight > 0;
    return {ptImage, {0, 0, bVisible ? m_nWidth : kPlotWidth, bVisible ? m_nHeight : kPlotHeight}};
}

cPlotLayout cPicturePlot::Layout() const
{
    return LayOutPlot(*this, Target(), cPictureCanvas());
}

void cPicturePlot::Publish()
{
    if (m_nWidth <= 0 || m_nHeight <= 0 || m_nPublished == m_nChanges)
        return;
    m_nPublished = m_nChanges;
    cPictureCanvas Canvas;
    Canvas.FillBox(Target().m_Rect, Settings().m_crBackground);
    if (DrawPlot(Layout(), *this, &Canvas))
        Canvas.Send(m_nWidth, m_nHeight);
}
