// number_format.h - turns a double into the text of a stack level.
// Pure: no engine state, no locale, no window.

#ifndef ENGINE_NUMBER_FORMAT_H
#define ENGINE_NUMBER_FORMAT_H

#include <cstddef>

const int kStackText = 18;  // sign, digits, point, "e-99", terminating zero

const unsigned kModeFix = 0;
const unsigned kModeSci = 1;
const unsigned kModeEng = 2;

// What FIX, SCI and ENG have set.
struct cNumberFormat
{
    unsigned m_nDisplayMode;     // kModeFix, kModeSci or kModeEng
    unsigned m_nDisplayDigits;   // 0 to 9
    char     m_szFixFormat[12];  // "%+.2lf": fixed notation with 2 places
    char     m_szSciFormat[12];  // "%+.2le": scientific notation with 2 places
    double   m_dFixMin;          // smallest magnitude in fixed notation
    double   m_dFixMax;          // magnitude from which it gives way to scientific
};

// Codes of FormatNumber; each is shown as "Program Error Code #".
const unsigned kCodeExponent      = 106;  // an exponent needs three digits
const unsigned kCodeIntegerDigits = 116;  // ENG with other than 1 to 3 integer digits

// Writes dValue into szText. FIX falls back to SCI where it would show only
// zeros or run out of room: FIX 2 shows 0.005 as "+0.01" and 0.004 as
// "+4.00e-03". A NaN shows "+nan", infinities "+inf" and "-inf". Returns 0,
// or the code of what had to be repaired.
unsigned FormatNumber(double dValue, const cNumberFormat &Format, char (&szText)[kStackText]);

// Prints dValue as printf would with szFormat, "%+.Nlf" or "%+.Nle", N 0 to 9,
// but with the same digits on every platform and in every locale: exact
// rounding, ties to even, exponents of at least two digits. Cut to nSize - 1
// characters.
void PrintNumber(const char *szFormat, double dValue, char *szText, size_t nSize);

// Puts N, 0 to 9, into "%+.Nlf" (cConversion 'f') or "%+.Nle" ('e').
void BuildFormat(unsigned nDigits, char cConversion, char (&szFormat)[12]);

#endif
