// leaks.h - finds objects of the platform that a repeated step does not free.

#ifndef TESTS_WINDOW_LEAKS_H
#define TESTS_WINDOW_LEAKS_H

#include "toolkit/win32/win32.h"

#include <functional>

#include "tests/window/calculator.h"

// Closes the topmost dialog with its Cancel command.
void CancelDialog(const cCalculator &Calculator);

// Opens a dialog of the calculator or the graph with a posted command and closes it.
void OpenAndClose(const cCalculator &Calculator, HWND hFrame, unsigned nCommand);

// What the platform itself keeps: Wine does not free the two menus of a file
// dialog.
enum eKept
{
    kpNothing,
    kpMenus
};

// Repeats a step until nRounds repetitions in a row leave the object counts as
// they were; 0 if that does not happen. Caches of the platform, for device contexts
// and fonts, grow at first, but not without end, whereas a leak adds to the counts
// in every round.
int LeavesNothing(const cCalculator &Calculator, int nRounds, eKept nKept,
                  const std::function<void()> &Step);

// The same for Rounds() repetitions of a step of which the platform keeps nothing.
int LeavesNothing(const cCalculator &Calculator, const std::function<void()> &Step);

// How often a step is repeated. One object that a dialog leaves once in so many openings
// is found; scripts/soak opens it more often.
int Rounds();

#endif
