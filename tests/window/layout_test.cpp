// The positions of the window's parts in every combination and size.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static const int kFace         = 306;  // width of the painted face, in pixels
static const int kFaceRows     = 567;
static const int kMostRegister = 210;

namespace
{

struct cPlace
{
    int m_nLeft;
    int m_nTop;
    int m_nWidth;
    int m_nHeight;

    bool operator==(const cPlace &) const = default;
};

// doctest looks for it beside the type.
doctest::String toString(const cPlace &Place)
{
    return doctest::toString(Place.m_nLeft) + "," + doctest::toString(Place.m_nTop) + " " +
           doctest::toString(Place.m_nWidth) + "x" + doctest::toString(Place.m_nHeight);
}

}  // namespace

static cPlace PlaceOf(HWND hParent, HWND hChild)
{
    const RECT Rect = RectIn(hParent, hChild);
    return {Rect.left, Rect.top, Rect.right - Rect.left, Rect.bottom - Rect.top};
}

namespace
{

// The layout that the window should have.
struct cModel
{
    int m_bToolBar        = 1;
    int m_bStatusBar      = 1;
    int m_bListing        = 0;
    int m_bRegisters      = 0;
    int m_nListingWidth   = 205;  // 200 and 210 have been shared out
    int m_nRegistersWidth = 205;

    // Width of the client area after a box was shown or hidden.
    int ClientWidth()
    {
        m_nListingWidth   = std::max(m_nListingWidth, 110);
        m_nRegistersWidth = std::max(m_nRegistersWidth, 100);
        return 2 * GetSystemMetrics(SM_CXEDGE) + kFace + (m_bListing ? m_nListingWidth : 0) +
               (m_bRegisters ? m_nRegistersWidth : 0);
    }

    void Divide(int nRest)
    {
        if (m_bRegisters)
            m_nRegistersWidth = m_bListing ? std::min(nRest / 2, kMostRegister) : nRest;
        if (m_bListing)
            m_nListingWidth = nRest - (m_bRegisters ? m_nRegistersWidth : 0);
    }
};

}  // namespace

// Compares the position of each part with the model.
static void CheckPlaces(cCalculator &Calculator, cModel *pModel)
{
    const HWND hWnd   = Calculator.Window();
    const RECT Client = ClientOf(hWnd);
    CAPTURE(Client.right);
    CAPTURE(Client.bottom);
    const int nBar    = SizeOf(Calculator.ToolBar()).cy;
    const int nStatus = SizeOf(Calculator.StatusBar()).cy;
    const int nTop    = pModel->m_bToolBar ? nBar : 0;
    const int nBottom = Client.bottom - (pModel->m_bStatusBar ? nStatus : 0);
    const int nHeight = nBottom - nTop;
    const int nKeypad = std::min<int>(2 * GetSystemMetrics(SM_CXEDGE) + kFace, Client.right);
    const int nRows   = std::min(2 * GetSystemMetrics(SM_CYEDGE) + kFaceRows, nHeight);
    pModel->Divide(std::max<int>(Client.right - nKeypad, 0));

    CHECK(IsWindowVisible(Calculator.ToolBar()) == pModel->m_bToolBar);
    CHECK(IsWindowVisible(Calculator.StatusBar()) == pModel->m_bStatusBar);
    CHECK(Calculator.IsListingShown() == pModel->m_bListing);
    CHECK(Calculator.IsRegistersShown() == pModel->m_bRegisters);
    if (pModel->m_bToolBar)
        CHECK(PlaceOf(hWnd, Calculator.ToolBar()) == cPlace{0, 0, Client.right, nBar});
    if (pModel->m_bStatusBar)
        CHECK(PlaceOf(hWnd, Calculator.StatusBar()) == cPlace{0, nBottom, Client.right, nStatus});
    CHECK(PlaceOf(hWnd, Calculator.Keypad()) == cPlace{0, nTop, nKeypad, nRows});
    CHECK(Eventually(1, [&] { return Calculator.ShowsFaceFrom(0); }) == 1);
    if (pModel->m_bListing)
        CHECK(PlaceOf(hWnd, Calculator.Listing()) ==
              cPlace{nKeypad, nTop, pModel->m_nListingWidth, nHeight});
    if (pModel->m_bRegisters)
        CHECK(PlaceOf(hWnd, Calculator.Registers()) ==
              cPlace{nKeypad + (pModel->m_bListing ? pModel->m_nListingWidth : 0), nTop,
                     pModel->m_nRegistersWidth, nHeight});
}

static void KeepOpen(cCalculator &Calculator, cModel *pModel, int bListing, int bRegisters)
{
    Calculator.KeepOpen(bListing, bRegisters);
    pModel->m_bListing   = bListing;
    pModel->m_bRegisters = bRegisters;
    const RECT Client    = ClientOf(Calculator.Window());
    CHECK(Client.right == pModel->ClientWidth());
    CheckPlaces(Calculator, pModel);
}

