// combo_box.h - the platform's combo box, which notifies its owner when Enter is
// pressed in its edit field.

#ifndef TOOLKIT_WIN32_COMBO_BOX_H
#define TOOLKIT_WIN32_COMBO_BOX_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/base_window.h"

// Notification codes of WM_COMMAND, in addition to the platform's.
const WORD kComboEnter      = 30;
const WORD kComboShiftEnter = 31;

class cComboBox : public cBaseWindow
{
public:
    explicit cComboBox(cMessageBoxes *pBoxes);
    ~cComboBox() override;

    const char *GetClassName() const override;  // "COMBOBOX"

    // A hidden combo box in the platform's font for controls; nHeight includes
    // the dropped-down list. dwStyle is added to CBS_AUTOHSCROLL and a vertical
    // scroll bar; with CBS_DROPDOWNLIST there is no edit field, hence no Enter.
    // 0, after a message box, if it cannot be created.
    int Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
               uint32_t nId);

    // Has the box, or the part of it within Rect, repainted.
    void Invalidate();
    void Invalidate(const RECT &Rect);

    HWND EditField() const { return m_hEdit; }  // null if there is none

private:
    static LRESULT CALLBACK EditProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    void SubclassEdit();
    void RestoreEdit();
    void OnEnter();

    HWND    m_hEdit;
    WNDPROC m_pfnFormerProc;  // of the edit field
};

#endif
