// vantor_host.h - what the graph's window needs from the program to which it
// belongs.

#ifndef GRAPH_WIN32_VANTOR_HOST_H
#define GRAPH_WIN32_VANTOR_HOST_H

#include "toolkit/win32/win32.h"

// The message for a command that is not allowed while a program runs.
extern const char *const kNotWhileRunning;

class cVantorHost
{
public:
    virtual ~cVantorHost() {}

    // 1 while a calculator program runs. The graph then refuses commands that
    // change its data or settings, print or export.
    virtual int IsDrawing() const = 0;

    // Called when the user has closed the graph: it is hidden and keeps its data.
    virtual void OnGraphHidden() = 0;

    // Makes the keys of this accelerator table send their commands to hWnd.
    virtual void UseAccelerators(HWND hWnd, HACCEL hTable) = 0;
};

#endif
