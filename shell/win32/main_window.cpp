// main_window.cpp - creates the calculator's window and handles its messages.

#include "shell/win32/vorstek.h"

#include <algorithm>
#include <new>
#include <utility>

#include "engine/vorstek_state.h"
#include "resources/resource.h"
#include "shell/win32/drawn_pictures.h"
#include "shell/window_layout.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/screen.h"

static const uint32_t kTextLimit    = 500000;  // characters of a box
static const int      kBoxPointSize = 90;      // tenths of a point
static const int      kLargePoints  = 12;
static const int      kSmallPoints  = 8;

static const int kLeastWidth       = 318;
static const int kLeastHeight      = 617;
static const int kLeastHeightOn600 = 570;  // shows all keys

static const int kHighlightImage = 12;  // in the toolbar bitmap

static const int kGraphWidth  = 640;  // of the graph's window
static const int kGraphHeight = 480;

static const unsigned kCodeFonts = 129;

// clang-format off
const cVorstek::cMessageRow cVorstek::s_Messages[] =
{
    { WM_CREATE,          &cVorstek::OnCreate          },
    { WM_DESTROY,         &cVorstek::OnDestroy         },
    { WM_SIZE,            &cVorstek::OnSize            },
    { WM_DPICHANGED,      &cVorstek::OnDpiChanged      },
    { WM_SETFOCUS,        &cVorstek::OnSetFocus        },
    { WM_KILLFOCUS,       &cVorstek::OnKillFocus       },
    { WM_PAINT,           &cVorstek::OnPaint           },
    { WM_CLOSE,           &cVorstek::OnClose           },
    { WM_QUERYENDSESSION, &cVorstek::OnQueryEndSession },
    { WM_GETMINMAXINFO,   &cVorstek::OnGetMinMaxInfo   },
    { WM_DISPLAYCHANGE,   &cVorstek::OnDisplayChange   },
    { WM_NOTIFY,          &cVorstek::OnNotify          },
    { WM_KEYDOWN,         &cVorstek::OnKeyDown         },
    { WM_CHAR,            &cVorstek::OnCharacter       },
    { WM_PARENTNOTIFY,    &cVorstek::OnParentNotify    },
    { WM_COMMAND,         &cVorstek::OnCommand         },
    { WM_SYSCOMMAND,      &cVorstek::OnSysCommand      },
    { WM_CONTEXTMENU,     &cVorstek::OnContextMenu     },
    { WM_INITMENUPOPUP,   &cVorstek::OnInitMenuPopup   },
    { WM_MENUSELECT,      &cVorstek::OnMenuSelect      },
    { WM_CTLCOLOREDIT,    &cVorstek::OnCtlColor        },
    { WM_CTLCOLORSTATIC,  &cVorstek::OnCtlColor        },
    { WM_QUERYNEWPALETTE, &cVorstek::OnQueryNewPalette },
    { WM_PALETTECHANGED,  &cVorstek::OnPaletteChanged  },
    { WM_MOUSEMOVE,       &cVorstek::OnMouseMove       },
};
// clang-format on

cWindowClass cVorstek::s_Class;

cVorstek::cVorstek()
    : cBaseWindow(this), cVorstekEngine(this, &m_ListingLines, &m_RegistersLines), m_ToolBar(this),
      m_StatusBar(this), m_ListingBox(this), m_RegistersBox(this), m_ListingLines(&m_ListingBox),
      m_RegistersLines(&m_RegistersBox), m_Keypad(this), m_Graph(this, this),
      m_Panes(&m_Keypad, &m_ListingBox, &m_RegistersBox, &m_ToolBar), m_Tips(this), m_nKeyDown(0),
      m_nListingWidth(kListingWidth), m_nRegistersWidth(kRegistersWidth), m_nFaceOffset(0),
      m_hAccelerators(nullptr), m_hDisplayDc(nullptr), m_bBlanked(0), m_bFonts(0), m_bSizeLater(0),
      m_hHelpWnd(nullptr), m_dwLastDrain(0), m_dwLastRefresh(0), m_dwRefreshTime(0),
      m_ClassShare(&s_Class)
{
    m_dwStyle   = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX;
    m_dwExStyle = WS_EX_CONTROLPARENT;
}

