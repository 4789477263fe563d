#include "toolkit/win32/file_name_guard.h"

#include <cstring>

#include "toolkit/win32/file_dialogs.h"

static const int      kEditField  = 0x480;  // edt1, the name field of one kind of dialog
static const int      kComboField = 0x47C;  // cmb13, of the kind that lists recent names
static const UINT_PTR kSubclass   = 1;
static const char     kTooLong[] =
    "The file name is too long: it may have 259 characters, its folder included.";
static_assert(kFileName == 259 + 1);

static HWND NameField(HWND hDialog)
{
    const HWND hEdit = GetDlgItem(hDialog, kEditField);
    return hEdit ? hEdit : GetDlgItem(hDialog, kComboField);
}

// The user may type a name in quotation marks.
static std::string_view WithoutQuotes(std::string_view Name)
{
    if (!Name.empty() && Name.front() == '"')
        Name.remove_prefix(1);
    if (!Name.empty() && Name.back() == '"')
        Name.remove_suffix(1);
    return Name;
}

static int IsSlash(char c)
{
    return c == '\\' || c == '/';
}

// "C:\log.txt" or "\\computer\folder\log.txt"
static int HasDrive(std::string_view Name)
{
    return Name.size() > 1 && (Name[1] == ':' || (IsSlash(Name[0]) && IsSlash(Name[1])));
}

static int HasExtension(std::string_view Name)
{
    const size_t nPoint = Name.rfind('.');
    return nPoint != std::string_view::npos &&
           Name.find_first_of("\\/", nPoint) == std::string_view::npos;
}

// Length of what the dialog puts before a name without a drive.
static size_t LengthBefore(HWND hDialog, std::string_view Name)
{
    if (!Name.empty() && IsSlash(Name[0]))
        return 2;  // "C:"
    char szFolder[kFileName] = "";
    SendMessageA(hDialog, CDM_GETFOLDERPATH, sizeof szFolder, reinterpret_cast<LPARAM>(szFolder));
    const size_t nFolder = strlen(szFolder);
    return nFolder + (nFolder && !IsSlash(szFolder[nFolder - 1]));
}

cFileNameGuard *cFileNameGuard::s_pCurrent = nullptr;

cFileNameGuard::cFileNameGuard(const char *szExtension, cMessageBoxes *pBoxes)
    : m_nExtension(szExtension ? strlen(szExtension) + 1 : 0), m_pBoxes(pBoxes), m_hDialog(nullptr),
      m_hHook(SetWindowsHookExA(WH_CBT, OnHook, nullptr, GetCurrentThreadId())),
      m_pPrevious(s_pCurrent)
{
    s_pCurrent = this;
}

cFileNameGuard::~cFileNameGuard()
{
    s_pCurrent = m_pPrevious;
    UnhookWindowsHookEx(m_hHook);
}

LRESULT CALLBACK cFileNameGuard::OnHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_ACTIVATE && !s_pCurrent->m_hDialog && NameField(hWnd))
    {
        s_pCurrent->m_hDialog = hWnd;
        SetWindowSubclass(hWnd, DialogProc, kSubclass, reinterpret_cast<DWORD_PTR>(s_pCurrent));
    }
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

// Length of the path that the dialog will build, before "." and ".." are
// resolved. The extension also counts when a file is opened: the dialog tries the
// name with the extension first.
size_t cFileNameGuard::PathLength(HWND hDialog, std::string_view Name) const
{
    const size_t nExtension = HasExtension(Name) ? 0 : m_nExtension;
    const size_t nBefore    = HasDrive(Name) ? 0 : LengthBefore(hDialog, Name);
    return nBefore + Name.size() + nExtension;
}

int cFileNameGuard::Refuses(HWND hDialog) const
{
    char          szName[kFileName + 2] = "";  // quotation marks included
    const HWND    hField                = NameField(hDialog);
    const LRESULT nLength               = SendMessageA(hField, WM_GETTEXTLENGTH, 0, 0);
    SendMessageA(hField, WM_GETTEXT, sizeof szName, reinterpret_cast<LPARAM>(szName));
    if (nLength < static_cast<LRESULT>(sizeof szName) &&
        PathLength(hDialog, WithoutQuotes(szName)) < kFileName)
        return 0;
    m_pBoxes->Ask(kTooLong, nullptr, bnOk, icNone);
    return 1;
}
