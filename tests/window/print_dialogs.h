// print_dialogs.h - controls of the platform's dialogs for printing.

#ifndef TESTS_WINDOW_PRINT_DIALOGS_H
#define TESTS_WINDOW_PRINT_DIALOGS_H

#include "toolkit/win32/win32.h"

#include <dlgs.h>

// Print
static const int kSelection = rad2;
static const int kPageRange = rad3;
static const int kFromPage  = edt1;
static const int kToPage    = edt2;
static const int kCopies    = edt3;
static const int kCollate   = chx2;

// Page Setup
static const int kLandscape    = rad2;
static const int kMarginLeft   = edt4;
static const int kMarginTop    = edt5;
static const int kMarginRight  = edt6;
static const int kMarginBottom = edt7;
static const int kMarginGroup  = grp4;

#endif
