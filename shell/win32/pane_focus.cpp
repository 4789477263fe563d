#include "shell/win32/pane_focus.h"

#include "shell/win32/button_array.h"
#include "toolkit/win32/edit_box.h"
#include "toolkit/win32/tool_bar.h"

static const unsigned kFirstKey = 11;  // ENTER, in the middle

cPaneFocus::cPaneFocus(cButtonArray *pKeypad, cEditBox *pListing, cEditBox *pRegisters,
                       cToolBar *pToolBar)
    : m_pKeypad(pKeypad), m_pListing(pListing), m_pRegisters(pRegisters), m_pToolBar(pToolBar),
      m_nPane(pnNone), m_nKey(kFirstKey), m_nButton(0)
{
}

// A screen reader may have framed a key.
ePane cPaneFocus::Pane() const
{
    if (m_pKeypad->Ring())
        return pnKeypad;
    return m_nPane != pnKeypad && IsShown(m_nPane) ? m_nPane : pnNone;
}

int cPaneFocus::IsShown(ePane nPane) const
{
    switch (nPane)
    {
    case pnKeypad:
        return 1;
    case pnListing:
        return m_pListing->IsVisible();
    case pnRegisters:
        return m_pRegisters->IsVisible();
    case pnToolBar:
        return m_pToolBar->IsVisible();
    default:
        return 0;
    }
}

int cPaneFocus::OnKeyDown(unsigned nKey, int bShift)
{
    switch (nKey)
    {
    case VK_TAB:
    case VK_F6:
        return Step(bShift ? -1 : 1);
    case VK_LEFT:
        return Move(drLeft);
    case VK_RIGHT:
        return Move(drRight);
    case VK_UP:
        return Move(drUp);
    case VK_DOWN:
        return Move(drDown);
    case VK_PRIOR:
        return Scroll(WM_VSCROLL, SB_PAGEUP);
    case VK_NEXT:
        return Scroll(WM_VSCROLL, SB_PAGEDOWN);
    case VK_HOME:
        return Scroll(WM_VSCROLL, SB_TOP);
    case VK_END:
        return Scroll(WM_VSCROLL, SB_BOTTOM);
    default:
        return 0;
    }
}

// Without a frame, the first step forward is to the keypad, which is always there.
int cPaneFocus::Step(int nBy)
{
    const int nParts = kPanes - pnKeypad;
    int       nPart  = Pane() == pnNone ? (nBy > 0 ? nParts - 1 : 0) : Pane() - pnKeypad;
    do
        nPart = (nPart + nBy + nParts) % nParts;
    while (!IsShown(static_cast<ePane>(pnKeypad + nPart)));
    Enter(static_cast<ePane>(pnKeypad + nPart));
    return 1;
}

void cPaneFocus::Clear()
{
    m_Mark.Hide();
    m_pKeypad->SetRing(0);
    m_nPane = pnNone;
}

void cPaneFocus::Enter(ePane nPane)
{
    Clear();
    m_nPane = nPane;
    if (nPane == pnKeypad)
        m_pKeypad->SetRing(m_nKey);
    else if (nPane == pnToolBar)
        FrameButton(m_nButton);
    else
    {
        const HWND hBox = nPane == pnListing ? m_pListing->Window() : m_pRegisters->Window();
        m_Mark.Show(hBox, kWholeWindow);
        NotifyWinEvent(EVENT_OBJECT_FOCUS, hBox, OBJID_CLIENT, CHILDID_SELF);
    }
}

int cPaneFocus::Move(eDirection nDirection)
{
    // clang-format off
    static const struct { UINT m_nMessage; unsigned m_nHow; } s_Scrolls[] =
    {
        { WM_HSCROLL, SB_LINELEFT }, { WM_HSCROLL, SB_LINERIGHT },
        { WM_VSCROLL, SB_LINEUP },   { WM_VSCROLL, SB_LINEDOWN },
    };
    // clang-format on
    switch (Pane())
    {
    case pnNone:
        Enter(pnKeypad);
        return 1;
    case pnKeypad:
        m_nKey = NeighbourOf(m_pKeypad->Ring(), nDirection);
        m_pKeypad->SetRing(m_nKey);
        return 1;
    case pnToolBar:
        MoveInToolBar(nDirection == drLeft || nDirection == drUp ? -1 : 1);
        return 1;
    default:
        return Scroll(s_Scrolls[nDirection].m_nMessage, s_Scrolls[nDirection].m_nHow);
    }
}

int cPaneFocus::Scroll(UINT nMessage, unsigned nHow)
{
    const cEditBox *const pBox = Pane() == pnRegisters ? m_pRegisters : m_pListing;
    if (pBox->IsVisible())
        SendMessageA(pBox->Window(), nMessage, nHow, 0);
    return 1;
}

// The next button from there on that can be pressed; nFrom if there is none.
int cPaneFocus::NextButton(int nFrom, int nBy) const
{
    const auto nCount = static_cast<int>(SendMessageA(m_pToolBar->Window(), TB_BUTTONCOUNT, 0, 0));
    for (int nButton = nFrom + nBy; nButton >= 0 && nButton < nCount; nButton += nBy)
    {
        TBBUTTON Button = {};
        SendMessageA(m_pToolBar->Window(), TB_GETBUTTON, static_cast<WPARAM>(nButton),
                     reinterpret_cast<LPARAM>(&Button));
        if (!(Button.fsStyle & TBSTYLE_SEP) && (Button.fsState & TBSTATE_ENABLED))
            return nButton;
    }
    return nFrom;
}

void cPaneFocus::MoveInToolBar(int nBy)
{
    FrameButton(NextButton(m_nButton, nBy));
}

void cPaneFocus::FrameButton(int nButton)
{
    m_nButton = nButton;
    m_Mark.Show(m_pToolBar->Window(), nButton);
    NotifyWinEvent(EVENT_OBJECT_FOCUS, m_pToolBar->Window(), OBJID_CLIENT, nButton + 1);
}

// The box that a command opens is in front of the frame, which stays.
void cPaneFocus::Press()
{
    if (Pane() == pnKeypad)
        m_pKeypad->Press(m_pKeypad->Ring());
    if (Pane() != pnToolBar)
        return;
    TBBUTTON Button = {};
    SendMessageA(m_pToolBar->Window(), TB_GETBUTTON, static_cast<WPARAM>(m_nButton),
                 reinterpret_cast<LPARAM>(&Button));
    if (Button.fsState & TBSTATE_ENABLED)
        SendMessageA(GetParent(m_pToolBar->Window()), WM_COMMAND,
                     static_cast<WPARAM>(Button.idCommand), 0);
}
