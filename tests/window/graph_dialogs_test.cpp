// The dialogs of the graph's window, driven with mouse and keyboard.

#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

namespace
{

struct cFieldRow
{
    int         m_nField;
    const char *m_szText;  // that is good
    const char *m_szMessage;
};

struct cRefusalRow
{
    int         m_nField;
    const char *m_szBad;
};

// A graph with two lines. Tests that share it cancel its dialogs.
struct cDialogRig
{
    cDialogRig() : m_Graph(&m_Calculator)
    {
        m_Graph.Open("two.txt", "SetLabels \"first\" , \"second\"\n1 , 10\n2 , 20\n3 , 30\n");
    }

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() && m_Graph.Count() == 2;
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
};

}  // namespace

static const char *const kLineMessage = "ERROR: your \"Line #\" value produced an error";

static const unsigned kRed    = 0xFF0000;
static const unsigned kYellow = 0xFFFF80;  // the platform's second basic colour

// In the order in which the dialogs judge them.
static const cFieldRow kPlotFields[] = {
    {IDC_HORZ_TICKS, "6", "ERROR: your \"# horz ticks\" value produced an error"},
    {IDC_HORZ_MIN, "-1", "ERROR: your \"min horz tick\" value produced an error"},
    {IDC_HORZ_MAX, "1e1", "ERROR: your \"max horz tick\" value produced an error"},
    {IDC_VERT_TICKS, "0", "ERROR: your \"# vert ticks\" value produced an error"},
    {IDC_VERT_MIN, "40", "ERROR: your \"min vert tick\" value produced an error"},
    {IDC_VERT_MAX, " .5", "ERROR: your \"max vert tick\" value produced an error"},
};
static const cFieldRow kLineFields[] = {
    {IDC_FORMATTED_LINE, "2", kLineMessage},
    {IDC_LINE_WIDTH, "4", "ERROR: your \"Line Width\" value produced an error"},
    {IDC_MULTIPLIER, "-2.5", "ERROR: your \"Multiplier\" value produced an error"},
    {IDC_OFFSET, "1e2", "ERROR: your \"Offset\" value produced an error"},
};

static const char *const kLineStyles   = "solid dash dot dash-dot dash-dot-dot ";
static const char *const kMarkerStyles = "triangle square diamond vert line horz line ";

// A file of nRows rows, each with the number 1.
static std::string Rows(int nRows)
{
    std::string Text;
    for (int i = 0; i < nRows; i++)
        Text += "1\n";
    return Text;
}

static int CountOf(const std::string &Part, const std::string &Text)
{
    int nCount = 0;
    for (size_t nAt = Text.find(Part); nAt != std::string::npos; nAt = Text.find(Part, nAt + 1))
        nCount++;
    return nCount;
}

// OK refuses this text with the field's message and leaves it in the field.
static void CheckRefused(cGraphWindow *pGraph, int nField, const char *szBad, const char *szMessage)
{
    CAPTURE(szBad);
    CAPTURE(szMessage);
    pGraph->Fill(nField, szBad);
    CHECK(pGraph->Refuses(szMessage));
    CHECK(pGraph->Text(nField) == szBad);
}

// Fills each field with texts that OK refuses, then with one that is good.
template <size_t kFields, size_t kRows>
static void CheckRefusals(cGraphWindow *pGraph, const cFieldRow (&Fields)[kFields],
                          const cRefusalRow (&Rows)[kRows])
{
    for (const cFieldRow &Field : Fields)
    {
        for (const cRefusalRow &Row : Rows)
            if (Row.m_nField == Field.m_nField)
                CheckRefused(pGraph, Row.m_nField, Row.m_szBad, Field.m_szMessage);
        pGraph->Fill(Field.m_nField, Field.m_szText);
    }
}

// Types two data sets into their dialogs.
static void EnterSets(cGraphWindow *pGraph)
{
    pGraph->Choose(gmFile, IDM_ENTER_Y);
    pGraph->TypeLines({"1", "2", "abc", "3"});
    CHECK(pGraph->Accepts("You entered 3 data points\nand these have been assigned\n"
                          "to data line #1"));
    pGraph->Choose(gmFile, IDM_ENTER_XY);
    pGraph->TypeLines({"1,2.5", "", "3 , 4 and more", "5", "6 7", " -1e3\t,.5"});
    CHECK(pGraph->Accepts("You entered 3 data points\nand these have been assigned\n"
                          "to data line #2"));
}

