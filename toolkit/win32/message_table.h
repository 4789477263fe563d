// message_table.h - window procedures as tables of message and handler.
//
//     const cKeypad::cMessageRow cKeypad::s_Messages[] =
//     {
//         { WM_SIZE,  &cKeypad::OnSize  },
//         { WM_PAINT, &cKeypad::OnPaint },
//     };
//
//     LRESULT CALLBACK cKeypad::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam,
//                                          LPARAM lParam)
//     {
//         return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
//     }

#ifndef TOOLKIT_WIN32_MESSAGE_TABLE_H
#define TOOLKIT_WIN32_MESSAGE_TABLE_H

#include "toolkit/win32/win32.h"

#include <cstddef>

#include "toolkit/win32/memory_guard.h"

// One row; a class names it by "using cMessageRow = cMessageRowOf<cKeypad>;".
template <class cWindow> struct cMessageRowOf
{
    UINT m_nMessage;
    LRESULT (cWindow::*m_pfnHandler)(WPARAM wParam, LPARAM lParam);
};

// Finds the object of the window, calls the handler of the message and returns
// its result, or 0 if memory ran out. Messages without a row, and all messages before WM_CREATE, go to
// DefWindowProcA. Call this after the definition of the table, so that its size
// is known.
//
// The window's creation parameter is the object, as a cWindow *; cWindow derives
// from cBaseWindow. WM_CREATE attaches the object before its handler runs, and
// WM_NCDESTROY, which cannot have a row, detaches it.
template <class cWindow, size_t nRows>
LRESULT HandleMessage(const cMessageRowOf<cWindow> (&Rows)[nRows], HWND hWnd, UINT nMessage,
                      WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_CREATE)
    {
        const auto *const pCreate = reinterpret_cast<const CREATESTRUCTA *>(lParam);
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pCreate->lpCreateParams));
        static_cast<cWindow *>(pCreate->lpCreateParams)->Attach(hWnd);
    }

    auto *const pWindow = reinterpret_cast<cWindow *>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    if (!pWindow)
        return DefWindowProcA(hWnd, nMessage, wParam, lParam);
    if (nMessage == WM_NCDESTROY)
    {
        pWindow->Detach();
        return DefWindowProcA(hWnd, nMessage, wParam, lParam);
    }

    for (const cMessageRowOf<cWindow> &Row : Rows)
        if (Row.m_nMessage == nMessage)
            return EndWithoutMemory([&] { return (pWindow->*Row.m_pfnHandler)(wParam, lParam); });
    return DefWindowProcA(hWnd, nMessage, wParam, lParam);
}

#endif
