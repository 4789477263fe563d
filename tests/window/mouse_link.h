// mouse_link.h - moves the pointer of the screen.
//
// Under Wine, when a program sets the position of the pointer, the desktop, which is
// another program, reports the former position as a new one at any later time. So
// with-mouse moves the pointer from outside, like a real mouse; without it the
// platform's call has to do.

#ifndef TESTS_WINDOW_MOUSE_LINK_H
#define TESTS_WINDOW_MOUSE_LINK_H

#include "toolkit/win32/win32.h"

#include <winsock2.h>

// There is one for the lifetime of the test program.
class cMouseLink
{
public:
    cMouseLink();
    ~cMouseLink();
    cMouseLink(const cMouseLink &)            = delete;
    cMouseLink &operator=(const cMouseLink &) = delete;

    // Returns when the pointer is there, or as near as it may come.
    void MoveTo(POINT Position) const;

    static const cMouseLink *Current();

private:
    int  IsOpen() const { return m_nSocket != INVALID_SOCKET; }
    void Send(POINT Position) const;

    SOCKET m_nSocket;
};

#endif