TEST_CASE("typed points become data sets, without the lines that hold no number")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    for (const unsigned nCommand : {IDM_ENTER_Y, IDM_ENTER_XY})
    {
        Graph.Choose(gmFile, nCommand);
        CHECK(Graph.Caption() == "Enter New Data Set");
        CHECK(Graph.IsCentred());
        Graph.PhotographDialog(nCommand == IDM_ENTER_Y ? "graph-enter-y" : "graph-enter-xy");
        Graph.Escape();
    }

    EnterSets(&Graph);

    CHECK(Graph.Count() == 2);
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Text(IDC_POINTS) == "1\r\n2\r\n3\r\n");
    Graph.Spin(IDC_EDITED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_POINTS) == "1 , 2.5\r\n3 , 4\r\n-1000 , 0.5\r\n");
}

TEST_CASE("without a point OK closes the dialog with an error, and Cancel adds nothing")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    for (const unsigned nCommand : {IDM_ENTER_Y, IDM_ENTER_XY})
    {
        Graph.Choose(gmFile, nCommand);
        Graph.TypeLines({"1 2", "1;2"});
        CHECK(Graph.Accepts("ERROR: you didn't enter any data points"));
    }

    Graph.Choose(gmFile, IDM_ENTER_Y);
    Graph.TypeLines({"1"});
    Calculator.Click("Cancel");
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(Graph.Count() == 0);
}

TEST_CASE("the editor shows each data set, up to the last one")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    EnterSets(&Graph);

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
    Graph.Spin(IDC_EDITED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_EDITED_LINE) == "2");
    Graph.PhotographDialog("graph-edit-data-set");
}

TEST_CASE("the editor adds points, and deletes a set without points together with its line")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    EnterSets(&Graph);
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    Graph.Fill(IDC_EDITED_LINE, "2");
    Graph.GoToEnd(IDC_POINTS);
    Graph.TypeLines({"7,8", "9"});
    CHECK(Graph.Accepts("Data set 2 now has 4 data points"));
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    Graph.Fill(IDC_EDITED_LINE, "2");
    CHECK(Graph.Text(IDC_POINTS) == "1 , 2.5\r\n3 , 4\r\n-1000 , 0.5\r\n7 , 8\r\n");
    Calculator.Click("Cancel");
    CHECK(Graph.Count() == 2);

    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    Graph.Fill(IDC_POINTS, "none");
    CHECK(Graph.Accepts("Data set 1 has been deleted"));

    CHECK(Graph.Count() == 1);
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Text(IDC_POINTS) == "1 , 2.5\r\n3 , 4\r\n-1000 , 0.5\r\n7 , 8\r\n");
    Graph.Escape();
    CHECK(Graph.Count() == 1);
}

TEST_CASE("the editor refuses numbers that name no data set")
{
    cDialogRig   &Rig   = Shared<cDialogRig>();
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    for (const char *const szLine : {"0", "3", "abc", "", "-1", "1 "})
    {
        CAPTURE(szLine);
        Graph.Fill(IDC_EDITED_LINE, szLine);
        CHECK(Graph.Text(IDC_POINTS) == "\r\n\r\n    THERE IS NO SUCH DATA SET \r\n");
        CHECK(Graph.Refuses(kLineMessage));
    }
    Graph.PhotographDialog("graph-edit-no-such");
    Rig.m_Calculator.Click("Cancel");
    CHECK(Graph.Count() == 2);
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
    Calculator.Click("OK");  // shows no box and changes nothing
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(CountOf("1.000000\r\n", Graph.Saved("1001.txt")) == 1001);

    Graph.Open("1000.txt", Rows(1000));
    Graph.Choose(gmEdit, IDM_EDIT_DATA_SET);
    CHECK(Graph.Text(IDC_POINTS).size() == 1000 * std::string("1\r\n").size());
    Graph.GoToEnd(IDC_POINTS);
    Graph.TypeLines({"2"});
    CHECK(Graph.Accepts("Data set 1 now has 1001 data points"));
}

TEST_CASE("Reformat Plot shows the settings of the plot")
{
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
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
    Graph.Escape();
}

