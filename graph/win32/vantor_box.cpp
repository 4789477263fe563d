#include "graph/win32/vantor_box.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "graph/plot_renderer.h"
#include "graph/plot_vertices.h"
#include "graph/win32/gdi_canvas.h"
#include "resources/resource.h"
#include "toolkit/win32/menu_items.h"
#include "toolkit/win32/screen.h"

// clang-format off
const cVantorBox::cMessageRow cVantorBox::s_Messages[] =
{
    { WM_SIZE,           &cVantorBox::OnSize            },
    { WM_ERASEBKGND,     &cVantorBox::OnEraseBackground },
    { WM_PAINT,          &cVantorBox::OnPaint           },
    { WM_SETCURSOR,      &cVantorBox::OnSetCursor       },
    { WM_LBUTTONDOWN,    &cVantorBox::OnLButtonDown     },
    { WM_MOUSEMOVE,      &cVantorBox::OnMouseMove       },
    { WM_LBUTTONUP,      &cVantorBox::OnLButtonUp       },
    { WM_CAPTURECHANGED, &cVantorBox::OnCaptureChanged  },
    { WM_CONTEXTMENU,    &cVantorBox::OnContextMenu     },
    { WM_COMMAND,        &cVantorBox::OnCommand         },
    { WM_DRAWITEM,       &cVantorBox::OnDrawItem        },
};

// Each command of the context menu corresponds to a command of the frame.
static const struct
{
    unsigned m_nItem;
    unsigned m_nCommand;
} s_ContextCommands[] =
{
    { IDM_CONTEXT_REFORMAT_PLOT, IDM_REFORMAT_PLOT },
    { IDM_CONTEXT_AUTO_RANGE,    IDM_AUTO_RANGE    },
    { IDM_CONTEXT_REFORMAT_LINE, IDM_REFORMAT_LINE },
    { IDM_CONTEXT_DELETE_LINE,   IDM_DELETE_LINE   },
    { IDM_CONTEXT_PRINT_SETUP,   IDM_PRINT_SETUP   },
    { IDM_CONTEXT_PRINT_GRAPH,   IDM_PRINT_GRAPH   },
    { IDM_CONTEXT_CREATE_BMP,    IDM_CREATE_BMP    },
    { IDM_CONTEXT_CREATE_GIF,    IDM_CREATE_GIF    },
};
// clang-format on

// In pixels at 96 dots per inch.
static const int kBorderBand = 3;  // pixels above the legend where its border can be grabbed

// Pixels from the cross-hair's centre to each end.
static const int kCrossHair = 6;

// A row of the legend: a sample of the line, then its label.
static const int kSampleSpace = 6;
static const int kSampleRight = 48;
static const int kLabelLeft   = 60;
static const int kRowSpace    = 2;  // pixels between the texts of two rows

static const int kSystemFontHeight = 16;

cWindowClass cVantorBox::s_Class;

cVantorBox::cVantorBox(cMessageBoxes *pBoxes)
    : cBaseWindow(pBoxes), cVantorPlot(pBoxes), m_bSystemFont(1), m_LogFont(), m_nFontTenths(0),
      m_Legend(pBoxes), m_bDrawn(0), m_bDrawing(0), m_bPaintRequested(0), m_Layout(), m_bLaidOut(0),
      m_bDraggingLegend(0), m_bReadingOut(0), m_Mouse(), m_bReadoutShown(0), m_Nearest(),
      m_ClassShare(&s_Class)
{
    m_dwStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
}

cVantorBox::~cVantorBox() = default;

const char *cVantorBox::GetClassName() const
{
    return "cVantorBox";
}

LRESULT CALLBACK cVantorBox::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

int cVantorBox::Create(cBaseWindow *pOwner, const cVantorBoxSettings &Settings, uint32_t nId)
{
    if (!m_ClassShare.Acquire(DescribeClass(GetClassName(), WindowProc)))
        return ReportFailure("ERROR: RegisterClass() failed in cVantorBox::Create()");
    if (!CreateChild(pOwner, 0, 0, 0, 0, 0, nId, this))
        return ReportFailure("ERROR: CreateWindow() failed in cVantorBox::Create()");
    if (!CreateLegend())
        return 0;
    m_Scale = cScale(ScreenDpi(m_hWnd));
    Apply(Settings);
    return 1;
}

