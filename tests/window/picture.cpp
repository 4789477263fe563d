#include "tests/window/picture.h"

#include <cstdio>
#include <cstring>
#include <filesystem>

#include <doctest/doctest.h>

#include "toolkit/win32/gdi.h"

static const WORD     kBitsPerPixel = 32;
static const unsigned kColour       = 0xFFFFFF;
static const unsigned kOpaque       = 0xFF000000;  // for viewers that honour alpha

static BITMAPINFOHEADER HeaderOf(int nWidth, int nHeight)
{
    BITMAPINFOHEADER Header = {};
    Header.biSize           = sizeof Header;
    Header.biWidth          = nWidth;
    Header.biHeight         = -nHeight;  // the first row is the upper one
    Header.biPlanes         = 1;
    Header.biBitCount       = kBitsPerPixel;
    return Header;
}

cPicture::cPicture(int nWidth, int nHeight)
    : m_nWidth(nWidth), m_nHeight(nHeight),
      m_Pixels(static_cast<size_t>(nWidth) * static_cast<size_t>(nHeight))
{
}

HDC cPicture::Open()
{
    BITMAPINFO Info = {HeaderOf(m_nWidth, m_nHeight), {}};
    m_hDc           = CreateCompatibleDC(nullptr);
    m_hBitmap       = CreateDIBSection(m_hDc, &Info, DIB_RGB_COLORS, &m_pBits, nullptr, 0);
    m_hFormer       = SelectObject(m_hDc, m_hBitmap);
    return m_hDc;
}

void cPicture::Close()
{
    GdiFlush();
    memcpy(m_Pixels.data(), m_pBits, m_Pixels.size() * sizeof m_Pixels[0]);
    for (unsigned &nPixel : m_Pixels)
        nPixel |= kOpaque;
    SelectObject(m_hDc, m_hFormer);
    DeleteObject(m_hBitmap);
    DeleteDC(m_hDc);
}

cPicture cPicture::OfScreen(const RECT &Part)
{
    const int nWidth  = Part.right - Part.left;
    const int nHeight = Part.bottom - Part.top;
    return Drawn(nWidth, nHeight, [&](HDC hDc) {
        const cWindowDc Screen(nullptr);
        BitBlt(hDc, 0, 0, nWidth, nHeight, Screen.Get(), Part.left, Part.top, SRCCOPY);
    });
}

cPicture cPicture::OfFile(const std::string &Name)
{
    FILE *const pFile   = fopen(Name.c_str(), "rb");
    int         nWidth  = 0;
    int         nHeight = 0;
    REQUIRE(pFile);
    REQUIRE(fscanf(pFile, "P6 %d %d 255", &nWidth, &nHeight) == 2);
    fgetc(pFile);  // the one blank before the pixels
    cPicture                   Picture(nWidth, nHeight);
    std::vector<unsigned char> Rgb(3 * Picture.m_Pixels.size());
    const size_t               nRead = fread(Rgb.data(), 1, Rgb.size(), pFile);
    fclose(pFile);
    REQUIRE(nRead == Rgb.size());
    for (size_t i = 0; i < Picture.m_Pixels.size(); i++)
        Picture.m_Pixels[i] = kOpaque | static_cast<unsigned>(Rgb[3 * i]) << 16 |
                              static_cast<unsigned>(Rgb[3 * i + 1]) << 8 |
                              static_cast<unsigned>(Rgb[3 * i + 2]);
    return Picture;
}

unsigned cPicture::At(int x, int y) const
{
    return m_Pixels[static_cast<size_t>(y) * static_cast<size_t>(m_nWidth) +
                    static_cast<size_t>(x)] &
           kColour;
}

int cPicture::Holds(int x, int y, const cPicture &Other) const
{
    if (x < 0 || y < 0 || x + Other.m_nWidth > m_nWidth || y + Other.m_nHeight > m_nHeight)
        return 0;
    for (int nRow = 0; nRow < Other.m_nHeight; nRow++)
        for (int nColumn = 0; nColumn < Other.m_nWidth; nColumn++)
            if (At(x + nColumn, y + nRow) != Other.At(nColumn, nRow))
                return 0;
    return 1;
}

int cPicture::operator==(const cPicture &Other) const
{
    return m_nWidth == Other.m_nWidth && m_nHeight == Other.m_nHeight && Holds(0, 0, Other);
}

void cPicture::Save(const std::string &Name) const
{
    std::error_code Ignored;
    std::filesystem::create_directory("pictures", Ignored);
    const BITMAPINFOHEADER Header   = HeaderOf(m_nWidth, m_nHeight);
    const auto             dwPixels = static_cast<DWORD>(m_Pixels.size() * sizeof m_Pixels[0]);
    BITMAPFILEHEADER       File     = {};
    File.bfType                     = 0x4D42;  // "BM"
    File.bfOffBits                  = sizeof File + sizeof Header;
    File.bfSize                     = File.bfOffBits + dwPixels;
    FILE *const pFile               = fopen(("pictures/" + Name + ".bmp").c_str(), "wb");
    if (!pFile)
        return;
    fwrite(&File, sizeof File, 1, pFile);
    fwrite(&Header, sizeof Header, 1, pFile);
    fwrite(m_Pixels.data(), dwPixels, 1, pFile);
    fclose(pFile);
}
