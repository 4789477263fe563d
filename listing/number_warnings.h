// number_warnings.h - numbers whose value is not what their digits say.

#ifndef LISTING_NUMBER_WARNINGS_H
#define LISTING_NUMBER_WARNINGS_H

struct cSourceLine;
class cFindings;

// Number lines that lose digits or lie outside the calculator's range; and words
// that are rejected because they have too many characters or too few digits.
void FindNumberWarnings(const cSourceLine &Line, cFindings *pFindings);

#endif
