// Data lines, grid and legend in the real window: each graph type with each style
// and width, and the markers pixel by pixel.

#include "tests/window/graph_window.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/plot_reader.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"

static const int kTypes  = 4;  // Plot, StairStep, Scatter, Stoop
static const int kStyles = 5;
static const int kSets   = kTypes * kStyles;
static const int kPoints = 9;

static const int      kScatter    = 2;
static const unsigned kPaper      = 0xFFFFFF;
static const unsigned kAxisColour = 0x000000;

// One set above the other, three units apart. Each rises by one unit at every third
// point and is level from the second to the third point after it. One point lies
// below all others, so that the others are off the axis.
static int ValueAt(int nSet, int nPoint)
{
    if (nSet == 0 && nPoint == kPoints - 1)
        return 0;
    return 3 * nSet + 2 + (nPoint % 3 == 1 ? 1 : 0);
}

static std::string DataFile()
{
    std::string Text = "ImplicitX\nTitle \"Types and styles\"\nHorzAxisLabel \"x\"\n";
    for (int nPoint = 0; nPoint < kPoints; nPoint++)
        for (int nSet = 0; nSet < kSets; nSet++)
            Text += std::to_string(ValueAt(nSet, nPoint)) + (nSet + 1 < kSets ? "," : "\n");
    return Text;
}

namespace
{

class cLooksRig
{
public:
    cLooksRig() : m_Graph(&m_Calculator)
    {
        SetWindowPos(m_Graph.Window(), HWND_TOP, 0, 0, 900, 960, 0);
        m_Graph.Open("looks.txt", DataFile());
        REQUIRE(m_Graph.Count() == kSets);
        m_Area = LookForArea();
    }

    // The plot's rectangle; to be found before wide lines cover its axes.
    RECT LookForArea() const { return cSeenPlot(m_Graph.PhotographPlot()).m_Rect; }

    // Formats a line with the dialog, whose fields are filled by messages.
    void Format(int nSet, int nType, int nStyle, int nWidth)
    {
        PostMessageA(m_Graph.Window(), WM_COMMAND, IDM_REFORMAT_LINE, 0);
        const HWND hDialog = m_Calculator.Dialog();
        REQUIRE(m_Graph.Caption() == "Reformat Line");
        Put(IDC_FORMATTED_LINE, nSet + 1);
        SendMessageA(m_Graph.Field(IDC_TYPE_PLOT + nType), BM_CLICK, 0, 0);
        SendMessageA(m_Graph.Field(IDC_LINE_STYLE), CB_SETCURSEL, static_cast<WPARAM>(nStyle), 0);
        Put(IDC_LINE_WIDTH, nWidth);
        PostMessageA(hDialog, WM_COMMAND, IDOK, 0);
        REQUIRE(WaitFor([=] { return !IsWindow(hDialog); }));
    }

    void FormatAll(int (*pfnStyle)(int), int (*pfnWidth)(int))
    {
        for (int nSet = 0; nSet < kSets; nSet++)
            Format(nSet, nSet / kStyles, pfnStyle(nSet), pfnWidth(nSet));
        m_pRange = std::make_unique<cSeenRange>(&m_Calculator, &m_Graph);
    }

    POINT PixelOf(int nSet, int nPoint) const
    {
        return ::PixelOf(m_Area, *m_pRange, nPoint, ValueAt(nSet, nPoint));
    }

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() && m_Graph.Count() == kSets;
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
    RECT         m_Area = {};  // of the plot

private:
    void Put(int nId, int nValue)
    {
        SendMessageA(m_Graph.Field(nId), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(std::to_string(nValue).c_str()));
    }

    std::unique_ptr<cSeenRange> m_pRange;
};

}  // namespace

// The seven by seven pixels around a point, with '#' for ink.
static std::string Around(const cPicture &Picture, POINT At)
{
    std::string Rows;
    for (int y = At.y - 3; y <= At.y + 3; y++)
    {
        for (int x = At.x - 3; x <= At.x + 3; x++)
            Rows += Picture.At(x, y) == kPaper ? '.' : '#';
        Rows += '\n';
    }
    return Rows;
}

// The lengths of strokes and gaps along the level part after the third point of a
// set, without the first and the last, which may be cut off: "18 6 18 6 ".
static std::string StrokesOf(const cLooksRig &Rig, const cPicture &Picture, int nSet)
{
    const POINT      From = Rig.PixelOf(nSet, 2);
    const POINT      To   = Rig.PixelOf(nSet, 3);
    std::vector<int> Lengths;
    for (int x = From.x; x < To.x; x++)
    {
        const int bInk    = Picture.At(x, From.y) != kPaper;
        const int bFormer = x > From.x && Picture.At(x - 1, From.y) != kPaper;
        if (x == From.x || bInk != bFormer)
            Lengths.push_back(0);
        Lengths.back()++;
    }
    if (Lengths.size() == 1)
        return "solid";
    std::string Text;
    for (size_t i = 1; i + 1 < Lengths.size(); i++)
        Text += std::to_string(Lengths[i]) + " ";
    return Text;
}

