#include "toolkit/win32/interrupt_watch.h"

static const DWORD kFirstLook = 500;  // milliseconds
static const DWORD kLooks     = 100;  // from one to the next

// Not what other programs send and wait for: that is not for the middle of a command.
static const UINT kQueued = (PM_QS_INPUT | PM_QS_POSTMESSAGE | PM_QS_PAINT);

// The first message from nFirst to nLast in the queue; it stays there.
static int Peek(UINT nFirst, UINT nLast, MSG *pMessage)
{
    return PeekMessageA(pMessage, nullptr, nFirst, nLast, PM_NOREMOVE | kQueued);
}

static void Remove(const MSG &Message)
{
    MSG Removed;
    PeekMessageA(&Removed, nullptr, Message.message, Message.message, PM_REMOVE | kQueued);
}

static int IsClosing()
{
    MSG Message;
    return Peek(WM_QUIT, WM_QUIT, &Message) || Peek(WM_CLOSE, WM_CLOSE, &Message) ||
           (Peek(WM_SYSCOMMAND, WM_SYSCOMMAND, &Message) &&
            (Message.wParam & 0xFFF0) == SC_CLOSE) ||
           (Peek(WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN, &Message) && Message.wParam == HTCLOSE);
}

// Drops keys up to Escape or Alt+F4; 0 if there is neither.
static int HasStopKey()
{
    MSG Message;
    while (Peek(WM_KEYFIRST, WM_KEYLAST, &Message))
    {
        if (Message.message == WM_SYSKEYDOWN && Message.wParam == VK_F4)
            return 1;
        Remove(Message);
        if (Message.message == WM_KEYDOWN && Message.wParam == VK_ESCAPE)
            return 1;
    }
    return 0;
}

static void PaintWindows()
{
    MSG Message;
    while (PeekMessageA(&Message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE | kQueued))
        DispatchMessageA(&Message);
}

cInterruptWatch::cInterruptWatch() : m_dwNextLook(GetTickCount() + kFirstLook) {}

int cInterruptWatch::GoesOn()
{
    if (static_cast<LONG>(GetTickCount() - m_dwNextLook) < 0)
        return 1;
    if (IsClosing() || HasStopKey())
        return 0;
    PaintWindows();
    m_dwNextLook = GetTickCount() + kLooks;
    return 1;
}
