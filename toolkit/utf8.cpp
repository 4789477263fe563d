#include "toolkit/utf8.h"

static unsigned ByteAt(std::string_view Text, size_t nAt)
{
    return nAt < Text.size() ? static_cast<unsigned char>(Text[nAt]) : 0;
}

// Lead bytes and what may follow them. The first continuation byte is narrower
// where it would spell an overlong form, a surrogate or a code beyond U+10FFFF.
static const struct
{
    unsigned m_nLeadMin;
    unsigned m_nLeadMax;
    unsigned m_nNextMin;
    unsigned m_nNextMax;
    size_t   m_nLength;
} s_Sequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

size_t Utf8Length(std::string_view Text)
{
    if (Text.empty())
        return 0;
    const unsigned nLead = ByteAt(Text, 0);
    if (nLead < 0x80)
        return 1;
    for (const auto &Row : s_Sequences)
    {
        if (nLead < Row.m_nLeadMin || nLead > Row.m_nLeadMax)
            continue;
        const unsigned nNext = ByteAt(Text, 1);
        if (nNext < Row.m_nNextMin || nNext > Row.m_nNextMax)
            return 0;
        for (size_t i = 2; i < Row.m_nLength; i++)
            if ((ByteAt(Text, i) & 0xC0) != 0x80)
                return 0;
        return Row.m_nLength;
    }
    return 0;
}
