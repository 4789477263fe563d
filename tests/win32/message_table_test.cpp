#include "toolkit/win32/win32.h"

#include "toolkit/win32/message_table.h"

#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/window_class.h"

static const UINT kAnswered   = WM_APP + 1;
static const UINT kUnanswered = WM_APP + 2;

namespace
{

// A top-level window that records the messages its rows receive.
class cTableWindow : public cBaseWindow
{
public:
    explicit cTableWindow(cMessageBoxes *pBoxes) : cBaseWindow(pBoxes), m_ClassShare(&s_Class) {}

    int Create()
    {
        REQUIRE(m_ClassShare.Acquire(DescribeClass("cTableWindow", &WindowProc)) == 1);
        const HWND hWnd = CreateWindowExA(0, "cTableWindow", "Title", WS_POPUP, 0, 0, 10, 10,
                                          nullptr, nullptr, ProgramInstance(), this);
        if (!hWnd)
            return 0;
        SetCreated(hWnd);
        return 1;
    }

    std::vector<UINT> m_Received;
    WPARAM            m_wParam          = 0;
    LPARAM            m_lParam          = 0;
    HWND              m_hWndAtCreation  = nullptr;
    LRESULT           m_nCreationResult = 0;

private:
    using cMessageRow = cMessageRowOf<cTableWindow>;

    static LRESULT CALLBACK WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    LRESULT OnCreate(WPARAM, LPARAM)
    {
        m_Received.push_back(WM_CREATE);
        m_hWndAtCreation = m_hWnd;
        return m_nCreationResult;
    }

    LRESULT OnNcCreate(WPARAM, LPARAM)
    {
        m_Received.push_back(WM_NCCREATE);
        return 0;
    }

    LRESULT OnAnswered(WPARAM wParam, LPARAM lParam)
    {
        m_Received.push_back(kAnswered);
        m_wParam = wParam;
        m_lParam = lParam;
        return 42;
    }

    LRESULT OnNcDestroy(WPARAM, LPARAM)
    {
        m_Received.push_back(WM_NCDESTROY);
        return 0;
    }

    static const cMessageRow s_Messages[];
    static cWindowClass      s_Class;

    cWindowClassShare m_ClassShare;
};

}  // namespace

cWindowClass cTableWindow::s_Class;

const cTableWindow::cMessageRow cTableWindow::s_Messages[] = {
    {WM_NCCREATE, &cTableWindow::OnNcCreate},
    {WM_CREATE, &cTableWindow::OnCreate},
    {kAnswered, &cTableWindow::OnAnswered},
    {WM_NCDESTROY, &cTableWindow::OnNcDestroy},
};

LRESULT CALLBACK cTableWindow::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

TEST_CASE("a window finds its object from WM_CREATE on")
{
    cRecordingBoxes Boxes;
    cTableWindow    Window(&Boxes);

    REQUIRE(Window.Create() == 1);

    CHECK(Window.m_Received == std::vector<UINT>{WM_CREATE});  // not WM_NCCREATE
    CHECK(Window.m_hWndAtCreation == Window.Window());
    CHECK(GetWindowLongPtrA(Window.Window(), GWLP_USERDATA) == reinterpret_cast<LONG_PTR>(&Window));
    DestroyWindow(Window.Window());
}

TEST_CASE("a message with a row goes to its handler, which determines the result")
{
    cRecordingBoxes Boxes;
    cTableWindow    Window(&Boxes);
    REQUIRE(Window.Create() == 1);
    Window.m_Received.clear();

    const LRESULT nResult = SendMessageA(Window.Window(), kAnswered, 3, -4);

    CHECK(nResult == 42);
    CHECK(Window.m_Received == std::vector<UINT>{kAnswered});
    CHECK(Window.m_wParam == 3);
    CHECK(Window.m_lParam == -4);
    DestroyWindow(Window.Window());
}

TEST_CASE("a message without a row is handled by the platform")
{
    cRecordingBoxes Boxes;
    cTableWindow    Window(&Boxes);
    REQUIRE(Window.Create() == 1);
    Window.m_Received.clear();

    CHECK(SendMessageA(Window.Window(), kUnanswered, 0, 0) == 0);
    CHECK(SendMessageA(Window.Window(), WM_GETTEXTLENGTH, 0, 0) == 5);

    CHECK(Window.m_Received.empty());
    DestroyWindow(Window.Window());
}

TEST_CASE("a destroyed window detaches its object, which gets no message for it")
{
    cRecordingBoxes Boxes;
    cTableWindow    Window(&Boxes);
    REQUIRE(Window.Create() == 1);
    Window.m_Received.clear();

    DestroyWindow(Window.Window());

    CHECK(Window.m_Received.empty());
    CHECK(!Window.Window());
    CHECK(Window.IsCreated() == 0);
    CHECK(Window.IsVisible() == 0);
}

TEST_CASE("an object can refuse the creation of its window")
{
    cRecordingBoxes Boxes;
    cTableWindow    Window(&Boxes);
    Window.m_nCreationResult = -1;

    CHECK(Window.Create() == 0);

    CHECK(!Window.Window());
    CHECK(Window.IsCreated() == 0);
}

TEST_CASE("a window that outlives its object is handled by the platform")
{
    cRecordingBoxes Boxes;
    HWND            hWnd = nullptr;
    {
        cTableWindow Window(&Boxes);
        REQUIRE(Window.Create() == 1);
        hWnd = Window.Window();
    }

    CHECK(GetWindowLongPtrA(hWnd, GWLP_USERDATA) == 0);
    CHECK(SendMessageA(hWnd, kAnswered, 0, 0) == 0);
    CHECK(DestroyWindow(hWnd));
}
