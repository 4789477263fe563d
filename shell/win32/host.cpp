// host.cpp - what the engine and the graph ask of the window.

#include "shell/win32/vorstek.h"

#include <cstdio>

#include "engine/display.h"
#include "graph/vantor_data_set.h"
#include "resources/resource.h"
#include "shell/face_geometry.h"
#include "shell/win32/sounds.h"
#include "toolkit/win32/file_dialogs.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/menu_items.h"

static const COLORREF kLit   = RGB(255, 0, 0);
static const COLORREF kUnlit = RGB(0, 0, 0);

// How often a run checks for messages: often enough for a key to halt it at once
// and for some sixty views a second.
static const DWORD kDrainPeriod = 15;  // milliseconds

// How many lines pass between two looks at the clock. A line takes some
// nanoseconds, one with y^x up to a microsecond; those that draw are always
// followed by a look. A prime number, so that a loop is not seen at the same line
// each time: its display would seem to stand still.
static const unsigned kLinesPerLook = 997;

// The boxes take up to a quarter of a run's time. Where they need longer than the
// display, as rich text does, they are brought up to date less often.
static const DWORD kBoxesShare = 4;

void cVorstek::StartSound(unsigned nId)
{
    PlayProgramSound(nId);
}

// For a font that could not be created the platform uses another one. A run may
// outlive the window for a moment; without a window the texts would be drawn on
// the screen.
void cVorstek::DrawDisplay(const cDisplay &Display)
{
    if (!m_hWnd || !m_bFonts)
        return;
    const int       nLeft = GetSystemMetrics(SM_CXEDGE);
    const int       nTop  = GetSystemMetrics(SM_CYEDGE) - m_nFaceOffset + HeightOf(m_ToolBar);
    const cWindowDc Dc(m_hWnd);
    SetTextColor(Dc.Get(), kLit);
    SetBkColor(Dc.Get(), kUnlit);
    SetBkMode(Dc.Get(), OPAQUE);
    for (int i = 0; i < Display.m_nLines; i++)
    {
        const cDisplayLine &Line = Display.m_Lines[i];
        const cGdiFont     &Font = Line.m_nFont == dfLarge ? m_hLargeFont : m_hSmallFont;
        const cSelectGuard  Selected(Dc.Get(), Font.Get());
        TextOutA(Dc.Get(), nLeft + m_Scale.Length(Line.m_nLeft), nTop + m_Scale.Length(Line.m_nTop),
                 Line.m_szText, lstrlenA(Line.m_szText));
    }
}

// Deliberately offset by the border metrics, unlike the texts: this decides what a
// longer layout leaves visible.
void cVorstek::BlankDisplay()
{
    if (!m_hWnd)
        return;
    const cFaceRect Blanked = ScaledRect(kBlankedRect, m_Scale);
    const int       nLeft   = GetSystemMetrics(SM_CXBORDER) + Blanked.m_nLeft;
    const int       nTop =
        GetSystemMetrics(SM_CYBORDER) - m_nFaceOffset + HeightOf(m_ToolBar) + Blanked.m_nTop;
    const RECT      Field = {nLeft, nTop, nLeft + Blanked.m_nWidth, nTop + Blanked.m_nHeight};
    const cWindowDc Dc(m_hWnd);
    FillRect(Dc.Get(), &Field, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

eAnswer cVorstek::Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon)
{
    if (IsRunning())
        RefreshViews();
    return cWindowHost::Ask(szText, szCaption, nButtons, nIcon);
}

void cVorstek::ReportUnowned(const char *szText, const char *szCaption)
{
    if (IsRunning())
        RefreshViews();
    cWindowHost::ReportUnowned(szText, szCaption);
}

unsigned cVorstek::DrainMessages(unsigned)
{
    return DrainEvery(kDrainPeriod) ? kLinesPerLook : 0;
}

int cVorstek::DrainEvery(DWORD dwPeriod)
{
    const DWORD dwNow = GetTickCount();
    if (dwNow - m_dwLastDrain < dwPeriod)
        return 1;
    if (dwNow - m_dwLastRefresh < kBoxesShare * m_dwRefreshTime)
        PaintDisplay();
    else
    {
        RefreshViews();
        m_dwLastRefresh = dwNow;
        m_dwRefreshTime = GetTickCount() - dwNow;
    }
    const int bContinues = DispatchWaiting();
    m_dwLastDrain        = GetTickCount();
    return bContinues;
}

// Paints need no views that are up to date, input does: it may open a menu, beside
// which the views stand still. Posts a quit message again, for the main loop.
int cVorstek::DispatchWaiting()
{
    MSG Message;
    while (IsRunning() && PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE))
    {
        if (Message.message == WM_QUIT)
        {
            PostQuit(static_cast<int>(Message.wParam));
            return 0;
        }
        if (Message.message != WM_PAINT)
            RefreshViews();
        g_pApplication->Dispatch(&Message);
    }
    return 1;
}