cVorstek::~cVorstek() = default;

const char *cVorstek::GetClassName() const
{
    return "cVorstek";
}

LRESULT CALLBACK cVorstek::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

// Tests only the height, although the text names both numbers.
static int IsScreenHighEnough(cMessageBoxes *pBoxes)
{
    if (GetSystemMetrics(SM_CYSCREEN) >= kLowestScreen)
        return 1;
    pBoxes->Ask("Sorry, but this program requires a screen\n"
                "resolution of at least 800 by 600 pixels.\n"
                "To change your computer's screen resolution\n"
                "right click on an empty portion of your\n"
                "desktop,  choose 'Properties' from the pop-up\n"
                "menu, go to the 'Settings' tab and then adjust\n"
                "the slider labeled 'Screen area'.\n",
                nullptr, bnOk, icError);
    return 0;
}

int cVorstek::Create()
{
    if (!IsScreenHighEnough(this) || !CreateMainWindow() || !CreateBars() || !CreateBoxes() ||
        !CreateKeypad())
    {
        PostQuit(0);
        return 0;
    }
    CreateFonts();
    SizeWithBoxes();
    if (!CreateGraph())
        return 0;
    ShowWindow(m_hWnd, SW_SHOWNORMAL);
    m_bVisible = 1;
    UpdateWindow(m_hWnd);
    RefreshViews();
    PaintDisplay();
    return 1;
}

// From system version 5.1 on, the menu bar has its own colour.
static HBRUSH FrameBrush()
{
    const DWORD    dwVersion = GetVersion();
    const unsigned nMajor    = LOBYTE(LOWORD(dwVersion));
    const unsigned nMinor    = HIBYTE(LOWORD(dwVersion));
    const int      bMenuBar  = nMajor > 5 || (nMajor == 5 && nMinor >= 1);
    return reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(bMenuBar ? COLOR_MENUBAR : COLOR_MENU) +
                                    1);
}

int cVorstek::CreateMainWindow()
{
    WNDCLASSA Class     = DescribeClass(GetClassName(), WindowProc);
    Class.hIcon         = LoadIconA(ProgramInstance(), MAKEINTRESOURCEA(IDI_VORSTEK));
    Class.hbrBackground = FrameBrush();
    Class.lpszMenuName  = MAKEINTRESOURCEA(IDR_MENU);
    if (!m_ClassShare.Acquire(Class))
    {
        Ask("FATAL ERROR: RegisterClass() failed in cVorstek::Create()", nullptr, bnOk, icError);
        return 0;
    }
    const HWND hWnd = CreateWindowExA(m_dwExStyle, GetClassName(), "Vorstek", m_dwStyle,
                                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                      nullptr, nullptr, ProgramInstance(), this);
    if (!hWnd)
    {
        Ask("FATAL ERROR: CreateWindow() failed in cVorstek::Create()", nullptr, bnOk, icError);
        return 0;
    }
    SetCreated(hWnd);
    m_Boxes.m_hOwner = hWnd;
    FindScale(ScreenDpi(hWnd));
    m_nListingWidth   = m_Scale.Length(kListingWidth);
    m_nRegistersWidth = m_Scale.Length(kRegistersWidth);
    return 1;
}

// Of the frame around the client area, with caption and menu. The platform cannot
// calculate it for a screen whose resolution differs from that of the first one.
static SIZE FrameSize(HWND hWnd)
{
    RECT Window = {};
    RECT Client = {};
    GetWindowRect(hWnd, &Window);
    GetClientRect(hWnd, &Client);
    return {Window.right - Window.left - Client.right, Window.bottom - Window.top - Client.bottom};
}

