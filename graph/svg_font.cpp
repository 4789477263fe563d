#include "graph/svg_font.h"

#include <cstdint>

#include "toolkit/utf8.h"

static const int kUnitsPerEm = 2048;
static const int kOtherWidth = 1139;  // a digit's

static const unsigned kFirstAscii  = 0x20;
static const unsigned kFirstLatin1 = 0xA0;
static const unsigned kFirstBeyond = 0x100;

// clang-format off
static const int kAsciiWidths[] =  // from the blank to "~"
{
     569,  569,  727, 1139, 1139, 1821, 1366,  391,  682,  682,  797, 1196,  569,  682,  569,  569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139,  569,  569, 1196, 1196, 1196, 1139,
    2079, 1366, 1366, 1479, 1479, 1366, 1251, 1593, 1479,  569, 1024, 1366, 1139, 1706, 1479, 1593,
    1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251,  569,  569,  569,  961, 1139,
     682, 1139, 1139, 1024, 1139, 1139,  569, 1139, 1139,  455,  455, 1024,  455, 1706, 1139, 1139,
    1139, 1139,  682, 1024,  569, 1139, 1024, 1479, 1024, 1024, 1024,  684,  532,  684, 1196,
};

static const int kLatin1Widths[] =  // from the no-break space to U+00FF
{
     569,  682, 1139, 1139, 1139, 1139,  532, 1139,  682, 1509,  758, 1139, 1196,  682, 1509, 1131,
     819, 1124,  682,  682,  682, 1180, 1100,  569,  682,  682,  748, 1139, 1708, 1708, 1708, 1251,
    1366, 1366, 1366, 1366, 1366, 1366, 2048, 1479, 1366, 1366, 1366, 1366,  569,  569,  569,  569,
    1479, 1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366, 1251,
    1139, 1139, 1139, 1139, 1139, 1139, 1821, 1024, 1139, 1139, 1139, 1139,  569,  569,  569,  569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1124, 1251, 1139, 1139, 1139, 1139, 1024, 1139, 1024,
};
// clang-format on

namespace
{

struct cWidthRange
{
    unsigned m_nFirst;
    unsigned m_nLast;
    int      m_nWidth;
};

}  // namespace

// Letters that are wider than a digit on the whole, and characters of other fonts that
// fill a square.
static const cWidthRange kRangeWidths[] = {
    {0x0391, 0x03AB, 1479},            // Greek capitals
    {0x0400, 0x042F, 1593},            // Cyrillic ones
    {0x0430, 0x045F, 1251},            // and small ones
    {0x1100, 0x115F, kUnitsPerEm},     // Korean
    {0x2014, 0x2014, kUnitsPerEm},     // the dash
    {0x2026, 0x2026, kUnitsPerEm},     // the ellipsis
    {0x2E80, 0xA4CF, kUnitsPerEm},     // Chinese, Japanese
    {0xAC00, 0xD7A3, kUnitsPerEm},     // Korean
    {0xF900, 0xFAFF, kUnitsPerEm},     // Chinese
    {0xFE30, 0xFE6F, kUnitsPerEm},     // their signs
    {0xFF01, 0xFF60, kUnitsPerEm},     // wide forms of others
    {0xFFE0, 0xFFE6, kUnitsPerEm},     // and of signs
    {0xFFFD, 0xFFFD, kUnitsPerEm},     // in place of what is no character
    {0x1F300, 0x1FAFF, kUnitsPerEm},   // pictures
    {0x20000, 0x3FFFD, kUnitsPerEm}};  // Chinese

static int WidthInRanges(unsigned nCode)
{
    for (const cWidthRange &Range : kRangeWidths)
        if (nCode >= Range.m_nFirst && nCode <= Range.m_nLast)
            return Range.m_nWidth;
    return kOtherWidth;
}

// The code of a character of 2 to 4 bytes.
static unsigned CodeOf(std::string_view Character)
{
    unsigned nCode = static_cast<unsigned char>(Character[0]) & (0xFFU >> (Character.size() + 1));
    for (const char c : Character.substr(1))
        nCode = nCode << 6 | (static_cast<unsigned char>(c) & 0x3F);
    return nCode;
}

template <int nCount>
static int WidthOf(const int (&Widths)[nCount], unsigned nFirst, unsigned nCode)
{
    return nCode >= nFirst && nCode - nFirst < nCount ? Widths[nCode - nFirst] : kOtherWidth;
}

// Of the character of nLength bytes that Text begins with.
static int CharacterWidth(std::string_view Text, size_t nLength)
{
    const unsigned nLead = static_cast<unsigned char>(Text[0]);
    if (nLength == 1)
        return WidthOf(kAsciiWidths, kFirstAscii, nLead);
    if (nLength == 0)
        return kOtherWidth;
    const unsigned nCode = CodeOf(Text.substr(0, nLength));
    return nCode < kFirstBeyond ? WidthOf(kLatin1Widths, kFirstLatin1, nCode)
                                : WidthInRanges(nCode);
}

static int64_t WidthInUnits(std::string_view Text)
{
    int64_t nUnits = 0;
    while (!Text.empty())
    {
        const size_t nLength = Utf8Length(Text);
        nUnits += CharacterWidth(Text, nLength);
        Text.remove_prefix(nLength > 0 ? nLength : 1);
    }
    return nUnits;
}

int SvgTextWidth(const char *szText)
{
    const int64_t nUnits = WidthInUnits(szText);
    return static_cast<int>((nUnits * kSvgFontSize + kUnitsPerEm / 2) / kUnitsPerEm);
}

double SvgTextEms(std::string_view Text)
{
    return static_cast<double>(WidthInUnits(Text)) / kUnitsPerEm;
}
