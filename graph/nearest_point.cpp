#include "graph/nearest_point.h"

#include <cstdlib>

int IsInPlot(const cPlotLayout &Layout, cPoint At)
{
    const cRect &Plot = Layout.m_Plot;
    return At.m_nX >= Plot.m_nLeft && At.m_nX < Plot.m_nRight && At.m_nY >= Plot.m_nTop &&
           At.m_nY < Plot.m_nBottom;
}

int FindNearestPoint(const cPlotLayout &Layout, const cVantorPlot &Plot, cPoint At,
                     cNearestPoint *pFound)
{
    int nLeast = -1;
    for (uint32_t nLine = 1; nLine <= Plot.Count(); nLine++)
    {
        const cVantorDataSet &Set = *Plot.DataSet(nLine);
        for (uint32_t i = 0; i < Set.m_nPoints; i++)
        {
            const cPoint Pixel     = Layout.PixelOf(Set, i);
            const int    nDistance = abs(Pixel.m_nX - At.m_nX) + abs(Pixel.m_nY - At.m_nY);
            if (nLeast >= 0 && nDistance > nLeast)
                continue;
            nLeast  = nDistance;
            *pFound = {nLine, i, Pixel};
        }
    }
    return nLeast >= 0;
}