// --- settings

HFONT cVantorBox::Font() const
{
    return m_Font ? m_Font.Get() : static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
}

// The platform enlarges its stock font only by whole numbers, and not for each screen.
static LOGFONTA LargeSystemFont(const cScale &Scale)
{
    LOGFONTA Large         = {};
    Large.lfHeight         = Scale.Length(kSystemFontHeight);
    Large.lfWeight         = FW_BOLD;
    Large.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    snprintf(Large.lfFaceName, sizeof Large.lfFaceName, "Tahoma");
    return Large;
}

cGdiFont cVantorBox::ScaledFont(const cScale &Scale) const
{
    const cScale First(ScreenDpi(nullptr));
    if (m_bSystemFont && Scale == cScale() && First == cScale())
        return cGdiFont();
    LOGFONTA LogFont = m_bSystemFont ? LargeSystemFont(Scale) : m_LogFont;
    if (!m_bSystemFont)
    {
        LogFont.lfHeight = Scale.From(First, LogFont.lfHeight);
        LogFont.lfWidth  = Scale.From(First, LogFont.lfWidth);
    }
    return cGdiFont(CreateFontIndirectA(&LogFont));
}

void cVantorBox::MakeFont(const cVantorBoxSettings &Settings)
{
    m_bSystemFont = Settings.m_bSystemFont;
    m_LogFont     = Settings.m_LogFont;
    m_Font        = ScaledFont(m_Scale);
    if (m_bSystemFont || !m_Font)
    {
        m_bSystemFont = 1;
        GetObjectA(GetStockObject(SYSTEM_FONT), sizeof m_LogFont, &m_LogFont);
    }

    // A page has the stock font in the size of 96 dots per inch.
    const cScale First(ScreenDpi(nullptr));
    const int    nHeight = m_bSystemFont && !(First == cScale()) ? First.Length(kSystemFontHeight)
                                                                 : abs(m_LogFont.lfHeight);
    m_nFontTenths        = nHeight * kTenthsPerInch / First.Dpi();
    SendMessageA(m_Legend.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(Font()), TRUE);
    SendMessageA(m_Legend.Window(), LB_SETITEMHEIGHT, 0, RowHeight());
}

void cVantorBox::Apply(const cVantorBoxSettings &Settings)
{
    MakeFont(Settings);
    ApplySettings(Settings);
}

cVantorBoxSettings cVantorBox::BoxSettings() const
{
    cVantorBoxSettings Settings;
    static_cast<cVantorPlotSettings &>(Settings) = cVantorPlot::Settings();
    Settings.m_LogFont                           = m_LogFont;
    Settings.m_bSystemFont                       = m_bSystemFont;
    return Settings;
}

void cVantorBox::SetDpi(int nDpi)
{
    m_Scale = cScale(nDpi);
    MakeFont(BoxSettings());
    OnPlotChanged();
}

// --- changes of the plot

// A running program changes the plot more often than it needs to be painted. The
// window is invalidated only once per repaint, as that costs more than adding a
// point.
void cVantorBox::OnPlotChanged()
{
    m_bLaidOut = 0;
    m_bDrawn   = 0;
    if (!m_bPaintRequested)
        InvalidateRect(m_hWnd, nullptr, FALSE);
    m_bPaintRequested = 1;
}

void cVantorBox::OnPointAdded(uint32_t nLine)
{
    if (!m_bDrawn)
        return;
    const cVantorDataSet &Set = *DataSet(nLine);
    const cWindowDc       Window(m_hWnd);
    for (const HDC hDc : {m_Buffer.Dc(), Window.Get()})
    {
        cGdiCanvas Canvas(hDc, nullptr, m_Scale);
        DrawAddedPoint(m_Layout, Set, &Canvas);
    }
}

void cVantorBox::OnLabelAdded(uint32_t nLine)
{
    m_Legend.SetItem(-1, DataSet(nLine)->m_pszLabel.get());
}

