#include "toolkit/win32/list_box.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "toolkit/win32/gdi.h"

static const int kExtentMargin = 5;  // pixels right of the widest item

cListBox::cListBox(cMessageBoxes *pBoxes) : cBaseWindow(pBoxes)
{
    m_dwStyle   = WS_CHILD | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY;
    m_dwExStyle = WS_EX_CLIENTEDGE;
}

const char *cListBox::GetClassName() const
{
    return "LISTBOX";
}

int cListBox::Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
                     uint32_t nId)
{
    if (!CreateChild(pOwner, dwStyle, nX, nY, nWidth, nHeight, nId))
        return ReportFailure("ERROR: CreateWindow() failed in cListBox::Create()");
    return 1;
}

int cListBox::SetItem(int nIndex, const char *szText)
{
    const int bDone = PutItem(nIndex, szText);
    UpdateHorizontalExtent();
    return bDone;
}

// The results LB_ERR and LB_ERRSPACE are negative.
int cListBox::PutItem(int nIndex, const char *szText)
{
    const LPARAM lText = reinterpret_cast<LPARAM>(szText);
    if (nIndex < 0)
        return SendMessageA(m_hWnd, LB_ADDSTRING, 0, lText) >= 0;
    if (nIndex < Count() &&
        SendMessageA(m_hWnd, LB_DELETESTRING, static_cast<WPARAM>(nIndex), 0) < 0)
        return 0;
    return SendMessageA(m_hWnd, LB_INSERTSTRING, static_cast<WPARAM>(nIndex), lText) >= 0;
}

int cListBox::Count() const
{
    return static_cast<int>(SendMessageA(m_hWnd, LB_GETCOUNT, 0, 0));
}

int cListBox::GetItem(int nIndex, char *szText, size_t nSize) const
{
    const std::unique_ptr<char[]> Item = CopyItem(nIndex);
    snprintf(szText, nSize, "%s", Item ? Item.get() : "");
    return Item != nullptr;
}

// The platform copies complete items only, so the buffer must be large enough.
// Null if there is no such item, or if memory is short and the user gave up.
std::unique_ptr<char[]> cListBox::CopyItem(int nIndex) const
{
    const WPARAM  wIndex  = static_cast<WPARAM>(nIndex);
    const LRESULT nLength = SendMessageA(m_hWnd, LB_GETTEXTLEN, wIndex, 0);
    if (nLength < 0)
        return nullptr;
    const size_t            nRoom = static_cast<size_t>(nLength) + 1;
    std::unique_ptr<char[]> Item(
        AllocateWithRetry(m_pBoxes, [nRoom] { return new (std::nothrow) char[nRoom]; }));
    if (Item)
        SendMessageA(m_hWnd, LB_GETTEXT, wIndex, reinterpret_cast<LPARAM>(Item.get()));
    return Item;
}

int cListBox::DeleteItem(int nIndex)
{
    if (SendMessageA(m_hWnd, LB_DELETESTRING, static_cast<WPARAM>(nIndex), 0) < 0)
        return 0;
    UpdateHorizontalExtent();
    return 1;
}

void cListBox::Reset()
{
    SendMessageA(m_hWnd, LB_RESETCONTENT, 0, 0);
    UpdateHorizontalExtent();
}

int cListBox::GetSelection() const
{
    return static_cast<int>(SendMessageA(m_hWnd, LB_GETCURSEL, 0, 0));
}

// LB_SETCURSEL returns LB_ERR for -1 even though it succeeds.
int cListBox::SetSelection(int nIndex)
{
    const LRESULT nResult = SendMessageA(m_hWnd, LB_SETCURSEL, static_cast<WPARAM>(nIndex), 0);
    return nIndex == -1 || nResult >= 0;
}

void cListBox::UpdateHorizontalExtent()
{
    const cWindowDc    Dc(m_hWnd);
    const HGDIOBJ      hFont = reinterpret_cast<HGDIOBJ>(SendMessageA(m_hWnd, WM_GETFONT, 0, 0));
    const cSelectGuard Selected(Dc.Get(), hFont ? hFont : GetStockObject(SYSTEM_FONT));

    int nWidest = 0;
    for (int i = 0, nCount = Count(); i < nCount; i++)
        nWidest = std::max(nWidest, ItemWidth(Dc.Get(), i));
    const int nExtent = nWidest + kExtentMargin;
    SendMessageA(m_hWnd, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(nExtent), 0);
}

int cListBox::ItemWidth(HDC hDc, int nIndex) const
{
    const std::unique_ptr<char[]> Item = CopyItem(nIndex);
    if (!Item)
        return 0;
    SIZE Size = {};
    GetTextExtentPoint32A(hDc, Item.get(), static_cast<int>(strlen(Item.get())), &Size);
    return static_cast<int>(Size.cx);
}
