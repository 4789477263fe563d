// Printing the graph.

#include "tests/window/paper_tray.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/calculator.h"
#include "tests/window/common_steps.h"
#include "tests/window/graph_window.h"
#include "tests/window/leaks.h"
#include "tests/window/print_dialogs.h"
#include "tests/window/waiting.h"

static const int      kEdge   = 1;  // of the position of a line
static const unsigned kRedInk = 0xFF0000;

static const char *const kFall = "ExplicitX\n"
                                 "Title \"Free fall\"\n"
                                 "HorzAxisLabel \"seconds\"\n"
                                 "SetLabels \"height in m\" , \"speed in m/s\" , \"energy\"\n"
                                 "0.0 , 100 , 0 , 7\n"
                                 "0.5 , 98.8 , 4.9 , 8\n"
                                 "1.0 , 95.1 , 9.8 , 5\n"
                                 "1.5 , 89.0 , 14.7 , 6\n"
                                 "2.0 , 80.4 , 19.6 , 9\n";

namespace
{

struct cPaperRig
{
    cPaperRig() : m_Graph(&m_Calculator) { m_Graph.Open("fall.txt", kFall); }

    void Ask()
    {
        m_Graph.Choose(gmFile, IDM_PRINT_GRAPH);
        REQUIRE(m_Calculator.Dialog());
    }

    cPrintedDocument Print()
    {
        Ask();
        m_Calculator.Click("OK");
        return m_Tray.Next();
    }

    int IsFree()
    {
        return WaitFor([this] {
            return IsWindowEnabled(m_Graph.Window()) && GetForegroundWindow() == m_Graph.Window();
        });
    }

    cPaperTray   m_Tray;
    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
};

}  // namespace

// All words of a page in alphabetical order.
static std::vector<std::string> WordsOf(const cPrintedPage &Page)
{
    std::vector<std::string> Words;
    for (const std::string &Line : Page.m_Lines)
    {
        std::istringstream Text(Line);
        for (std::string Word; Text >> Word;)
            Words.push_back(Word);
    }
    std::sort(Words.begin(), Words.end());
    return Words;
}

static int CountRed(const cPicture &Picture, const RECT &Part)
{
    int nCount = 0;
    for (int y = Part.top; y < Part.bottom; y++)
        for (int x = Part.left; x < Part.right; x++)
            nCount += Picture.At(x, y) == kRedInk;
    return nCount;
}

// The number of black lines that cross more than half of the page from left to right
// of its text.
static int CountRules(const cPicture &Picture, int bTurned)
{
    const int nAcross = bTurned ? Picture.Height() : Picture.Width();
    const int nDown   = bTurned ? Picture.Width() : Picture.Height();
    int       nRules  = 0;
    int       bRule   = 0;
    for (int y = 0; y < nDown; y++)
    {
        int nBlack = 0;
        for (int x = 0; x < nAcross; x++)
            nBlack += (bTurned ? Picture.At(y, x) : Picture.At(x, y)) == 0;
        const int bFormer = bRule;
        bRule             = nBlack > nAcross / 2;
        nRules += bRule && !bFormer;
    }
    return nRules;
}

