#include "toolkit/win32/win32.h"

#include "toolkit/win32/gdi.h"

#include <doctest/doctest.h>

TEST_CASE("a GDI object is deleted with its owner")
{
    HFONT hFont = nullptr;
    {
        const LOGFONTA LogFont = {};
        const cGdiFont Font(CreateFontIndirectA(&LogFont));
        hFont = Font.Get();
        REQUIRE(GetObjectType(hFont) == OBJ_FONT);
    }

    CHECK(GetObjectType(hFont) == 0);
}

TEST_CASE("a selected object gives way to the former one")
{
    const cMemoryDc Dc(nullptr);
    const LOGFONTA  LogFont = {};
    const cGdiFont  Font(CreateFontIndirectA(&LogFont));
    const HGDIOBJ   hFormer = GetCurrentObject(Dc.Get(), OBJ_FONT);
    {
        const cSelectGuard Selected(Dc.Get(), Font.Get());
        CHECK(GetCurrentObject(Dc.Get(), OBJ_FONT) == Font.Get());
    }

    CHECK(GetCurrentObject(Dc.Get(), OBJ_FONT) == hFormer);
}

TEST_CASE("the former palette is selected again at the end of the scope")
{
    const cMemoryDc            Dc(nullptr);
    const LOGPALETTE           Red = {0x300, 1, {{255, 0, 0, 0}}};
    const cGdiObject<HPALETTE> Palette(CreatePalette(&Red));
    const HGDIOBJ              hFormer = GetCurrentObject(Dc.Get(), OBJ_PAL);
    {
        const cPaletteGuard Selected(Dc.Get(), Palette.Get());
        CHECK(GetCurrentObject(Dc.Get(), OBJ_PAL) == Palette.Get());
    }

    CHECK(GetCurrentObject(Dc.Get(), OBJ_PAL) == hFormer);
}

TEST_CASE("a device context is released at the end of its scope")
{
    HDC hWindowDc = nullptr;
    HDC hMemoryDc = nullptr;
    {
        const cWindowDc Window(nullptr);
        const cMemoryDc Memory(Window.Get());
        hWindowDc = Window.Get();
        hMemoryDc = Memory.Get();
        CHECK(WindowFromDC(hWindowDc) == GetDesktopWindow());
        REQUIRE(GetObjectType(hMemoryDc) == OBJ_MEMDC);
    }

    CHECK(WindowFromDC(hWindowDc) == nullptr);
    CHECK(GetObjectType(hMemoryDc) == 0);
}
