// display_menu.cpp - X to the clipboard and back, from a menu of the display.

#include "shell/win32/vorstek.h"

#include "engine/number_transfer.h"
#include "engine/vorstek_state.h"
#include "resources/resource.h"
#include "toolkit/win32/clipboard.h"
#include "toolkit/win32/menu_items.h"
#include "toolkit/win32/owned_handle.h"

// Longer texts on the clipboard are no numbers.
static const size_t kClipboardText = 512;

static RECT OnScreen(const cButtonArray &Keypad)
{
    RECT Rect = Keypad.DisplayRect();
    MapWindowPoints(Keypad.Window(), nullptr, reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

// The key for menus opens it too. It sends no position.
LRESULT cVorstek::OnContextMenu(WPARAM wParam, LPARAM lParam)
{
    const RECT Display = OnScreen(m_Keypad);
    POINT      At      = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (At.x == -1 && At.y == -1)
        At = {Display.left, Display.bottom};
    else if (!PtInRect(&Display, At))
        return DefWindowProcA(m_hWnd, WM_CONTEXTMENU, wParam, lParam);

    const cMenu Menu(LoadMenuA(ProgramInstance(), MAKEINTRESOURCEA(IDR_DISPLAY_MENU)));
    const HMENU hSub = GetSubMenu(Menu.Get(), 0);
    EnableItem(hSub, IDM_PASTE_NUMBER, !IsRunning() && IsClipboardFormatAvailable(CF_TEXT));
    TrackPopupMenu(hSub, TPM_RIGHTBUTTON, At.x, At.y, 0, m_hWnd, nullptr);
    return 0;
}

void cVorstek::OnCopyX()
{
    char szText[kTransferText];
    PrintForTransfer(State().m_dX, szText);
    if (!CopyText(m_hWnd, szText) && !State().m_bSoundOff)
        StartSound(IDW_REFUSAL);
}

// The engine refuses what is not a number, and says so.
void cVorstek::OnPasteNumber()
{
    char szText[kClipboardText];
    ReadCopiedText(m_hWnd, szText, sizeof szText);
    EnterNumber(szText);
}
