#include "toolkit/win32/tool_bar.h"

#include <new>
#include <utility>

#include "resources/resource.h"

static const int kComboListHeight = 200;  // pixels, of the drop-down list

static const int kSeparatorWidth = 8;  // pixels; the platform's, too

cToolBar::cToolBar(cMessageBoxes *pBoxes)
    : cBaseWindow(pBoxes), m_nImageBase(0), m_hUsualImages(nullptr), m_dwUsualPadding(0),
      m_dwUsualButton(0)
{
    m_dwStyle = WS_CHILD | TBSTYLE_TOOLTIPS;
}

const char *cToolBar::GetClassName() const
{
    return TOOLBARCLASSNAMEA;
}

int cToolBar::Create(cBaseWindow *pOwner, DWORD dwStyle, uint32_t nId, const TBBUTTON *pButtons,
                     int nButtons, int nComboIndex)
{
    m_dwStyle |= dwStyle;
    m_pOwner   = pOwner;
    m_nChildId = nId;

    const HWND hWnd =
        CreateToolbarEx(pOwner->Window(), m_dwStyle, nId, kStandardImages, HINST_COMMCTRL,
                        IDB_STD_SMALL_COLOR, pButtons, nButtons, kToolImageWidth, kToolImageHeight,
                        kToolImageWidth, kToolImageHeight, sizeof(TBBUTTON));
    if (!hWnd)
        return ReportFailure("ERROR: CreateWindow() failed in cToolBar::Create()");
    SetCreated(hWnd);
    return nComboIndex < 0 || CreateComboBox(nComboIndex);
}

int cToolBar::AddBitmap(unsigned nResource, int nImages, const TBBUTTON *pButtons, int nButtons)
{
    const TBADDBITMAP Bitmap     = {ProgramInstance(), nResource};
    const int         nImageBase = static_cast<int>(SendMessageA(
                m_hWnd, TB_ADDBITMAP, static_cast<WPARAM>(nImages), reinterpret_cast<LPARAM>(&Bitmap)));
    if (nImageBase < 0)
        return 0;
    m_nImageBase = nImageBase;
    return AddButtons(pButtons, nButtons);
}

int cToolBar::AddButtons(const TBBUTTON *pButtons, int nButtons)
{
    for (int i = 0; i < nButtons; i++)
    {
        TBBUTTON Button = pButtons[i];
        if (!(Button.fsStyle & BTNS_SEP))  // iBitmap of a separator is its width
            Button.iBitmap += m_nImageBase;
        if (!SendMessageA(m_hWnd, TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&Button)))
            return 0;
    }
    return 1;
}

// A toolbar that has never been scaled is left as the platform made it.
void cToolBar::SetScale(const cScale &Scale, HBITMAP hStrip)
{
    if (!m_hUsualImages && Scale == cScale())
        return;
    if (!m_hUsualImages)
    {
        m_hUsualImages = reinterpret_cast<HIMAGELIST>(SendMessageA(m_hWnd, TB_GETIMAGELIST, 0, 0));
        m_dwUsualPadding = static_cast<DWORD>(SendMessageA(m_hWnd, TB_GETPADDING, 0, 0));
        m_dwUsualButton  = static_cast<DWORD>(SendMessageA(m_hWnd, TB_GETBUTTONSIZE, 0, 0));
    }
    const int  nWidth  = Scale.Length(kToolImageWidth);
    const int  nHeight = Scale.Length(kToolImageHeight);
    cImageList Scaled;
    if (!(Scale == cScale()))
        Scaled = ScaledToolImages(m_hUsualImages, kStandardImages, hStrip, {nWidth, nHeight});
    SendMessageA(
        m_hWnd, TB_SETPADDING, 0,
        MAKELPARAM(Scale.Length(LOWORD(m_dwUsualPadding)), Scale.Length(HIWORD(m_dwUsualPadding))));
    SendMessageA(m_hWnd, TB_SETIMAGELIST, 0,
                 reinterpret_cast<LPARAM>(Scaled ? Scaled.Get() : m_hUsualImages));
    SendMessageA(
        m_hWnd, TB_SETBUTTONSIZE, 0,
        MAKELPARAM(Scale.Length(LOWORD(m_dwUsualButton)), Scale.Length(HIWORD(m_dwUsualButton))));
    m_ScaledImages = std::move(Scaled);
    ScaleSeparators(Scale);
}

