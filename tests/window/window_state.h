// window_state.h - what any program can ask of a window: place, size and texts.

#ifndef TESTS_WINDOW_WINDOW_STATE_H
#define TESTS_WINDOW_WINDOW_STATE_H

#include "toolkit/win32/win32.h"

#include <string>

// Position on the screen, with the frame.
inline RECT RectOf(HWND hWnd)
{
    RECT Rect = {};
    GetWindowRect(hWnd, &Rect);
    return Rect;
}

// Width and height with the frame.
inline SIZE SizeOf(HWND hWnd)
{
    const RECT Rect = RectOf(hWnd);
    return {Rect.right - Rect.left, Rect.bottom - Rect.top};
}

// Position in the client area of hParent.
inline RECT RectIn(HWND hParent, HWND hWnd)
{
    RECT Rect = RectOf(hWnd);
    MapWindowPoints(nullptr, hParent, reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

// The client area; its upper left corner is (0, 0).
inline RECT ClientOf(HWND hWnd)
{
    RECT Client = {};
    GetClientRect(hWnd, &Client);
    return Client;
}

inline std::string TextOf(HWND hWnd)
{
    std::string Text(static_cast<size_t>(SendMessageA(hWnd, WM_GETTEXTLENGTH, 0, 0)), 0);
    SendMessageA(hWnd, WM_GETTEXT, Text.size() + 1, reinterpret_cast<LPARAM>(Text.data()));
    return Text;
}

// Name of the window's class, "Button".
inline std::string ClassOf(HWND hWnd)
{
    char szClass[64] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    return szClass;
}

#endif
