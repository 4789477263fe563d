// menu_items.h - checks and enables the items of a menu, by their command ids.

#ifndef TOOLKIT_WIN32_MENU_ITEMS_H
#define TOOLKIT_WIN32_MENU_ITEMS_H

#include "toolkit/win32/win32.h"

inline void CheckItem(HMENU hMenu, unsigned nId, int bChecked)
{
    CheckMenuItem(hMenu, nId,
                  MF_BYCOMMAND | static_cast<UINT>(bChecked ? MF_CHECKED : MF_UNCHECKED));
}

// An item that is not enabled is grey.
inline void EnableItem(HMENU hMenu, unsigned nId, int bEnabled)
{
    EnableMenuItem(hMenu, nId, MF_BYCOMMAND | static_cast<UINT>(bEnabled ? MF_ENABLED : MF_GRAYED));
}

#endif
