#include "toolkit/win32/window_mark.h"

#include "toolkit/win32/gdi.h"

static const UINT_PTR kMarkId = 1;

// In pixels: as wide as the edge of a window.
static void PaintFrame(HDC hDc, const RECT &Frame)
{
    const HBRUSH hBrush = GetSysColorBrush(COLOR_HIGHLIGHT);
    RECT         Line   = Frame;
    for (int i = 0; i < GetSystemMetrics(SM_CXEDGE); i++)
    {
        FrameRect(hDc, &Line, hBrush);
        InflateRect(&Line, -1, -1);
    }
}

static void Repaint(HWND hWnd)
{
    RedrawWindow(hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE);
}

void cWindowMark::Show(HWND hWnd, int nButton)
{
    Hide();
    m_hWnd    = hWnd;
    m_nButton = nButton;
    SetWindowSubclass(hWnd, MarkedProc, kMarkId, reinterpret_cast<DWORD_PTR>(this));
    Repaint(hWnd);
}

void cWindowMark::Hide()
{
    if (!m_hWnd)
        return;
    const HWND hWnd = m_hWnd;
    m_hWnd          = nullptr;
    RemoveWindowSubclass(hWnd, MarkedProc, kMarkId);
    Repaint(hWnd);
}

LRESULT CALLBACK cWindowMark::MarkedProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR, DWORD_PTR dwMark)
{
    auto *const   pMark   = reinterpret_cast<cWindowMark *>(dwMark);
    const LRESULT nResult = DefSubclassProc(hWnd, nMessage, wParam, lParam);
    if (nMessage == WM_NCDESTROY)
    {
        RemoveWindowSubclass(hWnd, MarkedProc, kMarkId);
        pMark->m_hWnd = nullptr;
    }
    else
        pMark->Paint(nMessage);
    return nResult;
}

void cWindowMark::Paint(UINT nMessage) const
{
    if (m_nButton == kWholeWindow && nMessage == WM_NCPAINT)
        PaintEdge();
    else if (m_nButton != kWholeWindow && nMessage == WM_PAINT)
        PaintButton();
}

void cWindowMark::PaintEdge() const
{
    RECT Window = {};
    GetWindowRect(m_hWnd, &Window);
    OffsetRect(&Window, -Window.left, -Window.top);
    const HDC hDc = GetWindowDC(m_hWnd);
    PaintFrame(hDc, Window);
    ReleaseDC(m_hWnd, hDc);
}

void cWindowMark::PaintButton() const
{
    RECT            Button = {};
    const cWindowDc Dc(m_hWnd);
    SendMessageA(m_hWnd, TB_GETITEMRECT, static_cast<WPARAM>(m_nButton),
                 reinterpret_cast<LPARAM>(&Button));
    PaintFrame(Dc.Get(), Button);
}
