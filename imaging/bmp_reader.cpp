#include "imaging/bmp_reader.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <new>

#include "imaging/bmp_layout.h"
#include "imaging/little_endian.h"

static const uint32_t kCoreHead     = 12;  // OS/2 1
static const uint32_t kOs2Head      = 64;  // OS/2 2
static const uint32_t kMostHead     = 124;
static const uint32_t kMasksInHead  = 52;  // a head of this size or larger contains them
static const uint32_t kMasksAt      = 40;
static const uint32_t kBitFieldsToo = 6;  // with a fourth mask, for transparency

static const uint32_t kMasks565[3] = {0xF800, 0x07E0, 0x001F};

static const char *const kTooShort = "is an incomplete BMP file";

namespace
{

// The contents of the file's heads.
struct cBmpHead
{
    uint32_t m_nHeadBytes;  // of the information, from its size on
    uint32_t m_nPixelsAt;   // from the start of the file
    int64_t  m_nWidth;
    int64_t  m_nHeight;  // below 0: from the top down
    uint32_t m_nBits;
    uint32_t m_nCompression;
    uint32_t m_nColours;
    uint32_t m_Masks[3];
};

// Counts what has been read, so that the pixels can be found.
class cBmpReader
{
public:
    cBmpReader(cByteSource *pSource, cBmpPicture *pPicture)
        : m_pSource(pSource), m_pPicture(pPicture), m_nRead(0), m_Head{}, m_szError(kTooShort)
    {
    }

    int         ReadAll();
    const char *Error() const { return m_szError; }

private:
    int Read(void *pBytes, uint32_t nBytes);
    int Refuse(const char *szError);

    int  ReadHead();
    int  ReadCoreHead();
    int  ReadInfoHead();
    int  CheckSize();
    int  CheckDepth();
    int  ReadMasks(const uint8_t *pMasksInHead);
    void ChoosePictureDepth();
    int  ReadColours();
    int  SkipToPixels();
    int  ReadPixels();
    int  ReadRow(uint8_t *pBuffer, size_t nBytes, uint8_t *pRow);
    int  AreMasks(const uint32_t (&Masks)[3]) const;

    cByteSource *m_pSource;
    cBmpPicture *m_pPicture;
    uint32_t     m_nRead;  // bytes read so far before the pixels
    cBmpHead     m_Head;
    const char  *m_szError;
};

}  // namespace

// 8 bits of the channel that nMask cuts out of a pixel.
static uint8_t Channel(uint32_t nPixel, uint32_t nMask)
{
    if (nMask == 0)
        return 0;
    const uint32_t nValue = (nPixel & nMask) >> std::countr_zero(nMask);
    const int      nBits  = std::popcount(nMask);
    return static_cast<uint8_t>(nBits > 8 ? nValue >> (nBits - 8) : nValue << (8 - nBits));
}

// 1 if the bits of the mask are adjacent; a channel may be missing.
static int IsMask(uint32_t nMask)
{
    const uint32_t nShifted = nMask ? nMask >> std::countr_zero(nMask) : 0;
    return (nShifted & (nShifted + 1)) == 0;
}

int cBmpReader::Refuse(const char *szError)
{
    m_szError = szError;
    return 0;
}

int cBmpReader::Read(void *pBytes, uint32_t nBytes)
{
    m_nRead += nBytes;
    return m_pSource->Read(pBytes, nBytes);
}

int cBmpReader::ReadHead()
{
    uint8_t Head[kBmpFileHead + 4];
    if (!Read(Head, sizeof Head))
        return 0;
    if (Head[0] != 'B' || Head[1] != 'M')
        return Refuse("is not a BMP file");
    m_Head.m_nPixelsAt  = LoadU32(Head + 10);
    m_Head.m_nHeadBytes = LoadU32(Head + kBmpFileHead);
    return m_Head.m_nHeadBytes == kCoreHead ? ReadCoreHead() : ReadInfoHead();
}

// After the size: 4 u16 width   6 u16 height   8 u16 planes   10 u16 bits
int cBmpReader::ReadCoreHead()
{
    uint8_t Core[kCoreHead];
    if (!Read(Core + 4, kCoreHead - 4))
        return 0;
    m_Head.m_nWidth       = LoadU16(Core + 4);
    m_Head.m_nHeight      = LoadU16(Core + 6);
    m_Head.m_nBits        = LoadU16(Core + 10);
    m_Head.m_nCompression = kBmpPlainRgb;
    return CheckSize() && CheckDepth() && ReadMasks(nullptr);
}

