#include "toolkit/win32/win32.h"

#include "toolkit/win32/list_box.h"

#include <string>

#include <doctest/doctest.h>

#include "tests/win32/test_frame.h"
#include "toolkit/win32/gdi.h"

namespace
{

struct cListRig : cFrameRig
{
    cListRig() { REQUIRE(m_List.Create(&m_Frame, WS_VISIBLE, 10, 10, 120, 100, 77) == 1); }
    ~cListRig() { m_Frame.Close(); }

    std::string Item(int nIndex) const
    {
        char szText[64] = "untouched";
        m_List.GetItem(nIndex, szText, sizeof szText);
        return szText;
    }

    // "a b c" for all items.
    std::string Items() const
    {
        std::string All;
        for (int i = 0; i < m_List.Count(); i++)
            All += (i ? " " : "") + Item(i);
        return All;
    }

    int Extent() const
    {
        return static_cast<int>(SendMessageA(m_List.Window(), LB_GETHORIZONTALEXTENT, 0, 0));
    }

    int WidthOf(const char *szText) const
    {
        const cWindowDc Dc(m_List.Window());
        SIZE            Size = {};
        GetTextExtentPoint32A(Dc.Get(), szText, static_cast<int>(strlen(szText)), &Size);
        return static_cast<int>(Size.cx);
    }

    int HasScrollBar() const
    {
        return (GetWindowLongPtrA(m_List.Window(), GWL_STYLE) & WS_HSCROLL) != 0;
    }

    cListBox m_List{&m_Boxes};
};

}  // namespace

static const char kWide[] = "a text that is wider than the list box of the test";

TEST_CASE("a negative index appends to a list box")
{
    cListRig Rig;

    CHECK(std::string(Rig.m_List.GetClassName()) == "LISTBOX");
    CHECK(Rig.m_List.SetItem(-1, "b") == 1);
    CHECK(Rig.m_List.SetItem(-1, "a") == 1);
    CHECK(Rig.m_List.SetItem(-7, "c") == 1);

    CHECK(Rig.m_List.Count() == 3);
    CHECK(Rig.Items() == "b a c");
}

TEST_CASE("an index below the count replaces an item of a list box")
{
    cListRig Rig;
    for (const char *szText : {"a", "b", "c"})
        Rig.m_List.SetItem(-1, szText);

    CHECK(Rig.m_List.SetItem(1, "x") == 1);
    CHECK(Rig.Items() == "a x c");
    CHECK(Rig.m_List.SetItem(2, "y") == 1);
    CHECK(Rig.Items() == "a x y");
}

TEST_CASE("the index after the last item appends, a larger one is refused")
{
    cListRig Rig;
    Rig.m_List.SetItem(-1, "a");

    CHECK(Rig.m_List.SetItem(1, "b") == 1);
    CHECK(Rig.m_List.SetItem(3, "d") == 0);

    CHECK(Rig.Items() == "a b");
}

TEST_CASE("an item of a list box is cut to the caller's buffer")
{
    cListRig Rig;
    Rig.m_List.SetItem(-1, "abcdef");
    char szText[4];

    CHECK(Rig.m_List.GetItem(0, szText, sizeof szText) == 1);

    CHECK(std::string(szText) == "abc");
}

TEST_CASE("an item that does not exist reads as empty")
{
    cListRig Rig;
    Rig.m_List.SetItem(-1, "a");
    char szText[8] = "before";

    CHECK(Rig.m_List.GetItem(1, szText, sizeof szText) == 0);
    CHECK(std::string(szText) == "");
    CHECK(Rig.m_List.GetItem(-1, szText, sizeof szText) == 0);
}

TEST_CASE("items of a list box are deleted one by one or all at once")
{
    cListRig Rig;
    for (const char *szText : {"a", "b", "c"})
        Rig.m_List.SetItem(-1, szText);

    CHECK(Rig.m_List.DeleteItem(1) == 1);
    CHECK(Rig.Items() == "a c");
    CHECK(Rig.m_List.DeleteItem(2) == 0);
    CHECK(Rig.m_List.DeleteItem(-1) == 0);
    CHECK(Rig.Items() == "a c");

    Rig.m_List.Reset();
    CHECK(Rig.m_List.Count() == 0);
}

TEST_CASE("an item of a list box is selected, or no item")
{
    cListRig Rig;
    Rig.m_List.SetItem(-1, "a");
    Rig.m_List.SetItem(-1, "b");
    CHECK(Rig.m_List.GetSelection() == -1);

    CHECK(Rig.m_List.SetSelection(1) == 1);
    CHECK(Rig.m_List.GetSelection() == 1);
    CHECK(Rig.m_List.SetSelection(-1) == 1);
    CHECK(Rig.m_List.GetSelection() == -1);
    CHECK(Rig.m_List.SetSelection(2) == 0);
}

TEST_CASE("a list box scrolls up to 5 pixels beyond its widest item")
{
    cListRig Rig;

    Rig.m_List.SetItem(-1, kWide);
    Rig.m_List.SetItem(-1, "narrow");
    CHECK(Rig.Extent() == Rig.WidthOf(kWide) + 5);

    Rig.m_List.SetItem(0, "also narrow");
    CHECK(Rig.Extent() == Rig.WidthOf("also narrow") + 5);

    Rig.m_List.DeleteItem(0);
    CHECK(Rig.Extent() == Rig.WidthOf("narrow") + 5);

    Rig.m_List.Reset();
    CHECK(Rig.Extent() == 5);
}

TEST_CASE("the width of items is measured in the font of the list box")
{
    cListRig    Rig;
    const HFONT hFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageA(Rig.m_List.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE);

    Rig.m_List.SetItem(-1, kWide);

    const cWindowDc    Dc(Rig.m_List.Window());
    const cSelectGuard Selected(Dc.Get(), hFont);
    SIZE               Size = {};
    GetTextExtentPoint32A(Dc.Get(), kWide, sizeof kWide - 1, &Size);
    REQUIRE(Size.cx != Rig.WidthOf(kWide));
    CHECK(Rig.Extent() == Size.cx + 5);
}

TEST_CASE("a horizontal scroll bar appears when an item is too wide")
{
    cListRig Rig;
    Rig.m_List.SetItem(-1, "narrow");
    CHECK_FALSE(Rig.HasScrollBar());

    Rig.m_List.SetItem(-1, kWide);
    CHECK(Rig.HasScrollBar());
}

TEST_CASE("a list box notifies its owner of selections")
{
    cListRig Rig;
    Rig.m_List.SetItem(-1, "a");
    Rig.m_Frame.m_Commands.clear();

    SendMessageA(Rig.m_List.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    SendMessageA(Rig.m_List.Window(), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));

    int bTold = 0;
    for (const cCommand &Command : Rig.m_Frame.m_Commands)
        bTold |= Command.m_nId == 77 && Command.m_nCode == LBN_SELCHANGE;
    CHECK(bTold);
    CHECK(Rig.m_List.GetSelection() == 0);
}

TEST_CASE("a list box that cannot be created shows an error")
{
    cNoFrameRig Rig;
    cListBox    List(&Rig.m_Boxes);

    CHECK(List.Create(&Rig.m_Frame, 0, 0, 0, 10, 10, 1) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cListBox::Create()"));
}
