// gdi.h - device contexts and GDI objects that clean up after themselves on
// every return.
//
//     const cWindowDc    Dc(hWnd);
//     const cGdiFont     Font(CreateFontIndirectA(&LogFont));  // deleted second
//     const cSelectGuard Selected(Dc.Get(), Font.Get());       // deselected first

#ifndef TOOLKIT_WIN32_GDI_H
#define TOOLKIT_WIN32_GDI_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/owned_handle.h"

// A font, pen, brush, bitmap or palette.
struct cFreeGdiObject
{
    static void Free(HGDIOBJ hObject) { DeleteObject(hObject); }
};
template <class cHandle> using cGdiObject = cOwnedHandle<cHandle, cFreeGdiObject>;

using cGdiBitmap  = cGdiObject<HBITMAP>;
using cGdiBrush   = cGdiObject<HBRUSH>;
using cGdiFont    = cGdiObject<HFONT>;
using cGdiPalette = cGdiObject<HPALETTE>;
using cGdiPen     = cGdiObject<HPEN>;

// A device context that the program has created, in memory or for a printer.
struct cFreeDc
{
    static void Free(HDC hDc) { DeleteDC(hDc); }
};
using cCreatedDc = cOwnedHandle<HDC, cFreeDc>;

// A context in memory, compatible with hDc, or with the screen for null.
class cMemoryDc : public cCreatedDc
{
public:
    explicit cMemoryDc(HDC hDc) : cCreatedDc(CreateCompatibleDC(hDc)) {}
};

// The client area of a window, or the whole screen for null.
class cWindowDc
{
public:
    explicit cWindowDc(HWND hWnd) : m_hWnd(hWnd), m_hDc(GetDC(hWnd)) {}
    ~cWindowDc() { ReleaseDC(m_hWnd, m_hDc); }
    cWindowDc(const cWindowDc &)            = delete;
    cWindowDc &operator=(const cWindowDc &) = delete;

    HDC Get() const { return m_hDc; }

private:
    HWND m_hWnd;
    HDC  m_hDc;
};

// The invalid part of a window, for the handler of WM_PAINT. It is valid from
// the constructor on.
class cPaintDc
{
public:
    explicit cPaintDc(HWND hWnd) : m_hWnd(hWnd), m_Paint() { BeginPaint(hWnd, &m_Paint); }
    ~cPaintDc() { EndPaint(m_hWnd, &m_Paint); }
    cPaintDc(const cPaintDc &)            = delete;
    cPaintDc &operator=(const cPaintDc &) = delete;

    HDC Get() const { return m_Paint.hdc; }

    // The rectangle to be painted, in pixels of the client area.
    const RECT &Part() const { return m_Paint.rcPaint; }

private:
    HWND        m_hWnd;
    PAINTSTRUCT m_Paint;
};

// Saves the state of a context and restores it at the end of the scope.
class cStateGuard
{
public:
    explicit cStateGuard(HDC hDc) : m_hDc(hDc), m_nSaved(SaveDC(hDc)) {}
    ~cStateGuard() { RestoreDC(m_hDc, m_nSaved); }
    cStateGuard(const cStateGuard &)            = delete;
    cStateGuard &operator=(const cStateGuard &) = delete;

private:
    HDC m_hDc;
    int m_nSaved;
};

// Selects an object and restores the previous one at the end of the scope.
class cSelectGuard
{
public:
    cSelectGuard(HDC hDc, HGDIOBJ hObject) : m_hDc(hDc), m_hPrevious(SelectObject(hDc, hObject)) {}
    ~cSelectGuard() { SelectObject(m_hDc, m_hPrevious); }
    cSelectGuard(const cSelectGuard &)            = delete;
    cSelectGuard &operator=(const cSelectGuard &) = delete;

private:
    HDC     m_hDc;
    HGDIOBJ m_hPrevious;
};

// Selects and realises a palette and restores the previous one at the end of the
// scope.
class cPaletteGuard
{
public:
    cPaletteGuard(HDC hDc, HPALETTE hPalette)
        : m_hDc(hDc), m_hPrevious(SelectPalette(hDc, hPalette, FALSE))
    {
        RealizePalette(hDc);
    }
    ~cPaletteGuard() { SelectPalette(m_hDc, m_hPrevious, FALSE); }
    cPaletteGuard(const cPaletteGuard &)            = delete;
    cPaletteGuard &operator=(const cPaletteGuard &) = delete;

private:
    HDC      m_hDc;
    HPALETTE m_hPrevious;
};

#endif
