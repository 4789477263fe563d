// wait_cursor.h - the cursor is an hourglass until the end of the scope, while the
// program reads a file and answers no message.

#ifndef TOOLKIT_WIN32_WAIT_CURSOR_H
#define TOOLKIT_WIN32_WAIT_CURSOR_H

#include "toolkit/win32/win32.h"

class cWaitCursor
{
public:
    cWaitCursor() : m_hFormer(SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT))))
    {
    }
    ~cWaitCursor() { SetCursor(m_hFormer); }
    cWaitCursor(const cWaitCursor &)            = delete;
    cWaitCursor &operator=(const cWaitCursor &) = delete;

private:
    HCURSOR m_hFormer;
};

#endif
