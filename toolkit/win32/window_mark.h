// window_mark.h - a frame on a control that its program, not the platform, takes for
// the one in use: round all of it, or round one button of a toolbar.

#ifndef TOOLKIT_WIN32_WINDOW_MARK_H
#define TOOLKIT_WIN32_WINDOW_MARK_H

#include "toolkit/win32/win32.h"

const int kWholeWindow = -1;

class cWindowMark
{
public:
    cWindowMark() : m_hWnd(nullptr), m_nButton(kWholeWindow) {}
    ~cWindowMark() { Hide(); }
    cWindowMark(const cWindowMark &)            = delete;
    cWindowMark &operator=(const cWindowMark &) = delete;

    // Moves the mark to the edge of a window, which has to have one, or to a button of
    // a toolbar, by its index. The window may be destroyed while it is marked.
    void Show(HWND hWnd, int nButton);
    void Hide();

    HWND Window() const { return m_hWnd; }  // null for none

private:
    static LRESULT CALLBACK MarkedProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR nId, DWORD_PTR dwMark);
    void                    Paint(UINT nMessage) const;
    void                    PaintEdge() const;
    void                    PaintButton() const;

    HWND m_hWnd;
    int  m_nButton;
};

#endif
