#include "toolkit/win32/win32.h"

#include "toolkit/win32/base_window.h"

#include <string>

#include <doctest/doctest.h>

#include "tests/win32/test_frame.h"

namespace
{

// A child that counts how often the platform shows and hides it.
class cShownWindow : public cBaseWindow
{
public:
    explicit cShownWindow(cMessageBoxes *pBoxes) : cBaseWindow(pBoxes), m_ClassShare(&s_Class)
    {
        m_dwStyle   = WS_CHILD;
        m_dwExStyle = WS_EX_NOPARENTNOTIFY;
    }

    const char *GetClassName() const override { return "cShownWindow"; }

    int Create(cBaseWindow *pOwner, DWORD dwStyle)
    {
        return m_ClassShare.Acquire(DescribeClass(GetClassName(), &WindowProc)) &&
               CreateChild(pOwner, dwStyle, 10, 20, 30, 40, 1234, this);
    }

    int m_nShown  = 0;
    int m_nHidden = 0;

private:
    using cMessageRow = cMessageRowOf<cShownWindow>;

    static LRESULT CALLBACK WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    LRESULT OnShowWindow(WPARAM wParam, LPARAM)
    {
        (wParam ? m_nShown : m_nHidden)++;
        return 0;
    }

    static const cMessageRow s_Messages[];
    static cWindowClass      s_Class;

    cWindowClassShare m_ClassShare;
};

}  // namespace

cWindowClass cShownWindow::s_Class;

const cShownWindow::cMessageRow cShownWindow::s_Messages[] = {
    {WM_SHOWWINDOW, &cShownWindow::OnShowWindow},
};

LRESULT CALLBACK cShownWindow::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

// The rectangle of a child in its parent's client area.
static RECT PlaceOf(const cBaseWindow &Window)
{
    RECT Rect;
    GetWindowRect(Window.Window(), &Rect);
    MapWindowPoints(nullptr, GetParent(Window.Window()), reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

TEST_CASE("a new window object has no window")
{
    cRecordingBoxes   Boxes;
    const cBaseWindow Window(&Boxes);

    CHECK(std::string(Window.GetClassName()) == "cBaseWindow");
    CHECK(Window.CountSlots() == 2);
    CHECK(!Window.Window());
    CHECK(!Window.Owner());
    CHECK(Window.ChildId() == 0);
    CHECK(Window.IsCreated() == 0);
    CHECK(Window.IsVisible() == 0);
}

TEST_CASE("a child window is created with the style of its class and of its creator")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);

    REQUIRE(Window.Create(&Rig.m_Frame, WS_BORDER) == 1);

    const HWND     hWnd    = Window.Window();
    const LONG_PTR nStyles = GetWindowLongPtrA(hWnd, GWL_STYLE);
    CHECK((nStyles & WS_CHILD) != 0);
    CHECK((nStyles & WS_BORDER) != 0);
    CHECK((GetWindowLongPtrA(hWnd, GWL_EXSTYLE) & WS_EX_NOPARENTNOTIFY) != 0);
    CHECK(GetParent(hWnd) == Rig.m_Frame.Window());
    CHECK(GetDlgCtrlID(hWnd) == 1234);
    CHECK(Window.Owner() == &Rig.m_Frame);
    CHECK(Window.ChildId() == 1234);
    CHECK(Window.IsCreated() == 1);
    const RECT Place = PlaceOf(Window);
    CHECK(Place.left == 10);
    CHECK(Place.top == 20);
    CHECK(Place.right == 40);
    CHECK(Place.bottom == 60);
    Rig.m_Frame.Close();
}

TEST_CASE("a child window of an owner without a window cannot be created")
{
    cNoFrameRig  Rig;
    cShownWindow Window(&Rig.m_Boxes);

    CHECK(Window.Create(&Rig.m_Frame, 0) == 0);

    CHECK(Window.IsCreated() == 0);
    CHECK(!Window.Window());
}

