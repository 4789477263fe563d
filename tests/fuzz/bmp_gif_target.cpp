// bmp_gif_target.cpp - the input is a BMP file, which becomes a GIF in memory. giflib
// reads it. Up to 256 colours it is the same picture. The reserved bytes of the BMP's
// header choose the options of the GIF.

#include <algorithm>
#include <array>
#include <cstring>
#include <gif_lib.h>
#include <set>
#include <vector>

#include "imaging/bmp_reader.h"
#include "imaging/byte_sink.h"
#include "imaging/byte_source.h"
#include "imaging/colour_reduction.h"
#include "imaging/gif_writer.h"
#include "tests/fuzz/fuzz_target.h"

namespace
{

typedef std::array<uint8_t, 3> cColour;  // red, green, blue

class cTextSource : public cByteSource
{
public:
    explicit cTextSource(std::string_view Text) : m_nLength(Text.size()), m_Left(Text) {}

    uint64_t Length() const override { return m_nLength; }
    int      Read(void *pBytes, size_t nBytes) override
    {
        if (nBytes > m_Left.size())
            return 0;
        memcpy(pBytes, m_Left.data(), nBytes);
        m_Left.remove_prefix(nBytes);
        return 1;
    }

private:
    size_t           m_nLength;
    std::string_view m_Left;
};

class cTextSink : public cByteSink
{
public:
    int Write(const void *pBytes, size_t nBytes) override
    {
        m_Text.append(static_cast<const char *>(pBytes), nBytes);
        return 1;
    }

    std::string m_Text;
};

}  // namespace

// The colours of 16-bit pixels keep their low bits 0.
static cColour PixelOf(const cDibImage &Image, const uint8_t *pRow, int32_t nX)
{
    const auto nAt = static_cast<size_t>(nX);
    if (Image.m_nBits == 24)
        return {pRow[3 * nAt + 2], pRow[3 * nAt + 1], pRow[3 * nAt]};
    if (Image.m_nBits == 16)
    {
        const unsigned n      = pRow[2 * nAt] | static_cast<unsigned>(pRow[2 * nAt + 1]) << 8;
        const unsigned nRed   = Image.m_b555 ? n >> 10 & 31 : n >> 11;
        const unsigned nGreen = Image.m_b555 ? (n >> 5 & 31) << 3 : (n >> 5 & 63) << 2;
        return {static_cast<uint8_t>(nRed << 3), static_cast<uint8_t>(nGreen),
                static_cast<uint8_t>((n & 31) << 3)};
    }
    const unsigned nIndex = Image.m_nBits == 8 ? pRow[nAt] : PackedPixel(pRow, nX, Image.m_nBits);
    const uint8_t *const pColour = Image.m_pColours + 3 * nIndex;
    return {pColour[0], pColour[1], pColour[2]};
}

// From the top.
static std::vector<cColour> Pixels(const cDibImage &Image)
{
    std::vector<cColour> Colours;
    for (int32_t nRow = Image.m_nHeight - 1; nRow >= 0; nRow--)
        for (int32_t nX = 0; nX < Image.m_nWidth; nX++)
            Colours.push_back(PixelOf(Image, StoredRow(Image, nRow), nX));
    return Colours;
}

static int ReadGif(GifFileType *pGif, GifByteType *pBytes, int nBytes)
{
    auto *const  pLeft = static_cast<std::string_view *>(pGif->UserData);
    const size_t nRead = std::min(pLeft->size(), static_cast<size_t>(nBytes));
    memcpy(pBytes, pLeft->data(), nRead);
    pLeft->remove_prefix(nRead);
    return static_cast<int>(nRead);
}

static std::vector<cColour> DecodeGif(std::string_view Gif, const cDibImage &Image)
{
    int                nError;
    GifFileType *const pGif = DGifOpen(&Gif, ReadGif, &nError);
    FUZZ_CHECK(pGif && DGifSlurp(pGif) == GIF_OK && pGif->ImageCount == 1);
    const SavedImage &Saved = pGif->SavedImages[0];
    FUZZ_CHECK(Saved.ImageDesc.Width == Image.m_nWidth);
    FUZZ_CHECK(Saved.ImageDesc.Height == Image.m_nHeight);
    std::vector<cColour> Colours;
    const size_t         nPixels = static_cast<size_t>(Image.m_nWidth) * Image.m_nHeight;
    for (size_t nAt = 0; nAt < nPixels; nAt++)
    {
        const int nIndex = Saved.RasterBits[nAt];
        FUZZ_CHECK(nIndex < pGif->SColorMap->ColorCount);
        const GifColorType &Colour = pGif->SColorMap->Colors[nIndex];
        Colours.push_back({Colour.Red, Colour.Green, Colour.Blue});
    }
    DGifCloseFile(pGif, &nError);
    FUZZ_CHECK(Gif.empty());
    return Colours;
}

static std::string OptionsOf(unsigned nChoice)
{
    static const char *const s_Words[] = {"ilace ", "xscreen=70000 ", "background=300 ",
                                          "transcol=edge", "xpos=9 ypos=-1 "};
    std::string              Options;
    for (const char *const szWord : s_Words)
    {
        if (nChoice & 1)
            Options += szWord;
        nChoice >>= 1;
    }
    return Options;
}

void FuzzBmpGif(std::string_view Input)
{
    cTextSource   Source(Input);
    cBmpPicture   Picture;
    cReducedImage Reduced;
    cTextSink     Sink;
    const char   *szError = nullptr;
    if (!ReadBmp(&Source, &Picture, &szError))
    {
        FUZZ_CHECK(szError != nullptr);
        return;
    }

    FUZZ_CHECK(ReduceColours(Picture.Dib(), &Reduced));
    FUZZ_CHECK(WriteGifFile(&Sink, Reduced.Dib(), OptionsOf(ByteAt(Input, 6)).c_str()) ==
               grWritten);

    const std::vector<cColour> Former  = Pixels(Picture.Dib());
    const std::vector<cColour> Decoded = DecodeGif(Sink.m_Text, Picture.Dib());
    if (std::set<cColour>(Former.begin(), Former.end()).size() <= kPaletteColours)
        FUZZ_CHECK(Decoded == Former);
}
