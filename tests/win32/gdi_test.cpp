#include "toolkit/win32/win32.h"

#include "toolkit/win32/gdi.h"

#include <utility>

#include <doctest/doctest.h>

#include "tests/win32/test_frame.h"

static HFONT CreateSomeFont()
{
    const LOGFONTA LogFont = {};
    return CreateFontIndirectA(&LogFont);
}

static int IsFont(HFONT hFont)
{
    return GetObjectType(hFont) == OBJ_FONT;
}

TEST_CASE("a GDI object is deleted with its owner")
{
    HFONT hFont = nullptr;
    {
        const cGdiFont Font(CreateSomeFont());
        hFont = Font.Get();
        REQUIRE(IsFont(hFont));
    }

    CHECK_FALSE(IsFont(hFont));
}

TEST_CASE("an owner is empty until it gets an object")
{
    const cGdiFont None;
    const cGdiFont Failed(nullptr);
    const cGdiFont Font(CreateSomeFont());

    CHECK_FALSE(None);
    CHECK(!None.Get());
    CHECK_FALSE(Failed);
    CHECK(Font);
}

TEST_CASE("an owner that is reset deletes its object and takes over the next one")
{
    cGdiFont    Font(CreateSomeFont());
    const HFONT hFirst  = Font.Get();
    const HFONT hSecond = CreateSomeFont();

    Font.Reset(hSecond);
    CHECK_FALSE(IsFont(hFirst));
    CHECK(Font.Get() == hSecond);
    CHECK(IsFont(hSecond));

    Font.Reset(hSecond);
    CHECK(Font.Get() == hSecond);
    CHECK(IsFont(hSecond));

    Font.Reset();
    CHECK_FALSE(IsFont(hSecond));
    CHECK_FALSE(Font);
}

TEST_CASE("an object moves to another owner, which deletes its own")
{
    cGdiFont    Source(CreateSomeFont());
    const HFONT hFont = Source.Get();

    cGdiFont Moved(std::move(Source));
    CHECK(Moved.Get() == hFont);
    CHECK(!Source.Get());  // NOLINT(bugprone-use-after-move): it is empty

    cGdiFont    Target(CreateSomeFont());
    const HFONT hReplaced = Target.Get();
    Target                = std::move(Moved);
    CHECK(Target.Get() == hFont);
    CHECK(IsFont(hFont));
    CHECK_FALSE(IsFont(hReplaced));
    CHECK(!Moved.Get());  // NOLINT(bugprone-use-after-move): it is empty
}

TEST_CASE("an owner that is moved to itself keeps its object")
{
    cGdiFont    Font(CreateSomeFont());
    cGdiFont   &Same  = Font;
    const HFONT hFont = Font.Get();

    Font = std::move(Same);

    CHECK(Font.Get() == hFont);
    CHECK(IsFont(hFont));
}

TEST_CASE("a released object outlives its owner")
{
    HFONT hFont = nullptr;
    {
        cGdiFont Font(CreateSomeFont());
        hFont = Font.Release();
        CHECK_FALSE(Font);
    }

    CHECK(IsFont(hFont));
    DeleteObject(hFont);
}

TEST_CASE("a menu is destroyed with its owner")
{
    HMENU hMenu = nullptr;
    {
        const cMenu Menu(CreatePopupMenu());
        hMenu = Menu.Get();
        REQUIRE(IsMenu(hMenu));
    }

    CHECK_FALSE(IsMenu(hMenu));
}

TEST_CASE("a library is unloaded with its owner")
{
    REQUIRE(!GetModuleHandleA("RICHED20.DLL"));
    {
        const cModule Module(LoadLibraryA("RICHED20.DLL"));
        REQUIRE(Module);
        CHECK(GetModuleHandleA("RICHED20.DLL") == Module.Get());
    }

    CHECK(!GetModuleHandleA("RICHED20.DLL"));
}

TEST_CASE("the former object is selected again at the end of the scope")
{
    const cMemoryDc Dc(nullptr);
    const cGdiFont  Font(CreateSomeFont());
    const HGDIOBJ   hFormer = GetCurrentObject(Dc.Get(), OBJ_FONT);
    {
        const cSelectGuard Selected(Dc.Get(), Font.Get());
        CHECK(GetCurrentObject(Dc.Get(), OBJ_FONT) == Font.Get());
    }

    CHECK(GetCurrentObject(Dc.Get(), OBJ_FONT) == hFormer);
}

TEST_CASE("the former palette is selected again at the end of the scope")
{
    const cMemoryDc   Dc(nullptr);
    const LOGPALETTE  Red = {0x300, 1, {{255, 0, 0, 0}}};
    const cGdiPalette Palette(CreatePalette(&Red));
    const HGDIOBJ     hFormer = GetCurrentObject(Dc.Get(), OBJ_PAL);
    {
        const cPaletteGuard Selected(Dc.Get(), Palette.Get());
        CHECK(GetCurrentObject(Dc.Get(), OBJ_PAL) == Palette.Get());
    }

    CHECK(GetCurrentObject(Dc.Get(), OBJ_PAL) == hFormer);
}

TEST_CASE("the state of a device context is restored at the end of the scope")
{
    const cMemoryDc Dc(nullptr);
    SetTextColor(Dc.Get(), RGB(1, 2, 3));
    {
        const cStateGuard State(Dc.Get());
        SetTextColor(Dc.Get(), RGB(4, 5, 6));
        SetROP2(Dc.Get(), R2_NOTXORPEN);
    }

    CHECK(GetTextColor(Dc.Get()) == RGB(1, 2, 3));
    CHECK(GetROP2(Dc.Get()) == R2_COPYPEN);
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

    CHECK(!WindowFromDC(hWindowDc));
    CHECK(GetObjectType(hMemoryDc) == 0);
}

TEST_CASE("painting covers the invalid part of a window and leaves it valid")
{
    cFrameRig  Rig;
    const HWND hWnd    = Rig.m_Frame.Window();
    const RECT Invalid = {10, 20, 30, 50};
    ValidateRect(hWnd, nullptr);
    InvalidateRect(hWnd, &Invalid, FALSE);
    HDC hDc = nullptr;
    {
        const cPaintDc Dc(hWnd);
        hDc = Dc.Get();
        CHECK(WindowFromDC(hDc) == hWnd);
        CHECK(EqualRect(&Dc.Part(), &Invalid));
        CHECK_FALSE(GetUpdateRect(hWnd, nullptr, FALSE));
    }

    CHECK(!WindowFromDC(hDc));
    Rig.m_Frame.Close();
}