void cVantorBox::OnLabelChanged(uint32_t nLine)
{
    m_Legend.SetItem(static_cast<int>(nLine) - 1, DataSet(nLine)->m_pszLabel.get());
}

void cVantorBox::OnLabelRemoved(uint32_t nLine)
{
    m_Legend.DeleteItem(static_cast<int>(nLine) - 1);
}

void cVantorBox::OnChecksChanged()
{
    const HMENU hMenu = GetMenu(GetParent(m_hWnd));
    if (!hMenu)
        return;
    CheckItem(hMenu, IDM_AUTO_RANGE, !UserRange());
    CheckItem(hMenu, IDM_LEGEND, Settings().m_bLegend != 0);
    CheckItem(hMenu, IDM_GRID, Settings().m_bHorzGrid || Settings().m_bVertGrid);
}

// --- layout and painting

cPlotTarget cVantorBox::Target() const
{
    RECT Client = {};
    GetClientRect(m_hWnd, &Client);
    cPlotTarget Target;
    Target.m_nKind      = ptScreen;
    Target.m_Rect       = {0, 0, Client.right, Client.bottom};
    Target.m_LegendList = {RowHeight(), Borders()};
    Target.m_Scale      = m_Scale;
    return Target;
}

const cPlotLayout &cVantorBox::Layout()
{
    if (!m_bLaidOut)
    {
        const cWindowDc  Dc(m_hWnd);
        const cGdiCanvas Canvas(Dc.Get(), Font());
        m_Layout   = LayOutPlot(*this, Target(), Canvas);
        m_bLaidOut = 1;
        PlaceLegend();
    }
    return m_Layout;
}

void cVantorBox::PlaceLegend()
{
    const cRect &Place = m_Layout.m_Legend;
    if (!Settings().m_bLegend)
        m_Legend.Hide();
    else
    {
        m_Legend.Move(Place.m_nLeft, Place.m_nTop, Place.Width(), Place.Height(), 1);
        m_Legend.Show();
        InvalidateRect(m_Legend.Window(), nullptr, Count() == 0);  // rows cover the background
    }
}

// If memory is short, a message box asks what to do; its message loop may paint
// this window, which must not start a second drawing.
void cVantorBox::DrawIntoBuffer()
{
    if (!m_Buffer.Fit(m_hWnd))
        return;
    const cPlotLayout &Present = Layout();
    cGdiCanvas         Canvas(m_Buffer.Dc(), Font(), m_Scale);
    Canvas.FillBox(Target().m_Rect, Settings().m_crBackground);
    m_bDrawing = 1;
    m_bDrawn   = DrawPlot(Present, *this, &Canvas);
    m_bDrawing = 0;
}

LRESULT cVantorBox::OnPaint(WPARAM, LPARAM)
{
    m_bPaintRequested = 0;
    Layout();  // may move the legend, which changes the invalid region
    {
        const cPaintDc Dc(m_hWnd);
        if (!m_bDrawn && !m_bDrawing)
            DrawIntoBuffer();
        m_Buffer.Show(Dc.Get(), Dc.Part());
    }

    EraseReadout();
    if (m_bReadingOut)
    {
        FindReadout();
        const cWindowDc Dc(m_hWnd);
        DrawReadout(Dc.Get());
    }
    return 0;
}

// The buffer covers everything; erasing the background would only flicker.
LRESULT cVantorBox::OnEraseBackground(WPARAM, LPARAM)
{
    return 1;
}

LRESULT cVantorBox::OnSize(WPARAM, LPARAM lParam)
{
    m_bPaintRequested = 0;  // an earlier request does not cover the new size
    SetClientSize(m_Scale.Usual(LOWORD(lParam)), m_Scale.Usual(HIWORD(lParam)));
    return 0;
}

// --- legend

int cVantorBox::CreateLegend()
{
    const DWORD dwStyle =
        LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_CLIPSIBLINGS;
    return m_Legend.Create(this, dwStyle, 0, 0, 0, 0, IDC_LEGEND);
}

