#include "toolkit/win32/win32.h"

#include "toolkit/win32/print_job.h"

#include <functional>
#include <string>

#include <doctest/doctest.h>

#include "tests/win32/dialog_driver.h"
#include "tests/win32/test_frame.h"
#include "toolkit/win32/gdi.h"

namespace
{

// The calls of a printer that fails on request. m_Log records the calls.
struct cFakePrinter
{
    cFakePrinter() { s_pCurrent = this; }
    ~cFakePrinter() { s_pCurrent = nullptr; }
    cFakePrinter(const cFakePrinter &)            = delete;
    cFakePrinter &operator=(const cFakePrinter &) = delete;

    static cPageCalls Calls() { return {&StartDoc, &StartPage, &EndPage, &EndDoc}; }

    static int Call(const std::string &Name)
    {
        s_pCurrent->m_Log += Name + " ";
        return s_pCurrent->m_Failing == Name ? SP_ERROR : 1;
    }
    static int WINAPI StartDoc(HDC, const DOCINFOA *pDocument)
    {
        return Call(std::string("StartDoc ") + pDocument->lpszDocName);
    }
    static int WINAPI StartPage(HDC) { return Call("StartPage"); }
    static int WINAPI EndPage(HDC) { return Call("EndPage"); }
    static int WINAPI EndDoc(HDC) { return Call("EndDoc"); }

    static cFakePrinter *s_pCurrent;

    std::string m_Failing;
    std::string m_Log;
};

}  // namespace

cFakePrinter *cFakePrinter::s_pCurrent = nullptr;

namespace
{

// A job of two sheets on a fake printer.
struct cJobRig
{
    int Send(const std::function<int(int)> &Draw)
    {
        cPrintJob Job(m_Dc.Get(), m_Rig.m_Frame.Window(), cFakePrinter::Calls());
        return Job.Send("a.txt", 2, Draw);
    }

    // Draws nothing and records the sheets.
    int Send()
    {
        return Send([this](int nSheet) {
            m_Printer.m_Log += std::to_string(nSheet) + " ";
            return 1;
        });
    }

    void Cancel() { Press(GetLastActivePopup(m_Rig.m_Frame.Window()), IDCANCEL); }

    cFrameRig    m_Rig;
    cMemoryDc    m_Dc{nullptr};
    cFakePrinter m_Printer;
};

}  // namespace

TEST_CASE("the owner of a print job is disabled during the job")
{
    const cFrameRig Rig;
    const cMemoryDc Dc(nullptr);
    {
        const cPrintJob Job(Dc.Get(), Rig.m_Frame.Window());
        CHECK_FALSE(IsWindowEnabled(Rig.m_Frame.Window()));
    }

    CHECK(IsWindowEnabled(Rig.m_Frame.Window()));
}

TEST_CASE("a print job shows its dialog and closes it at the end")
{
    const cFrameRig Rig;
    const cMemoryDc Dc(nullptr);
    {
        cPrintJob Job(Dc.Get(), Rig.m_Frame.Window());
        Job.Send("a.txt", 0, [](int) { return 1; });
        CHECK(GetLastActivePopup(Rig.m_Frame.Window()) != Rig.m_Frame.Window());
    }

    CHECK(GetLastActivePopup(Rig.m_Frame.Window()) == Rig.m_Frame.Window());
    CHECK(GetForegroundWindow() == Rig.m_Frame.Window());
}

TEST_CASE("a document cannot be printed on a device that is not a printer")
{
    const cFrameRig Rig;
    const cMemoryDc Dc(nullptr);
    cPrintJob       Job(Dc.Get(), Rig.m_Frame.Window());

    int nDrawn = 0;

    CHECK(Job.Send("a.txt", 1, [&nDrawn](int) { return ++nDrawn; }) == 0);
    CHECK(nDrawn == 0);
}

TEST_CASE("a document is started, sent sheet by sheet, and ended")
{
    cJobRig Rig;

    CHECK(Rig.Send() == 1);

    CHECK(Rig.m_Printer.m_Log == "StartDoc a.txt StartPage 0 EndPage StartPage 1 EndPage EndDoc ");
}

TEST_CASE("a printer that fails ends the job; only a document without an open page is ended")
{
    // clang-format off
    static const struct { const char *szFailing; const char *szLog; } s_Rows[] =
    {
        { "StartDoc a.txt", "StartDoc a.txt " },
        { "StartPage",      "StartDoc a.txt StartPage " },
        { "EndPage",        "StartDoc a.txt StartPage 0 EndPage " },
        { "EndDoc",         "StartDoc a.txt StartPage 0 EndPage StartPage 1 EndPage EndDoc " },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szFailing);
        cJobRig Rig;
        Rig.m_Printer.m_Failing = Row.szFailing;

        CHECK(Rig.Send() == 0);

        CHECK(Rig.m_Printer.m_Log == Row.szLog);
        CHECK(IsWindowEnabled(Rig.m_Rig.m_Frame.Window()));
    }
}

TEST_CASE("a sheet that cannot be drawn ends the job without any further call")
{
    cJobRig Rig;

    CHECK(Rig.Send([](int) { return 0; }) == 0);

    CHECK(Rig.m_Printer.m_Log == "StartDoc a.txt StartPage ");
}

TEST_CASE("a document that is cancelled while a sheet is drawn is ended after that sheet")
{
    cJobRig Rig;

    CHECK(Rig.Send([&Rig](int) {
        Rig.Cancel();
        return 1;
    }) == 0);

    CHECK(Rig.m_Printer.m_Log == "StartDoc a.txt StartPage EndPage EndDoc ");
    CHECK(IsWindowEnabled(Rig.m_Rig.m_Frame.Window()));
    CHECK(GetLastActivePopup(Rig.m_Rig.m_Frame.Window()) == Rig.m_Rig.m_Frame.Window());
}

TEST_CASE("a quit message ends the document")
{
    cJobRig Rig;

    CHECK(Rig.Send([](int) {
        PostQuitMessage(3);
        return 1;
    }) == 0);

    CHECK(Rig.m_Printer.m_Log == "StartDoc a.txt StartPage EndPage EndDoc ");
    MSG Message = {};
    CHECK(PeekMessageA(&Message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_CASE("the paper of a device is its upright sheet")
{
    const cWindowDc Screen(nullptr);

    const cPaper Paper = PaperOf(Screen.Get());

    CHECK(Paper.m_bTurned == 0);
    CHECK(Paper.m_nDpiAcross == GetDeviceCaps(Screen.Get(), LOGPIXELSX));
    CHECK(Paper.m_nDpiDown == GetDeviceCaps(Screen.Get(), LOGPIXELSY));
}
