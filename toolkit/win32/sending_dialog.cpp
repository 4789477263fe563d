#include "toolkit/win32/sending_dialog.h"

#include "resources/resource.h"
#include "toolkit/win32/center_window.h"

static const int kTitle = 260;  // characters of a window title, terminating zero included

int cSendingDialog::Open(HWND hOwner, const char *szDocument)
{
    m_bCancelled = 0;
    m_hDialog    = CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(IDD_SENDING), hOwner,
                                      &DialogProc, reinterpret_cast<LPARAM>(this));
    if (!m_hDialog)
        return 0;

    char szTitle[kTitle] = "";
    GetWindowTextA(hOwner, szTitle, sizeof szTitle);
    SetWindowTextA(m_hDialog, szTitle);
    SetDlgItemTextA(m_hDialog, IDC_SENDING_DOCUMENT, szDocument);
    CenterWindow(m_hDialog);
    ShowWindow(m_hDialog, SW_SHOW);
    UpdateWindow(m_hDialog);
    return 1;
}

void cSendingDialog::Close()
{
    if (m_hDialog)
        DestroyWindow(m_hDialog);
    m_hDialog = nullptr;
}

int cSendingDialog::PumpMessages()
{
    MSG Message;
    while (!m_bCancelled && PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE))
    {
        if (Message.message == WM_QUIT)
        {
            m_bCancelled = 1;
            PostQuitMessage(static_cast<int>(Message.wParam));
        }
        else if (!m_hDialog || !IsDialogMessageA(m_hDialog, &Message))
        {
            TranslateMessage(&Message);
            DispatchMessageA(&Message);
        }
    }
    return !m_bCancelled;
}

INT_PTR CALLBACK cSendingDialog::DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam,
                                            LPARAM lParam)
{
    if (nMessage == WM_INITDIALOG)
    {
        SetWindowLongPtrA(hDialog, DWLP_USER, lParam);
        return TRUE;
    }
    if (nMessage == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
    {
        auto *const pThis =
            reinterpret_cast<cSendingDialog *>(GetWindowLongPtrA(hDialog, DWLP_USER));
        pThis->m_bCancelled = 1;
        return TRUE;
    }
    return FALSE;
}
