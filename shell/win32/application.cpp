#include "shell/win32/application.h"

#include <cstdlib>
#include <cstring>

#include "toolkit/retry_alloc.h"
#include "toolkit/win32/modal_guard.h"

static const DWORD kIdlePeriod = 33;

cApplication  *g_pApplication = nullptr;
cPlatformBoxes cApplication::s_Boxes;

// clang-format off
static const struct { UINT m_nType; } s_ButtonTypes[] =
    { { MB_OK }, { MB_OKCANCEL }, { MB_YESNOCANCEL }, { MB_RETRYCANCEL } };
static const struct { UINT m_nType; } s_IconTypes[] =
    { { 0 }, { MB_ICONERROR }, { MB_ICONQUESTION } };
// clang-format on

static eAnswer AnswerOf(int nButton)
{
    switch (nButton)
    {
    case IDOK:
        return anOk;
    case IDYES:
        return anYes;
    case IDNO:
        return anNo;
    case IDRETRY:
        return anRetry;
    default:
        return anCancel;
    }
}

static eAnswer ShowBox(HWND hOwner, const char *szText, const char *szCaption, eButtons nButtons,
                       eIcon nIcon)
{
    const char *const szShown = szCaption ? szCaption : g_pApplication->Name();
    const cModalGuard Others(hOwner);
    return AnswerOf(MessageBoxA(hOwner, szText, szShown,
                                s_ButtonTypes[nButtons].m_nType | s_IconTypes[nIcon].m_nType));
}

eAnswer cPlatformBoxes::Ask(const char *szText, const char *szCaption, eButtons nButtons,
                            eIcon nIcon)
{
    const HWND hActive = GetActiveWindow();
    return ShowBox(hActive ? hActive : m_hOwner, szText, szCaption, nButtons, nIcon);
}

void cPlatformBoxes::ReportUnowned(const char *szText, const char *szCaption)
{
    const HWND hActive = GetActiveWindow();
    ShowBox(nullptr, szText, szCaption, bnOk, icError);
    // The box has no owner that the platform could activate again.
    if (hActive)
        SetForegroundWindow(hActive);
}

void cPlatformBoxes::PostQuit(int nExitCode)
{
    PostQuitMessage(nExitCode);
}

// "C:\calculator\Vorstek.exe" is "Vorstek".
static char *ModuleBaseName()
{
    char szPath[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szPath, sizeof szPath - 1);
    char *const pSlash = strrchr(szPath, '\\');
    char *const pName  = pSlash ? pSlash + 1 : szPath;
    char *const pPoint = strrchr(pName, '.');
    if (pPoint)
        *pPoint = 0;
    return strdup(pName);
}

static char *ApplicationName(const char *szAppName, cMessageBoxes *pBoxes)
{
    return AllocateWithRetry(
        pBoxes, [szAppName] { return szAppName ? strdup(szAppName) : ModuleBaseName(); });
}

cApplication::cApplication(HINSTANCE hInstance, const char *szCmdLine, const char *szAppName)
    : cCallbackObj(1, &s_Boxes), m_pszAppName(nullptr), m_hInstance(hInstance),
      m_lpCmdLine(szCmdLine), m_bIdleEnabled(1), m_hModelessDlg(nullptr), m_bIdleWanted(0),
      m_dwIdlePeriod(kIdlePeriod), m_hAccelWnd(nullptr), m_hAccelTable(nullptr)
{
    g_pApplication = this;
    m_pszAppName   = ApplicationName(szAppName, &s_Boxes);

    LARGE_INTEGER Unused = {};
    QueryPerformanceFrequency(&Unused);
}

cApplication::~cApplication()
{
    g_pApplication = nullptr;
    free(m_pszAppName);
}

void cApplication::SetAccelerators(HWND hWnd, HACCEL hTable)
{
    m_hAccelWnd   = hWnd;
    m_hAccelTable = hTable;
}

void cApplication::Dispatch(MSG *pMessage)
{
    if (m_hModelessDlg && IsDialogMessageA(m_hModelessDlg, pMessage))
        return;
    if (m_hAccelTable && TranslateAcceleratorA(m_hAccelWnd, m_hAccelTable, pMessage))
        return;
    TranslateMessage(pMessage);
    DispatchMessageA(pMessage);
}

// 0 if no message waits, which happens only while idling.
int cApplication::GetNext(MSG *pMessage)
{
    if (m_bIdleEnabled && m_bIdleWanted)
        return PeekMessageA(pMessage, nullptr, 0, 0, PM_REMOVE);
    GetMessageA(pMessage, nullptr, 0, 0);
    return 1;
}

int cApplication::Run()
{
    MSG Message = {};
    PeekMessageA(&Message, nullptr, 0, 0, PM_NOREMOVE);
    DWORD dwLastIdle = GetTickCount();
    while (Message.message != WM_QUIT)
    {
        if (GetNext(&Message))
        {
            if (Message.message != WM_QUIT)
                Dispatch(&Message);
        }
        else if (GetTickCount() - dwLastIdle > m_dwIdlePeriod)
        {
            dwLastIdle = GetTickCount();
            Fire(kSlotIdle, nullptr);
        }
    }
    return static_cast<int>(Message.wParam);
}
