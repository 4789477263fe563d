// base_window.h - a window and what the program knows of it. The windows of the
// program and the wrappers of the platform's controls derive from it.

#ifndef TOOLKIT_BASE_WINDOW_H
#define TOOLKIT_BASE_WINDOW_H

#include "toolkit/win32/win32.h"

#include "toolkit/callback_obj.h"

const uint32_t kWindowSlots = 2;  // callback slots of a window

class cBaseWindow : public cCallbackObj
{
public:
    // pBoxes shows what fails and must outlive the object.
    explicit cBaseWindow(cMessageBoxes *pBoxes);

    // The window itself is destroyed by the platform, with its parent. One that
    // lives longer than its object answers as DefWindowProcA does.
    ~cBaseWindow() override;

    const char *GetClassName() const override;

    // Nothing happens to a window that does not exist or is shown (hidden)
    // already. What counts is what Show and Hide have done, not what the
    // platform says: a child of a hidden window may be shown.
    void Show();
    void Hide();

    // In pixels of the owner's client area. Returns 1, or 0 if there is no
    // window.
    int Move(int nX, int nY, int nWidth, int nHeight, int bRepaint);

    HWND         Window() const { return m_hWnd; }
    cBaseWindow *Owner() const { return m_pOwner; }
    uint32_t     ChildId() const { return m_nChildId; }
    int          IsCreated() const { return m_bCreated; }
    int          IsVisible() const { return m_bVisible; }

    // For window procedures: the window has begun to exist, is gone.
    void Attach(HWND hWnd);
    void Detach();

protected:
    // Creates a child window of class GetClassName() with the style of the
    // constructor and dwStyle. pParameter is what WM_CREATE brings. 0 on
    // failure, which nothing has reported yet.
    int CreateChild(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
                    uint32_t nId, void *pParameter = nullptr);

    // Notes a window that has just been created, in whatever way.
    void SetCreated(HWND hWnd);

    // Shows szText, which names the failed call, above no window. Always returns 0.
    int ReportFailure(const char *szText);

    uint32_t     m_nChildId;
    HWND         m_hWnd;
    DWORD        m_dwStyle;  // of the constructor, then of the window
    DWORD        m_dwExStyle;
    cBaseWindow *m_pOwner;  // wrapper of the parent window
    uint32_t     m_bCreated;
    uint32_t     m_bVisible;

private:
    int m_bAttached;  // the window's user data points to this object
};

#endif
