// interrupt_watch.h - lets the user end what keeps the program from its messages, the
// reading of a large file:
//
//     cInterruptWatch Watch;
//     OpenGraphFile(&m_Box, m_pBoxes, szName, &Watch);

#ifndef TOOLKIT_WIN32_INTERRUPT_WATCH_H
#define TOOLKIT_WIN32_INTERRUPT_WATCH_H

#include "toolkit/win32/win32.h"

#include "toolkit/reading_watch.h"

class cInterruptWatch : public cReadingWatch
{
public:
    cInterruptWatch();

    // 0 once Escape has been pressed, or a window is about to be closed, in whichever
    // way. What closes the window stays in the queue, for the main loop. Windows are
    // painted meanwhile. Other keys are dropped, and clicks wait. Looks ten times a
    // second, the first time after half a second.
    int GoesOn() override;

private:
    DWORD m_dwNextLook;
};

#endif
