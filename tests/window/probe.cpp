#include "tests/window/probe.h"

#include <algorithm>

#include <winternl.h>

#include "resources/resource.h"
#include "tests/window/faults.h"

namespace
{

// Wine's own GDI handle table, 64 bits: one entry for each possible handle.
struct cGdiEntry
{
    unsigned long long m_nObject;
    DWORD              m_nOwner;
    WORD               m_nUnique;
    BYTE               m_nType;  // 0: free
    BYTE               m_nFlags;
    unsigned long long m_nUser;
};

}  // namespace

static const size_t kGdiEntries        = 16384;
static const size_t kGdiTableInPeb     = 0xF8;
static const int    kFreshMenus        = 64;
static const UINT   kIndexOfUserHandle = 0xFFFF;
static const UINT   kAnyInput          = QS_INPUT | QS_POSTMESSAGE;

static int CountGdiEntries()
{
    PROCESS_BASIC_INFORMATION Process = {};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &Process,
                              sizeof Process, nullptr);
    const char *const pPeb   = reinterpret_cast<const char *>(Process.PebBaseAddress);
    const auto *const pTable = *reinterpret_cast<cGdiEntry *const *>(pPeb + kGdiTableInPeb);
    int               nUsed  = 0;
    for (size_t i = 0; i < kGdiEntries; i++)
        nUsed += pTable[i].m_nType != 0;
    return nUsed;
}

// Wine does not count user objects. It reuses the handles that were freed last, then
// takes higher ones, so the highest of some new handles rises with every leak.
static int HighestFreshHandle()
{
    HMENU hMenus[kFreshMenus];
    UINT  nHighest = 0;
    for (HMENU &hMenu : hMenus)
    {
        hMenu              = CreateMenu();
        const auto nHandle = static_cast<UINT>(reinterpret_cast<UINT_PTR>(hMenu));
        nHighest           = std::max(nHighest, nHandle & kIndexOfUserHandle);
    }
    for (const HMENU hMenu : hMenus)
        DestroyMenu(hMenu);
    return static_cast<int>(nHighest);
}

static void CountObjects(cProbeAnswer *pAnswer)
{
    pAnswer->m_nValue = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    pAnswer->m_nMore  = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
    if (pAnswer->m_nValue != 0)
        return;
    pAnswer->m_nValue = CountGdiEntries();
    pAnswer->m_nMore  = HighestFreshHandle();
}

// The menu with the item, and its position there; null if there is none.
static HMENU FindItem(HMENU hMenu, UINT nId, int *pnPosition)
{
    for (int i = 0; i < GetMenuItemCount(hMenu); i++)
    {
        const HMENU hSub   = GetSubMenu(hMenu, i);
        const HMENU hFound = hSub ? FindItem(hSub, nId, pnPosition) : nullptr;
        if (hFound)
            return hFound;
        if (!hSub && GetMenuItemID(hMenu, i) == nId)
        {
            *pnPosition = i;
            return hMenu;
        }
    }
    return nullptr;
}

// A null window means the window of the open popup menu.
static void FindItemRect(HWND hWnd, UINT nId, cProbeAnswer *pAnswer)
{
    int         nPosition = 0;
    const HMENU hMenu     = FindItem(GetMenu(hWnd), nId, &nPosition);
    pAnswer->m_nValue =
        hMenu && GetMenuItemRect(nullptr, hMenu, static_cast<UINT>(nPosition), &pAnswer->m_Rect);
}

static void DescribeItem(HMENU hBar, UINT nItemAt, cProbeAnswer *pAnswer)
{
    const HMENU hMenu     = GetSubMenu(hBar, static_cast<int>(nItemAt >> 8));
    const UINT  nPosition = nItemAt & 0xFF;
    pAnswer->m_nMore      = static_cast<int>(GetMenuState(hMenu, nPosition, MF_BYPOSITION));
    pAnswer->m_nValue     = pAnswer->m_nMore == -1
                                ? -1
                                : static_cast<int>(GetMenuItemID(hMenu, static_cast<int>(nPosition)));
    GetMenuStringA(hMenu, nPosition, pAnswer->m_szText, sizeof pAnswer->m_szText, MF_BYPOSITION);
}

static void DescribeButton(HWND hToolBar, UINT nPosition, cProbeAnswer *pAnswer)
{
    TBBUTTON Button   = {};
    pAnswer->m_nValue = -1;
    if (!SendMessageA(hToolBar, TB_GETBUTTON, nPosition, reinterpret_cast<LPARAM>(&Button)))
        return;
    SendMessageA(hToolBar, TB_GETITEMRECT, nPosition, reinterpret_cast<LPARAM>(&pAnswer->m_Rect));
    MapWindowPoints(hToolBar, nullptr, reinterpret_cast<POINT *>(&pAnswer->m_Rect), 2);
    pAnswer->m_nValue = Button.fsStyle & TBSTYLE_SEP ? 0 : Button.idCommand;
    pAnswer->m_nMore  = Button.iBitmap;
    pAnswer->m_nState = Button.fsState;
}

