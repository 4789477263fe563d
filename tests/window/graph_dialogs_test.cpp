// The dialogs of the graph's window, worked with mouse and keyboard.

#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/waiting.h"

namespace
{

struct cBadText
{
    int         m_nField;
    const char *m_szText;
    const char *m_szMessage;
};

const char *const kLineMessage = "ERROR: your \"Line #\" value produced an error";

// A file of nRows rows with one number each, 1 in all of them.
std::string Rows(int nRows)
{
    std::string Text;
    for (int i = 0; i < nRows; i++)
        Text += "1\n";
    return Text;
}

int CountOf(const std::string &Part, const std::string &Text)
{
    int nCount = 0;
    for (size_t nAt = Text.find(Part); nAt != std::string::npos; nAt = Text.find(Part, nAt + 1))
        nCount++;
    return nCount;
}

// Fills one field after the other with what must be refused, and ends with a
// text that is good.
void CheckRefusals(cGraphWindow *pGraph, const std::vector<cBadText> &Rows)
{
    for (const cBadText &Row : Rows)
    {
        CAPTURE(Row.m_szText);
        CAPTURE(Row.m_szMessage);
        pGraph->Fill(Row.m_nField, Row.m_szText);
        CHECK(pGraph->Refuses(Row.m_szMessage));
        CHECK(pGraph->Text(Row.m_nField) == Row.m_szText);
    }
}

}  // namespace

TEST_CASE("points are typed in, edited, and deleted with their lines")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);

    // y values: a line without a number is skipped.
    Graph.Choose(gmFile, IDM_ENTER_Y);
    CHECK(Graph.Caption() == "Enter New Data Set");
    CHECK(Graph.IsCentred());
    Graph.TypeLines({"1", "2", "abc", "3"});
    Graph.PhotographDialog("graph-enter-y");
    CHECK(Graph.Accepts("You entered 3 data points\nand these have been assigned\n"
                        "to data line #1"));
    CHECK(Graph.Count() == 1);

    // x,y values.
    Graph.Choose(gmFile, IDM_ENTER_XY);
    CHECK(Graph.Caption() == "Enter New Data Set");
    CHECK(Graph.IsCentred());
    Graph.TypeLines({"1,2.5", "", "3 , 4 and more", "5", "6 7", " -1e3\t,.5"});
    Graph.PhotographDialog("graph-enter-xy");
    CHECK(Graph.Accepts("You entered 3 data points\nand these have been assigned\n"
                        "to data line #2"));
    CHECK(Graph.Count() == 2);

    // Nothing that counts: the dialog closes.
    for (const unsigned nCommand : {IDM_ENTER_Y, IDM_ENTER_XY})
    {
        Graph.Choose(gmFile, nCommand);
        Graph.TypeLines({"1 2", "1;2"});
        CHECK(Graph.Accepts("ERROR: you didn't enter any data points"));
    }

    // Cancel adds nothing.
    Graph.Choose(gmFile, IDM_ENTER_Y);
    Graph.TypeLines({"1"});
    Calculator.Click("Cancel");
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(Graph.Count() == 2);

    // What has been typed is what the editor shows.
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Caption() == "Edit Data Set");
    CHECK(Graph.IsCentred());
    CHECK(Graph.Text(IDC_EDITED_LINE) == "1");
    CHECK(Graph.Text(IDC_POINTS_FORMAT) == "y1\ny2");
    CHECK(Graph.Text(IDC_POINTS) == "1\r\n2\r\n3\r\n");
    Graph.Spin(IDC_EDITED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_EDITED_LINE) == "2");
    CHECK(Graph.Text(IDC_POINTS_FORMAT) == "x1,y1\nx2,y2");
    CHECK(Graph.Text(IDC_POINTS) == "1 , 2.5\r\n3 , 4\r\n-1000 , 0.5\r\n");
    Graph.Spin(IDC_EDITED_LINE_SPIN, 1);  // 2 is the last one
    CHECK(Graph.Text(IDC_EDITED_LINE) == "2");
    Graph.PhotographDialog("graph-edit-data-set");

    // Another point on a line of its own; a bad line does not count.
    Graph.GoToEnd(IDC_POINTS);
    Graph.TypeLines({"7,8", "9"});
    CHECK(Graph.Accepts("Data set 2 now has 4 data points"));
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    Graph.Fill(IDC_EDITED_LINE, "2");
    CHECK(Graph.Text(IDC_POINTS) == "1 , 2.5\r\n3 , 4\r\n-1000 , 0.5\r\n7 , 8\r\n");

    // Numbers that name no set.
    for (const char *const szLine : {"0", "3", "abc", "", "-1", "1 "})
    {
        CAPTURE(szLine);
        Graph.Fill(IDC_EDITED_LINE, szLine);
        CHECK(Graph.Text(IDC_POINTS) == "\r\n\r\n    THERE IS NO SUCH DATA SET \r\n");
        CHECK(Graph.Refuses(kLineMessage));
    }
    Graph.PhotographDialog("graph-edit-no-such");
    Calculator.Click("Cancel");
    CHECK(Graph.Count() == 2);

    // No valid line is left: the set goes.
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    Graph.Fill(IDC_POINTS, "none");
    CHECK(Graph.Accepts("Data set 1 has been deleted"));
    CHECK(Graph.Count() == 1);
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Text(IDC_POINTS) == "1 , 2.5\r\n3 , 4\r\n-1000 , 0.5\r\n7 , 8\r\n");
    Graph.Escape();
    CHECK(Graph.Count() == 1);
}