TEST_CASE("Reformat Plot names the first bad field, and the next one once that is good")
{
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    for (const cFieldRow &Field : kPlotFields)
        Graph.Fill(Field.m_nField, "");
    for (const cFieldRow &Field : kPlotFields)
    {
        CHECK(Graph.Refuses(Field.m_szMessage));
        Graph.Fill(Field.m_nField, Field.m_szText);
    }
    Graph.Escape();
}

TEST_CASE("Reformat Plot refuses more than 26 ticks and texts that are no numbers")
{
    static const cRefusalRow s_Rows[] = {
        {IDC_HORZ_TICKS, "27"},  {IDC_HORZ_TICKS, "-1"}, {IDC_HORZ_TICKS, "6 "},
        {IDC_HORZ_TICKS, "6.0"}, {IDC_HORZ_MIN, "abc"},  {IDC_HORZ_MAX, "1,5"},
        {IDC_VERT_TICKS, "27"},  {IDC_VERT_MIN, "0x10"}, {IDC_VERT_MAX, "inf"},
    };
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    CheckRefusals(&Graph, kPlotFields, s_Rows);
    Graph.Escape();
}

TEST_CASE("the spin controls of the ticks end at 0 and 26")
{
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    Graph.Fill(IDC_HORZ_TICKS, "26");
    Graph.Fill(IDC_VERT_TICKS, "0");

    Graph.Spin(IDC_HORZ_TICKS_SPIN, 1);
    CHECK(Graph.Text(IDC_HORZ_TICKS) == "26");
    Graph.Spin(IDC_HORZ_TICKS_SPIN, 0);
    CHECK(Graph.Text(IDC_HORZ_TICKS) == "25");
    Graph.Spin(IDC_VERT_TICKS_SPIN, 0);
    CHECK(Graph.Text(IDC_VERT_TICKS) == "0");
    Graph.Escape();
}

TEST_CASE("Reformat Plot changes nothing before OK, and Cancel forgets what was entered")
{
    cDialogRig       &Rig   = Shared<cDialogRig>();
    cGraphWindow     &Graph = Rig.m_Graph;
    const std::string Long(90, 'm');
    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    Graph.Fill(IDC_PLOT_TITLE, Long);
    CHECK(Graph.Text(IDC_PLOT_TITLE) == Long.substr(0, 80));
    Graph.Fill(IDC_HORZ_LABEL, "seconds & more");
    for (const int nBox : {IDC_HORZ_GRID, IDC_VERT_GRID, IDC_SHOW_LEGEND})
        Rig.m_Calculator.ClickControl(nBox);
    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));

    Rig.m_Calculator.Click("Cancel");

    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));
    CHECK_FALSE(Graph.IsTicked(IDM_GRID));
    CHECK(Graph.IsTicked(IDM_LEGEND));
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    CHECK(Graph.Text(IDC_PLOT_TITLE) == "");
    Graph.Escape();
}

// The settings as Reformat Plot shows them again.
static const struct
{
    int         m_nField;
    const char *m_szEntered;
    const char *m_szShown;
} kSettings[] = {
    {IDC_PLOT_TITLE, "A title", "A title"},
    {IDC_HORZ_LABEL, "seconds & more", "seconds & more"},
    {IDC_HORZ_TICKS, "26", "26"},
    {IDC_HORZ_MIN, "-1", "-1"},
    {IDC_HORZ_MAX, "1e10", "1e+10"},
    {IDC_VERT_TICKS, "0", "0"},
    {IDC_VERT_MIN, "40", "40"},  // above the maximum, which is allowed
    {IDC_VERT_MAX, " .5", "0.5"},
};