// The scale of the window's screen, or a smaller one where some keys would not be on
// the screen.
void cVorstek::FindScale(int nDpi)
{
    const RECT Work   = WorkArea(m_hWnd);
    const int  nFrame = FrameSize(m_hWnd).cy;
    m_Scale           = FittingScale(nDpi, Work.bottom - Work.top - nFrame,
                                     kLeastHeightOn600 - cScale(nDpi).Usual(nFrame));
    m_nFaceOffset     = FaceOffset(GetSystemMetrics(SM_CYSCREEN), m_Scale);
}

static TBBUTTON ToolButton(int nImage, int nCommand)
{
    TBBUTTON Button  = {};
    Button.iBitmap   = nImage;
    Button.idCommand = nCommand;
    Button.fsState   = TBSTATE_ENABLED;
    Button.fsStyle   = static_cast<BYTE>(nCommand ? TBSTYLE_BUTTON : TBSTYLE_SEP);
    return Button;
}

// Number of images in the bitmap resource. A width that is not a multiple of 16
// pixels is reported, but the bitmap is used.
static int CountToolImages(cMessageBoxes *pBoxes)
{
    const cGdiBitmap Bitmap(LoadBitmapA(ProgramInstance(), MAKEINTRESOURCEA(IDB_TOOLBAR)));
    BITMAP           Info = {};
    GetObjectA(Bitmap.Get(), sizeof Info, &Info);
    if (Info.bmWidth % kToolImageWidth != 0)
        pBoxes->Ask("Toolbar bitmap width is not a multiple of 16 pixels !!", nullptr, bnOk,
                    icNone);
    return Info.bmWidth / kToolImageWidth;
}

void cVorstek::ScaleToolBar()
{
    const cDrawnPicture Strip = LoadDrawnPicture(piToolBar, m_Scale);
    m_ToolBar.SetScale(m_Scale, Strip.m_Scale == cScale() ? nullptr : Strip.m_Bitmap.Get());
}

int cVorstek::CreateBars()
{
    const TBBUTTON Buttons[] = {
        ToolButton(STD_FILENEW, IDM_NEW),       ToolButton(STD_FILEOPEN, IDM_OPEN),
        ToolButton(STD_FILESAVE, IDM_SAVE),     ToolButton(0, 0),
        ToolButton(STD_PRINT, IDM_PRINT),       ToolButton(0, 0),
        ToolButton(STD_PROPERTIES, IDM_OPTIONS)};
    const int nButtons = sizeof Buttons / sizeof *Buttons;
    if (!m_ToolBar.Create(this, 0, IDC_TOOLBAR, Buttons, nButtons, -1))
        return 0;
    const TBBUTTON More[] = {ToolButton(0, 0), ToolButton(kHighlightImage, IDM_REPAIR_HIGHLIGHT)};
    m_ToolBar.AddBitmap(IDB_TOOLBAR, CountToolImages(this), More, 2);
    ScaleToolBar();
    m_ToolBar.Show();
    EnableCommand(IDM_REPAIR_HIGHLIGHT, 0);

    const int nRightEdge = -1;
    if (!m_StatusBar.Create(this, 0, 0, 0, 0, IDC_STATUSBAR, 1, &nRightEdge))
        return 0;
    m_StatusBar.Show();
    return 1;
}

// A screen reader takes the text before a box for its name, also one that is hidden.
int cVorstek::CreateBox(cEditBox *pBox, uint32_t nId, const char *szName)
{
    static_cast<void>(CreateWindowExA(0, "STATIC", szName, WS_CHILD, 0, 0, 0, 0, m_hWnd, nullptr,
                                      ProgramInstance(), nullptr));
    if (!pBox->Create(this, 0, 0, 0, 0, ES_NOHIDESEL, nId, 0, 0, kTextLimit))
        return 0;
    pBox->SetReadOnly(1);
    pBox->SetDpi(m_Scale.Dpi());
    pBox->SetFont("Courier New", kBoxPointSize, kFontFixedPitch);
    HideCaret(pBox->Window());
    pBox->Show();
    return 1;
}