void cToolBar::ScaleSeparators(const cScale &Scale)
{
    TBBUTTON Button = {};
    for (WPARAM i = 0; SendMessageA(m_hWnd, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&Button));
         i++)
    {
        TBBUTTONINFOA Info = {};
        Info.cbSize        = sizeof Info;
        Info.dwMask        = TBIF_SIZE | TBIF_BYINDEX;
        Info.cx            = static_cast<WORD>(Scale.Length(kSeparatorWidth));
        if (Button.fsStyle & BTNS_SEP)
            SendMessageA(m_hWnd, TB_SETBUTTONINFOA, i, reinterpret_cast<LPARAM>(&Info));
    }
}

void cToolBar::AutoSize()
{
    SendMessageA(m_hWnd, WM_SIZE, 0, 0);
    RECT Client;
    RECT Window;
    GetClientRect(m_pOwner->Window(), &Client);
    GetWindowRect(m_hWnd, &Window);
    Move(0, 0, Client.right, Window.bottom - Window.top, 1);
}

void cToolBar::OnToolTipText(NMTTDISPINFOA *pRequest) const
{
    const UINT_PTR nTool   = pRequest->hdr.idFrom;
    const UINT_PTR nString = IsComboBoxTool(nTool) ? IDS_FIND_TOOL : nTool;
    pRequest->hinst        = ProgramInstance();
    pRequest->lpszText     = MAKEINTRESOURCEA(nString);
}

HWND cToolBar::GetToolTipWindow() const
{
    return reinterpret_cast<HWND>(SendMessageA(m_hWnd, TB_GETTOOLTIPS, 0, 0));
}

int cToolBar::CreateComboBox(int nIndex)
{
    TBBUTTON Button = {};
    RECT     Rect   = {};
    SendMessageA(m_hWnd, TB_GETBUTTON, static_cast<WPARAM>(nIndex),
                 reinterpret_cast<LPARAM>(&Button));
    SendMessageA(m_hWnd, TB_GETITEMRECT, static_cast<WPARAM>(nIndex),
                 reinterpret_cast<LPARAM>(&Rect));

    m_ComboBox.reset(
        AllocateWithRetry(m_pBoxes, [this] { return new (std::nothrow) cComboBox(m_pBoxes); }));
    if (!m_ComboBox ||
        !m_ComboBox->Create(this, WS_VISIBLE | CBS_DROPDOWN, Rect.left, Rect.top,
                            Rect.right - Rect.left, Rect.bottom - Rect.top + kComboListHeight,
                            static_cast<uint32_t>(Button.idCommand)))
        return 0;

    // The edit field is a separate window and covers most of the combo box.
    AddTool(m_ComboBox->Window());
    AddTool(m_ComboBox->EditField());
    return 1;
}

// Makes the tooltip control ask the owner for the tip of a window in the toolbar.
void cToolBar::AddTool(HWND hTool) const
{
    TTTOOLINFOA Tool = {};
    Tool.cbSize      = TTTOOLINFOA_V2_SIZE;  // accepted by all versions of the library
    Tool.uFlags      = TTF_IDISHWND | TTF_SUBCLASS;
    Tool.hwnd        = m_pOwner->Window();
    Tool.uId         = reinterpret_cast<UINT_PTR>(hTool);
    Tool.lpszText    = LPSTR_TEXTCALLBACKA;
    SendMessageA(GetToolTipWindow(), TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&Tool));
}

int cToolBar::IsComboBoxTool(UINT_PTR nTool) const
{
    if (!m_ComboBox)
        return 0;
    const HWND hTool = reinterpret_cast<HWND>(nTool);
    return hTool == m_hWnd || hTool == m_ComboBox->Window() || hTool == m_ComboBox->EditField();
}
