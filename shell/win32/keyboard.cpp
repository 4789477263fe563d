// keyboard.cpp - what is typed while the calculator's window has the keyboard.

#include "shell/win32/vorstek.h"

#include <cstring>
#include <utility>

#include "engine/vorstek_state.h"
#include "shell/key_names.h"

static const LPARAM kRepeated = 1 << 30;  // of the key data: the key was down already
static const char   kEscape   = 27;

static int IsHeld(int nKey)
{
    return GetKeyState(nKey) < 0;
}

// With Ctrl or Alt a key means something else, of which the platform knows more.
LRESULT cVorstek::OnKeyDown(WPARAM wParam, LPARAM lParam)
{
    const auto nKey   = static_cast<unsigned>(wParam);
    const int  bShift = IsHeld(VK_SHIFT);
    m_nKeyDown        = nKey;
    if (IsHeld(VK_CONTROL) || IsHeld(VK_MENU))
        return DefWindowProcA(m_hWnd, WM_KEYDOWN, wParam, lParam);
    if (m_Panes.OnKeyDown(nKey, bShift))
        return 0;
    if (nKey >= VK_F1 && nKey <= VK_F24 && !bShift && !(lParam & kRepeated))
        PressKeys(KeysOfFunctionKey(nKey - VK_F1 + 1));
    return 0;
}

// A first key that halts a run or clears an error does nothing else, so no second one
// may follow it.
void cVorstek::PressKeys(const cKeySequence &Keys)
{
    if (Keys.m_nCount == 0)
        return;
    m_Keypad.Press(Keys.m_nKeys[0]);
    const char *const szPending = State().m_szKeystrokes;
    const size_t      nPending  = strlen(szPending);
    if (Keys.m_nCount == 2 && nPending >= 2 && strcmp(szPending + nPending - 2, "g ") == 0)
        m_Keypad.Press(Keys.m_nKeys[1]);
}

// The decimal key of the numeric pad is the point, also where it types a comma.
LRESULT cVorstek::OnCharacter(WPARAM wParam, LPARAM lParam)
{
    const auto     cTyped   = static_cast<char>(wParam);
    const unsigned nKeyDown = std::exchange(m_nKeyDown, 0);
    const char     c        = cTyped == ',' && nKeyDown == VK_DECIMAL ? '.' : cTyped;
    if (c == '\t' && nKeyDown == VK_TAB)
        return 0;
    if ((c == ' ' || c == '\r') && m_Panes.CanPress())
    {
        if (!(lParam & kRepeated))
            m_Panes.Press();
        return 0;
    }
    if (c == kEscape)
        m_Panes.Clear();
    m_Keypad.Flash(KeyOfCharacter(c));
    OnChar(c);
    return 0;
}

LRESULT cVorstek::OnParentNotify(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) == WM_LBUTTONDOWN)
        m_Panes.Clear();
    return 0;
}