int cVorstek::CreateBoxes()
{
    return CreateBox(&m_ListingBox, IDC_LISTING, "program listing") &&
           CreateBox(&m_RegistersBox, IDC_REGISTERS, "registers") && Start();
}

int cVorstek::CreateKeypad()
{
    m_Pictures.Load(m_Scale);
    return m_Keypad.Create(this, 0, 0, 0, 0, m_Pictures.Face(), m_Pictures.Palette(), 0,
                           m_nFaceOffset, 0, 0, WS_VISIBLE, IDC_KEYPAD) &&
           AddKeys(kSwitchStarts) && Listen(kSlotKey, OnKeyEvent) &&
           Listen(kSlotDisplay, OnDisplayUncovered) && DescribeKeypad();
}

// Without these the calculator still works.
int cVorstek::DescribeKeypad()
{
    m_Tips.Create(&m_Keypad, &m_StatusBar);
    m_Accessibility.Create(&m_Keypad);
    return 1;
}

// pStarts as kSwitchStarts.
int cVorstek::AddKeys(const int *pStarts)
{
    m_Keypad.SetScale(m_Scale);
    m_Keypad.SetKeyBitmap(m_Pictures.Keys());
    m_Keypad.Lamps().SetPictures(m_Pictures, m_Scale, m_nFaceOffset);
    m_Keypad.SetSwitchBitmap(m_Pictures.Switches(), kSwitchFrames);
    for (const cFaceRect &Usual : kKeyRects)
    {
        const cFaceRect Key = ScaledRect(Usual, m_Scale);
        if (!m_Keypad.AddKey(Key.m_nLeft, Key.m_nTop - m_nFaceOffset, Key.m_nWidth, Key.m_nHeight))
            return 0;
    }
    for (int i = 0; i < kFaceSwitches; i++)
    {
        const cFaceRect Switch = ScaledRect(kSwitchRects[i], m_Scale);
        const int       nThumb = m_Scale.Length(kThumbWidth);
        if (!m_Keypad.AddSwitch(Switch.m_nLeft, Switch.m_nTop - m_nFaceOffset, Switch.m_nWidth,
                                Switch.m_nHeight, nThumb,
                                pStarts[i] ? Switch.m_nWidth - nThumb : 0))
            return 0;
    }
    // A hidden part of the face reduces the height of the rectangle, too.
    const cFaceRect Display = ScaledRect(kDisplayRect, m_Scale);
    return m_Keypad.AddDisplayRect(Display.m_nLeft, Display.m_nTop - m_nFaceOffset,
                                   Display.m_nWidth, Display.m_nHeight - m_nFaceOffset);
}

// The former pictures are needed until the keypad shows the new ones.
void cVorstek::ChangeFace()
{
    const cFacePictures Former = std::move(m_Pictures);
    int                 Starts[kFaceSwitches];
    for (int i = 0; i < kFaceSwitches; i++)
        Starts[i] = m_Keypad.IsRight(kFaceKeys + 1U + static_cast<unsigned>(i));
    m_Pictures.Load(m_Scale);
    m_Keypad.Restart(m_Pictures.Face(), m_Pictures.Palette(), 0, m_nFaceOffset);
    AddKeys(Starts);
}

int cVorstek::Listen(uint32_t nSlot, cCallbackRec::cMemberCall pfnMember)
{
    cCallbackRec *const pRecord =
        AllocateWithRetry(this, [] { return new (std::nothrow) cCallbackRec; });
    if (!pRecord)
        return 0;
    pRecord->nSlot     = nSlot;
    pRecord->pTarget   = this;
    pRecord->pfnMember = pfnMember;
    return m_Keypad.Register(pRecord);
}

