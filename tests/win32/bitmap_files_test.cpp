#include "toolkit/win32/win32.h"

#include "imaging/win32/bitmap_files.h"

#include <memory>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "imaging/bmp_layout.h"
#include "imaging/colour_reduction.h"
#include "imaging/gif_writer.h"
#include "tests/unit/failing_memory.h"
#include "tests/unit/memory_bytes.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"
#include "toolkit/win32/gdi.h"

static const int kPictureWidth  = 5;
static const int kPictureHeight = 3;

static const COLORREF kRedPixel   = RGB(255, 0, 0);
static const COLORREF kBluePixel  = RGB(0, 0, 255);
static const COLORREF kWhitePixel = RGB(255, 255, 255);
static const COLORREF kBlackPixel = RGB(0, 0, 0);

// White, with a red and a blue pixel in the top row and a black one at the bottom
// left.
static COLORREF SourcePixel(int nX, int nY)
{
    if (nY == 0 && nX == 1)
        return kRedPixel;
    if (nY == 0 && nX == 4)
        return kBluePixel;
    return nY == kPictureHeight - 1 && nX == 0 ? kBlackPixel : kWhitePixel;
}

namespace
{

struct cSource
{
    cSource()
        : m_Bitmap(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), kPictureWidth, kPictureHeight))
    {
        const cMemoryDc    Dc(nullptr);
        const cSelectGuard Selected(Dc.Get(), m_Bitmap.Get());
        for (int nY = 0; nY < kPictureHeight; nY++)
            for (int nX = 0; nX < kPictureWidth; nX++)
                SetPixel(Dc.Get(), nX, nY, SourcePixel(nX, nY));
    }

    cGdiBitmap m_Bitmap;
};

}  // namespace

static uint32_t Number(const std::string &Bytes, size_t nAt, unsigned nBytes)
{
    uint32_t nValue = 0;
    for (unsigned i = nBytes; i-- > 0;)
        nValue = nValue << 8 | static_cast<uint8_t>(Bytes.at(nAt + i));
    return nValue;
}

