// What all dialogs of the graph's window have in common.

#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/leaks.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"

// A file with two lines, or with one.
static const char kTwoLines[] = "1 , 10\n2 , 20\n3 , 30\n";
static const char kOneLine[]  = "1\n2\n3\n";

// The fields of each dialog in the order in which they are read.
// clang-format off
static const struct { unsigned m_nCommand; std::vector<int> m_Fields; } kTabOrders[] =
{
    { IDM_REFORMAT_PLOT, { IDC_PLOT_TITLE, IDC_HORZ_LABEL, IDC_HORZ_TICKS, IDC_HORZ_MIN,
                           IDC_HORZ_MAX, IDC_VERT_TICKS, IDC_VERT_MIN, IDC_VERT_MAX,
                           IDC_HORZ_GRID, IDC_VERT_GRID, IDC_SHOW_LEGEND, IDC_TEXT_FONT,
                           IDC_AXIS_COLOUR, IDC_BACKGROUND_COLOUR, IDOK, IDCANCEL } },
    { IDM_REFORMAT_LINE, { IDC_FORMATTED_LINE, IDC_CHANGE_COLOUR, IDC_TYPE_PLOT,
                           IDC_LINE_WIDTH, IDC_LINE_STYLE, IDC_LINE_LABEL, IDC_MULTIPLIER,
                           IDC_OFFSET, IDOK, IDCANCEL } },
    { IDM_EDIT_DATA_SET, { IDC_EDITED_LINE, IDC_POINTS, IDOK, IDCANCEL } },
    { IDM_DELETE_LINE,   { IDC_DELETED_LINE, IDOK, IDCANCEL } },
    { IDM_ENTER_Y,       { IDC_NEW_POINTS, IDOK, IDCANCEL } },
    { IDM_ENTER_XY,      { IDC_NEW_POINTS, IDOK, IDCANCEL } },
    { IDM_GRAPH_ABOUT,   { IDOK } },
};
// clang-format on

namespace
{

// A graph with two lines. Tests that share it do not change them.
struct cTwoLinesRig
{
    cTwoLinesRig() : m_Graph(&m_Calculator) { m_Graph.Open("two.txt", kTwoLines); }

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() && m_Graph.Count() == 2;
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
};

}  // namespace

TEST_CASE("the graph's About box opens over the graph and closes with OK")
{
    cTwoLinesRig &Rig = Shared<cTwoLinesRig>();
    Rig.m_Graph.Choose(gmHelp, IDM_GRAPH_ABOUT);
    CHECK(Rig.m_Graph.Caption() == "About cVantor...");
    CHECK(Rig.m_Graph.IsCentred());
    for (const char *szLine :
         {"Copyright (c) 2026 The Vorstek authors", "Free software under the MIT License"})
        CHECK(FindWindowExA(Rig.m_Calculator.Dialog(), nullptr, "Static", szLine));
    Rig.m_Graph.PhotographDialog("graph-about");
    Rig.m_Calculator.Click("OK");
    CHECK_FALSE(Rig.m_Calculator.HasDialog());
}

