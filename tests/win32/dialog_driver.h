// dialog_driver.h - operates a modal dialog that the tested code shows.
//
//     cDialogDriver Driver([](HWND hDialog) { Press(hDialog, IDCANCEL); return 1; });
//     CHECK(AskFileName(...) == 0);
//     CHECK(Driver.IsDone());

#ifndef TESTS_WIN32_DIALOG_DRIVER_H
#define TESTS_WIN32_DIALOG_DRIVER_H

#include "toolkit/win32/win32.h"

#include <functional>
#include <string>

class cDialogDriver
{
public:
    // Calls Answer repeatedly with the front dialog, from the dialogs' message
    // loops, until it returns 1 or the driver is destroyed. One driver at a time.
    explicit cDialogDriver(std::function<int(HWND hDialog)> Answer);
    ~cDialogDriver();
    cDialogDriver(const cDialogDriver &)            = delete;
    cDialogDriver &operator=(const cDialogDriver &) = delete;

    int IsDone() const { return m_bDone; }

private:
    static void CALLBACK TimerProc(HWND hWnd, UINT nMessage, UINT_PTR nTimer, DWORD dwTime);

    static cDialogDriver *s_pCurrent;

    std::function<int(HWND)> m_Answer;
    UINT_PTR                 m_nTimer;
    int                      m_bDone;
};

// Posts a click on a button of a dialog.
void Press(HWND hDialog, int nButton);

// The text of a window or a control, 3999 characters at most.
std::string TextOf(HWND hWnd);

#endif