static void Toggle(cCalculator &Calculator, cModel *pModel, unsigned nCommand)
{
    const SIZE Before = SizeOf(Calculator.Window());
    Calculator.Choose(mnView, nCommand);
    int *const pbShown = nCommand == IDM_TOOLBAR ? &pModel->m_bToolBar : &pModel->m_bStatusBar;
    *pbShown           = !*pbShown;
    CHECK(((Calculator.MenuState(nCommand) & MF_CHECKED) != 0) == (*pbShown != 0));
    CHECK(SizeOf(Calculator.Window()).cx == Before.cx);
    CHECK(SizeOf(Calculator.Window()).cy == Before.cy);
    CheckPlaces(Calculator, pModel);
}

TEST_CASE("bars and boxes are in their positions in every combination")
{
    cCalculator Calculator;
    cModel      Model;
    CheckPlaces(Calculator, &Model);
    static const struct
    {
        int m_bListing;
        int m_bRegisters;
    } s_Boxes[]  = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    int nPicture = 0;
    for (const auto &Boxes : s_Boxes)
    {
        KeepOpen(Calculator, &Model, Boxes.m_bListing, Boxes.m_bRegisters);
        // The four combinations of the bars; the last command restores the first one.
        for (const unsigned nCommand : {IDM_TOOLBAR, IDM_STATUS_BAR, IDM_TOOLBAR, IDM_STATUS_BAR})
        {
            Toggle(Calculator, &Model, nCommand);
            Calculator.HitKeys({kKeyClearX, kKey7});
            CHECK(Calculator.ReadsX("7."));
            Calculator.Photograph().Save("layout-" + std::to_string(nPicture++));
        }
    }
}

TEST_CASE("without boxes the window is dragged larger, and smaller down to its least size")
{
    cCalculator Calculator;
    cModel      Model;
    const HWND  hWnd  = Calculator.Window();
    const SIZE  First = SizeOf(hWnd);
    Calculator.Drag(HTBOTTOMRIGHT, 120, 90);
    CHECK(SizeOf(hWnd).cx == First.cx + 120);
    CHECK(SizeOf(hWnd).cy == First.cy + 90);
    CheckPlaces(Calculator, &Model);
    Calculator.Photograph().Save("grown");
    Calculator.Drag(HTBOTTOMRIGHT, -600, -600);
    CHECK(SizeOf(hWnd).cx == 318);
    CHECK(SizeOf(hWnd).cy == 617);
    CheckPlaces(Calculator, &Model);
    Calculator.Photograph().Save("least");

    // A key is where the face shows it.
    Calculator.HitKeys({kKey7, kKeyEnter});
    CHECK(Calculator.ReadsX("7.00"));
}

TEST_CASE("with both boxes the registers take half of the rest, up to 210 pixels")
{
    cCalculator Calculator;
    cModel      Model;
    KeepOpen(Calculator, &Model, 1, 1);
    CHECK(Model.m_nListingWidth == 205);
    CHECK(Model.m_nRegistersWidth == 205);
    Calculator.Drag(HTRIGHT, 301, 0);
    CheckPlaces(Calculator, &Model);
    CHECK(Model.m_nListingWidth == 501);
    CHECK(Model.m_nRegistersWidth == 210);
    Calculator.Photograph().Save("wide");
    Calculator.Drag(HTRIGHT, -610, 0);
    CheckPlaces(Calculator, &Model);
    CHECK(Model.m_nListingWidth == 51);
    CHECK(Model.m_nRegistersWidth == 50);
}

TEST_CASE("boxes that were dragged too narrow get their least widths when they are shown again")
{
    cCalculator Calculator;
    cModel      Model;
    KeepOpen(Calculator, &Model, 1, 1);
    Calculator.Drag(HTRIGHT, -309, 0);
    CheckPlaces(Calculator, &Model);
    CHECK(Model.m_nListingWidth == 51);
    CHECK(Model.m_nRegistersWidth == 50);
    KeepOpen(Calculator, &Model, 1, 1);
    CHECK(Model.m_nListingWidth == 105);
    CHECK(Model.m_nRegistersWidth == 105);
    KeepOpen(Calculator, &Model, 0, 1);
    CHECK(Model.m_nRegistersWidth == 105);
    Calculator.Drag(HTRIGHT, 400, 0);
    CheckPlaces(Calculator, &Model);
    CHECK(Model.m_nRegistersWidth == 505);
    Calculator.Drag(HTRIGHT, -900, 0);
    CHECK(SizeOf(Calculator.Window()).cx == 318);
    CheckPlaces(Calculator, &Model);
    KeepOpen(Calculator, &Model, 0, 1);
    CHECK(Model.m_nRegistersWidth == 100);

    // A key is where the face shows it.
    Calculator.HitKeys({kKeyClearX, kKey1, kKey0});
    CHECK(Calculator.ReadsX("10."));
}

TEST_CASE("a click into a box leaves the focus with the calculator and shows no caret")
{
    cCalculator Calculator;
    Calculator.KeepOpen(1, 1);
    for (const HWND hBox : {Calculator.Listing(), Calculator.Registers()})
    {
        ClickMiddleOf(hBox);
        Calculator.Settle();
        GUITHREADINFO Thread = {};
        Thread.cbSize        = sizeof Thread;
        REQUIRE(GetGUIThreadInfo(GetWindowThreadProcessId(hBox, nullptr), &Thread));
        CHECK(Thread.hwndFocus == Calculator.Window());
        CHECK(!Thread.hwndCaret);
    }
    Type("42");
    CHECK(Calculator.ReadsX("42."));
    Calculator.Photograph().Save("boxes");
}
