// sending_dialog.h - the small window with a Cancel button that is shown while
// pages are sent to the printer.

#ifndef TOOLKIT_WIN32_SENDING_DIALOG_H
#define TOOLKIT_WIN32_SENDING_DIALOG_H

#include "toolkit/win32/win32.h"

class cSendingDialog
{
public:
    cSendingDialog() : m_hDialog(nullptr), m_bCancelled(0) {}
    ~cSendingDialog() { Close(); }
    cSendingDialog(const cSendingDialog &)            = delete;
    cSendingDialog &operator=(const cSendingDialog &) = delete;

    // Shows the dialog above hOwner, with the owner's title: "Sending",
    // szDocument, "to print spooler.". 0 if it cannot be created; printing
    // continues without it.
    int  Open(HWND hOwner, const char *szDocument);
    void Close();

    // Handles the waiting messages of all windows. 1 to continue, 0 after the
    // user has cancelled or a quit message has arrived.
    int PumpMessages();

    HWND Window() const { return m_hDialog; }  // null while it is closed

private:
    static INT_PTR CALLBACK DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam);

    HWND m_hDialog;
    int  m_bCancelled;
};

#endif