// A shared icon has one handle, however often it is loaded.
static int HasClassIcon(HWND hWnd, UINT nIcon)
{
    const HICON hIcon = LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(nIcon));
    return hIcon && GetClassLongPtrA(hWnd, GCLP_HICON) == reinterpret_cast<ULONG_PTR>(hIcon);
}

static int IconOfBox(HWND hBox)
{
    const int kHand        = 32513;
    const int kInformation = 32516;
    for (HWND hChild = GetWindow(hBox, GW_CHILD); hChild; hChild = GetWindow(hChild, GW_HWNDNEXT))
        for (int nIcon = kHand; nIcon <= kInformation; nIcon++)
        {
            const auto hShown = reinterpret_cast<HICON>(SendMessageA(hChild, STM_GETICON, 0, 0));
            if (hShown && IsWindowVisible(hChild) &&
                hShown == LoadIconA(nullptr, MAKEINTRESOURCEA(nIcon)))
                return nIcon;
        }
    return 0;
}

// Wine sends paint to the screen when the thread is about to wait, but does not wait
// for the screen, which may answer another program before it draws. It answers this
// program in order.
static void ShowWhatIsPainted()
{
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT);
    const HDC hScreen = GetDC(nullptr);
    GetPixel(hScreen, 0, 0);
    ReleaseDC(nullptr, hScreen);
}

static HWND FindToolBar(HWND hWnd)
{
    return FindWindowExA(hWnd, nullptr, TOOLBARCLASSNAMEA, nullptr);
}

static HWND FindStatusBar(HWND hWnd)
{
    return FindWindowExA(hWnd, nullptr, STATUSCLASSNAMEA, nullptr);
}

// Not a second time, as the timer may have fired by itself in the meantime.
static void EndWelcome(HWND hWelcome)
{
    if (!IsWindowEnabled(GetDlgItem(hWelcome, IDOK)))
        SendMessageA(hWelcome, WM_TIMER, IDT_WELCOME, 0);
}

// The platform suggests a place in proportion, with the same upper left corner.
static void ChangeResolution(HWND hWnd, int nFormer, UINT nDpi)
{
    RECT Place = {};
    GetWindowRect(hWnd, &Place);
    Place.right  = Place.left + MulDiv(Place.right - Place.left, static_cast<int>(nDpi), nFormer);
    Place.bottom = Place.top + MulDiv(Place.bottom - Place.top, static_cast<int>(nDpi), nFormer);
    SendMessageA(hWnd, WM_DPICHANGED, MAKEWPARAM(nDpi, nDpi), reinterpret_cast<LPARAM>(&Place));
}

static HMENU MenuOf(HWND hWnd)
{
    const auto hPopup = reinterpret_cast<HMENU>(SendMessageA(hWnd, MN_GETHMENU, 0, 0));
    return hPopup ? hPopup : GetMenu(hWnd);
}

static void TellMemoryCounts(cProbeAnswer *pAnswer)
{
    const cMemoryCounts Counts = CountAllocations();
    pAnswer->m_nValue          = Counts.m_nAllocations;
    pAnswer->m_nMore           = Counts.m_nBoxes;
    pAnswer->m_nState          = Counts.m_nQuits;
}