int cVantorBox::RowHeight() const
{
    const cWindowDc    Dc(m_hWnd);
    const cSelectGuard Selected(Dc.Get(), Font());
    TEXTMETRICA        Metrics = {};
    GetTextMetricsA(Dc.Get(), &Metrics);
    return Metrics.tmHeight + m_Scale.Length(kRowSpace);
}

int cVantorBox::Borders() const
{
    const auto dwStyle   = static_cast<DWORD>(GetWindowLongPtrA(m_Legend.Window(), GWL_STYLE));
    const auto dwExStyle = static_cast<DWORD>(GetWindowLongPtrA(m_Legend.Window(), GWL_EXSTYLE));
    RECT       Rect      = {};
    AdjustWindowRectEx(&Rect, dwStyle, FALSE, dwExStyle);
    return Rect.bottom - Rect.top;
}

int cVantorBox::IsOnLegendBorder(int y)
{
    if (!Settings().m_bLegend)
        return 0;
    const int nTop = Layout().m_Legend.m_nTop;
    return y >= nTop - m_Scale.Length(kBorderBand) && y <= nTop;
}

// Every move past the border adds or removes at least one row. The pointer is then
// moved to the new border.
void cVantorBox::DragLegendBorder(int y)
{
    const cRect &Legend = Layout().m_Legend;
    const int    nRow   = RowHeight();
    const int    nRoom  = std::max(Legend.m_nBottom - y - Borders(), 0);
    const int    nRows  = y < Legend.m_nTop ? (nRoom + nRow - 1) / nRow : nRoom / nRow;
    const int    nMost  = std::max<int>(static_cast<int>(Count()), 1);
    SetLegendRows(static_cast<uint32_t>(std::clamp(nRows, 1, nMost)));

    POINT Pointer = {};
    GetCursorPos(&Pointer);
    POINT Border = {0, Layout().m_Legend.m_nTop};
    ClientToScreen(m_hWnd, &Border);
    SetCursorPos(Pointer.x, Border.y);
    UpdateWindow(m_hWnd);
}

// A line, or a marker where the points are scattered.
static void DrawSample(const cVantorDataSet &Set, const cRect &Place, const cScale &Scale,
                       cPlotCanvas *pCanvas)
{
    const int nMiddle = (Place.m_nTop + Place.m_nBottom) / 2;
    if (Set.m_nGraphType == gtScatter)
    {
        cPoint        Corners[kMostCorners];
        const int32_t nCorners = MarkerCorners(Set.m_nStyle);
        StoreMarker(Set.m_nStyle, {(Place.m_nLeft + Place.m_nRight) / 2, nMiddle}, Corners, Scale);
        pCanvas->Polygons(Corners, &nCorners, 1, Set.m_crColor);
        return;
    }
    const cPoint Line[] = {{Place.m_nLeft, nMiddle}, {Place.m_nRight, nMiddle}};
    pCanvas->Polyline(Line, 2, PenOf(Set));
}

