#include "toolkit/win32/clipboard.h"

#include <cstring>

namespace
{

class cOpenClipboard
{
public:
    explicit cOpenClipboard(HWND hWnd) : m_bOpen(OpenClipboard(hWnd)) {}
    ~cOpenClipboard()
    {
        if (m_bOpen)
            CloseClipboard();
    }
    cOpenClipboard(const cOpenClipboard &)            = delete;
    cOpenClipboard &operator=(const cOpenClipboard &) = delete;

    int IsOpen() const { return m_bOpen; }

private:
    int m_bOpen;
};

}  // namespace

static HGLOBAL MakeShared(const char *szText)
{
    const size_t  nSize   = strlen(szText) + 1;
    const HGLOBAL hShared = GlobalAlloc(GMEM_MOVEABLE, nSize);
    void *const   pShared = hShared ? GlobalLock(hShared) : nullptr;
    if (!pShared)
        return nullptr;  // memory is short, so there is none to free
    memcpy(pShared, szText, nSize);
    GlobalUnlock(hShared);
    return hShared;
}

int CopyText(HWND hOwner, const char *szText)
{
    const cOpenClipboard Clipboard(hOwner);
    if (!Clipboard.IsOpen() || !EmptyClipboard())
        return 0;
    const HGLOBAL hShared = MakeShared(szText);
    if (!hShared)
        return 0;
    if (SetClipboardData(CF_TEXT, hShared))
        return 1;  // the memory belongs to the clipboard now
    GlobalFree(hShared);
    return 0;
}

// The text may be as large as its memory and without an end.
int ReadCopiedText(HWND hReader, char *szText, size_t nSize)
{
    szText[0] = 0;
    const cOpenClipboard Clipboard(hReader);
    const HANDLE         hShared = Clipboard.IsOpen() ? GetClipboardData(CF_TEXT) : nullptr;
    const void *const    pShared = hShared ? GlobalLock(hShared) : nullptr;
    if (!pShared)
        return 0;
    const auto  *pText   = static_cast<const char *>(pShared);
    const size_t nLength = strnlen(pText, GlobalSize(hShared));
    const int    bFits   = nLength < nSize;
    if (bFits)
    {
        memcpy(szText, pText, nLength);
        szText[nLength] = 0;
    }
    GlobalUnlock(hShared);
    return bFits;
}
