#include "tests/win32/dialog_driver.h"

#include <utility>

static const UINT kPeriod = 20;  // milliseconds

cDialogDriver *cDialogDriver::s_pCurrent = nullptr;

// The front dialog of this thread, null if there is none.
static HWND FrontDialog()
{
    HWND hFound = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            char szClass[16] = "";
            GetClassNameA(hWnd, szClass, sizeof szClass);
            if (lstrcmpA(szClass, "#32770") != 0 || !IsWindowVisible(hWnd) ||
                !IsWindowEnabled(hWnd))
                return TRUE;
            *reinterpret_cast<HWND *>(lParam) = hWnd;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&hFound));
    return hFound;
}

cDialogDriver::cDialogDriver(std::function<int(HWND hDialog)> Answer)
    : m_Answer(std::move(Answer)), m_nTimer(SetTimer(nullptr, 0, kPeriod, &TimerProc)), m_bDone(0)
{
    s_pCurrent = this;
}

cDialogDriver::~cDialogDriver()
{
    KillTimer(nullptr, m_nTimer);
    s_pCurrent = nullptr;
}

void CALLBACK cDialogDriver::TimerProc(HWND, UINT, UINT_PTR, DWORD)
{
    const HWND hDialog = FrontDialog();
    if (hDialog && s_pCurrent && !s_pCurrent->m_bDone)
        s_pCurrent->m_bDone = s_pCurrent->m_Answer(hDialog);
}

void Press(HWND hDialog, int nButton)
{
    PostMessageA(hDialog, WM_COMMAND, MAKEWPARAM(nButton, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(hDialog, nButton)));
}

std::string TextOf(HWND hWnd)
{
    char szText[4000] = "";
    SendMessageA(hWnd, WM_GETTEXT, sizeof szText, reinterpret_cast<LPARAM>(szText));
    return szText;
}