// A label that is wider than the list ends in dots; a scroll bar would hide rows.
void cVantorBox::DrawLegendLabel(HDC hDc, const RECT &Row, const char *szLabel, int bSelected) const
{
    const cSelectGuard Selected(hDc, Font());
    RECT               Room = Row;
    Room.left += m_Scale.Length(kLabelLeft);
    Room.top += m_Scale.Length(kRowSpace / 2);
    SetTextColor(hDc, GetSysColor(bSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(hDc, TRANSPARENT);
    DrawTextA(hDc, szLabel, -1, &Room, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// The row of data line nLine, at (0, 0). The sample has the plot's background even
// if the row is selected.
void cVantorBox::DrawRow(HDC hDc, int nWidth, int nHeight, uint32_t nLine, int bSelected) const
{
    const RECT Row = {0, 0, nWidth, nHeight};
    FillRect(hDc, &Row, GetSysColorBrush(bSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    const cVantorDataSet *const pSet = DataSet(nLine);
    if (!pSet)
        return;
    const int  nSpace = m_Scale.Length(kSampleSpace);
    const int  nRight = m_Scale.Length(kSampleRight);
    cGdiCanvas Canvas(hDc, Font(), m_Scale);
    Canvas.FillBox({0, 0, nRight + nSpace, nHeight}, Settings().m_crBackground);
    DrawSample(*pSet, {nSpace, 0, nRight, nHeight}, m_Scale, &Canvas);
    DrawLegendLabel(hDc, Row, pSet->m_pszLabel.get(), bSelected);
}

// Draws into a bitmap first: while a program draws, the rows are painted many times
// a second and must not flicker.
LRESULT cVantorBox::OnDrawItem(WPARAM, LPARAM lParam)
{
    const auto        &Item    = *reinterpret_cast<const DRAWITEMSTRUCT *>(lParam);
    const int          nWidth  = Item.rcItem.right - Item.rcItem.left;
    const int          nHeight = Item.rcItem.bottom - Item.rcItem.top;
    const cMemoryDc    Memory(Item.hDC);
    const cGdiBitmap   Bitmap(CreateCompatibleBitmap(Item.hDC, nWidth, nHeight));
    const cSelectGuard Selected(Memory.Get(), Bitmap.Get());
    DrawRow(Memory.Get(), nWidth, nHeight, Item.itemID + 1, (Item.itemState & ODS_SELECTED) != 0);
    BitBlt(Item.hDC, Item.rcItem.left, Item.rcItem.top, nWidth, nHeight, Memory.Get(), 0, 0,
           SRCCOPY);
    return TRUE;
}

// --- the mouse

LRESULT cVantorBox::OnSetCursor(WPARAM wParam, LPARAM lParam)
{
    POINT Pointer = {};
    GetCursorPos(&Pointer);
    ScreenToClient(m_hWnd, &Pointer);
    if (reinterpret_cast<HWND>(wParam) == m_hWnd && LOWORD(lParam) == HTCLIENT &&
        IsOnLegendBorder(Pointer.y))
    {
        SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_SIZENS)));
        return TRUE;
    }
    return DefWindowProcA(m_hWnd, WM_SETCURSOR, wParam, lParam);
}

LRESULT cVantorBox::OnLButtonDown(WPARAM, LPARAM lParam)
{
    m_Mouse = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (IsOnLegendBorder(m_Mouse.m_nY))
    {
        m_bDraggingLegend = 1;
        SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_SIZENS)));
        SetCapture(m_hWnd);
    }
    else if (Count() > 0 && IsInPlot(Layout(), m_Mouse))
    {
        m_bReadingOut = 1;
        SetCapture(m_hWnd);
        UpdateWindow(m_hWnd);
        const cWindowDc Dc(m_hWnd);
        FindReadout();
        DrawReadout(Dc.Get());
    }
    return 0;
}

LRESULT cVantorBox::OnMouseMove(WPARAM, LPARAM lParam)
{
    const cPoint Mouse = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (m_bDraggingLegend && Mouse.m_nY != Layout().m_Legend.m_nTop)
        DragLegendBorder(Mouse.m_nY);
    else if (m_bReadingOut)
    {
        m_Mouse = Mouse;
        UpdateWindow(m_hWnd);
        EraseReadout();
        FindReadout();
        const cWindowDc Dc(m_hWnd);
        DrawReadout(Dc.Get());
    }
    return 0;
}

LRESULT cVantorBox::OnLButtonUp(WPARAM, LPARAM)
{
    if (m_bDraggingLegend || m_bReadingOut)
        ReleaseCapture();
    return 0;
}

LRESULT cVantorBox::OnCaptureChanged(WPARAM, LPARAM)
{
    m_bDraggingLegend = 0;
    m_bReadingOut     = 0;
    EraseReadout();
    return 0;
}

// --- readout

void cVantorBox::FindReadout()
{
    m_bReadoutShown = FindNearestPoint(Layout(), *this, m_Mouse, &m_Nearest);
    if (m_bReadoutShown)
        m_Legend.SetSelection(static_cast<int>(m_Nearest.m_nLine) - 1);
}

// The place of the title, even if there is none: a line of text across the window.
RECT cVantorBox::TitleStrip()
{
    RECT Client = {};
    GetClientRect(m_hWnd, &Client);
    return {0, 0, Client.right, Layout().m_nTextHeight};
}

