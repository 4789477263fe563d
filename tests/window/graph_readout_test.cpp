// The readout of points in the graph's window, compared with a search for the
// nearest point by the test itself.

#include "tests/window/graph_window.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/plot_reader.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"
#include "toolkit/win32/gdi.h"

static const int kReach     = 6;  // of the cross-hair
static const int kPositions = 9;  // of the mouse, along each axis

static const unsigned kReadoutColour = 0xFFFFFF;

namespace
{

struct cPointOfSet
{
    int    m_nSet;  // from 0
    double m_dX;
    double m_dY;        // as stored
    double m_dPlotted;  // by multiplier and offset
};

}  // namespace

// x and three columns: the second, scaled, coincides with the first, the third
// meets both, and the last two rows are equal.
static const double kReadings[][4] = {
    {0, 1, 9, 4},   {1, 2.5, 7.5, 4},   {2, 4, 6, 4},    {3, 5, 5, 5},     {4, 6, 4, 6},
    {5, 7.5, 2, 7}, {6.5, 9, 1, 1.125}, {8, 3, 7, -2.5}, {9.75, 0, 10, 3}, {9.75, 0, 10, 3},
};
static const double kMultiplier = -1.0;
static const double kOffset     = 10.0;

namespace
{

enum eTitle
{
    tiNone,
    tiGiven
};

}  // namespace

static std::string DataFile(eTitle nTitle)
{
    std::string Text = nTitle == tiGiven ? "ExplicitX\nTitle \"Three\"\n" : "ExplicitX\n";
    for (const auto &Row : kReadings)
    {
        char szLine[100];
        snprintf(szLine, sizeof szLine, "%g,%g,%g,%g\n", Row[0], Row[1], Row[2], Row[3]);
        Text += szLine;
    }
    return Text;
}

// All points, set by set; the second set is scaled.
static std::vector<cPointOfSet> Points()
{
    std::vector<cPointOfSet> All;
    for (int nSet = 0; nSet < 3; nSet++)
        for (const auto &Row : kReadings)
        {
            const double y = Row[nSet + 1];
            All.push_back({nSet, Row[0], y, nSet == 1 ? kMultiplier * y + kOffset : y});
        }
    return All;
}

