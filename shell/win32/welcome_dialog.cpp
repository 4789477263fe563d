#include "shell/win32/welcome_dialog.h"

#include <algorithm>

#include "resources/resource.h"
#include "shell/win32/sounds.h"
#include "toolkit/win32/center_window.h"

static const UINT kWelcomeTime = 2000;  // milliseconds

static void AllowOk(HWND hDialog)
{
    PlayProgramSound(IDW_SLIDE_ON);  // also serves as the chime
    KillTimer(hDialog, IDT_WELCOME);
    EnableWindow(GetDlgItem(hDialog, IDOK), TRUE);
}

static RECT RectInDialog(HWND hDialog, HWND hChild)
{
    RECT Rect = {};
    GetWindowRect(hChild, &Rect);
    MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

// The picture is measured in pixels, the dialog in units of a font that may be
// smaller than usual. Enlarges the dialog so that the button is below the picture.
static void FitPicture(HWND hDialog)
{
    const HWND hOk     = GetDlgItem(hDialog, IDOK);
    const RECT Picture = RectInDialog(hDialog, FindWindowExA(hDialog, nullptr, "STATIC", nullptr));
    const RECT Ok      = RectInDialog(hDialog, hOk);
    RECT       Client  = {};
    RECT       Window  = {};
    GetClientRect(hDialog, &Client);
    GetWindowRect(hDialog, &Window);

    const LONG nMargin = Client.bottom - Ok.bottom;
    const LONG nRight  = std::max<LONG>(Picture.right - Client.right, 0);
    const LONG nDown   = std::max<LONG>(Picture.bottom + nMargin - Ok.top, 0);
    SetWindowPos(hOk, nullptr, Ok.left + nRight, Ok.top + nDown, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SetWindowPos(hDialog, nullptr, 0, 0, Window.right - Window.left + nRight,
                 Window.bottom - Window.top + nDown, SWP_NOMOVE | SWP_NOZORDER);
}

static INT_PTR CALLBACK WelcomeProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM)
{
    switch (nMessage)
    {
    case WM_INITDIALOG:
        FitPicture(hDialog);
        CenterWindow(hDialog);
        SetTimer(hDialog, IDT_WELCOME, kWelcomeTime, nullptr);
        return TRUE;
    case WM_TIMER:
        AllowOk(hDialog);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)
            return FALSE;
        EndDialog(hDialog, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

void ShowWelcome()
{
    DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(IDD_WELCOME), nullptr, WelcomeProc, 0);
}