void cVantorBox::DrawReadout(HDC hDc)
{
    if (!m_bReadoutShown)
        return;
    const cVantorDataSet &Set = *DataSet(m_Nearest.m_nLine);
    char                  szX[kValueText];
    char                  szY[kValueText];
    char                  szText[2 * kValueText + 16];
    FormatValue(static_cast<double>(Set.X(m_Nearest.m_nIndex)), szX);
    FormatValue(static_cast<double>(Set.m_pY[m_Nearest.m_nIndex]), szY);
    snprintf(szText, sizeof szText, "x,y = %s, %s", szX, szY);
    cGdiCanvas Canvas(hDc, Font(), m_Scale);
    DrawTitle(m_Layout, Settings().m_szTitle, Settings().m_crBackground, &Canvas);
    SetBkMode(hDc, OPAQUE);
    SetBkColor(hDc, Settings().m_crBackground);
    DrawTitle(m_Layout, szText, Settings().m_crText, &Canvas);
    DrawCrossHair(hDc);
}

void cVantorBox::DrawCrossHair(HDC hDc) const
{
    const cRect       &Plot = m_Layout.m_Plot;
    const cPoint       At   = m_Nearest.m_Pixel;
    const cStateGuard  State(hDc);
    const int          nReach = m_Scale.Length(kCrossHair);
    const cGdiPen      Pen(CreatePen(PS_SOLID, m_Scale.Length(1), Settings().m_crAxis));
    const cSelectGuard Selected(hDc, Pen.Get());
    IntersectClipRect(hDc, Plot.m_nLeft, Plot.m_nTop, Plot.m_nRight, Plot.m_nBottom);
    SetROP2(hDc, R2_NOTXORPEN);
    // LineTo does not draw the last pixel.
    MoveToEx(hDc, At.m_nX - nReach, At.m_nY, nullptr);
    LineTo(hDc, At.m_nX + nReach + 1, At.m_nY);
    MoveToEx(hDc, At.m_nX, At.m_nY - nReach, nullptr);
    LineTo(hDc, At.m_nX, At.m_nY + nReach + 1);
}

// All that the cross-hair covers; a wide pen rounds its ends.
RECT cVantorBox::CrossHairBox() const
{
    const cPoint At     = m_Nearest.m_Pixel;
    const int    nReach = m_Scale.Length(kCrossHair) + m_Scale.Length(1) - 1;
    return {At.m_nX - nReach, At.m_nY - nReach, At.m_nX + nReach + 1, At.m_nY + nReach + 1};
}

// Restores the plot under the readout from the buffer.
void cVantorBox::EraseReadout()
{
    if (!m_bReadoutShown)
        return;
    m_bReadoutShown = 0;
    const cWindowDc Dc(m_hWnd);
    m_Buffer.Show(Dc.Get(), TitleStrip());
    m_Buffer.Show(Dc.Get(), CrossHairBox());
}

// --- context menu

LRESULT cVantorBox::OnContextMenu(WPARAM, LPARAM lParam)
{
    const cMenu Menu(LoadMenuA(ProgramInstance(), MAKEINTRESOURCEA(IDR_CONTEXT_MENU)));
    const HMENU hSub = GetSubMenu(Menu.Get(), 0);
    CheckItem(hSub, IDM_CONTEXT_AUTO_RANGE, !UserRange());
    POINT At = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (At.x == -1 && At.y == -1)  // from the keyboard
    {
        At = {0, 0};
        ClientToScreen(m_hWnd, &At);
    }
    TrackPopupMenu(hSub, TPM_RIGHTBUTTON, At.x, At.y, 0, m_hWnd, nullptr);
    return 0;
}

LRESULT cVantorBox::OnCommand(WPARAM wParam, LPARAM lParam)
{
    for (const auto &Row : s_ContextCommands)
        if (Row.m_nItem == LOWORD(wParam))
            return SendMessageA(GetParent(m_hWnd), WM_COMMAND, Row.m_nCommand, 0);
    return DefWindowProcA(m_hWnd, WM_COMMAND, wParam, lParam);
}
