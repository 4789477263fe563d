#include "tests/window/input.h"

#include <vector>

#include <doctest/doctest.h>

#include "tests/window/mouse_link.h"
#include "tests/window/probe_link.h"
#include "tests/window/window_state.h"

static void Send(const std::vector<INPUT> &Inputs)
{
    cProbeLink::Current()->Inject(Inputs);
}

static void SendButton(DWORD dwWhat)
{
    INPUT Input      = {};
    Input.type       = INPUT_MOUSE;
    Input.mi.dwFlags = dwWhat;
    Send({Input});
}

static INPUT KeyInput(WORD nKey, DWORD dwFlags)
{
    INPUT Input      = {};
    Input.type       = INPUT_KEYBOARD;
    Input.ki.wVk     = nKey;
    Input.ki.wScan   = static_cast<WORD>(MapVirtualKeyA(nKey, MAPVK_VK_TO_VSC));
    Input.ki.dwFlags = dwFlags;
    return Input;
}

POINT MiddleOf(const RECT &Rect)
{
    return {(Rect.left + Rect.right) / 2, (Rect.top + Rect.bottom) / 2};
}

void MoveMouse(POINT Position)
{
    cMouseLink::Current()->MoveTo(Position);
    cProbeLink::Current()->Ask(pbQueue);
}

void PressMouse(eMouseButton nButton)
{
    SendButton(nButton == mbLeft ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
}

void ReleaseMouse(eMouseButton nButton)
{
    SendButton(nButton == mbLeft ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

void Click(POINT Position, eMouseButton nButton)
{
    MoveMouse(Position);
    PressMouse(nButton);
    ReleaseMouse(nButton);
}

void ClickMiddleOf(HWND hWnd)
{
    const RECT Rect = RectOf(hWnd);
    Click(MiddleOf(Rect));
}

static int IsPart(HWND hWnd, POINT Point, LRESULT nPart)
{
    return SendMessageA(hWnd, WM_NCHITTEST, 0, MAKELPARAM(Point.x, Point.y)) == nPart;
}

// Searches the lower right corner, the right edge and the caption; to ask for every
// point would take seconds.
POINT FramePoint(HWND hWnd, LRESULT nPart)
{
    const RECT Rect = RectOf(hWnd);
    for (int i = 1; i < 10; i++)
    {
        const POINT Corner = {Rect.right - i, Rect.bottom - i};
        const POINT Edge   = {Rect.right - i, (Rect.top + Rect.bottom) / 2};
        if (IsPart(hWnd, Corner, nPart))
            return Corner;
        if (IsPart(hWnd, Edge, nPart))
            return Edge;
    }
    const int nCaption = GetSystemMetrics(SM_CYCAPTION);
    for (int x = Rect.right - 1; x >= Rect.left; x -= 3)
        if (IsPart(hWnd, {x, Rect.top + nCaption / 2}, nPart))
            return {x, Rect.top + nCaption / 2};
    FAIL("the frame has no part ", nPart);
    return {};
}

void HitKey(WORD nKey, unsigned nModifiers)
{
    const struct
    {
        unsigned m_nBit;
        WORD     m_nKey;
    } Modifiers[] = {{kCtrl, VK_CONTROL}, {kShift, VK_SHIFT}, {kAlt, VK_MENU}};

    // All in one call: a window that is activated in between reads the state of the
    // real keyboard, where no modifier is held.
    std::vector<INPUT> Inputs;
    for (const auto &Modifier : Modifiers)
        if (nModifiers & Modifier.m_nBit)
            Inputs.push_back(KeyInput(Modifier.m_nKey, 0));
    // Without the flag, Insert and Delete are those of the number pad.
    const DWORD dwExtended = nKey >= VK_PRIOR && nKey <= VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0;
    Inputs.push_back(KeyInput(nKey, dwExtended));
    Inputs.push_back(KeyInput(nKey, dwExtended | KEYEVENTF_KEYUP));
    for (const auto &Modifier : Modifiers)
        if (nModifiers & Modifier.m_nBit)
            Inputs.push_back(KeyInput(Modifier.m_nKey, KEYEVENTF_KEYUP));
    Send(Inputs);
}

void Type(const std::string &Text)
{
    for (const char c : Text)
    {
        WCHAR szWide[2] = {};
        MultiByteToWideChar(CP_ACP, 0, &c, 1, szWide, 1);
        INPUT Input      = {};
        Input.type       = INPUT_KEYBOARD;
        Input.ki.wScan   = szWide[0];
        Input.ki.dwFlags = KEYEVENTF_UNICODE;
        INPUT Released   = Input;
        Released.ki.dwFlags |= KEYEVENTF_KEYUP;
        Send({Input, Released});
    }
}
