#include "shell/win32/dialogs.h"

#include "engine/vorstek_engine.h"
#include "resources/resource.h"
#include "toolkit/win32/center_window.h"
#include "toolkit/win32/modal_guard.h"

static void ShowOptions(HWND hDialog, const cOptions &Options)
{
    CheckRadioButton(hDialog, IDC_KEEP_LISTING, IDC_OPEN_LISTING,
                     Options.m_bKeepListingOpen ? IDC_KEEP_LISTING : IDC_OPEN_LISTING);
    CheckRadioButton(hDialog, IDC_KEEP_REGISTERS, IDC_OPEN_REGISTERS,
                     Options.m_bKeepRegistersOpen ? IDC_KEEP_REGISTERS : IDC_OPEN_REGISTERS);
    CheckDlgButton(hDialog, IDC_TRACE, Options.m_bTrace ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(hDialog, IDC_SOUND, Options.m_bSoundOff ? BST_UNCHECKED : BST_CHECKED);
}

static int IsChecked(HWND hDialog, int nId)
{
    return IsDlgButtonChecked(hDialog, nId) == BST_CHECKED;
}

static cOptions ReadOptions(HWND hDialog)
{
    return {IsChecked(hDialog, IDC_KEEP_LISTING), IsChecked(hDialog, IDC_KEEP_REGISTERS),
            IsChecked(hDialog, IDC_TRACE), !IsChecked(hDialog, IDC_SOUND)};
}

static int IsClosing(WPARAM wParam)
{
    return LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL;
}

static INT_PTR CALLBACK OptionsProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_INITDIALOG)
    {
        SetWindowLongPtrA(hDialog, DWLP_USER, lParam);
        CenterWindow(hDialog);
        ShowOptions(hDialog, *reinterpret_cast<const cOptions *>(lParam));
        return TRUE;
    }
    if (nMessage != WM_COMMAND || !IsClosing(wParam))
        return FALSE;
    if (LOWORD(wParam) == IDOK)
        *reinterpret_cast<cOptions *>(GetWindowLongPtrA(hDialog, DWLP_USER)) = ReadOptions(hDialog);
    EndDialog(hDialog, LOWORD(wParam));
    return TRUE;
}

int AskOptions(HWND hOwner, cOptions *pOptions)
{
    const cModalGuard Others(hOwner);
    return DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(IDD_OPTIONS), hOwner, OptionsProc,
                           reinterpret_cast<LPARAM>(pOptions)) == IDOK;
}

static INT_PTR CALLBACK AboutProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM)
{
    if (nMessage == WM_INITDIALOG)
    {
        CenterWindow(hDialog);
        return TRUE;
    }
    if (nMessage != WM_COMMAND || !IsClosing(wParam))
        return FALSE;
    EndDialog(hDialog, LOWORD(wParam));
    return TRUE;
}

void ShowAbout(HWND hOwner)
{
    const cModalGuard Others(hOwner);
    DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(IDD_ABOUT), hOwner, AboutProc, 0);
}
