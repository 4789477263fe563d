#include "graph/svg_file.h"

#include "graph/plot_renderer.h"
#include "graph/svg_canvas.h"
#include "toolkit/replacement_file.h"

int SaveSvgFile(const cVantorPlot &Plot, int nWidth, int nHeight, const char *szFile)
{
    cReplacementFile File;
    if (!File.Open(szFile, "wb"))
        return 0;
    const cRect       Picture = {0, 0, nWidth, nHeight};
    cSvgCanvas        Canvas(File.Stream(), nWidth, nHeight);
    const cPlotLayout Layout = LayOutPlot(Plot, {ptImage, Picture}, Canvas);
    Canvas.FillBox(Picture, Plot.Settings().m_crBackground);
    if (!DrawPlot(Layout, Plot, &Canvas))
        return 0;
    Canvas.End();
    return File.Commit();
}
