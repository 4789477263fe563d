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
      m_hProbe(nullptr), m_hDesktopProbe(nullptr), m_hWnd(nullptr), m_dwThread(0)
{
    s_pCurrent = this;
}

cProbeLink::~cProbeLink()
{
    s_pCurrent = nullptr;
    UnmapViewOfFile(m_pAnswer);
    CloseHandle(m_hMemory);
}

void cProbeLink::Attach(HWND hWnd)
{
    m_dwThread      = GetWindowThreadProcessId(hWnd, nullptr);
    m_hWnd          = hWnd;
    m_hProbe        = CreateProbe(hWnd);
    m_hDesktopProbe = CreateProbe(GetDesktopWindow());
    REQUIRE(m_hProbe);
}

// Null where the thread of the window cannot be hooked, as the desktop's on Windows.
HWND cProbeLink::CreateProbe(HWND hWnd) const
{
    static const UINT s_nMessage = RegisterWindowMessageA(kProbeMessage);

    const HMODULE hLibrary = LoadLibraryA(VORSTEK_PROBE);
    REQUIRE(hLibrary);
    const auto pfnHook = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void (*)()>(GetProcAddress(hLibrary, "ProbeHook")));
    const HHOOK hHook = SetWindowsHookExA(WH_CALLWNDPROC, pfnHook, hLibrary,
                                          GetWindowThreadProcessId(hWnd, nullptr));
    if (!hHook)
        return nullptr;
    const DWORD nBefore = m_pAnswer->m_nCount;
    REQUIRE(WaitFor([&] {
        SendMessageTimeoutA(hWnd, s_nMessage, 0, 0, SMTO_NORMAL, kPatience, nullptr);
        return m_pAnswer->m_nCount != nBefore;
    }));
    UnhookWindowsHookEx(hHook);
    return m_pAnswer->m_hProbe;
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

cProbeAnswer cProbeLink::AskProbe(HWND hProbe, HWND hAsked, eProbe nProbe, UINT nId) const
{
    const DWORD nBefore    = m_pAnswer->m_nCount;
    m_pAnswer->m_nValue    = 0;
    m_pAnswer->m_szText[0] = 0;
    m_pAnswer->m_hAsked    = hAsked;
    REQUIRE(WaitFor([&] {
        SendMessageTimeoutA(hProbe, kAskProbe, nProbe, static_cast<LPARAM>(nId), SMTO_NORMAL,
                            kPatience, nullptr);
        return m_pAnswer->m_nCount == nBefore + 1;
    }));
    return *m_pAnswer;
}

cProbeAnswer cProbeLink::AskWindow(HWND hWnd, eProbe nProbe, UINT nId) const
{
    return AskProbe(m_hProbe, AnyWindow(hWnd), nProbe, nId);
}

// A program that is asked for the state of its queue reads the screen's events first.
void cProbeLink::HearScreen() const
{
    AskProbe(m_hDesktopProbe, GetDesktopWindow(), pbQueue, 0);
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