// After the size: 4 i32 width   8 i32 height   12 u16 planes   14 u16 bits
//   16 u32 compression   32 u32 colours used   40 u32 masks
int cBmpReader::ReadInfoHead()
{
    static const uint32_t kSizes[] = {40, kMasksInHead, 56, kOs2Head, 108, kMostHead};
    if (std::find(std::begin(kSizes), std::end(kSizes), m_Head.m_nHeadBytes) == std::end(kSizes))
        return Refuse("has an unknown kind of header");
    uint8_t Info[kMostHead];
    if (!Read(Info + 4, m_Head.m_nHeadBytes - 4))
        return 0;
    m_Head.m_nWidth       = static_cast<int32_t>(LoadU32(Info + 4));
    m_Head.m_nHeight      = static_cast<int32_t>(LoadU32(Info + 8));
    m_Head.m_nBits        = LoadU16(Info + 14);
    m_Head.m_nCompression = LoadU32(Info + 16);
    m_Head.m_nColours     = LoadU32(Info + 32);
    return CheckSize() && CheckDepth() &&
           ReadMasks(m_Head.m_nHeadBytes >= kMasksInHead ? Info + kMasksAt : nullptr);
}

int cBmpReader::CheckSize()
{
    const int64_t nHeight = std::abs(m_Head.m_nHeight);
    if (m_Head.m_nWidth < 1 || nHeight < 1)
        return Refuse("is an empty picture");
    if (m_Head.m_nWidth > kLongestSide || nHeight > kLongestSide)
        return Refuse("is larger than 65535 x 65535 pixels");
    return 1;
}

// Most compressions have other meanings in the OS/2 head.
int cBmpReader::CheckDepth()
{
    static const uint32_t kDepths[] = {1, 4, 8, 16, 24, 32};
    if (std::find(std::begin(kDepths), std::end(kDepths), m_Head.m_nBits) == std::end(kDepths))
        return Refuse("does not have 1, 4, 8, 16, 24 or 32 bits per pixel");
    if (m_Head.m_nCompression == kBmpPlainRgb)
        return 1;
    const int bMasks =
        (m_Head.m_nCompression == kBmpBitFields || m_Head.m_nCompression == kBitFieldsToo) &&
        m_Head.m_nHeadBytes != kOs2Head;
    if (!bMasks)
        return Refuse("is compressed");
    if (m_Head.m_nBits != 16 && m_Head.m_nBits != 32)
        return Refuse("has channel masks but not 16 or 32 bits per pixel");
    return 1;
}

// Masks are in the head, after it, or implied.
int cBmpReader::ReadMasks(const uint8_t *pMasksInHead)
{
    if (m_Head.m_nCompression == kBmpPlainRgb)
    {
        std::copy_n(m_Head.m_nBits == 16 ? kBmpMasks555 : kBmpMasks888, 3, m_Head.m_Masks);
        return 1;
    }
    uint8_t Masks[16];
    if (!pMasksInHead)
    {
        if (!Read(Masks, m_Head.m_nCompression == kBmpBitFields ? 12 : 16))
            return 0;
        pMasksInHead = Masks;
    }
    for (unsigned i = 0; i < 3; i++)
    {
        m_Head.m_Masks[i] = LoadU32(pMasksInHead + 4 * i);
        if (!IsMask(m_Head.m_Masks[i]))
            return Refuse("has channel masks with gaps");
    }
    return 1;
}

int cBmpReader::AreMasks(const uint32_t (&Masks)[3]) const
{
    return std::equal(std::begin(Masks), std::end(Masks), m_Head.m_Masks);
}

// The usual layouts of 16 bits stay as they are.
void cBmpReader::ChoosePictureDepth()
{
    const int b555        = m_Head.m_nBits == 16 && AreMasks(kBmpMasks555);
    const int b565        = m_Head.m_nBits == 16 && AreMasks(kMasks565);
    m_pPicture->m_nWidth  = static_cast<int32_t>(m_Head.m_nWidth);
    m_pPicture->m_b555    = b555;
    m_pPicture->m_nBits   = m_Head.m_nBits < 16 || b555 || b565 ? m_Head.m_nBits : 24;
    m_pPicture->m_nHeight = static_cast<int32_t>(std::abs(m_Head.m_nHeight));
}