TEST_CASE("the graph is printed with title, legend and data on one page")
{
    cPaperRig Rig;
    Rig.Ask();
    CHECK_FALSE(IsWindowEnabled(GetDlgItem(Rig.m_Calculator.Dialog(), kPageRange)));
    Rig.m_Calculator.Click("OK");
    const cPrintedDocument Plain = Rig.m_Tray.Next();
    CHECK(Rig.IsFree());
    CHECK(Plain.m_Title == "cVantor");
    REQUIRE(Plain.m_Pages.size() == 1);
    Plain.Save(1, "print-graph");

    const cPrintedPage &Page = Plain.m_Pages[0];
    const std::string  &Row  = Page.m_Lines[Page.m_Lines.size() - 3];
    CHECK(Page.m_Lines[0] == "Free fall");
    CHECK(Row.find("height in m ") == 0);
    CHECK(Row.find(" 80.4 ") != std::string::npos);
    CHECK(Row.substr(Row.size() - 4) == " 100");

    // Legend and plot fill the page up to its margins.
    const cInk Ink = Page.Ink();
    CHECK(abs(Ink.m_nLeft - kInch) <= kEdge);
    CHECK(abs(Ink.m_nRight - (Page.m_Picture.Width() - kInch)) <= kEdge);
    CHECK(abs(Ink.m_nBottom - (Page.m_Picture.Height() - kInch)) <= kEdge);
    CHECK(Ink.m_nTop >= kInch - kEdge);
    CHECK(Ink.m_nTop < kInch + 10);
    CHECK(CountRules(Page.m_Picture, 0) == 4);  // an axis and the legend's frame
    const cInk Red = Page.InkOf(kRedInk);
    CHECK(Red.m_nTop < 2 * kInch);                               // the data
    CHECK(Red.m_nBottom > Page.m_Picture.Height() - 2 * kInch);  // the sample
}

TEST_CASE("the grid is printed if it is shown, and the legend is not if it is hidden")
{
    cPaperRig              Rig;
    const cPrintedDocument Plain = Rig.Print();
    Rig.m_Graph.Choose(gmView, IDM_GRID);
    const cPrintedDocument WithGrid = Rig.Print();
    CHECK(CountRules(WithGrid.m_Pages[0].m_Picture, 0) > 4);
    CHECK(WithGrid.m_Texts == Plain.m_Texts);
    WithGrid.Save(1, "print-graph-grid");

    Rig.m_Graph.Choose(gmView, IDM_GRID);
    Rig.m_Graph.Choose(gmView, IDM_LEGEND);
    const cPrintedDocument Bare = Rig.Print();
    const cPrintedPage    &Page = Bare.m_Pages[0];
    CHECK(CountRules(Page.m_Picture, 0) == 1);
    CHECK(Page.InkOf(kRedInk).m_nBottom < Page.m_Picture.Height() / 2);
    CHECK(Page.m_Lines.back() == "seconds");
}

TEST_CASE("the page setup turns the graph and keeps its margins free")
{
    cPaperRig Rig;
    Rig.m_Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
    Rig.m_Graph.Fill(IDC_LINE_WIDTH, "4");
    Rig.m_Calculator.Click("OK");
    const cPrintedDocument Upright = Rig.Print();
    Rig.m_Graph.Choose(gmFile, IDM_PRINT_SETUP);
    Rig.m_Calculator.ClickControl(kLandscape);
    FillField(&Rig.m_Calculator, kMarginLeft, "2");
    FillField(&Rig.m_Calculator, kMarginTop, "1.5");
    Rig.m_Calculator.Click("OK");
    const cPrintedDocument Turned = Rig.Print();
    Turned.Save(1, "print-graph-turned");

    // The left edge of the graph is the upper edge of the sheet, its lower edge the
    // left one.
    const cPrintedPage &Page = Turned.m_Pages[0];
    const cInk          Ink  = Page.Ink();
    CHECK(Page.m_Picture.Height() > Page.m_Picture.Width());
    CHECK(abs(Ink.m_nTop - 2 * kInch) <= kEdge);
    CHECK(abs(Ink.m_nBottom - (Page.m_Picture.Height() - kInch)) <= kEdge);
    CHECK(abs(Ink.m_nLeft - kInch) <= kEdge);
    CHECK(Ink.m_nRight <= Page.m_Picture.Width() - kInch * 3 / 2 + kEdge);
    CHECK(Ink.m_nRight > Page.m_Picture.Width() - kInch * 3 / 2 - 10);
    CHECK(CountRules(Page.m_Picture, 1) == 4);
    CHECK(WordsOf(Page) == WordsOf(Upright.m_Pages[0]));
    // The sample of the first line has kept its length and width, apart from what is
    // lost between pixels.
    const cPicture &Before = Upright.m_Pages[0].m_Picture;
    const int       nBefore =
        CountRed(Before, {kInch, Before.Height() - 2 * kInch, 2 * kInch, Before.Height()});
    const int nTurned = CountRed(Page.m_Picture, {kInch, 2 * kInch, 2 * kInch, 3 * kInch});
    CHECK(nTurned > nBefore * 2 / 3);
    CHECK(nTurned < nBefore * 3 / 2);

    Rig.m_Graph.Choose(gmFile, IDM_PRINT_SETUP);
    CHECK(IsDlgButtonChecked(Rig.m_Calculator.Dialog(), kLandscape));
    CHECK(TextOfControl(Rig.m_Calculator, kMarginLeft) == "2");
    Rig.m_Calculator.Click("Cancel");
}

