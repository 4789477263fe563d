#include "graph/graph_print.h"

#include "graph/gdi_canvas.h"
#include "graph/plot_renderer.h"
#include "graph/vantor_box.h"
#include "toolkit/gdi.h"
#include "toolkit/print_job.h"

namespace
{

// The plot's font in the size that it has on the screen.
HFONT MakeFont(const cVantorBox &Box, const cPaper &Paper)
{
    LOGFONTA LogFont = Box.FontDescription();
    LogFont.lfHeight = PrinterFontHeight(Box.FontTenths(), Paper.m_nDpiDown);
    LogFont.lfWidth  = 0;
    return CreateFontIndirectA(&LogFont);
}

// From here on x runs up the sheet and y to the right, as on a sheet that its
// reader has turned.
void TurnCoordinates(HDC hDc)
{
    const XFORM Turn = {
        0.0F, 1.0F, -1.0F, 0.0F, static_cast<FLOAT>(GetDeviceCaps(hDc, HORZRES) - 1), 0.0F};
    SetGraphicsMode(hDc, GM_ADVANCED);
    SetWorldTransform(hDc, &Turn);
}

int DrawPage(HDC hDc, const cVantorBox &Box, const cPaper &Paper, const cPageChoice &Page)
{
    const cGdiFont  Font(MakeFont(Box, Paper));
    const cSheetBox Room = PlanSheetBox(Paper, Page.m_Margins);
    cPlotTarget     Target;
    Target.m_nKind   = ptPrinter;
    Target.m_Rect    = {Room.m_nLeft, Room.m_nTop, Room.m_nRight, Room.m_nBottom};
    Target.m_bTurned = Page.m_bTurned;

    const int nSaved = SaveDC(hDc);
    if (Page.m_bTurned)
        TurnCoordinates(hDc);
    int bDone = 0;
    {
        cGdiCanvas Canvas(hDc, Font.Get());
        bDone = DrawPlot(LayOutPlot(Box, Target, Canvas), Box, &Canvas);
    }
    RestoreDC(hDc, nSaved);
    return bDone;
}

}  // namespace

int PrintGraph(cVantorBox *pBox, HWND hFrame, const char *szDocument)
{
    cPrinter Printer;
    if (!Printer.Ask(hFrame))
        return 0;
    const HDC          hDc     = Printer.Dc();
    const cPageChoice &Page    = *pBox->Page();
    const cPaper       Upright = PaperOf(hDc);
    const cPaper       Paper   = Page.m_bTurned ? TurnPaper(Upright) : Upright;

    cPrintJob Job(hDc, hFrame);
    if (!Job.Begin(szDocument))
        return 0;
    for (int i = 0; i < Printer.Choice().m_nCopies; i++)
        if (!Job.BeginPage() || !DrawPage(hDc, *pBox, Paper, Page) || !Job.EndPage())
            return 0;
    return Job.End();
}
