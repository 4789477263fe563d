#include "shell/window_layout.h"

#include <doctest/doctest.h>

// A window with both bars and a client edge of 2 pixels.
static cWindowParts Parts(int bListing, int bRegisters)
{
    return {2, 2, 28, 20, bListing, bRegisters, kListingWidth, kRegistersWidth};
}

static int IsRect(const cFaceRect &Rect, int nLeft, int nTop, int nWidth, int nHeight)
{
    return Rect.m_nLeft == nLeft && Rect.m_nTop == nTop && Rect.m_nWidth == nWidth &&
           Rect.m_nHeight == nHeight;
}

TEST_CASE("the client area shows the face with its edges, the bars and the visible boxes")
{
    static const struct
    {
        int bListing;
        int bRegisters;
        int nWidth;
    } s_Rows[] = {{0, 0, 310}, {1, 0, 510}, {0, 1, 520}, {1, 1, 720}};

    for (const auto &Row : s_Rows)
    {
        cWindowParts      Shown = Parts(Row.bListing, Row.bRegisters);
        const cLayoutSize Size  = FindClientSize(&Shown);

        CHECK(Size.m_nWidth == Row.nWidth);
        CHECK(Size.m_nHeight == 571 + 28 + 20);
    }
}

TEST_CASE("hidden bars take no room")
{
    cWindowParts Shown       = Parts(0, 0);
    Shown.m_nToolBarHeight   = 0;
    Shown.m_nStatusBarHeight = 0;

    CHECK(FindClientSize(&Shown).m_nHeight == 571);
}

TEST_CASE("boxes that were narrowed too far come back with their least widths")
{
    cWindowParts Shown      = Parts(1, 1);
    Shown.m_nListingWidth   = 20;
    Shown.m_nRegistersWidth = 99;

    const cLayoutSize Size = FindClientSize(&Shown);

    CHECK(Shown.m_nListingWidth == 110);
    CHECK(Shown.m_nRegistersWidth == 100);
    CHECK(Size.m_nWidth == 310 + 110 + 100);
}

TEST_CASE("the keypad is at the upper left, the boxes at its right over the full height")
{
    cWindowLayout Layout;

    REQUIRE(FindLayout(Parts(1, 1), {720, 619}, &Layout));

    CHECK(IsRect(Layout.m_Keypad, 0, 28, 310, 571));
    CHECK(IsRect(Layout.m_Listing, 310, 28, 205, 571));
    CHECK(IsRect(Layout.m_Registers, 515, 28, 205, 571));
}

TEST_CASE("a registers box beside the listing takes half of the rest, at most 210")
{
    cWindowLayout Layout;

    REQUIRE(FindLayout(Parts(1, 1), {1000, 700}, &Layout));

    CHECK(Layout.m_Registers.m_nWidth == 210);
    CHECK(Layout.m_Listing.m_nWidth == 1000 - 310 - 210);
}

TEST_CASE("a box alone takes the whole rest")
{
    cWindowLayout Layout;

    REQUIRE(FindLayout(Parts(0, 1), {1000, 700}, &Layout));
    CHECK(IsRect(Layout.m_Registers, 310, 28, 690, 652));

    REQUIRE(FindLayout(Parts(1, 0), {1000, 700}, &Layout));
    CHECK(IsRect(Layout.m_Listing, 310, 28, 690, 652));
    CHECK(Layout.m_Registers.m_nWidth == 0);
}

TEST_CASE("a window smaller than the face cuts the keypad and leaves nothing for the boxes")
{
    cWindowLayout Layout;

    REQUIRE(FindLayout(Parts(1, 1), {200, 300}, &Layout));

    CHECK(IsRect(Layout.m_Keypad, 0, 28, 200, 252));
    CHECK(Layout.m_Listing.m_nWidth == 0);
    CHECK(Layout.m_Registers.m_nWidth == 0);
}

TEST_CASE("there is no layout when the bars leave nothing")
{
    cWindowLayout Layout;

    CHECK(FindLayout(Parts(0, 0), {310, 48}, &Layout) == 0);
    CHECK(FindLayout(Parts(0, 0), {0, 619}, &Layout) == 0);
    CHECK(FindLayout(Parts(0, 0), {310, 49}, &Layout) == 1);
}

TEST_CASE("screens lower than 768 pixels hide the upper 35 rows of the face")
{
    CHECK(FaceOffset(600) == 35);
    CHECK(FaceOffset(767) == 35);
    CHECK(FaceOffset(768) == 0);
    CHECK(FaceOffset(1024) == 0);
}

TEST_CASE("on a finer screen face and boxes are larger, edges and bars are as they are")
{
    cWindowParts Shown      = Parts(1, 1);
    Shown.m_Scale           = cScale(144);
    Shown.m_nListingWidth   = 1;
    Shown.m_nRegistersWidth = 1;
    cWindowLayout Layout;

    const cLayoutSize Size = FindClientSize(&Shown);
    REQUIRE(FindLayout(Shown, {1500, 1000}, &Layout));

    CHECK(Size.m_nWidth == 4 + 459 + 165 + 150);
    CHECK(Size.m_nHeight == 4 + 851 + 28 + 20);
    CHECK(IsRect(Layout.m_Keypad, 0, 28, 463, 855));
    CHECK(Layout.m_Registers.m_nWidth == 315);
}

TEST_CASE("a finer screen hides rows of the face below 768 rows of its scale")
{
    static const struct
    {
        int nDpi;
        int nHeight;
        int nHidden;
    } s_Rows[] = {{120, 960, 0}, {120, 959, 44}, {144, 1152, 0}, {144, 1151, 53}, {192, 1535, 70}};

    for (const auto &Row : s_Rows)
        CHECK(FaceOffset(Row.nHeight, cScale(Row.nDpi)) == Row.nHidden);
}

TEST_CASE("the calculator is enlarged as far as its keys fit on the screen")
{
    static const struct
    {
        int nDpi;
        int nRoom;
        int nScaledDpi;
    } s_Rows[] = {{96, 500, 96},   {96, 2000, 96}, {144, 1000, 144}, {144, 750, 144},
                  {144, 700, 134}, {144, 499, 96}, {288, 1100, 211}};

    for (const auto &Row : s_Rows)
        CHECK(FittingScale(Row.nDpi, Row.nRoom, 500) == cScale(Row.nScaledDpi));
}
