// button_array.h - the calculator's face: a picture with keys to press, slide
// switches to drag, and display rectangles that another object draws. It does not
// know what the keys mean and plays no sounds.
//
// Slot 0 fires with a cKeyEvent. Slot 1 fires with a cDisplayPart that has to be
// redrawn.

#ifndef SHELL_WIN32_BUTTON_ARRAY_H
#define SHELL_WIN32_BUTTON_ARRAY_H

#include "toolkit/win32/win32.h"

#include "shell/win32/lamps.h"
#include "toolkit/pointer_list.h"
#include "toolkit/scale.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/message_table.h"
#include "toolkit/win32/window_class.h"

const uint32_t kSlotKey     = 0;
const uint32_t kSlotDisplay = 1;

const unsigned kMostSwitches = 10;

// Posted, with the code of a key or switch, it presses that as the PC keyboard does.
const UINT kPressMessage = WM_APP;

struct cKeyEvent
{
    uint32_t nKey;   // from 1; keys in the order of AddKey, then switches
    uint32_t bDown;  // 1 pressed, or a switch moved to the right; 0 released
};

// Part of a display rectangle. The face has been drawn there, in memory; what the
// listener draws on top of it appears on the screen together with it.
struct cDisplayPart : RECT
{
    HDC m_hDc;  // in coordinates of the client area
};

class cButtonArray : public cBaseWindow
{
public:
    explicit cButtonArray(cMessageBoxes *pBoxes);
    ~cButtonArray() override;

    const char *GetClassName() const override;

    // Shows hFaceBitmap from its pixel (nSourceX, nSourceY) on. nFaceWidth and
    // nFaceHeight 0: the size of the bitmap. The caller owns bitmap and palette,
    // which must outlive the window. 0, after a message box, on failure.
    int Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, HBITMAP hFaceBitmap,
               HPALETTE hPalette, int nSourceX, int nSourceY, int nFaceWidth, int nFaceHeight,
               DWORD dwStyle, uint32_t nId);

    // The strips of images: the keys side by side, the released image above the
    // pressed one; the switches side by side, with their frames below each
    // other. Each strip can be set once; later calls return 0 and change nothing.
    int SetKeyBitmap(HBITMAP hBitmap);
    int SetSwitchBitmap(HBITMAP hBitmap, int nFrames);

    // In pixels of the client area. The thumb of a switch starts at nStart, 0 or
    // its full travel. 0 if there are too many switches or memory is short.
    int AddKey(int nX, int nY, int nWidth, int nHeight);
    int AddSwitch(int nX, int nY, int nWidth, int nHeight, int nThumbWidth, int nStart);
    int AddDisplayRect(int nX, int nY, int nWidth, int nHeight);

    // The scale of the positions; the frames of the switches follow it.
    void SetScale(const cScale &Scale) { m_Scale = Scale; }

    // Drawn with the face.
    cLamps &Lamps() { return m_Lamps; }

    // Forgets keys, switches, display rectangles and pictures, for others to be added,
    // and shows another face. Before that it releases a pressed key.
    void Restart(HBITMAP hFaceBitmap, HPALETTE hPalette, int nSourceX, int nSourceY);

    // --- for the PC keyboard and its users. Codes are those of cKeyEvent.

    unsigned CountCodes() const { return m_KeyRects.Count() + m_SwitchRects.Count(); }
    int      IsSwitch(unsigned nCode) const { return nCode > m_KeyRects.Count(); }
    int      IsRight(unsigned nCode) const;  // whether the switch is at its right end
    RECT     RectOf(unsigned nCode) const;   // in pixels of the client area
    RECT     DisplayRect() const { return *m_DisplayRects.At(0); }

    // Presses and releases a key, or moves a switch to its other end.
    void Press(unsigned nCode);

    // Shows a key pressed for a moment, without an event. 0 and the code of a switch
    // only end that of another key.
    void Flash(unsigned nCode);

    // Puts a frame round a key or switch, which then has the focus for programs that
    // ask; 0 for none. A click with the mouse removes it.
    void     SetRing(unsigned nCode);
    unsigned Ring() const { return m_nRing; }

private:
    using cMessageRow = cMessageRowOf<cButtonArray>;
    using cRectList   = cPointerList<RECT>;

    static const cMessageRow s_Messages[];
    static cWindowClass      s_Class;
    static LRESULT CALLBACK  WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    LRESULT OnDestroy(WPARAM wParam, LPARAM lParam);
    LRESULT OnClose(WPARAM wParam, LPARAM lParam);
    LRESULT OnSize(WPARAM wParam, LPARAM lParam);
    LRESULT OnEraseBackground(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnCtlColorStatic(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseMove(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonUp(WPARAM wParam, LPARAM lParam);
    LRESULT OnTimer(WPARAM wParam, LPARAM lParam);
    LRESULT OnPress(WPARAM wParam, LPARAM lParam);

    int  AddRect(cRectList *pList, int nX, int nY, int nWidth, int nHeight);
    void DeleteRects(cRectList *pList);
    void SetFace(HBITMAP hFaceBitmap, HPALETTE hPalette, int nSourceX, int nSourceY, int nWidth,
                 int nHeight);
    int  FindRect(const cRectList &List, POINT At) const;
    int  FindThumb(POINT At) const;
    RECT ThumbRect(unsigned nSwitch) const;
    int  Travel(unsigned nSwitch) const;
    void PaintPart(HDC hDc, const RECT &Part);
    void FireDisplay(HDC hDc, const RECT &Part);
    void PaintFace(HDC hDc);
    void PaintKey(HDC hDc, unsigned nKey, int bPressed);
    void PaintSwitch(HDC hDc, unsigned nSwitch, int nPosition);
    void PaintStrip(HDC hDc, const RECT &Rect, HBITMAP hStrip, int nStripX, int nStripY);
    void DrawKey(unsigned nKey, int bPressed);
    RECT RingRect() const;
    int  RingWidth() const;
    void PaintRing(HDC hDc);
    void InvalidateRing();
    void EndFlash();
    void FireKey(unsigned nKey, int bDown);
    void CheckPressedKey(const char *szFailure);
    void ReleaseKey();
    void DragSwitch(POINT At);
    void MoveSwitch(unsigned nSwitch, int nPosition);
    void EndDrag();

    HBITMAP           m_hFaceBitmap;
    int               m_nFaceSrcX;
    int               m_nFaceSrcY;
    int               m_nFaceWidth;
    int               m_nFaceHeight;
    int               m_nClientWidth;
    int               m_nClientHeight;
    HBITMAP           m_hKeyBitmap;
    cRectList         m_KeyRects;
    HBITMAP           m_hSwitchBitmap;
    int               m_nSwitchFrames;
    cScale            m_Scale;
    int               m_SwitchPos[kMostSwitches];  // 0 or the full travel
    int               m_SwitchThumbWidth[kMostSwitches];
    int               m_nPressedKey;  // index, -1 for none
    int               m_nGrabDX;      // of the pointer within the dragged thumb
    int               m_nGrabDY;
    int               m_nDraggedSwitch;  // index, -1 for none
    cRectList         m_SwitchRects;
    cRectList         m_DisplayRects;
    cLamps            m_Lamps;
    HPALETTE          m_hPalette;
    unsigned          m_nRing;     // code, 0 for none
    unsigned          m_nFlashed;  // code of the key that is shown pressed, 0 for none
    cWindowClassShare m_ClassShare;
};

#endif