// The number of rows with ink in the middle of that part.
static int ThicknessOf(const cLooksRig &Rig, const cPicture &Picture, int nSet)
{
    const POINT From = Rig.PixelOf(nSet, 2);
    const int   x    = (From.x + Rig.PixelOf(nSet, 3).x) / 2;
    int         nInk = 0;
    for (int y = From.y - 5; y <= From.y + 5; y++)
        nInk += Picture.At(x, y) != kPaper;
    return nInk;
}

// The number of ticks with a grid line, near the right edge of the plot, where there
// are no data lines.
static int CountGridLines(const cPicture &Picture, const RECT &Area, int nTicks)
{
    const int nX     = Area.right - 20;
    int       nLines = 0;
    for (int nTick = 0; nTick < nTicks; nTick++)
    {
        const int nY = Area.top + lround(nTick * (Area.bottom - Area.top) / (nTicks - 1.0));
        nLines += Picture.At(nX, nY) == kAxisColour && Picture.At(nX, nY - 4) == kPaper;
    }
    return nLines;
}

// Where Expected has a '*', the platform may draw a pixel or not.
static int IsLike(const std::string &Picture, const std::string &Expected)
{
    return std::equal(Picture.begin(), Picture.end(), Expected.begin(), Expected.end(),
                      [](char c, char cExpected) { return cExpected == '*' || c == cExpected; });
}

static const char *const kMarkers[kStyles] = {
    ".......\n...#...\n..*#*..\n..###..\n.*###*.\n.#####.\n.......\n",
    ".......\n.#####.\n.#####.\n.#####.\n.#####.\n.#####.\n.......\n",
    ".......\n...#...\n..###..\n.#####.\n..###..\n...#...\n.......\n",
    "..###..\n..###..\n..###..\n..###..\n..###..\n..###..\n..###..\n",
    ".......\n.......\n#######\n#######\n#######\n.......\n.......\n",
};

// Each style of the three types of line has its own pattern; "Scatter" has markers.
static void CheckStylesOf(const cLooksRig &Rig, const cPicture &Styles, int nType)
{
    CAPTURE(nType);
    std::set<std::string> Patterns;
    for (int nStyle = 0; nStyle < kStyles; nStyle++)
    {
        CAPTURE(nStyle);
        const int nSet = nType * kStyles + nStyle;
        if (nType == kScatter)
            for (int nPoint = 1; nPoint < kPoints - 1; nPoint++)
                CHECK(IsLike(Around(Styles, Rig.PixelOf(nSet, nPoint)), kMarkers[nStyle]));
        else
        {
            const std::string Strokes = StrokesOf(Rig, Styles, nSet);
            CHECK((Strokes == "solid") == (nStyle == 0));
            Patterns.insert(Strokes);
        }
    }
    CHECK(Patterns.size() == (nType == kScatter ? 0 : kStyles));
}

TEST_CASE("each graph type has its styles, and a scatter plot its markers")
{
    cLooksRig &Rig = Shared<cLooksRig>();
    Rig.FormatAll([](int nSet) { return nSet % kStyles; }, [](int) { return 1; });
    Rig.m_Graph.Photograph().Save("graph-styles");
    const cPicture Styles = Rig.m_Graph.PhotographPlot();
    for (int nType = 0; nType < kTypes; nType++)
        CheckStylesOf(Rig, Styles, nType);
}

TEST_CASE("lines have their widths and are solid when wide, and markers ignore the width")
{
    cLooksRig &Rig = Shared<cLooksRig>();
    Rig.FormatAll([](int nSet) { return nSet % 4; }, [](int nSet) { return nSet % 4 + 1; });
    Rig.m_Graph.Photograph().Save("graph-widths");
    const cPicture Widths = Rig.m_Graph.PhotographPlot();
    for (int nSet = 0; nSet < kSets; nSet++)
    {
        CAPTURE(nSet);
        if (nSet / kStyles == kScatter)
            CHECK(IsLike(Around(Widths, Rig.PixelOf(nSet, 2)), kMarkers[nSet % 4]));
        else
        {
            CHECK(ThicknessOf(Rig, Widths, nSet) == nSet % 4 + 1);
            CHECK(StrokesOf(Rig, Widths, nSet) == "solid");
        }
    }
}

TEST_CASE("grid and legend are shown with and without each other")
{
    cLooksRig     &Rig    = Shared<cLooksRig>();
    const cPicture Before = Rig.m_Graph.PhotographPlot();
    // The lowest line of the grid lies on the axis.
    const int nTicks = static_cast<int>(cSeenRange(&Rig.m_Calculator, &Rig.m_Graph).m_nVertTicks);
    CHECK(CountGridLines(Before, Rig.m_Area, nTicks) == 1);
    Rig.m_Graph.Choose(gmView, IDM_GRID);
    CHECK(CountGridLines(Rig.m_Graph.PhotographPlot(), Rig.m_Area, nTicks) == nTicks);
    Rig.m_Graph.Photograph().Save("graph-grid-legend");
    Rig.m_Graph.Choose(gmView, IDM_LEGEND);
    Rig.m_Graph.Photograph().Save("graph-grid-only");
    Rig.m_Graph.Choose(gmView, IDM_GRID);
    Rig.m_Graph.Photograph().Save("graph-neither");
    CHECK(Rig.LookForArea().bottom > Rig.m_Area.bottom);
    Rig.m_Graph.Choose(gmView, IDM_LEGEND);
    CHECK(CountDifferences(Before, Rig.m_Graph.PhotographPlot()) == 0);
}
