#include "shell/win32/button_array.h"

#include <algorithm>
#include <new>

#include "shell/face_geometry.h"
#include "toolkit/win32/gdi.h"

// clang-format off
const cButtonArray::cMessageRow cButtonArray::s_Messages[] =
{
    { WM_DESTROY,        &cButtonArray::OnDestroy        },
    { WM_CLOSE,          &cButtonArray::OnClose          },
    { WM_SIZE,           &cButtonArray::OnSize           },
    { WM_ERASEBKGND,     &cButtonArray::OnEraseBackground },
    { WM_PAINT,          &cButtonArray::OnPaint          },
    { WM_COMMAND,        &cButtonArray::OnCommand        },
    { WM_CTLCOLORSTATIC, &cButtonArray::OnCtlColorStatic },
    { WM_MOUSEMOVE,      &cButtonArray::OnMouseMove      },
    { WM_LBUTTONDOWN,    &cButtonArray::OnLButtonDown    },
    { WM_LBUTTONUP,      &cButtonArray::OnLButtonUp      },
    { WM_TIMER,          &cButtonArray::OnTimer          },
    { kPressMessage,     &cButtonArray::OnPress          },
};
// clang-format on

cWindowClass cButtonArray::s_Class;

cButtonArray::cButtonArray(cMessageBoxes *pBoxes)
    : cBaseWindow(pBoxes), m_hFaceBitmap(nullptr), m_nFaceSrcX(0), m_nFaceSrcY(0), m_nFaceWidth(0),
      m_nFaceHeight(0), m_nClientWidth(0), m_nClientHeight(0), m_hKeyBitmap(nullptr),
      m_hSwitchBitmap(nullptr), m_nSwitchFrames(0), m_SwitchPos{}, m_SwitchThumbWidth{},
      m_nPressedKey(-1), m_nGrabDX(0), m_nGrabDY(0), m_nDraggedSwitch(-1), m_hPalette(nullptr),
      m_nRing(0), m_nFlashed(0), m_ClassShare(&s_Class)
{
    m_dwStyle   = WS_CHILD | WS_TABSTOP;
    m_dwExStyle = WS_EX_CLIENTEDGE | WS_EX_NOPARENTNOTIFY;
}

cButtonArray::~cButtonArray()
{
    DeleteRects(&m_KeyRects);
    DeleteRects(&m_SwitchRects);
    DeleteRects(&m_DisplayRects);
}

const char *cButtonArray::GetClassName() const
{
    return "cButtonArray";
}

LRESULT CALLBACK cButtonArray::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

int cButtonArray::Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight,
                         HBITMAP hFaceBitmap, HPALETTE hPalette, int nSourceX, int nSourceY,
                         int nFaceWidth, int nFaceHeight, DWORD dwStyle, uint32_t nId)
{
    WNDCLASSA Class     = DescribeClass(GetClassName(), WindowProc);
    Class.style         = CS_HREDRAW | CS_VREDRAW;
    Class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    if (!m_ClassShare.Acquire(Class))
        return ReportFailure("ERROR: RegisterClass() failed in cButtonArray::Create()");

    SetFace(hFaceBitmap, hPalette, nSourceX, nSourceY, nFaceWidth, nFaceHeight);
    if (!CreateChild(pOwner, dwStyle, nX, nY, nWidth, nHeight, nId, this))
        return ReportFailure("ERROR: CreateWindow() failed in cButtonArray::Create()");
    return 1;
}

void cButtonArray::SetFace(HBITMAP hFaceBitmap, HPALETTE hPalette, int nSourceX, int nSourceY,
                           int nWidth, int nHeight)
{
    BITMAP Face = {};
    GetObjectA(hFaceBitmap, sizeof Face, &Face);
    m_hFaceBitmap = hFaceBitmap;
    m_hPalette    = hPalette;
    m_nFaceSrcX   = nSourceX;
    m_nFaceSrcY   = nSourceY;
    m_nFaceWidth  = nWidth ? nWidth : Face.bmWidth;
    m_nFaceHeight = nHeight ? nHeight : Face.bmHeight;
}

void cButtonArray::Restart(HBITMAP hFaceBitmap, HPALETTE hPalette, int nSourceX, int nSourceY)
{
    if (m_nPressedKey >= 0)
        ReleaseKey();
    if (m_nDraggedSwitch >= 0)
        EndDrag();
    EndFlash();
    DeleteRects(&m_KeyRects);
    DeleteRects(&m_SwitchRects);
    DeleteRects(&m_DisplayRects);
    m_hKeyBitmap    = nullptr;
    m_hSwitchBitmap = nullptr;
    SetFace(hFaceBitmap, hPalette, nSourceX, nSourceY, 0, 0);
    InvalidateRect(m_hWnd, nullptr, TRUE);
}

