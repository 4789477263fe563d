// gdi.h - device contexts and GDI objects that clean up after themselves on
// every return.
//
//     const cWindowDc    Dc(hWnd);
//     const cGdiFont     Font(CreateFontIndirectA(&LogFont));  // deleted second
//     const cSelectGuard Selected(Dc.Get(), Font.Get());       // deselected first

#ifndef TOOLKIT_GDI_H
#define TOOLKIT_GDI_H

#include "toolkit/win32/win32.h"

// A font, pen, brush, bitmap or palette.
template <class cHandle> class cGdiObject
{
public:
    // hObject may be null, as after a failed creation.
    explicit cGdiObject(cHandle hObject) : m_hObject(hObject) {}
    ~cGdiObject()
    {
        if (m_hObject)
            DeleteObject(m_hObject);
    }
    cGdiObject(const cGdiObject &)            = delete;
    cGdiObject &operator=(const cGdiObject &) = delete;

    cHandle Get() const { return m_hObject; }

private:
    cHandle m_hObject;
};

using cGdiFont   = cGdiObject<HFONT>;
using cGdiBitmap = cGdiObject<HBITMAP>;

// Selects an object and puts the former one back at the end of the scope.
class cSelectGuard
{
public:
    cSelectGuard(HDC hDc, HGDIOBJ hObject) : m_hDc(hDc), m_hFormer(SelectObject(hDc, hObject)) {}
    ~cSelectGuard() { SelectObject(m_hDc, m_hFormer); }
    cSelectGuard(const cSelectGuard &)            = delete;
    cSelectGuard &operator=(const cSelectGuard &) = delete;

private:
    HDC     m_hDc;
    HGDIOBJ m_hFormer;
};

// Selects and realises a palette; the former one comes back at the end.
class cPaletteGuard
{
public:
    cPaletteGuard(HDC hDc, HPALETTE hPalette)
        : m_hDc(hDc), m_hFormer(SelectPalette(hDc, hPalette, FALSE))
    {
        RealizePalette(hDc);
    }
    ~cPaletteGuard() { SelectPalette(m_hDc, m_hFormer, FALSE); }
    cPaletteGuard(const cPaletteGuard &)            = delete;
    cPaletteGuard &operator=(const cPaletteGuard &) = delete;

private:
    HDC      m_hDc;
    HPALETTE m_hFormer;
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

// A context in memory that is like hDc; null stands for the screen.
class cMemoryDc
{
public:
    explicit cMemoryDc(HDC hDc) : m_hDc(CreateCompatibleDC(hDc)) {}
    ~cMemoryDc() { DeleteDC(m_hDc); }
    cMemoryDc(const cMemoryDc &)            = delete;
    cMemoryDc &operator=(const cMemoryDc &) = delete;

    HDC Get() const { return m_hDc; }

private:
    HDC m_hDc;
};

#endif
