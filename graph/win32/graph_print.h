// graph_print.h - the plot on paper: one page, as large as the margins allow.

#ifndef GRAPH_GRAPH_PRINT_H
#define GRAPH_GRAPH_PRINT_H

#include "toolkit/win32/win32.h"

#include "toolkit/page_margins.h"
#include "toolkit/print_plan.h"

class cVantorBox;

// How the plot lies on the paper.
struct cPageChoice
{
    cPageMargins m_Margins = {kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin};
    int          m_bTurned = 0;  // by a quarter, its left edge up
};

// Draws the plot with its legend on a device with such a sheet, upright; the
// plot's ground fills what the margins leave, be it nothing. 0 if memory ran out and the user
// gave up.
int DrawGraphPage(HDC hDc, const cPaper &Upright, const cVantorBox &Box, const cPageChoice &Page);

// Asks for a printer and prints the plot with its legend as a document named
// szDocument, on one page. hFrame is disabled meanwhile, and the user may cancel. Returns 1
// once all copies are handed to the spooler.
int PrintGraph(cVantorBox *pBox, HWND hFrame, const char *szDocument);

#endif
