#include "toolkit/win32/win32.h"

#include <new>

#include "shell/win32/application.h"
#include "shell/win32/vorstek.h"
#include "shell/win32/welcome_dialog.h"
#include "toolkit/win32/system_library.h"

static const DWORD kControls = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_TAB_CLASSES |
                               ICC_UPDOWN_CLASS | ICC_PROGRESS_CLASS;

static const int kNoMemory = -1;

static int RunCalculator(HINSTANCE hInstance, LPSTR lpCmdLine)
{
    const INITCOMMONCONTROLSEX Controls = {sizeof Controls, kControls};
    const BOOL                 bReady   = InitCommonControlsEx(&Controls);
    if (!bReady)
        return bReady;
    cApplication Application(hInstance, lpCmdLine, "Vorstek");
    ShowWelcome();
    cVorstek Calculator;
    Calculator.Create();
    return Application.Run();
}

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE, LPSTR lpCmdLine, int)
{
    LoadFromSystemOnly();
    try
    {
        return RunCalculator(hInstance, lpCmdLine);
    }
    catch (const std::bad_alloc &)
    {
        return kNoMemory;
    }
}
