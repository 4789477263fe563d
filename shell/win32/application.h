// application.h - the program: its name, its message loop, and the message
// boxes, which all carry its name.

#ifndef SHELL_APPLICATION_H
#define SHELL_APPLICATION_H

#include "toolkit/win32/win32.h"

#include "toolkit/callback_obj.h"
#include "toolkit/message_box.h"

const uint32_t kSlotIdle = 0;

// Message boxes of the platform. A box stands above the window that is being
// worked with, a dialog perhaps, else above the owner (null: none); all windows
// wait for the answer, those of ReportUnowned included.
class cPlatformBoxes : public cMessageBoxes
{
public:
    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    void    ReportUnowned(const char *szText, const char *szCaption) override;
    void    PostQuit(int nExitCode) override;

    HWND m_hOwner = nullptr;
};

class cApplication : public cCallbackObj
{
public:
    // szAppName null: the base name of the module file.
    cApplication(HINSTANCE hInstance, const char *szCmdLine, const char *szAppName);
    ~cApplication() override;

    // The message loop. Slot 0 fires while nothing waits, every
    // m_dwIdlePeriod milliseconds at the most, if idling is enabled and
    // wanted. Returns the exit code of the quit message.
    int Run();

    // Hands a message to the current accelerator pair, or dispatches it.
    void Dispatch(MSG *pMessage);

    // Makes a table and the window that its commands go to the current pair.
    void SetAccelerators(HWND hWnd, HACCEL hTable);

    const char *Name() const { return m_pszAppName; }
    HINSTANCE   Instance() const { return m_hInstance; }
    const char *CommandLine() const { return m_lpCmdLine; }

    void SetIdleEnabled(int bEnabled) { m_bIdleEnabled = bEnabled; }
    void SetIdleWanted(int bWanted) { m_bIdleWanted = bWanted; }
    void SetModelessDialog(HWND hDialog) { m_hModelessDlg = hDialog; }

private:
    int GetNext(MSG *pMessage);

    char       *m_pszAppName;
    HINSTANCE   m_hInstance;
    const char *m_lpCmdLine;     // as received
    int         m_bIdleEnabled;  // 0 while the main window is minimised
    HWND        m_hModelessDlg;  // its messages are its own; null for none
    int         m_bIdleWanted;
    DWORD       m_dwIdlePeriod;  // milliseconds
    HWND        m_hAccelWnd;
    HACCEL      m_hAccelTable;

    static cPlatformBoxes s_Boxes;
};

// The one application, from its constructor to its destructor.
extern cApplication *g_pApplication;

#endif