TEST_CASE("many openings of each dialog leave nothing behind")
{
    const cTwoLinesRig &Rig = Shared<cTwoLinesRig>();
    for (const unsigned nCommand :
         {IDM_REFORMAT_PLOT, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_DELETE_LINE, IDM_ENTER_Y,
          IDM_ENTER_XY, IDM_GRAPH_ABOUT, IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        CHECK(LeavesNothing(Rig.m_Calculator, [&] {
            OpenAndClose(Rig.m_Calculator, Rig.m_Graph.Window(), nCommand);
        }));
    }
}

TEST_CASE("Tab reaches the fields in reading order, and Escape is Cancel")
{
    cTwoLinesRig &Rig   = Shared<cTwoLinesRig>();
    cGraphWindow &Graph = Rig.m_Graph;
    for (const auto &Row : kTabOrders)
    {
        CAPTURE(Row.m_nCommand);
        PostMessageA(Graph.Window(), WM_COMMAND, Row.m_nCommand, 0);
        REQUIRE(Rig.m_Calculator.Dialog());
        Rig.m_Calculator.Settle();
        for (const int nField : Row.m_Fields)
        {
            CHECK(Graph.FocusedField() == nField);
            HitKey(VK_TAB);
            Rig.m_Calculator.Settle();
        }
        CHECK(Graph.FocusedField() == Row.m_Fields[0]);
        Graph.Escape();
    }
}

TEST_CASE("a command that another program sends while a dialog is open does nothing")
{
    cTwoLinesRig  Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    const HWND hDialog = Rig.m_Calculator.Dialog();
    for (const unsigned nCommand : {IDM_DELETE_LINE, IDM_GRAPH_ABOUT, IDM_GRAPH_OPEN})
        PostMessageA(Graph.Window(), WM_COMMAND, nCommand, 0);
    Rig.m_Calculator.Settle();
    CHECK(Rig.m_Calculator.Dialog() == hDialog);

    Graph.Escape();

    CHECK(Rig.IsAsNew());
}

TEST_CASE("an arrow key works the spin control of a field, and Enter is OK")
{
    cTwoLinesRig  Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    HitKey(VK_UP);
    Rig.m_Calculator.Settle();
    CHECK(Graph.Text(IDC_DELETED_LINE) == "2");
    HitKey(VK_RETURN);
    CHECK(Eventually(1, [&] { return Graph.Count(); }) == 1);
    CHECK(Graph.Saved("two.txt") == "ImplicitX\r\nSetLabels \"data line # 1\"\r\n"
                                    "1.000000\r\n2.000000\r\n3.000000\r\n");
}

TEST_CASE("while a dialog of the graph is open the calculator is disabled and starts no program")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", kTwoLines);
    Calculator.Folder().Write("clear.txt", "ClearG\n");
    Calculator.Choose(mnFile, IDM_OPEN);
    Calculator.GiveFileName(Calculator.Path("clear.txt"));
    REQUIRE(Calculator.HasNoDialog());

    for (const unsigned nCommand :
         {IDM_DELETE_LINE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_REFORMAT_PLOT})
    {
        CAPTURE(nCommand);
        Graph.Choose(gmEdit, nCommand);
        REQUIRE(Calculator.Dialog());
        CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
        Calculator.HitKey(kKeyRunStop);
        Calculator.Settle();
        CHECK(Graph.Count() == 2);
        Graph.Escape();
        CHECK(Eventually(TRUE, [&] { return IsWindowEnabled(Calculator.Window()); }) == TRUE);
    }
    Calculator.HitKey(kKeyRunStop);
    CHECK(Eventually(0, [&] { return Graph.Count(); }) == 0);
}

TEST_CASE("a box above a dialog disables the dialog as well")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    const HWND hDialog = Calculator.Dialog();
    CHECK_FALSE(IsWindowEnabled(Graph.Window()));

    ClickMiddleOf(Graph.Field(IDOK));

    CHECK(Eventually(FALSE, [&] { return IsWindowEnabled(hDialog); }) == FALSE);
    REQUIRE(Calculator.Dialog());
    CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
    CHECK_FALSE(IsWindowEnabled(Graph.Window()));
    Calculator.Click("OK");
    CHECK(Eventually(TRUE, [&] { return IsWindowEnabled(hDialog); }) == TRUE);
    CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
    CHECK(Eventually(IDC_DELETED_LINE, [&] { return Graph.FocusedField(); }) == IDC_DELETED_LINE);
    Graph.Escape();
    CHECK(IsWindowEnabled(Graph.Window()));
    CHECK(IsWindowEnabled(Calculator.Window()));
}

TEST_CASE("the calculator does not close while a dialog is open, nor under the dialog's own box")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("one.txt", kOneLine);
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    REQUIRE(Calculator.Dialog());

    PostMessageA(Calculator.Window(), WM_CLOSE, 0, 0);
    Calculator.Settle();
    CHECK(Calculator.IsRunning());
    Graph.Escape();

    Graph.Choose(gmFile, IDM_GRAPH_OPEN);
    Calculator.EnterFileName(Calculator.Path("nothing.txt"));
    PostMessageA(Calculator.Window(), WM_CLOSE, 0, 0);
    Calculator.Settle();
    CHECK(Calculator.IsRunning());
    Calculator.Click("OK");
    Graph.Escape();

    PostMessageA(Calculator.Window(), WM_CLOSE, 0, 0);
    CHECK(Calculator.ExitCode() == 0);
}
