// window_host.h - the message boxes of the calculator's window.

#ifndef SHELL_WIN32_WINDOW_HOST_H
#define SHELL_WIN32_WINDOW_HOST_H

#include "toolkit/win32/win32.h"

#include "engine/vorstek_host.h"
#include "shell/win32/application.h"

// A separate, complete base class, so that a box can be shown while the derived
// object is still being constructed.
class cWindowHost : public cVorstekHost
{
public:
    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override
    {
        return m_Boxes.Ask(szText, szCaption, nButtons, nIcon);
    }
    void ReportUnowned(const char *szText, const char *szCaption) override
    {
        m_Boxes.ReportUnowned(szText, szCaption);
    }
    void PostQuit(int nExitCode) override { m_Boxes.PostQuit(nExitCode); }

protected:
    cPlatformBoxes m_Boxes;
};

#endif