int cButtonArray::SetKeyBitmap(HBITMAP hBitmap)
{
    if (m_hKeyBitmap)
        return 0;
    m_hKeyBitmap = hBitmap;
    return 1;
}

int cButtonArray::SetSwitchBitmap(HBITMAP hBitmap, int nFrames)
{
    if (m_hSwitchBitmap || nFrames == 0)
        return 0;
    m_hSwitchBitmap = hBitmap;
    m_nSwitchFrames = nFrames;
    return 1;
}

int cButtonArray::AddRect(cRectList *pList, int nX, int nY, int nWidth, int nHeight)
{
    RECT *const pRect = AllocateWithRetry(m_pBoxes, [=] {
        return new (std::nothrow) RECT{nX, nY, nX + nWidth, nY + nHeight};
    });
    if (!pRect)
        return 0;
    if (pList->Append(pRect, m_pBoxes))
        return 1;
    delete pRect;
    return 0;
}

void cButtonArray::DeleteRects(cRectList *pList)
{
    while (pList->Count() > 0)
    {
        RECT *const pRect = pList->At(pList->Count() - 1);
        pList->Remove(pRect);
        delete pRect;
    }
}

int cButtonArray::AddKey(int nX, int nY, int nWidth, int nHeight)
{
    return AddRect(&m_KeyRects, nX, nY, nWidth, nHeight);
}

int cButtonArray::AddDisplayRect(int nX, int nY, int nWidth, int nHeight)
{
    return AddRect(&m_DisplayRects, nX, nY, nWidth, nHeight);
}

int cButtonArray::AddSwitch(int nX, int nY, int nWidth, int nHeight, int nThumbWidth, int nStart)
{
    const unsigned nSwitch = m_SwitchRects.Count();
    if (nSwitch == kMostSwitches || !AddRect(&m_SwitchRects, nX, nY, nWidth, nHeight))
        return 0;
    const int nThumb            = std::min(nThumbWidth, nWidth - 1);
    m_SwitchThumbWidth[nSwitch] = nThumb;
    m_SwitchPos[nSwitch]        = nWidth - nThumb < nStart ? 0 : nStart;
    return 1;
}

LRESULT cButtonArray::OnDestroy(WPARAM, LPARAM)
{
    return 0;
}

// The face closes only together with the calculator's window.
LRESULT cButtonArray::OnClose(WPARAM, LPARAM)
{
    return 0;
}

// Minimising reports 0 by 0; the last real size is kept for the next paint.
LRESULT cButtonArray::OnSize(WPARAM, LPARAM lParam)
{
    const int nWidth  = LOWORD(lParam);
    const int nHeight = HIWORD(lParam);
    if (nWidth == 0 || nHeight == 0)
        return 0;
    m_nClientWidth  = nWidth;
    m_nClientHeight = nHeight;
    return 0;
}

LRESULT cButtonArray::OnCommand(WPARAM, LPARAM)
{
    return 0;
}

LRESULT cButtonArray::OnCtlColorStatic(WPARAM wParam, LPARAM)
{
    const HDC hDc = reinterpret_cast<HDC>(wParam);
    SetTextColor(hDc, RGB(128, 128, 128));
    SetBkColor(hDc, RGB(255, 255, 255));
    return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
}

static int Width(const RECT &Rect)
{
    return Rect.right - Rect.left;
}

static int Height(const RECT &Rect)
{
    return Rect.bottom - Rect.top;
}

