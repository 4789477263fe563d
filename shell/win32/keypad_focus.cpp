// keypad_focus.cpp - the keypad for those who use it without a mouse: the ring round
// the key that Space presses, and keys that a PC key moves.

#include "shell/win32/button_array.h"

#include <algorithm>

#include "toolkit/win32/gdi.h"

static const UINT_PTR kFlashTimer = 1;
static const UINT     kFlashTime  = 100;  // milliseconds

static const COLORREF kRingColour     = RGB(255, 255, 255);
static const int      kRowsPerWidth   = 15;  // of a key, for each pixel of the ring
static const int      kCornerPerWidth = 4;   // diameter of its corners, likewise
static const int      kLeastRing      = 2;

int cButtonArray::IsRight(unsigned nCode) const
{
    return m_SwitchPos[nCode - m_KeyRects.Count() - 1] > 0;
}

RECT cButtonArray::RectOf(unsigned nCode) const
{
    const unsigned nKeys = m_KeyRects.Count();
    return nCode <= nKeys ? *m_KeyRects.At(nCode - 1) : *m_SwitchRects.At(nCode - nKeys - 1);
}

void cButtonArray::Press(unsigned nCode)
{
    if (IsSwitch(nCode))
    {
        const unsigned nSwitch = nCode - m_KeyRects.Count() - 1;
        const RECT     Rect    = RectOf(nCode);
        InvalidateRect(m_hWnd, &Rect, FALSE);
        MoveSwitch(nSwitch, IsRight(nCode) ? 0 : Travel(nSwitch));
        return;
    }
    Flash(nCode);
    FireKey(nCode - 1, 1);
    FireKey(nCode - 1, 0);
}

void cButtonArray::Flash(unsigned nCode)
{
    EndFlash();
    if (!nCode || IsSwitch(nCode))
        return;
    m_nFlashed = nCode;
    DrawKey(nCode - 1, 1);
    SetTimer(m_hWnd, kFlashTimer, kFlashTime, nullptr);
}

// The mouse may have pressed the same key meanwhile.
void cButtonArray::EndFlash()
{
    if (!m_nFlashed)
        return;
    const unsigned nKey = m_nFlashed - 1;
    m_nFlashed          = 0;
    KillTimer(m_hWnd, kFlashTimer);
    if (m_nPressedKey != static_cast<int>(nKey))
        DrawKey(nKey, 0);
}

LRESULT cButtonArray::OnTimer(WPARAM wParam, LPARAM lParam)
{
    if (wParam != kFlashTimer)
        return DefWindowProcA(m_hWnd, WM_TIMER, wParam, lParam);
    EndFlash();
    return 0;
}

// While a dialog is open, nothing is pressed behind it.
LRESULT cButtonArray::OnPress(WPARAM wParam, LPARAM)
{
    if (wParam >= 1 && wParam <= CountCodes() && IsWindowEnabled(GetParent(m_hWnd)))
        Press(static_cast<unsigned>(wParam));
    return 0;
}

void cButtonArray::SetRing(unsigned nCode)
{
    if (nCode == m_nRing)
        return;
    InvalidateRing();
    m_nRing = nCode;
    InvalidateRing();
    if (nCode)
        NotifyWinEvent(EVENT_OBJECT_FOCUS, m_hWnd, OBJID_CLIENT, static_cast<LONG>(nCode));
}

// In proportion to the keys, at every resolution.
int cButtonArray::RingWidth() const
{
    const RECT Key = RectOf(1);
    return std::max<int>((Key.bottom - Key.top) / kRowsPerWidth, kLeastRing);
}

// Half outside the key: a legend begins right above it.
RECT cButtonArray::RingRect() const
{
    const int nOutside = RingWidth() / 2;
    RECT      Ring     = RectOf(m_nRing);
    InflateRect(&Ring, nOutside, nOutside);
    return Ring;
}

void cButtonArray::InvalidateRing()
{
    if (!m_nRing)
        return;
    const RECT Ring = RingRect();
    InvalidateRect(m_hWnd, &Ring, FALSE);
}

void cButtonArray::PaintRing(HDC hDc)
{
    if (!m_nRing)
        return;
    const RECT         Ring    = RingRect();
    const int          nCorner = kCornerPerWidth * RingWidth();
    const cGdiPen      Pen(CreatePen(PS_INSIDEFRAME, RingWidth(), kRingColour));
    const cSelectGuard WithPen(hDc, Pen.Get());
    const cSelectGuard Hollow(hDc, GetStockObject(NULL_BRUSH));
    RoundRect(hDc, Ring.left, Ring.top, Ring.right, Ring.bottom, nCorner, nCorner);
}
