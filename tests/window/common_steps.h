// common_steps.h - steps that several tests take with the calculator.

#ifndef TESTS_WINDOW_COMMON_STEPS_H
#define TESTS_WINDOW_COMMON_STEPS_H

#include "toolkit/win32/win32.h"

#include <string>

#include "tests/window/calculator.h"
#include "tests/window/picture.h"

// The report about a file name that is longer than a path may be.
const char *const kNameTooLong =
    "The file name is too long: it may have 259 characters, its folder included.";

// The report of a command that is not allowed while a program runs.
const char *const kRefusedInRun = "Not allowed while a calculator\n"
                                  "program is running (hit any\n"
                                  "calculator key to halt the program)\n";

// The question before changes to a program without a file name are lost.
const char *const kSaveUntitled = "Save current changes in UNTITLED?";

// The report about a missing help file, "VORSTEK.CHM".
std::string MissingHelpText(const std::string &File);

// A program that runs until it is halted.
const char *const kEndless = "LBL 1\r\nGTO 1\r\n";

// Chooses a file of the program's folder with Ctrl+O and the file dialog.
void OpenFile(cCalculator *pCalculator, const std::string &File);

// Opens a program with these lines, for example kEndless.
void OpenListing(cCalculator *pCalculator, const std::string &Listing);

// Opens a program and starts it with R/S.
void RunListing(cCalculator *pCalculator, const std::string &Listing);

// Adds an ENTER below the current line, in program mode, and returns to run mode.
void AddEnter(cCalculator *pCalculator);

// Whether a program runs.
int IsProgramRunning(const cCalculator &Calculator);

// Waits until no program runs; 0 if the run goes on.
int HasHalted(const cCalculator &Calculator);

// Posts a menu command, or one of the system menu.
void PostCommand(const cCalculator &Calculator, unsigned nId);
void PostSystemCommand(const cCalculator &Calculator, unsigned nCommand);

// Minimises the window, or restores it, and waits until that is done.
void Minimise(const cCalculator &Calculator);
void Restore(const cCalculator &Calculator);

// Replaces the text in a field of the topmost dialog.
void FillField(cCalculator *pCalculator, int nId, const std::string &Text);

// The text of a control of the topmost dialog.
std::string TextOfControl(const cCalculator &Calculator, int nId);

// The topmost dialog with its frame, saved as a picture after it was painted.
void PhotographDialog(const cCalculator &Calculator, const std::string &Name);

// The keypad with its edge, after all changes have been painted.
cPicture PhotographFace(const cCalculator &Calculator);

// Waits until the keypad looks like this; 0 if it does not. Paint reaches the
// screen with a delay, so that one comparison might come too early.
int LooksLike(const cCalculator &Calculator, const cPicture &Face);

// Repaints the complete window and returns when that is done.
void Repaint(const cCalculator &Calculator);

// The TBSTATE_ flags of a toolbar button.
int ToolState(const cCalculator &Calculator, unsigned nId);

#endif