void cVorstek::OnKeyEvent(void *pTarget, cCallbackObj *, void *pArgument, uintptr_t)
{
    const cKeyEvent &Event = *static_cast<const cKeyEvent *>(pArgument);
    static_cast<cVorstek *>(pTarget)->OnCalcKey(Event.nKey, static_cast<int>(Event.bDown));
}

void cVorstek::OnDisplayUncovered(void *pTarget, cCallbackObj *, void *pArgument, uintptr_t)
{
    auto *const pCalculator   = static_cast<cVorstek *>(pTarget);
    pCalculator->m_hDisplayDc = static_cast<const cDisplayPart *>(pArgument)->m_hDc;
    pCalculator->PaintDisplay();
    pCalculator->m_hDisplayDc = nullptr;
}

static cGdiFont CreateFixedFont(const char *szFace, int nHeight)
{
    return cGdiFont(CreateFontA(nHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET,
                                OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                FIXED_PITCH | FF_MODERN, szFace));
}

// The platform silently substitutes a missing face.
static int HasFace(const cGdiFont &Font, const char *szFace)
{
    char               szSelected[LF_FACESIZE] = "";
    const cWindowDc    Screen(nullptr);
    const cSelectGuard Selected(Screen.Get(), Font.Get());
    GetTextFaceA(Screen.Get(), sizeof szSelected, szSelected);
    return lstrcmpiA(szFace, szSelected) == 0;
}

static cGdiFont CreateDisplayFont(int nPointSize, int nDpi)
{
    const char *const szFace  = "Lucida Console";
    const int         nHeight = -MulDiv(nPointSize, nDpi, 72);
    cGdiFont          Font    = CreateFixedFont(szFace, nHeight);
    return HasFace(Font, szFace) ? std::move(Font) : CreateFixedFont("Courier New", nHeight);
}

void cVorstek::CreateFonts()
{
    m_hLargeFont = CreateDisplayFont(kLargePoints, m_Scale.Dpi());
    m_hSmallFont = CreateDisplayFont(kSmallPoints, m_Scale.Dpi());
    m_bFonts     = 1;
    if (!m_hLargeFont || !m_hSmallFont)
        ShowProgramError(kCodeFonts);
}

// Places the graph to the right of the calculator. On a narrow screen they
// overlap, but the graph is as far right as possible, so that some keys stay
// visible.
int cVorstek::CreateGraph()
{
    RECT Window = {};
    GetWindowRect(m_hWnd, &Window);
    const int nWidth  = m_Scale.Length(kGraphWidth);
    const int nHeight = m_Scale.Length(kGraphHeight);
    const int nRoom   = std::max(GetSystemMetrics(SM_CXSCREEN) - nWidth, 0);
    const int nX      = std::clamp<int>(Window.right, 0, nRoom);
    const int nY      = nX > 0 ? std::max<int>(Window.top, 1) : 0;  // 0: the platform chooses

    const cVantorBoxSettings Settings;
    if (!m_Graph.Create(Settings, nX, nY, nWidth, nHeight, 1))
    {
        PostQuit(0);
        return 0;
    }
    m_Graph.Box()->AutoRange();
    return 1;
}

// --- layout

int cVorstek::HeightOf(const cBaseWindow &Bar)
{
    RECT Rect = {};
    if (!Bar.IsVisible())
        return 0;
    GetWindowRect(Bar.Window(), &Rect);
    return Rect.bottom - Rect.top;
}

cWindowParts cVorstek::Parts() const
{
    cWindowParts Parts;
    Parts.m_nEdgeX           = GetSystemMetrics(SM_CXEDGE);
    Parts.m_nEdgeY           = GetSystemMetrics(SM_CYEDGE);
    Parts.m_nToolBarHeight   = HeightOf(m_ToolBar);
    Parts.m_nStatusBarHeight = HeightOf(m_StatusBar);
    Parts.m_bListing         = m_ListingBox.IsVisible();
    Parts.m_bRegisters       = m_RegistersBox.IsVisible();
    Parts.m_nListingWidth    = m_nListingWidth;
    Parts.m_nRegistersWidth  = m_nRegistersWidth;
    Parts.m_Scale            = m_Scale;
    return Parts;
}