TEST_CASE("a window is visible from the start if its style says so")
{
    cFrameRig    Rig;
    cShownWindow Hidden(&Rig.m_Boxes);
    cShownWindow Visible(&Rig.m_Boxes);

    REQUIRE(Hidden.Create(&Rig.m_Frame, 0) == 1);
    REQUIRE(Visible.Create(&Rig.m_Frame, WS_VISIBLE) == 1);

    CHECK(Hidden.IsVisible() == 0);
    CHECK(Visible.IsVisible() == 1);
    Rig.m_Frame.Close();
}

TEST_CASE("showing or hiding a window that was never created does nothing")
{
    cRecordingBoxes Boxes;
    cShownWindow    Window(&Boxes);

    Window.Show();
    CHECK(Window.IsVisible() == 0);
    Window.Hide();
    CHECK(Window.IsVisible() == 0);
}

TEST_CASE("showing and hiding a window calls the platform")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);
    REQUIRE(Window.Create(&Rig.m_Frame, 0) == 1);

    Window.Show();
    CHECK(Window.IsVisible() == 1);
    CHECK(IsWindowVisible(Window.Window()));
    CHECK(Window.m_nShown == 1);

    Window.Hide();
    CHECK(Window.IsVisible() == 0);
    CHECK_FALSE(IsWindowVisible(Window.Window()));
    CHECK(Window.m_nHidden == 1);
    Rig.m_Frame.Close();
}

TEST_CASE("the visibility of a window is set to either state")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);
    REQUIRE(Window.Create(&Rig.m_Frame, 0) == 1);

    Window.SetVisible(1);
    CHECK(IsWindowVisible(Window.Window()));
    Window.SetVisible(1);
    CHECK(IsWindowVisible(Window.Window()));

    Window.SetVisible(0);
    CHECK_FALSE(IsWindowVisible(Window.Window()));
    Rig.m_Frame.Close();
}

TEST_CASE("showing or hiding a window twice calls the platform once")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);
    REQUIRE(Window.Create(&Rig.m_Frame, 0) == 1);
    const HWND hWnd = Window.Window();

    // The platform's own state is changed without the object; a second call
    // would change it back.
    Window.Show();
    ShowWindow(hWnd, SW_HIDE);
    Window.Show();
    CHECK_FALSE(IsWindowVisible(hWnd));

    Window.Hide();
    ShowWindow(hWnd, SW_SHOW);
    Window.Hide();
    CHECK(IsWindowVisible(hWnd));
    Rig.m_Frame.Close();
}

TEST_CASE("the visibility of a window does not depend on its owner's")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);
    REQUIRE(Window.Create(&Rig.m_Frame, 0) == 1);
    Rig.m_Frame.Hide();

    Window.Show();

    CHECK(Window.IsVisible() == 1);
    CHECK_FALSE(IsWindowVisible(Window.Window()));
    Rig.m_Frame.Close();
}

TEST_CASE("a window is moved within its owner")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);
    REQUIRE(Window.Create(&Rig.m_Frame, WS_VISIBLE) == 1);

    CHECK(Window.Move(5, 6, 70, 80, 1) == 1);

    const RECT Place = PlaceOf(Window);
    CHECK(Place.left == 5);
    CHECK(Place.top == 6);
    CHECK(Place.right == 75);
    CHECK(Place.bottom == 86);
    Rig.m_Frame.Close();
}

TEST_CASE("a moved window is repainted on request")
{
    cFrameRig    Rig;
    cShownWindow Window(&Rig.m_Boxes);
    REQUIRE(Window.Create(&Rig.m_Frame, WS_VISIBLE) == 1);
    ValidateRect(Window.Window(), nullptr);

    Window.Move(5, 6, 70, 80, 0);
    CHECK_FALSE(GetUpdateRect(Window.Window(), nullptr, FALSE));
    ValidateRect(Window.Window(), nullptr);
    Window.Move(50, 60, 100, 100, 1);
    CHECK(GetUpdateRect(Window.Window(), nullptr, FALSE));
    Rig.m_Frame.Close();
}

TEST_CASE("a window that does not exist cannot be moved")
{
    cRecordingBoxes Boxes;
    cBaseWindow     Window(&Boxes);

    CHECK(Window.Move(0, 0, 10, 10, 1) == 0);
}
