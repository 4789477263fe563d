// graph_print.h - prints the plot on one page, as large as the margins allow.

#ifndef GRAPH_WIN32_GRAPH_PRINT_H
#define GRAPH_WIN32_GRAPH_PRINT_H

#include "toolkit/win32/win32.h"

#include "toolkit/message_box.h"
#include "toolkit/page_margins.h"
#include "toolkit/print_plan.h"

class cVantorBox;

// Where the plot is placed on the paper.
struct cPageChoice
{
    cPageMargins m_Margins = {kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin};
    int          m_bTurned = 0;  // by a quarter turn, with its left edge up
};

// Draws the plot with its legend on a sheet. Upright is the device's sheet. The
// plot fills the area within the margins, which may be empty. 0 if memory is short
// and the user gave up.
int DrawGraphPage(HDC hDc, const cPaper &Upright, const cVantorBox &Box, const cPageChoice &Page);

// Asks for a printer and prints the plot with its legend on one page, as the
// document szDocument. hFrame is disabled meanwhile, and the user may cancel. 1 if
// all copies were handed to the spooler. A box says so if the margins leave no room.
int PrintGraph(cVantorBox *pBox, HWND hFrame, const char *szDocument, cMessageBoxes *pBoxes);

#endif
