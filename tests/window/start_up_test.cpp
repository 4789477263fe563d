// The welcome box, and the calculator as it opens.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <tuple>

#include "shell/face_geometry.h"
#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/program_file.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static int IsCalculatorOpen(cCalculator &Calculator)
{
    return Calculator.FindMainWindow() != nullptr;
}

namespace
{

struct cItemRow
{
    int         m_nId;
    UINT        m_nState;  // MF_CHECKED and MF_GRAYED
    const char *m_szText;
    const char *m_szHelp;
};

}  // namespace

// Every menu with its items; id 0: a separator.
static const struct
{
    const char           *m_szTitle;
    std::vector<cItemRow> m_Items;
} s_Menus[] = {
    {"&File",
     {{101, 0, "&New\tCtrl+N", "Creates a new program"},
      {102, 0, "&Open...\tCtrl+O", "Opens an existing program"},
      {103, 0, "&Save\tCtrl+S", "Saves the current program"},
      {104, 0, "Save &As...", "Saves current program with a new name"},
      {105, 0, "Page Set&up...", "Changes page layout settings"},
      {107, 0, "&Print...\tCtrl+P", "Prints the current program"},
      {0, 0, "", ""},
      {121, 0, "E&xit\tCtrl+E", "Quits the application"}}},
    {"&Edit",
     {{201, MF_GRAYED, "&Undo\tCtrl+Z", "Reverses the last action"},
      {0, 0, "", ""},
      {202, MF_GRAYED, "Cu&t\tCtrl+X", "Cuts selection and puts it on Clipboard"},
      {203, 0, "&Copy\tCtrl+C", "Copies selection and puts it on Clipboard"},
      {204, MF_GRAYED, "&Paste\tCtrl+V", "Inserts Clipboard contents at insertion point"},
      {205, MF_GRAYED, "&Delete\tDel", "Deletes the selection"},
      {0, 0, "", ""},
      {206, 0, "Select &All\tCtrl+A", "Selects the entire program"},
      {0, 0, "", ""},
      {209, MF_GRAYED, "Repair &Highlight", "Displays the next statement to be executed"}}},
    {"&View",
     {{401, MF_CHECKED, "&Toolbar", "Shows/Hides the toolbar"},
      {402, MF_CHECKED, "&Status Bar", "Shows/Hides the status bar"},
      {403, 0, "&Graph", "Shows/Hides the graphics window"},
      {404, 0, "&Options...", "Changes options"}}},
    {"&Help",
     {{601, 0, "&Help...", "Displays the on-line documentation"},
      {602, 0, "&About Vorstek...", "Displays program info, version #, and copyright"}}},
};

namespace
{

// Key, modifiers as the resource has them, command; in order.
typedef std::tuple<WORD, int, int> cAccelerator;

}  // namespace

static std::vector<cAccelerator> AcceleratorsOf(const cProgramFile &Program)
{
    const int                 kMost = 40;
    ACCEL                     Rows[kMost];
    const HACCEL              hTable = LoadAcceleratorsA(Program.Module(), MAKEINTRESOURCEA(1009));
    std::vector<cAccelerator> Table;
    for (int i = 0, nRows = CopyAcceleratorTableA(hTable, Rows, kMost); i < nRows; i++)
        Table.emplace_back(Rows[i].key, Rows[i].fVirt, Rows[i].cmd);
    std::sort(Table.begin(), Table.end());
    return Table;
}

// The text of the registers box while all registers are 0.
static std::vector<std::string> FirstRegistersLines()
{
    std::vector<std::string> Lines;
    char                     szLine[40];
    for (unsigned i = 0; i < 30; i++)
    {
        snprintf(szLine, sizeof szLine, "Reg[%2u] = +0.00", i);
        Lines.push_back(szLine);
    }
    Lines.push_back("LASTx   = +0.00");
    return Lines;
}

namespace
{

// A calculator that has just started, which tests that share it only look at.
struct cFreshRig
{
    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() &&
               m_Calculator.StatusText() == "filename: UNTITLED";
    }

    cCalculator m_Calculator;
};

}  // namespace