TEST_CASE("OK applies all fields of Reformat Plot and fixes the range")
{
    cDialogRig    Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    for (const auto &Row : kSettings)
        Graph.Fill(Row.m_nField, Row.m_szEntered);
    Rig.m_Calculator.ClickControl(IDC_VERT_GRID);
    Rig.m_Calculator.ClickControl(IDC_SHOW_LEGEND);

    Rig.m_Calculator.Click("OK");

    CHECK_FALSE(Rig.m_Calculator.HasDialog());
    CHECK_FALSE(Graph.IsTicked(IDM_AUTO_RANGE));
    CHECK(Graph.IsTicked(IDM_GRID));
    CHECK_FALSE(Graph.IsTicked(IDM_LEGEND));
    Graph.Photograph().Save("graph-reformatted-plot");
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    for (const auto &Row : kSettings)
        CHECK(Graph.Text(Row.m_nField) == Row.m_szShown);
    CHECK_FALSE(Graph.IsChecked(IDC_HORZ_GRID));
    CHECK(Graph.IsChecked(IDC_VERT_GRID));
    CHECK_FALSE(Graph.IsChecked(IDC_SHOW_LEGEND));
    Graph.Escape();

    Graph.Choose(gmEdit, IDM_AUTO_RANGE);
    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));
}

TEST_CASE("Reformat Line shows the look of the first line")
{
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
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
    CHECK(Graph.HasColour(IDC_LINE_COLOUR, kRed));
    CHECK(Graph.Items(IDC_LINE_STYLE) == kLineStyles);
    CHECK(Graph.Text(IDC_LINE_STYLE) == "solid");
    Graph.PhotographDialog("graph-reformat-line");
    Graph.Escape();
}

TEST_CASE("the styles that Reformat Line offers follow the graph type")
{
    cDialogRig   &Rig   = Shared<cDialogRig>();
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Rig.m_Calculator.ClickControl(IDC_TYPE_SCATTER);
    CHECK(Graph.Items(IDC_LINE_STYLE) == kMarkerStyles);
    CHECK(Graph.Text(IDC_LINE_STYLE) == "triangle");
    Rig.m_Calculator.ClickControl(IDC_TYPE_STAIRSTEP);
    CHECK(Graph.Items(IDC_LINE_STYLE) == kLineStyles);
    Rig.m_Calculator.ClickControl(IDC_TYPE_STOOP);
    CHECK(Graph.Items(IDC_LINE_STYLE) == kLineStyles);
    Graph.Escape();
}

TEST_CASE("another line number loads the fields of that line")
{
    cDialogRig   &Rig   = Shared<cDialogRig>();
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Rig.m_Calculator.ClickControl(IDC_TYPE_STOOP);
    Graph.Spin(IDC_FORMATTED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_FORMATTED_LINE) == "2");
    CHECK(Graph.Text(IDC_LINE_LABEL) == "second");
    CHECK(Graph.IsChecked(IDC_TYPE_PLOT));
    Graph.Spin(IDC_FORMATTED_LINE_SPIN, 1);
    CHECK(Graph.Text(IDC_FORMATTED_LINE) == "2");

    Graph.Fill(IDC_FORMATTED_LINE, "3");
    Graph.Fill(IDC_LINE_WIDTH, "5");
    Graph.Fill(IDC_FORMATTED_LINE, "2");
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "1");
    Graph.Escape();
}

TEST_CASE("Reformat Line refuses one bad field after the other, the line number first")
{
    static const cRefusalRow s_Rows[] = {
        {IDC_FORMATTED_LINE, "0"},
        {IDC_FORMATTED_LINE, ""},
        {IDC_FORMATTED_LINE, "x"},
    };
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Graph.Fill(IDC_FORMATTED_LINE, "3");
    Graph.Fill(IDC_LINE_WIDTH, "5");
    Graph.Fill(IDC_MULTIPLIER, "2x");
    Graph.Fill(IDC_OFFSET, "");
    CHECK(Graph.Refuses(kLineMessage));
    for (const cRefusalRow &Row : s_Rows)
        CheckRefused(&Graph, Row.m_nField, Row.m_szBad, kLineMessage);

    Graph.Fill(IDC_FORMATTED_LINE, "2");
    Graph.Fill(IDC_LINE_WIDTH, "5");
    Graph.Fill(IDC_MULTIPLIER, "2x");
    Graph.Fill(IDC_OFFSET, "");
    for (const cFieldRow &Field : kLineFields)
        if (Field.m_nField != IDC_FORMATTED_LINE)
        {
            CHECK(Graph.Refuses(Field.m_szMessage));
            Graph.Fill(Field.m_nField, Field.m_szText);
        }
    Graph.Escape();
}

