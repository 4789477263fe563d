// base_window.h - a window and what the program knows about it. The program's
// own windows and the wrappers of the platform's controls derive from it.

#ifndef TOOLKIT_WIN32_BASE_WINDOW_H
#define TOOLKIT_WIN32_BASE_WINDOW_H

#include "toolkit/win32/win32.h"

#include "toolkit/callback_obj.h"

const uint32_t kWindowSlots = 2;  // callback slots of a window

class cBaseWindow : public cCallbackObj
{
public:
    // pBoxes shows the error messages and must outlive the object.
    explicit cBaseWindow(cMessageBoxes *pBoxes);

    // The platform destroys the window itself, together with its parent. A
    // window that outlives its object passes its messages to DefWindowProcA.
    ~cBaseWindow() override;

    const char *GetClassName() const override;

    // Do nothing if the window does not exist or is already shown (hidden).
    // Only earlier calls of Show and Hide count, not the platform's own state:
    // a child of a hidden window counts as shown.
    void Show();
    void Hide();
    void SetVisible(int bVisible);  // Show or Hide

    // In pixels of the owner's client area. 0 if there is no window.
    int Move(int nX, int nY, int nWidth, int nHeight, int bRepaint);

    HWND         Window() const { return m_hWnd; }
    cBaseWindow *Owner() const { return m_pOwner; }
    uint32_t     ChildId() const { return m_nChildId; }
    int          IsCreated() const { return m_bCreated != 0; }
    int          IsVisible() const { return m_bVisible != 0; }

    // For window procedures: the window has been created (destroyed).
    void Attach(HWND hWnd);
    void Detach();

protected:
    // Creates a child window of class GetClassName(). dwStyle is added to the
    // style set by the constructor; pParameter is passed to WM_CREATE. 0 on
    // failure, which the caller has to report.
    int CreateChild(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
                    uint32_t nId, void *pParameter = nullptr);

    // Records a window that has just been created by any other call.
    void SetCreated(HWND hWnd);

    // Shows szText, which names the failed call, in a box without an owner.
    // Always returns 0.
    int ReportFailure(const char *szText);

    uint32_t     m_nChildId;
    HWND         m_hWnd;
    DWORD        m_dwStyle;  // set by the constructor; Create adds to it
    DWORD        m_dwExStyle;
    cBaseWindow *m_pOwner;  // wrapper of the parent window
    uint32_t     m_bCreated;
    uint32_t     m_bVisible;

private:
    int m_bAttached;  // the window's user data points to this object
};

#endif
