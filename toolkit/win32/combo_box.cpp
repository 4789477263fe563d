#include "toolkit/win32/combo_box.h"

static const WPARAM kEnter = 13;

cComboBox::cComboBox(cMessageBoxes *pBoxes)
    : cBaseWindow(pBoxes), m_hEdit(nullptr), m_pfnFormerProc(nullptr)
{
    m_dwStyle = WS_CHILD | WS_VSCROLL | CBS_AUTOHSCROLL;
}

cComboBox::~cComboBox()
{
    RestoreEdit();
}

const char *cComboBox::GetClassName() const
{
    return "COMBOBOX";
}

int cComboBox::Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
                      uint32_t nId)
{
    if (!CreateChild(pOwner, dwStyle, nX, nY, nWidth, nHeight, nId))
        return ReportFailure("ERROR: CreateWindow() failed in cComboBox::Create()");

    SubclassEdit();
    SendMessageA(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                 FALSE);
    return 1;
}

void cComboBox::Invalidate()
{
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void cComboBox::Invalidate(const RECT &Rect)
{
    RedrawWindow(m_hWnd, &Rect, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void cComboBox::SubclassEdit()
{
    m_hEdit = FindWindowExA(m_hWnd, nullptr, "EDIT", nullptr);
    if (!m_hEdit)
        return;
    SetWindowLongPtrA(m_hEdit, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_pfnFormerProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(m_hEdit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EditProc)));
}

void cComboBox::RestoreEdit()
{
    if (!m_hEdit)
        return;
    SetWindowLongPtrA(m_hEdit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnFormerProc));
    m_hEdit = nullptr;
}

LRESULT CALLBACK cComboBox::EditProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    auto *const pThis = reinterpret_cast<cComboBox *>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    if (nMessage == WM_CHAR && wParam == kEnter)
    {
        pThis->OnEnter();
        return 0;
    }
    if (nMessage == WM_DESTROY)
        pThis->RestoreEdit();
    return CallWindowProcA(pThis->m_pfnFormerProc, hWnd, nMessage, wParam, lParam);
}

void cComboBox::OnEnter()
{
    const WORD nCode = GetKeyState(VK_SHIFT) < 0 ? kComboShiftEnter : kComboEnter;
    SendMessageA(m_pOwner->Window(), WM_COMMAND, MAKEWPARAM(m_nChildId, nCode),
                 reinterpret_cast<LPARAM>(m_hWnd));
}
