#include "toolkit/win32/text_printer.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "toolkit/retry_alloc.h"
#include "toolkit/win32/print_job.h"

cTextPages::cTextPages(HDC hDc, const cTextSource &Source, const cTextLook &Look,
                       const cPaper &Paper, const cPrintChoice &Choice)
    : m_hDc(hDc), m_Source(Source), m_Look(Look),
      m_Paper(Look.m_bLandscape ? TurnPaper(Paper) : Paper), m_Font(MakeFont()),
      m_Band(PlanTextBand(m_Paper, Look.m_Margins)), m_nLineHeight(LineHeight()),
      m_Plan(PlanPrint(Source.CountLines(), m_Band, m_nLineHeight, Choice)), m_nLineSize(0)
{
}

int cTextPages::Prepare(cMessageBoxes *pBoxes)
{
    int nLongest = 0;
    for (int i = 0; i < m_Plan.m_nLines; i++)
        nLongest = std::max(nLongest, m_Source.GetLineLength(i));

    const size_t nSize = static_cast<size_t>(nLongest) + kLineEndLength + 1;
    m_Line.reset(AllocateWithRetry(pBoxes, [nSize] { return new (std::nothrow) char[nSize]; }));
    m_nLineSize = nSize;
    return m_Line != nullptr;
}

void cTextPages::DrawSheet(int nSheet) const
{
    const int nPage  = PageOfSheet(m_Plan, nSheet);
    const int nFirst = FirstLineOfPage(m_Plan, nPage);
    const int nCount = CountLinesOfPage(m_Plan, nPage);

    // A new page may have reset both.
    const cSelectGuard Selected(m_hDc, m_Font.Get());
    SetTextColor(m_hDc, m_Look.m_crText);
    for (int i = 0; i < nCount; i++)
        DrawLine(nFirst + i, LinePosition(m_Paper, m_Band, m_nLineHeight, i));
}

void cTextPages::DrawLine(int nLine, const cSheetPoint &At) const
{
    m_Source.GetLine(nLine, m_Line.get(), m_nLineSize);
    const size_t nLength = strlen(m_Line.get()) - kLineEndLength;
    TextOutA(m_hDc, At.m_nX, At.m_nY, m_Line.get(), static_cast<int>(nLength));
}

cGdiFont cTextPages::MakeFont() const
{
    LOGFONTA LogFont = m_Look.m_LogFont;
    LogFont.lfHeight = PrinterFontHeight(m_Look.m_nPointSize, m_Paper.m_nDpiDown);
    TurnFont(m_Paper, &LogFont);
    return cGdiFont(CreateFontIndirectA(&LogFont));
}

int cTextPages::LineHeight() const
{
    const cSelectGuard Selected(m_hDc, m_Font.Get());
    TEXTMETRICA        Metrics = {};
    GetTextMetricsA(m_hDc, &Metrics);
    return std::max<int>(Metrics.tmHeight + Metrics.tmExternalLeading, 1);
}

int PrintText(const cTextSource &Source, const cTextLook &Look, HWND hOwner, const char *szDocument,
              cMessageBoxes *pBoxes)
{
    cPrinter Printer;
    if (!Printer.Ask(hOwner, pgManyPages))
        return 0;
    const cPaper Paper = PaperOf(Printer.Dc());
    if (!HasRoom(Look.m_bLandscape ? TurnPaper(Paper) : Paper, Look.m_Margins))
    {
        pBoxes->Ask(kNoRoomOnSheet, nullptr, bnOk, icNone);
        return 0;
    }
    cTextPages Pages(Printer.Dc(), Source, Look, Paper, Printer.Choice());
    if (Pages.CountSheets() == 0 || !Pages.Prepare(pBoxes))
        return 0;

    cPrintJob Job(Printer.Dc(), hOwner);
    return Job.Send(szDocument, Pages.CountSheets(), [&Pages](int nSheet) {
        Pages.DrawSheet(nSheet);
        return 1;
    });
}
