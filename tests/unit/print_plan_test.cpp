#include "toolkit/print_plan.h"

#include <string>

#include <doctest/doctest.h>

// 8.5 by 11 inches with edges of 30, 40, 50 and 60 pixels; 300 pixels per inch
// across, 600 down.
static const cPaper kLetter = {0, 300, 600, 2550, 6600, 30, 40, 50, 60};

static const cPrintChoice kAllOnce = {1, 0, 0, 0, 0};

// "1 2 3" for the pages in the order in which they are printed.
static std::string Sheets(const cPrintPlan &Plan)
{
    std::string Pages;
    for (int i = 0; i < CountSheets(Plan); i++)
        Pages += (i ? " " : "") + std::to_string(PageOfSheet(Plan, i));
    return Pages;
}

// A plan for nLines lines on pages of 10 lines.
static cPrintPlan TenLinesPerPage(int nLines, const cPrintChoice &Choice)
{
    return PlanPrint(nLines, {0, 0, 205}, 20, Choice);
}

TEST_CASE("the text band keeps the margins where they are wider than the printer's edges")
{
    const cTextBand Band = PlanTextBand(kLetter, {1000, 500, 1000, 250});

    CHECK(Band.m_nLeft == 300);
    CHECK(Band.m_nTop == 300);
    CHECK(Band.m_nHeight == 6600 - 300 - 150);
}

TEST_CASE("the text band keeps the printer's edges where they are wider than the margins")
{
    const cTextBand Band = PlanTextBand(kLetter, {0, 0, 0, 0});

    CHECK(Band.m_nLeft == 30);
    CHECK(Band.m_nTop == 40);
    CHECK(Band.m_nHeight == 6600 - 40 - 60);
}

TEST_CASE("margins are cut to whole pixels")
{
    const cTextBand Band = PlanTextBand(kLetter, {333, 999, 0, 999});

    CHECK(Band.m_nLeft == 99);  // 99.9
    CHECK(Band.m_nTop == 599);  // 599.4
    CHECK(Band.m_nHeight == 6600 - 599 - 599);
}

TEST_CASE("margins that leave nothing of the sheet give an empty band")
{
    CHECK(PlanTextBand(kLetter, {0, 6000, 0, 6000}).m_nHeight == 0);
}

TEST_CASE("a turned sheet has its right edge at the top and its upper edge at the left")
{
    const cPaper Turned = TurnPaper(kLetter);

    CHECK(Turned.m_bTurned == 1);
    CHECK(Turned.m_nDpiAcross == 600);
    CHECK(Turned.m_nDpiDown == 300);
    CHECK(Turned.m_nWidth == 6600);
    CHECK(Turned.m_nHeight == 2550);
    CHECK(Turned.m_nEdgeLeft == 40);
    CHECK(Turned.m_nEdgeTop == 50);
    CHECK(Turned.m_nEdgeRight == 60);
    CHECK(Turned.m_nEdgeBottom == 30);
}

TEST_CASE("margins leave room until they meet, on an upright or a turned sheet")
{
    CHECK(HasRoom(kLetter, {1000, 1000, 1000, 1000}) == 1);
    CHECK(HasRoom(kLetter, {4000, 0, 4499, 0}) == 1);  // of 8.5 inches
    CHECK(HasRoom(kLetter, {4000, 0, 4500, 0}) == 0);
    CHECK(HasRoom(kLetter, {9000, 0, 0, 0}) == 0);
    CHECK(HasRoom(kLetter, {0, 5000, 0, 5998}) == 1);  // of 11 inches
    CHECK(HasRoom(kLetter, {0, 5000, 0, 6000}) == 0);
    CHECK(HasRoom(TurnPaper(kLetter), {4000, 0, 4500, 0}) == 1);
    CHECK(HasRoom(TurnPaper(kLetter), {0, 5000, 0, 4000}) == 0);
}

TEST_CASE("a picture lies between the margins, from the first printable pixel of the sheet")
{
    const cSheetBox Box = PlanSheetBox(kLetter, {1000, 500, 2000, 250});

    CHECK(Box.m_nLeft == 300 - 30);
    CHECK(Box.m_nTop == 300 - 40);
    CHECK(Box.m_nRight == 2550 - 600 - 30);
    CHECK(Box.m_nBottom == 6600 - 150 - 40);
}

TEST_CASE("a picture without margins fills what can be printed")
{
    const cSheetBox Box = PlanSheetBox(kLetter, {0, 0, 0, 0});

    CHECK(Box.m_nLeft == 0);
    CHECK(Box.m_nTop == 0);
    CHECK(Box.m_nRight == 2550 - 30 - 50);
    CHECK(Box.m_nBottom == 6600 - 40 - 60);
    CHECK(PrintableWidth(kLetter) == Box.m_nRight);
}