// The strip of the title with this text.
static cPicture TitleStrip(int nWidth, int nHeight, const std::string &Text)
{
    return cPicture::Drawn(nWidth, nHeight, [&](HDC hDc) {
        const RECT         Whole = {0, 0, nWidth, nHeight};
        const cSelectGuard Font(hDc, GetStockObject(SYSTEM_FONT));
        FillRect(hDc, &Whole, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        SetTextAlign(hDc, TA_TOP | TA_CENTER);
        TextOutA(hDc, nWidth / 2, 0, Text.c_str(), static_cast<int>(Text.size()));
    });
}

static int TextHeight()
{
    const cWindowDc    Screen(nullptr);
    const cSelectGuard Font(Screen.Get(), GetStockObject(SYSTEM_FONT));
    TEXTMETRICA        Metrics = {};
    GetTextMetricsA(Screen.Get(), &Metrics);
    return Metrics.tmHeight + Metrics.tmExternalLeading;
}

static int TextWidth(const std::string &Text)
{
    const cWindowDc    Screen(nullptr);
    const cSelectGuard Font(Screen.Get(), GetStockObject(SYSTEM_FONT));
    SIZE               Size = {};
    GetTextExtentPoint32A(Screen.Get(), Text.c_str(), static_cast<int>(Text.size()), &Size);
    return Size.cx;
}

// Whether the cross-hair at At inverts the pixel (x, y). Where its two lines meet,
// it inverts the pixel twice.
static int IsInverted(POINT At, int x, int y)
{
    const int bHorz = y == At.y && abs(x - At.x) <= kReach;
    const int bVert = x == At.x && abs(y - At.y) <= kReach;
    return bHorz != bVert;
}

namespace
{

class cReadoutRig
{
public:
    explicit cReadoutRig(eTitle nTitle);

    // Waits for the readout of the point nearest to the mouse, with nothing else
    // changed; 0 if it does not appear.
    int ShowsNearest(POINT Mouse) const;

    // Waits until there is no readout; 0 if one stays.
    int ShowsNothing() const
    {
        return WaitFor([&] { return CountDifferences(PlotOnly(), m_Before) == 0; });
    }

    void MoveTo(POINT Mouse)
    {
        MoveMouse(m_Graph.OnPlot(Mouse.x, Mouse.y));
        m_Calculator.Settle();
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
    RECT         m_Area = {};  // of the plot

private:
    cPointOfSet NearestTo(POINT Mouse) const;
    POINT       PixelOf(const cPointOfSet &Point) const
    {
        return ::PixelOf(m_Area, *m_pRange, Point.m_dX, Point.m_dPlotted);
    }

    // Without the legend, which keeps its selection after a readout.
    cPicture PlotOnly() const
    {
        const POINT At = m_Graph.OnPlot(0, 0);
        return cPicture::OfScreen({At.x, At.y, At.x + m_nWidth, At.y + m_nHeight});
    }
    unsigned Without(int x, int y, const cPicture &Strip, int nTextWidth) const;
    int      Shows(const cPicture &Seen, const std::string &Text, POINT At) const;

    eTitle                      m_nTitle;
    int                         m_nWidth      = 0;
    int                         m_nHeight     = 0;  // above the legend
    int                         m_nTextHeight = 0;
    std::unique_ptr<cSeenRange> m_pRange;
    cPicture                    m_Before;
};

}  // namespace

cReadoutRig::cReadoutRig(eTitle nTitle)
    : m_Graph(&m_Calculator), m_nTitle(nTitle), m_nTextHeight(TextHeight()),
      m_Before(cPicture::OfScreen({0, 0, 1, 1}))
{
    m_Graph.Open("three.txt", DataFile(nTitle));
    REQUIRE(m_Graph.Count() == 3);
    PostMessageA(m_Graph.Window(), WM_COMMAND, IDM_REFORMAT_LINE, 0);
    REQUIRE(m_Calculator.Dialog());
    m_Graph.Fill(IDC_FORMATTED_LINE, "2");
    m_Graph.Fill(IDC_MULTIPLIER, "-1");
    m_Graph.Fill(IDC_OFFSET, "10");
    m_Calculator.Click("OK");

    const cPicture Whole = m_Graph.PhotographPlot();
    Whole.Save("graph-readout-before");
    m_nWidth  = Whole.Width();
    m_nHeight = RectIn(m_Graph.Plot(), m_Graph.Legend()).top;
    m_Area    = cSeenPlot(Whole).m_Rect;
    m_pRange  = std::make_unique<cSeenRange>(&m_Calculator, &m_Graph);
    m_Graph.PhotographPlot();
    m_Before = PlotOnly();
}

// Of several at the same distance the last one.
cPointOfSet cReadoutRig::NearestTo(POINT Mouse) const
{
    cPointOfSet Nearest   = {};
    LONG        nDistance = LONG_MAX;
    for (const cPointOfSet &Point : Points())
    {
        const POINT At   = PixelOf(Point);
        const LONG  nFar = labs(At.x - Mouse.x) + labs(At.y - Mouse.y);
        if (nFar <= nDistance)
        {
            Nearest   = Point;
            nDistance = nFar;
        }
    }
    return Nearest;
}

// The colour of a pixel without the cross-hair. The text replaces the title; without
// a title it covers the plot.
unsigned cReadoutRig::Without(int x, int y, const cPicture &Strip, int nTextWidth) const
{
    const int nLeft   = m_nWidth / 2 - nTextWidth / 2;
    const int bOnText = x >= nLeft && x < nLeft + nTextWidth;
    if (y < m_nTextHeight && (m_nTitle == tiGiven || bOnText))
        return Strip.At(x, y);
    return m_Before.At(x, y);
}

// Whether only the text and the cross-hair have changed.
int cReadoutRig::Shows(const cPicture &Seen, const std::string &Text, POINT At) const
{
    const cPicture Strip      = TitleStrip(m_nWidth, m_nTextHeight, Text);
    const int      nTextWidth = TextWidth(Text);
    for (int y = 0; y < m_nHeight; y++)
        for (int x = 0; x < m_nWidth; x++)
        {
            const int bInPlot =
                x >= m_Area.left && x < m_Area.right && y >= m_Area.top && y < m_Area.bottom;
            const unsigned nInvert = bInPlot && IsInverted(At, x, y) ? kReadoutColour : 0;
            if (Seen.At(x, y) != (Without(x, y, Strip, nTextWidth) ^ nInvert))
                return 0;
        }
    return 1;
}

int cReadoutRig::ShowsNearest(POINT Mouse) const
{
    const cPointOfSet Nearest = NearestTo(Mouse);
    char              szText[64];
    snprintf(szText, sizeof szText, "x,y = %.6g, %.6g", Nearest.m_dX, Nearest.m_dY);
    const POINT At    = PixelOf(Nearest);
    const int   bSeen = WaitFor([&] { return Shows(PlotOnly(), szText, At); });
    if (!bSeen)
    {
        MESSAGE("expected ", szText, " at ", At.x, ",", At.y);
        PlotOnly().Save("failed-readout");
    }
    return bSeen && m_Graph.SelectedRow() == Nearest.m_nSet;
}

TEST_CASE("the nearest point is read out in each corner of the plot, but not beside it")
{
    cReadoutRig Rig(tiGiven);
    const RECT &Area   = Rig.m_Area;
    const LONG  nRight = Area.right - 1;
    const LONG  nLower = Area.bottom - 1;

    // Left and top edge belong to the plot, right and bottom edge do not.
    for (const POINT Corner :
         {POINT{Area.left, Area.top}, {nRight, Area.top}, {Area.left, nLower}, {nRight, nLower}})
    {
        Rig.MoveTo(Corner);
        PressMouse();
        CHECK(Rig.ShowsNearest(Corner));
        ReleaseMouse();
        CHECK(Rig.ShowsNothing());
    }
    for (const POINT Beside : {POINT{Area.left - 1, Area.top + 20},
                               {Area.left + 20, Area.top - 1},
                               {Area.right, Area.top + 20},
                               {Area.left + 20, Area.bottom}})
    {
        Rig.MoveTo(Beside);
        PressMouse();
        Rig.m_Calculator.Settle();
        CHECK(Rig.ShowsNothing());
        ReleaseMouse();
    }
}

TEST_CASE("while the button is held the readout follows the mouse, also outside the plot")
{
    cReadoutRig Rig(tiGiven);
    const RECT &Area   = Rig.m_Area;
    const LONG  nRight = Area.right - 1;
    const LONG  nLower = Area.bottom - 1;
    // Closer together towards the upper left corner.
    const auto Share = [](int n) { return (exp2(n) - 1) / (exp2(kPositions - 1) - 1); };
    Rig.MoveTo({Area.left, Area.top});
    PressMouse();
    for (int i = 0; i < kPositions; i++)
        for (int j = 0; j < kPositions; j++)
        {
            const POINT Mouse = {Area.left + lround(Share(i) * (nRight - Area.left)),
                                 Area.top + lround(Share(j) * (nLower - Area.top))};
            CAPTURE(Mouse.x);
            CAPTURE(Mouse.y);
            Rig.MoveTo(Mouse);
            REQUIRE(Rig.ShowsNearest(Mouse));
        }
    Rig.m_Graph.Photograph().Save("graph-readout-three");

    for (const POINT Outside : {POINT{2, Area.top + 40}, {Area.right + 5, 2}, {90, -30}})
    {
        Rig.MoveTo(Outside);
        CHECK(Rig.ShowsNearest(Outside));
    }
    ReleaseMouse();
    CHECK(Rig.ShowsNothing());
}

TEST_CASE("without a title the readout has the same position, over the plot, and disappears again")
{
    cReadoutRig Rig(tiNone);
    const LONG  nMiddle = (Rig.m_Area.left + Rig.m_Area.right) / 2;
    CHECK(Rig.m_Area.top < TextHeight());
    for (const LONG y : {Rig.m_Area.top, Rig.m_Area.bottom - 1})
    {
        Rig.MoveTo({nMiddle, y});
        PressMouse();
        CHECK(Rig.ShowsNearest({nMiddle, y}));
        if (y == Rig.m_Area.top)
            Rig.m_Graph.Photograph().Save("graph-readout-untitled");
        ReleaseMouse();
        CHECK(Rig.ShowsNothing());
    }
}
