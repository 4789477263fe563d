#include "figure/plot_source.h"

#include <cstring>

int cPlotSource::Read(cPointSink *pSink)
{
    for (uint32_t nLine = 1; nLine <= m_Plot.Count(); nLine++)
    {
        const cVantorDataSet &Set = *m_Plot.DataSet(nLine);
        for (uint32_t nPoint = 0; nPoint < Set.m_nPoints; nPoint++)
            pSink->Take(nLine - 1, static_cast<double>(Set.X(nPoint)),
                        PlottedY(Set, Set.m_pY[nPoint]));
    }
    return 1;
}

std::string cPlotSource::LineLabel(size_t nLine) const
{
    const auto        nNumber = static_cast<uint32_t>(nLine + 1);
    const char *const szLabel = m_Plot.DataSet(nNumber)->m_pszLabel.get();
    char              szDefault[kDefaultLabel];
    FormatDefaultLabel(nNumber, szDefault);
    return strcmp(szLabel, szDefault) == 0 ? "" : szLabel;
}
