// keypad_accessibility.h - the keypad for screen readers and other programs that ask
// the platform what is on the screen: its children are the keys and slide switches, by
// their codes from 1 on, and after them the display.

#ifndef SHELL_WIN32_KEYPAD_ACCESSIBILITY_H
#define SHELL_WIN32_KEYPAD_ACCESSIBILITY_H

#include "toolkit/win32/win32.h"

struct cDisplay;
class cButtonArray;
class cKeypadAccessible;

class cKeypadAccessibility
{
public:
    cKeypadAccessibility();
    ~cKeypadAccessibility();
    cKeypadAccessibility(const cKeypadAccessibility &)            = delete;
    cKeypadAccessibility &operator=(const cKeypadAccessibility &) = delete;

    // From now on the keypad, which has all its keys, answers WM_GETOBJECT. 0 if
    // memory is short; then the platform describes it as one plain window.
    int Create(cButtonArray *pKeypad);

    // What the display shows. bTell: those who listen are told if it is something new.
    void SetDisplay(const cDisplay &Display, int bTell);

private:
    static LRESULT CALLBACK AskedProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR nId, DWORD_PTR dwAccessible);

    cKeypadAccessible *m_pAccessible;
};

#endif
