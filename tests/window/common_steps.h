// common_steps.h - what several tests do with the calculator.

#ifndef TESTS_WINDOW_COMMON_STEPS_H
#define TESTS_WINDOW_COMMON_STEPS_H

#include "toolkit/win32/win32.h"

#include <string>

#include "tests/window/calculator.h"
#include "tests/window/picture.h"

// What a file dialog says of a name that is longer than a path may be.
const char *const kNameTooLong =
    "The file name is too long: it may have 259 characters, its folder included.";

// What a command says that has to wait for the end of a run.
const char *const kRefusedInRun = "Not allowed while a calculator\n"
                                  "program is running (hit any\n"
                                  "calculator key to halt the program)\n";

// Opens a program with these lines, "LBL 1\r\nGTO 1\r\n", by the keyboard.
void OpenListing(cCalculator *pCalculator, const std::string &Listing);

// Opens such a program and starts it with a click on R/S.
void RunListing(cCalculator *pCalculator, const std::string &Listing);

// The command as a click on its menu item posts it, and one of the system menu.
void PostCommand(const cCalculator &Calculator, unsigned nId);
void PostSystemCommand(const cCalculator &Calculator, unsigned nCommand);

// Clicks into a field of the dialog in front and types another text over what
// is there.
void FillField(cCalculator *pCalculator, int nId, const std::string &Text);

// What a control of the dialog in front says.
std::string TextOfControl(const cCalculator &Calculator, int nId);

// The keypad with its edge, when all input so far has been handled and all that
// it changed has been painted.
cPicture PhotographFace(const cCalculator &Calculator);

// Whether the keypad comes to look so. What has been painted reaches the screen
// a little later, so a comparison with a single photograph may come too early.
int LooksLike(const cCalculator &Calculator, const cPicture &Face);

// Has the face, with all that stands on it, painted anew, and returns when that
// has been done.
void Repaint(const cCalculator &Calculator);

// The bit TBSTATE_ENABLED or another of a button in the toolbar.
int ToolState(const cCalculator &Calculator, unsigned nId);

#endif