TEST_CASE("Reformat Line refuses widths beyond 1 to 4 and texts that are no numbers")
{
    static const cRefusalRow s_Rows[] = {
        {IDC_LINE_WIDTH, "5"},   {IDC_LINE_WIDTH, "0"},  {IDC_LINE_WIDTH, ""},
        {IDC_LINE_WIDTH, "1.5"}, {IDC_MULTIPLIER, "2x"}, {IDC_MULTIPLIER, ""},
        {IDC_MULTIPLIER, "nan"}, {IDC_OFFSET, ""},       {IDC_OFFSET, "1 2"},
    };
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    CheckRefusals(&Graph, kLineFields, s_Rows);
    Graph.Escape();
}

TEST_CASE("the spin control of the width ends at 1 and 4")
{
    cGraphWindow &Graph = Shared<cDialogRig>().m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Graph.Fill(IDC_LINE_WIDTH, "4");
    Graph.Spin(IDC_LINE_WIDTH_SPIN, 1);
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "4");
    for (int i = 0; i < 4; i++)
        Graph.Spin(IDC_LINE_WIDTH_SPIN, 0);
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "1");
    Graph.Spin(IDC_LINE_WIDTH_SPIN, 1);
    Graph.Spin(IDC_LINE_WIDTH_SPIN, 1);
    CHECK(Graph.Text(IDC_LINE_WIDTH) == "3");
    Graph.Escape();
}

// Gives the second line another look, with OK.
static void FormatSecondLine(cDialogRig *pRig)
{
    const std::string Long(90, 'm');
    cGraphWindow     &Graph = pRig->m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Graph.Fill(IDC_FORMATTED_LINE, "2");
    Graph.Fill(IDC_LINE_WIDTH, "3");
    Graph.Fill(IDC_MULTIPLIER, "-2.5");
    Graph.Fill(IDC_OFFSET, "1e2");
    Graph.Fill(IDC_LINE_LABEL, Long);
    CHECK(Graph.Text(IDC_LINE_LABEL) == Long.substr(0, 80));
    Graph.Fill(IDC_LINE_LABEL, "");
    pRig->m_Calculator.ClickControl(IDC_TYPE_SCATTER);
    ClickMiddleOf(Graph.Field(IDC_LINE_STYLE));  // opens the list
    HitKey(VK_DOWN);
    HitKey(VK_DOWN);
    HitKey(VK_RETURN);
    pRig->m_Calculator.Settle();
    CHECK(Graph.Text(IDC_LINE_STYLE) == "diamond");
    Graph.PhotographDialog("graph-reformat-line-scatter");
    pRig->m_Calculator.Click("OK");
    CHECK_FALSE(pRig->m_Calculator.HasDialog());
}

TEST_CASE("OK stores the fields of Reformat Line with the line that was chosen")
{
    cDialogRig    Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    FormatSecondLine(&Rig);
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
    CHECK(Graph.Items(IDC_LINE_STYLE) == kMarkerStyles);
    CHECK(Graph.Text(IDC_LINE_STYLE) == "diamond");
}

TEST_CASE("Delete Line shows each line; a cancelled Reformat Line has not changed it")
{
    cDialogRig    Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    FormatSecondLine(&Rig);
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Graph.Fill(IDC_FORMATTED_LINE, "2");
    Graph.Fill(IDC_LINE_WIDTH, "2");
    Graph.Fill(IDC_LINE_LABEL, "other");
    Rig.m_Calculator.ClickControl(IDC_TYPE_STOOP);
    Rig.m_Calculator.Click("Cancel");

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
}

TEST_CASE("Delete Line refuses numbers that name no line, and Cancel deletes nothing")
{
    cDialogRig   &Rig   = Shared<cDialogRig>();
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    for (const char *const szBad : {"0", "3", "", "one"})
        CheckRefused(&Graph, IDC_DELETED_LINE, szBad, kLineMessage);
    Rig.m_Calculator.Click("Cancel");
    CHECK(Graph.Count() == 2);
}

TEST_CASE("Delete Line deletes one line after the other; without lines every number is refused")
{
    cDialogRig    Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    FormatSecondLine(&Rig);
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    Rig.m_Calculator.Click("OK");
    CHECK(Graph.Count() == 1);
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    CHECK(Graph.Text(IDC_DELETED_TYPE) == "Scatter");
    Rig.m_Calculator.Click("OK");
    CHECK(Graph.Count() == 0);

    for (const unsigned nCommand : {IDM_DELETE_LINE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET})
    {
        Graph.Choose(gmEdit, nCommand);
        CHECK(Graph.Refuses(kLineMessage));
        Graph.Escape();
    }
}

