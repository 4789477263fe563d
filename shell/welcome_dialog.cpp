#include "shell/welcome_dialog.h"

#include "engine/vorstek_engine.h"
#include "resources/resource.h"

static const UINT kWelcomeTime = 2000;  // milliseconds

static void AllowOk(HWND hDialog)
{
    PlaySoundA(MAKEINTRESOURCEA(kSoundStackView), ProgramInstance(),
               SND_RESOURCE | SND_ASYNC | SND_NODEFAULT);
    KillTimer(hDialog, IDT_WELCOME);
    EnableWindow(GetDlgItem(hDialog, IDOK), TRUE);
}

static INT_PTR CALLBACK WelcomeProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM)
{
    switch (nMessage)
    {
    case WM_INITDIALOG:
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