TEST_CASE("a set of 1000 points is edited, one of 1001 points is not")
{
    cCalculator       Calculator;
    cGraphWindow      Graph(&Calculator);
    const char *const szTooMany = "\r\n\r\n    Sorry, this data set has\r\n"
                                  "    too many data points to allow\r\n    manual editing.";

    Graph.Open("1001.txt", Rows(1001));
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Text(IDC_POINTS) == szTooMany);
    Graph.PhotographDialog("graph-edit-too-many");
    ClickMiddleOf(Graph.Field(IDC_POINTS));
    Graph.TypeLines({"5"});
    CHECK(Graph.Text(IDC_POINTS) == szTooMany);
    Calculator.Click("OK");  // says nothing, changes nothing
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(CountOf("1.000000\r\n", Graph.Saved("1001.txt")) == 1001);

    Graph.Open("1000.txt", Rows(1000));
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Text(IDC_POINTS).size() == 1000 * std::string("1\r\n").size());
    Graph.GoToEnd(IDC_POINTS);
    Graph.TypeLines({"2"});
    CHECK(Graph.Accepts("Data set 1 now has 1001 data points"));
}

TEST_CASE("Reformat Plot judges its fields in their order and applies them all")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", "1 , 10\n2 , 20\n3 , 30\n");
    CHECK((Graph.MenuState(IDM_AUTO_RANGE) & MF_CHECKED) != 0);

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    CHECK(Graph.Caption() == "Reformat Plot");
    CHECK(Graph.IsCentred());
    CHECK(Graph.Text(IDC_TEXT_FONT) == "Change\nText Font\nor Color");
    CHECK(Graph.Text(IDC_AXIS_COLOUR) == "Change\nAxis\nColor");
    CHECK(Graph.Text(IDC_BACKGROUND_COLOUR) == "Change\nBackground\nColor");
    CHECK(Graph.Text(IDC_HORZ_MIN) == "0");
    CHECK(Graph.Text(IDC_HORZ_MAX) == "2");
    CHECK_FALSE(Graph.IsChecked(IDC_HORZ_GRID));
    CHECK_FALSE(Graph.IsChecked(IDC_VERT_GRID));
    CHECK(Graph.IsChecked(IDC_SHOW_LEGEND));
    Graph.PhotographDialog("graph-reformat-plot");

    // All bad at once: the first one is named, and the next once it is good.
    const cBadText Fields[] = {
        {IDC_HORZ_TICKS, "6", "ERROR: your \"# horz ticks\" value produced an error"},
        {IDC_HORZ_MIN, "-1", "ERROR: your \"min horz tick\" value produced an error"},
        {IDC_HORZ_MAX, "1e1", "ERROR: your \"max horz tick\" value produced an error"},
        {IDC_VERT_TICKS, "0", "ERROR: your \"# vert ticks\" value produced an error"},
        {IDC_VERT_MIN, "40", "ERROR: your \"min vert tick\" value produced an error"},
        {IDC_VERT_MAX, " .5", "ERROR: your \"max vert tick\" value produced an error"},
    };
    for (const cBadText &Field : Fields)
        Graph.Fill(Field.m_nField, "");
    for (const cBadText &Field : Fields)
    {
        CHECK(Graph.Refuses(Field.m_szMessage));
        Graph.Fill(Field.m_nField, Field.m_szText);
    }

    CheckRefusals(&Graph, {{IDC_HORZ_TICKS, "27", Fields[0].m_szMessage},
                           {IDC_HORZ_TICKS, "-1", Fields[0].m_szMessage},
                           {IDC_HORZ_TICKS, "6 ", Fields[0].m_szMessage},
                           {IDC_HORZ_TICKS, "6.0", Fields[0].m_szMessage}});
    Graph.Fill(IDC_HORZ_TICKS, "26");
    CheckRefusals(&Graph, {{IDC_HORZ_MIN, "abc", Fields[1].m_szMessage}});
    Graph.Fill(IDC_HORZ_MIN, "-1");
    CheckRefusals(&Graph, {{IDC_HORZ_MAX, "1,5", Fields[2].m_szMessage}});
    Graph.Fill(IDC_HORZ_MAX, "1e1");
    CheckRefusals(&Graph, {{IDC_VERT_TICKS, "27", Fields[3].m_szMessage}});
    Graph.Fill(IDC_VERT_TICKS, "0");
    CheckRefusals(&Graph, {{IDC_VERT_MIN, "0x10", Fields[4].m_szMessage}});
    Graph.Fill(IDC_VERT_MIN, "40");
    CheckRefusals(&Graph, {{IDC_VERT_MAX, "inf", Fields[5].m_szMessage}});
    Graph.Fill(IDC_VERT_MAX, " .5");

    // The spin controls end at 0 and 26.
    Graph.Spin(IDC_HORZ_TICKS_SPIN, 1);
    CHECK(Graph.Text(IDC_HORZ_TICKS) == "26");
    Graph.Spin(IDC_HORZ_TICKS_SPIN, 0);
    CHECK(Graph.Text(IDC_HORZ_TICKS) == "25");
    Graph.Spin(IDC_HORZ_TICKS_SPIN, 1);
    Graph.Spin(IDC_VERT_TICKS_SPIN, 0);
    CHECK(Graph.Text(IDC_VERT_TICKS) == "0");

    const std::string Long(90, 'm');
    Graph.Fill(IDC_PLOT_TITLE, Long);
    CHECK(Graph.Text(IDC_PLOT_TITLE) == Long.substr(0, 80));
    Graph.Fill(IDC_PLOT_TITLE, "A title");
    Graph.Fill(IDC_HORZ_LABEL, "seconds & more");
    Calculator.ClickControl(IDC_HORZ_GRID);
    Calculator.ClickControl(IDC_VERT_GRID);
    Calculator.ClickControl(IDC_SHOW_LEGEND);

    // Nothing of it has been applied yet, and Cancel forgets it.
    CHECK((Graph.MenuState(IDM_AUTO_RANGE) & MF_CHECKED) != 0);
    Calculator.Click("Cancel");
    CHECK((Graph.MenuState(IDM_AUTO_RANGE) & MF_CHECKED) != 0);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) == 0);
    CHECK((Graph.MenuState(IDM_LEGEND) & MF_CHECKED) != 0);

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    CHECK(Graph.Text(IDC_PLOT_TITLE) == "");
    Graph.Fill(IDC_PLOT_TITLE, "A title");
    Graph.Fill(IDC_HORZ_LABEL, "seconds & more");
    Graph.Fill(IDC_HORZ_TICKS, "26");
    Graph.Fill(IDC_HORZ_MIN, "-1");
    Graph.Fill(IDC_HORZ_MAX, "1e10");
    Graph.Fill(IDC_VERT_TICKS, "0");
    Graph.Fill(IDC_VERT_MIN, "40");  // no order is required
    Graph.Fill(IDC_VERT_MAX, " .5");
    Calculator.ClickControl(IDC_VERT_GRID);
    Calculator.ClickControl(IDC_SHOW_LEGEND);
    Calculator.Click("OK");
    CHECK_FALSE(Calculator.HasDialog());
    CHECK((Graph.MenuState(IDM_AUTO_RANGE) & MF_CHECKED) == 0);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) != 0);
    CHECK((Graph.MenuState(IDM_LEGEND) & MF_CHECKED) == 0);
    Graph.Photograph().Save("graph-reformatted-plot");

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    CHECK(Graph.Text(IDC_PLOT_TITLE) == "A title");
    CHECK(Graph.Text(IDC_HORZ_LABEL) == "seconds & more");
    CHECK(Graph.Text(IDC_HORZ_TICKS) == "26");
    CHECK(Graph.Text(IDC_HORZ_MIN) == "-1");
    CHECK(Graph.Text(IDC_HORZ_MAX) == "1e+10");
    CHECK(Graph.Text(IDC_VERT_TICKS) == "0");
    CHECK(Graph.Text(IDC_VERT_MIN) == "40");
    CHECK(Graph.Text(IDC_VERT_MAX) == "0.5");
    CHECK_FALSE(Graph.IsChecked(IDC_HORZ_GRID));
    CHECK(Graph.IsChecked(IDC_VERT_GRID));
    CHECK_FALSE(Graph.IsChecked(IDC_SHOW_LEGEND));
    Graph.Escape();

    Graph.Choose(gmEdit, IDM_AUTO_RANGE);
    CHECK((Graph.MenuState(IDM_AUTO_RANGE) & MF_CHECKED) != 0);
}

