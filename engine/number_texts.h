// number_texts.h - remembers the texts of the numbers formatted last: a program
// moves numbers more often than it computes them.

#ifndef ENGINE_NUMBER_TEXTS_H
#define ENGINE_NUMBER_TEXTS_H

#include <cstdint>

#include "engine/number_format.h"

class cNumberTexts
{
public:
    cNumberTexts();

    // As FormatNumber(); Format is described by its mode and its digits.
    unsigned Format(double dValue, const cNumberFormat &Format, char (&szText)[kStackText]);

private:
    static const unsigned kTexts = 16;  // a power of two

    struct cText
    {
        uint64_t m_nBits;  // the number's
        unsigned m_nMode;
        unsigned m_nDigits;
        unsigned m_nCode;
        char     m_szText[kStackText];  // "" while the place is free
    };

    cText m_Texts[kTexts];
};

#endif
