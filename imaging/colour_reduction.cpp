#include "imaging/colour_reduction.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "imaging/little_endian.h"
#include "toolkit/hash_slot.h"

static const uint8_t kUnusedGrey = 128;

// Farther than black is from white.
static const uint32_t kFarthest = 3 * 256 * 256;

static uint8_t Blue(uint32_t nColour)
{
    return static_cast<uint8_t>(nColour);
}

static uint8_t Green(uint32_t nColour)
{
    return static_cast<uint8_t>(nColour >> 8);
}

static uint8_t Red(uint32_t nColour)
{
    return static_cast<uint8_t>(nColour >> 16);
}

static uint32_t Colour(uint32_t nRed, uint32_t nGreen, uint32_t nBlue)
{
    return nRed << 16 | nGreen << 8 | nBlue;
}

// How many pixels at the start of the nPixels have the colour of the first.
static int32_t RunLength(const uint8_t *pPixels, int32_t nPixels)
{
    const uint32_t nColour = LoadU24(pPixels);
    int32_t        nRun    = 1;
    while (nRun < nPixels && LoadU24(pPixels + 3 * nRun) == nColour)
        nRun++;
    return nRun;
}

// --- 24 bits

static void ExpandPalette(const cDibImage &Image, const uint8_t *pStored, uint8_t *pRow)
{
    for (int32_t nX = 0; nX < Image.m_nWidth; nX++)
    {
        const unsigned nIndex =
            Image.m_nBits == 8 ? pStored[nX] : PackedPixel(pStored, nX, Image.m_nBits);
        const uint8_t *const pRgb = Image.m_pColours + 3 * nIndex;
        pRow[3 * nX + 0]          = pRgb[2];
        pRow[3 * nX + 1]          = pRgb[1];
        pRow[3 * nX + 2]          = pRgb[0];
    }
}

static void Expand16(const cDibImage &Image, const uint8_t *pStored, uint8_t *pRow)
{
    for (int32_t nX = 0; nX < Image.m_nWidth; nX++)
    {
        const uint32_t nPixel = LoadU16(pStored + 2 * nX);
        const uint32_t nGreen = Image.m_b555 ? nPixel >> 2 & 0xF8 : nPixel >> 3 & 0xFC;
        const uint32_t nRed   = Image.m_b555 ? nPixel >> 7 & 0xF8 : nPixel >> 8 & 0xF8;
        pRow[3 * nX + 0]      = static_cast<uint8_t>(nPixel * 8);
        pRow[3 * nX + 1]      = static_cast<uint8_t>(nGreen);
        pRow[3 * nX + 2]      = static_cast<uint8_t>(nRed);
    }
}

const uint8_t *ExpandTo24(const cDibImage &Image, int32_t nRow, uint8_t *pRow)
{
    const uint8_t *const pStored = StoredRow(Image, nRow);
    if (Image.m_nBits == 24)
        return pStored;
    if (Image.m_nBits == 16)
        Expand16(Image, pStored, pRow);
    else
        ExpandPalette(Image, pStored, pRow);
    return pRow;
}

// --- counting

cColourHistogram::cColourHistogram() : m_nMask(Colour(0xFF, 0xFF, 0xFF))
{
    Clear();
}

void cColourHistogram::Clear()
{
    m_nEntries = 0;
    std::fill(std::begin(m_nSlots), std::end(m_nSlots), kEmptySlot);
}

void cColourHistogram::Coarsen()
{
    uint8_t nBlue  = Blue(m_nMask);
    uint8_t nGreen = Green(m_nMask);
    uint8_t nRed   = Red(m_nMask);
    if (nGreen > nRed)
        nGreen = static_cast<uint8_t>(nGreen * 2);
    else if (nRed > nBlue)
        nRed = static_cast<uint8_t>(nRed * 2);
    else
        nBlue = static_cast<uint8_t>(nBlue * 2);
    m_nMask = Colour(nRed, nGreen, nBlue);
    Clear();
}

// The slot of the colour's entry, or the empty slot where it belongs.
unsigned cColourHistogram::FindSlot(uint32_t nColour) const
{
    nColour &= m_nMask;
    unsigned nSlot = HashSlot(nColour, kSlots);
    while (m_nSlots[nSlot] != kEmptySlot && m_Entries[m_nSlots[nSlot]].m_nColour != nColour)
        if (++nSlot == kSlots)
            nSlot = 0;
    return nSlot;
}

int cColourHistogram::Add(const uint8_t *pPixels, int32_t nPixels)
{
    while (nPixels > 0)
    {
        const int32_t  nRun    = RunLength(pPixels, nPixels);
        const uint32_t nColour = LoadU24(pPixels) & m_nMask;
        uint16_t      &nEntry  = m_nSlots[FindSlot(nColour)];
        if (nEntry == kEmptySlot)
        {
            if (m_nEntries == kMostColours)
                return 0;
            nEntry            = static_cast<uint16_t>(m_nEntries++);
            m_Entries[nEntry] = {nColour, 0, 0};
        }
        m_Entries[nEntry].m_nCount += static_cast<uint32_t>(nRun);
        pPixels += 3 * nRun;
        nPixels -= nRun;
    }
    return 1;
}

