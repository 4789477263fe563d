// file_name_guard.h - keeps names from a file dialog that are longer than a path
// may be. Windows itself refuses them; Wine's dialog writes beyond its own
// buffers.

#ifndef TOOLKIT_FILE_NAME_GUARD_H
#define TOOLKIT_FILE_NAME_GUARD_H

#include "toolkit/win32/win32.h"

#include <cstddef>
#include <string_view>

#include "toolkit/message_box.h"

// Watches the file dialog that the thread opens next until the end of the
// scope. A name that is too long with its folder and extension gets a message,
// and the dialog stays open. The dialog has to be one of OFN_EXPLORER.
//
//     const cFileNameGuard Length("txt", pBoxes);
//     GetSaveFileNameA(&Dialog);
class cFileNameGuard
{
public:
    // szExtension, without its point, is what the dialog adds to a name that
    // has none; null: nothing.
    cFileNameGuard(const char *szExtension, cMessageBoxes *pBoxes);
    ~cFileNameGuard();
    cFileNameGuard(const cFileNameGuard &)            = delete;
    cFileNameGuard &operator=(const cFileNameGuard &) = delete;

private:
    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR nId, DWORD_PTR nGuard);

    size_t WholeLength(HWND hDialog, std::string_view Name) const;
    int    Refuses(HWND hDialog) const;

    static cFileNameGuard *s_pCurrent;  // a hook is told of no object

    size_t          m_nExtension;  // characters, the point included
    cMessageBoxes  *m_pBoxes;
    HWND            m_hDialog;  // null until it opens
    HHOOK           m_hHook;
    cFileNameGuard *m_pFormer;  // a message that the dialog has dispatched may open another
};

#endif
