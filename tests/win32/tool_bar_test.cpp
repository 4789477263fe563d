#include "toolkit/win32/win32.h"

#include "toolkit/win32/tool_bar.h"

#include <cstdlib>
#include <memory>
#include <string>

#include <doctest/doctest.h>

#include "resources/resource.h"
#include "tests/win32/resources/test_resources.h"
#include "tests/win32/test_frame.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/tool_images.h"

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

static SIZE ButtonSize(const cToolBar &Bar)
{
    const auto nSize = static_cast<DWORD>(SendMessageA(Bar.Window(), TB_GETBUTTONSIZE, 0, 0));
    return {LOWORD(nSize), HIWORD(nSize)};
}

static SIZE ImageSize(const cToolBar &Bar)
{
    int nWidth  = 0;
    int nHeight = 0;
    ImageList_GetIconSize(
        reinterpret_cast<HIMAGELIST>(SendMessageA(Bar.Window(), TB_GETIMAGELIST, 0, 0)), &nWidth,
        &nHeight);
    return {nWidth, nHeight};
}

TEST_CASE("a toolbar is enlarged for a finer screen and becomes as small again")
{
    cToolRig   Rig;
    const SIZE Usual = ButtonSize(Rig.m_Bar);
    CHECK(ImageSize(Rig.m_Bar).cx == 16);

    Rig.m_Bar.SetScale(cScale(192), nullptr);
    const SIZE Fine = ButtonSize(Rig.m_Bar);
    CHECK(ImageSize(Rig.m_Bar).cx == 32);
    CHECK(ImageSize(Rig.m_Bar).cy == 30);
    CHECK(Fine.cx == 2 * Usual.cx);
    CHECK(Fine.cy == 2 * Usual.cy);
    RECT Separator = {};
    SendMessageA(Rig.m_Bar.Window(), TB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&Separator));
    CHECK(Separator.right - Separator.left == 2 * 8);

    Rig.m_Bar.SetScale(cScale(), nullptr);
    CHECK(ImageSize(Rig.m_Bar).cx == 16);
    CHECK(ButtonSize(Rig.m_Bar).cx == Usual.cx);
    CHECK(ButtonSize(Rig.m_Bar).cy == Usual.cy);
}

TEST_CASE("the images of a strip are drawn on the toolbar's ground")
{
    // Three images of 2 by 2 pixels: one green, one half transparent green, one empty.
    BITMAPINFO Info           = {};
    Info.bmiHeader.biSize     = sizeof Info.bmiHeader;
    Info.bmiHeader.biWidth    = 6;
    Info.bmiHeader.biHeight   = 2;
    Info.bmiHeader.biPlanes   = 1;
    Info.bmiHeader.biBitCount = 32;
    DWORD           *pPixels  = nullptr;
    const cGdiBitmap Strip(CreateDIBSection(nullptr, &Info, DIB_RGB_COLORS,
                                            reinterpret_cast<void **>(&pPixels), nullptr, 0));
    for (int i = 0; i < 12; i++)
        pPixels[i] = i % 6 < 2 ? 0xFF00FF00 : i % 6 < 4 ? 0x80008000 : 0;
    const cImageList Usual(ImageList_Create(1, 1, ILC_COLOR24 | ILC_MASK, 3, 0));
    const cGdiBitmap Dots(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), 3, 1));
    REQUIRE(ImageList_Add(Usual.Get(), Dots.Get(), nullptr) == 0);

    const cImageList Scaled = ScaledToolImages(Usual.Get(), 0, Strip.Get(), {3, 3});

    REQUIRE(ImageList_GetImageCount(Scaled.Get()) == 3);
    const COLORREF crFace  = GetSysColor(COLOR_BTNFACE);
    const COLORREF Drawn[] = {
        RGB(0, 255, 0),
        RGB(GetRValue(crFace) / 2, (255 + GetGValue(crFace)) / 2, GetBValue(crFace) / 2),
        RGB(1, 2, 3)};
    for (int i = 0; i < 3; i++)
    {
        CAPTURE(i);
        const cMemoryDc    Dc(nullptr);
        const cGdiBitmap   Bitmap(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), 3, 3));
        const cSelectGuard Selected(Dc.Get(), Bitmap.Get());
        for (int k = 0; k < 9; k++)
            SetPixelV(Dc.Get(), k % 3, k / 3, RGB(1, 2, 3));
        ImageList_Draw(Scaled.Get(), i, Dc.Get(), 0, 0, ILD_TRANSPARENT);
        const COLORREF crSeen = GetPixel(Dc.Get(), 1, 1);
        CHECK(std::abs(GetRValue(crSeen) - GetRValue(Drawn[i])) <= 2);
        CHECK(std::abs(GetGValue(crSeen) - GetGValue(Drawn[i])) <= 2);
        CHECK(std::abs(GetBValue(crSeen) - GetBValue(Drawn[i])) <= 2);
    }
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