// --- choosing

static uint8_t NearestIndex(uint32_t nColour, const uint8_t (&Palette)[kPaletteBytes])
{
    uint32_t nBest  = kFarthest;
    unsigned nIndex = 0;
    for (unsigned i = 0; i < kPaletteColours; i++)
    {
        const int      nRed   = Red(nColour) - Palette[3 * i + 0];
        const int      nGreen = Green(nColour) - Palette[3 * i + 1];
        const int      nBlue  = Blue(nColour) - Palette[3 * i + 2];
        const uint32_t nDistance =
            static_cast<uint32_t>(nRed * nRed + nGreen * nGreen + nBlue * nBlue);
        if (nDistance >= nBest)
            continue;
        nBest  = nDistance;
        nIndex = i;
    }
    return static_cast<uint8_t>(nIndex);
}

// The first of the entries with the largest count. There is at least one.
static cColourHistogram::cEntry &MostFrequent(cColourHistogram *pHistogram)
{
    cColourHistogram::cEntry *const pFirst = &pHistogram->Entry(0);
    return *std::max_element(
        pFirst, pFirst + pHistogram->Count(),
        [](const auto &Left, const auto &Right) { return Left.m_nCount < Right.m_nCount; });
}

void BuildPalette(cColourHistogram *pHistogram, uint8_t (&Palette)[kPaletteBytes])
{
    memset(Palette, kUnusedGrey, sizeof Palette);
    const unsigned nPicked = std::min(pHistogram->Count(), kPaletteColours);
    for (unsigned nIndex = 0; nIndex < nPicked; nIndex++)
    {
        cColourHistogram::cEntry &Entry = MostFrequent(pHistogram);
        Entry.m_nIndex                  = static_cast<uint8_t>(nIndex);
        Entry.m_nCount                  = 0;
        Palette[3 * nIndex + 0]         = Red(Entry.m_nColour);
        Palette[3 * nIndex + 1]         = Green(Entry.m_nColour);
        Palette[3 * nIndex + 2]         = Blue(Entry.m_nColour);
    }
    for (unsigned nEntry = 0; nEntry < pHistogram->Count(); nEntry++)
    {
        cColourHistogram::cEntry &Entry = pHistogram->Entry(nEntry);
        if (Entry.m_nCount > 0)
            Entry.m_nIndex = NearestIndex(Entry.m_nColour, Palette);
    }
}

void MapPixels(const cColourHistogram &Histogram, const uint8_t *pPixels, int32_t nPixels,
               uint8_t *pIndices)
{
    while (nPixels > 0)
    {
        const int32_t nRun = RunLength(pPixels, nPixels);
        memset(pIndices, Histogram.Find(LoadU24(pPixels)).m_nIndex, static_cast<size_t>(nRun));
        pPixels += 3 * nRun;
        pIndices += nRun;
        nPixels -= nRun;
    }
}

// --- all of it

static int CountRows(const cDibImage &Image, uint8_t *pRow, cColourHistogram *pHistogram)
{
    for (int32_t nRow = 0; nRow < Image.m_nHeight; nRow++)
        if (!pHistogram->Add(ExpandTo24(Image, nRow, pRow), Image.m_nWidth))
            return 0;
    return 1;
}

static void MapRows(const cDibImage &Image, uint8_t *pRow, const cColourHistogram &Histogram,
                    uint8_t *pReducedRow)
{
    const size_t nWidth = static_cast<size_t>(Image.m_nWidth);
    const size_t nBytes = DibRowBytes(Image.m_nWidth, 8);
    for (int32_t nRow = 0; nRow < Image.m_nHeight; nRow++, pReducedRow += nBytes)
    {
        MapPixels(Histogram, ExpandTo24(Image, nRow, pRow), Image.m_nWidth, pReducedRow);
        memset(pReducedRow + nWidth, 0, nBytes - nWidth);
    }
}

int ReduceColours(const cDibImage &Image, cReducedImage *pReduced)
{
    const size_t nReducedBytes =
        DibRowBytes(Image.m_nWidth, 8) * static_cast<size_t>(Image.m_nHeight);
    const std::unique_ptr<uint8_t[]>        pRow(new (std::nothrow)
                                                     uint8_t[3 * static_cast<size_t>(Image.m_nWidth)]);
    const std::unique_ptr<cColourHistogram> pHistogram(new (std::nothrow) cColourHistogram);
    pReduced->m_pPixels.reset(new (std::nothrow) uint8_t[nReducedBytes]);
    if (!pRow || !pHistogram || !pReduced->m_pPixels)
        return 0;

    while (!CountRows(Image, pRow.get(), pHistogram.get()))
        pHistogram->Coarsen();
    BuildPalette(pHistogram.get(), pReduced->m_Palette);
    MapRows(Image, pRow.get(), *pHistogram, pReduced->m_pPixels.get());
    pReduced->m_nWidth  = Image.m_nWidth;
    pReduced->m_nHeight = Image.m_nHeight;
    return 1;
}
