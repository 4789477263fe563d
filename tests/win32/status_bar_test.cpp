#include "toolkit/win32/win32.h"

#include "toolkit/win32/status_bar.h"

#include <string>

#include <doctest/doctest.h>

#include "tests/win32/resources/test_resources.h"
#include "tests/win32/test_frame.h"
#include "toolkit/win32/progress_bar.h"

static const UINT kMenuClosed = 0xFFFF;

namespace
{

struct cStatusRig : cFrameRig
{
    cStatusRig()
    {
        const int RightEdges[] = {100, 250, -1};
        REQUIRE(m_Bar.Create(&m_Frame, 0, 0, 10, 10, 1002, 3, RightEdges) == 1);
        m_Bar.Show();
    }
    ~cStatusRig() { m_Frame.Close(); }

    // Text and drawing style of a part, or of the simple part while it is shown.
    std::string Text(int nPart, WORD *pStyle = nullptr) const
    {
        char          szText[1024] = "";
        const LRESULT nResult =
            SendMessageA(m_Bar.Window(), SB_GETTEXTA, static_cast<WPARAM>(nPart),
                         reinterpret_cast<LPARAM>(szText));
        if (pStyle)
            *pStyle = HIWORD(nResult);
        return szText;
    }

    int IsSimple() const { return SendMessageA(m_Bar.Window(), SB_ISSIMPLE, 0, 0) != 0; }

    cStatusBar m_Bar{&m_Boxes};
};

}  // namespace

static RECT Client(HWND hWnd)
{
    RECT Rect;
    GetClientRect(hWnd, &Rect);
    return Rect;
}

TEST_CASE("a status bar has the parts that were asked for")
{
    const cStatusRig Rig;

    CHECK(std::string(Rig.m_Bar.GetClassName()) == "msctls_statusbar32");
    int Edges[4] = {};
    CHECK(SendMessageA(Rig.m_Bar.Window(), SB_GETPARTS, 4, reinterpret_cast<LPARAM>(Edges)) == 3);
    CHECK(Edges[0] == 100);
    CHECK(Edges[1] == 250);
    CHECK(Edges[2] == -1);
}

TEST_CASE("a status bar is hidden when it is created")
{
    cFrameRig  Rig;
    cStatusBar Bar(&Rig.m_Boxes);
    const int  nRightEdge = -1;

    REQUIRE(Bar.Create(&Rig.m_Frame, 0, 0, 10, 10, 1002, 1, &nRightEdge) == 1);

    CHECK(Bar.IsVisible() == 0);
    CHECK_FALSE(IsWindowVisible(Bar.Window()));
    Rig.m_Frame.Close();
}

TEST_CASE("a part of a status bar shows a formatted text")
{
    cStatusRig Rig;

    CHECK(Rig.m_Bar.SetText(0, "filename: %s", "UNTITLED") == 1);
    CHECK(Rig.m_Bar.SetText(2, "%d of %d", 3, 98) == 1);

    CHECK(Rig.Text(0) == "filename: UNTITLED");
    CHECK(Rig.Text(1) == "");
    CHECK(Rig.Text(2) == "3 of 98");
}

TEST_CASE("a text of the status bar is cut to 512 characters")
{
    cStatusRig        Rig;
    const std::string Long = std::string(511, 'a') + "bc";

    CHECK(Rig.m_Bar.SetText(0, "%s", Long.c_str()) == 1);

    CHECK(Rig.Text(0) == std::string(511, 'a') + "b");
}

TEST_CASE("the text of a part that does not exist cannot be set")
{
    cStatusRig Rig;

    CHECK(Rig.m_Bar.SetText(3, "nowhere") == 0);
}

TEST_CASE("menu tracking shows the help of the item in place of the parts, without a border")
{
    cStatusRig Rig;
    Rig.m_Bar.SetText(0, "filename: UNTITLED");

    Rig.m_Bar.OnMenuSelect(IDS_HELP, MF_HILITE, GetSystemMenu(Rig.m_Frame.Window(), FALSE));

    CHECK(Rig.IsSimple());
    WORD nStyle = 0;
    CHECK(Rig.Text(0, &nStyle) == "Displays the on-line documentation");
    CHECK(nStyle == SBT_NOBORDERS);
}

TEST_CASE("menu tracking over a separator, a pop-up or the system menu shows an empty text")
{
    cStatusRig  Rig;
    const HMENU hMenu = GetSystemMenu(Rig.m_Frame.Window(), FALSE);
    for (const auto nFlag : {UINT{MF_SEPARATOR}, UINT{MF_POPUP}, UINT{MF_SYSMENU}})
    {
        CAPTURE(nFlag);
        Rig.m_Bar.OnMenuSelect(IDS_HELP, MF_HILITE, hMenu);

        Rig.m_Bar.OnMenuSelect(IDS_HELP, MF_HILITE | nFlag, hMenu);

        CHECK(Rig.IsSimple());
        CHECK(Rig.Text(0) == "");
    }
}

