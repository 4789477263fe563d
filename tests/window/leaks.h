// leaks.h - whether what is done often leaves objects of the platform behind.

#ifndef TESTS_WINDOW_LEAKS_H
#define TESTS_WINDOW_LEAKS_H

#include "toolkit/win32/win32.h"

#include <functional>

#include "tests/window/calculator.h"

// Closes the dialog in front as Escape does.
void CancelDialog(const cCalculator &Calculator);

// Opens a dialog of the calculator or the graph by a posted command and closes it.
void OpenAndClose(const cCalculator &Calculator, HWND hFrame, unsigned nCommand);

// Wine itself keeps the two menus of each file dialog.
enum eKept
{
    kpNothing,
    kpMenus
};

// What a step leaves behind shows each time it is taken so often. Caches of the
// platform, of device contexts and fonts, grow as well, but come to an end: from
// some time on so many rounds leave the counts as they were.
int LeavesNothing(const cCalculator &Calculator, int nRounds, eKept nKept,
                  const std::function<void()> &Step);

#endif
