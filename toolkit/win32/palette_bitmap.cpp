#include "toolkit/win32/palette_bitmap.h"

#include <algorithm>
#include <utility>

static const WORD  kPaletteVersion = 0x300;
static const DWORD kMostEntries    = 256;

namespace
{

// A LOGPALETTE with room for all entries.
struct cLogPalette
{
    WORD         m_nVersion;
    WORD         m_nEntries;
    PALETTEENTRY m_Entries[kMostEntries];
};

}  // namespace

// The header at the start of the resource. Null if there is no such resource, or
// if it has the old header with three bytes per colour.
static const BITMAPINFO *FindBitmap(unsigned nId)
{
    const HRSRC hFound = FindResourceA(nullptr, MAKEINTRESOURCEA(nId), RT_BITMAP);
    if (!hFound)
        return nullptr;
    const auto *const pInfo =
        static_cast<const BITMAPINFO *>(LockResource(LoadResource(nullptr, hFound)));
    return pInfo->bmiHeader.biSize >= sizeof(BITMAPINFOHEADER) ? pInfo : nullptr;
}

// Number of entries in the colour table; usually 0 for 16 bits and more.
static DWORD CountColours(const BITMAPINFOHEADER &Header)
{
    if (Header.biClrUsed)
        return Header.biClrUsed;
    return Header.biBitCount <= 8 ? 1u << Header.biBitCount : 0;
}

static const RGBQUAD *ColourTable(const BITMAPINFOHEADER &Header)
{
    const auto *const pColours =
        reinterpret_cast<const RGBQUAD *>(reinterpret_cast<const BYTE *>(&Header) + Header.biSize);
    const int bHasMasks =
        Header.biSize == sizeof(BITMAPINFOHEADER) && Header.biCompression == BI_BITFIELDS;
    return pColours + (bHasMasks ? 3 : 0);
}

static cGdiPalette MakePalette(const BITMAPINFOHEADER &Header)
{
    cLogPalette Palette;
    Palette.m_nVersion = kPaletteVersion;
    Palette.m_nEntries = static_cast<WORD>(std::min(CountColours(Header), kMostEntries));
    if (Palette.m_nEntries == 0)
        return cGdiPalette(CreateHalftonePalette(cWindowDc(nullptr).Get()));

    const RGBQUAD *const pColours = ColourTable(Header);
    for (WORD i = 0; i < Palette.m_nEntries; i++)
        Palette.m_Entries[i] = {pColours[i].rgbRed, pColours[i].rgbGreen, pColours[i].rgbBlue, 0};
    return cGdiPalette(CreatePalette(reinterpret_cast<const LOGPALETTE *>(&Palette)));
}

static cGdiBitmap MakeBitmap(const BITMAPINFO &Info, HPALETTE hPalette)
{
    const BITMAPINFOHEADER &Header  = Info.bmiHeader;
    const void *const       pPixels = ColourTable(Header) + CountColours(Header);

    const cWindowDc     Dc(nullptr);
    const cPaletteGuard Selected(Dc.Get(), hPalette);
    return cGdiBitmap(CreateDIBitmap(Dc.Get(), &Header, CBM_INIT, pPixels, &Info, DIB_RGB_COLORS));
}

int LoadPaletteBitmap(unsigned nId, cGdiBitmap *pBitmap, cGdiPalette *pPalette)
{
    pBitmap->Reset();
    pPalette->Reset();

    const BITMAPINFO *const pInfo = FindBitmap(nId);
    if (!pInfo)
        return 0;
    cGdiPalette Palette = MakePalette(pInfo->bmiHeader);
    if (!Palette)
        return 0;
    *pBitmap = MakeBitmap(*pInfo, Palette.Get());
    if (!*pBitmap)
        return 0;
    *pPalette = std::move(Palette);
    return 1;
}
