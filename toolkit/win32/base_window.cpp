#include "toolkit/win32/base_window.h"

cBaseWindow::cBaseWindow(cMessageBoxes *pBoxes)
    : cCallbackObj(kWindowSlots, pBoxes), m_nChildId(0), m_hWnd(nullptr), m_dwStyle(0),
      m_dwExStyle(0), m_pOwner(nullptr), m_bCreated(0), m_bVisible(0), m_bAttached(0)
{
}

cBaseWindow::~cBaseWindow()
{
    if (m_bAttached)
        SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, 0);
    m_hWnd   = nullptr;
    m_pOwner = nullptr;
}

const char *cBaseWindow::GetClassName() const
{
    return "cBaseWindow";
}

void cBaseWindow::Show()
{
    if (!m_bCreated || m_bVisible)
        return;
    ShowWindow(m_hWnd, SW_SHOW);
    m_bVisible = 1;
}

void cBaseWindow::Hide()
{
    if (!m_bCreated || !m_bVisible)
        return;
    ShowWindow(m_hWnd, SW_HIDE);
    m_bVisible = 0;
}

void cBaseWindow::SetVisible(int bVisible)
{
    if (bVisible)
        Show();
    else
        Hide();
}

int cBaseWindow::Move(int nX, int nY, int nWidth, int nHeight, int bRepaint)
{
    return MoveWindow(m_hWnd, nX, nY, nWidth, nHeight, bRepaint) ? 1 : 0;
}

void cBaseWindow::Attach(HWND hWnd)
{
    m_hWnd      = hWnd;
    m_bAttached = 1;
}

void cBaseWindow::Detach()
{
    m_hWnd      = nullptr;
    m_bAttached = 0;
    m_bCreated  = 0;
    m_bVisible  = 0;
}

int cBaseWindow::CreateChild(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth,
                             int nHeight, uint32_t nId, void *pParameter)
{
    m_dwStyle |= dwStyle;
    m_pOwner        = pOwner;
    m_nChildId      = nId;
    const HWND hWnd = CreateWindowExA(
        m_dwExStyle, GetClassName(), "", m_dwStyle, nX, nY, nWidth, nHeight, pOwner->m_hWnd,
        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nId)), ProgramInstance(), pParameter);
    if (!hWnd)
        return 0;
    SetCreated(hWnd);
    return 1;
}

void cBaseWindow::SetCreated(HWND hWnd)
{
    m_hWnd     = hWnd;
    m_bCreated = 1;
    m_bVisible = (m_dwStyle & WS_VISIBLE) ? 1 : 0;
}

int cBaseWindow::ReportFailure(const char *szText)
{
    m_pBoxes->ReportUnowned(szText, nullptr);
    return 0;
}
