#include "toolkit/win32.h"

#include "shell/application.h"
#include "shell/vorstek.h"
#include "shell/welcome_dialog.h"

static const DWORD kControls = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_TAB_CLASSES |
                               ICC_UPDOWN_CLASS | ICC_PROGRESS_CLASS;

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE, LPSTR szCmdLine, int)
{
    const INITCOMMONCONTROLSEX Controls = {sizeof Controls, kControls};
    const BOOL                 bReady   = InitCommonControlsEx(&Controls);
    if (!bReady)
        return bReady;
    cApplication Application(hInstance, szCmdLine, "Vorstek");
    ShowWelcome();
    cVorstek Calculator;
    Calculator.Create();
    return Application.Run();
}