TEST_CASE("margins that leave no room for the graph are refused, and nothing is printed")
{
    cPaperRig Rig;
    Rig.m_Graph.Choose(gmFile, IDM_PRINT_SETUP);
    FillField(&Rig.m_Calculator, kMarginLeft, "8");
    FillField(&Rig.m_Calculator, kMarginRight, "8");
    Rig.m_Calculator.Click("OK");
    Rig.Ask();
    Rig.m_Calculator.Click("OK");
    CHECK(Rig.m_Calculator.Box().m_Text == "The page margins leave no room on the sheet");
    Rig.m_Calculator.Click("OK");
    CHECK(Rig.m_Calculator.HasNoDialog());

    // The next document is one with a graph.
    Rig.m_Graph.Choose(gmFile, IDM_PRINT_SETUP);
    FillField(&Rig.m_Calculator, kMarginLeft, "1");
    FillField(&Rig.m_Calculator, kMarginRight, "1");
    Rig.m_Calculator.Click("OK");
    CHECK(Rig.Print().m_Pages[0].Ink().m_nRight > 0);
}

TEST_CASE("copies of the graph are pages of one document")
{
    cPaperRig Rig;
    Rig.Ask();
    FillField(&Rig.m_Calculator, kCopies, "2");
    Rig.m_Calculator.Click("OK");
    const cPrintedDocument Two = Rig.m_Tray.Next();
    REQUIRE(Two.m_Pages.size() == 2);
    CHECK(Two.m_Texts[0] == Two.m_Texts[1]);
}

TEST_CASE("the graph's Print dialog disables the calculator, and Cancel prints nothing")
{
    cPaperRig Rig;
    Rig.Ask();
    CHECK_FALSE(IsWindowEnabled(Rig.m_Calculator.Window()));
    Rig.m_Calculator.Click("Cancel");
    CHECK(Rig.IsFree());
    CHECK(WaitFor([&] { return IsWindowEnabled(Rig.m_Calculator.Window()); }));
    CHECK(Rig.Print().m_Pages.size() == 1);
}

TEST_CASE("a printing graph can be cancelled")
{
    cPaperRig Rig;
    Rig.Ask();
    FillField(&Rig.m_Calculator, kCopies, "999");
    const HWND hPrint = Rig.m_Calculator.Dialog();
    Rig.m_Calculator.Click("OK");
    REQUIRE(WaitFor([&] { return !IsWindow(hPrint) && Rig.m_Calculator.HasDialog(); }));
    CHECK(Rig.m_Calculator.Box().m_Caption == "cVantor");
    CHECK(TextOfControl(Rig.m_Calculator, IDC_SENDING_DOCUMENT) == "cVantor");
    CHECK_FALSE(IsWindowEnabled(Rig.m_Graph.Window()));
    Rig.m_Calculator.Click("Cancel");
    CHECK(Rig.IsFree());
    CHECK(Rig.m_Tray.Next().m_Texts.size() < 999);
}

TEST_CASE("many openings of the graph's printer dialog leave nothing behind")
{
    const cPaperRig Rig;
    CHECK(LeavesNothing(Rig.m_Calculator, [&] {
        OpenAndClose(Rig.m_Calculator, Rig.m_Graph.Window(), IDM_PRINT_GRAPH);
    }));
}
