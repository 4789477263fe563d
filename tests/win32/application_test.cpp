#include "toolkit/win32/win32.h"

#include "shell/win32/application.h"

#include <string>

#include <doctest/doctest.h>

#include "resources/resource.h"

static const int   kEnoughIdling = 3;
static const DWORD kWait         = 200;  // milliseconds, several idle periods

static int s_nIdle;

static void CountIdle(cCallbackObj *, void *, uintptr_t)
{
    if (++s_nIdle == kEnoughIdling)
        PostQuitMessage(7);
}

static void CALLBACK GiveUp(HWND, UINT, UINT_PTR nTimer, DWORD)
{
    KillTimer(nullptr, nTimer);
    PostQuitMessage(5);
}

// Runs until the idle callback has been called often enough, and returns 7, or
// until kWait is over, and returns 5.
static int RunIdling(int bEnabled, int bWanted)
{
    cApplication Application(ProgramInstance(), "", "Calculator");
    auto *const  pRecord = new cCallbackRec;
    pRecord->nSlot       = kSlotIdle;
    pRecord->pfnStatic   = &CountIdle;
    REQUIRE(Application.Register(pRecord) == 1);
    Application.SetIdleEnabled(bEnabled);
    Application.SetIdleWanted(bWanted);

    s_nIdle              = 0;
    const UINT_PTR nGive = SetTimer(nullptr, 0, kWait * (bEnabled && bWanted ? 50 : 1), &GiveUp);
    const int      nCode = Application.Run();
    KillTimer(nullptr, nGive);
    return nCode;
}

static INT_PTR CALLBACK IgnoreAll(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

TEST_CASE("the application stores its arguments; without a name it uses that of its file")
{
    {
        const cApplication Named(ProgramInstance(), "a b", "Calculator");
        CHECK(std::string(Named.Name()) == "Calculator");
        CHECK(std::string(Named.CommandLine()) == "a b");
        CHECK(Named.Instance() == ProgramInstance());
        CHECK(g_pApplication == &Named);
    }
    CHECK(!g_pApplication);
    const cApplication Unnamed(ProgramInstance(), "", nullptr);
    CHECK(std::string(Unnamed.Name()) == "win32-tests");
}

TEST_CASE("the message loop returns the code of the quit message")
{
    cApplication Application(ProgramInstance(), "", "Calculator");
    PostQuitMessage(3);
    CHECK(Application.Run() == 3);

    // The loop leaves a quit message that was waiting before it started.
    MSG Message = {};
    CHECK(PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE));
    CHECK(Message.message == WM_QUIT);
    CHECK_FALSE(PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE));
}

TEST_CASE("the idle slot fires periodically while idling is enabled and wanted")
{
    const DWORD dwStart = GetTickCount();
    CHECK(RunIdling(1, 1) == 7);
    CHECK(GetTickCount() - dwStart >= kEnoughIdling * 33u);

    CHECK(RunIdling(0, 1) == 5);
    CHECK(s_nIdle == 0);
    CHECK(RunIdling(1, 0) == 5);
    CHECK(s_nIdle == 0);
}

TEST_CASE("a modeless dialog gets its keys first")
{
    cApplication Application(ProgramInstance(), "", "Calculator");
    const HWND hDialog = CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(IDD_REFORMAT_PLOT),
                                            nullptr, &IgnoreAll, 0);
    REQUIRE(hDialog);
    ShowWindow(hDialog, SW_SHOW);
    const HWND hFirst = GetDlgItem(hDialog, IDC_PLOT_TITLE);
    SetFocus(hFirst);
    MSG Tab     = {};
    Tab.hwnd    = hFirst;
    Tab.message = WM_KEYDOWN;
    Tab.wParam  = VK_TAB;

    Application.Dispatch(&Tab);
    CHECK(GetFocus() == hFirst);

    Application.SetModelessDialog(hDialog);
    Application.Dispatch(&Tab);
    CHECK(GetFocus() == GetDlgItem(hDialog, IDC_HORZ_LABEL));
    DestroyWindow(hDialog);
}