TEST_CASE("menu tracking over an item without a help text shows an empty text")
{
    cStatusRig  Rig;
    const HMENU hMenu = GetSystemMenu(Rig.m_Frame.Window(), FALSE);
    Rig.m_Bar.OnMenuSelect(IDS_HELP, MF_HILITE, hMenu);

    Rig.m_Bar.OnMenuSelect(59999, MF_HILITE, hMenu);

    CHECK(Rig.Text(0) == "");
}

TEST_CASE("the help of a menu item is cut to 128 characters")
{
    cStatusRig Rig;

    Rig.m_Bar.OnMenuSelect(IDS_LONG_HELP, MF_HILITE, GetSystemMenu(Rig.m_Frame.Window(), FALSE));

    const std::string Text = Rig.Text(0);
    CHECK(Text.size() == 128);
    CHECK(Text.substr(126) == "be");
}

TEST_CASE("closing the menu shows the parts of the status bar again")
{
    cStatusRig Rig;
    Rig.m_Bar.SetText(0, "filename: UNTITLED");
    Rig.m_Bar.OnMenuSelect(IDS_HELP, MF_HILITE, GetSystemMenu(Rig.m_Frame.Window(), FALSE));

    Rig.m_Bar.OnMenuSelect(0, kMenuClosed, nullptr);

    CHECK_FALSE(Rig.IsSimple());
    CHECK(Rig.Text(0) == "filename: UNTITLED");
}

TEST_CASE("a status bar covers the bottom edge of its owner")
{
    cStatusRig Rig;

    Rig.m_Bar.AutoSize();

    RECT Bar;
    GetWindowRect(Rig.m_Bar.Window(), &Bar);
    MapWindowPoints(nullptr, Rig.m_Frame.Window(), reinterpret_cast<POINT *>(&Bar), 2);
    const RECT Frame = Client(Rig.m_Frame.Window());
    CHECK(Bar.left == 0);
    CHECK(Bar.right == Frame.right);
    CHECK(Bar.bottom == Frame.bottom);
    CHECK(Bar.bottom - Bar.top > 10);
}

TEST_CASE("the progress bar of a status bar is in its last part")
{
    cStatusRig          Rig;
    cProgressBar *const pProgress = new cProgressBar(&Rig.m_Boxes);
    REQUIRE(pProgress->Create(&Rig.m_Bar, WS_VISIBLE, 0, 0, 10, 10, 1, 100, 1) == 1);
    Rig.m_Bar.SetProgressBar(pProgress);

    Rig.m_Bar.AutoSize();

    RECT Progress;
    GetWindowRect(pProgress->Window(), &Progress);
    MapWindowPoints(nullptr, Rig.m_Bar.Window(), reinterpret_cast<POINT *>(&Progress), 2);
    const RECT Bar = Client(Rig.m_Bar.Window());
    CHECK(Rig.m_Bar.ProgressBar() == pProgress);
    CHECK(Progress.left == 254);
    CHECK(Progress.top == 4);
    CHECK(Progress.right - Progress.left == Bar.right - 250 - 20);
    CHECK(Progress.bottom - Progress.top == Bar.bottom - 6);
}

TEST_CASE("the progress bar of a status bar with one part starts at its left")
{
    cFrameRig           Rig;
    cStatusBar          Bar(&Rig.m_Boxes);
    const int           nRightEdge = -1;
    cProgressBar *const pProgress  = new cProgressBar(&Rig.m_Boxes);
    REQUIRE(Bar.Create(&Rig.m_Frame, 0, 0, 10, 10, 1002, 1, &nRightEdge) == 1);
    REQUIRE(pProgress->Create(&Bar, WS_VISIBLE, 0, 0, 10, 10, 1, 100, 1) == 1);
    Bar.SetProgressBar(pProgress);

    Bar.AutoSize();

    RECT Progress;
    GetWindowRect(pProgress->Window(), &Progress);
    MapWindowPoints(nullptr, Bar.Window(), reinterpret_cast<POINT *>(&Progress), 2);
    CHECK(Progress.left == 4);
    CHECK(Progress.right == 4 + Client(Bar.Window()).right - 20);
    Rig.m_Frame.Close();
}

TEST_CASE("a status bar deletes the progress bar that it owns")
{
    class cCountedBar : public cProgressBar
    {
    public:
        cCountedBar(cMessageBoxes *pBoxes, int *pnLiving)
            : cProgressBar(pBoxes), m_pnLiving(pnLiving)
        {
            ++*m_pnLiving;
        }
        ~cCountedBar() override { --*m_pnLiving; }

    private:
        int *m_pnLiving;
    };
    cRecordingBoxes Boxes;
    int             nLiving = 0;
    {
        cStatusBar Bar(&Boxes);
        Bar.SetProgressBar(new cCountedBar(&Boxes, &nLiving));
        Bar.SetProgressBar(new cCountedBar(&Boxes, &nLiving));
        CHECK(nLiving == 1);
    }

    CHECK(nLiving == 0);
}

TEST_CASE("a status bar that cannot be created shows an error")
{
    cNoFrameRig Rig;
    cStatusBar  Bar(&Rig.m_Boxes);
    const int   nRightEdge = -1;

    CHECK(Bar.Create(&Rig.m_Frame, 0, 0, 10, 10, 1, 1, &nRightEdge) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cStatusBar::Create()"));
}
