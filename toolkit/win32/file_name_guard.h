// file_name_guard.h - refuses names in a file dialog that would make the path too
// long. Windows checks this itself; Wine's dialog overruns its own buffers.

#ifndef TOOLKIT_WIN32_FILE_NAME_GUARD_H
#define TOOLKIT_WIN32_FILE_NAME_GUARD_H

#include "toolkit/win32/win32.h"

#include <cstddef>
#include <string_view>

#include "toolkit/message_box.h"

// Watches the next file dialog of the thread until the end of the scope. A name
// that is too long, folder and extension included, is refused with a message, and
// the dialog stays open. The dialog must have the flag OFN_EXPLORER.
//
//     const cFileNameGuard Length("txt", pBoxes);
//     GetSaveFileNameA(&Dialog);
class cFileNameGuard
{
public:
    // szExtension, without a point, is what the dialog appends to a name that
    // has none; null for nothing.
    cFileNameGuard(const char *szExtension, cMessageBoxes *pBoxes);
    ~cFileNameGuard();
    cFileNameGuard(const cFileNameGuard &)            = delete;
    cFileNameGuard &operator=(const cFileNameGuard &) = delete;

private:
    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR nId, DWORD_PTR nGuard);

    size_t PathLength(HWND hDialog, std::string_view Name) const;
    int    Refuses(HWND hDialog) const;

    static cFileNameGuard *s_pCurrent;  // a hook procedure gets no user data

    size_t          m_nExtension;  // characters, point included
    cMessageBoxes  *m_pBoxes;
    HWND            m_hDialog;  // null until it opens
    HHOOK           m_hHook;
    cFileNameGuard *m_pPrevious;  // a message handled by that dialog may have opened this one
};

#endif