static const DWORD kFrameStyle = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX;

TEST_CASE("the welcome box keeps OK disabled for two seconds")
{
    const DWORD dwStart = GetTickCount();
    cCalculator Calculator(1);
    const HWND  hWelcome = Calculator.Welcome();
    const HWND  hOk      = GetDlgItem(hWelcome, IDOK);
    CHECK_FALSE(IsWindowEnabled(hOk));
    HitKey(VK_RETURN);
    ClickMiddleOf(hOk);
    Calculator.Settle();
    CHECK(Calculator.Welcome() == hWelcome);

    CHECK(WaitFor([hOk] { return IsWindowEnabled(hOk); }));
    const DWORD dwWaited = GetTickCount() - dwStart;
    CHECK(dwWaited >= 2000);
    CHECK(dwWaited < 6000);
    Calculator.PhotographScreen().Save("welcome");

    HitKey(VK_RETURN);
    CHECK(WaitFor([&] { return IsCalculatorOpen(Calculator); }));
    CHECK(!Calculator.Welcome());
}

TEST_CASE("the welcome box is centred and shows its complete picture, with OK below it")
{
    cCalculator        Calculator(1);
    const cProgramFile Program;
    const HWND         hWelcome = Calculator.Welcome();
    const cPicture     Expected = Program.Bitmap(10002);
    CHECK(!GetWindow(hWelcome, GW_OWNER));
    CHECK(Expected.Width() == 600);
    CHECK(Expected.Height() == 510);
    const RECT Client = ClientOf(hWelcome);
    RECT       Face   = {0, 0, 600, 510};
    MapWindowPoints(hWelcome, nullptr, reinterpret_cast<POINT *>(&Face), 2);
    CHECK(Client.right >= 600);
    CHECK(Eventually(true, [&] { return cPicture::OfScreen(Face) == Expected; }));

    const RECT Ok = RectOf(GetDlgItem(hWelcome, IDOK));
    CHECK(Ok.top >= Face.bottom);
    CHECK(Ok.bottom <= Face.top + Client.bottom);
    const RECT Welcome = RectOf(hWelcome);
    CHECK(std::abs(Welcome.left + Welcome.right - GetSystemMetrics(SM_CXFULLSCREEN)) <= 1);
    CHECK(std::abs(Welcome.top + Welcome.bottom - GetSystemMetrics(SM_CYFULLSCREEN)) <= 1);
}

TEST_CASE("Escape and the close box close the welcome box at once")
{
    SUBCASE("Escape")
    {
        cCalculator Calculator(1);
        HitKey(VK_ESCAPE);
        CHECK(WaitFor([&] { return IsCalculatorOpen(Calculator); }));
        CHECK(!Calculator.Welcome());
    }
    SUBCASE("close box")
    {
        cCalculator Calculator(1);
        Click(FramePoint(Calculator.Welcome(), HTCLOSE));
        CHECK(WaitFor([&] { return IsCalculatorOpen(Calculator); }));
        CHECK(!Calculator.Welcome());
    }
}

