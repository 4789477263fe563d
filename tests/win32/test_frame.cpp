#include "tests/win32/test_frame.h"

#include <doctest/doctest.h>

cWindowClass cTestFrame::s_Class;

const cTestFrame::cMessageRow cTestFrame::s_Messages[] = {
    {WM_COMMAND, &cTestFrame::OnCommand},
    {WM_NOTIFY, &cTestFrame::OnNotify},
    {WM_CTLCOLOREDIT, &cTestFrame::OnCtlColor},
    {WM_CTLCOLORSTATIC, &cTestFrame::OnCtlColor},
};

cTestFrame::cTestFrame(cMessageBoxes *pBoxes) : cBaseWindow(pBoxes), m_ClassShare(&s_Class)
{
    m_dwStyle = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
}

cTestFrame::~cTestFrame()
{
    Close();
}

void cTestFrame::Open()
{
    WNDCLASSA Class     = DescribeClass(GetClassName(), &WindowProc);
    Class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    REQUIRE(m_ClassShare.Acquire(Class) == 1);

    const HWND hWnd = CreateWindowExA(m_dwExStyle, GetClassName(), "Test frame", m_dwStyle, 20, 20,
                                      640, 480, nullptr, nullptr, ProgramInstance(), this);
    REQUIRE(hWnd);
    SetCreated(hWnd);
    SetForegroundWindow(hWnd);
    HandleWaitingMessages();
}

void cTestFrame::Close()
{
    if (m_hWnd)
        DestroyWindow(m_hWnd);
}

LRESULT CALLBACK cTestFrame::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

LRESULT cTestFrame::OnCommand(WPARAM wParam, LPARAM lParam)
{
    m_Commands.push_back({LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)});
    return 0;
}

LRESULT cTestFrame::OnNotify(WPARAM, LPARAM lParam)
{
    if (m_OnNotify)
        m_OnNotify(reinterpret_cast<NMHDR *>(lParam));
    return 0;
}

LRESULT cTestFrame::OnCtlColor(WPARAM wParam, LPARAM)
{
    return m_OnCtlColor ? reinterpret_cast<LRESULT>(m_OnCtlColor(reinterpret_cast<HDC>(wParam)))
                        : 0;
}

void HandleWaitingMessages()
{
    MSG Message;
    while (PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE))
    {
        TranslateMessage(&Message);
        DispatchMessageA(&Message);
    }
}

int ShowedOnlyError(const cRecordingBoxes &Boxes, const char *szText, int bUnowned)
{
    return Boxes.m_Boxes.size() == 1 && Boxes.m_Boxes[0].m_Text == szText &&
           Boxes.m_Boxes[0].m_Caption.empty() && Boxes.m_Boxes[0].m_nButtons == bnOk &&
           Boxes.m_Boxes[0].m_nIcon == icError && Boxes.m_Boxes[0].m_bUnowned == bUnowned;
}
