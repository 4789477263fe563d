#include "toolkit/win32/wait_cursor.h"

#include <doctest/doctest.h>

static HCURSOR Cursor(LPSTR szName)
{
    return LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(szName));
}

TEST_CASE("the cursor is an hourglass to the end of the scope")
{
    const HCURSOR hBefore = SetCursor(Cursor(IDC_CROSS));
    {
        const cWaitCursor Wait;
        CHECK(GetCursor() == Cursor(IDC_WAIT));
    }
    CHECK(GetCursor() == Cursor(IDC_CROSS));
    SetCursor(hBefore);
}
