#include "toolkit/win32/accessible.h"

#include "toolkit/win32/system_library.h"

typedef LRESULT(WINAPI *cLresultFromObject)(REFIID Interface, WPARAM wParam, IUnknown *pObject);
typedef HRESULT(WINAPI *cObjectFromWindow)(HWND hWnd, DWORD nId, REFIID Interface, void **ppObject);

BSTR AccessibleText(const char *szText)
{
    const int nLength = MultiByteToWideChar(CP_UTF8, 0, szText, -1, nullptr, 0);
    if (nLength < 1)
        return nullptr;
    const BSTR pText = SysAllocStringLen(nullptr, static_cast<UINT>(nLength - 1));
    if (pText)
        MultiByteToWideChar(CP_UTF8, 0, szText, -1, pText, nLength);
    return pText;
}

// The library is loaded when the first screen reader asks: most users have none.
static HMODULE Library()
{
    static const HMODULE s_hLibrary = LoadSystemLibrary("oleacc.dll");
    return s_hLibrary;
}

LRESULT AnswerGetObject(WPARAM wParam, IAccessible *pObject)
{
    static const auto s_pfnAnswer =
        FindFunction<cLresultFromObject>(Library(), "LresultFromObject");
    // The reference is to this thread, which needs an apartment for it.
    static const HRESULT s_nApartment = CoInitialize(nullptr);
    if (!s_pfnAnswer || FAILED(s_nApartment))
        return 0;
    return s_pfnAnswer(__uuidof(IAccessible), wParam, pObject);
}

HRESULT ObjectOfWindow(HWND hWnd, IDispatch **ppObject)
{
    static const auto s_pfnFind =
        FindFunction<cObjectFromWindow>(Library(), "AccessibleObjectFromWindow");
    void         *pObject = nullptr;
    const HRESULT nResult = s_pfnFind ? s_pfnFind(hWnd, static_cast<DWORD>(OBJID_WINDOW),
                                                  __uuidof(IAccessible), &pObject)
                                      : E_NOTIMPL;
    *ppObject             = static_cast<IAccessible *>(pObject);
    return nResult;
}
