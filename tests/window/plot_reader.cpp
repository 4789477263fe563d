#include "tests/window/plot_reader.h"

#include <cmath>
#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/waiting.h"

static const unsigned kBlack = 0x000000;
static const unsigned kWhite = 0xFFFFFF;

// The longest run of black pixels in one line of nLength: where it begins and
// how long it is.
struct cRun
{
    int m_nFirst  = 0;
    int m_nLength = 0;
};

template <class cLook> static cRun LongestRun(int nLength, cLook At)
{
    cRun Longest;
    int  nRun = 0;
    for (int i = 0; i < nLength; i++)
    {
        nRun = At(i) == kBlack ? nRun + 1 : 0;
        if (nRun > Longest.m_nLength)
            Longest = {i - nRun + 1, nRun};
    }
    return Longest;
}

cSeenPlot::cSeenPlot(const cPicture &Picture) : m_Rect(), m_nHorzTicks(0), m_nVertTicks(0)
{
    cRun Axis;
    for (int x = 0; x < Picture.Width(); x++)
    {
        const cRun Run = LongestRun(Picture.Height(), [&](int y) { return Picture.At(x, y); });
        if (Run.m_nLength > Axis.m_nLength)
        {
            Axis        = Run;
            m_Rect.left = x;
            m_Rect.top  = Run.m_nFirst;
        }
    }
    Axis = {};
    for (int y = 0; y < Picture.Height(); y++)
    {
        const cRun Run = LongestRun(Picture.Width(), [&](int x) { return Picture.At(x, y); });
        if (Run.m_nLength > Axis.m_nLength)
        {
            Axis          = Run;
            m_Rect.bottom = y;
            m_Rect.right  = Run.m_nFirst + Run.m_nLength - 1;
        }
    }
    REQUIRE(Axis.m_nLength > 0);
    // Each mark reaches two pixels to both sides of its axis.
    for (int y = m_Rect.top; y <= m_Rect.bottom; y++)
        m_nVertTicks += Picture.At(m_Rect.left - 1, y) == kBlack &&
                        Picture.At(m_Rect.left - 2, y) == kBlack &&
                        (y == m_Rect.bottom || Picture.At(m_Rect.left + 2, y) == kBlack);
    for (int x = m_Rect.left; x <= m_Rect.right; x++)
        m_nHorzTicks += Picture.At(x, m_Rect.bottom + 1) == kBlack &&
                        Picture.At(x, m_Rect.bottom + 2) == kBlack;
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

POINT PixelOf(const cSeenPlot &Plot, const cSeenRange &Range, double dX, double dY)
{
    const RECT  &Rect  = Plot.m_Rect;
    const double dHorz = (Rect.right - Rect.left - 1) / (Range.m_dXMax - Range.m_dXMin);
    const double dVert = (Rect.bottom - Rect.top) / (Range.m_dYMax - Range.m_dYMin);
    return {Rect.left + lround((dX - Range.m_dXMin) * dHorz),
            Rect.top + lround((Range.m_dYMax - dY) * dVert)};
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