TEST_CASE("Reformat Line shows each line's look, judges its fields and stores them")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", "SetLabels \"first\" , \"second\"\n1 , 10\n2 , 20\n3 , 30\n");

    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    CHECK(Graph.Caption() == "Reformat Line");
    CHECK(Graph.IsCentred());
    CHECK(Graph.Text(IDC_FORMATTED_LINE) == "1");
    CHECK(Graph.Text(IDC_CHANGE_COLOUR) == "Change\nColor");
    CHECK(Graph.Text(IDC_LINE_LABEL) == "first");
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "1");
    CHECK(Graph.Text(IDC_MULTIPLIER) == "1");
    CHECK(Graph.Text(IDC_OFFSET) == "0");
    CHECK(Graph.IsChecked(IDC_TYPE_PLOT));
    CHECK(Eventually(0xFF0000U, [&] { return Graph.ColourOf(IDC_LINE_COLOUR); }) == 0xFF0000U);
    const std::string LineStyles   = "solid dash dot dash-dot dash-dot-dot ";
    const std::string MarkerStyles = "triangle square diamond vert line horz line ";
    CHECK(Graph.Items(IDC_LINE_STYLE) == LineStyles);
    CHECK(Graph.Text(IDC_LINE_STYLE) == "solid");
    Graph.PhotographDialog("graph-reformat-line");

    // The list of styles follows the type.
    Calculator.ClickControl(IDC_TYPE_SCATTER);
    CHECK(Graph.Items(IDC_LINE_STYLE) == MarkerStyles);
    CHECK(Graph.Text(IDC_LINE_STYLE) == "triangle");
    Calculator.ClickControl(IDC_TYPE_STAIRSTEP);
    CHECK(Graph.Items(IDC_LINE_STYLE) == LineStyles);
    Calculator.ClickControl(IDC_TYPE_STOOP);
    CHECK(Graph.Items(IDC_LINE_STYLE) == LineStyles);

    // Another line loads its fields.
    Graph.Spin(IDC_FORMATTED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_FORMATTED_LINE) == "2");
    CHECK(Graph.Text(IDC_LINE_LABEL) == "second");
    CHECK(Graph.IsChecked(IDC_TYPE_PLOT));
    Graph.Spin(IDC_FORMATTED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_FORMATTED_LINE) == "2");

    // All bad at once: the first one is named, and the next once it is good.
    const cBadText Fields[] = {
        {IDC_FORMATTED_LINE, "2", kLineMessage},
        {IDC_LINE_WIDTH, "4", "ERROR: your \"Line Width\" value produced an error"},
        {IDC_MULTIPLIER, "-2.5", "ERROR: your \"Multiplier\" value produced an error"},
        {IDC_OFFSET, "1e2", "ERROR: your \"Offset\" value produced an error"},
    };
    Graph.Fill(IDC_FORMATTED_LINE, "3");
    Graph.Fill(IDC_LINE_WIDTH, "5");
    Graph.Fill(IDC_MULTIPLIER, "2x");
    Graph.Fill(IDC_OFFSET, "");
    CHECK(Graph.Refuses(Fields[0].m_szMessage));
    CheckRefusals(&Graph, {{IDC_FORMATTED_LINE, "0", kLineMessage},
                           {IDC_FORMATTED_LINE, "", kLineMessage},
                           {IDC_FORMATTED_LINE, "x", kLineMessage}});
    Graph.Fill(IDC_FORMATTED_LINE, "2");  // loads the fields anew
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "1");
    Graph.Fill(IDC_LINE_WIDTH, "5");
    Graph.Fill(IDC_MULTIPLIER, "2x");
    Graph.Fill(IDC_OFFSET, "");
    CheckRefusals(&Graph, {{IDC_LINE_WIDTH, "5", Fields[1].m_szMessage},
                           {IDC_LINE_WIDTH, "0", Fields[1].m_szMessage},
                           {IDC_LINE_WIDTH, "", Fields[1].m_szMessage},
                           {IDC_LINE_WIDTH, "1.5", Fields[1].m_szMessage}});
    Graph.Fill(IDC_LINE_WIDTH, "4");
    CheckRefusals(&Graph, {{IDC_MULTIPLIER, "2x", Fields[2].m_szMessage},
                           {IDC_MULTIPLIER, "", Fields[2].m_szMessage},
                           {IDC_MULTIPLIER, "nan", Fields[2].m_szMessage}});
    Graph.Fill(IDC_MULTIPLIER, "-2.5");
    CheckRefusals(&Graph, {{IDC_OFFSET, "", Fields[3].m_szMessage},
                           {IDC_OFFSET, "1 2", Fields[3].m_szMessage}});
    Graph.Fill(IDC_OFFSET, "1e2");

    // The spin control of the width ends at 1 and 4.
    Graph.Spin(IDC_LINE_WIDTH_SPIN, 1);
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "4");
    for (int i = 0; i < 4; i++)
        Graph.Spin(IDC_LINE_WIDTH_SPIN, 0);
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "1");
    Graph.Spin(IDC_LINE_WIDTH_SPIN, 1);
    Graph.Spin(IDC_LINE_WIDTH_SPIN, 1);
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "3");

    const std::string Long(90, 'm');
    Graph.Fill(IDC_LINE_LABEL, Long);
    CHECK(Graph.Text(IDC_LINE_LABEL) == Long.substr(0, 80));
    Graph.Fill(IDC_LINE_LABEL, "");
    Calculator.ClickControl(IDC_TYPE_SCATTER);
    ClickMiddleOf(Graph.Field(IDC_LINE_STYLE));  // opens the list
    HitKey(VK_DOWN);
    HitKey(VK_DOWN);
    HitKey(VK_RETURN);
    Calculator.Settle();
    CHECK(Graph.Text(IDC_LINE_STYLE) == "diamond");
    Graph.PhotographDialog("graph-reformat-line-scatter");
    Calculator.Click("OK");
    CHECK_FALSE(Calculator.HasDialog());
    Graph.Photograph().Save("graph-reformatted-line");

    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    CHECK(Graph.Text(IDC_LINE_LABEL) == "first");
    CHECK(Graph.IsChecked(IDC_TYPE_PLOT));
    Graph.Fill(IDC_FORMATTED_LINE, "2");
    CHECK(Graph.Text(IDC_LINE_LABEL) == "");
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "3");
    CHECK(Graph.Text(IDC_MULTIPLIER) == "-2.5");
    CHECK(Graph.Text(IDC_OFFSET) == "100");
    CHECK(Graph.IsChecked(IDC_TYPE_SCATTER));
    CHECK(Graph.Items(IDC_LINE_STYLE) == MarkerStyles);
    CHECK(Graph.Text(IDC_LINE_STYLE) == "diamond");

    // Cancel changes nothing.
    Graph.Fill(IDC_LINE_WIDTH, "2");
    Graph.Fill(IDC_LINE_LABEL, "other");
    Calculator.ClickControl(IDC_TYPE_STOOP);
    Calculator.Click("Cancel");
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    CHECK(Graph.Caption() == "Delete Line");
    CHECK(Graph.IsCentred());
    CHECK(Graph.Text(IDC_DELETED_LABEL) == "first");
    CHECK(Graph.Text(IDC_DELETED_TYPE) == "Plot");
    CHECK(Graph.Text(IDC_DELETED_STYLE) == "solid");
    Graph.Spin(IDC_DELETED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_DELETED_LINE) == "2");
    CHECK(Graph.Text(IDC_DELETED_LABEL) == "");
    CHECK(Graph.Text(IDC_DELETED_TYPE) == "Scatter");
    CHECK(Graph.Text(IDC_DELETED_WIDTH) == "3");
    CHECK(Graph.Text(IDC_DELETED_STYLE) == "diamond");
    Graph.PhotographDialog("graph-delete-line");
    CheckRefusals(&Graph, {{IDC_DELETED_LINE, "0", kLineMessage},
                           {IDC_DELETED_LINE, "3", kLineMessage},
                           {IDC_DELETED_LINE, "", kLineMessage},
                           {IDC_DELETED_LINE, "one", kLineMessage}});
    Calculator.Click("Cancel");
    CHECK(Graph.Count() == 2);

    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    Calculator.Click("OK");
    CHECK(Graph.Count() == 1);
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    CHECK(Graph.Text(IDC_DELETED_TYPE) == "Scatter");
    Calculator.Click("OK");
    CHECK(Graph.Count() == 0);

    // Without data no number is good.
    for (const unsigned nCommand : {IDM_DELETE_LINE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET})
    {
        Graph.Choose(gmEdit, nCommand);
        CHECK(Graph.Refuses(kLineMessage));
        Graph.Escape();
    }
}

