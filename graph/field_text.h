// field_text.h - validates the texts in the fields of the dialogs.
// Pure: no locale, no window.

#ifndef GRAPH_FIELD_TEXT_H
#define GRAPH_FIELD_TEXT_H

#include <cstdint>

// An integer of nLeast to nMost that fills the field: blanks and a plus sign may
// precede it, nothing may follow it. Returns 0 and keeps *pValue for any other
// text: "27" within 0 to 26, "-1", "5 ", "2.0", "".
int ReadUnsignedField(const char *szText, uint32_t nLeast, uint32_t nMost, uint32_t *pValue);

// The same for an integer that may have a minus sign: "-5".
int ReadSignedField(const char *szText, int32_t *pValue);

// The integer that the text begins with, 0 if none: 24 of "24  (millions of
// colors)".
uint32_t ReadLeadingInteger(const char *szText);

// A decimal number that fills the field, blanks before it allowed: " -1.5e3".
// A value beyond a float becomes +-3.4028235e38. Returns 0 and keeps *pValue for
// any other text: "1,5", "1e", "0x10", "inf", "".
int ReadNumberField(const char *szText, float *pValue);

#endif
