#include "toolkit/win32/status_bar.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <utility>

#include "toolkit/win32/progress_bar.h"
#include "toolkit/win32/screen.h"

static const UINT kMenuClosed = 0xFFFF;
static const int  kMostParts  = 256;  // the platform's limit

// The progress bar within the last part, in pixels.
static const int kProgressLeft     = 4;
static const int kProgressTop      = 4;
static const int kProgressNarrower = 20;  // than the part, which ends in the size grip
static const int kProgressLower    = 6;   // than the status bar

cStatusBar::cStatusBar(cMessageBoxes *pBoxes) : cBaseWindow(pBoxes)
{
    m_dwStyle = WS_CHILD | CCS_BOTTOM | SBARS_SIZEGRIP;
}

cStatusBar::~cStatusBar() = default;

const char *cStatusBar::GetClassName() const
{
    return STATUSCLASSNAMEA;
}

int cStatusBar::Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, uint32_t nId,
                       int nParts, const int *pRightEdges)
{
    if (!CreateChild(pOwner, 0, nX, nY, nWidth, nHeight, nId))
        return ReportFailure("ERROR: CreateWindow() failed in cStatusBar::Create()");

    SendMessageA(m_hWnd, SB_SETPARTS, static_cast<WPARAM>(nParts),
                 reinterpret_cast<LPARAM>(pRightEdges));
    return 1;
}

int cStatusBar::SetText(int nPart, const char *szFormat, ...)
{
    char    szText[kStatusText];
    va_list pArguments;
    va_start(pArguments, szFormat);
    vsnprintf(szText, sizeof szText, szFormat, pArguments);
    va_end(pArguments);
    return SendMessageA(m_hWnd, SB_SETTEXTA, static_cast<WPARAM>(nPart),
                        reinterpret_cast<LPARAM>(szText)) != 0;
}

// The old font is deleted only after the control has the new one.
void cStatusBar::SetDpi(int nDpi)
{
    LOGFONTW LogFont = {};
    if (!FindStatusFont(nDpi, &LogFont))
        return;
    cGdiFont Font(CreateFontIndirectW(&LogFont));
    SendMessageA(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(Font.Get()), TRUE);
    m_Font = std::move(Font);
}

void cStatusBar::OnMenuSelect(UINT nItem, UINT nFlags, HMENU hMenu)
{
    if (nFlags == kMenuClosed && !hMenu)
    {
        SendMessageA(m_hWnd, SB_SIMPLE, FALSE, 0);
        return;
    }

    char szText[kMenuHelpText] = "";
    if (!(nFlags & (MF_POPUP | MF_SEPARATOR | MF_SYSMENU)))
        LoadStringA(ProgramInstance(), nItem, szText, sizeof szText);
    SendMessageA(m_hWnd, SB_SIMPLE, TRUE, 0);
    SendMessageA(m_hWnd, SB_SETTEXTA, SB_SIMPLEID | SBT_NOBORDERS,
                 reinterpret_cast<LPARAM>(szText));
}

void cStatusBar::AutoSize()
{
    SendMessageA(m_hWnd, WM_SIZE, 0, 0);
    InvalidateRect(m_hWnd, nullptr, TRUE);  // the size grip has moved
    if (m_pProgressBar)
        PlaceProgressBar();
}

void cStatusBar::SetProgressBar(cProgressBar *pProgressBar)
{
    m_pProgressBar.reset(pProgressBar);
}

void cStatusBar::PlaceProgressBar()
{
    RECT Client;
    GetClientRect(m_hWnd, &Client);
    const int nLeft   = LastPartLeft();
    const int nWidth  = static_cast<int>(Client.right) - nLeft - kProgressNarrower;
    const int nHeight = static_cast<int>(Client.bottom) - kProgressLower;
    m_pProgressBar->Move(nLeft + kProgressLeft, kProgressTop, std::max(nWidth, 0),
                         std::max(nHeight, 0), 1);
}

// The right edge of the previous part, 0 if there is only one.
int cStatusBar::LastPartLeft() const
{
    int       Edges[kMostParts] = {};
    const int nParts            = static_cast<int>(
        SendMessageA(m_hWnd, SB_GETPARTS, kMostParts, reinterpret_cast<LPARAM>(Edges)));
    return nParts > 1 ? Edges[nParts - 2] : 0;
}
