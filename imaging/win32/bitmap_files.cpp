#include "toolkit/win32/win32.h"

#include "imaging/win32/bitmap_files.h"

#include <algorithm>
#include <memory>
#include <new>

#include "imaging/bmp_layout.h"
#include "imaging/colour_reduction.h"
#include "imaging/gif_writer.h"
#include "toolkit/disk_file.h"
#include "toolkit/replacement_file.h"
#include "toolkit/retry_alloc.h"
#include "toolkit/win32/gdi.h"

static const DWORD    kMostColours = 256;
static const unsigned kMostGifBits = 24;

namespace
{

// A BITMAPINFO with room for the largest colour table.
struct cBitmapInfo
{
    BITMAPINFOHEADER m_Header;
    RGBQUAD          m_Colours[kMostColours];
};

// The pixels of a bitmap at a chosen depth, from the bottom row up.
class cBitmapBits
{
public:
    // 0 if there is no such bitmap or depth, or if memory is short.
    int Fetch(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, cMessageBoxes *pBoxes);

    cBmpImage Bmp() const;
    cDibImage Dib(int b555) const;

private:
    void DescribeBitmap(const BITMAP &Bitmap);
    int  ReadBits(HBITMAP hBitmap, HDC hDc, cMessageBoxes *pBoxes);
    void TakeColours();

    cBmpDepth                  m_Depth = {};
    cBitmapInfo                m_Info  = {};
    std::unique_ptr<uint8_t[]> m_pPixels;
    uint8_t                    m_Rgb[3 * kMostColours];
};

}  // namespace

void cBitmapBits::DescribeBitmap(const BITMAP &Bitmap)
{
    m_Info.m_Header.biSize        = sizeof m_Info.m_Header;
    m_Info.m_Header.biWidth       = Bitmap.bmWidth;
    m_Info.m_Header.biHeight      = Bitmap.bmHeight;
    m_Info.m_Header.biPlanes      = 1;
    m_Info.m_Header.biBitCount    = m_Depth.m_nBits;
    m_Info.m_Header.biCompression = BI_RGB;
    m_Info.m_Header.biClrUsed     = m_Depth.m_nColours;
}

int cBitmapBits::Fetch(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, cMessageBoxes *pBoxes)
{
    BITMAP Bitmap;
    if (!hBitmap || !GetObjectA(hBitmap, sizeof Bitmap, &Bitmap) ||
        !ChooseBmpDepth(nBits, &m_Depth))
        return 0;
    DescribeBitmap(Bitmap);
    if (!hPalette)
        hPalette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    const cWindowDc     Dc(nullptr);
    const cPaletteGuard Selected(Dc.Get(), hPalette);
    return ReadBits(hBitmap, Dc.Get(), pBoxes);
}

// The first call of GetDIBits completes the header, the second one gets the pixels.
int cBitmapBits::ReadBits(HBITMAP hBitmap, HDC hDc, cMessageBoxes *pBoxes)
{
    BITMAPINFO *const pInfo = reinterpret_cast<BITMAPINFO *>(&m_Info);
    const UINT        nRows = static_cast<UINT>(m_Info.m_Header.biHeight);
    if (!GetDIBits(hDc, hBitmap, 0, nRows, nullptr, pInfo, DIB_RGB_COLORS))
        return 0;
    if (m_Info.m_Header.biSizeImage == 0)
        m_Info.m_Header.biSizeImage =
            BmpImageBytes(m_Depth.m_nBits, m_Info.m_Header.biWidth, m_Info.m_Header.biHeight);
    const size_t nBytes = m_Info.m_Header.biSizeImage;
    m_pPixels           = AllocateWithRetry(pBoxes, [nBytes] {
        return std::unique_ptr<uint8_t[]>(new (std::nothrow) uint8_t[nBytes]);
    });
    if (!m_pPixels || !GetDIBits(hDc, hBitmap, 0, nRows, m_pPixels.get(), pInfo, DIB_RGB_COLORS))
        return 0;
    TakeColours();
    return 1;
}

void cBitmapBits::TakeColours()
{
    for (DWORD i = 0; i < kMostColours; i++)
    {
        m_Rgb[3 * i + 0] = m_Info.m_Colours[i].rgbRed;
        m_Rgb[3 * i + 1] = m_Info.m_Colours[i].rgbGreen;
        m_Rgb[3 * i + 2] = m_Info.m_Colours[i].rgbBlue;
    }
}

cBmpImage cBitmapBits::Bmp() const
{
    const BITMAPINFOHEADER &Header = m_Info.m_Header;
    return {Header.biWidth,
            Header.biHeight,
            m_Depth,
            Header.biSizeImage,
            reinterpret_cast<const uint8_t *>(m_Info.m_Colours),
            m_pPixels.get()};
}

cDibImage cBitmapBits::Dib(int b555) const
{
    const BITMAPINFOHEADER &Header = m_Info.m_Header;
    return {Header.biWidth, Header.biHeight, m_Depth.m_nBits, b555, m_Rgb, m_pPixels.get()};
}

namespace
{

class cHandleSink : public cByteSink
{
public:
    explicit cHandleSink(HANDLE hFile) : m_hFile(hFile) {}
    ~cHandleSink() override { CloseHandle(m_hFile); }
    cHandleSink(const cHandleSink &)            = delete;
    cHandleSink &operator=(const cHandleSink &) = delete;

    int Write(const void *pBytes, size_t nBytes) override
    {
        DWORD nWritten;
        return WriteFile(m_hFile, pBytes, static_cast<DWORD>(nBytes), &nWritten, nullptr) &&
               nWritten == nBytes;
    }

private:
    HANDLE m_hFile;
};

}  // namespace

// Without an old file, what could be written stays.
static int CreateBmp(const cBmpImage &Image, const char *szFileName)
{
    const HANDLE hFile = CreateFileA(szFileName, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return 0;
    cHandleSink Sink(hFile);
    return WriteBmp(&Sink, Image);
}

static int ReplaceBmp(const cBmpImage &Image, const char *szFileName)
{
    cReplacementFile File;
    if (!File.Open(szFileName, "wb"))
        return 0;
    cFileSink Sink(File.Stream());
    return WriteBmp(&Sink, Image) && File.Commit();
}

int WriteBmpFile(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, const char *szFileName,
                 cMessageBoxes *pBoxes)
{
    cBitmapBits Bits;
    if (!Bits.Fetch(hBitmap, hPalette, nBits, pBoxes))
        return 0;
    return KindOfFile(szFileName) == fkNone ? CreateBmp(Bits.Bmp(), szFileName)
                                            : ReplaceBmp(Bits.Bmp(), szFileName);
}

int WriteBitmapAsGif(HBITMAP hBitmap, HPALETTE hPalette, unsigned nBits, const char *szFileName,
                     int b555, cMessageBoxes *pBoxes)
{
    cReducedImage Reduced;
    {
        // Frees the pixels before the encoder needs memory.
        cBitmapBits Bits;
        if (!Bits.Fetch(hBitmap, hPalette, std::min(nBits, kMostGifBits), pBoxes) ||
            !AllocateWithRetry(pBoxes, [&] { return ReduceColours(Bits.Dib(b555), &Reduced); }))
            return 0;
    }
    cReplacementFile File;
    if (!File.Open(szFileName, "wb"))
        return 0;
    cFileSink Sink(File.Stream());
    return WriteGifFile(&Sink, Reduced.Dib(), "") == grWritten && File.Commit();
}