void cVorstek::Pause(unsigned nMilliseconds)
{
    Sleep(nMilliseconds);
}

int cVorstek::AskFileName(eFileDialog nDialog, char *szName, size_t nSize)
{
    char szPath[kFileName];
    snprintf(szPath, sizeof szPath, "%s", szName);
    if (!::AskFileName(nDialog == fdOpen ? fnOpen : fnSave, "Text Files (*.TXT)\0*.TXT\0", nullptr,
                       "txt", m_pBoxes, szPath))
        return 0;
    snprintf(szName, nSize, "%s", szPath);
    return 1;
}

void cVorstek::SetStatusText(const char *szText)
{
    m_StatusBar.SetText(0, "%s", szText);
}

// The "Repair Highlight" button is drawn dithered when disabled, the others grey.
void cVorstek::EnableCommand(unsigned nId, int bEnable)
{
    const int nDisabled = nId == IDM_REPAIR_HIGHLIGHT ? TBSTATE_INDETERMINATE : 0;
    EnableItem(GetMenu(m_hWnd), nId, bEnable);
    SendMessageA(m_ToolBar.Window(), TB_SETSTATE, nId, bEnable ? TBSTATE_ENABLED : nDisabled);
}

void cVorstek::ShowListing(int bShow)
{
    ShowBox(&m_ListingBox, bShow);
}

void cVorstek::ShowRegisters(int bShow)
{
    ShowBox(&m_RegistersBox, bShow);
}

void cVorstek::ShowGraph()
{
    m_Graph.ShowInactive();
    CheckGraph(1);
}

void cVorstek::CheckGraph(int bShown)
{
    CheckItem(GetMenu(m_hWnd), IDM_GRAPH, bShown);
}

// Paints what a program has drawn before clearing it; a later repaint would show
// an empty plot. The messages handled meanwhile may close the window, and the
// graph with it.
void cVorstek::ClearGraph()
{
    if (IsInRun() && !DrainEvery(kDrainPeriod / 2))
        HaltProgram();
    if (m_hWnd)
        m_Graph.ClearAll();
}

unsigned cVorstek::CountDataSets()
{
    return m_Graph.Count();
}

int cVorstek::AddGraphPoint(unsigned nLine, double dX, double dY)
{
    return m_Graph.AddPoint(nLine, NarrowToFloat(dX), NarrowToFloat(dY));
}

int cVorstek::IsDrawing() const
{
    return IsRunning();
}

void cVorstek::OnGraphHidden()
{
    CheckGraph(0);
}

void cVorstek::UseAccelerators(HWND hWnd, HACCEL hTable)
{
    g_pApplication->SetAccelerators(hWnd, hTable);
}

// A leftover from the time when the status bar showed the position.
LRESULT cVorstek::OnMouseMove(WPARAM, LPARAM lParam)
{
    char szPosition[32];
    snprintf(szPosition, sizeof szPosition, "x,y = %4d,%4d", LOWORD(lParam), HIWORD(lParam));
    return 0;
}
