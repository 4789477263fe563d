// menus.h - drives the menus of a window with the mouse.

#ifndef TESTS_WINDOW_MENUS_H
#define TESTS_WINDOW_MENUS_H

#include "toolkit/win32/win32.h"

// Opens a menu of the bar, counted from 0.
void OpenMenu(HWND hWnd, UINT nMenu);

// Moves the mouse to an item of the open menu.
void PointAtItem(HWND hWnd, UINT nId);

// Opens a menu of the bar and clicks an item.
void ChooseItem(HWND hWnd, UINT nMenu, UINT nId);

// Waits until any menu is open.
void WaitForMenu();

// Closes all open menus.
void CloseMenus();

#endif