// Checks that the platform's own reader reads the source's pixels.
static void CheckPlatformShows(const std::string &Name)
{
    const cGdiBitmap Read(static_cast<HBITMAP>(LoadImageA(nullptr, Name.c_str(), IMAGE_BITMAP, 0, 0,
                                                          LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
    REQUIRE(Read.Get());
    const cMemoryDc    Dc(nullptr);
    const cSelectGuard Selected(Dc.Get(), Read.Get());
    for (int nY = 0; nY < kPictureHeight; nY++)
        for (int nX = 0; nX < kPictureWidth; nX++)
            CHECK(GetPixel(Dc.Get(), nX, nY) == SourcePixel(nX, nY));
}

// The GIF file that the encoder writes for the source's pixels.
static std::string ExpectedGif()
{
    cBytes Pixels(DibRowBytes(kPictureWidth, 24) * kPictureHeight);
    for (int nY = 0; nY < kPictureHeight; nY++)
        for (int nX = 0; nX < kPictureWidth; nX++)
        {
            const COLORREF nColour = SourcePixel(nX, kPictureHeight - 1 - nY);
            const size_t   nRow    = DibRowBytes(kPictureWidth, 24) * static_cast<size_t>(nY);
            uint8_t *const pPixel  = &Pixels[nRow + static_cast<size_t>(3 * nX)];
            pPixel[0]              = GetBValue(nColour);
            pPixel[1]              = GetGValue(nColour);
            pPixel[2]              = GetRValue(nColour);
        }
    cReducedImage Reduced;
    cMemorySink   Sink;
    CHECK(ReduceColours({kPictureWidth, kPictureHeight, 24, 0, nullptr, Pixels.data()}, &Reduced) ==
          1);
    CHECK(WriteGifFile(&Sink, Reduced.Dib(), "") == grWritten);
    return std::string(Sink.m_Bytes.begin(), Sink.m_Bytes.end());
}

TEST_CASE("a bitmap becomes a BMP file of each depth")
{
    static const struct
    {
        unsigned nRequested;
        unsigned nBits;
        unsigned nCompression;
        unsigned nColours;
        unsigned nPixelsAt;
        unsigned nRowBytes;
    } s_Rows[] = {
        {3, 4, 0, 16, 118, 4},   {4, 4, 0, 16, 118, 4},  {5, 8, 0, 256, 1078, 8},
        {8, 8, 0, 256, 1078, 8}, {16, 16, 3, 0, 66, 12}, {24, 24, 0, 0, 54, 16},
        {32, 32, 3, 0, 66, 20},
    };
    for (const auto &Row : s_Rows)
    {
        const cSource        Source;
        const cScratchFolder Folder;
        cRecordingBoxes      Boxes;

        CAPTURE(Row.nRequested);
        CHECK(WriteBmpFile(Source.m_Bitmap.Get(), nullptr, Row.nRequested,
                           Folder.Name("plot.bmp").c_str(), &Boxes) == 1);

        const std::string Bytes = Folder.Read("plot.bmp");
        CHECK(Bytes.size() == Row.nPixelsAt + kPictureHeight * Row.nRowBytes);
        CHECK(Number(Bytes, 2, 4) == Bytes.size());
        CHECK(Number(Bytes, 10, 4) == Row.nPixelsAt);
        CHECK(Number(Bytes, 18, 4) == kPictureWidth);
        CHECK(Number(Bytes, 22, 4) == kPictureHeight);
        CHECK(Number(Bytes, 28, 2) == Row.nBits);
        CHECK(Number(Bytes, 30, 4) == Row.nCompression);
        CHECK(Number(Bytes, 34, 4) == kPictureHeight * Row.nRowBytes);
        CHECK(Number(Bytes, 46, 4) == Row.nColours);
        CheckPlatformShows(Folder.Name("plot.bmp"));
        CHECK(Boxes.m_Boxes.empty());
    }
}

TEST_CASE("pixels of 16 bits match the masks in the file")
{
    const cSource        Source;
    const cScratchFolder Folder;
    cRecordingBoxes      Boxes;

    REQUIRE(WriteBmpFile(Source.m_Bitmap.Get(), nullptr, 16, Folder.Name("plot.bmp").c_str(),
                         &Boxes) == 1);

    const std::string Bytes = Folder.Read("plot.bmp");
    CHECK(Number(Bytes, 54, 4) == 0x7C00);
    CHECK(Number(Bytes, 58, 4) == 0x03E0);
    CHECK(Number(Bytes, 62, 4) == 0x001F);
    const size_t nTopRow = 66 + 2 * 12;
    CHECK(Number(Bytes, nTopRow + 0, 2) == 0x7FFF);
    CHECK(Number(Bytes, nTopRow + 2, 2) == 0x7C00);
    CHECK(Number(Bytes, nTopRow + 8, 2) == 0x001F);
    CHECK(Number(Bytes, 66, 2) == 0);
}

TEST_CASE("a bitmap of two colours becomes a BMP file of 1 bit")
{
    const cGdiBitmap Mono(CreateBitmap(kPictureWidth, kPictureHeight, 1, 1, nullptr));
    {
        const cMemoryDc    Dc(nullptr);
        const cSelectGuard Selected(Dc.Get(), Mono.Get());
        PatBlt(Dc.Get(), 0, 0, kPictureWidth, kPictureHeight, BLACKNESS);
        SetPixel(Dc.Get(), 1, 0, kWhitePixel);
    }
    const cScratchFolder Folder;
    cRecordingBoxes      Boxes;

    REQUIRE(WriteBmpFile(Mono.Get(), nullptr, 1, Folder.Name("plot.bmp").c_str(), &Boxes) == 1);

    const std::string Bytes = Folder.Read("plot.bmp");
    CHECK(Bytes.size() == 62 + 3 * 4);
    CHECK(Number(Bytes, 46, 4) == 2);
    CHECK(Number(Bytes, 54, 4) == 0x000000);
    CHECK(Number(Bytes, 58, 4) == 0xFFFFFF);
    CHECK(Number(Bytes, 62, 1) == 0);
    CHECK(Number(Bytes, 62 + 8, 1) == 0x40);
}

TEST_CASE("without a bitmap, a depth or a folder no BMP file is written")
{
    const cSource        Source;
    const cScratchFolder Folder;
    cRecordingBoxes      Boxes;
    const std::string    Name = Folder.Name("plot.bmp");

    CHECK(WriteBmpFile(nullptr, nullptr, 24, Name.c_str(), &Boxes) == 0);
    CHECK(WriteBmpFile(Source.m_Bitmap.Get(), nullptr, 0, Name.c_str(), &Boxes) == 0);
    CHECK(WriteBmpFile(Source.m_Bitmap.Get(), nullptr, 24, Folder.Name("no/plot.bmp").c_str(),
                       &Boxes) == 0);

    CHECK(Folder.Count() == 0);
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("a bitmap of few colours becomes the same GIF file from 4, 8, 24 and 32 bits")
{
    for (const unsigned nBits : {4u, 8u, 24u, 32u})
    {
        const cSource        Source;
        const cScratchFolder Folder;
        cRecordingBoxes      Boxes;

        CHECK(WriteBitmapAsGif(Source.m_Bitmap.Get(), nullptr, nBits,
                               Folder.Name("plot.gif").c_str(), 1, &Boxes) == 1);

        CHECK(Folder.Read("plot.gif") == ExpectedGif());
    }
}

TEST_CASE("a GIF file of 16 bits keeps the upper 5 of each channel")
{
    const cSource        Source;
    const cScratchFolder Folder;
    cRecordingBoxes      Boxes;

    CHECK(WriteBitmapAsGif(Source.m_Bitmap.Get(), nullptr, 16, Folder.Name("plot.gif").c_str(), 1,
                           &Boxes) == 1);

    // White, black and red: the most frequent first, then from the bottom left.
    CHECK(Folder.Read("plot.gif").substr(13, 9) ==
          std::string("\xF8\xF8\xF8\x00\x00\x00\xF8\x00\x00", 9));
}

TEST_CASE("a GIF file that cannot be written leaves no file")
{
    const cSource        Source;
    const cScratchFolder Folder;
    cRecordingBoxes      Boxes;
    const std::string    Name = Folder.Name("plot.gif");

    CHECK(WriteBitmapAsGif(nullptr, nullptr, 24, Name.c_str(), 1, &Boxes) == 0);
    CHECK(WriteBitmapAsGif(Source.m_Bitmap.Get(), nullptr, 24, Folder.Name("no/plot.gif").c_str(),
                           1, &Boxes) == 0);
    {
        // The pixels and the three blocks of the reduction succeed.
        const cFailingMemory NoWorkBuffer(4, 1);
        CHECK(WriteBitmapAsGif(Source.m_Bitmap.Get(), nullptr, 24, Name.c_str(), 1, &Boxes) == 0);
        CHECK(NoWorkBuffer.FailuresLeft() == 0);
    }

    CHECK(Folder.Count() == 0);
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("without memory for the pixels the user may retry or give up")
{
    const cSource        Source;
    const cScratchFolder Folder;
    for (int nSucceed = 0; nSucceed < 4; nSucceed++)
    {
        cRecordingBoxes      Boxes({anRetry});
        const cFailingMemory Short(nSucceed, 1);
        CHECK(WriteBitmapAsGif(Source.m_Bitmap.Get(), nullptr, 24, Folder.Name("plot.gif").c_str(),
                               1, &Boxes) == 1);
        CHECK(Boxes.m_Boxes.size() == 1);
        CHECK(Boxes.m_QuitCodes.empty());
    }
    {
        cRecordingBoxes      Boxes({anRetry, anCancel});
        const cFailingMemory Short(0, 2);
        CHECK(WriteBmpFile(Source.m_Bitmap.Get(), nullptr, 24, Folder.Name("plot.bmp").c_str(),
                           &Boxes) == 0);
        CHECK(Boxes.m_Boxes.size() == 2);
        CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
        CHECK_FALSE(Folder.Has("plot.bmp"));
    }
}
