// menus.h - works the menus of a window with the mouse.

#ifndef TESTS_WINDOW_MENUS_H
#define TESTS_WINDOW_MENUS_H

#include "toolkit/win32/win32.h"

// Opens a menu of the bar, counted from 0.
void OpenMenu(HWND hWnd, UINT nMenu);

// Moves the mouse to an item of the menu that is open.
void PointAtItem(HWND hWnd, UINT nId);

// Opens a menu of the bar and clicks an item.
void ChooseItem(HWND hWnd, UINT nMenu, UINT nId);

// Waits until a menu is open, whatever its window.
void WaitForMenu();

// Closes the menus that are open.
void CloseMenus();

#endif
