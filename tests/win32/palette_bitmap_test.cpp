#include "toolkit/win32/win32.h"

#include "toolkit/win32/palette_bitmap.h"

#include <doctest/doctest.h>

#include "tests/win32/resources/test_resources.h"

namespace
{

struct cLoaded
{
    explicit cLoaded(unsigned nId) { Load(nId); }

    void Load(unsigned nId) { m_bLoaded = LoadPaletteBitmap(nId, &m_Bitmap, &m_Palette); }

    COLORREF Pixel(int nX, int nY) const
    {
        const cMemoryDc    Dc(nullptr);
        const cSelectGuard Selected(Dc.Get(), m_Bitmap.Get());
        return GetPixel(Dc.Get(), nX, nY);
    }

    int         m_bLoaded = -1;
    cGdiBitmap  m_Bitmap;
    cGdiPalette m_Palette;
};

}  // namespace

TEST_CASE("a bitmap resource gets a palette of its colour table")
{
    const cLoaded Loaded(IDB_FOUR_COLOURS);

    REQUIRE(Loaded.m_bLoaded == 1);
    PALETTEENTRY Entries[8] = {};
    CHECK(GetPaletteEntries(Loaded.m_Palette.Get(), 0, 8, Entries) == 4);
    CHECK(RGB(Entries[0].peRed, Entries[0].peGreen, Entries[0].peBlue) == RGB(255, 0, 0));
    CHECK(RGB(Entries[1].peRed, Entries[1].peGreen, Entries[1].peBlue) == RGB(0, 255, 0));
    CHECK(RGB(Entries[2].peRed, Entries[2].peGreen, Entries[2].peBlue) == RGB(0, 0, 255));
    CHECK(RGB(Entries[3].peRed, Entries[3].peGreen, Entries[3].peBlue) == RGB(80, 90, 100));
}

TEST_CASE("a loaded bitmap has the size and colours of its resource")
{
    const cLoaded Loaded(IDB_FOUR_COLOURS);

    REQUIRE(Loaded.m_bLoaded == 1);
    BITMAP Bitmap = {};
    GetObjectA(Loaded.m_Bitmap.Get(), sizeof Bitmap, &Bitmap);
    CHECK(Bitmap.bmWidth == 3);
    CHECK(Bitmap.bmHeight == 2);
    CHECK(Loaded.Pixel(0, 0) == RGB(255, 0, 0));
    CHECK(Loaded.Pixel(1, 0) == RGB(0, 255, 0));
    CHECK(Loaded.Pixel(2, 0) == RGB(0, 0, 255));
    CHECK(Loaded.Pixel(0, 1) == RGB(80, 90, 100));
    CHECK(Loaded.Pixel(2, 1) == RGB(255, 0, 0));
}

TEST_CASE("a bitmap resource without a colour table gets a palette too")
{
    const cLoaded Loaded(IDB_TRUE_COLOURS);

    REQUIRE(Loaded.m_bLoaded == 1);
    CHECK(GetObjectType(Loaded.m_Palette.Get()) == OBJ_PAL);
    CHECK(Loaded.Pixel(0, 0) == RGB(255, 0, 0));
    CHECK(Loaded.Pixel(1, 0) == RGB(0, 0, 255));
}

TEST_CASE("a bitmap resource that does not exist leaves both owners empty")
{
    cLoaded Loaded(IDB_FOUR_COLOURS);
    REQUIRE(Loaded.m_bLoaded == 1);

    Loaded.Load(59999);

    CHECK(Loaded.m_bLoaded == 0);
    CHECK_FALSE(Loaded.m_Bitmap);
    CHECK_FALSE(Loaded.m_Palette);
}
