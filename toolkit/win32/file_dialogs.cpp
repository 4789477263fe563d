#include "toolkit/win32/file_dialogs.h"

#include "toolkit/win32/file_name_guard.h"
#include "toolkit/win32/modal_guard.h"

int AskFileName(eFileNameDialog nDialog, const char *szFilter, const char *szFolder,
                const char *szExtension, cMessageBoxes *pBoxes, char (&szFileName)[kFileName])
{
    char szCurrent[kFileName] = "";
    GetCurrentDirectoryA(sizeof szCurrent, szCurrent);

    OPENFILENAMEA Dialog   = {};
    Dialog.lStructSize     = sizeof Dialog;
    Dialog.hwndOwner       = GetForegroundWindow();
    Dialog.lpstrFilter     = szFilter;
    Dialog.lpstrFile       = szFileName;
    Dialog.nMaxFile        = kFileName;
    Dialog.lpstrInitialDir = szFolder ? szFolder : szCurrent;
    Dialog.lpstrDefExt     = szExtension;
    Dialog.Flags           = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;

    const cModalGuard    Others(Dialog.hwndOwner);
    const cFileNameGuard Length(szExtension, pBoxes);
    if (nDialog == fnOpen)
    {
        Dialog.Flags |= OFN_FILEMUSTEXIST;
        return GetOpenFileNameA(&Dialog) ? 1 : 0;
    }
    Dialog.Flags |= OFN_OVERWRITEPROMPT;
    return GetSaveFileNameA(&Dialog) ? 1 : 0;
}
