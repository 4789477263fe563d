#include "toolkit/win32/progress_bar.h"

cProgressBar::cProgressBar(cMessageBoxes *pBoxes) : cBaseWindow(pBoxes)
{
    m_dwStyle = WS_CHILD;
}

const char *cProgressBar::GetClassName() const
{
    return PROGRESS_CLASSA;
}

int cProgressBar::Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth,
                         int nHeight, uint32_t nId, int nMaximum, int nStep)
{
    if (!CreateChild(pOwner, dwStyle, nX, nY, nWidth, nHeight, nId))
        return ReportFailure("ERROR: CreateWindow() failed in cProgressBar::Create()");

    SendMessageA(m_hWnd, PBM_SETRANGE32, 0, nMaximum);
    SendMessageA(m_hWnd, PBM_SETSTEP, static_cast<WPARAM>(nStep), 0);
    return 1;
}

void cProgressBar::SetPosition(int nPosition)
{
    SendMessageA(m_hWnd, PBM_SETPOS, static_cast<WPARAM>(nPosition), 0);
}

void cProgressBar::Step()
{
    SendMessageA(m_hWnd, PBM_STEPIT, 0, 0);
}
