#include "tests/window/probe_link.h"

#include <doctest/doctest.h>

#include "tests/window/waiting.h"

cProbeLink *cProbeLink::s_pCurrent = nullptr;

cProbeLink::cProbeLink()
    : m_hMemory(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                   sizeof(cProbeAnswer), kProbeMemory)),
      m_pAnswer(static_cast<cProbeAnswer *>(
          MapViewOfFile(m_hMemory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(cProbeAnswer)))),
      m_hHook(nullptr), m_hWnd(nullptr)
{
    s_pCurrent = this;
}

cProbeLink::~cProbeLink()
{
    s_pCurrent = nullptr;
    if (m_hHook)
        UnhookWindowsHookEx(m_hHook);
    UnmapViewOfFile(m_pAnswer);
    CloseHandle(m_hMemory);
}

void cProbeLink::Attach(HWND hWnd)
{
    const HMODULE hProbe = LoadLibraryA("window-probe.dll");
    REQUIRE(hProbe);
    const auto pfnHook = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void (*)()>(GetProcAddress(hProbe, "ProbeHook")));
    m_hHook =
        SetWindowsHookExA(WH_CALLWNDPROC, pfnHook, hProbe, GetWindowThreadProcessId(hWnd, nullptr));
    REQUIRE(m_hHook);
    m_hWnd = hWnd;
}

cProbeAnswer cProbeLink::Ask(eProbe nProbe, UINT nId) const
{
    static const UINT s_nMessage = RegisterWindowMessageA(kProbeMessage);

    const DWORD nBefore    = m_pAnswer->m_nCount;
    m_pAnswer->m_nValue    = 0;
    m_pAnswer->m_szText[0] = 0;
    DWORD_PTR nResult      = 0;
    SendMessageTimeoutA(m_hWnd, s_nMessage, nProbe, static_cast<LPARAM>(nId), SMTO_NORMAL,
                        kPatience, &nResult);
    REQUIRE(m_pAnswer->m_nCount == nBefore + 1);
    return *m_pAnswer;
}

void cProbeLink::Inject(const INPUT &Input) const
{
    m_pAnswer->m_Input = Input;
    REQUIRE(Ask(pbInput).m_nValue == 1);
}
