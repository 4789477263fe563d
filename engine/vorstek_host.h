// vorstek_host.h - all that the calculator asks of its surroundings. The window
// program, the console program and the tests each implement it. All calls
// come from the engine's own thread.
//
// Sounds and commands are passed by number, from resources/calculator_ids.h. What a
// box can show and answer is in toolkit/message_box.h. A text is passed complete; it
// is in the source file that reports it.

#ifndef ENGINE_VORSTEK_HOST_H
#define ENGINE_VORSTEK_HOST_H

#include <cstddef>

#include "toolkit/message_box.h"

struct cDisplay;

enum eFileDialog
{
    fdOpen,
    fdSave
};

class cVorstekHost : public cMessageBoxes
{
public:
    // Starts sound nId, IDW_KEY_CLICK for example, and returns at once. Called
    // only while sounds are on.
    virtual void StartSound(unsigned nId) = 0;

    // Draws the lines over the present content of the display.
    virtual void DrawDisplay(const cDisplay &Display) = 0;

    // Fills the display's field with black.
    virtual void BlankDisplay() = 0;

    // Between program lines: handles what is waiting, waits for nothing. Key
    // events re-enter the engine here and only set flags. Once one of them has
    // halted the program, the messages after it are left to the main loop. A host
    // that dispatches messages calls the engine's RefreshViews() first.
    // nLines have been executed since the last call, or since the run began.
    // Returns how many may follow before the next call; 0 on quit, after it has
    // posted the quit message again. The first call comes after the first line. A
    // line that has used the host (a box, a PAUSE, the graph) is always followed
    // by a call.
    virtual unsigned DrainMessages(unsigned nLines) = 0;

    // Waits without handling messages.
    virtual void Pause(unsigned nMilliseconds) = 0;

    // Asks for the name of a program file, filter "Text Files (*.TXT)". 0 if
    // the user cancelled.
    virtual int AskFileName(eFileDialog nDialog, char *szName, size_t nSize) = 0;

    // The status bar, for example "filename: UNTITLED".
    virtual void SetStatusText(const char *szText) = 0;

    // Enables or disables a menu command, IDM_OPEN for example, and its toolbar
    // button. run_lock.h lists those that a run disables.
    virtual void EnableCommand(unsigned nId, int bEnable) = 0;

    // Show or hide the boxes beside the face; the window changes its size.
    virtual void ShowListing(int bShow)   = 0;
    virtual void ShowRegisters(int bShow) = 0;

    // The graph. Data sets count from 1. AddGraphPoint appends to set nLine,
    // or starts set count + 1; 0 if the set is full. The values are within
    // +-9.999999999e99 or infinite, never NaN.
    virtual void     ShowGraph()                                         = 0;
    virtual void     ClearGraph()                                        = 0;
    virtual unsigned CountDataSets()                                     = 0;
    virtual int      AddGraphPoint(unsigned nLine, double dX, double dY) = 0;
};

#endif
