#include "figure/figure_file.h"

#include "figure/figure_about.h"
#include "figure/plot_source.h"
#include "figure/window_canvas.h"
#include "graph/plot_renderer.h"
#include "graph/svg_canvas.h"
#include "toolkit/disk_file.h"
#include "toolkit/replacement_file.h"

namespace
{

// A file that is replaced once it is complete, or standard output.
class cPictureOutput
{
public:
    int Open(const std::string &Name)
    {
        m_bOutput = Name == kPictureToOutput;
        return m_bOutput || m_File.Open(Name.c_str(), "wb");
    }
    FILE *Stream() { return m_bOutput ? BinaryStandardOutput() : m_File.Stream(); }
    int   Commit() { return m_bOutput ? fflush(stdout) == 0 && !ferror(stdout) : m_File.Commit(); }

private:
    cReplacementFile m_File;
    int              m_bOutput = 0;
};

}  // namespace

eSaving SaveFigure(const cFigure &Figure, cPointSource *pSource, const cPictureFile &File,
                   cFigureNotes *pNotes)
{
    static const eSaving s_Outcomes[] = {svDone, svUnreadable, svTooLarge, svIncomplete};

    cPictureOutput Output;
    if (!Output.Open(File.m_Name))
        return svUnwritable;
    const std::unique_ptr<cFigureCanvas> pCanvas = MakeCanvas(
        File.m_nFormat, Output.Stream(), Figure.m_nWidth, Figure.m_nHeight, File.m_dScale);
    const eSaving nOutcome = s_Outcomes[DrawFigure(Figure, pSource, pCanvas.get(), pNotes)];
    if (nOutcome == svDone && !Output.Commit())
        return svUnwritable;
    return nOutcome;
}

// 0 when memory ran out.
static int DrawWindow(const cVantorPlot &Plot, const cRect &Picture, cPlotCanvas *pCanvas)
{
    const cPlotLayout Layout = LayOutPlot(Plot, {ptImage, Picture}, *pCanvas);
    pCanvas->FillBox(Picture, Plot.Settings().m_crBackground);
    return DrawPlot(Layout, Plot, pCanvas);
}

// At its natural size an SVG picture has the pixels of a window.
static int DrawWindowAsSvg(const cVantorPlot &Plot, const cRect &Picture, const cFigureAbout &About,
                           FILE *pFile)
{
    cSvgCanvas Canvas(pFile, Picture.m_nRight, Picture.m_nBottom, About.m_Title,
                      About.m_Description);
    const int  bDrawn = DrawWindow(Plot, Picture, &Canvas);
    Canvas.End();
    return bDrawn;
}

static int DrawWindowOn(const cVantorPlot &Plot, const cRect &Picture, const cFigureAbout &About,
                        cFigureCanvas *pCanvas)
{
    cWindowCanvas Window(pCanvas);
    pCanvas->Begin(About);
    const int bDrawn = DrawWindow(Plot, Picture, &Window);
    return pCanvas->End() && bDrawn;
}

// The same that a figure of these data lines says.
static cFigureAbout AboutPlot(const cVantorPlot &Plot, const std::string &SourceName)
{
    cPlotSource    Source(Plot);
    cFigure        Figure;
    cFigureExtents Extents;
    Figure.m_Name = SourceName;
    static_cast<void>(FindExtents(Figure, &Source, &Extents));  // a plot is always read
    return AboutFigure(Figure, Source, TextsOfFigure(Figure, Source), Extents);
}

eSaving SaveWindowFigure(const cVantorPlot &Plot, int nWidth, int nHeight, const cPictureFile &File,
                         const std::string &SourceName)
{
    cPictureOutput Output;
    if (!Output.Open(File.m_Name))
        return svUnwritable;
    const cRect        Picture = {0, 0, nWidth, nHeight};
    const cFigureAbout About   = AboutPlot(Plot, SourceName);
    int                bDrawn;
    if (File.m_nFormat == pfSvg && File.m_dScale == 1.0)
        bDrawn = DrawWindowAsSvg(Plot, Picture, About, Output.Stream());
    else
        bDrawn = DrawWindowOn(
            Plot, Picture, About,
            MakeCanvas(File.m_nFormat, Output.Stream(), nWidth, nHeight, File.m_dScale).get());
    if (!bDrawn)
        return svTooLarge;
    return Output.Commit() ? svDone : svUnwritable;
}
