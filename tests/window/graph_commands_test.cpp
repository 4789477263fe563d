// The commands of the graph's window: menu bar, keys and context menu.

#include "tests/window/graph_window.h"

#include <string>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/probe_link.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"

// Any caption: the platform's dialogs have another one where there is no printer.
static const char kAny[] = "";

namespace
{

struct cMenuRow
{
    eGraphMenu  m_nMenu;
    unsigned    m_nId;  // 0: separator
    const char *m_szText;
    const char *m_szCaption;  // of the dialog that it opens; null: none
    int         m_nKey;       // that does the same, 0: none
    unsigned    m_nModifiers;
    int         m_nContext;  // position in the context menu, from 1; 0: none
};

}  // namespace

// clang-format off
static const cMenuRow kMenuRows[] =
{
    { gmFile, IDM_GRAPH_NEW,        "&New\tCtrl+N",                 nullptr,            0,     0,     0 },
    { gmFile, IDM_GRAPH_OPEN,       "&Open...\tCtrl+O",             "Open",             'O',   kCtrl, 0 },
    { gmFile, IDM_GRAPH_APPEND,     "Appen&d...\tCtrl+A",           "Open",             'A',   kCtrl, 0 },
    { gmFile, IDM_ENTER_Y,          "Manually enter &y data...",    "Enter New Data Set", 0,   0,     0 },
    { gmFile, IDM_ENTER_XY,         "&Manually enter x,y data...",  "Enter New Data Set", 0,   0,     0 },
    { gmFile, IDM_GRAPH_SAVE,       "&Save\tCtrl+S",                "Vorstek",          'S',   kCtrl, 0 },
    { gmFile, IDM_GRAPH_SAVE_AS,    "Save &As...",                  "Vorstek",          0,     0,     0 },
    { gmFile, 0,                    "",                             nullptr,            0,     0,     0 },
    { gmFile, IDM_PRINT_SETUP,      "Print Set&up...",              kAny,               0,     0,     5 },
    { gmFile, IDM_PRINT_GRAPH,      "&Print Graph...\tCtrl+P",      kAny,               'P',   kCtrl, 6 },
    { gmFile, 0,                    "",                             nullptr,            0,     0,     0 },
    { gmFile, IDM_CREATE_BMP,       "Create &BMP file...",          "Create .BMP File", 0,     0,     7 },
    { gmFile, IDM_CREATE_GIF,       "Create &GIF file...",          "Create .GIF File", 0,     0,     8 },
    { gmFile, 0,                    "",                             nullptr,            0,     0,     0 },
    { gmFile, IDM_GRAPH_EXIT,       "E&xit\tCtrl+E",                nullptr,            0,     0,     0 },
    { gmEdit, IDM_REFORMAT_PLOT,    "&Reformat Plot...",            "Reformat Plot",    0,     0,     1 },
    { gmEdit, IDM_AUTO_RANGE,       "&Auto Range",                  nullptr,            0,     0,     0 },
    { gmEdit, IDM_REFORMAT_LINE,    "Reformat &Line...",            "Reformat Line",    0,     0,     3 },
    { gmEdit, IDM_EDIT_DATA_SET,    "&Edit Data Set...",            "Edit Data Set",    0,     0,     0 },
    { gmEdit, IDM_DELETE_LINE,      "&Delete Line...",              "Delete Line",      0,     0,     4 },
    { gmView, IDM_LEGEND,           "&Legend",                      nullptr,            0,     0,     0 },
    { gmView, IDM_GRID,             "&Grid",                        nullptr,            0,     0,     0 },
    { gmView, IDM_GRAPH_STATUS_BAR, "&Status Bar",                  nullptr,            0,     0,     0 },
    { gmHelp, IDM_GRAPH_HELP,       "&Help...",                     "Vorstek",          VK_F1, 0,     0 },
    { gmHelp, IDM_GRAPH_ABOUT,      "&About cVantor...",            "About cVantor...", 0,     0,     0 },
};
// clang-format on

// Chooses an item of the context menu with the keyboard. Separators do not count.
static void ChooseInContext(const cCalculator &Calculator, const cGraphWindow &Graph, int nPlace)
{
    Click(Graph.OnPlot(60, 60), mbRight);
    WaitForMenu();
    for (int i = 0; i < nPlace; i++)
        HitKey(VK_DOWN);
    HitKey(VK_RETURN);
    Calculator.Settle();
}

namespace
{

// A graph without data. Tests that share it leave it without data.
struct cGraphRig
{
    cGraphRig() : m_Graph(&m_Calculator) {}

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() && m_Graph.Count() == 0;
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
};

}  // namespace

