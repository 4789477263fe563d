// application.h - the program: its name, its message loop, and its message boxes,
// which have the program's name as their caption.

#ifndef SHELL_WIN32_APPLICATION_H
#define SHELL_WIN32_APPLICATION_H

#include "toolkit/win32/win32.h"

#include "toolkit/callback_obj.h"
#include "toolkit/message_box.h"

const uint32_t kSlotIdle = 0;

// Message boxes of the platform. The owner of a box is the active window, perhaps
// a dialog, or else m_hOwner (null for none). Every box is modal for all windows,
// also one of ReportUnowned.
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
    // szAppName null: uses the base name of the module file.
    cApplication(HINSTANCE hInstance, const char *szCmdLine, const char *szAppName);
    ~cApplication() override;

    // The message loop. If idling is enabled and wanted, slot 0 fires while no
    // message waits, at most once every m_dwIdlePeriod milliseconds. Returns the
    // exit code of the quit message.
    int Run();

    // Passes a message to the modeless dialog or the current accelerator table,
    // or dispatches it.
    void Dispatch(MSG *pMessage);

    // Sets the current accelerator table and the window that gets its commands.
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
    HWND        m_hModelessDlg;  // handles its own messages; null for none
    int         m_bIdleWanted;
    DWORD       m_dwIdlePeriod;  // milliseconds
    HWND        m_hAccelWnd;
    HACCEL      m_hAccelTable;

    static cPlatformBoxes s_Boxes;
};

// The one application, from its constructor to its destructor.
extern cApplication *g_pApplication;

#endif