TEST_CASE("the calculator opens in front, with its frame and its class")
{
    const cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    const HWND         hWnd       = Calculator.Window();
    char               szText[80] = "";
    GetWindowTextA(hWnd, szText, sizeof szText);
    CHECK(std::string(szText) == "Vorstek");
    CHECK(ClassOf(hWnd) == "cVorstek");
    const auto dwStyle = static_cast<DWORD>(GetWindowLongPtrA(hWnd, GWL_STYLE));
    CHECK((dwStyle & kFrameStyle) == kFrameStyle);
    CHECK((dwStyle & WS_MAXIMIZEBOX) == 0);
    CHECK((GetWindowLongPtrA(hWnd, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0);
    CHECK(Calculator.HasClassIcon(10001));
    CHECK(!GetParent(hWnd));
    CHECK(GetForegroundWindow() == hWnd);
}

TEST_CASE("the calculator opens with its bars and its keypad, and with the boxes closed")
{
    const cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    CHECK(GetDlgCtrlID(Calculator.ToolBar()) == 1001);
    CHECK(GetDlgCtrlID(Calculator.StatusBar()) == 1002);
    CHECK(GetDlgCtrlID(Calculator.Listing()) == 1003);
    CHECK(GetDlgCtrlID(Calculator.Registers()) == 1004);
    CHECK(GetDlgCtrlID(Calculator.Keypad()) == 1005);
    CHECK(IsWindowVisible(Calculator.ToolBar()));
    CHECK(IsWindowVisible(Calculator.StatusBar()));
    CHECK(IsWindowVisible(Calculator.Keypad()));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(Calculator.IsRegistersShown());
}

TEST_CASE("the calculator opens with an empty program and all registers 0")
{
    const cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    CHECK(Calculator.HighlightedLine() == "00");
    CHECK(Calculator.StatusText() == "filename: UNTITLED");
    CHECK(Calculator.RegistersLines() == FirstRegistersLines());
    const std::vector<std::string> Listing = Calculator.ListingLines();
    REQUIRE(Listing.size() == 99);
    CHECK(Listing[0] == "00");
    for (unsigned i = 1; i < Listing.size(); i++)
    {
        char szText[80];
        snprintf(szText, sizeof szText, "%02u R/S", i);
        CHECK(Listing[i] == szText);
    }
}

TEST_CASE("the window is as large as the face with its edges, and the bars")
{
    const cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    RECT               Frame      = {0, 0, 2 * GetSystemMetrics(SM_CXEDGE) + 306,
                                     2 * GetSystemMetrics(SM_CYEDGE) + 567 + SizeOf(Calculator.ToolBar()).cy +
                                         SizeOf(Calculator.StatusBar()).cy};
    AdjustWindowRectEx(&Frame, kFrameStyle, TRUE, 0);
    CHECK(SizeOf(Calculator.Window()).cx == Frame.right - Frame.left);
    CHECK(SizeOf(Calculator.Window()).cy == Frame.bottom - Frame.top);
}

TEST_CASE("the calculator opens with 0.00 on the display and the bare picture below the keys")
{
    const cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    const cProgramFile Program;
    const POINT        Bare = Calculator.OnFace(0, 510);
    CHECK(Program.Bitmap(1011).Holds(
        0, 510, cPicture::OfScreen({Bare.x, Bare.y, Bare.x + 306, Bare.y + 57})));
    CHECK(Calculator.ReadsX("0.00"));
    CHECK(Calculator.ReadsBottom("LastOp:"));
    CHECK(Calculator.ReadsAngle("deg"));
    Calculator.Photograph().Save("start");
}

TEST_CASE("every menu item has its position, text, marks and help in the status bar")
{
    cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    for (unsigned nMenu = 0; nMenu < std::size(s_Menus); nMenu++)
    {
        const auto &Menu = s_Menus[nMenu];
        CHECK(Calculator.MenuTitle(nMenu) == Menu.m_szTitle);
        Calculator.OpenMenu(nMenu);
        for (unsigned i = 0; i < Menu.m_Items.size(); i++)
        {
            const cItemRow &Row  = Menu.m_Items[i];
            const cSeenItem Item = Calculator.MenuItem(nMenu, i);
            INFO("item ", Row.m_nId, " at ", i);
            CHECK(Item.m_nId == Row.m_nId);
            CHECK(Item.m_Text == Row.m_szText);
            if (Row.m_nId == 0)
                continue;
            CHECK((Item.m_nState & (MF_GRAYED | MF_CHECKED)) == Row.m_nState);
            Calculator.PointAtItem(static_cast<unsigned>(Row.m_nId));
            CHECK(Eventually(std::string(Row.m_szHelp), [&] { return Calculator.StatusText(); }) ==
                  Row.m_szHelp);
        }
        CHECK(Calculator.MenuItem(nMenu, static_cast<unsigned>(Menu.m_Items.size())).m_nId == -1);
        Calculator.Photograph().Save("menu-" + std::to_string(nMenu));
        CloseMenus();
        CHECK(Eventually(std::string("filename: UNTITLED"),
                         [&] { return Calculator.StatusText(); }) == "filename: UNTITLED");
    }
    CHECK(Calculator.MenuTitle(std::size(s_Menus)).empty());
}

namespace
{

struct cButtonRow
{
    int         m_nId;  // 0: a separator
    int         m_nImage;
    int         m_nState;
    const char *m_szTip;
};

}  // namespace

// Fifteen standard images come before those of the program.
static const cButtonRow kButtons[] = {
    {101, 6, TBSTATE_ENABLED, "Creates a new program"},
    {102, 7, TBSTATE_ENABLED, "Opens an existing program"},
    {103, 8, TBSTATE_ENABLED, "Saves the current program"},
    {0, 0, 0, ""},
    {107, 14, TBSTATE_ENABLED, "Prints the current program"},
    {0, 0, 0, ""},
    {404, 10, TBSTATE_ENABLED, "Changes options"},
    {0, 0, 0, ""},
    {209, 15 + 12, TBSTATE_INDETERMINATE, "Displays the next statement to be executed"},
};

TEST_CASE("the toolbar has its buttons in order, with images, states and tips")
{
    const cCalculator &Calculator = Shared<cFreshRig>().m_Calculator;
    for (unsigned i = 0; i < std::size(kButtons); i++)
    {
        const cButtonRow &Row    = kButtons[i];
        const cSeenButton Button = Calculator.Button(i);
        INFO("button ", i);
        CHECK(Button.m_nId == Row.m_nId);
        if (Row.m_nId == 0)
            continue;
        CHECK(Button.m_nImage == Row.m_nImage);
        CHECK(Button.m_nState == Row.m_nState);
        MoveMouse(MiddleOf(Button.m_Rect));
        CHECK(Eventually(std::string(Row.m_szTip), [&] { return Calculator.ToolTip(); }) ==
              Row.m_szTip);
    }
    CHECK(Calculator.Button(std::size(kButtons)).m_nId == -1);
    Calculator.PhotographScreen().Save("tooltip");

    const cProgramFile Program;
    CHECK(Program.Bitmap(1014).Width() % 16 == 0);
}

TEST_CASE("the accelerator table has its keys")
{
    const int                 kCtrlKey  = FVIRTKEY | FCONTROL;
    const int                 kShiftKey = FVIRTKEY | FSHIFT;
    std::vector<cAccelerator> Expected  = {
         {'N', kCtrlKey, 101},
         {'O', kCtrlKey, 102},
         {'S', kCtrlKey, 103},
         {'P', kCtrlKey, 107},
         {'E', kCtrlKey, 121},
         {'Z', kCtrlKey, 201},
         {VK_BACK, FVIRTKEY | FALT, 201},
         {'X', kCtrlKey, 202},
         {VK_DELETE, kShiftKey, 202},
         {'C', kCtrlKey, 203},
         {VK_INSERT, kCtrlKey, 203},
         {'V', kCtrlKey, 204},
         {VK_INSERT, kShiftKey, 204},
         {VK_DELETE, FVIRTKEY, 205},
         {'A', kCtrlKey, 206},
         {VK_F1, FVIRTKEY, 601},
    };
    std::sort(Expected.begin(), Expected.end());
    const cProgramFile Program;
    CHECK((AcceleratorsOf(Program) == Expected));
}

// The keys of the Edit menu and F1 are tested with their commands.
TEST_CASE("the keys of the File menu reach their commands")
{
    cCalculator Calculator;
    AddEnter(&Calculator);
    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Cancel"));
    static const struct
    {
        WORD        m_nKey;
        const char *m_szCaption;
    } s_Rows[] = {{'O', "Open"}, {'S', "Save As"}, {'P', "Print"}};
    for (const auto &Row : s_Rows)
    {
        Calculator.HitShortcut(Row.m_nKey, kCtrl);
        if (Row.m_nKey == 'O')
            CHECK(Calculator.Answers(kSaveUntitled, "No"));
        CHECK(Calculator.Box().m_Caption == Row.m_szCaption);
        Calculator.CloseDialogWith(VK_ESCAPE);
    }
    Calculator.HitShortcut('E', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "No"));
    CHECK(Calculator.ExitCode() == 0);
}
