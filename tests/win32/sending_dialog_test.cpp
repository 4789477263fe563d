#include "toolkit/win32/win32.h"

#include "toolkit/win32/sending_dialog.h"

#include <string>

#include <doctest/doctest.h>

#include "resources/resource.h"
#include "tests/win32/dialog_driver.h"
#include "tests/win32/test_frame.h"

TEST_CASE("the sending dialog has its owner's title and names the document")
{
    const cFrameRig Rig;
    cSendingDialog  Dialog;

    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "R&D.txt") == 1);

    CHECK(TextOf(Dialog.Window()) == "Test frame");
    CHECK(TextOf(GetDlgItem(Dialog.Window(), IDC_SENDING_DOCUMENT)) == "R&D.txt");
    CHECK(TextOf(GetDlgItem(Dialog.Window(), IDCANCEL)) == "Cancel");
    CHECK(GetWindow(Dialog.Window(), GW_OWNER) == Rig.m_Frame.Window());
    CHECK(IsWindowVisible(Dialog.Window()));
}

TEST_CASE("the sending dialog continues until its Cancel button is clicked")
{
    const cFrameRig Rig;
    cSendingDialog  Dialog;
    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "a.txt") == 1);

    CHECK(Dialog.PumpMessages() == 1);
    CHECK(Dialog.PumpMessages() == 1);
    Press(Dialog.Window(), IDCANCEL);
    CHECK(Dialog.PumpMessages() == 0);
    CHECK(Dialog.PumpMessages() == 0);
}

TEST_CASE("Escape cancels in the sending dialog")
{
    const cFrameRig Rig;
    cSendingDialog  Dialog;
    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "a.txt") == 1);

    PostMessageA(Dialog.Window(), WM_KEYDOWN, VK_ESCAPE, 0);

    CHECK(Dialog.PumpMessages() == 0);
}

TEST_CASE("a sending dialog that is opened again is no longer cancelled")
{
    const cFrameRig Rig;
    cSendingDialog  Dialog;
    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "a.txt") == 1);
    Press(Dialog.Window(), IDCANCEL);
    REQUIRE(Dialog.PumpMessages() == 0);
    Dialog.Close();
    CHECK(!Dialog.Window());

    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "b.txt") == 1);

    CHECK(Dialog.PumpMessages() == 1);
}

TEST_CASE("other windows get their messages while the sending dialog is open")
{
    const cFrameRig Rig;
    cSendingDialog  Dialog;
    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "a.txt") == 1);
    PostMessageA(Rig.m_Frame.Window(), WM_COMMAND, 777, 0);

    CHECK(Dialog.PumpMessages() == 1);

    REQUIRE(Rig.m_Frame.m_Commands.size() == 1);
    CHECK(Rig.m_Frame.m_Commands[0].m_nId == 777);
}

TEST_CASE("a quit message cancels printing and is posted again")
{
    const cFrameRig Rig;
    cSendingDialog  Dialog;
    REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "a.txt") == 1);
    PostQuitMessage(5);

    CHECK(Dialog.PumpMessages() == 0);

    MSG Message = {};
    CHECK(PeekMessageA(&Message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    CHECK(Message.wParam == 5);
}

TEST_CASE("the sending dialog is destroyed with its object")
{
    const cFrameRig Rig;
    HWND            hDialog = nullptr;
    {
        cSendingDialog Dialog;
        REQUIRE(Dialog.Open(Rig.m_Frame.Window(), "a.txt") == 1);
        hDialog = Dialog.Window();
    }

    CHECK_FALSE(IsWindow(hDialog));
}
