#include "engine/number_texts.h"

#include <bit>
#include <cstring>

// Spreads the bits of neighbouring numbers over the top ones.
static const uint64_t kSpread = 0x9E3779B97F4A7C15;

cNumberTexts::cNumberTexts() : m_Texts{} {}

unsigned cNumberTexts::Format(double dValue, const cNumberFormat &Format,
                              char (&szText)[kStackText])
{
    const uint64_t nBits = std::bit_cast<uint64_t>(dValue);
    cText         &Text  = m_Texts[nBits * kSpread >> 32 & (kTexts - 1)];
    if (!Text.m_szText[0] || Text.m_nBits != nBits || Text.m_nMode != Format.m_nDisplayMode ||
        Text.m_nDigits != Format.m_nDisplayDigits)
    {
        Text.m_nCode   = FormatNumber(dValue, Format, Text.m_szText);
        Text.m_nBits   = nBits;
        Text.m_nMode   = Format.m_nDisplayMode;
        Text.m_nDigits = Format.m_nDisplayDigits;
    }
    memcpy(szText, Text.m_szText, sizeof szText);
    return Text.m_nCode;
}