static POINT PointOf(LPARAM lParam)
{
    // While the mouse is captured, coordinates outside the window are negative.
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

void cButtonArray::PaintStrip(HDC hDc, const RECT &Rect, HBITMAP hStrip, int nStripX, int nStripY)
{
    const cMemoryDc    Strip(hDc);
    const cSelectGuard Selected(Strip.Get(), hStrip);
    BitBlt(hDc, Rect.left, Rect.top, Width(Rect), Height(Rect), Strip.Get(), nStripX, nStripY,
           SRCCOPY);
}

void cButtonArray::PaintFace(HDC hDc)
{
    const RECT Face = {0, 0, std::min(m_nFaceWidth, m_nClientWidth),
                       std::min(m_nFaceHeight - m_nFaceSrcY, m_nClientHeight)};
    PaintStrip(hDc, Face, m_hFaceBitmap, m_nFaceSrcX, m_nFaceSrcY);
}

void cButtonArray::PaintKey(HDC hDc, unsigned nKey, int bPressed)
{
    const RECT &Rect   = *m_KeyRects.At(nKey);
    int         nStrip = 0;
    for (unsigned i = 0; i < nKey; i++)
        nStrip += Width(*m_KeyRects.At(i));
    PaintStrip(hDc, Rect, m_hKeyBitmap, nStrip, bPressed ? Height(Rect) : 0);
}

int cButtonArray::Travel(unsigned nSwitch) const
{
    return std::max(0, Width(*m_SwitchRects.At(nSwitch)) - m_SwitchThumbWidth[nSwitch]);
}

void cButtonArray::PaintSwitch(HDC hDc, unsigned nSwitch, int nPosition)
{
    const RECT &Rect   = *m_SwitchRects.At(nSwitch);
    int         nStrip = 0;
    for (unsigned i = 0; i < nSwitch; i++)
        nStrip += Width(*m_SwitchRects.At(i));
    const int nFrame =
        ThumbFrame(m_Scale.Usual(nPosition), m_Scale.Usual(Travel(nSwitch)), m_nSwitchFrames);
    PaintStrip(hDc, Rect, m_hSwitchBitmap, nStrip, nFrame * Height(Rect));
}

void cButtonArray::PaintPart(HDC hDc, const RECT &Part)
{
    const cPaletteGuard Colours(hDc, m_hPalette);
    RECT                Common;
    FillRect(hDc, &Part, reinterpret_cast<HBRUSH>(GetClassLongPtrA(m_hWnd, GCLP_HBRBACKGROUND)));
    PaintFace(hDc);
    for (unsigned i = 0; i < m_KeyRects.Count(); i++)
        if (IntersectRect(&Common, m_KeyRects.At(i), &Part))
            PaintKey(hDc, i, 0);
    for (unsigned i = 0; i < m_SwitchRects.Count(); i++)
        if (IntersectRect(&Common, m_SwitchRects.At(i), &Part))
            PaintSwitch(hDc, i, m_SwitchPos[i]);
    m_Lamps.Paint(hDc);
    PaintRing(hDc);
}

// Painting covers everything; erasing the background would only flicker.
LRESULT cButtonArray::OnEraseBackground(WPARAM, LPARAM)
{
    return 1;
}

// The display is drawn on top of the finished face, so that it is never seen without
// its text.
LRESULT cButtonArray::OnPaint(WPARAM, LPARAM)
{
    const cPaintDc     Dc(m_hWnd);
    const RECT        &Part = Dc.Part();
    const cMemoryDc    Memory(Dc.Get());
    const cGdiBitmap   Bitmap(CreateCompatibleBitmap(Dc.Get(), Width(Part), Height(Part)));
    const cSelectGuard Selected(Memory.Get(), Bitmap.Get());
    SetViewportOrgEx(Memory.Get(), -Part.left, -Part.top, nullptr);
    PaintPart(Memory.Get(), Part);
    FireDisplay(Memory.Get(), Part);
    BitBlt(Dc.Get(), Part.left, Part.top, Width(Part), Height(Part), Memory.Get(), Part.left,
           Part.top, SRCCOPY);
    return 0;
}

void cButtonArray::FireDisplay(HDC hDc, const RECT &Part)
{
    cDisplayPart Display = {};
    Display.m_hDc        = hDc;
    for (unsigned i = 0; i < m_DisplayRects.Count(); i++)
        if (IntersectRect(&Display, m_DisplayRects.At(i), &Part))
        {
            Fire(kSlotDisplay, &Display);
            break;
        }
}

// Index of the first rectangle that contains the point, -1 for none.
int cButtonArray::FindRect(const cRectList &List, POINT At) const
{
    for (unsigned i = 0; i < List.Count(); i++)
        if (PtInRect(List.At(i), At))
            return static_cast<int>(i);
    return -1;
}

RECT cButtonArray::ThumbRect(unsigned nSwitch) const
{
    RECT Thumb = *m_SwitchRects.At(nSwitch);
    Thumb.left += m_SwitchPos[nSwitch];
    Thumb.right = Thumb.left + m_SwitchThumbWidth[nSwitch];
    return Thumb;
}

int cButtonArray::FindThumb(POINT At) const
{
    for (unsigned i = 0; i < m_SwitchRects.Count(); i++)
    {
        const RECT Thumb = ThumbRect(i);
        if (PtInRect(&Thumb, At))
            return static_cast<int>(i);
    }
    return -1;
}

void cButtonArray::DrawKey(unsigned nKey, int bPressed)
{
    const cWindowDc     Dc(m_hWnd);
    const cPaletteGuard Colours(Dc.Get(), m_hPalette);
    PaintKey(Dc.Get(), nKey, bPressed);
    if (m_nRing == nKey + 1)
        PaintRing(Dc.Get());
}

void cButtonArray::FireKey(unsigned nKey, int bDown)
{
    cKeyEvent Event = {nKey + 1, static_cast<uint32_t>(bDown)};
    Fire(kSlotKey, &Event);
}

LRESULT cButtonArray::OnLButtonDown(WPARAM, LPARAM lParam)
{
    SetRing(0);
    EndFlash();
    const POINT At   = PointOf(lParam);
    const int   nKey = FindRect(m_KeyRects, At);
    if (nKey >= 0)
    {
        DrawKey(static_cast<unsigned>(nKey), 1);
        SetCapture(m_hWnd);
        m_nPressedKey = nKey;
        FireKey(static_cast<unsigned>(nKey), 1);
        return 0;
    }
    const int nSwitch = FindThumb(At);
    if (nSwitch >= 0)
    {
        const RECT Thumb = ThumbRect(static_cast<unsigned>(nSwitch));
        m_nGrabDX        = At.x - Thumb.left;
        m_nGrabDY        = At.y - Thumb.top;
        m_nDraggedSwitch = nSwitch;
        SetCapture(m_hWnd);
    }
    return 0;
}

// Leaving a key releases it; returning to it does not press it again.
LRESULT cButtonArray::OnMouseMove(WPARAM, LPARAM lParam)
{
    const POINT At = PointOf(lParam);
    if (m_nPressedKey >= 0)
    {
        CheckPressedKey("Program Error Code #10:\nfaulty logic in cButtonArray::OnMouseMove()");
        if (!PtInRect(m_KeyRects.At(static_cast<unsigned>(m_nPressedKey)), At))
            ReleaseKey();
    }
    else if (m_nDraggedSwitch >= 0)
        DragSwitch(At);
    return 0;
}

LRESULT cButtonArray::OnLButtonUp(WPARAM, LPARAM)
{
    if (m_nPressedKey >= 0)
    {
        CheckPressedKey("Program Error Code #11:\nfaulty logic in cButtonArray::OnLButtonUp()");
        ReleaseKey();
    }
    else if (m_nDraggedSwitch >= 0)
        EndDrag();
    return 0;
}

// Reports an invalid index and replaces it by that of the last key.
void cButtonArray::CheckPressedKey(const char *szFailure)
{
    if (m_nPressedKey < static_cast<int>(m_KeyRects.Count()))
        return;
    m_nPressedKey = static_cast<int>(m_KeyRects.Count()) - 1;
    m_pBoxes->Ask(szFailure, nullptr, bnOk, icNone);
}

void cButtonArray::ReleaseKey()
{
    const unsigned nKey = static_cast<unsigned>(m_nPressedKey);
    m_nPressedKey       = -1;
    ReleaseCapture();
    DrawKey(nKey, 0);
    FireKey(nKey, 0);
}

// The thumb follows the pointer; the switch changes when the thumb crosses the
// middle.
void cButtonArray::DragSwitch(POINT At)
{
    const unsigned nSwitch   = static_cast<unsigned>(m_nDraggedSwitch);
    const RECT    &Rect      = *m_SwitchRects.At(nSwitch);
    const int      nPosition = std::clamp(
             static_cast<int>(At.x) - m_nGrabDX - static_cast<int>(Rect.left), 0, Travel(nSwitch));
    {
        const cWindowDc     Dc(m_hWnd);
        const cPaletteGuard Colours(Dc.Get(), m_hPalette);
        PaintSwitch(Dc.Get(), nSwitch, nPosition);
    }
    if (!PtInRect(&Rect, At))
        EndDrag();
    MoveSwitch(nSwitch, nPosition);
}

// Exactly half the travel counts as left.
void cButtonArray::MoveSwitch(unsigned nSwitch, int nPosition)
{
    const int nTravel = Travel(nSwitch);
    const int bRight  = 2 * nPosition > nTravel;
    const int bWas    = 2 * m_SwitchPos[nSwitch] > nTravel;
    if (bRight == bWas)
        return;
    m_SwitchPos[nSwitch] = bRight ? nTravel : 0;
    FireKey(m_KeyRects.Count() + nSwitch, bRight);
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, m_hWnd, OBJID_CLIENT,
                   static_cast<LONG>(m_KeyRects.Count() + nSwitch) + 1);
}

// The thumb stays where it was dropped until the next paint.
void cButtonArray::EndDrag()
{
    m_nDraggedSwitch = -1;
    ReleaseCapture();
}
