#include "toolkit/win32/win32.h"

#include "toolkit/win32/tool_bar.h"

#include <memory>
#include <string>

#include <doctest/doctest.h>

#include "resources/resource.h"
#include "tests/win32/resources/test_resources.h"
#include "tests/win32/test_frame.h"

static const int kComboId    = 1310;
static const int kComboWidth = 90;

// New, Open, separator, Help. The tip of Help is a string resource of the test
// program.
static const TBBUTTON kButtons[] = {
    {STD_FILENEW, 101, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
    {STD_FILEOPEN, 102, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
    {kComboWidth, kComboId, TBSTATE_ENABLED, BTNS_SEP, {}, 0, 0},
    {STD_HELP, IDS_HELP, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
};

namespace
{

struct cToolRig : cFrameRig
{
    explicit cToolRig(int nComboIndex = -1)
    {
        m_Frame.m_OnNotify = [this](NMHDR *pHeader) {
            if (pHeader->code == TTN_NEEDTEXTA)
                m_Bar.OnToolTipText(reinterpret_cast<NMTTDISPINFOA *>(pHeader));
        };
        REQUIRE(m_Bar.Create(&m_Frame, 0, 1001, kButtons, 4, nComboIndex) == 1);
        m_Bar.Show();
        HandleWaitingMessages();
    }
    ~cToolRig() { m_Frame.Close(); }

    TBBUTTON Button(int nIndex) const
    {
        TBBUTTON Button = {};
        SendMessageA(m_Bar.Window(), TB_GETBUTTON, static_cast<WPARAM>(nIndex),
                     reinterpret_cast<LPARAM>(&Button));
        return Button;
    }

    int CountButtons() const
    {
        return static_cast<int>(SendMessageA(m_Bar.Window(), TB_BUTTONCOUNT, 0, 0));
    }

    // The text that the tooltip control would show for a tool.
    std::string Tip(HWND hNotified, UINT_PTR nTool) const
    {
        char        szText[100] = "";
        TTTOOLINFOA Tool        = {};
        Tool.cbSize             = TTTOOLINFOA_V2_SIZE;
        Tool.hwnd               = hNotified;
        Tool.uId                = nTool;
        Tool.lpszText           = szText;
        SendMessageA(m_Bar.GetToolTipWindow(), TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&Tool));
        return szText;
    }

    cToolBar m_Bar{&m_Boxes};
};

}  // namespace

TEST_CASE("a toolbar has the buttons that were asked for and the standard images")
{
    const cToolRig Rig;

    CHECK(std::string(Rig.m_Bar.GetClassName()) == "ToolbarWindow32");
    CHECK(Rig.CountButtons() == 4);
    CHECK(Rig.Button(1).idCommand == 102);
    CHECK(Rig.Button(1).iBitmap == 7);
    const auto hImages =
        reinterpret_cast<HIMAGELIST>(SendMessageA(Rig.m_Bar.Window(), TB_GETIMAGELIST, 0, 0));
    CHECK(ImageList_GetImageCount(hImages) == 15);
    CHECK(GetDlgCtrlID(Rig.m_Bar.Window()) == 1001);
    CHECK(!Rig.m_Bar.ComboBox());
}

TEST_CASE("a toolbar is hidden when it is created")
{
    cFrameRig Rig;
    cToolBar  Bar(&Rig.m_Boxes);

    REQUIRE(Bar.Create(&Rig.m_Frame, 0, 1001, kButtons, 4, -1) == 1);

    CHECK(Bar.IsVisible() == 0);
    CHECK_FALSE(IsWindowVisible(Bar.Window()));
    Rig.m_Frame.Close();
}

TEST_CASE("added buttons use the images of the added bitmap")
{
    cToolRig       Rig;
    const TBBUTTON Added[] = {
        {8, 0, 0, BTNS_SEP, {}, 0, 0},
        {2, 209, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0},
    };

    CHECK(Rig.m_Bar.AddBitmap(IDB_TOOLS, 3, Added, 2) == 1);

    CHECK(Rig.m_Bar.GetImageBase() == 15);
    CHECK(Rig.CountButtons() == 6);
    CHECK(Rig.Button(4).fsStyle == BTNS_SEP);
    CHECK(Rig.Button(4).iBitmap == 8);  // its width
    CHECK(Rig.Button(5).idCommand == 209);
    CHECK(Rig.Button(5).iBitmap == 17);
}

TEST_CASE("a second bitmap follows the first")
{
    cToolRig Rig;

    CHECK(Rig.m_Bar.AddBitmap(IDB_TOOLS, 3, nullptr, 0) == 1);
    CHECK(Rig.m_Bar.AddBitmap(IDB_MORE_TOOLS, 3, nullptr, 0) == 1);

    CHECK(Rig.m_Bar.GetImageBase() == 18);
    CHECK(Rig.CountButtons() == 4);
}

TEST_CASE("a bitmap that does not exist is refused and adds no buttons")
{
    cToolRig       Rig;
    const TBBUTTON Added = {0, 209, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0};

    CHECK(Rig.m_Bar.AddBitmap(59999, 3, &Added, 1) == 0);

    CHECK(Rig.CountButtons() == 4);
}

TEST_CASE("a toolbar covers the top edge of its owner")
{
    cToolRig Rig;
    Rig.m_Frame.Move(20, 20, 400, 300, 1);

    Rig.m_Bar.AutoSize();

    RECT Bar;
    RECT Frame;
    GetWindowRect(Rig.m_Bar.Window(), &Bar);
    MapWindowPoints(nullptr, Rig.m_Frame.Window(), reinterpret_cast<POINT *>(&Bar), 2);
    GetClientRect(Rig.m_Frame.Window(), &Frame);
    CHECK(Bar.left == 0);
    CHECK(Bar.top == 0);
    CHECK(Bar.right == Frame.right);
    CHECK(Bar.bottom > 15);
    CHECK(Bar.bottom < 50);
}

TEST_CASE("the tip of a button is the string with the id of its command")
{
    const cToolRig Rig;

    REQUIRE(Rig.m_Bar.GetToolTipWindow());
    CHECK(Rig.Tip(Rig.m_Bar.Window(), IDS_HELP) == "Displays the on-line documentation");
}

TEST_CASE("a combo box of the toolbar covers the given button")
{
    const cToolRig   Rig(2);
    const cComboBox *pCombo = Rig.m_Bar.ComboBox();

    REQUIRE(pCombo);
    CHECK(pCombo->ChildId() == kComboId);
    CHECK(GetParent(pCombo->Window()) == Rig.m_Bar.Window());
    RECT Combo;
    RECT Button;
    GetWindowRect(pCombo->Window(), &Combo);
    MapWindowPoints(nullptr, Rig.m_Bar.Window(), reinterpret_cast<POINT *>(&Combo), 2);
    SendMessageA(Rig.m_Bar.Window(), TB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&Button));
    CHECK(Combo.left == Button.left);
    CHECK(Combo.top == Button.top);
    CHECK(Combo.right == Button.right);
    CHECK(Button.right - Button.left == kComboWidth);
}

TEST_CASE("Enter in the toolbar's combo box reaches the toolbar's owner")
{
    const cToolRig Rig(2);

    SendMessageA(Rig.m_Bar.ComboBox()->EditField(), WM_CHAR, '\r', 0);

    const cCommand Expected = {kComboId, kComboEnter, Rig.m_Bar.ComboBox()->Window()};
    REQUIRE_FALSE(Rig.m_Frame.m_Commands.empty());
    CHECK((Rig.m_Frame.m_Commands.back() == Expected));
}

TEST_CASE("the tip of the toolbar's combo box is Find tool, also over its edit field")
{
    const cToolRig   Rig(2);
    const cComboBox *pCombo = Rig.m_Bar.ComboBox();
    const HWND       hFrame = Rig.m_Frame.Window();

    CHECK(Rig.Tip(hFrame, reinterpret_cast<UINT_PTR>(pCombo->Window())) == "Find tool");
    CHECK(Rig.Tip(hFrame, reinterpret_cast<UINT_PTR>(pCombo->EditField())) == "Find tool");
}

TEST_CASE("the toolbar window itself has the tip of its combo box")
{
    const cToolRig Rig(2);
    NMTTDISPINFOA  Request = {};
    Request.hdr.idFrom     = reinterpret_cast<UINT_PTR>(Rig.m_Bar.Window());

    Rig.m_Bar.OnToolTipText(&Request);

    CHECK(Request.hinst == ProgramInstance());
    CHECK(Request.lpszText == MAKEINTRESOURCEA(IDS_FIND_TOOL));
}

TEST_CASE("a toolbar that cannot be created shows an error")
{
    cNoFrameRig Rig;
    cToolBar    Bar(&Rig.m_Boxes);

    CHECK(Bar.Create(&Rig.m_Frame, 0, 1, kButtons, 4, -1) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cToolBar::Create()"));
}
