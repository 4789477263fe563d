// sending_dialog.h - the small window that stands while pages go to the
// printer, with its Cancel button.

#ifndef TOOLKIT_SENDING_DIALOG_H
#define TOOLKIT_SENDING_DIALOG_H

#include "toolkit/win32/win32.h"

class cSendingDialog
{
public:
    cSendingDialog() : m_hDialog(nullptr), m_bCancelled(0) {}
    ~cSendingDialog() { Close(); }
    cSendingDialog(const cSendingDialog &)            = delete;
    cSendingDialog &operator=(const cSendingDialog &) = delete;

    // Shows it above hOwner, with the owner's title: "Sending", szDocument, "to
    // print spooler.". 0 if it cannot be created; printing goes on without it.
    int  Open(HWND hOwner, const char *szDocument);
    void Close();

    // Handles the messages that are waiting, those of other windows too. 1 to
    // go on, 0 once the user has cancelled or the program is about to end.
    int PumpMessages();

    HWND Window() const { return m_hDialog; }  // null while it is closed

private:
    static INT_PTR CALLBACK DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam);

    HWND m_hDialog;
    int  m_bCancelled;
};

#endif