// The window starts without its boxes, but is laid out with them first, which
// determines their widths.
void cVorstek::SizeWithBoxes()
{
    SizeWindow();
    m_ListingBox.Hide();
    m_RegistersBox.Hide();
    SizeWindow();
}

int cVorstek::IsLowestScreen() const
{
    return GetSystemMetrics(SM_CYSCREEN) == m_Scale.Length(kLowestScreen);
}

// An enlarged face is cut at the bottom where it is higher than the screen.
int cVorstek::LimitHeight(int nHeight) const
{
    const RECT Work = WorkArea(m_hWnd);
    return m_Scale == cScale() ? nHeight : std::min<int>(nHeight, Work.bottom - Work.top);
}

// An enlarged face is moved up as far as its bottom was below the screen.
int cVorstek::LimitTop(int nTop, int nHeight) const
{
    const RECT Work = WorkArea(m_hWnd);
    if (m_Scale == cScale())
        return nTop;
    return std::max<int>(std::min<int>(nTop, Work.bottom - nHeight), Work.top);
}

void cVorstek::SizeWindow()
{
    cWindowParts      Sized  = Parts();
    const cLayoutSize Client = FindClientSize(&Sized);
    m_nListingWidth          = Sized.m_nListingWidth;
    m_nRegistersWidth        = Sized.m_nRegistersWidth;

    const SIZE Frame = FrameSize(m_hWnd);
    RECT       Now   = {};
    GetWindowRect(m_hWnd, &Now);
    int nHeight = LimitHeight(Frame.cy + Client.m_nHeight);
    if (IsLowestScreen())
        nHeight = Now.bottom - Now.top;
    MoveWindow(m_hWnd, Now.left, LimitTop(Now.top, nHeight), Frame.cx + Client.m_nWidth, nHeight,
               TRUE);
}

// Moving a read-only box shows its caret again.
void cVorstek::PlaceBox(cEditBox *pBox, const cFaceRect &Rect)
{
    if (!pBox->IsVisible())
        return;
    pBox->Move(Rect.m_nLeft, Rect.m_nTop, Rect.m_nWidth, Rect.m_nHeight, 1);
    if (pBox->IsReadOnly())
        HideCaret(pBox->Window());
}

void cVorstek::LayOut(int nClientWidth, int nClientHeight)
{
    if (m_ToolBar.IsVisible())
        m_ToolBar.AutoSize();
    if (m_StatusBar.IsVisible())
        m_StatusBar.AutoSize();
    cWindowLayout Layout;
    if (!FindLayout(Parts(), {nClientWidth, nClientHeight}, &Layout))
        return;
    m_Keypad.Move(Layout.m_Keypad.m_nLeft, Layout.m_Keypad.m_nTop, Layout.m_Keypad.m_nWidth,
                  Layout.m_Keypad.m_nHeight, 1);
    if (m_ListingBox.IsVisible())
        m_nListingWidth = Layout.m_Listing.m_nWidth;
    if (m_RegistersBox.IsVisible())
        m_nRegistersWidth = Layout.m_Registers.m_nWidth;
    PlaceBox(&m_ListingBox, Layout.m_Listing);
    PlaceBox(&m_RegistersBox, Layout.m_Registers);
}

void cVorstek::LayOutAgain()
{
    RECT Client = {};
    GetClientRect(m_hWnd, &Client);
    LayOut(Client.right, Client.bottom);
}

// A minimised window is sized when it is restored.
void cVorstek::SizeToBoxes()
{
    m_bSizeLater = IsIconic(m_hWnd);
    if (m_bSizeLater)
        return;
    SizeWindow();
    LayOutAgain();
}

