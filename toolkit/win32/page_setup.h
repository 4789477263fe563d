// page_setup.h - the platform's page-setup dialog.

#ifndef TOOLKIT_PAGE_SETUP_H
#define TOOLKIT_PAGE_SETUP_H

#include "toolkit/win32/win32.h"

#include "toolkit/page_margins.h"

// 1 where the user measures in millimetres, 0 where in inches.
int IsMetricLocale();

// Asks the user for margins, kept in thousandths of an inch and shown in his
// own unit, and for the orientation. 0, and both are as they were, if he
// cancelled or there is no printer.
int AskPageSetup(cPageMargins *pMargins, int *pbLandscape);

#endif
