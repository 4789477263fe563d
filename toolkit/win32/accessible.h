// accessible.h - the platform's interface for screen readers, and what its users need.

#ifndef TOOLKIT_WIN32_ACCESSIBLE_H
#define TOOLKIT_WIN32_ACCESSIBLE_H

#include "toolkit/win32/win32.h"

#include <oleacc.h>

// A copy of a UTF-8 text for the caller of an interface, who frees it. Null when memory
// is short.
BSTR AccessibleText(const char *szText);

// The answer to WM_GETOBJECT: a reference to pObject that the asking process can use.
// 0 if the platform's library is missing.
LRESULT AnswerGetObject(WPARAM wParam, IAccessible *pObject);

// The platform's own object of a window, whose client area another object describes.
// A result of COM; *ppObject is null unless it is S_OK.
HRESULT ObjectOfWindow(HWND hWnd, IDispatch **ppObject);

#endif
