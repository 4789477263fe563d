#include "graph/win32/graph_print.h"

#include "graph/plot_renderer.h"
#include "graph/turned_canvas.h"
#include "graph/win32/gdi_canvas.h"
#include "graph/win32/vantor_box.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/print_job.h"

// The plot's font, in the same size as on the screen.
static cGdiFont MakeFont(const cVantorBox &Box, const cPaper &Paper)
{
    LOGFONTA LogFont = Box.FontDescription();
    LogFont.lfHeight = -MulDiv(Box.FontTenths(), Paper.m_nDpiDown, kTenthsPerInch);
    LogFont.lfWidth  = 0;
    TurnFont(Paper, &LogFont);
    return cGdiFont(CreateFontIndirectA(&LogFont));
}

static int DrawOn(cPlotCanvas *pCanvas, const cVantorBox &Box, const cRect &Room, int bTurned)
{
    cPlotTarget Target;
    Target.m_nKind   = ptPrinter;
    Target.m_Rect    = Room;
    Target.m_bTurned = bTurned;
    pCanvas->FillBox(Room, Box.Settings().m_crBackground);
    return DrawPlot(LayOutPlot(Box, Target, *pCanvas), Box, pCanvas);
}

int DrawGraphPage(HDC hDc, const cPaper &Upright, const cVantorBox &Box, const cPageChoice &Page)
{
    const cPaper    Paper = Page.m_bTurned ? TurnPaper(Upright) : Upright;
    const cGdiFont  Font  = MakeFont(Box, Paper);
    const cSheetBox Free  = PlanSheetBox(Paper, Page.m_Margins);
    const cRect     Room  = {Free.m_nLeft, Free.m_nTop, Free.m_nRight, Free.m_nBottom};
    if (Room.IsEmpty())
        return 1;
    cGdiCanvas Sheet(hDc, Font.Get());
    if (!Page.m_bTurned)
        return DrawOn(&Sheet, Box, Room, 0);
    cTurnedCanvas Canvas(&Sheet, PrintableWidth(Upright));
    return DrawOn(&Canvas, Box, Room, 1);
}

int PrintGraph(cVantorBox *pBox, HWND hFrame, const char *szDocument, cMessageBoxes *pBoxes)
{
    cPrinter Printer;
    if (!Printer.Ask(hFrame, pgOnePage))
        return 0;
    const HDC    hDc   = Printer.Dc();
    const cPaper Paper = PaperOf(hDc);
    if (!HasRoom(pBox->Page()->m_bTurned ? TurnPaper(Paper) : Paper, pBox->Page()->m_Margins))
    {
        pBoxes->Ask(kNoRoomOnSheet, nullptr, bnOk, icNone);
        return 0;
    }
    cPrintJob Job(hDc, hFrame);
    return Job.Send(szDocument, Printer.Choice().m_nCopies,
                    [&](int) { return DrawGraphPage(hDc, Paper, *pBox, *pBox->Page()); });
}