TEST_CASE("a picture on a turned sheet keeps the margins as its reader holds it")
{
    const cSheetBox Box = PlanSheetBox(TurnPaper(kLetter), {1000, 500, 2000, 250});

    CHECK(Box.m_nLeft == 600 - 40);           // at 600 pixels per inch, from the upper edge
    CHECK(Box.m_nTop == 150 - 50);            // at 300, from the right edge
    CHECK(Box.m_nRight == 6600 - 1200 - 40);  // two inches above the lower edge
    CHECK(Box.m_nBottom == 2550 - 75 - 50);
}

TEST_CASE("margins that leave nothing of the sheet give an empty box for a picture")
{
    const cSheetBox Narrow = PlanSheetBox(kLetter, {6000, 500, 6000, 500});
    const cSheetBox Low    = PlanSheetBox(kLetter, {500, 6000, 500, 6000});

    CHECK(Narrow.m_nRight == Narrow.m_nLeft);
    CHECK(Narrow.m_nBottom > Narrow.m_nTop);
    CHECK(Low.m_nBottom == Low.m_nTop);
    CHECK(Low.m_nRight > Low.m_nLeft);
}

TEST_CASE("lines follow each other down an upright sheet, from its first printable pixel")
{
    const cTextBand Band = PlanTextBand(kLetter, {1000, 500, 1000, 250});

    const cSheetPoint First = LinePosition(kLetter, Band, 100, 0);
    const cSheetPoint Third = LinePosition(kLetter, Band, 100, 2);

    CHECK(First.m_nX == 300 - 30);
    CHECK(First.m_nY == 300 - 40);
    CHECK(Third.m_nX == First.m_nX);
    CHECK(Third.m_nY == First.m_nY + 200);
}

TEST_CASE("lines of a turned sheet begin at its right and follow each other to the left")
{
    const cPaper    Turned = TurnPaper(kLetter);
    const cTextBand Band   = PlanTextBand(Turned, {1000, 500, 1000, 250});

    const cSheetPoint First = LinePosition(Turned, Band, 100, 0);
    const cSheetPoint Third = LinePosition(Turned, Band, 100, 2);

    CHECK(First.m_nX == 2550 - 150 - 30);  // half an inch from the right edge
    CHECK(First.m_nY == 600 - 40);         // an inch from the upper edge
    CHECK(Third.m_nX == First.m_nX - 200);
    CHECK(Third.m_nY == First.m_nY);
}

TEST_CASE("the printer's font is as high as its points say")
{
    CHECK(PrinterFontHeight(90, 600) == -75);
    CHECK(PrinterFontHeight(90, 300) == -37);  // 37.5
    CHECK(PrinterFontHeight(120, 72) == -12);
}

TEST_CASE("a page holds the whole lines that fit into the band")
{
    const cPrintPlan Plan = PlanPrint(100, {0, 0, 1000}, 30, kAllOnce);

    CHECK(Plan.m_nLinesPerPage == 33);
    CHECK(Plan.m_nPages == 4);
    CHECK(FirstLineOfPage(Plan, 1) == 0);
    CHECK(CountLinesOfPage(Plan, 1) == 33);
    CHECK(FirstLineOfPage(Plan, 4) == 99);
    CHECK(CountLinesOfPage(Plan, 4) == 1);
}

TEST_CASE("a text that fills its last page has no further one")
{
    CHECK(TenLinesPerPage(10, kAllOnce).m_nPages == 1);
    CHECK(TenLinesPerPage(11, kAllOnce).m_nPages == 2);
    CHECK(TenLinesPerPage(20, kAllOnce).m_nPages == 2);
}

TEST_CASE("a band too low for a line still holds one line a page")
{
    const cPrintPlan Plan = PlanPrint(3, {0, 0, 5}, 30, kAllOnce);

    CHECK(Plan.m_nLinesPerPage == 1);
    CHECK(Plan.m_nPages == 3);
}

TEST_CASE("copies are printed page by page or, collated, one after the other")
{
    // clang-format off
    static const struct { cPrintChoice Choice; const char *szPages; } s_Rows[] =
    {
        { { 1, 0, 0, 0,  0 }, "1 2 3"       },
        { { 1, 1, 0, 0,  0 }, "1 2 3"       },
        { { 2, 0, 0, 0,  0 }, "1 1 2 2 3 3" },
        { { 2, 1, 0, 0,  0 }, "1 2 3 1 2 3" },
        { { 3, 0, 1, 2,  3 }, "2 2 2 3 3 3" },
        { { 2, 1, 1, 2,  3 }, "2 3 2 3"     },
        { { 1, 0, 1, 2,  2 }, "2"           },
        { { 1, 0, 1, 2, 99 }, "2 3"         },  // there are only three
        { { 1, 0, 1, 0,  1 }, "1"           },
        { { 1, 0, 1, 4,  9 }, ""            },  // none of them exists
        { { 2, 1, 1, 3,  2 }, ""            },
        { { 1, 0, 0, 2,  2 }, "1 2 3"       },  // a range that was not chosen
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        CHECK(Sheets(TenLinesPerPage(25, Row.Choice)) == Row.szPages);
}
