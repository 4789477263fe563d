#include "tests/window/menus.h"

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/probe_link.h"
#include "tests/window/waiting.h"

static const char kMenuClass[] = "#32768";

static int IsMenuOpen(HWND hWnd, UINT nMenu)
{
    return cProbeLink::Current()->AskWindow(hWnd, pbMenuOpen, nMenu).m_nValue;
}

static void ClickBar(HWND hWnd, UINT nMenu)
{
    // Two clicks at the same position would be a double click.
    static int s_nAside = 0;
    s_nAside            = 8 - s_nAside;
    POINT At            = MiddleOf(cProbeLink::Current()->AskWindow(hWnd, pbBarRect, nMenu).m_Rect);
    At.x += s_nAside - 4;
    Click(At);
    cProbeLink::Current()->Settle();
}

// After a window has come to the front, a late event of the screen may close the menu
// again.
void OpenMenu(HWND hWnd, UINT nMenu)
{
    REQUIRE(WaitFor([&] {
        if (!IsMenuOpen(hWnd, nMenu))
            ClickBar(hWnd, nMenu);
        return IsMenuOpen(hWnd, nMenu);
    }));
}

void PointAtItem(HWND hWnd, UINT nId)
{
    const cProbeAnswer Item = cProbeLink::Current()->AskWindow(hWnd, pbMenuRect, nId);
    REQUIRE(Item.m_nValue);
    // Twice, as Wine may lose a move that arrives while a menu handles another one.
    MoveMouse({Item.m_Rect.left + 1, MiddleOf(Item.m_Rect).y});
    cProbeLink::Current()->Settle();
    MoveMouse(MiddleOf(Item.m_Rect));
    cProbeLink::Current()->Settle();
}

void ChooseItem(HWND hWnd, UINT nMenu, UINT nId)
{
    OpenMenu(hWnd, nMenu);
    PointAtItem(hWnd, nId);
    PressMouse();
    ReleaseMouse();
    cProbeLink::Current()->Settle();
}

void WaitForMenu()
{
    REQUIRE(WaitFor([] { return FindWindowA(kMenuClass, nullptr); }));
    cProbeLink::Current()->Settle();
}

void CloseMenus()
{
    HitKey(VK_ESCAPE);
    HitKey(VK_ESCAPE);
    REQUIRE(WaitFor([] { return !FindWindowA(kMenuClass, nullptr); }));
    cProbeLink::Current()->Settle();
}
