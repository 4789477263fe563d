// float_scan.h - finds and reads the decimal numbers in a text.
// Pure: no locale, no file, no window.

#ifndef GRAPH_FLOAT_SCAN_H
#define GRAPH_FLOAT_SCAN_H

// Returns the end of the number at the start of szText, or null when there is
// none. White space before it is skipped, line ends included. A number
// is an optional sign, digits with at most one point among them (".5" and "5."
// count, "." does not), and an optional exponent with at least one digit. Of
// "1e+" the "1" is the number, of "0x10" the "0"; "inf" and "nan" are none.
const char *SkipFloat(const char *szText);

// As SkipFloat, and stores the value, rounded once to the nearest float. What is
// beyond the range of a float becomes +-3.4028235e38 ("1e99"), what is too
// small for one becomes a zero of its sign. Without a number *pValue stays.
const char *ReadFloat(const char *szText, float *pValue);

#endif
