#include "tests/window/probe_link.h"

#include <algorithm>

#include <doctest/doctest.h>

#include "tests/window/waiting.h"

cProbeLink *cProbeLink::s_pCurrent = nullptr;

cProbeLink::cProbeLink()
    : m_hMemory(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                   sizeof(cProbeAnswer), kProbeMemory)),
      m_pAnswer(static_cast<cProbeAnswer *>(
          MapViewOfFile(m_hMemory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(cProbeAnswer)))),
      m_hHook(nullptr), m_hDesktopHook(nullptr), m_hWnd(nullptr), m_dwThread(0)
{
    s_pCurrent = this;
}

cProbeLink::~cProbeLink()
{
    s_pCurrent = nullptr;
    for (const HHOOK hHook : {m_hHook, m_hDesktopHook})
        if (hHook)
            UnhookWindowsHookEx(hHook);
    UnmapViewOfFile(m_pAnswer);
    CloseHandle(m_hMemory);
}

void cProbeLink::Attach(HWND hWnd)
{
    const HMODULE hProbe = LoadLibraryA(VORSTEK_PROBE);
    REQUIRE(hProbe);
    const auto pfnHook = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void (*)()>(GetProcAddress(hProbe, "ProbeHook")));
    m_dwThread = GetWindowThreadProcessId(hWnd, nullptr);
    m_hHook    = SetWindowsHookExA(WH_CALLWNDPROC, pfnHook, hProbe, m_dwThread);
    REQUIRE(m_hHook);
    m_hWnd = hWnd;
    // On Windows the desktop cannot be hooked, and is not asked.
    m_hDesktopHook = SetWindowsHookExA(WH_CALLWNDPROC, pfnHook, hProbe,
                                       GetWindowThreadProcessId(GetDesktopWindow(), nullptr));
}

// The window, or while it is not there any other of the thread.
HWND cProbeLink::AnyWindow(HWND hWnd) const
{
    HWND hAny = IsWindow(hWnd) ? hWnd : nullptr;
    if (!hAny)
        EnumThreadWindows(
            m_dwThread,
            [](HWND hOther, LPARAM lParam) -> BOOL {
                *reinterpret_cast<HWND *>(lParam) = hOther;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&hAny));
    return hAny;
}

cProbeAnswer cProbeLink::AskWindow(HWND hWnd, eProbe nProbe, UINT nId) const
{
    static const UINT s_nMessage = RegisterWindowMessageA(kProbeMessage);

    const DWORD nBefore    = m_pAnswer->m_nCount;
    m_pAnswer->m_nValue    = 0;
    m_pAnswer->m_szText[0] = 0;
    REQUIRE(WaitFor([&] {
        DWORD_PTR nResult = 0;
        SendMessageTimeoutA(AnyWindow(hWnd), s_nMessage, nProbe, static_cast<LPARAM>(nId),
                            SMTO_NORMAL, kPatience, &nResult);
        return m_pAnswer->m_nCount == nBefore + 1;
    }));
    return *m_pAnswer;
}

// A program that is asked for the state of its queue reads the screen's events first.
void cProbeLink::HearScreen() const
{
    AskWindow(GetDesktopWindow(), pbQueue);
    Ask(pbQueue);
}

// A message that is sent is answered even while the program starts or shows a window;
// one that is posted is taken only when it asks for its next message.
void cProbeLink::Settle() const
{
    PostMessageA(AnyWindow(m_hWnd), WM_NULL, 0, 0);
    REQUIRE(WaitFor([this] { return !Ask(pbQueue).m_nValue; }));
}

void cProbeLink::Inject(const std::vector<INPUT> &Inputs) const
{
    REQUIRE(Inputs.size() <= kMostInputs);
    std::copy(Inputs.begin(), Inputs.end(), m_pAnswer->m_Inputs);
    m_pAnswer->m_nInputs = static_cast<UINT>(Inputs.size());
    REQUIRE(Ask(pbInput).m_nValue == static_cast<int>(Inputs.size()));
}