static void Answer(HWND hWnd, eProbe nProbe, UINT nId, cProbeAnswer *pAnswer)
{
    const HMENU hMenu = MenuOf(hWnd);
    switch (nProbe)
    {
    case pbInput:
        pAnswer->m_nValue =
            static_cast<int>(SendInput(pAnswer->m_nInputs, pAnswer->m_Inputs, sizeof(INPUT)));
        break;
    case pbQueue:
        pAnswer->m_nValue = HIWORD(GetQueueStatus(kAnyInput)) != 0;
        break;
    case pbPaint:
        ShowWhatIsPainted();
        pAnswer->m_nValue = HIWORD(GetQueueStatus(QS_PAINT)) != 0;
        break;
    case pbMenuState:
        pAnswer->m_nValue = static_cast<int>(GetMenuState(hMenu, nId, MF_BYCOMMAND));
        break;
    case pbMenuText:
        GetMenuStringA(hMenu, nId, pAnswer->m_szText, sizeof pAnswer->m_szText, MF_BYCOMMAND);
        break;
    case pbMenuRect:
        FindItemRect(hWnd, nId, pAnswer);
        break;
    case pbMenuOpen:
        pAnswer->m_nValue =
            GetMenuItemRect(nullptr, GetSubMenu(hMenu, static_cast<int>(nId)), 0, &pAnswer->m_Rect);
        break;
    case pbBarRect:
        pAnswer->m_nValue = GetMenuItemRect(hWnd, hMenu, nId, &pAnswer->m_Rect);
        break;
    case pbMenuItem:
        DescribeItem(hMenu, nId, pAnswer);
        break;
    case pbMenuTitle:
        GetMenuStringA(hMenu, nId, pAnswer->m_szText, sizeof pAnswer->m_szText, MF_BYPOSITION);
        break;
    case pbToolButton:
        DescribeButton(FindToolBar(hWnd), nId, pAnswer);
        break;
    case pbClassIcon:
        pAnswer->m_nValue = HasClassIcon(hWnd, nId);
        break;
    case pbBoxIcon:
        pAnswer->m_nValue = IconOfBox(reinterpret_cast<HWND>(static_cast<UINT_PTR>(nId)));
        break;
    case pbCursor:
        pAnswer->m_nValue = GetCursor() == LoadCursorA(nullptr, MAKEINTRESOURCEA(nId));
        break;
    case pbStatusText:
        SendMessageA(FindStatusBar(hWnd), SB_GETTEXTA, 0,
                     reinterpret_cast<LPARAM>(pAnswer->m_szText));
        break;
    case pbObjects:
        CountObjects(pAnswer);
        break;
    case pbEndWelcome:
        EndWelcome(hWnd);
        break;
    case pbResolution:
        ChangeResolution(hWnd, HIWORD(nId), LOWORD(nId));
        break;
    case pbDiskRoom:
        LeaveRoomOnDisk(nId);
        break;
    case pbReadOnly:
        MakeFoldersReadOnly();
        break;
    case pbNoDibs:
        HideDibSupport();
        break;
    case pbBitmapRoom:
        LeaveRoomForBitmaps(static_cast<int>(nId));
        break;
    case pbNoFonts:
        RefuseFonts();
        break;
    case pbMemoryRetry:
        FailAllocation(static_cast<int>(nId), gaRetry);
        break;
    case pbMemoryCancel:
        FailAllocation(static_cast<int>(nId), gaCancel);
        break;
    case pbMemoryCounts:
        TellMemoryCounts(pAnswer);
        break;
    case pbGiveFile:
        GlobalGetAtomNameA(static_cast<ATOM>(nId), pAnswer->m_szText, sizeof pAnswer->m_szText);
        AnswerFileDialogs(pAnswer->m_szText);
        break;
    }
}

static cProbeAnswer *OpenMemory()
{
    const HANDLE hMemory = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, kProbeMemory);
    auto *const  pMemory = static_cast<cProbeAnswer *>(
        MapViewOfFile(hMemory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(cProbeAnswer)));
    CloseHandle(hMemory);
    return pMemory;
}

static LRESULT CALLBACK ProbeWindow(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage != kAskProbe)
        return DefWindowProcA(hWnd, nMessage, wParam, lParam);
    auto *const pAnswer = reinterpret_cast<cProbeAnswer *>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    Answer(pAnswer->m_hAsked, static_cast<eProbe>(wParam), static_cast<UINT>(lParam), pAnswer);
    pAnswer->m_nCount++;
    return 0;
}

// It and the memory stay until the program ends.
static HWND CreateProbeWindow(cProbeAnswer *pMemory)
{
    HMODULE hThis = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const char *>(&ProbeWindow), &hThis);
    WNDCLASSA Class     = {};
    Class.lpfnWndProc   = ProbeWindow;
    Class.hInstance     = hThis;
    Class.lpszClassName = kProbeClass;
    RegisterClassA(&Class);
    const HWND hWnd =
        CreateWindowExA(0, kProbeClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, hThis, nullptr);
    SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pMemory));
    return hWnd;
}

// The hook, which receives the messages sent to windows of the program's thread.
extern "C" __declspec(dllexport) LRESULT CALLBACK ProbeHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    static const UINT s_nMessage = RegisterWindowMessageA(kProbeMessage);

    const auto *const pSent = reinterpret_cast<const CWPSTRUCT *>(lParam);
    if (nCode == HC_ACTION && pSent->message == s_nMessage)
        if (cProbeAnswer *const pMemory = OpenMemory())
        {
            pMemory->m_hProbe = CreateProbeWindow(pMemory);
            pMemory->m_nCount++;
        }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}
