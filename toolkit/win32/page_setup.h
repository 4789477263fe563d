// page_setup.h - the platform's page-setup dialog.

#ifndef TOOLKIT_WIN32_PAGE_SETUP_H
#define TOOLKIT_WIN32_PAGE_SETUP_H

#include "toolkit/win32/win32.h"

#include "toolkit/page_margins.h"

// 1 if the user's locale uses millimetres, 0 if it uses inches.
int IsMetricLocale();

// Asks the user for margins and orientation. The margins are stored in
// thousandths of an inch and shown in the unit of the user's locale. 0, with
// nothing changed, if the user cancelled or there is no printer.
int AskPageSetup(cPageMargins *pMargins, int *pbLandscape);

#endif
