// double_scan.h - reads decimal numbers, and the words that stand for a missing one,
// at the precision of a double.
// Pure: no locale, no file.

#ifndef TABLES_DOUBLE_SCAN_H
#define TABLES_DOUBLE_SCAN_H

// Reads the number that the text from pText to pEnd begins with; returns its end, or
// null if there is none. A number is an optional sign, digits with at most one
// cPoint ('.' or ',') among them, and an optional exponent with at least one digit:
// what graph/float_scan.h takes for one. It is rounded once, to the nearest double;
// "1e400" is infinite, "1e-400" is 0.
const char *ReadDouble(const char *pText, const char *pEnd, char cPoint, double *pValue);

// Returns the end of a word for a value that is missing or not finite, in any case:
// nan, na, n/a, null, none, inf and infinity, the first and the last two also with a
// sign. Null if the text begins with no such word, or with a longer one.
const char *SkipGapWord(const char *pText, const char *pEnd);

#endif
