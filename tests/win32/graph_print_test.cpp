#include "toolkit/win32/win32.h"

#include "graph/win32/graph_print.h"

#include <doctest/doctest.h>

#include "graph/win32/vantor_box.h"
#include "tests/win32/drawn_sheet.h"
#include "tests/win32/test_frame.h"

static const COLORREF kGround = RGB(255, 255, 200);

// A sheet of 4 by 5 inches at 100 pixels per inch. The unprintable edges are 10
// pixels at the left, 20 at the top, 30 at the right and 40 at the bottom.
static const int    kDpi     = 100;
static const int    kAcross  = 400 - 10 - 30;
static const int    kDown    = 500 - 20 - 40;
static const cPaper kSheet   = {0, kDpi, kDpi, 400, 500, 10, 20, 30, 40};
static const int    kMargins = 500;  // thousandths of an inch

namespace
{

struct cPrintedGraphRig
{
    cPrintedGraphRig() : m_Box(&m_Rig.m_Boxes), m_Sheet(kAcross, kDown)
    {
        cVantorBoxSettings Settings;
        Settings.m_crBackground = kGround;
        REQUIRE(m_Box.Create(&m_Rig.m_Frame, Settings, 1) == 1);
        const float Y[] = {1.0F, 3.0F, 2.0F};
        REQUIRE(m_Box.AddDataSet(3, nullptr, Y, nullptr) == 1);
    }
    ~cPrintedGraphRig() { m_Rig.m_Frame.Close(); }
    cPrintedGraphRig(const cPrintedGraphRig &)            = delete;
    cPrintedGraphRig &operator=(const cPrintedGraphRig &) = delete;

    cFrameRig   m_Rig;
    cVantorBox  m_Box;
    cDrawnSheet m_Sheet;
};

}  // namespace

TEST_CASE("the background of a printed graph fills the area within the margins")
{
    for (const int bTurned : {0, 1})
    {
        CAPTURE(bTurned);
        cPrintedGraphRig Rig;
        cPageChoice      Page;
        Page.m_Margins = {kMargins, kMargins, kMargins, kMargins};
        Page.m_bTurned = bTurned;

        CHECK(DrawGraphPage(Rig.m_Sheet.Dc(), kSheet, Rig.m_Box, Page) == 1);

        const cRect Box = Rig.m_Sheet.DrawnBox();
        CHECK(Box == cRect{50 - 10, 50 - 20, 350 - 10, 450 - 20});
        CHECK(Rig.m_Sheet.Pixel(Box.m_nLeft, Box.m_nTop + 1) != kWhite);
        CHECK(Rig.m_Sheet.Pixel(Box.m_nRight - 2, Box.m_nTop + 1) == kGround);
    }
}

TEST_CASE("margins larger than the sheet print an empty page")
{
    for (const int bTurned : {0, 1})
    {
        CAPTURE(bTurned);
        cPrintedGraphRig Rig;
        cPageChoice      Page;
        Page.m_Margins = {3000, 3000, 3000, 3000};
        Page.m_bTurned = bTurned;

        CHECK(DrawGraphPage(Rig.m_Sheet.Dc(), kSheet, Rig.m_Box, Page) == 1);

        CHECK(Rig.m_Sheet.DrawnBox().IsEmpty());
    }
}

TEST_CASE("printing a graph does not change the window's layout")
{
    cPrintedGraphRig  Rig;
    const cPlotLayout Before = Rig.m_Box.Layout();

    REQUIRE(DrawGraphPage(Rig.m_Sheet.Dc(), kSheet, Rig.m_Box, cPageChoice()) == 1);

    CHECK(Rig.m_Box.Layout().m_Plot == Before.m_Plot);
    CHECK(Rig.m_Box.Layout().m_nKind == ptScreen);
}