// The table ends where the pixels begin, at the latest. Entries are blue, green,
// red and, except in the oldest files, 0.
int cBmpReader::ReadColours()
{
    memset(m_pPicture->m_Colours, 0, sizeof m_pPicture->m_Colours);
    if (m_Head.m_nPixelsAt < m_nRead)
        return Refuse("has pixels that overlap its header");
    if (m_Head.m_nBits > 8)
        return 1;
    const uint32_t nEntryBytes = m_Head.m_nHeadBytes == kCoreHead ? 3 : 4;
    const uint32_t nMost       = 1u << m_Head.m_nBits;
    const uint32_t nNamed      = m_Head.m_nColours ? m_Head.m_nColours : nMost;
    const uint32_t nRoom       = (m_Head.m_nPixelsAt - m_nRead) / nEntryBytes;
    const uint32_t nColours    = std::min({nMost, nNamed, nRoom});
    for (uint8_t *pRgb = m_pPicture->m_Colours, *pEnd = pRgb + 3 * nColours; pRgb < pEnd; pRgb += 3)
    {
        uint8_t Entry[4];
        if (!Read(Entry, nEntryBytes))
            return 0;
        pRgb[0] = Entry[2];
        pRgb[1] = Entry[1];
        pRgb[2] = Entry[0];
    }
    return 1;
}

// The source is known to be long enough.
int cBmpReader::SkipToPixels()
{
    uint8_t Skipped[4096];
    while (m_nRead < m_Head.m_nPixelsAt)
        if (!Read(Skipped, std::min<uint32_t>(sizeof Skipped, m_Head.m_nPixelsAt - m_nRead)))
            return 0;
    return 1;
}

int cBmpReader::ReadPixels()
{
    const size_t nHeight  = static_cast<size_t>(m_pPicture->m_nHeight);
    const size_t nInBytes = DibRowBytes(m_pPicture->m_nWidth, m_Head.m_nBits);
    const size_t nBytes   = DibRowBytes(m_pPicture->m_nWidth, m_pPicture->m_nBits);
    if (m_pSource->Length() < m_Head.m_nPixelsAt + uint64_t{nInBytes} * nHeight)
        return 0;
    if (!SkipToPixels())
        return 0;
    const std::unique_ptr<uint8_t[]> pBuffer(new (std::nothrow) uint8_t[nInBytes]);
    m_pPicture->m_pPixels.reset(new (std::nothrow) uint8_t[nBytes * nHeight]);
    if (!pBuffer || !m_pPicture->m_pPixels)
        return Refuse("does not fit into memory");
    for (size_t nRow = 0; nRow < nHeight; nRow++)
    {
        const size_t nStored = m_Head.m_nHeight > 0 ? nRow : nHeight - 1 - nRow;
        if (!ReadRow(pBuffer.get(), nInBytes, m_pPicture->m_pPixels.get() + nStored * nBytes))
            return 0;
    }
    return 1;
}

// A row as it is, or with 16 and 32 bits split by their masks; the padding is 0.
int cBmpReader::ReadRow(uint8_t *pBuffer, size_t nBytes, uint8_t *pRow)
{
    if (m_pPicture->m_nBits == m_Head.m_nBits)
        return m_pSource->Read(pRow, nBytes);
    if (!m_pSource->Read(pBuffer, nBytes))
        return 0;
    const unsigned nPixelBytes = m_Head.m_nBits / 8;
    for (int32_t nX = 0; nX < m_pPicture->m_nWidth; nX++)
    {
        const uint8_t *const pPixel = pBuffer + nX * nPixelBytes;
        const uint32_t       nPixel = nPixelBytes == 2 ? LoadU16(pPixel) : LoadU32(pPixel);
        pRow[3 * nX + 0]            = Channel(nPixel, m_Head.m_Masks[2]);
        pRow[3 * nX + 1]            = Channel(nPixel, m_Head.m_Masks[1]);
        pRow[3 * nX + 2]            = Channel(nPixel, m_Head.m_Masks[0]);
    }
    const size_t nUsedBytes = 3 * static_cast<size_t>(m_pPicture->m_nWidth);
    memset(pRow + nUsedBytes, 0, DibRowBytes(m_pPicture->m_nWidth, 24) - nUsedBytes);
    return 1;
}

int cBmpReader::ReadAll()
{
    if (!ReadHead())
        return 0;
    ChoosePictureDepth();
    return ReadColours() && ReadPixels();
}

int ReadBmp(cByteSource *pSource, cBmpPicture *pPicture, const char **pszError)
{
    cBmpReader Reader(pSource, pPicture);
    const int  bRead = Reader.ReadAll();
    *pszError        = bRead ? nullptr : Reader.Error();
    return bRead;
}
