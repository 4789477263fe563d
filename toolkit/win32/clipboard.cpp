#include "toolkit/win32/clipboard.h"

#include <cstring>
#include <memory>

namespace
{

struct cSharedFreer
{
    void operator()(HGLOBAL hShared) const { GlobalFree(hShared); }
};

// Memory that programs can hand to one another.
using cShared = std::unique_ptr<void, cSharedFreer>;

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

static cShared MakeShared(const char *szText)
{
    const size_t nSize = strlen(szText) + 1;
    cShared      Shared(GlobalAlloc(GMEM_MOVEABLE, nSize));
    void *const  pShared = Shared ? GlobalLock(Shared.get()) : nullptr;
    if (!pShared)
        return nullptr;
    memcpy(pShared, szText, nSize);
    GlobalUnlock(Shared.get());
    return Shared;
}

int CopyText(HWND hOwner, const char *szText)
{
    const cOpenClipboard Clipboard(hOwner);
    if (!Clipboard.IsOpen() || !EmptyClipboard())
        return 0;
    cShared Shared = MakeShared(szText);
    if (!Shared || !SetClipboardData(CF_TEXT, Shared.get()))
        return 0;
    static_cast<void>(Shared.release());  // it belongs to the clipboard now
    return 1;
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
