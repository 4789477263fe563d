#include "tests/win32/file_dialog_steps.h"

#include "tests/win32/dialog_driver.h"

static const int kEditField  = 0x480;  // edt1
static const int kComboField = 0x47C;  // cmb13

HWND FileNameField(HWND hDialog)
{
    const HWND hEdit = GetDlgItem(hDialog, kEditField);
    return hEdit ? hEdit : GetDlgItem(hDialog, kComboField);
}

int GiveFileName(HWND hDialog, const std::string &Name)
{
    const HWND hField = FileNameField(hDialog);
    if (!hField)
        return 0;
    SendMessageA(hField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Name.c_str()));
    Press(hDialog, IDOK);
    return 1;
}

std::string FullPath(const std::string &Name)
{
    char szPath[MAX_PATH] = "";
    GetFullPathNameA(Name.c_str(), sizeof szPath, szPath, nullptr);
    return szPath;
}
