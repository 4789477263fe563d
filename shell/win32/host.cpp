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

// The rectangle that the text of a line covers, its background included.
RECT cVorstek::LineRect(const cDisplayLine &Line, POINT Face) const
{
    const cWindowDc    Screen(nullptr);
    const cSelectGuard Selected(Screen.Get(), LineFont(Line));
    SIZE               Size = {};
    GetTextExtentPoint32A(Screen.Get(), Line.m_szText, lstrlenA(Line.m_szText), &Size);
    const LONG nLeft = Face.x + m_Scale.Length(Line.m_nLeft);
    const LONG nTop  = Face.y + m_Scale.Length(Line.m_nTop);
    return {nLeft, nTop, nLeft + Size.cx, nTop + Size.cy};
}

HFONT cVorstek::LineFont(const cDisplayLine &Line) const
{
    return Line.m_nFont == dfLarge ? m_hLargeFont.Get() : m_hSmallFont.Get();
}

// For a font that could not be created the platform uses another one.
void cVorstek::DrawLines(HDC hDc, const cDisplay &Display, POINT Face) const
{
    SetTextColor(hDc, kLit);
    SetBkColor(hDc, kUnlit);
    SetBkMode(hDc, OPAQUE);
    for (int i = 0; i < Display.m_nLines; i++)
    {
        const cDisplayLine &Line = Display.m_Lines[i];
        const cSelectGuard  Selected(hDc, LineFont(Line));
        TextOutA(hDc, Face.x + m_Scale.Length(Line.m_nLeft), Face.y + m_Scale.Length(Line.m_nTop),
                 Line.m_szText, lstrlenA(Line.m_szText));
    }
}

static void FillBlack(HDC hDc, const RECT &Rect)
{
    FillRect(hDc, &Rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

static void CopyRect(HDC hTo, HDC hFrom, const RECT &Rect)
{
    BitBlt(hTo, Rect.left, Rect.top, Rect.right - Rect.left, Rect.bottom - Rect.top, hFrom,
           Rect.left, Rect.top, SRCCOPY);
}

// Draws in memory first: a text that changes many times a second must not be seen half
// drawn, nor the display without its text. What is around the texts stays.
void cVorstek::ShowLines(const cDisplay &Display, POINT Face) const
{
    RECT Lines[kDisplayLines];
    RECT All = m_bBlanked ? BlankedRect(Face) : RECT{};
    for (int i = 0; i < Display.m_nLines; i++)
    {
        Lines[i] = LineRect(Display.m_Lines[i], Face);
        UnionRect(&All, &All, &Lines[i]);
    }

    const cWindowDc  Dc(m_hWnd);
    const cMemoryDc  Memory(Dc.Get());
    const cGdiBitmap Bitmap(
        CreateCompatibleBitmap(Dc.Get(), All.right - All.left, All.bottom - All.top));
    const cSelectGuard Selected(Memory.Get(), Bitmap.Get());
    SetViewportOrgEx(Memory.Get(), -All.left, -All.top, nullptr);
    FillBlack(Memory.Get(), All);
    DrawLines(Memory.Get(), Display, Face);
    if (m_bBlanked)
        CopyRect(Dc.Get(), Memory.Get(), BlankedRect(Face));
    for (int i = 0; i < Display.m_nLines; i++)
        CopyRect(Dc.Get(), Memory.Get(), Lines[i]);
}

// A run may outlive the window for a moment; without a window the texts would be drawn
// on the screen. While the face is painted, the texts go into its memory as well: only
// a part of them may be painted with it.
void cVorstek::DrawDisplay(const cDisplay &Display)
{
    if (!m_hWnd || !m_bFonts)
        return;
    m_Accessibility.SetDisplay(Display, !IsRunning());
    const POINT OnKeypad = {0, -m_nFaceOffset};
    const POINT OnWindow = {GetSystemMetrics(SM_CXEDGE),
                            GetSystemMetrics(SM_CYEDGE) - m_nFaceOffset + HeightOf(m_ToolBar)};
    if (m_hDisplayDc && m_bBlanked)
        FillBlack(m_hDisplayDc, BlankedRect(OnKeypad));
    if (m_hDisplayDc)
        DrawLines(m_hDisplayDc, Display, OnKeypad);
    ShowLines(Display, OnWindow);
    m_Keypad.Lamps().Show(m_Keypad.Window(), Display.m_nLamps);
    m_bBlanked = 0;
}

// Deliberately offset by the border metrics, unlike the texts: this decides what a
// longer layout leaves visible. Face is the origin of the texts.
RECT cVorstek::BlankedRect(POINT Face) const
{
    const cFaceRect Blanked = ScaledRect(kBlankedRect, m_Scale);
    const LONG      nLeft =
        Face.x - GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXBORDER) + Blanked.m_nLeft;
    const LONG nTop =
        Face.y - GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CYBORDER) + Blanked.m_nTop;
    return {nLeft, nTop, nLeft + Blanked.m_nWidth, nTop + Blanked.m_nHeight};
}

// The engine always draws another layout afterwards.
void cVorstek::BlankDisplay()
{
    m_bBlanked = 1;
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
