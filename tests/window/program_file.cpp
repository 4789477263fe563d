#include "tests/window/program_file.h"

#include <doctest/doctest.h>

#include "toolkit/win32/gdi.h"

cProgramFile::cProgramFile()
    : m_hModule(LoadLibraryExA(VORSTEK_PROGRAM, nullptr, LOAD_LIBRARY_AS_DATAFILE))
{
    REQUIRE(m_hModule);
}

cProgramFile::~cProgramFile()
{
    FreeLibrary(m_hModule);
}

cPicture cProgramFile::Bitmap(unsigned nId) const
{
    const cGdiBitmap Bitmap(LoadBitmapA(m_hModule, MAKEINTRESOURCEA(nId)));
    BITMAP           Info = {};
    REQUIRE(GetObjectA(Bitmap.Get(), sizeof Info, &Info));
    return cPicture::Drawn(Info.bmWidth, Info.bmHeight, [&](HDC hDc) {
        const cMemoryDc    Source(hDc);
        const cSelectGuard Selected(Source.Get(), Bitmap.Get());
        BitBlt(hDc, 0, 0, Info.bmWidth, Info.bmHeight, Source.Get(), 0, 0, SRCCOPY);
    });
}

std::string cProgramFile::Bytes(const char *szKind, unsigned nId) const
{
    const HRSRC hFound = FindResourceA(m_hModule, MAKEINTRESOURCEA(nId), szKind);
    if (!hFound)
        return "";
    const auto pBytes = static_cast<const char *>(LockResource(LoadResource(m_hModule, hFound)));
    return {pBytes, SizeofResource(m_hModule, hFound)};
}
