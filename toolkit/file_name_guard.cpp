#include "toolkit/file_name_guard.h"

#include <cstring>

#include "toolkit/file_dialogs.h"

namespace
{

const int      kEditField  = 0x480;  // edt1: of a dialog with a plain field,
const int      kComboField = 0x47C;  // cmb13: or with one that lists old names
const UINT_PTR kSubclass   = 1;
const char     kTooLong[] =
    "The file name is too long: it may have 259 characters, its folder included.";
static_assert(kFileName == 259 + 1);

HWND NameField(HWND hDialog)
{
    const HWND hEdit = GetDlgItem(hDialog, kEditField);
    return hEdit ? hEdit : GetDlgItem(hDialog, kComboField);
}

std::string TextOf(HWND hField)
{
    const LRESULT nLength = SendMessageA(hField, WM_GETTEXTLENGTH, 0, 0);
    std::string   Text(static_cast<size_t>(nLength) + 1, 0);
    SendMessageA(hField, WM_GETTEXT, Text.size(), reinterpret_cast<LPARAM>(Text.data()));
    Text.resize(strlen(Text.c_str()));
    return Text;
}

// "C:\log.txt" or "\\computer\folder\log.txt"
int HasFolder(const std::string &Name)
{
    return (Name.size() > 1 && Name[1] == ':') || Name.compare(0, 2, "\\\\") == 0;
}

int HasExtension(const std::string &Name)
{
    const size_t nPoint = Name.rfind('.');
    return nPoint != std::string::npos && Name.find_first_of("\\/", nPoint) == std::string::npos;
}

}  // namespace

cFileNameGuard *cFileNameGuard::s_pCurrent = nullptr;

cFileNameGuard::cFileNameGuard(const char *szExtension, cMessageBoxes *pBoxes)
    : m_nExtension(szExtension ? strlen(szExtension) + 1 : 0), m_pBoxes(pBoxes),
      m_hHook(SetWindowsHookExA(WH_CBT, OnHook, nullptr, GetCurrentThreadId()))
{
    s_pCurrent = this;
}

cFileNameGuard::~cFileNameGuard()
{
    s_pCurrent = nullptr;
    UnhookWindowsHookEx(m_hHook);
}

LRESULT CALLBACK cFileNameGuard::OnHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_ACTIVATE && NameField(hWnd))
        SetWindowSubclass(hWnd, DialogProc, kSubclass, reinterpret_cast<DWORD_PTR>(s_pCurrent));
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

LRESULT CALLBACK cFileNameGuard::DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam,
                                            LPARAM lParam, UINT_PTR nId, DWORD_PTR nGuard)
{
    const auto *const pGuard = reinterpret_cast<const cFileNameGuard *>(nGuard);
    if (nMessage == WM_COMMAND && LOWORD(wParam) == IDOK && pGuard->Refuses(hDialog))
        return 0;
    if (nMessage == WM_NCDESTROY)
        RemoveWindowSubclass(hDialog, DialogProc, nId);
    return DefSubclassProc(hDialog, nMessage, wParam, lParam);
}

// Of the path that the dialog will put together, as it is before "." and ".."
// are taken out of it.
size_t cFileNameGuard::WholeLength(HWND hDialog, const std::string &Name) const
{
    size_t nLength = Name.size();
    if (!HasExtension(Name))
        nLength += m_nExtension;
    if (HasFolder(Name))
        return nLength;
    char szFolder[kFileName] = "";
    SendMessageA(hDialog, CDM_GETFOLDERPATH, sizeof szFolder, reinterpret_cast<LPARAM>(szFolder));
    const size_t nFolder = strlen(szFolder);
    return nLength + nFolder + (nFolder && szFolder[nFolder - 1] != '\\');
}

int cFileNameGuard::Refuses(HWND hDialog) const
{
    if (WholeLength(hDialog, TextOf(NameField(hDialog))) < kFileName)
        return 0;
    m_pBoxes->Ask(kTooLong, nullptr, bnOk, icNone);
    return 1;
}
