#include "toolkit/print_plan.h"

#include <algorithm>

static int WiderOf(int nMargin, int nDpi, int nEdge)
{
    return std::max(nMargin * nDpi / 1000, nEdge);
}

cPaper TurnPaper(const cPaper &Paper)
{
    return {1,
            Paper.m_nDpiDown,
            Paper.m_nDpiAcross,
            Paper.m_nHeight,
            Paper.m_nWidth,
            Paper.m_nEdgeTop,
            Paper.m_nEdgeRight,
            Paper.m_nEdgeBottom,
            Paper.m_nEdgeLeft};
}

int PrintableWidth(const cPaper &Paper)
{
    return Paper.m_nWidth - Paper.m_nEdgeLeft - Paper.m_nEdgeRight;
}

cTextBand PlanTextBand(const cPaper &Paper, const cPageMargins &Margins)
{
    const int nTop    = WiderOf(Margins.m_nTop, Paper.m_nDpiDown, Paper.m_nEdgeTop);
    const int nBottom = WiderOf(Margins.m_nBottom, Paper.m_nDpiDown, Paper.m_nEdgeBottom);
    return {WiderOf(Margins.m_nLeft, Paper.m_nDpiAcross, Paper.m_nEdgeLeft), nTop,
            std::max(Paper.m_nHeight - nTop - nBottom, 0)};
}

cSheetBox PlanSheetBox(const cPaper &Paper, const cPageMargins &Margins)
{
    const cTextBand Band   = PlanTextBand(Paper, Margins);
    const int       nRight = WiderOf(Margins.m_nRight, Paper.m_nDpiAcross, Paper.m_nEdgeRight);
    const int       nLeft  = Band.m_nLeft - Paper.m_nEdgeLeft;
    const int       nTop   = Band.m_nTop - Paper.m_nEdgeTop;
    return {nLeft, nTop, std::max(Paper.m_nWidth - nRight - Paper.m_nEdgeLeft, nLeft),
            nTop + Band.m_nHeight};
}

int HasRoom(const cPaper &Paper, const cPageMargins &Margins)
{
    const cSheetBox Box = PlanSheetBox(Paper, Margins);
    return Box.m_nRight > Box.m_nLeft && Box.m_nBottom > Box.m_nTop;
}

cSheetPoint LinePosition(const cPaper &Paper, const cTextBand &Band, int nLineHeight, int nLine)
{
    const int nAcross = Band.m_nLeft - Paper.m_nEdgeLeft;
    const int nDown   = Band.m_nTop + nLine * nLineHeight;
    if (!Paper.m_bTurned)
        return {nAcross, nDown - Paper.m_nEdgeTop};

    // The reader's bottom edge is the sheet's left one, where x begins.
    return {Paper.m_nHeight - nDown - Paper.m_nEdgeBottom, nAcross};
}

int PrinterFontHeight(int nTenthsOfPoint, int nDpi)
{
    return -(nTenthsOfPoint * nDpi / kTenthsPerInch);
}

cPrintPlan PlanPrint(int nLines, const cTextBand &Band, int nLineHeight, const cPrintChoice &Choice)
{
    const int nLinesPerPage = std::max(Band.m_nHeight / nLineHeight, 1);
    const int nPages        = (nLines + nLinesPerPage - 1) / nLinesPerPage;
    const int nFirst        = Choice.m_bPageRange ? std::max(Choice.m_nFromPage, 1) : 1;
    const int nLast         = Choice.m_bPageRange ? std::min(Choice.m_nToPage, nPages) : nPages;
    return {nLines,           nLinesPerPage,    nFirst, std::max(nLast - nFirst + 1, 0),
            Choice.m_nCopies, Choice.m_bCollate};
}

int CountSheets(const cPrintPlan &Plan)
{
    return Plan.m_nPages * Plan.m_nCopies;
}

int PageOfSheet(const cPrintPlan &Plan, int nSheet)
{
    const int nPage = Plan.m_bCollate ? nSheet % Plan.m_nPages : nSheet / Plan.m_nCopies;
    return Plan.m_nFirstPage + nPage;
}

int FirstLineOfPage(const cPrintPlan &Plan, int nPage)
{
    return (nPage - 1) * Plan.m_nLinesPerPage;
}

int CountLinesOfPage(const cPrintPlan &Plan, int nPage)
{
    return std::min(Plan.m_nLinesPerPage, Plan.m_nLines - FirstLineOfPage(Plan, nPage));
}