// Clicks a button that opens a dialog of the platform above the present one,
// which is returned.
static HWND OpenAbove(const cDialogRig &Rig, int nButton)
{
    const HWND hLower = Rig.m_Calculator.Dialog();
    ClickMiddleOf(Rig.m_Graph.Field(nButton));
    REQUIRE(WaitFor([&] { return !IsWindowEnabled(hLower); }));
    REQUIRE(Rig.m_Calculator.Dialog());
    Rig.m_Calculator.Settle();
    return hLower;
}

// Closes the platform's dialog.
static void CloseAbove(cDialogRig *pRig, HWND hLower, const char *szButton)
{
    pRig->m_Calculator.Click(szButton);
    REQUIRE(WaitFor([&] { return IsWindowEnabled(hLower); }));
    pRig->m_Calculator.Settle();
}

// Chooses kYellow in the platform's dialog.
static void ChooseYellow(cDialogRig *pRig, int nButton, const char *szClosing)
{
    const int  nBasicColours = 0x2D0;
    const HWND hLower        = OpenAbove(*pRig, nButton);
    const RECT Colours       = RectOf(pRig->m_Graph.Field(nBasicColours));
    Click({Colours.left + 3 * (Colours.right - Colours.left) / 16, Colours.top + 8});
    pRig->m_Calculator.Settle();
    pRig->m_Graph.PhotographDialog("graph-choose-colour");
    CloseAbove(pRig, hLower, szClosing);
}

TEST_CASE("a line gets the colour that is chosen in the platform's dialog")
{
    cDialogRig    Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    ChooseYellow(&Rig, IDC_CHANGE_COLOUR, "Cancel");
    CHECK(Graph.HasColour(IDC_LINE_COLOUR, kRed));
    ChooseYellow(&Rig, IDC_CHANGE_COLOUR, "OK");
    CHECK(Graph.HasColour(IDC_LINE_COLOUR, kYellow));
    Graph.PhotographDialog("graph-reformat-line-colour");
    Rig.m_Calculator.Click("OK");
    Graph.Choose(gmEdit, IDM_DELETE_LINE);
    CHECK(Graph.HasColour(IDC_DELETED_COLOUR, kYellow));
}

TEST_CASE("the background gets its colour with the OK of Reformat Plot")
{
    cDialogRig    Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    ChooseYellow(&Rig, IDC_BACKGROUND_COLOUR, "OK");
    Rig.m_Calculator.Click("Cancel");
    Rig.m_Calculator.Settle();
    CHECK(Eventually(0xFFFFFFU, [&] { return Graph.ColourAt(2, 2); }) == 0xFFFFFFU);

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    ChooseYellow(&Rig, IDC_BACKGROUND_COLOUR, "OK");
    ChooseYellow(&Rig, IDC_AXIS_COLOUR, "Cancel");
    const HWND hPlot = OpenAbove(Rig, IDC_TEXT_FONT);
    Graph.PhotographDialog("graph-choose-font");
    CloseAbove(&Rig, hPlot, "OK");
    Rig.m_Calculator.Click("OK");
    Rig.m_Calculator.Settle();
    CHECK(Eventually(kYellow, [&] { return Graph.ColourAt(2, 2); }) == kYellow);
    Graph.Photograph().Save("graph-other-colours");
}

TEST_CASE("a font that cannot be made leaves the plot its former font")
{
    const int      nSizes = 0x472;  // the list of the platform's dialog
    cDialogRig     Rig;
    const cPicture Before = Rig.m_Graph.PhotographPlot();
    cProbeLink::Current()->Ask(pbNoFonts);

    Rig.m_Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    const HWND hPlot = OpenAbove(Rig, IDC_TEXT_FONT);
    SendMessageA(Rig.m_Graph.Field(nSizes), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("24"));
    CloseAbove(&Rig, hPlot, "OK");
    Rig.m_Calculator.Click("OK");
    Rig.m_Calculator.Settle();

    CHECK(Rig.m_Graph.PhotographPlot() == Before);
}