// The dialog that a command opens has its caption and closes with Escape.
static void CheckOpensAndCloses(const cCalculator &Calculator, cGraphWindow *pGraph,
                                const char *szCaption)
{
    REQUIRE(Calculator.Dialog());
    if (szCaption != kAny)
        CHECK(pGraph->Caption() == szCaption);
    pGraph->Escape();
    REQUIRE(Calculator.HasNoDialog());
}

TEST_CASE("every item of the graph's menus has its position, text and command")
{
    const cGraphWindow &Graph  = Shared<cGraphRig>().m_Graph;
    eGraphMenu          nMenu  = gmFile;
    UINT                nPlace = 0;
    for (const cMenuRow &Row : kMenuRows)
    {
        const std::string Text = Row.m_szText;
        CAPTURE(Text);
        nPlace = Row.m_nMenu == nMenu ? nPlace : 0;
        nMenu  = Row.m_nMenu;
        const cProbeAnswer Item =
            cProbeLink::Current()->AskWindow(Graph.Window(), pbMenuItem, ItemAt(nMenu, nPlace++));
        CHECK(Item.m_szText == Text);
        CHECK(Item.m_nValue == static_cast<int>(Row.m_nId));
    }
}

TEST_CASE("each dialog is opened from the menu bar, by its key and from the context menu")
{
    cGraphRig    &Rig   = Shared<cGraphRig>();
    cGraphWindow &Graph = Rig.m_Graph;
    for (const cMenuRow &Row : kMenuRows)
    {
        const std::string Text = Row.m_szText;
        CAPTURE(Text);
        if (!Row.m_szCaption)
            continue;
        Graph.Choose(Row.m_nMenu, Row.m_nId);
        CheckOpensAndCloses(Rig.m_Calculator, &Graph, Row.m_szCaption);
        if (Row.m_nKey)
        {
            HitKey(static_cast<WORD>(Row.m_nKey), Row.m_nModifiers);
            CheckOpensAndCloses(Rig.m_Calculator, &Graph, Row.m_szCaption);
        }
        if (Row.m_nContext)
        {
            ChooseInContext(Rig.m_Calculator, Graph, Row.m_nContext);
            CheckOpensAndCloses(Rig.m_Calculator, &Graph, Row.m_szCaption);
        }
    }
}

TEST_CASE("a missing help file of the graph is reported")
{
    cGraphRig     &Rig        = Shared<cGraphRig>();
    cCalculator   &Calculator = Rig.m_Calculator;
    const cSeenBox Expected   = {"Vorstek", MissingHelpText("CVANTOR.CHM"), {"OK"}};
    Rig.m_Graph.Choose(gmHelp, IDM_GRAPH_HELP);
    CHECK((Calculator.Box() == Expected));
    CHECK(Calculator.BoxIcon() == 0);
    Calculator.PhotographScreen().Save("graph-help");
    Calculator.Click("OK");
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("a file that cannot be read and a cancelled dialog leave the graph as it was")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("bend.txt", "1,4\n3,2\n2,5\n");
    const cPicture Shown = Graph.PhotographPlot();
    Calculator.Folder().Write("bad.txt", "ExplicitX\n1\n");
    for (const unsigned nId : {IDM_GRAPH_OPEN, IDM_GRAPH_APPEND})
    {
        Graph.Choose(gmFile, nId);
        Calculator.GiveFileName(Calculator.Path("bad.txt"));
        CHECK(Calculator.Answers("Could not read the file:\n " + Calculator.Path("bad.txt"), "OK"));
        Graph.Choose(gmFile, nId);
        Graph.Escape();
    }
    Graph.Choose(gmFile, IDM_GRAPH_SAVE_AS);
    Graph.Escape();
    CHECK((Graph.PhotographPlot() == Shown));
    CHECK(Graph.StatusText() == "filename: " + Calculator.Path("bend.txt"));
}

TEST_CASE("the graph is saved by its key, ranged from the context menu and emptied by its key")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("bend.txt", "1,4\n3,2\n2,5\n");
    HitKey('S', kCtrl);
    Calculator.Settle();
    CHECK(Calculator.Folder().Read("bend.txt").substr(0, 9) == "ImplicitX");

    // OK in the dialog fixes the range.
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    Calculator.Click("OK");
    CHECK_FALSE(Graph.IsTicked(IDM_AUTO_RANGE));
    ChooseInContext(Calculator, Graph, 2);
    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));

    HitKey('N', kCtrl);
    Calculator.Settle();
    CHECK(Graph.Count() == 0);
    CHECK(Graph.StatusText() == "filename: UNTITLED");
}