void cVorstek::ShowBox(cEditBox *pBox, int bShow)
{
    if (!pBox->IsVisible() == !bShow)
        return;
    pBox->SetVisible(bShow);
    SizeToBoxes();
}

// --- messages

LRESULT cVorstek::OnCreate(WPARAM, LPARAM)
{
    m_hAccelerators = LoadAcceleratorsA(ProgramInstance(), MAKEINTRESOURCEA(IDR_ACCELERATORS));
    g_pApplication->SetAccelerators(m_hWnd, m_hAccelerators);
    return 0;
}

LRESULT cVorstek::OnDestroy(WPARAM, LPARAM)
{
    DestroyWindow(m_Graph.Window());
    PostQuitMessage(0);
    return 0;
}

LRESULT cVorstek::OnSize(WPARAM wParam, LPARAM lParam)
{
    if (!m_Keypad.IsCreated() || wParam == SIZE_MINIMIZED)
        return 0;
    if (m_bSizeLater)
        SizeToBoxes();
    else
        LayOut(LOWORD(lParam), HIWORD(lParam));
    return 0;
}

// 1 if the client area has the size that SizeWindow gives it.
int cVorstek::IsFitted() const
{
    cWindowParts      Sized  = Parts();
    const cLayoutSize Wanted = FindClientSize(&Sized);
    RECT              Client = {};
    GetClientRect(m_hWnd, &Client);
    return Client.right == Wanted.m_nWidth && Client.bottom == Wanted.m_nHeight;
}

// The window comes to a screen with another resolution. Where the user has not changed
// its size, it gets the size that fits exactly.
LRESULT cVorstek::OnDpiChanged(WPARAM wParam, LPARAM lParam)
{
    const cScale Former     = m_Scale;
    const int    bFitted    = IsFitted();
    const int    nListing   = m_nListingWidth;
    const int    nRegisters = m_nRegistersWidth;
    TakeRect(m_hWnd, *reinterpret_cast<const RECT *>(lParam));
    FindScale(LOWORD(wParam));
    ScaleToolBar();
    m_StatusBar.SetDpi(m_Scale.Dpi());
    m_ListingBox.SetDpi(m_Scale.Dpi());
    m_RegistersBox.SetDpi(m_Scale.Dpi());
    CreateFonts();
    ChangeFace();
    LayOutAgain();  // bars get their new heights
    m_nListingWidth   = m_Scale.From(Former, nListing);
    m_nRegistersWidth = m_Scale.From(Former, nRegisters);
    if (bFitted)
        SizeToBoxes();
    InvalidateRect(m_hWnd, nullptr, TRUE);
    return 0;
}

LRESULT cVorstek::OnSetFocus(WPARAM, LPARAM)
{
    if (m_hAccelerators)
        g_pApplication->SetAccelerators(m_hWnd, m_hAccelerators);
    return 0;
}

// The calculator gets the keyboard input even after a click in a box.
LRESULT cVorstek::OnKillFocus(WPARAM wParam, LPARAM)
{
    const HWND hNext = reinterpret_cast<HWND>(wParam);
    if (hNext && (hNext == m_ListingBox.Window() || hNext == m_RegistersBox.Window()))
        SetFocus(m_hWnd);
    return 0;
}

LRESULT cVorstek::OnPaint(WPARAM, LPARAM)
{
    const cPaintDc      Dc(m_hWnd);
    const cPaletteGuard Colours(Dc.Get(), m_Pictures.Palette());
    return 0;
}

// While a dialog is open, which may itself show a message box, only another
// program can send this; the platform's dialogs would not survive it.
LRESULT cVorstek::OnClose(WPARAM, LPARAM)
{
    if (!IsWindowEnabled(m_hWnd) || !ConfirmDiscard())
        return 0;
    if (m_hHelpWnd)
        SendMessageA(m_hHelpWnd, WM_CLOSE, 0, 0);
    m_hHelpWnd = nullptr;
    DestroyWindow(m_hWnd);
    return 0;
}

