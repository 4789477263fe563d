// print_plan.h - the layout of a text on printed pages: which lines, where on the
// sheet, and in which order the sheets leave the printer. Pure arithmetic in
// printer pixels; win32/text_printer.h does the printing.

#ifndef TOOLKIT_PRINT_PLAN_H
#define TOOLKIT_PRINT_PLAN_H

#include "toolkit/page_margins.h"

// A sheet as its reader holds it, in pixels.
struct cPaper
{
    int m_bTurned;     // by 90 degrees: the text runs down the sheet
    int m_nDpiAcross;  // pixels per inch along a line of text
    int m_nDpiDown;    // and from line to line
    int m_nWidth;      // of the sheet, unprintable edges included
    int m_nHeight;
    int m_nEdgeLeft;  // where the printer cannot print
    int m_nEdgeTop;
    int m_nEdgeRight;
    int m_nEdgeBottom;
};

// An upright sheet turned left by 90 degrees, for text that runs down it:
// its right edge becomes the reader's top, its upper edge the reader's left.
cPaper TurnPaper(const cPaper &Paper);

// Escapement and orientation of a font for that: 90 degrees to the right, in
// tenths of a degree.
const int kTurnedText = -900;

// Of an upright sheet, in pixels: without its edges.
int PrintableWidth(const cPaper &Paper);

// The part of a sheet that holds text, in pixels from the reader's top left.
struct cTextBand
{
    int m_nLeft;
    int m_nTop;
    int m_nHeight;  // 0 if the margins leave no room
};

// Each side has its margin, or the printer's unprintable edge where that is
// wider.
cTextBand PlanTextBand(const cPaper &Paper, const cPageMargins &Margins);

// The part of a sheet that holds a picture, in pixels from the first printable
// one at the reader's top left. Right and bottom are exclusive.
struct cSheetBox
{
    int m_nLeft;
    int m_nTop;
    int m_nRight;
    int m_nBottom;
};

// The same for a picture; empty if the margins leave no room.
cSheetBox PlanSheetBox(const cPaper &Paper, const cPageMargins &Margins);

// 1 if the margins leave a part of the sheet to print on.
int HasRoom(const cPaper &Paper, const cPageMargins &Margins);

// What the user reads if they do not.
const char *const kNoRoomOnSheet = "The page margins leave no room on the sheet";

struct cSheetPoint
{
    int m_nX;
    int m_nY;
};

// Where line nLine of a page (from 0) begins, in the printer's own coordinates:
// from the first printable pixel of the sheet, turned or not.
cSheetPoint LinePosition(const cPaper &Paper, const cTextBand &Band, int nLineHeight, int nLine);

const int kTenthsPerInch = 720;  // tenths of a point

// Height of the printer's font: 90 tenths of a point are 75 pixels at 600 per
// inch. Negative, the platform's sign for a height without the leading.
int PrinterFontHeight(int nTenthsOfPoint, int nDpi);

// What the user chose in the printer dialog.
struct cPrintChoice
{
    int m_nCopies;     // at least 1
    int m_bCollate;    // all pages of a copy, then the next copy
    int m_bPageRange;  // only the pages from m_nFromPage to m_nToPage, counted from 1
    int m_nFromPage;
    int m_nToPage;
};

struct cPrintPlan
{
    int m_nLines;         // of the text
    int m_nLinesPerPage;  // at least 1
    int m_nFirstPage;     // from 1
    int m_nPages;         // that are printed; 0 if the chosen range contains none
    int m_nCopies;
    int m_bCollate;
};

cPrintPlan PlanPrint(int nLines, const cTextBand &Band, int nLineHeight,
                     const cPrintChoice &Choice);

// The total number of printed sheets.
int CountSheets(const cPrintPlan &Plan);

// The page, from 1, that is printed as sheet nSheet, from 0. Two copies of
// three pages are 1 2 3 1 2 3 when collated, else 1 1 2 2 3 3.
int PageOfSheet(const cPrintPlan &Plan, int nSheet);

// The first line of a page, from 0, and how many it has.
int FirstLineOfPage(const cPrintPlan &Plan, int nPage);
int CountLinesOfPage(const cPrintPlan &Plan, int nPage);

#endif