TEST_CASE("colours and the font are chosen in the platform's dialogs")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("one.txt", "1\n2\n3\n");

    const auto Press = [&](int nButton) {
        const HWND hFormer = Calculator.Dialog();
        ClickMiddleOf(Graph.Field(nButton));
        REQUIRE(WaitFor([&] { return !IsWindowEnabled(hFormer); }));
        REQUIRE(Calculator.Dialog());
        Calculator.Settle();
        return hFormer;
    };
    const auto End = [&](HWND hFormer, const char *szButton) {
        Calculator.Click(szButton);
        REQUIRE(WaitFor([&] { return IsWindowEnabled(hFormer); }));
        Calculator.Settle();
    };
    const auto ChooseColour = [&](int nButton, const char *szButton) {
        const int  nBasicColours = 0x2D0;
        const HWND hFormer       = Press(nButton);
        RECT       Colours       = {};
        GetWindowRect(Graph.Field(nBasicColours), &Colours);
        Click({Colours.left + 3 * (Colours.right - Colours.left) / 16, Colours.top + 8});
        Calculator.Settle();
        Graph.PhotographDialog("graph-choose-colour");
        End(hFormer, szButton);
    };
    const unsigned nYellow = 0xFFFF80;  // the second one of the first row
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    ChooseColour(IDC_CHANGE_COLOUR, "Cancel");
    CHECK(Eventually(0xFF0000U, [&] { return Graph.ColourOf(IDC_LINE_COLOUR); }) == 0xFF0000U);
    ChooseColour(IDC_CHANGE_COLOUR, "OK");
    CHECK(Eventually(nYellow, [&] { return Graph.ColourOf(IDC_LINE_COLOUR); }) == nYellow);
    Graph.PhotographDialog("graph-reformat-line-colour");
    Calculator.Click("OK");
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    CHECK(Eventually(nYellow, [&] { return Graph.ColourOf(IDC_DELETED_COLOUR); }) == nYellow);
    Graph.Escape();

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    ChooseColour(IDC_BACKGROUND_COLOUR, "OK");
    Calculator.Click("Cancel");
    Calculator.Settle();
    CHECK(Eventually(0xFFFFFFU, [&] { return Graph.ColourAt(2, 2); }) == 0xFFFFFFU);

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    ChooseColour(IDC_BACKGROUND_COLOUR, "OK");
    ChooseColour(IDC_AXIS_COLOUR, "Cancel");
    const HWND hFormer = Press(IDC_TEXT_FONT);
    Graph.PhotographDialog("graph-choose-font");
    End(hFormer, "OK");
    Calculator.Click("OK");
    Calculator.Settle();
    CHECK(Eventually(nYellow, [&] { return Graph.ColourAt(2, 2); }) == nYellow);
    Graph.Photograph().Save("graph-other-colours");
}

TEST_CASE("a font that cannot be made leaves the plot its first one")
{
    const int    nSizes = 0x472;  // the list of the platform's dialog
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("one.txt", "1\n2\n3\n");
    const cPicture Before = Graph.PhotographPlot();
    const auto     Choose = [&] {
        Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
        const HWND hPlot = Calculator.Dialog();
        ClickMiddleOf(Graph.Field(IDC_TEXT_FONT));
        REQUIRE(WaitFor([&] { return !IsWindowEnabled(hPlot); }));
        REQUIRE(Calculator.Dialog());
        SendMessageA(Graph.Field(nSizes), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("24"));
        Calculator.Click("OK");
        REQUIRE(WaitFor([&] { return IsWindowEnabled(hPlot); }));
        Calculator.Click("OK");
        Calculator.Settle();
    };

    cProbeLink::Current()->Ask(pbNoFonts);
    Choose();
    CHECK(Graph.PhotographPlot() == Before);
}