LRESULT cVorstek::OnQueryEndSession(WPARAM wParam, LPARAM lParam)
{
    if (State().m_bProgramModified)
        return 0;
    return DefWindowProcA(m_hWnd, WM_QUERYENDSESSION, wParam, lParam);
}

LRESULT cVorstek::OnGetMinMaxInfo(WPARAM, LPARAM lParam)
{
    auto *const pInfo       = reinterpret_cast<MINMAXINFO *>(lParam);
    const int   nLeast      = IsLowestScreen() ? kLeastHeightOn600 : kLeastHeight;
    pInfo->ptMinTrackSize.x = m_Scale.Length(kFaceWidth) + kLeastWidth - kFaceWidth;
    pInfo->ptMinTrackSize.y = LimitHeight(m_Scale.Length(nLeast));
    return 0;
}

LRESULT cVorstek::OnDisplayChange(WPARAM, LPARAM)
{
    InvalidateRect(m_hWnd, nullptr, TRUE);
    return 0;
}

LRESULT cVorstek::OnNotify(WPARAM wParam, LPARAM lParam)
{
    auto *const pNotice  = reinterpret_cast<NMHDR *>(lParam);
    auto *const pRequest = reinterpret_cast<NMTTDISPINFOA *>(lParam);
    if (pNotice->code == TTN_NEEDTEXTA && pNotice->hwndFrom == m_Tips.Window())
        m_Tips.OnTipText(pRequest);
    else if (pNotice->code == TTN_NEEDTEXTA && pNotice->hwndFrom == m_ToolBar.GetToolTipWindow())
        m_ToolBar.OnToolTipText(pRequest);
    else
        return DefWindowProcA(m_hWnd, WM_NOTIFY, wParam, lParam);
    return 0;
}

LRESULT cVorstek::OnSysCommand(WPARAM wParam, LPARAM lParam)
{
    const WPARAM nCommand = wParam & 0xFFF0;  // the platform uses the lower bits internally
    if (nCommand == SC_CLOSE && IsRunning())
    {
        Ask(kNotWhileRunning, nullptr, bnOk, icNone);
        return 0;
    }
    if (nCommand == SC_MINIMIZE)
        g_pApplication->SetIdleEnabled(0);
    else if (nCommand == SC_MAXIMIZE || nCommand == SC_RESTORE)
        g_pApplication->SetIdleEnabled(1);
    return DefWindowProcA(m_hWnd, WM_SYSCOMMAND, wParam, lParam);
}

LRESULT cVorstek::OnMenuSelect(WPARAM wParam, LPARAM lParam)
{
    m_StatusBar.OnMenuSelect(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HMENU>(lParam));
    return 0;
}

LRESULT cVorstek::OnCtlColor(WPARAM wParam, LPARAM)
{
    return reinterpret_cast<LRESULT>(m_ListingBox.OnCtlColor(reinterpret_cast<HDC>(wParam)));
}

LRESULT cVorstek::OnQueryNewPalette(WPARAM, LPARAM)
{
    if (!m_Pictures.Palette())
        return 0;
    const cWindowDc     Dc(m_hWnd);
    const cPaletteGuard Colours(Dc.Get(), m_Pictures.Palette());
    InvalidateRect(m_hWnd, nullptr, TRUE);
    return 1;
}

LRESULT cVorstek::OnPaletteChanged(WPARAM wParam, LPARAM)
{
    if (!m_Pictures.Palette() || reinterpret_cast<HWND>(wParam) == m_hWnd)
        return 0;
    const cWindowDc     Dc(m_hWnd);
    const cPaletteGuard Colours(Dc.Get(), m_Pictures.Palette());
    UpdateColors(Dc.Get());
    return 0;
}
