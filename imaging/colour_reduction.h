// colour_reduction.h - reduces a picture of any depth to 256 colours. A picture
// with at most 256 colours keeps all of them; otherwise the 256 most frequent
// remain and each other colour becomes the nearest of those.

#ifndef IMAGING_COLOUR_REDUCTION_H
#define IMAGING_COLOUR_REDUCTION_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "imaging/dib_image.h"

const unsigned kPaletteColours = 256;
const unsigned kPaletteBytes   = 3 * kPaletteColours;  // red, green, blue of each

// The 8-bit picture that results from a reduction.
struct cReducedImage
{
    int32_t                    m_nWidth  = 0;
    int32_t                    m_nHeight = 0;
    uint8_t                    m_Palette[kPaletteBytes];
    std::unique_ptr<uint8_t[]> m_pPixels;

    // A view of this object, as input of the GIF encoder.
    cDibImage Dib() const { return {m_nWidth, m_nHeight, 8, 0, m_Palette, m_pPixels.get()}; }
};

// Reduces a picture of 1, 4, 8, 16 or 24 bits. A picture of fewer than 256
// colours leaves entries of the palette unused; they are (128, 128, 128).
// In addition to the result it allocates one row of 24 bits and about 40 KB.
// Returns 0 if memory is short; then *pReduced is undefined.
int ReduceColours(const cDibImage &Image, cReducedImage *pReduced);

// Its steps, in this order.

// Row nRow as stored (0 is the bottom) in 24 bits: blue, green, red. pRow has
// room for them; for a picture of 24 bits its own row is returned and pRow is not
// used. The low bits of 16-bit colours stay 0: white, 0x7FFF at
// 5-5-5, is (248, 248, 248).
const uint8_t *ExpandTo24(const cDibImage &Image, int32_t nRow, uint8_t *pRow);

// How often each colour occurs, in the order of first occurrence. Only so many
// upper bits of each channel count that there are no more than 2049 colours.
class cColourHistogram
{
public:
    static constexpr unsigned kMostColours = 2049;

    struct cEntry
    {
        uint32_t m_nColour;  // masked; blue in the low byte, then green, red
        uint32_t m_nCount;   // pixels; 0 once the colour is in the palette
        uint8_t  m_nIndex;   // in the palette
    };

    cColourHistogram();  // all 8 bits of each channel count

    // Adds pixels of 24 bits. Returns 0 at the 2050th colour.
    int Add(const uint8_t *pPixels, int32_t nPixels);

    // Forgets all colours and drops the lowest bit of one channel: blue first,
    // then red, then green, and so on, so that green keeps the most.
    void Coarsen();

    // The entry of a colour that has been added, masked or not.
    const cEntry &Find(uint32_t nColour) const { return m_Entries[m_nSlots[FindSlot(nColour)]]; }

    unsigned Count() const { return m_nEntries; }
    cEntry  &Entry(unsigned nEntry) { return m_Entries[nEntry]; }
    uint32_t Mask() const { return m_nMask; }  // laid out as a colour

private:
    static constexpr unsigned kSlots     = 5191;  // at most two fifths in use
    static constexpr uint16_t kEmptySlot = 0xFFFF;

    void     Clear();
    unsigned FindSlot(uint32_t nColour) const;

    uint32_t m_nMask;
    unsigned m_nEntries;
    cEntry   m_Entries[kMostColours];
    uint16_t m_nSlots[kSlots];
};

// Puts the most frequent colours into the palette; of equally frequent ones, the
// one that occurred first comes first. Gives each colour the index of itself or
// of the nearest; of equally near ones, of the first.
void BuildPalette(cColourHistogram *pHistogram, uint8_t (&Palette)[kPaletteBytes]);

// Palette indices of nPixels pixels of 24 bits.
void MapPixels(const cColourHistogram &Histogram, const uint8_t *pPixels, int32_t nPixels,
               uint8_t *pIndices);

#endif
