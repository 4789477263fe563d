// What all dialogs of the graph's window have in common, worked with mouse and
// keyboard.

#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/leaks.h"
#include "tests/window/waiting.h"

TEST_CASE("the about box of the graph")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);

    Graph.Choose(gmHelp, IDM_GRAPH_ABOUT);

    CHECK(Graph.Caption() == "About cVantor...");
    CHECK(Graph.IsCentred());
    for (const char *szLine :
         {"Copyright (c) 2026 The Vorstek authors", "Free software under the MIT License"})
        CHECK(FindWindowExA(Calculator.Dialog(), nullptr, "Static", szLine));
    Graph.PhotographDialog("graph-about");
    Calculator.Click("OK");
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("a hundred openings of each dialog leave nothing behind")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", "1 , 10\n2 , 20\n3 , 30\n");
    for (const unsigned nCommand :
         {IDM_REFORMAT_PLOT, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_DELETE_LINE, IDM_ENTER_Y,
          IDM_ENTER_XY, IDM_GRAPH_ABOUT, IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        CHECK(LeavesNothing(Calculator, 100, kpNothing,
                            [&] { OpenAndClose(Calculator, Graph.Window(), nCommand); }));
    }
}

TEST_CASE("Tab goes through the fields as they are read, Enter is OK and Escape is Cancel")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", "1 , 10\n2 , 20\n3 , 30\n");

    // clang-format off
    const struct { unsigned m_nCommand; std::vector<int> m_Fields; } Rows[] =
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
    for (const auto &Row : Rows)
    {
        CAPTURE(Row.m_nCommand);
        PostMessageA(Graph.Window(), WM_COMMAND, Row.m_nCommand, 0);
        REQUIRE(Calculator.Dialog());
        Calculator.Settle();
        for (const int nField : Row.m_Fields)
        {
            CHECK(Graph.FocusedField() == nField);
            HitKey(VK_TAB);
            Calculator.Settle();
        }
        CHECK(Graph.FocusedField() == Row.m_Fields[0]);
        Graph.Escape();
    }

    // The arrow keys work the spin control of a field, Enter is OK.
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    HitKey(VK_UP);
    Calculator.Settle();
    CHECK(Graph.Text(IDC_DELETED_LINE) == "2");
    HitKey(VK_RETURN);
    CHECK(Eventually(1, [&] { return Graph.Count(); }) == 1);
    CHECK(Graph.Saved("two.txt") == "ImplicitX\r\nSetLabels \"data line # 1\"\r\n"
                                    "1.000000\r\n2.000000\r\n3.000000\r\n");
}

TEST_CASE("under a dialog of the graph the calculator waits, and no program starts")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", "1 , 10\n2 , 20\n3 , 30\n");
    Calculator.Folder().Write("clear.txt", "ClearG\n");
    Calculator.Choose(0, IDM_OPEN);
    Calculator.GiveFileName(Calculator.Path("clear.txt"));
    REQUIRE(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);

    for (const unsigned nCommand :
         {IDM_DELETE_LINE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_REFORMAT_PLOT})
    {
        CAPTURE(nCommand);
        Graph.Choose(gmEdit, nCommand);
        REQUIRE(Calculator.Dialog());
        CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
        Calculator.HitKey(30);  // R/S
        Calculator.Settle();
        CHECK(Graph.Count() == 2);
        Graph.Escape();
        CHECK(IsWindowEnabled(Calculator.Window()));
    }
    Calculator.HitKey(30);
    CHECK(Eventually(0, [&] { return Graph.Count(); }) == 0);
}

TEST_CASE("a box above a dialog keeps the dialog waiting too")
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

TEST_CASE("the calculator is not closed under a dialog, which may have a box of its own")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("one.txt", "1\n2\n3\n");
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
