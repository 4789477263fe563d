// mouse_link.h - moves the pointer of the screen.
//
// Under Wine a program that sets the pointer's place lets the desktop, which is
// another program, report the place that it left as one where the mouse has come
// to, and that at any later time. So the pointer is moved from outside, by
// with-mouse, as by a real mouse; where that is not, the platform's call serves.

#ifndef TESTS_WINDOW_MOUSE_LINK_H
#define TESTS_WINDOW_MOUSE_LINK_H

#include "toolkit/win32/win32.h"

#include <winsock2.h>

// There is one, and it lasts as long as the test program.
class cMouseLink
{
public:
    cMouseLink();
    ~cMouseLink();
    cMouseLink(const cMouseLink &)            = delete;
    cMouseLink &operator=(const cMouseLink &) = delete;

    // Returns when a click would fall there, or as near as the pointer may come.
    void MoveTo(POINT Position) const;

    static const cMouseLink *Current();

private:
    int  IsOpen() const { return m_nSocket != INVALID_SOCKET; }
    void Send(POINT Position) const;

    SOCKET m_nSocket;
};

#endif
