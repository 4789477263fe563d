#include "shell/win32/keypad_tooltips.h"

#include "engine/vorstek_engine.h"
#include "shell/key_names.h"
#include "shell/win32/button_array.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/status_bar.h"

static const UINT_PTR kWatchId  = 2;
static const int      kTipWidth = 600;  // pixels; above all for line ends to count

// In milliseconds. A tip covers the next row of keys, so it keeps out of the way of a
// mouse that is entering a number.
static const int kTipDelay = 1000;

cKeypadTooltips::cKeypadTooltips(const cVorstekEngine *pEngine)
    : m_pEngine(pEngine), m_pKeypad(nullptr), m_pStatusBar(nullptr), m_hWnd(nullptr), m_FirstKey{},
      m_szStatus("")
{
}

int cKeypadTooltips::Create(cButtonArray *pKeypad, cStatusBar *pStatusBar)
{
    m_pKeypad    = pKeypad;
    m_pStatusBar = pStatusBar;
    m_hWnd       = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                   WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                                   CW_USEDEFAULT, CW_USEDEFAULT, pKeypad->Owner()->Window(), nullptr,
                                   ProgramInstance(), nullptr);
    if (!m_hWnd)
        return 0;
    SendMessageA(m_hWnd, TTM_SETMAXTIPWIDTH, 0, kTipWidth);
    SendMessageA(m_hWnd, TTM_SETDELAYTIME, TTDT_INITIAL, kTipDelay);
    SendMessageA(m_hWnd, TTM_SETDELAYTIME, TTDT_RESHOW, kTipDelay);
    for (unsigned nCode = 1; nCode <= pKeypad->CountCodes(); nCode++)
        AddKey(nCode);
    AddStatusBar();
    m_FirstKey = pKeypad->RectOf(1);
    return SetWindowSubclass(pKeypad->Window(), WatchedProc, kWatchId,
                             reinterpret_cast<DWORD_PTR>(this));
}

static TTTOOLINFOW KeyTool(const cButtonArray &Keypad, unsigned nCode)
{
    TTTOOLINFOW Tool = {};
    Tool.cbSize      = TTTOOLINFOW_V2_SIZE;  // accepted by all versions of the library
    Tool.hwnd        = Keypad.Window();
    Tool.uId         = nCode;
    Tool.rect        = Keypad.RectOf(nCode);
    return Tool;
}

void cKeypadTooltips::AddKey(unsigned nCode)
{
    char    szText[kKeyTip];
    wchar_t szWide[kKeyTip];
    FormatKeyTip(nCode, szText);
    MultiByteToWideChar(CP_UTF8, 0, szText, -1, szWide, kKeyTip);
    TTTOOLINFOW Tool = KeyTool(*m_pKeypad, nCode);
    Tool.lpszText    = szWide;
    SendMessageA(m_hWnd, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&Tool));
}

void cKeypadTooltips::AddStatusBar()
{
    TTTOOLINFOA Tool = {};
    Tool.cbSize      = TTTOOLINFOA_V2_SIZE;
    Tool.uFlags      = TTF_IDISHWND | TTF_SUBCLASS;
    Tool.hwnd        = m_pStatusBar->Owner()->Window();
    Tool.uId         = reinterpret_cast<UINT_PTR>(m_pStatusBar->Window());
    Tool.lpszText    = LPSTR_TEXTCALLBACKA;
    SendMessageA(m_hWnd, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&Tool));
}

// The keys may have moved, on a screen of another resolution.
void cKeypadTooltips::PlaceKeys()
{
    const RECT FirstKey = m_pKeypad->RectOf(1);
    if (EqualRect(&FirstKey, &m_FirstKey))
        return;
    m_FirstKey = FirstKey;
    for (unsigned nCode = 1; nCode <= m_pKeypad->CountCodes(); nCode++)
    {
        TTTOOLINFOW Tool = KeyTool(*m_pKeypad, nCode);
        SendMessageA(m_hWnd, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&Tool));
    }
}

void cKeypadTooltips::Relay(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (m_pEngine->IsRunning())
    {
        SendMessageA(m_hWnd, TTM_POP, 0, 0);
        return;
    }
    PlaceKeys();
    MSG Message     = {};
    Message.hwnd    = m_pKeypad->Window();
    Message.message = nMessage;
    Message.wParam  = wParam;
    Message.lParam  = lParam;
    SendMessageA(m_hWnd, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&Message));
}

// A press starts a run, perhaps, so the tip goes before that.
LRESULT CALLBACK cKeypadTooltips::WatchedProc(HWND hWnd, UINT nMessage, WPARAM wParam,
                                              LPARAM lParam, UINT_PTR, DWORD_PTR dwTips)
{
    auto *const pTips = reinterpret_cast<cKeypadTooltips *>(dwTips);
    if (nMessage >= WM_MOUSEFIRST && nMessage <= WM_MOUSELAST)
        pTips->Relay(nMessage, wParam, lParam);
    if (nMessage == WM_NCDESTROY)
        RemoveWindowSubclass(hWnd, WatchedProc, kWatchId);
    return DefSubclassProc(hWnd, nMessage, wParam, lParam);
}

int cKeypadTooltips::IsStatusCut() const
{
    const HWND         hBar = m_pStatusBar->Window();
    const cWindowDc    Dc(hBar);
    const cSelectGuard Font(Dc.Get(),
                            reinterpret_cast<HGDIOBJ>(SendMessageA(hBar, WM_GETFONT, 0, 0)));
    SIZE               Text = {};
    RECT               Part = {};
    GetTextExtentPoint32A(Dc.Get(), m_szStatus, lstrlenA(m_szStatus), &Text);
    SendMessageA(hBar, SB_GETRECT, 0, reinterpret_cast<LPARAM>(&Part));
    return Text.cx > Part.right - Part.left - GetSystemMetrics(SM_CXVSCROLL);
}

void cKeypadTooltips::OnTipText(NMTTDISPINFOA *pRequest)
{
    m_szStatus[0] = 0;
    SendMessageA(m_pStatusBar->Window(), SB_GETTEXTA, 0, reinterpret_cast<LPARAM>(m_szStatus));
    if (m_pEngine->IsRunning() || !IsStatusCut())
        m_szStatus[0] = 0;
    pRequest->lpszText = m_szStatus;
}
