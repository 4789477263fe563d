#include "tests/window/plot_reader.h"

#include <cmath>
#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/waiting.h"

static const unsigned kBlack = 0x000000;
static const unsigned kWhite = 0xFFFFFF;

// The line, of nLines, with the most black pixels. A data line may cover a part of an
// axis.
template <class cLook> static int BlackestLine(int nLines, int nLength, cLook At)
{
    int nBlackest = 0;
    int nMost     = 0;
    for (int nLine = 0; nLine < nLines; nLine++)
    {
        int nBlack = 0;
        for (int i = 0; i < nLength; i++)
            nBlack += At(nLine, i) == kBlack;
        if (nBlack > nMost)
        {
            nBlackest = nLine;
            nMost     = nBlack;
        }
    }
    REQUIRE(nMost > 0);
    return nBlackest;
}

// Each tick extends two pixels to both sides of its axis; inside the plot a data line
// may cover it.
cSeenPlot::cSeenPlot(const cPicture &Picture) : m_Rect(), m_nHorzTicks(0), m_nVertTicks(0)
{
    const int nWidth  = Picture.Width();
    const int nHeight = Picture.Height();
    const int nLeft = BlackestLine(nWidth, nHeight, [&](int x, int y) { return Picture.At(x, y); });
    const int nBottom =
        BlackestLine(nHeight, nWidth, [&](int y, int x) { return Picture.At(x, y); });

    const auto IsMarked = [&](int y) {
        return Picture.At(nLeft - 1, y) == kBlack && Picture.At(nLeft - 2, y) == kBlack &&
               (Picture.At(nLeft + 1, y) == kBlack || Picture.At(nLeft + 2, y) == kBlack);
    };
    int nTop = 0;
    while (nTop < nBottom && !IsMarked(nTop))
        nTop++;
    for (int y = nTop; y <= nBottom; y++)
        m_nVertTicks += IsMarked(y);

    int nRight = nLeft;
    while (nRight + 1 < nWidth && Picture.At(nRight + 1, nBottom) == kBlack)
        nRight++;
    for (int x = nLeft; x <= nRight; x++)
        m_nHorzTicks +=
            Picture.At(x, nBottom + 1) == kBlack && Picture.At(x, nBottom + 2) == kBlack;
    m_Rect = {nLeft, nTop, nRight, nBottom};
}

cSeenRange::cSeenRange(cCalculator *pCalculator, cGraphWindow *pGraph)
{
    PostMessageA(pGraph->Window(), WM_COMMAND, IDM_REFORMAT_PLOT, 0);
    const HWND hDialog = pCalculator->Dialog();
    REQUIRE(pGraph->Caption() == "Reformat Plot");
    const auto Number = [&](int nId) { return strtod(pGraph->Text(nId).c_str(), nullptr); };
    m_nHorzTicks      = static_cast<unsigned>(Number(IDC_HORZ_TICKS));
    m_nVertTicks      = static_cast<unsigned>(Number(IDC_VERT_TICKS));
    m_dXMin           = Number(IDC_HORZ_MIN);
    m_dXMax           = Number(IDC_HORZ_MAX);
    m_dYMin           = Number(IDC_VERT_MIN);
    m_dYMax           = Number(IDC_VERT_MAX);
    PostMessageA(hDialog, WM_COMMAND, IDCANCEL, 0);
    REQUIRE(WaitFor([=] { return !IsWindow(hDialog); }));
}

POINT PixelOf(const RECT &Plot, const cSeenRange &Range, double dX, double dY)
{
    const double dHorz = (Plot.right - Plot.left - 1) / (Range.m_dXMax - Range.m_dXMin);
    const double dVert = (Plot.bottom - Plot.top) / (Range.m_dYMax - Range.m_dYMin);
    return {Plot.left + lround((dX - Range.m_dXMin) * dHorz),
            Plot.top + lround((Range.m_dYMax - dY) * dVert)};
}

int CountInk(const cPicture &Picture)
{
    int nInk = 0;
    for (int y = 0; y < Picture.Height(); y++)
        for (int x = 0; x < Picture.Width(); x++)
            nInk += Picture.At(x, y) != kWhite;
    return nInk;
}

int CountDifferences(const cPicture &a, const cPicture &b)
{
    int nDifferent = 0;
    for (int y = 0; y < a.Height(); y++)
        for (int x = 0; x < a.Width(); x++)
            nDifferent += a.At(x, y) != b.At(x, y);
    return nDifferent;
}
