// vantor_host.h - what the graph's window asks of a program that it belongs to.
// Without one it stands alone.

#ifndef GRAPH_VANTOR_HOST_H
#define GRAPH_VANTOR_HOST_H

#include "toolkit/win32/win32.h"

// What is said about a command that has to wait for the end of a program.
extern const char *const kNotWhileRunning;

class cVantorHost
{
public:
    virtual ~cVantorHost() {}

    // While a program draws, the graph refuses what would change its data or
    // settings, print or export.
    virtual int IsDrawing() const = 0;

    // The user has closed the graph: it is hidden and keeps its data.
    virtual void OnGraphHidden() = 0;

    // From now on the keys of this table send commands to this window.
    virtual void UseAccelerators(HWND hWnd, HACCEL hTable) = 0;
};

#endif
